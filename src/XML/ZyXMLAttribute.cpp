// SPDX-License-Identifier: BSD-3-Clause
// One attribute: two strings, and the check of the first.
#include <ZyXMLAttribute.h>

#include "XML/ZyXMLAttribute_p.h"

#include <ZyException.h>

namespace
{
void checkName(ZyString const & name)
{
    if (name.containsWhiteSpace()) {
        throw ZyInvalidXMLAttributeName(name);
    }
}

/** What a moved-from attribute has. */
ZyString const & nothing()
{
    static ZyString const text;
    return text;
}
} // namespace

ZyXMLAttribute::ZyXMLAttribute() : m_d(new Private) {}

ZyXMLAttribute::ZyXMLAttribute(ZyString const & name, ZyString const & value)
    : m_d((checkName(name), new Private(name, value)))
{}

ZyXMLAttribute::ZyXMLAttribute(ZyXMLAttribute const & other)
    : ZyPrivateObject(other), m_d(new Private(other.name(), other.value()))
{}

ZyXMLAttribute::ZyXMLAttribute(ZyXMLAttribute && other) noexcept = default;

ZyXMLAttribute & ZyXMLAttribute::operator=(ZyXMLAttribute const & other)
{
    ZyXMLAttribute copy(other);
    m_d.swap(copy.m_d);
    return *this;
}

ZyXMLAttribute & ZyXMLAttribute::operator=(ZyXMLAttribute && other) noexcept
{
    m_d.swap(other.m_d);
    return *this;
}

ZyXMLAttribute::~ZyXMLAttribute() = default;

ZyXMLAttribute::Private & ZyXMLAttribute::state()
{
    if (!m_d) {
        m_d.reset(new Private);
    }
    return *m_d;
}

ZyString const & ZyXMLAttribute::name() const
{
    return d() ? d()->name : nothing();
}

ZyString const & ZyXMLAttribute::value() const
{
    return d() ? d()->value : nothing();
}

void ZyXMLAttribute::setName(ZyString const & name)
{
    checkName(name);
    state().name = name;
}

void ZyXMLAttribute::setValue(ZyString const & value)
{
    state().value = value;
}

bool ZyXMLAttribute::operator==(ZyXMLAttribute const & other) const
{
    return name() == other.name() && value() == other.value();
}
