// SPDX-License-Identifier: BSD-3-Clause
// UTF-8 to wide text.
#include <keelbase/YString.h>

#include <cstddef>

namespace
{

char32_t const Replacement = 0xFFFD;

struct Decoded
{
    char32_t point;
    std::size_t bytes;
};

// How many bytes the sequence has that this byte leads; 0 when it leads none.
std::size_t sequenceLength(unsigned char lead)
{
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

// Neither longer than needed, nor half of a surrogate pair, nor beyond the last code point.
bool isWellFormed(char32_t point, std::size_t bytes)
{
    switch (bytes) {
    case 3:
        return point >= 0x800 && (point < 0xD800 || point > 0xDFFF);
    case 4:
        return point >= 0x10000 && point <= 0x10FFFF;
    default:
        return true;
    }
}

// The text is terminated, and its terminator continues no sequence: the loop stops there at the latest.
Decoded decode(char const * text)
{
    auto const lead = static_cast<unsigned char>(*text);
    auto const bytes = sequenceLength(lead);
    if (bytes == 0) {
        return {Replacement, 1};
    }
    char32_t point = bytes == 1 ? lead : lead & (0x7Fu >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        auto const next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0u) != 0x80u) {
            return {Replacement, 1};
        }
        point = point << 6 | (next & 0x3Fu);
    }
    return isWellFormed(point, bytes) ? Decoded{point, bytes} : Decoded{Replacement, 1};
}

void append(std::wstring & text, char32_t point)
{
    if (sizeof(wchar_t) == 2 && point > 0xFFFF) {
        auto const rest = point - 0x10000;
        text += static_cast<wchar_t>(0xD800 + (rest >> 10));
        text += static_cast<wchar_t>(0xDC00 + (rest & 0x3FF));
    } else {
        text += static_cast<wchar_t>(point);
    }
}

} // namespace

UTFString::UTFString(char const * utf8)
{
    while (utf8 && *utf8) {
        auto const decoded = decode(utf8);
        append(m_wide, decoded.point);
        utf8 += decoded.bytes;
    }
}
