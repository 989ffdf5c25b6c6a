// SPDX-License-Identifier: BSD-3-Clause
// How a line of comma-separated text falls into fields, on plain characters: the one rule behind
// ZyCSVFile::ExtractLine and ZyVariantTable::LoadCSV.
#pragma once

#include <ZyThrow.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <locale>
#include <string_view>
#include <utility>

namespace ZyCSV
{
/** What is white space in the global locale of the construction, for all bytes at once: asking it costs no
 * locale. */
class WhiteSpace
{
public:
    WhiteSpace()
    {
        auto const & facet = std::use_facet<std::ctype<char>>(m_locale);
        for (std::size_t i = 0; i < m_white.size(); ++i) {
            m_white[i] = facet.is(std::ctype_base::space, static_cast<char>(static_cast<unsigned char>(i)));
        }
    }

    bool operator()(char c) const { return m_white[static_cast<unsigned char>(c)]; }
    /** A text without the white space at its ends; of white space alone its empty end. */
    std::string_view trimmed(std::string_view text) const
    {
        char const * begin = text.data();
        char const * end = begin + text.size();
        while (begin != end && (*this)(*begin)) {
            ++begin;
        }
        while (begin != end && (*this)(end[-1])) {
            --end;
        }
        return std::string_view(begin, static_cast<std::size_t>(end - begin));
    }

private:
    std::locale m_locale;
    std::array<bool, 256> m_white;
};

/** A trimmed field without the one pair of quotes around it. */
inline std::string_view unquoted(std::string_view field)
{
    bool const isQuoted = field.size() > 1 && field.front() == '"' && field.back() == '"';
    return isQuoted ? field.substr(1, field.size() - 2) : field;
}

/** How many commas there are. The inner loop has a fixed length, so that it becomes vector code. */
inline std::size_t countCommas(std::string_view line)
{
    constexpr std::size_t block = 32;
    std::size_t count = 0;
    std::size_t at = 0;
    for (; at + block <= line.size(); at += block) {
        unsigned char here = 0;
        for (std::size_t i = 0; i < block; ++i) {
            here = static_cast<unsigned char>(here + (line[at + i] == ',' ? 1 : 0));
        }
        count += here;
    }
    return count + static_cast<std::size_t>(std::count(line.data() + at, line.data() + line.size(), ','));
}

/** Calls use(start, end) for each field but the last, commas inside quotes left alone. \return where the last
 * field starts */
template <class F>
std::size_t forEachSeparated(std::string_view line, F && use)
{
    std::size_t start = 0;
    bool isQuoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') {
            isQuoted = !isQuoted;
        } else if (line[at] == ',' && !isQuoted) {
            use(start, at);
            start = at + 1;
        }
    }
    return start;
}

/**
 * The last field of a line, trimmed.
 * \throws ZyIndexOutOfBoundsException "Index out of bounds [n,n]" with n the size of the line: the field is empty or all
 *         white space
 */
inline std::string_view lastField(std::string_view line, std::size_t start, WhiteSpace const & white)
{
    std::string_view const field = white.trimmed(line.substr(start));
    if (field.empty()) {
        auto const size = static_cast<unsigned int>(line.size());
        ZyThrow::IndexOutOfBounds(size, size);
    }
    return field;
}

/** Calls use(field) for each field of a line, from left to right. \throws as lastField, when it has used the others */
template <class F>
void forEachField(std::string_view line, WhiteSpace const & white, F && use)
{
    std::size_t const start = forEachSeparated(line, [&](std::size_t from, std::size_t to) {
        use(unquoted(white.trimmed(line.substr(from, to - from))));
    });
    use(unquoted(lastField(line, start, white)));
}

/** How many fields forEachField would give. \throws as lastField */
inline std::size_t countFields(std::string_view line, WhiteSpace const & white)
{
    std::size_t count = 0;
    std::size_t start = 0;
    if (line.find('"') == std::string_view::npos) {
        count = countCommas(line);
        start = line.rfind(',') + 1; // none: npos + 1 is 0
    } else {
        start = forEachSeparated(line, [&](std::size_t, std::size_t) { ++count; });
    }
    static_cast<void>(lastField(line, start, white));
    return count + 1;
}

/** Calls use(token) for each piece between two commas: quotes mean nothing, nothing is trimmed, empty ones
 * stay. */
template <class F>
void forEachToken(std::string_view line, F && use)
{
    std::size_t start = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == ',') {
            use(line.substr(start, at - start));
            start = at + 1;
        }
    }
    use(line.substr(start));
}
} // namespace ZyCSV
