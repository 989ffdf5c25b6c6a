// SPDX-License-Identifier: BSD-3-Clause
// Reads formats as printf does. Only directives of our own making, with what the arguments really hold, go on
// to the C library.
#include "KbFormat_p.h"

#include <algorithm>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>

bool KbGrowingText::makeRoom(std::size_t size)
{
    if (m_long.empty() && m_size + size < m_short.size()) {
        return true;
    }
    if (m_long.empty()) {
        m_long.assign(m_short.data(), m_size);
    }
    return false;
}

void KbGrowingText::add(char const * text, std::size_t size)
{
    if (makeRoom(size)) {
        std::copy_n(text, size, m_short.begin() + static_cast<std::ptrdiff_t>(m_size));
        m_size += size;
    } else {
        m_long.append(text, size);
    }
}

void KbGrowingText::add(char character, std::size_t count)
{
    if (makeRoom(count)) {
        std::fill_n(m_short.begin() + static_cast<std::ptrdiff_t>(m_size), count, character);
        m_size += count;
    } else {
        m_long.append(count, character);
    }
}

namespace
{
constexpr int most = 512; ///< of a width or precision

kb_int64 integerOf(PrintfArg const & argument)
{
    if (argument.kind == PrintfArg::Int) {
        return argument.value.i;
    }
    constexpr double limit = 9223372036854775808.0;
    if (argument.kind != PrintfArg::Real || std::isnan(argument.value.d)) {
        return 0;
    }
    if (std::fabs(argument.value.d) >= limit) {
        return argument.value.d < 0 ? LLONG_MIN : LLONG_MAX;
    }
    return static_cast<kb_int64>(argument.value.d);
}

double realOf(PrintfArg const & argument)
{
    if (argument.kind == PrintfArg::Int) {
        return static_cast<double>(argument.value.i);
    }
    return argument.kind == PrintfArg::Real ? argument.value.d : 0.0;
}

/** One directive, and the reader that takes it apart. */
class Directive
{
public:
    /** \param at behind the "%" */
    Directive(char const * at, std::array<PrintfArg, 4> const & arguments, std::size_t & used)
        : m_at(at), m_arguments(arguments), m_used(used)
    {}

    /** \return false: this is no directive; end() is where reading stopped */
    bool read();
    char const * end() const { return m_at; }
    /** Uses up the argument. */
    void write(KbGrowingText & text);

private:
    PrintfArg next() { return m_used < m_arguments.size() ? m_arguments[m_used++] : PrintfArg(); }
    void readFlags();
    void readWidth();
    void readPrecision();
    void skipLength();
    int readNumber();
    int star();
    void writeText(KbGrowingText & text, PrintfArg const & argument) const;
    void writePadded(KbGrowingText & text, char const * piece, std::size_t size) const;
    template <class Number>
    void writeNumber(KbGrowingText & text, char const * length, char conversion, Number number) const;
    bool has(char flag) const { return std::strchr(m_flags, flag) != nullptr; }
    void setFlag(char flag);

    char const * m_at;
    std::array<PrintfArg, 4> const & m_arguments;
    std::size_t & m_used;
    char m_flags[6] = {};
    int m_width = 0;
    int m_precision = -1; ///< -1: none
    char m_conversion = '\0';
};

void Directive::setFlag(char flag)
{
    if (!has(flag)) {
        m_flags[std::strlen(m_flags)] = flag;
    }
}

void Directive::readFlags()
{
    while (*m_at != '\0' && std::strchr("-+ #0", *m_at) != nullptr) {
        setFlag(*m_at++);
    }
}

int Directive::readNumber()
{
    int number = 0;
    for (; *m_at >= '0' && *m_at <= '9'; ++m_at) {
        number = std::min(number * 10 + (*m_at - '0'), most);
    }
    return number;
}

int Directive::star()
{
    ++m_at;
    return static_cast<int>(std::clamp<kb_int64>(integerOf(next()), -most, most));
}

void Directive::readWidth()
{
    m_width = *m_at == '*' ? star() : readNumber();
    if (m_width < 0) {
        setFlag('-');
        m_width = -m_width;
    }
}

void Directive::readPrecision()
{
    if (*m_at == '.') {
        ++m_at;
        m_precision = std::max(*m_at == '*' ? star() : readNumber(), -1);
    }
}

void Directive::skipLength()
{
    if (std::strncmp(m_at, "I32", 3) == 0 || std::strncmp(m_at, "I64", 3) == 0) {
        m_at += 3;
    }
    while (*m_at != '\0' && std::strchr("hlLqjzt", *m_at) != nullptr) {
        ++m_at;
    }
}

bool Directive::read()
{
    readFlags();
    readWidth();
    readPrecision();
    skipLength();
    if (*m_at == '\0' || std::strchr("diuxXocefgaEFGAsnp", *m_at) == nullptr) {
        return false;
    }
    m_conversion = *m_at++;
    return true;
}

void Directive::writePadded(KbGrowingText & text, char const * piece, std::size_t size) const
{
    auto const width = static_cast<std::size_t>(m_width);
    std::size_t const blanks = width > size ? width - size : 0;
    if (!has('-')) {
        text.add(' ', blanks);
    }
    text.add(piece, size);
    if (has('-')) {
        text.add(' ', blanks);
    }
}

/** A real number has a point in every locale. */
int withPoint(char * number, int size)
{
    char const * const local = std::localeconv()->decimal_point;
    char * const found = std::strcmp(local, ".") == 0 ? nullptr : std::strstr(number, local);
    if (found == nullptr) {
        return size;
    }
    std::size_t const extra = std::strlen(local) - 1;
    *found = '.';
    std::memmove(found + 1, found + 1 + extra, std::strlen(found + 1 + extra) + 1);
    return size - static_cast<int>(extra);
}

template <class Number>
void Directive::writeNumber(KbGrowingText & text, char const * length, char conversion, Number number) const
{
    char directive[24];
    std::snprintf(directive, sizeof directive, "%%%s*.*%s%c", m_flags, length, conversion);
    char piece[1024]; // the largest number has 309 digits before the point
    int const size = std::snprintf(piece, sizeof piece, directive, m_width, m_precision, number);
    text.add(piece, static_cast<std::size_t>(withPoint(piece, size)));
}

void Directive::writeText(KbGrowingText & text, PrintfArg const & argument) const
{
    char number[32];
    char const * piece = number;
    if (argument.kind == PrintfArg::Int) {
        std::snprintf(number, sizeof number, "%lld", argument.value.i);
    } else if (argument.kind == PrintfArg::Real) {
        withPoint(number, std::snprintf(number, sizeof number, "%g", argument.value.d));
    } else {
        piece = argument.value.text != nullptr ? argument.value.text : "(null)";
    }
    // With a precision, text need not be terminated.
    std::size_t size = 0;
    while ((m_precision < 0 || size < static_cast<std::size_t>(m_precision)) && piece[size] != '\0') {
        ++size;
    }
    writePadded(text, piece, size);
}

void Directive::write(KbGrowingText & text)
{
    PrintfArg const argument = next();
    switch (m_conversion) {
    case 'n':
    case 'p':
        return;
    case 's':
        return writeText(text, argument);
    case 'c': {
        char const character = static_cast<char>(integerOf(argument));
        return writePadded(text, &character, 1);
    }
    case 'd':
    case 'i':
        return writeNumber(text, "ll", 'd', integerOf(argument));
    case 'u':
    case 'o':
    case 'x':
    case 'X': {
        kb_int64 const number = integerOf(argument);
        bool const isInt = number < 0 && number >= INT_MIN;
        auto const bits = isInt ? static_cast<unsigned int>(number) : static_cast<unsigned long long>(number);
        return writeNumber(text, "ll", m_conversion, bits);
    }
    default:
        return writeNumber(text, "", m_conversion, realOf(argument));
    }
}
} // namespace

void kbFormat(KbGrowingText & text, char const * format, std::array<PrintfArg, 4> const & arguments)
{
    std::size_t used = 0;
    while (*format != '\0') {
        std::size_t const plain = std::strcspn(format, "%");
        text.add(format, plain);
        format += plain;
        if (*format == '\0') {
            return;
        }
        if (format[1] == '%') {
            text.add('%', 1);
            format += 2;
            continue;
        }
        Directive directive(format + 1, arguments, used);
        if (directive.read()) {
            directive.write(text);
        } else {
            text.add(format, static_cast<std::size_t>(directive.end() - format));
        }
        format = directive.end();
    }
}
