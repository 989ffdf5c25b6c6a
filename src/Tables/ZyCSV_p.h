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

/**
 * Calls use(field) for each field of a line, from left to right.
 * \throws ZyIndexOutOfBoundsException "Index out of bounds [n,n]" with n the size of the line: the last field is empty or
 *         all white space. The fields before it have been used then.
 */
template <class F>
void forEachField(std::string_view line, WhiteSpace const & white, F && use)
{
    std::size_t start = 0;
    bool isQuoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') {
            isQuoted = !isQuoted;
        } else if (line[at] == ',' && !isQuoted) {
            use(unquoted(white.trimmed(line.substr(start, at - start))));
            start = at + 1;
        }
    }
    std::string_view const last = white.trimmed(line.substr(start));
    if (last.empty()) {
        auto const size = static_cast<unsigned int>(line.size());
        ZyThrow::IndexOutOfBounds(size, size);
    }
    use(unquoted(last));
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
