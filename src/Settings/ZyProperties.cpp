// SPDX-License-Identifier: BSD-3-Clause
// A set of named values.
#include <ZyProperties.h>

#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"

#include <ZyDeque.h>
#include <ZyException.h>

#include <algorithm>
#include <deque>
#include <locale>
#include <string>
#include <utility>
#include <vector>

using Items = std::deque<ZySharedPtr<ZyProperty>>;

class ZyProperties::Private : public ZyPrivateObject
{
public:
    /** The property of a name; null when there is none. */
    ZySharedPtr<ZyProperty> const * find(ZyString const & name) const
    {
        std::string_view const wanted = ZyTextAccess::view(name);
        std::size_t const place =
            ZyCaseFold::withFold(std::locale(), [&](auto const & fold) { return placeOf(wanted, fold); });
        return place < names.size() ? &properties.std_deque()[place] : nullptr;
    }
    ZyProperty const & at(ZyString const & name) const
    {
        ZySharedPtr<ZyProperty> const * const found = find(name);
        if (!found) {
            throw ZyNotFoundException(name);
        }
        return *found->get();
    }
    void append(ZySharedPtr<ZyProperty> const & property)
    {
        names.push_back(&property->name().toStdString());
        try {
            properties.add(property);
        } catch (...) {
            names.pop_back();
            throw;
        }
    }

    ZyDeque<ZySharedPtr<ZyProperty>> properties;
    /** The text of each name, for walking over it quickly: it keeps its place while the property lives, also
     * when the name is changed. */
    std::vector<std::string const *> names;

private:
    /** The first name that ZyProperty::equalName would call equal, without asking each time for the locale
     * and for the classes of the strings. */
    template <class Fold>
    std::size_t placeOf(std::string_view wanted, Fold const & fold) const
    {
        // Most names are of another size, and those that are not tend to differ at their end.
        std::size_t const last = wanted.empty() ? 0 : wanted.size() - 1;
        unsigned char const lastFolded = wanted.empty() ? fold('\0') : fold(wanted[last]);
        auto const found = std::find_if(names.begin(), names.end(), [&](std::string const * name) {
            return name->size() == wanted.size() && fold(name->c_str()[last]) == lastFolded &&
                   ZyCaseFold::equal(*name, wanted, fold);
        });
        return static_cast<std::size_t>(found - names.begin());
    }
};

namespace
{
/** A position among the pointers that shows the properties behind them. */
template <class P>
class Position
{
public:
    explicit Position(Items::const_iterator const & position) : m_position(position) {}
    P & operator*() const { return *m_position->get(); }
    Position & operator++()
    {
        ++m_position;
        return *this;
    }
    bool operator==(Position const & other) const { return m_position == other.m_position; }
    bool operator!=(Position const & other) const { return m_position != other.m_position; }

private:
    Items::const_iterator m_position;
};

template <class P>
ZyIterator<P> iterator(Items::const_iterator from, Items const & items)
{
    using Impl = ZyContainerIteratorImpl<P, Position<P>>;
    return ZyIterator<P>(
        ZyUniquePtr<ZyIteratorImpl<P>>(new Impl(Position<P>(from), Position<P>(items.end()))));
}

template <class P>
void visitAll(Items const & items, std::function<void(P &)> const & visit)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        // A copy, since the visit may clear the set.
        ZySharedPtr<ZyProperty> const kept = items[i]; // NOLINT(performance-unnecessary-copy-initialization)
        visit(*kept);
    }
}
} // namespace

ZyProperties::ZyProperties() : m_d(new Private) {}

ZyProperties::ZyProperties(ZyProperty const & property) : ZyProperties()
{
    add(property);
}

ZyProperties::ZyProperties(ZyProperties const & other) : m_d(new Private(*other.d())) {}

ZyProperties::ZyProperties(std::initializer_list<ZyProperty> const & properties) : ZyProperties()
{
    for (ZyProperty const & property : properties) {
        add(property);
    }
}

ZyProperties::ZyProperties(std::initializer_list<ZyProperty> && properties) : ZyProperties(properties) {}

ZyProperties::~ZyProperties() = default;

ZyProperties & ZyProperties::operator=(ZyProperties const & other)
{
    ZyPrivatePtr<Private> copy(new Private(*other.d()));
    m_d.swap(copy);
    return *this;
}

ZyWeakPtr<ZyProperty> ZyProperties::add(ZyProperty const & property)
{
    if (ZySharedPtr<ZyProperty> const * const found = d()->find(property.name())) {
        **found = property;
        return *found;
    }
    ZySharedPtr<ZyProperty> const added(new ZyProperty(property));
    d()->append(added);
    return added;
}

ZyWeakPtr<ZyProperty> ZyProperties::add(ZyString const & name, ZyVariant const & value)
{
    return add(ZyProperty(name, value));
}

ZyProperties & ZyProperties::operator<<(ZyProperty const & property)
{
    add(property);
    return *this;
}

void ZyProperties::clear()
{
    d()->names.clear();
    d()->properties.clear();
}

ZyWeakPtr<ZyProperty> ZyProperties::get(ZyString const & name) const
{
    ZySharedPtr<ZyProperty> const * const found = d()->find(name);
    return found ? ZyWeakPtr<ZyProperty>(*found) : ZyWeakPtr<ZyProperty>();
}

ZyProperty const & ZyProperties::getReference(ZyString const & name) const
{
    return d()->at(name);
}

ZyVariant const & ZyProperties::value(ZyString const & name) const
{
    return d()->at(name).value();
}

unsigned int ZyProperties::size() const
{
    return d()->properties.size();
}

ZyIterator<ZyProperty> ZyProperties::begin()
{
    Items const & items = d()->properties.std_deque();
    return iterator<ZyProperty>(items.begin(), items);
}

ZyIterator<ZyProperty const> ZyProperties::begin() const
{
    Items const & items = d()->properties.std_deque();
    return iterator<ZyProperty const>(items.begin(), items);
}

ZyIterator<ZyProperty> ZyProperties::end()
{
    Items const & items = d()->properties.std_deque();
    return iterator<ZyProperty>(items.end(), items);
}

ZyIterator<ZyProperty const> ZyProperties::end() const
{
    Items const & items = d()->properties.std_deque();
    return iterator<ZyProperty const>(items.end(), items);
}

void ZyProperties::forEach(std::function<void(ZyProperty &)> const & visit)
{
    visitAll(d()->properties.std_deque(), visit);
}

void ZyProperties::forEach(std::function<void(ZyProperty const &)> const & visit) const
{
    visitAll(d()->properties.std_deque(), visit);
}

bool ZyProperties::operator==(ZyProperties const & other) const
{
    Items const & items = d()->properties.std_deque();
    return size() == other.size() && std::all_of(items.begin(), items.end(), [&](auto const & property) {
               ZySharedPtr<ZyProperty> const * const same = other.d()->find(property->name());
               return same && *property == **same;
           });
}

bool ZyProperties::operator!=(ZyProperties const & other) const
{
    return !(*this == other);
}
