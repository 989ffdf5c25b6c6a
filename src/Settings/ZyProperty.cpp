// SPDX-License-Identifier: BSD-3-Clause
// A value with a name.
#include <ZyProperty.h>

#include <utility>

ZyProperty::ZyProperty() = default;

ZyProperty::ZyProperty(ZyProperty const & other) = default;

ZyProperty::ZyProperty(ZyProperty && other)
    : m_name(std::move(other.m_name)), m_value(std::move(other.m_value))
{}

ZyProperty::ZyProperty(ZyString const & name) : m_name(name) {}

ZyProperty::ZyProperty(ZyString const & name, ZyVariant const & value) : m_name(name), m_value(value) {}

ZyProperty::ZyProperty(ZyString && name, ZyVariant && value)
    : m_name(std::move(name)), m_value(std::move(value))
{}

ZyProperty::~ZyProperty() = default;

ZyProperty & ZyProperty::operator=(ZyProperty const & other)
{
    // Both or none of the two, should memory end.
    ZyVariant value(other.m_value);
    m_name = other.m_name;
    m_value.swap(value);
    return *this;
}

void ZyProperty::setName(ZyString const & name)
{
    m_name = name;
}

void ZyProperty::setName(ZyString && name)
{
    m_name = std::move(name);
}

void ZyProperty::setValue(ZyVariant const & value)
{
    m_value = value;
}

void ZyProperty::setValue(ZyVariant && value)
{
    m_value = std::move(value);
}

bool ZyProperty::equalName(ZyProperty const & other) const
{
    return m_name == other.m_name;
}

bool ZyProperty::equalValue(ZyProperty const & other) const
{
    return m_value == other.m_value;
}

bool ZyProperty::operator==(ZyProperty const & other) const
{
    return equalName(other) && equalValue(other);
}

bool ZyProperty::operator!=(ZyProperty const & other) const
{
    return !(*this == other);
}
