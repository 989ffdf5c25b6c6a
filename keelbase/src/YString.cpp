// SPDX-License-Identifier: BSD-3-Clause
// The string types: construction, decimal text, comparison without case.
// The UTF-8 decoder of UTFString stands in UTFString.cpp.
#include <keelbase/YString.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace
{

template <class Number>
std::string decimal(Number number)
{
    char digits[24];
    auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return std::string(digits, end);
}

// ASCII only: the text may be of any encoding, and the result must not hang on the locale.
unsigned char lower(char c)
{
    auto const byte = static_cast<unsigned char>(c);
    return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte - 'A' + 'a') : byte;
}

} // namespace

YString::YString(char const * text) : m_text(text ? text : "") {}

YString::YString(std::string text) : m_text(std::move(text))
{
    auto const nul = m_text.find('\0');
    if (nul != std::string::npos) {
        m_text.resize(nul);
    }
}

YString::YString(int number) : m_text(decimal(number)) {}

YString::YString(unsigned number) : m_text(decimal(number)) {}

YString::YString(kb_int64 number) : m_text(decimal(number)) {}

YString & YString::operator+=(YString const & tail)
{
    m_text += tail.m_text;
    return *this;
}

int YString::compareNoCase(YString const & other) const
{
    auto const & a = m_text;
    auto const & b = other.m_text;
    auto const length = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < length; ++i) {
        int const difference = lower(a[i]) - lower(b[i]);
        if (difference != 0) {
            return difference;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

TempString::TempString(YString text) : YString(std::move(text)) {}
