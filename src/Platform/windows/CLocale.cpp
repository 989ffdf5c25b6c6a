// SPDX-License-Identifier: BSD-3-Clause
// The C locale as a locale object of its own.
#include "Platform/CLocale.h"

#include <locale.h>
#include <stdlib.h>

#ifdef __MINGW32__
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <limits>
#endif

namespace
{
double decimal(char const * text, char ** end)
{
    static _locale_t const cLocale = _create_locale(LC_ALL, "C");
    return _strtod_l(text, end, cLocale);
}

#ifdef __MINGW32__
// The old library that this compiler links with knows decimal numbers only.

/** The first character behind blanks and a sign. */
char const * behindSign(char const * text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r')) {
        ++text;
    }
    return *text == '-' || *text == '+' ? text + 1 : text;
}

/** The digits from \a digits on, to the base of 16, which are there. */
double hexadecimal(char const * digits, char ** end)
{
    double value = 0.0;
    char const * const last = digits + std::strlen(digits);
    auto const result = std::from_chars(digits, last, value, std::chars_format::hex);
    *end = const_cast<char *>(result.ptr);
    if (result.ec == std::errc::result_out_of_range) {
        bool const isSmall = std::find(digits, result.ptr, '-') != result.ptr;
        return isSmall ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

bool isHexadecimal(char const * text)
{
    char const * const first = text + 2;
    return text[0] == '0' && (text[1] | 0x20) == 'x' &&
           (std::isxdigit(static_cast<unsigned char>(*first)) ||
            (*first == '.' && std::isxdigit(static_cast<unsigned char>(first[1]))));
}
#endif
} // namespace

double ZyPlatform::stringToDouble(char const * text, char ** end)
{
#ifdef __MINGW32__
    char const * const number = behindSign(text);
    if (isHexadecimal(number)) {
        double const value = hexadecimal(number + 2, end);
        return number != text && number[-1] == '-' ? -value : value;
    }
    if ((*number | 0x20) == 'i' || (*number | 0x20) == 'n') {
        return strtod(text, end); // infinity or no number: nothing that a locale spells differently
    }
#endif
    return decimal(text, end);
}
