// SPDX-License-Identifier: BSD-3-Clause
// 100 MB of CSV text into typed cells and back: against Qt, libcsv, the standard streams, and programs that
// do by hand only what the format asks for.
#include "Measure.h"
#include "peers/CellText.h"
#include "peers/Workload.h"

#include <ZyCSVWriter.h>
#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyVariantTable.h>

#include <QFile>
#include <QStringList>
#include <QTextStream>
#include <QVariant>
#include <QVector>

#ifdef ZYBENCH_LIBCSV
#include <csv.h>
#endif

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr std::uint64_t csvBytes = 100000000;

std::string contentOf(std::string const & path)
{
    std::FILE * const file = std::fopen(path.c_str(), "rb");
    std::string content(csvBytes + 4096, 0);
    content.resize(std::fread(content.data(), 1, content.size(), file));
    std::fclose(file);
    return content;
}

/** Every loader is held to the same result. */
void checkCells(std::uint64_t cells)
{
    check(cells > 11000000, "cells are missing");
}

/** Calls \a field with each field of \a text; no quotes. */
template <class Field>
void eachField(std::string const & text, Field field)
{
    char const * start = text.data();
    char const * const end = start + text.size();
    for (char const * at = start; at < end; ++at) {
        if (*at == ',' || *at == '\n') {
            field(std::string_view(start, std::size_t(at - start)));
            start = at + 1;
        }
    }
}

/** Appends the field to \a cells by the typing rule. */
template <class Cells>
void appendTyped(Cells & cells, std::string_view field)
{
    int integer;
    double real;
    if (canonicalInteger(field, integer)) {
        cells.emplace_back(integer);
    } else if (fullDouble(field, real)) {
        cells.emplace_back(real);
    } else {
        cells.emplace_back(field);
    }
}

/** std::variant takes a string_view into its string only when told. */
struct VariantCells : std::vector<VariantCell>
{
    template <class T>
    void emplace_back(T value)
    {
        std::vector<VariantCell>::emplace_back(value);
    }
    void emplace_back(std::string_view text)
    {
        std::vector<VariantCell>::emplace_back(std::in_place_type<std::string>, text);
    }
};

void loadByHand(std::string const & path)
{
    std::string const text = contentOf(path);
    std::vector<HeapCell> cells;
    cells.reserve(text.size() / 8);
    eachField(text, [&](std::string_view field) { appendTyped(cells, field); });
    checkCells(cells.size());
}

void loadVariants(std::string const & path)
{
    std::string const text = contentOf(path);
    VariantCells cells;
    cells.reserve(text.size() / 8);
    eachField(text, [&](std::string_view field) { appendTyped(cells, field); });
    checkCells(cells.size());
}

void appendQt(QVector<QVariant> & cells, QStringRef const & field)
{
    bool good = false;
    int const integer = field.toInt(&good);
    if (good && field.at(0) != QLatin1Char('+') && (field.at(0) != QLatin1Char('0') || field.size() == 1)) {
        cells.append(QVariant(integer));
        return;
    }
    double const real = field.toDouble(&good);
    cells.append(good ? QVariant(real) : QVariant(field.toString()));
}

void loadQt(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    QVector<QVariant> cells;
    QString line;
    while (stream.readLineInto(&line)) {
        for (QStringRef const & field : line.splitRef(QLatin1Char(','))) {
            appendQt(cells, field);
        }
    }
    checkCells(std::uint64_t(cells.size()));
}

#ifdef ZYBENCH_LIBCSV
void loadLibcsv(std::string const & path)
{
    VariantCells cells;
    csv_parser parser;
    csv_init(&parser, CSV_STRICT);
    std::FILE * const file = std::fopen(path.c_str(), "rb");
    std::string block(1 << 16, 0);
    auto field = [](void * data, std::size_t size, void * user) {
        appendTyped(*static_cast<VariantCells *>(user),
                    std::string_view(static_cast<char const *>(data), size));
    };
    auto row = [](int, void *) {};
    while (std::size_t const size = std::fread(block.data(), 1, block.size(), file)) {
        csv_parse(&parser, block.data(), size, field, row, &cells);
    }
    csv_fini(&parser, field, row, &cells);
    csv_free(&parser);
    std::fclose(file);
    checkCells(cells.size());
}
#endif

std::uint64_t cellsOf(ZyVariantTable const & table)
{
    return std::uint64_t(table.numberRows()) * table.numberColumns();
}

void registerIn()
{
    std::string const path = csvFile(csvBytes);
    addJob("csv-in/ours-file-device", [path] {
        ZyFileDevice device(path.c_str());
        checkCells(cellsOf(ZyVariantTable::LoadCSV(device, true)));
    });
    addJob("csv-in/ours-string-device", [path] {
        ZyStringDevice device{ZyString(contentOf(path))};
        checkCells(cellsOf(ZyVariantTable::LoadCSV(device, true)));
    });
    addJob("csv-in/ours-path", [path] { checkCells(cellsOf(ZyVariantTable(ZyString(path), true))); });
    addJob("csv-in/heap-cells", [path] { loadByHand(path); });
    addJob("csv-in/std-variant", [path] { loadVariants(path); });
    addJob("csv-in/QTextStream", [path] { loadQt(path); });
#ifdef ZYBENCH_LIBCSV
    addJob("csv-in/libcsv", [path] { loadLibcsv(path); });
#endif
}

// ---- out: the rows of one table over and over

constexpr unsigned outRounds = 126; // 100 MB

Table const & outTable()
{
    static Table const made = makeTable(10000, 10, 7);
    return made;
}

/** Calls \a cell(cell, is it the first of its row) for each cell and \a endRow after each row. */
template <class EachCell, class EndRow>
void eachOutCell(EachCell cell, EndRow endRow)
{
    Table const & table = outTable();
    for (unsigned round = 0; round < outRounds; ++round) {
        for (unsigned row = 0; row < table.rows; ++row) {
            for (unsigned column = 0; column < table.columns; ++column) {
                cell(table.at(row, column), column == 0);
            }
            endRow();
        }
    }
}

ZyVariant toVariant(Cell const & cell)
{
    switch (cell.kind) {
    case CellKind::Integer:
        return ZyVariant(cell.integer);
    case CellKind::Double:
        return ZyVariant(cell.real);
    case CellKind::Text:
        break;
    }
    return ZyVariant(cell.text.c_str());
}

std::vector<ZyVariant> const & outVariants()
{
    static std::vector<ZyVariant> const made = [] {
        std::vector<ZyVariant> variants;
        for (Cell const & cell : outTable().cells) {
            variants.push_back(toVariant(cell));
        }
        return variants;
    }();
    return made;
}

void writeOurs(ZyIODevice & device)
{
    std::vector<ZyVariant> const & cells = outVariants();
    ZyCSVWriter writer(device);
    for (unsigned round = 0; round < outRounds; ++round) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            writer.addValue(cells[i]);
            if (i % 10 == 9) {
                writer.endLine();
            }
        }
    }
}

void writeToChars(std::string const & path)
{
    std::FILE * const file = std::fopen(path.c_str(), "wb");
    std::string out;
    char buffer[64];
    auto number = [&](auto... value) {
        out.append(buffer, std::to_chars(buffer, buffer + 64, value...).ptr);
    };
    auto cell = [&](Cell const & c, bool first) {
        out += first ? "" : ",";
        switch (c.kind) {
        case CellKind::Integer:
            number(c.integer);
            break;
        case CellKind::Double:
            number(c.real, std::chars_format::general, 6);
            break;
        case CellKind::Text:
            out += c.text;
        }
    };
    auto flush = [&] {
        std::fwrite(out.data(), 1, out.size(), file);
        out.clear();
    };
    eachOutCell(cell, [&] {
        out += "\r\n";
        if (out.size() > 65536) {
            flush();
        }
    });
    flush();
    std::fclose(file);
}

void writeStream(std::string const & path)
{
    std::ofstream file(path, std::ios::binary);
    auto cell = [&](Cell const & c, bool first) {
        file << (first ? "" : ",");
        switch (c.kind) {
        case CellKind::Integer:
            file << c.integer;
            break;
        case CellKind::Double:
            file << c.real;
            break;
        case CellKind::Text:
            file << c.text;
        }
    };
    eachOutCell(cell, [&] { file << "\r\n"; });
}

void writeQt(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::WriteOnly);
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    auto cell = [&](Cell const & c, bool first) {
        stream << QLatin1String(first ? "" : ",");
        switch (c.kind) {
        case CellKind::Integer:
            stream << c.integer;
            break;
        case CellKind::Double:
            stream << c.real;
            break;
        case CellKind::Text:
            stream << QString::fromUtf8(c.text.data(), int(c.text.size()));
        }
    };
    eachOutCell(cell, [&] { stream << QLatin1String("\r\n"); });
}

void registerOut()
{
    std::string const path = dataFile("out.csv");
    outVariants();
    addJob("csv-out/ours-file-device", [path] {
        ZyFileDevice device(path.c_str());
        writeOurs(device);
        device.close();
    });
    addJob("csv-out/ours-string-device", [] {
        ZyStringDevice device;
        writeOurs(device);
    });
    addJob("csv-out/to_chars", [path] { writeToChars(path); });
    addJob("csv-out/ofstream", [path] { writeStream(path); });
    addJob("csv-out/QTextStream", [path] { writeQt(path); });
}

} // namespace

void registerBenchmarks()
{
    registerIn();
    registerOut();
}

} // namespace bench
