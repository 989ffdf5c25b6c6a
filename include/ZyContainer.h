// SPDX-License-Identifier: BSD-3-Clause
// The interface that all our containers share, and what the concrete ones do alike.
#pragma once

#include <ZyIterator.h>
#include <ZyThrow.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

/**
 * A collection of T, used by reference: a function that takes it accepts every concrete container.
 *
 * Equality of elements is whatever T defines: without regard to case for ZyString, the address for shared
 * pointers. Deleting through this interface is not allowed, and its destructor therefore protected.
 *
 * \threads no locks: a container may be read from several threads while nobody writes
 */
template <class T>
class ZyContainer
{
public:
    /** The type of the items. */
    using value_type = T;

    /**
     * Adds an item at the end. \throws ZyInvalidCallException T cannot be copied: "Item cannot be copied"
     */
    virtual void add(T && item) = 0;
    virtual void add(T const & item) = 0;
    /** Adds the item unless an equal one is there. \return whether it was added */
    virtual bool addUnique(T const & item) = 0;
    /** The first item; for code that knows the interface only, at a virtual call a step. */
    virtual ZyIterator<T const> begin() const = 0;
    virtual ZyIterator<T> begin() = 0;
    /** The position behind the last item. */
    virtual ZyIterator<T const> end() const = 0;
    virtual ZyIterator<T> end() = 0;
    /** Whether an equal item is there. */
    virtual bool contains(T const & item) const = 0;
    /** The first equal item. \throws ZyNotFoundException "Item not found" */
    virtual T const & find(T const & item) const = 0;
    virtual T & find(T const & item) = 0;
    /** Removes every equal item; silent when there is none. \a item may be an element of the container. */
    virtual void remove(T const & item) = 0;
    /**
     * The first item that passes.
     * \throws ZyNotFoundException "Item not found"
     * \throws std::bad_function_call the predicate is empty and there is an item
     */
    virtual T const & find(std::function<bool(T const &)> passes) const
    {
        for (ZyIterator<T const> item = begin(), last = end(); item != last; ++item) {
            if (passes(*item)) {
                return *item;
            }
        }
        ZyThrow::NotFound();
    }
    virtual T & find(std::function<bool(T const &)> passes)
    {
        for (ZyIterator<T> item = begin(), last = end(); item != last; ++item) {
            if (passes(*item)) {
                return *item;
            }
        }
        ZyThrow::NotFound();
    }
    /** The number of items. */
    virtual unsigned int size() const = 0;

protected:
    ZyContainer() = default;
    ZyContainer(ZyContainer const &) = default;
    ZyContainer & operator=(ZyContainer const &) = default;
    ~ZyContainer() = default;
};

/** What the concrete containers have in common: the interface over one standard container S. */
template <class T, class S>
class ZyStandardContainer : public ZyContainer<T>
{
public:
    using ZyContainer<T>::find;

    void add(T && item) override { m_items.push_back(std::move(item)); }
    void add(T const & item) override
    {
        if constexpr (std::is_copy_constructible_v<T>) {
            m_items.push_back(item);
        } else {
            ZyThrow::InvalidCall("Item cannot be copied");
        }
    }
    bool addUnique(T const & item) override
    {
        if (contains(item)) {
            return false;
        }
        add(item);
        return true;
    }
    ZyIterator<T const> begin() const override { return iterator<T const>(m_items.begin(), m_items.end()); }
    ZyIterator<T> begin() override { return iterator<T>(m_items.begin(), m_items.end()); }
    ZyIterator<T const> end() const override { return iterator<T const>(m_items.end(), m_items.end()); }
    ZyIterator<T> end() override { return iterator<T>(m_items.end(), m_items.end()); }
    bool contains(T const & item) const override { return position(m_items, item) != m_items.end(); }
    T const & find(T const & item) const override { return found(m_items, item); }
    T & find(T const & item) override { return found(m_items, item); }
    void remove(T const & item) override
    {
        // The item may be an element, which removing moves: compare them all first.
        std::vector<bool> const equal = equalItems(item);
        auto mark = equal.begin();
        m_items.erase(std::remove_if(m_items.begin(), m_items.end(), [&](T const &) { return *mark++; }),
                      m_items.end());
    }
    unsigned int size() const override { return static_cast<unsigned int>(m_items.size()); }

    /** Whether there is no item. */
    bool isEmpty() const { return m_items.empty(); }
    /** Removes all items. */
    void clear() { m_items.clear(); }

protected:
    ZyStandardContainer() = default;
    ZyStandardContainer(ZyStandardContainer const &) = default;
    ZyStandardContainer(ZyStandardContainer &&) = default;
    explicit ZyStandardContainer(S && items) : m_items(std::move(items)) {}
    ZyStandardContainer & operator=(ZyStandardContainer const &) = default;
    ZyStandardContainer & operator=(ZyStandardContainer &&) = default;
    ~ZyStandardContainer() = default;

    /** Appends \a items, which may be the held ones. */
    void appendItems(S const & items)
    {
        if (&items == &m_items) {
            S const copy(items);
            m_items.insert(m_items.end(), copy.begin(), copy.end());
        } else {
            m_items.insert(m_items.end(), items.begin(), items.end());
        }
    }
    /** For each held item whether it is equal to \a item. */
    std::vector<bool> equalItems(T const & item) const
    {
        std::vector<bool> equal;
        equal.reserve(m_items.size());
        for (T const & candidate : m_items) {
            equal.push_back(candidate == item);
        }
        return equal;
    }

    /** The held container. */
    S m_items;

private:
    template <class E, class I>
    static ZyIterator<E> iterator(I first, I last)
    {
        return ZyIterator<E>(ZyUniquePtr<ZyIteratorImpl<E>>(new ZyContainerIteratorImpl<E, I>(first, last)));
    }
    template <class Items>
    static auto position(Items & items, T const & item)
    {
        return std::find_if(items.begin(), items.end(),
                            [&](T const & candidate) { return candidate == item; });
    }
    template <class Items>
    static auto & found(Items & items, T const & item)
    {
        auto const where = position(items, item);
        if (where == items.end()) {
            ZyThrow::NotFound();
        }
        return *where;
    }
};

/** A standard container that is reached by index too. */
template <class T, class S>
class ZyIndexedContainer : public ZyStandardContainer<T, S>
{
public:
    /**
     * The item at a zero-based index, checked.
     *
     * \deliberate{container-index-last} The exception tells the last valid index where that of ZyString::at tells the
     * size: hosts read both numbers.
     *
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [index,last]" where last is the last valid index, which
     *         wraps to 4294967295 on an empty container
     */
    T & at(unsigned int index) { return this->m_items[checked(index)]; }
    T const & at(unsigned int index) const { return this->m_items[checked(index)]; }
    /** The same as at(). */
    T & operator[](unsigned int index) { return this->m_items[checked(index)]; }
    T const & operator[](unsigned int index) const { return this->m_items[checked(index)]; }

protected:
    using ZyStandardContainer<T, S>::ZyStandardContainer;
    ZyIndexedContainer() = default;
    ZyIndexedContainer(ZyIndexedContainer const &) = default;
    ZyIndexedContainer(ZyIndexedContainer &&) = default;
    ZyIndexedContainer & operator=(ZyIndexedContainer const &) = default;
    ZyIndexedContainer & operator=(ZyIndexedContainer &&) = default;
    ~ZyIndexedContainer() = default;

private:
    unsigned int checked(unsigned int index) const
    {
        if (index >= this->m_items.size()) {
            ZyThrow::IndexOutOfBounds(index, static_cast<unsigned int>(this->m_items.size() - 1));
        }
        return index;
    }
};
