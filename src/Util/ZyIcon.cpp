// SPDX-License-Identifier: BSD-3-Clause
// The name of an icon.
#include <ZyIcon.h>

#include <ZyIconManager.h>

#include <utility>

ZyIcon::ZyIcon() = default;
ZyIcon::ZyIcon(ZyString const & name) : m_name(name) {}
ZyIcon::ZyIcon(ZyString && name) : m_name(std::move(name)) {}
ZyIcon::ZyIcon(ZyIcon const & other) = default;
ZyIcon::~ZyIcon() = default;

ZyIcon & ZyIcon::operator=(ZyIcon const & other) = default;

ZyString const & ZyIcon::name() const
{
    return m_name;
}

bool ZyIcon::operator==(ZyIcon const & other) const
{
    return m_name == other.m_name;
}

QIcon const & ZyIcon::icon() const
{
    return ZyIconManager::Get(m_name);
}

ZyIcon::operator QIcon const &() const
{
    return icon();
}
