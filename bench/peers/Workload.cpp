// SPDX-License-Identifier: BSD-3-Clause
// The fixed inputs of all benchmarks.
#include "Workload.h"

#include "../Measure.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace bench
{

namespace
{

std::uint64_t mix(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

/** printf into a string, for texts of less than 128 characters. */
template <class... Arguments>
std::string format(char const * pattern, Arguments... arguments)
{
    char buffer[128];
    int const length = std::snprintf(buffer, sizeof buffer, pattern, arguments...);
    return std::string(buffer, std::size_t(length));
}

/** Decimal text of thousandths / 1000 without trailing zeros: at most six significant digits. */
std::string decimal(unsigned thousandths)
{
    std::string text = format("%u.%03u", thousandths / 1000, thousandths % 1000);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') {
        text.pop_back();
    }
    return text;
}

std::string tableText(Random & random)
{
    std::string text;
    switch (random.below(4)) {
    case 0:
        text = format("R%u", random.below(5000));
        break;
    case 1:
        text = format("node_%05u", random.below(100000));
        break;
    default:
        text = random.word();
    }
    if (random.below(64) == 0) {
        text += "<&";
    }
    return text;
}

void appendRandomBytes(Random & random, std::string & out)
{
    std::uint64_t value = random.next();
    for (int i = 0; i < 8; ++i, value >>= 8) {
        // No zero bytes: the devices under test are made for text.
        out += char((value & 255) != 0 ? value & 255 : 1);
    }
}

/** \a kind from 0 to 99: 40 of a hundred are CSV, 25 XML, 20 Base64 and the rest random bytes. */
std::string fileContent(Random & random, unsigned kind, std::size_t size)
{
    std::string out;
    out.reserve(size + 4096);
    while (out.size() < size) {
        if (kind < 40) {
            appendCsvLine(random, out);
        } else if (kind < 65) {
            appendXmlRecord(random, out);
        } else if (kind < 85) {
            out += base64(random.unit() * 10.0) + "\n";
        } else {
            appendRandomBytes(random, out);
        }
    }
    out.resize(size);
    return out;
}

/** Several words with blanks between them. */
std::string words(Random & random, unsigned count)
{
    std::string text;
    for (unsigned i = 0; i < count; ++i) {
        text += (i != 0 ? " " : "") + random.word();
    }
    return text;
}

std::string escaped(std::string const & text)
{
    std::string out;
    for (char const c : text) {
        if (c == '&') {
            out += "&amp;";
        } else if (c == '<') {
            out += "&lt;";
        } else {
            out += c;
        }
    }
    return out;
}

void writeFile(fs::path const & path, std::string const & content)
{
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.write(content.data(), std::streamsize(content.size()));
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

/** Makes what \a make makes under another name first, so that a run cut off leaves nothing that looks
 * complete. */
template <class Make>
std::string makeOnce(std::string const & leaf, Make make)
{
    fs::path const path = dataFile(leaf);
    if (!fs::exists(path)) {
        fs::path const part = dataFile(leaf + ".part");
        fs::remove_all(part);
        make(part);
        fs::rename(part, path);
    }
    return path.string();
}

} // namespace

std::uint64_t Random::next()
{
    m_state += 0x9E3779B97F4A7C15ull;
    return mix(m_state);
}

std::uint32_t Random::below(std::uint32_t limit)
{
    return std::uint32_t(((next() >> 32) * limit) >> 32);
}

double Random::unit()
{
    return double(next() >> 11) * (1.0 / 9007199254740992.0);
}

std::string Random::word()
{
    std::string text(4 + below(8), 'a');
    for (char & c : text) {
        c = char('a' + int(below(26)));
    }
    return text;
}

std::string Random::name(std::size_t size)
{
    std::string text(size, 'a');
    for (char & c : text) {
        c = char((below(2) != 0 ? 'a' : 'A') + int(below(26)));
    }
    return text;
}

Cell makeCell(Random & random, unsigned column)
{
    Cell cell;
    if (column % 4 == 0) {
        cell.integer = int(random.below(1000000));
    } else if (column % 4 == 2) {
        cell.kind = CellKind::Double;
        cell.real = double(random.below(1000000)) / 1000.0;
    } else {
        cell.kind = CellKind::Text;
        cell.text = tableText(random);
    }
    return cell;
}

Table makeTable(unsigned rows, unsigned columns, std::uint64_t seed)
{
    Table table;
    table.rows = rows;
    table.columns = columns;
    table.cells.reserve(std::size_t(rows) * columns);
    Random random(seed);
    for (unsigned row = 0; row < rows; ++row) {
        for (unsigned column = 0; column < columns; ++column) {
            table.cells.push_back(makeCell(random, column));
        }
    }
    return table;
}

void appendCsvLine(Random & random, std::string & out)
{
    out += format("%u,", random.below(1000000)) + decimal(random.below(1000000)) + "," + random.word();
    out += format(",%s%u.", random.below(2) != 0 ? "-" : "", 1 + random.below(9));
    out += format("%05ue%s", random.below(100000), random.below(2) != 0 ? "-" : "+");
    out += format("%02u,%u,", 1 + random.below(18), random.below(100));
    out += format("node_%05u,", random.below(100000)) + decimal(random.below(1000000));
    out += ",-" + decimal(1 + random.below(999999)) + "," + random.word();
    out += format(",%u\n", random.below(2000000000));
}

void appendXmlRecord(Random & random, std::string & out)
{
    out += format("\n  <record id=\"%u\"", random.below(1000000));
    out +=
        format(" name=\"node_%05u\"", random.below(100000)) + " owner=\"" + random.word() + "\">\n   <title>";
    for (unsigned i = 0, n = 2 + random.below(4); i < n; ++i) {
        out += random.word() + " ";
    }
    out += "</title>\n   <point x=\"" + decimal(random.below(1000000)) + "\" y=\"-";
    out += decimal(1 + random.below(999999)) + "\"/>\n   <note>" + random.word() + " a&lt;b " + random.word();
    out += "</note>\n  </record>";
}

Record makeRecord(Random & random, unsigned index)
{
    static char const * const kinds[] = {"resistor", "capacitor", "inductor", "diode", "source"};
    Record record;
    record.id = std::to_string(index);
    record.name = format("node_%05u", random.below(100000));
    record.kind = kinds[random.below(5)];
    record.owner = random.word();
    record.title = words(random, 2 + random.below(4));
    record.x = decimal(random.below(1000000));
    record.y = "-" + decimal(1 + random.below(999999));
    for (unsigned i = 0, n = 1 + random.below(3); i < n; ++i) {
        record.tags.push_back(random.word());
    }
    record.note = words(random, 4 + random.below(8));
    if (random.below(4) == 0) {
        record.note += " a<b & c";
    }
    return record;
}

void appendRecord(std::string & out, Record const & record, bool indented)
{
    auto const line = [&](unsigned depth) {
        if (indented) {
            out += '\n';
            out.append(depth, ' ');
        }
    };
    line(2);
    out += "<record id=\"" + record.id + "\" name=\"" + record.name + "\" kind=\"" + record.kind;
    out += "\" owner=\"" + record.owner + "\">";
    line(3);
    out += "<title>" + record.title + "</title>";
    line(3);
    out += "<point x=\"" + record.x + "\" y=\"" + record.y + "\"/>";
    line(3);
    out += "<tags>";
    for (std::string const & tag : record.tags) {
        line(4);
        out += "<tag>" + tag + "</tag>";
    }
    line(3);
    out += "</tags>";
    line(3);
    out += "<note>" + escaped(record.note) + "</note>";
    line(2);
    out += "</record>";
}

std::string base64(double value)
{
    static char const alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    unsigned char bytes[9] = {};
    std::memcpy(bytes, &value, sizeof value);
    std::string text;
    for (int i = 0; i < 9; i += 3) {
        unsigned const group = unsigned(bytes[i]) << 16 | unsigned(bytes[i + 1]) << 8 | bytes[i + 2];
        for (unsigned shift : {18u, 12u, 6u, 0u}) {
            text += alphabet[group >> shift & 63];
        }
    }
    text.back() = '=';
    return text;
}

std::string csvFile(std::uint64_t bytes)
{
    return makeOnce("table-" + std::to_string(bytes) + ".csv", [bytes](fs::path const & path) {
        std::ofstream out(path, std::ios::binary);
        Random random(2);
        std::string line;
        for (std::uint64_t written = 0; written < bytes; written += line.size()) {
            line.clear();
            appendCsvLine(random, line);
            out.write(line.data(), std::streamsize(line.size()));
        }
    });
}

std::string resultFile(unsigned runs)
{
    return makeOnce("result-" + std::to_string(runs) + ".xml", [runs](fs::path const & path) {
        constexpr unsigned quantities = 10;
        constexpr unsigned parameters = 14;
        std::ofstream out(path, std::ios::binary);
        Random random(5);
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<msw version=\"1.0\" rev=\"1\">\n"
               " <header analysis=\"mc\" date=\"today\" numcores=\"4\" title=\"bench\" group=\"g\"/>\n";
        for (unsigned quantity = 0; quantity < quantities; ++quantity) {
            out << " <meritfunction value=\"Merit" << quantity << "\" name=\"\">\n";
            for (unsigned run = 1; run <= runs; ++run) {
                out << "  <sensval case=\"" << run << "\" value=\"" << base64(random.unit()) << "\"/>\n";
            }
            out << " </meritfunction>\n";
        }
        out << " <steps>\n";
        for (unsigned run = 1; run <= runs; ++run) {
            out << "  <step name=\"Refdes:R" << run << "/DevParam:res/PDF:gauss\" case=\"" << run
                << "\" seed=\"" << (random.next() >> 1) << "\">\n";
            for (unsigned parameter = 0; parameter < parameters; ++parameter) {
                out << "   <parameter name=\"R" << parameter << ":res\" nom=\"" << base64(1000.0 + parameter)
                    << "\" usedvalue=\"" << base64(1000.0 * (0.9 + 0.2 * random.unit())) << "\" tol=\""
                    << base64(0.1) << "\"/>\n";
            }
            out << "  </step>\n";
        }
        out << " </steps>\n</msw>\n";
    });
}

std::string recordsFile(std::uint64_t bytes)
{
    return makeOnce("records-" + std::to_string(bytes) + ".xml", [bytes](fs::path const & path) {
        std::ofstream out(path, std::ios::binary);
        Random random(3);
        std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><library version=\"1.0\">";
        std::uint64_t written = 0;
        unsigned index = 0;
        for (unsigned group = 0; written + text.size() < bytes; ++group) {
            text += format("\n <group name=\"g%u\">", group);
            for (unsigned i = 0; i < 100; ++i) {
                appendRecord(text, makeRecord(random, index++), true);
            }
            text += "\n </group>";
            out.write(text.data(), std::streamsize(text.size()));
            written += text.size();
            text.clear();
        }
        out << text << "\n</library>";
    });
}

std::string smallTree(unsigned files)
{
    return makeOnce("small-" + std::to_string(files), [files](fs::path const & root) {
        Random random(10);
        for (unsigned n = 0; n < files; ++n) {
            unsigned const kind = random.below(85);
            std::size_t const size = 200 + random.below(8000);
            writeFile(root / format("d%03u/file_%05u.txt", n / 100, n), fileContent(random, kind, size));
        }
    });
}

std::string mixedTree(std::uint64_t bytes)
{
    return makeOnce("mixed-" + std::to_string(bytes >> 20), [bytes](fs::path const & root) {
        Random random(9);
        std::uint64_t total = 0;
        for (unsigned n = 0; total < bytes; ++n) {
            unsigned const kind = random.below(100);
            std::size_t size = std::size_t(2048) << random.below(12);
            size += random.below(std::uint32_t(size));
            writeFile(root / format("d%02u/e%02u/file_%05u.dat", n % 8, n / 8 % 16, n),
                      fileContent(random, kind, size));
            total += size;
        }
    });
}

} // namespace bench
