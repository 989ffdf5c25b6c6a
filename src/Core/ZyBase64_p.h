// SPDX-License-Identifier: BSD-3-Clause
// Base64 between plain buffers: the one place that knows the alphabet. Nothing here allocates or throws.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ZyBase64
{
/** The characters that \a count bytes take. */
constexpr std::size_t EncodedSize(std::size_t count)
{
    return (count + 2) / 3 * 4;
}

/** Writes EncodedSize(count) characters, padded, without a terminator. */
void Encode(unsigned char const * bytes, std::size_t count, char * text);

/**
 * Writes three bytes for each group of four characters; padding does not shorten the result.
 *
 * A character outside the alphabet is no error: it acts as padding. What padding leaves open is 0, but for
 * the third byte of a group whose third character is padding: it repeats the third byte of the group before,
 * 0 in the first one.
 */
void Decode(char const * text, std::size_t groups, unsigned char * bytes);

/** The characters of a double: its eight bytes from the least significant one on, whatever the machine's
 * order is. */
constexpr std::size_t RealSize = 12;
void EncodeReal(double number, char * text);

/** The double whose bytes are the first eight that \a text decodes to, further ones 0. */
double DecodeReal(char const * text, std::size_t groups);

/** The \a count bytes of an integer of at most eight, least significant first. */
inline void StoreLittle(std::uint64_t number, std::size_t count, unsigned char * bytes)
{
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<unsigned char>(number >> 8 * i);
    }
}

inline std::uint64_t LoadLittle(unsigned char const * bytes, std::size_t count)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i) {
        number |= static_cast<std::uint64_t>(bytes[i]) << 8 * i;
    }
    return number;
}
} // namespace ZyBase64
