// SPDX-License-Identifier: BSD-3-Clause
// What a string becomes: C text, Qt and wide text, numbers.
#include "Core/ZyCaseFold_p.h"
#include "Core/ZyNumberText_p.h"
#include "Core/ZyString_p.h"
#include "Core/ZyUtf8_p.h"

#include <ZyString.h>

#include <keelbase/Keelbase.h>

#include <QString>

#include <limits>
#include <locale>
#include <sstream>
#include <string>

namespace
{
std::string_view trimmedText(ZyString const & text)
{
    return ZyCaseFold::trimmed(ZyTextAccess::view(text), ZyTextAccess::locale(text));
}

/** What a stream of the classic locale reads as an unsigned 32-bit integer. */
unsigned int readUnsigned(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) {
        ++i;
    }
    bool const negative = i < text.size() && text[i] == '-';
    if (negative || (i < text.size() && text[i] == '+')) {
        ++i;
    }
    constexpr unsigned long long limit = std::numeric_limits<unsigned int>::max();
    unsigned long long number = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9' && number <= limit; ++i) {
        number = number * 10 + static_cast<unsigned long long>(text[i] - '0');
    }
    if (number > limit) {
        return static_cast<unsigned int>(limit);
    }
    auto const result = static_cast<unsigned int>(number);
    return negative ? 0u - result : result;
}
} // namespace

char const * ZyString::c_str() const
{
    return d()->text.c_str();
}

char const * ZyString::toCString() const
{
    return c_str();
}

char const * ZyString::tocs() const
{
    return c_str();
}

ZyString::operator char const *() const
{
    return c_str();
}

std::string & ZyString::toStdString()
{
    return d()->text;
}

std::string const & ZyString::toStdString() const
{
    return d()->text;
}

QString ZyString::toQString() const
{
    return QString::fromUtf8(c_str());
}

ZyString::operator QString() const
{
    return toQString();
}

YString ZyString::toYString() const
{
    return YString(c_str());
}

ZyString::operator YString() const
{
    return toYString();
}

ZyString::operator PrintfArg() const
{
    return PrintfArg(c_str());
}

std::wstring ZyString::toWString() const
{
    return ZyUtf8::toWide(c_str());
}

int ZyString::toInt() const
{
    return ZyNumberText::toInt(d()->text);
}

double ZyString::toDouble() const
{
    return ZyNumberText::toDouble(d()->text);
}

unsigned int ZyString::toSizeT() const
{
    if (ZyCaseFold::isClassic(std::locale())) {
        return readUnsigned(d()->text);
    }
    unsigned int number = 0;
    std::istringstream(d()->text) >> number;
    return number;
}

bool ZyString::isDouble() const
{
    double number = 0;
    return ZyNumberText::isDouble(trimmedText(*this), number);
}

bool ZyString::isInteger() const
{
    // The number is read from the whole text, and its canonical form compared with the text without its
    // blanks. These two can only differ when blanks of the locale stand in front that are none for toInt.
    std::string_view const trimmed = trimmedText(*this);
    int number = 0;
    return ZyNumberText::isInteger(trimmed, number) &&
           (trimmed.data() == d()->text.data() || toInt() == number);
}

ZyString ZyString::NewLine()
{
    return "\r\n";
}

ZyString ZyString::ToString(double const & number)
{
    char text[ZyNumberText::room];
    char const * const end = ZyNumberText::write(text, number);
    ZyString result;
    ZyTextAccess::set(result, std::string_view(text, static_cast<std::size_t>(end - text)));
    return result;
}
