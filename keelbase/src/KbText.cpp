// SPDX-License-Identifier: BSD-3-Clause
// Splitting of text, numbers from text and to text.
#include <keelbase/KbText.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

int sp_ScanLine(YString const & text, char separator, YVector<YString> & pieces)
{
    pieces.clear();
    std::string const line = text.c_str();
    std::size_t from = 0;
    for (;;) {
        std::size_t const to = line.find(separator, from);
        pieces.add(line.substr(from, to - from));
        if (to == std::string::npos) {
            return pieces.size();
        }
        from = to + 1;
    }
}

kb_int64 sp_atoi64(char const * text)
{
    return text ? std::strtoll(text, nullptr, 10) : 0;
}

namespace
{

/** The digits of a positive number, rounded, with the first one before the point. */
struct Decimal
{
    std::string digits;
    int exponent = 0;
};

Decimal decimal(double value, int count)
{
    char text[40];
    auto const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, count - 1).ptr;
    char * const e = std::find(text, end, 'e');
    Decimal result;
    result.digits.assign(text, e);
    result.digits.erase(std::remove(result.digits.begin(), result.digits.end(), '.'), result.digits.end());
    // The sign is always there; only a minus is part of a number to the function.
    std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, result.exponent);
    return result;
}

} // namespace

YString sp_ConvertRealToJSEng(double value, int digits, bool)
{
    if (std::isnan(value)) {
        return "NaN";
    }
    std::string text = value < 0 ? "-" : "";
    if (std::isinf(value)) {
        return text + "Infinity";
    }
    if (value == 0) {
        return "0";
    }
    // Rounded before the point moves: 999.99999999996 is 1e3 and not 1000.
    Decimal const number = decimal(std::fabs(value), std::clamp(digits, 1, 17));
    int const places = ((number.exponent % 3) + 3) % 3 + 1; // before the point
    std::string mantissa = number.digits;
    mantissa.erase(mantissa.find_last_not_of('0') + 1);
    mantissa.resize(std::max(mantissa.size(), static_cast<std::size_t>(places)), '0');
    text += mantissa.substr(0, static_cast<std::size_t>(places));
    if (mantissa.size() > static_cast<std::size_t>(places)) {
        text += '.' + mantissa.substr(static_cast<std::size_t>(places));
    }
    int const exponent = number.exponent - (places - 1);
    return exponent == 0 ? text : text + 'e' + std::to_string(exponent);
}
