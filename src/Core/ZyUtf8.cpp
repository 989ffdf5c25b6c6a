// SPDX-License-Identifier: BSD-3-Clause
// UTF-8 to wide text and back. Written out because the standard facets take truncated tails and surrogates.
#include "Core/ZyUtf8_p.h"

#include <QByteArray>

#include <cstddef>
#include <stdexcept>

namespace
{
constexpr bool wideIsUtf16 = sizeof(wchar_t) == 2;

[[noreturn]] void fail()
{
    throw std::range_error("bad conversion");
}

bool isSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

/** Reads one code point at \a i and moves \a i behind it. */
char32_t decode(std::string_view text, std::size_t & i)
{
    auto const byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    unsigned char const lead = byte(i++);
    if (lead < 0x80) {
        return lead;
    }
    std::size_t const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - i < more) {
        fail();
    }
    char32_t point = lead & (0x3Fu >> more);
    for (std::size_t k = 0; k < more; ++k, ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            fail();
        }
        point = point << 6 | (byte(i) & 0x3Fu);
    }
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    if (point < least[more] || point > 0x10FFFF || isSurrogate(point)) {
        fail();
    }
    return point;
}

void encode(std::string & to, char32_t point)
{
    auto const add = [&](char32_t bits) { to += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (point < 0x80) {
        add(point);
    } else if (point < 0x800) {
        add(0xC0 | point >> 6);
        add(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        add(0xE0 | point >> 12);
        add(0x80 | (point >> 6 & 0x3F));
        add(0x80 | (point & 0x3F));
    } else {
        add(0xF0 | point >> 18);
        add(0x80 | (point >> 12 & 0x3F));
        add(0x80 | (point >> 6 & 0x3F));
        add(0x80 | (point & 0x3F));
    }
}
} // namespace

std::wstring ZyUtf8::toWide(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        char32_t const point = decode(text, i);
        if (wideIsUtf16 && point > 0xFFFF) {
            wide += static_cast<wchar_t>(0xD7C0 + (point >> 10));
            wide += static_cast<wchar_t>(0xDC00 | (point & 0x3FF));
        } else {
            wide += static_cast<wchar_t>(point);
        }
    }
    return wide;
}

std::string ZyUtf8::fromWide(std::wstring_view text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<char32_t>(text[i]);
        if (wideIsUtf16 && point >= 0xD800 && point <= 0xDBFF && i + 1 < text.size() &&
            (static_cast<char32_t>(text[i + 1]) & 0xFC00) == 0xDC00) {
            ++i;
            point = ((point - 0xD7C0) << 10) | (static_cast<char32_t>(text[i]) & 0x3FF);
        }
        if (point > 0x10FFFF || isSurrogate(point)) {
            fail();
        }
        encode(narrow, point);
    }
    return narrow;
}

void ZyUtf8::append(std::string & to, QStringView text)
{
    std::size_t const from = to.size();
    std::size_t const size = static_cast<std::size_t>(text.size());
    to.resize(from + size);
    char * const bytes = to.data() + from;
    QStringView::storage_type const * const units = text.utf16();
    unsigned int all = 0;
    std::size_t i = 0;
    for (; i + 8 <= size; i += 8) { // a fixed length, which the compiler makes vector code of
        for (std::size_t k = i; k < i + 8; ++k) {
            all |= units[k];
            bytes[k] = static_cast<char>(units[k]);
        }
    }
    for (; i < size; ++i) {
        all |= units[i];
        bytes[i] = static_cast<char>(units[i]);
    }
    if (all >= 0x80) {
        QByteArray const utf8 = text.toUtf8();
        to.replace(from, size, utf8.constData(), static_cast<std::size_t>(utf8.size()));
    }
}
