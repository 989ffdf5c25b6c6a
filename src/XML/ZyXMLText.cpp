// SPDX-License-Identifier: BSD-3-Clause
// Escaping of element text. Well-formed UTF-8 is copied in runs; the rare text that is not goes through
// QString, so that there is one opinion only on what a bad byte becomes.
#include "XML/ZyXMLText_p.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>

namespace
{
enum Kind : unsigned char { Plain, Dropped, Escaped, Lead, End };

constexpr std::array<Kind, 256> kindsOfBytes()
{
    std::array<Kind, 256> kinds{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        kinds[byte] = byte >= 0x80 ? Lead : byte >= 0x20 ? Plain : Dropped;
    }
    kinds[0] = End;
    kinds['\t'] = kinds['\n'] = kinds['\r'] = Plain;
    kinds['<'] = kinds['>'] = kinds['&'] = kinds['"'] = Escaped;
    return kinds;
}

constexpr std::array<Kind, 256> kinds = kindsOfBytes();

constexpr unsigned int byteAt(char const * at)
{
    return static_cast<unsigned char>(*at);
}

constexpr Kind kindAt(char const * at)
{
    return kinds[byteAt(at)];
}

char const * escape(char character)
{
    switch (character) {
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '&':
        return "&amp;";
    default:
        return "&quot;";
    }
}

/** The code point of the well-formed sequence at \a at, which is moved behind it; 0, and \a at stays, for any
 * other. */
unsigned int decode(char const *& at, char const * end)
{
    unsigned int const lead = byteAt(at);
    int const more = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : 1;
    if (lead < 0xc2 || lead > 0xf4 || end - at <= more) {
        return 0;
    }
    unsigned int code = lead & (0x3fu >> more);
    for (int i = 1; i <= more; ++i) {
        unsigned int const byte = byteAt(at + i);
        if ((byte & 0xc0) != 0x80) {
            return 0;
        }
        code = code << 6 | (byte & 0x3f);
    }
    constexpr std::array<unsigned int, 4> smallest = {0, 0x80, 0x800, 0x10000};
    if (code < smallest[static_cast<std::size_t>(more)] || code > 0x10ffff ||
        (code >= 0xd800 && code < 0xe000)) {
        return 0;
    }
    at += more + 1;
    return code;
}

/** Skips what may be copied as it stands. */
char const * endOfRun(char const * at, char const * end)
{
    while (at != end) {
        if (kindAt(at) == Plain) {
            ++at;
            continue;
        }
        char const * next = at;
        unsigned int const code = kindAt(at) == Lead ? decode(next, end) : 0;
        if (code == 0 || code == 0xfffe || code == 0xffff) {
            return at;
        }
        at = next;
    }
    return end;
}

void appendWellFormed(std::string & markup, char const * at, char const * end);

/** The rest of a text from a bad byte on, which decoding turns into well-formed text. */
void appendRepaired(std::string & markup, char const * at, char const * end)
{
    auto const rest = std::string_view(at, static_cast<std::size_t>(end - at));
    QByteArray const repaired =
        QString::fromUtf8(at, static_cast<int>(rest.substr(0, rest.find('\0')).size())).toUtf8();
    appendWellFormed(markup, repaired.constData(), repaired.constData() + repaired.size());
}

void appendWellFormed(std::string & markup, char const * at, char const * end)
{
    while (at != end) {
        char const * const stop = endOfRun(at, end);
        markup.append(at, stop);
        at = stop;
        switch (at == end ? End : kindAt(at)) {
        case Escaped:
            markup += escape(*at);
            ++at;
            break;
        case Dropped:
            ++at;
            break;
        case Lead: // U+FFFE and U+FFFF are dropped
            if (decode(at, end) == 0) {
                return appendRepaired(markup, at, end);
            }
            break;
        default:
            return;
        }
    }
}
} // namespace

void ZyXMLText::appendEscaped(std::string & markup, std::string_view text)
{
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    appendWellFormed(markup, text.data(), text.data() + text.size());
}

bool ZyXMLText::isPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char const & c) { return c >= ' ' && kindAt(&c) == Plain; });
}
