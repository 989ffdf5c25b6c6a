// SPDX-License-Identifier: BSD-3-Clause
// Making and checking the document of small records.
#include "Limits.h"

#include "../Measure.h"
#include "Workload.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench
{

namespace
{
Limit makeLimit(Random & random, unsigned index)
{
    Limit limit;
    char name[32];
    std::snprintf(name, sizeof(name), "node_%05u", random.below(100000));
    limit.id = int(index);
    limit.name = name;
    limit.value = int(random.below(1000000));
    limit.level = random.unit() * 1000.0;
    return limit;
}

std::uint64_t folded(std::uint64_t sum, Limit const & limit)
{
    std::uint64_t bits;
    std::memcpy(&bits, &limit.level, sizeof(bits));
    for (char const character : limit.name) {
        sum = sum * 131 + static_cast<unsigned char>(character);
    }
    return (sum ^ std::uint64_t(limit.id) ^ std::uint64_t(limit.value) << 32) * 0x100000001B3u + bits;
}

/** The value of each character of the alphabet; 0 for all others. */
std::array<unsigned char, 256> const & digits()
{
    static std::array<unsigned char, 256> const values = [] {
        std::array<unsigned char, 256> made{};
        unsigned char value = 0;
        for (char const c : "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/") {
            made[static_cast<unsigned char>(c)] = value++;
        }
        made[0] = 0;
        return made;
    }();
    return values;
}
} // namespace

std::string limitsFile(unsigned count)
{
    std::string const path = dataFile("limits-" + std::to_string(count) + ".xml");
    if (!std::filesystem::exists(path)) {
        std::ofstream out(path + ".part", std::ios::binary);
        Random random(4);
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Limits>";
        for (unsigned i = 0; i < count; ++i) {
            Limit const limit = makeLimit(random, i);
            out << "<Limit id=\"" << limit.id << "\"><Name>" << limit.name << "</Name><Value>" << limit.value
                << "</Value><Level>" << base64(limit.level) << "</Level></Limit>";
        }
        out << "</Limits>";
        out.close();
        std::filesystem::rename(path + ".part", path);
    }
    return path;
}

std::uint64_t checksum(std::vector<Limit> const & limits)
{
    std::uint64_t sum = 0;
    for (Limit const & limit : limits) {
        sum = folded(sum, limit);
    }
    return sum;
}

std::uint64_t limitsChecksum(unsigned count)
{
    std::uint64_t sum = 0;
    Random random(4);
    for (unsigned i = 0; i < count; ++i) {
        sum = folded(sum, makeLimit(random, i));
    }
    return sum;
}

double realOfBase64(char const * text, std::size_t size)
{
    if (size != 12) {
        throw std::runtime_error("bad length");
    }
    unsigned char bytes[9];
    for (int group = 0; group < 3; ++group) {
        unsigned bits = 0;
        for (int i = 0; i < 4; ++i) {
            bits = bits << 6 | digits()[static_cast<unsigned char>(text[group * 4 + i])];
        }
        for (int i = 0; i < 3; ++i) {
            bytes[group * 3 + i] = static_cast<unsigned char>(bits >> (16 - 8 * i));
        }
    }
    double value;
    std::memcpy(&value, bytes, sizeof(value));
    return value;
}

} // namespace bench
