// SPDX-License-Identifier: BSD-3-Clause
// What the bindings of the library's own types have in common.
#pragma once

#include <ZyDeque.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyUniquePtr.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLLoader.h>
#include <ZyXMLRule.h>

#include "XML/ZyXMLNames_p.h"

#include <functional>
#include <memory>
#include <utility>

namespace ZyXMLBinding
{
template <class T>
using Definition = ZySharedPtr<ZyXMLLambdaDefinition<T>>;

/** The usual place of the value under construction in the memory of its rule. */
constexpr char const * valueSlot = "val";
/** The place of a collection. */
constexpr char const * dequeSlot = "deque";

/** A definition out of its three functions. */
template <class T>
Definition<T> define(std::function<void(ZyXMLRule &)> setup,
                     std::function<void(ZyXMLRule &, ZyXMLElementReader &)> start,
                     std::function<ZyUniquePtr<T>(ZyXMLRule &)> finish)
{
    Definition<T> definition(new ZyXMLLambdaDefinition<T>);
    definition->setup = std::move(setup);
    definition->start = std::move(start);
    definition->finish = std::move(finish);
    return definition;
}

/** Puts a new T into the memory of a rule. */
template <class T>
ZySharedPtr<T> rememberNew(ZyXMLRule & rule, char const * slot)
{
    return rule.remember(slot, ZySharedPtr<T>(new T()));
}

/** What a rule has in memory, as a value of its own; the memory is left with a new T. */
template <class T>
ZyUniquePtr<T> takeOut(ZyXMLRule & rule, char const * slot)
{
    ZyUniquePtr<T> taken(new T());
    std::swap(*taken, *rule.recall<T>(slot));
    return taken;
}

/** Adds a typed child rule with a definition that is nobody else's business. */
template <class T>
void addChild(ZyXMLRule & rule, ZyString const & name, Definition<T> const & definition,
              std::function<void(ZyUniquePtr<T>)> receiver)
{
    ZySharedPtr<ZyXMLLoader> const loader = rule.loader().lock();
    loader->add(ZyUniquePtr<ZyXMLRule>(
        new ZyXMLLambdaRule<T>(rule.path().pushed(name), definition, std::move(receiver))));
}

/** The body of all collections: one child of a name for each item. */
template <class T>
Definition<ZyDeque<T>> defineDeque(ZyString const & itemName, Definition<T> const & item)
{
    return define<ZyDeque<T>>(
        [itemName, item](ZyXMLRule & rule) {
            ZySharedPtr<ZyDeque<T>> const items = rememberNew<ZyDeque<T>>(rule, dequeSlot);
            addChild<T>(rule, itemName, item,
                        [items](ZyUniquePtr<T> received) { items->add(std::move(*received)); });
        },
        [](ZyXMLRule & rule, ZyXMLElementReader &) { rule.recall<ZyDeque<T>>(dequeSlot)->clear(); },
        [](ZyXMLRule & rule) {
            return ZyUniquePtr<ZyDeque<T>>(new ZyDeque<T>(std::move(*rule.recall<ZyDeque<T>>(dequeSlot))));
        });
}

/** Opens a child element in the namespace of the types. */
inline std::unique_ptr<ZyXMLElementWriter> child(ZyXMLElementWriter & parent, ZyString const & name)
{
    return parent.createElement(name, ZyXMLNames::types);
}
} // namespace ZyXMLBinding
