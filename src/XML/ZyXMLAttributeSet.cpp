// SPDX-License-Identifier: BSD-3-Clause
// A set of attributes: a vector, searched from the front.
#include <ZyXMLAttributeSet.h>

#include "XML/ZyXMLAttributeSet_p.h"

#include <ZyException.h>
#include <ZyString.h>
#include <ZyThrow.h>

#include <algorithm>
#include <utility>

ZyXMLAttributeSet::ZyXMLAttributeSet() : m_d(new Private) {}

ZyXMLAttributeSet::ZyXMLAttributeSet(ZyXMLAttributeSet const & other)
    : ZyPrivateObject(other), m_d(other.d() ? new Private(*other.d()) : nullptr)
{}

ZyXMLAttributeSet::ZyXMLAttributeSet(ZyXMLAttributeSet && other) noexcept = default;

ZyXMLAttributeSet & ZyXMLAttributeSet::operator=(ZyXMLAttributeSet const & other)
{
    ZyXMLAttributeSet copy(other);
    m_d.swap(copy.m_d);
    return *this;
}

ZyXMLAttributeSet & ZyXMLAttributeSet::operator=(ZyXMLAttributeSet && other) noexcept
{
    if (this != &other) {
        m_d.swap(other.m_d);
        if (other.d()) {
            other.d()->attributes.clear();
        }
    }
    return *this;
}

ZyXMLAttributeSet::~ZyXMLAttributeSet() = default;

ZyXMLAttributeSet::Private & ZyXMLAttributeSet::state()
{
    if (!m_d) {
        m_d.reset(new Private);
    }
    return *m_d;
}

ZyXMLAttribute * ZyXMLAttributeSet::find(ZyString const & name) const
{
    if (d()) {
        for (ZyXMLAttribute & attribute : m_d->attributes) {
            if (attribute.name() == name) {
                return &attribute;
            }
        }
    }
    return nullptr;
}

void ZyXMLAttributeSet::addAttribute(ZyString const & name, ZyString const & value)
{
    if (ZyXMLAttribute * const there = find(name)) {
        there->setValue(value);
    } else {
        state().attributes.emplace_back(name, value);
    }
}

void ZyXMLAttributeSet::addAttribute(ZyXMLAttribute const & attribute)
{
    addAttribute(attribute.name(), attribute.value());
}

void ZyXMLAttributeSet::removeAttribute(ZyString const & name)
{
    if (ZyXMLAttribute const * const there = find(name)) {
        d()->attributes.erase(begin() + (there - d()->attributes.data()));
    }
}

bool ZyXMLAttributeSet::hasAttribute(ZyString const & name) const
{
    return find(name) != nullptr;
}

ZyXMLAttribute const & ZyXMLAttributeSet::get(ZyString const & name) const
{
    ZyXMLAttribute const * const there = find(name);
    if (!there) {
        throw ZyUnknownXMLAttributeException(name);
    }
    return *there;
}

ZyString ZyXMLAttributeSet::readAttribute(ZyString const & name) const
{
    return get(name).value();
}

ZyString ZyXMLAttributeSet::readAttribute(ZyString const & name, ZyString const & defaultValue) const
{
    ZyXMLAttribute const * const there = find(name);
    return there ? there->value() : defaultValue;
}

unsigned int ZyXMLAttributeSet::size() const
{
    return d() ? static_cast<unsigned int>(d()->attributes.size()) : 0;
}

ZyXMLAttributeSet::iterator ZyXMLAttributeSet::begin()
{
    return state().attributes.begin();
}

ZyXMLAttributeSet::iterator ZyXMLAttributeSet::end()
{
    return state().attributes.end();
}

ZyXMLAttributeSet::const_iterator ZyXMLAttributeSet::begin() const
{
    return d() ? std::as_const(d()->attributes).begin() : const_iterator();
}

ZyXMLAttributeSet::const_iterator ZyXMLAttributeSet::end() const
{
    return d() ? std::as_const(d()->attributes).end() : const_iterator();
}

ZyXMLAttributeSetPtr::ZyXMLAttributeSetPtr() = default;

ZyXMLAttributeSetPtr::ZyXMLAttributeSetPtr(ZyXMLAttributeSet * set) : std::shared_ptr<ZyXMLAttributeSet>(set)
{}

ZyXMLAttributeSetPtr::ZyXMLAttributeSetPtr(std::shared_ptr<ZyXMLAttributeSet> set)
    : std::shared_ptr<ZyXMLAttributeSet>(std::move(set))
{}

ZyXMLAttributeSetPtr::ZyXMLAttributeSetPtr(ZyXMLAttributeSetPtr const & other) = default;
ZyXMLAttributeSetPtr::ZyXMLAttributeSetPtr(ZyXMLAttributeSetPtr && other) noexcept = default;
ZyXMLAttributeSetPtr & ZyXMLAttributeSetPtr::operator=(ZyXMLAttributeSetPtr const & other) = default;
ZyXMLAttributeSetPtr & ZyXMLAttributeSetPtr::operator=(ZyXMLAttributeSetPtr && other) noexcept = default;
ZyXMLAttributeSetPtr::~ZyXMLAttributeSetPtr() = default;

ZyXMLAttributeSet * ZyXMLAttributeSetPtr::operator->()
{
    return &**this;
}

ZyXMLAttributeSet const * ZyXMLAttributeSetPtr::operator->() const
{
    return &**this;
}

ZyXMLAttributeSet & ZyXMLAttributeSetPtr::operator*()
{
    return const_cast<ZyXMLAttributeSet &>(*std::as_const(*this));
}

ZyXMLAttributeSet const & ZyXMLAttributeSetPtr::operator*() const
{
    if (!get()) {
        ZyThrow::NullPointer();
    }
    return *get();
}

ZyXMLAttributeSet::iterator ZyXMLAttributeSetPtr::begin()
{
    return (**this).begin();
}

ZyXMLAttributeSet::iterator ZyXMLAttributeSetPtr::end()
{
    return (**this).end();
}

ZyXMLAttributeSet::const_iterator ZyXMLAttributeSetPtr::begin() const
{
    return (**this).begin();
}

ZyXMLAttributeSet::const_iterator ZyXMLAttributeSetPtr::end() const
{
    return (**this).end();
}
