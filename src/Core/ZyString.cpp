// SPDX-License-Identifier: BSD-3-Clause
// The string's life: making, copying, joining, and access to its characters. Searching, editing and
// conversion stand in sources of their own.
#include <ZyString.h>

#include "Core/ZyNumberText_p.h"
#include "Core/ZyString_p.h"
#include "Core/ZyUtf8_p.h"

#include <ZyException.h>

#include <keelbase/Keelbase.h>

#include <QString>
#include <QStringRef>

#include <string>
#include <string_view>
#include <utility>

namespace
{
/** The decimal text of a number, as long as it is looked at. */
class Decimal
{
public:
    template <class N>
    explicit Decimal(N number) : m_end(ZyNumberText::write(m_text, number))
    {}
    operator std::string_view() const
    {
        return std::string_view(m_text, static_cast<std::size_t>(m_end - m_text));
    }

private:
    char m_text[ZyNumberText::room];
    char const * m_end;
};

std::string joined(std::string_view a, std::string_view b)
{
    std::string text;
    text.reserve(a.size() + b.size());
    text.append(a).append(b);
    return text;
}
} // namespace

ZyString::ZyString() : m_d(new Private) {}

ZyString::ZyString(char const * text) : m_d(new Private(zyCText(text))) {}

ZyString::ZyString(char character) : m_d(new Private(std::string(1, character))) {}

ZyString::ZyString(int number) : m_d(new Private(std::string_view(Decimal(number)))) {}

ZyString::ZyString(unsigned int const & number) : m_d(new Private(std::string_view(Decimal(number)))) {}

ZyString::ZyString(__int64 const & number) : m_d(new Private(std::string_view(Decimal(number)))) {}

ZyString::ZyString(std::string const & text) : m_d(new Private(std::string_view(text))) {}

ZyString::ZyString(std::string && text) : m_d(new Private(std::move(text))) {}

ZyString::ZyString(QString const & text) : m_d(new Private)
{
    ZyUtf8::append(d()->text, text);
}

ZyString::ZyString(QStringRef const & text) : m_d(new Private)
{
    ZyUtf8::append(d()->text, text);
}

ZyString::ZyString(ZyStringView const & text) : m_d(new Private(ZyTextAccess::view(text))) {}

ZyString::ZyString(YString const & text) : m_d(new Private(std::string_view(text.c_str()))) {}

ZyString::ZyString(TempString const & text) : m_d(new Private(std::string_view(text.c_str()))) {}

ZyString::ZyString(ZyString const & other)
    : ZyComparableString(other), m_d(new Private(std::string(other.d()->text), other.d()->locale))
{}

ZyString::ZyString(ZyString && other)
    : ZyComparableString(other), m_d(new Private(std::move(other.d()->text), other.d()->locale))
{
    other.d()->text.clear();
}

ZyString::~ZyString() = default;

ZyString & ZyString::operator=(ZyString const & other)
{
    d()->text = other.d()->text;
    return *this;
}

ZyString & ZyString::operator=(ZyString && other)
{
    if (this != &other) {
        d()->text = std::move(other.d()->text);
        other.d()->text.clear();
    }
    return *this;
}

ZyString & ZyString::operator=(char const * text)
{
    d()->text = zyCText(text);
    return *this;
}

unsigned int ZyString::size() const
{
    return static_cast<unsigned int>(d()->text.size());
}

bool ZyString::isEmpty() const
{
    return d()->text.empty();
}

char & ZyString::operator[](unsigned int position)
{
    return d()->text[position];
}

char const & ZyString::operator[](unsigned int position) const
{
    return d()->text[position];
}

char & ZyString::at(unsigned int position)
{
    return const_cast<char &>(static_cast<ZyString const *>(this)->at(position));
}

char const & ZyString::at(unsigned int position) const
{
    if (position >= size()) {
        throw ZyIndexOutOfBoundsException(position, size());
    }
    return d()->text[position];
}

ZyString ZyString::operator+(ZyString const & text) const
{
    return joined(d()->text, text.d()->text);
}

ZyString ZyString::operator+(ZyStringView const & text) const
{
    return joined(d()->text, ZyTextAccess::view(text));
}

ZyString ZyString::operator+(char const * text) const
{
    return joined(d()->text, zyCText(text));
}

ZyString & ZyString::append(ZyString const & text)
{
    d()->text += text.d()->text;
    return *this;
}

ZyString & ZyString::append(char const * text)
{
    d()->text += zyCText(text);
    return *this;
}

ZyString & ZyString::concat(ZyString const & text)
{
    return append(text);
}

ZyString & ZyString::operator+=(ZyString const & text)
{
    return append(text);
}

ZyString & ZyString::operator+=(char const * text)
{
    return append(text);
}

ZyString operator+(char const * a, ZyString const & b)
{
    return joined(zyCText(a), b.toStdString());
}
