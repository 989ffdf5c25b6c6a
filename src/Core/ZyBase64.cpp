// SPDX-License-Identifier: BSD-3-Clause
// Base64 between plain buffers.
#include <Core/ZyBase64_p.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace
{
constexpr char alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=";
constexpr unsigned int padding = 64; // and everything from there on acts as padding
constexpr unsigned int unknown = 65;

using Pair = std::array<char, 2>;

/** The two characters of every twelve bits. */
constexpr std::array<Pair, 4096> makePairs()
{
    std::array<Pair, 4096> pairs{};
    for (unsigned int i = 0; i < pairs.size(); ++i) {
        pairs[i][0] = alphabet[i >> 6];
        pairs[i][1] = alphabet[i & 63];
    }
    return pairs;
}

/** The index in the alphabet of every character. */
constexpr std::array<unsigned char, 256> makeIndexes()
{
    std::array<unsigned char, 256> indexes{};
    for (unsigned char & index : indexes) {
        index = unknown;
    }
    for (unsigned char i = 0; i <= padding; ++i) {
        indexes[static_cast<unsigned char>(alphabet[i])] = i;
    }
    return indexes;
}

constexpr std::array<Pair, 4096> pairs = makePairs();
constexpr std::array<unsigned char, 256> indexes = makeIndexes();

unsigned int indexOf(char character)
{
    return indexes[static_cast<unsigned char>(character)];
}

void putPair(std::uint64_t bits, char * text)
{
    Pair const & pair = pairs[bits & 4095];
    text[0] = pair[0];
    text[1] = pair[1];
}

/** The bytes in reverse order. */
constexpr std::uint64_t reversed(std::uint64_t x)
{
    x = (x & 0x00FF00FF00FF00FFu) << 8 | (x >> 8 & 0x00FF00FF00FF00FFu);
    x = (x & 0x0000FFFF0000FFFFu) << 16 | (x >> 16 & 0x0000FFFF0000FFFFu);
    return x << 32 | x >> 32;
}

double realOf(std::uint64_t bits)
{
    double number;
    static_assert(sizeof number == sizeof bits, "the format holds doubles of eight bytes");
    std::memcpy(&number, &bits, sizeof number);
    return number;
}
} // namespace

void ZyBase64::Encode(unsigned char const * bytes, std::size_t count, char * text)
{
    for (; count >= 3; count -= 3, bytes += 3, text += 4) {
        unsigned int const group = static_cast<unsigned int>(bytes[0] << 16 | bytes[1] << 8 | bytes[2]);
        putPair(group >> 12, text);
        putPair(group, text + 2);
    }
    if (count > 0) {
        unsigned int const second = count == 2 ? bytes[1] : 0u;
        unsigned int const group = static_cast<unsigned int>(bytes[0] << 16) | second << 8;
        putPair(group >> 12, text);
        text[2] = count == 2 ? alphabet[group >> 6 & 63] : alphabet[padding];
        text[3] = alphabet[padding];
    }
}

void ZyBase64::Decode(char const * text, std::size_t groups, unsigned char * bytes)
{
    unsigned int third = 0;
    for (; groups > 0; --groups, text += 4, bytes += 3) {
        unsigned int const i0 = indexOf(text[0]);
        unsigned int const i1 = indexOf(text[1]);
        unsigned int const i2 = indexOf(text[2]);
        unsigned int const i3 = indexOf(text[3]);
        unsigned int second = 0;
        if (i2 < padding) {
            second = i1 << 4 | i2 >> 2;
            third = i3 < padding ? i2 << 6 | i3 : 0u;
        }
        bytes[0] = static_cast<unsigned char>(i0 << 2 | i1 >> 4);
        bytes[1] = static_cast<unsigned char>(second);
        bytes[2] = static_cast<unsigned char>(third);
    }
}

void ZyBase64::EncodeReal(double number, char * text)
{
    std::uint64_t bits;
    std::memcpy(&bits, &number, sizeof bits);
    bits = reversed(bits);
    putPair(bits >> 52, text);
    putPair(bits >> 40, text + 2);
    putPair(bits >> 28, text + 4);
    putPair(bits >> 16, text + 6);
    putPair(bits >> 4, text + 8);
    putPair((bits & 15) << 8, text + 10); // its second character gives way to the padding
    text[11] = alphabet[padding];
}

double ZyBase64::DecodeReal(char const * text, std::size_t groups)
{
    if (groups == 3) {
        std::uint64_t bits = 0;
        unsigned int all = 0;
        for (int i = 0; i < 10; ++i) {
            unsigned int const index = indexOf(text[i]);
            all |= index;
            bits = bits << 6 | index;
        }
        unsigned int const last = indexOf(text[10]);
        if ((all | last) < padding) {
            return realOf(reversed(bits << 4 | last >> 2));
        }
    }
    unsigned char bytes[9] = {};
    Decode(text, std::min<std::size_t>(groups, 3), bytes);
    return realOf(LoadLittle(bytes, 8));
}
