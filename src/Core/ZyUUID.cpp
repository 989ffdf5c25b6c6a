// SPDX-License-Identifier: BSD-3-Clause
// An identifier, and the string that is made of one.
#include <ZyUUID.h>

#include <keelbase/Keelbase.h>

#include <utility>

ZyUUID::ZyUUID() : ZyUUID(sp_GetGUID()) {}

ZyUUID::ZyUUID(ZyString const & text) : m_text(text) {}

ZyUUID::ZyUUID(YString const & text) : m_text(ZyString(text)) {}

ZyUUID::ZyUUID(char const * text) : m_text(ZyString(text)) {}

ZyUUID::ZyUUID(ZyUUID const & other) = default;

ZyUUID::ZyUUID(ZyUUID && other) : m_text(std::move(other.m_text)) {}

ZyUUID::~ZyUUID() = default;

ZyUUID & ZyUUID::operator=(ZyUUID const & other) = default;

ZyUUID & ZyUUID::operator=(ZyUUID && other)
{
    m_text = std::move(other.m_text);
    return *this;
}

bool ZyUUID::operator==(ZyUUID const & other) const
{
    return m_text == other.m_text;
}

bool ZyUUID::operator==(ZyString const & text) const
{
    return m_text == text;
}

bool ZyUUID::operator==(YString const & text) const
{
    return m_text == text.c_str();
}

bool ZyUUID::operator==(char const * text) const
{
    return m_text == text;
}

bool ZyUUID::operator!=(ZyUUID const & other) const
{
    return !(*this == other);
}

bool ZyUUID::operator!=(ZyString const & text) const
{
    return !(*this == text);
}

bool ZyUUID::operator!=(YString const & text) const
{
    return !(*this == text);
}

bool ZyUUID::operator!=(char const * text) const
{
    return !(*this == text);
}

bool ZyUUID::operator<(ZyUUID const & other) const
{
    return m_text < other.m_text;
}

ZyString const & ZyUUID::toString() const
{
    return m_text;
}

ZyUUID::operator ZyString const &() const
{
    return m_text;
}

ZyUUID::operator YString() const
{
    return m_text.toYString();
}

// The string class stands below this one and must not know it.
ZyString::ZyString(ZyUUID const & id) : ZyString(id.toString()) {}
