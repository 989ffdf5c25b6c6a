// SPDX-License-Identifier: BSD-3-Clause
// Slices of characters that somebody else owns.
#include <ZyStringView.h>

#include "Core/ZyNumberText_p.h"
#include "Core/ZyString_p.h"

#include <ZyException.h>
#include <ZyString.h>

#include <QString>

#include <string>
#include <string_view>
#include <utility>

namespace
{
std::string_view part(std::string_view text, unsigned int position, unsigned int length)
{
    if (position > text.size()) {
        throw ZyIndexOutOfBoundsException(position, static_cast<unsigned int>(text.size()));
    }
    return text.substr(position, length);
}
} // namespace

ZyStringView::ZyStringView() : m_d(new Private) {}

ZyStringView::ZyStringView(char const * text) : m_d(new Private(zyCText(text))) {}

ZyStringView::ZyStringView(ZyString const & text) : m_d(new Private(ZyTextAccess::view(text))) {}

ZyStringView::ZyStringView(ZyString const & text, unsigned int position, unsigned int length)
    : m_d(new Private(part(ZyTextAccess::view(text), position, length)))
{}

ZyStringView::ZyStringView(ZyStringView const & other)
    : ZyComparableString(other), m_d(new Private(ZyTextAccess::view(other)))
{}

ZyStringView::ZyStringView(ZyStringView && other) : ZyComparableString(other), m_d(std::move(other.m_d)) {}

ZyStringView::~ZyStringView() = default;

ZyStringView & ZyStringView::operator=(ZyStringView const & other)
{
    std::string_view const text = ZyTextAccess::view(other);
    if (!d()) {
        d().reset(new Private);
    }
    d()->text = text;
    return *this;
}

ZyStringView & ZyStringView::operator=(ZyStringView && other)
{
    d().swap(other.d());
    return *this;
}

char const & ZyStringView::operator[](unsigned int position) const
{
    return d()->text[position];
}

unsigned int ZyStringView::size() const
{
    return static_cast<unsigned int>(d()->text.size());
}

unsigned int ZyStringView::findLastOf(char character) const
{
    return static_cast<unsigned int>(d()->text.rfind(character));
}

ZyStringView ZyStringView::substring(unsigned int position) const
{
    return substring(position, ~0u);
}

ZyStringView ZyStringView::substring(unsigned int position, unsigned int length) const
{
    return ZyTextAccess::slice(part(d()->text, position, length));
}

int ZyStringView::toInt() const
{
    return ZyNumberText::toInt(d()->text);
}

ZyString ZyStringView::toString() const
{
    return ZyString(std::string(d()->text));
}

QString ZyStringView::toQString() const
{
    return toString().toQString();
}
