// SPDX-License-Identifier: BSD-3-Clause
// Numbers as text and back. Plain decimal numbers take the short road; everything that only strtod knows
// (blanks, plus signs, hexadecimal digits, infinities, what does not fit) is left to strtod.
#include "Core/ZyNumberText_p.h"

#include "Platform/CLocale.h"

#include <charconv>
#include <limits>
#include <string>

namespace
{
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/**
 * Reads a plain decimal number at the front.
 * \return where it ends; null when the text needs strtod
 */
char const * readPlain(std::string_view text, double & number)
{
    char const * const begin = text.data();
    char const * const end = begin + text.size();
    char const * const digits = begin != end && *begin == '-' ? begin + 1 : begin;
    if (digits == end || !isDigit(*digits)) {
        return nullptr;
    }
    auto const result = std::from_chars(begin, end, number);
    bool const hexadecimal = result.ptr != end && (*result.ptr == 'x' || *result.ptr == 'X');
    return result.ec == std::errc() && !hexadecimal ? result.ptr : nullptr;
}

/** Whether strtod is worth asking: most words are not, "node" neither, but "inf" and "nan" are. */
bool mayBeginNumber(std::string_view text)
{
    char const c = text.empty() ? '\0' : text.front();
    char const next = text.size() < 2 ? '\0' : text[1];
    bool const mayBeInfinity = (c == 'i' || c == 'I') && (next == 'n' || next == 'N');
    bool const mayBeNan = (c == 'n' || c == 'N') && (next == 'a' || next == 'A');
    return isDigit(c) || isBlank(c) || c == '-' || c == '+' || c == '.' || mayBeInfinity || mayBeNan;
}

/** strtod on a terminated copy. \param used gets the number of characters read */
double readAny(std::string_view text, std::size_t & used)
{
    std::string const copy(text);
    char * stop = nullptr;
    double const number = ZyPlatform::stringToDouble(copy.c_str(), &stop);
    used = static_cast<std::size_t>(stop - copy.c_str());
    return number;
}
} // namespace

char * ZyNumberText::write(char * to, int number)
{
    return std::to_chars(to, to + room, number).ptr;
}

char * ZyNumberText::write(char * to, unsigned int number)
{
    return std::to_chars(to, to + room, number).ptr;
}

char * ZyNumberText::write(char * to, long long number)
{
    return std::to_chars(to, to + room, number).ptr;
}

char * ZyNumberText::write(char * to, double number)
{
    return std::to_chars(to, to + room, number, std::chars_format::general, 6).ptr;
}

int ZyNumberText::toInt(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && isBlank(text[i])) {
        ++i;
    }
    bool const negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+')) {
        ++i;
    }
    constexpr long long limit = static_cast<long long>(std::numeric_limits<int>::max()) + 1;
    long long number = 0;
    for (; i < text.size() && isDigit(text[i]) && number < limit; ++i) {
        number = number * 10 + (text[i] - '0');
    }
    number = number > limit ? limit : number;
    return static_cast<int>(negative ? -number : number < limit ? number : limit - 1);
}

double ZyNumberText::toDouble(std::string_view text)
{
    double number = 0;
    if (readPlain(text, number)) {
        return number;
    }
    std::size_t used = 0;
    return mayBeginNumber(text) ? readAny(text, used) : 0;
}

bool ZyNumberText::isInteger(std::string_view text, int & number)
{
    std::string_view const digits = text.substr(!text.empty() && text.front() == '-' ? 1 : 0);
    if (digits.empty() || digits.size() > 10 || !isDigit(digits.front())) {
        return false;
    }
    if (digits.front() == '0' && text.size() > 1) {
        return false;
    }
    auto const result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool ZyNumberText::isDouble(std::string_view text, double & number)
{
    if (!mayBeginNumber(text)) {
        return false;
    }
    char const * const stop = readPlain(text, number);
    if (stop) {
        return stop == text.data() + text.size() || *stop == '\0';
    }
    std::size_t used = 0;
    number = readAny(text, used);
    return used > 0 && (used == text.size() || text[used] == '\0');
}
