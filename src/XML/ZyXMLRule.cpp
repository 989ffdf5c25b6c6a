// SPDX-License-Identifier: BSD-3-Clause
// What all rules have: their place, their loader, their memory, and untyped child rules.
#include <ZyXMLRule.h>

#include <ZyException.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLLoader.h>

#include "Core/ZyString_p.h"

#include <cstddef>
#include <string_view>
#include <utility>

class ZyXMLRule::Private : public ZyPrivateObject
{
public:
    using Slot = ZyPair<ZyString, ZySharedPtr<ZyObject>>;

    ZyWeakPtr<ZyXMLLoader> loader; ///< empty until the rule is added
    ZyDeque<Slot> memory;

    /** The slot of a name, or null. A name that is spelled as the slot is the slot's in every locale. */
    Slot * find(std::string_view name)
    {
        for (Slot & slot : memory.std_deque()) {
            std::string_view const own = ZyTextAccess::view(slot.first);
            if (own == name || (own.size() == name.size() && slot.first == ZyTextAccess::slice(name))) {
                return &slot;
            }
        }
        return nullptr;
    }
};

ZyXMLRule::ZyXMLRule() : m_d(new Private) {}

ZyXMLRule::ZyXMLRule(ZyXMLPath const & path) : m_d(new Private), m_path(path) {}

ZyXMLRule::ZyXMLRule(ZyXMLPath && path) : m_d(new Private), m_path(std::move(path)) {}

ZyXMLRule::~ZyXMLRule() = default;

ZyXMLPath const & ZyXMLRule::path() const
{
    return m_path;
}

ZyWeakPtr<ZyXMLLoader> const & ZyXMLRule::loader() const
{
    return d()->loader;
}

void ZyXMLRule::setLoader(ZyWeakPtr<ZyXMLLoader> const & loader)
{
    d()->loader = loader;
}

void ZyXMLRule::addChildRule(ZyString const & name, Start start)
{
    ZySharedPtr<ZyXMLLoader> const loader = d()->loader.lock();
    if (!loader) {
        throw ZyNullPointerException(
            "XML rule cannot add a child rule when it is not assigned to a parent loader");
    }
    ZySharedPtr<ZyXMLLambdaDefinition<std::nullptr_t>> definition(new ZyXMLLambdaDefinition<std::nullptr_t>);
    definition->start = std::move(start);
    loader->add(ZyUniquePtr<ZyXMLRule>(
        new ZyXMLLambdaRule<std::nullptr_t>(path().pushed(name), std::move(definition))));
}

ZySharedPtr<ZyXMLLoader> ZyXMLRule::loaderForChild() const
{
    ZySharedPtr<ZyXMLLoader> loader = d()->loader.lock();
    if (!loader) {
        throw ZyNullPointerException("No ZyXMLLoader object available when trying to add child rule");
    }
    return loader;
}

void ZyXMLRule::setMemory(ZyPair<ZyString, ZySharedPtr<ZyObject>> slot)
{
    if (Private::Slot * const found = d()->find(ZyTextAccess::view(slot.first))) {
        found->second = slot.second;
    } else {
        d()->memory.add(std::move(slot));
    }
}

ZySharedPtr<ZyObject> ZyXMLRule::readMemory(ZyString const & name) const
{
    Private::Slot const * const found = d()->find(ZyTextAccess::view(name));
    return found ? found->second : nullptr;
}

ZyObject * ZyXMLRule::findMemory(char const * name) const
{
    Private::Slot const * const found = d()->find(zyCText(name));
    return found ? found->second.get() : nullptr;
}

void ZyXMLRule::ThrowNotFound(char const * name)
{
    throw ZyNotFoundException(ZyString(name));
}
