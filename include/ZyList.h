// SPDX-License-Identifier: BSD-3-Clause
// Items that stay where they are.
#pragma once

#include <ZyContainer.h>

#include <initializer_list>
#include <iterator>
#include <list>
#include <utility>
#include <vector>

/**
 * A linked list behind the container interface: items keep their address.
 *
 * The held container is what hot code walks: the interface's iterators cost an allocation each and a virtual
 * call a step. Exceeding the standard container's largest size raises its own length failure.
 */
template <class T>
class ZyList : public ZyStandardContainer<T, std::list<T>>
{
    using Base = ZyStandardContainer<T, std::list<T>>;

public:
    ZyList() = default;
    ZyList(ZyList const &) = default;
    ZyList(ZyList &&) = default;
    ZyList(std::initializer_list<T> items) : Base(std::list<T>(items)) {}
    template <class I, class = typename std::iterator_traits<I>::iterator_category>
    ZyList(I first, I last) : Base(std::list<T>(first, last))
    {}
    virtual ~ZyList() = default;

    ZyList & operator=(ZyList const &) = default;
    ZyList & operator=(ZyList &&) = default;

    /** Appends all items of another one; it may be this one. */
    ZyList & append(ZyList const & other)
    {
        this->appendItems(other.m_items);
        return *this;
    }
    /** The same as append(). */
    ZyList & operator+=(ZyList const & other) { return append(other); }
    void remove(T const & item) override
    {
        std::vector<bool> const equal = this->equalItems(item);
        auto mark = equal.begin();
        this->m_items.remove_if([&](T const &) { return *mark++; });
    }

    /** The held container, on loan. */
    std::list<T> & std_list() { return this->m_items; }
    std::list<T> const & std_list() const { return this->m_items; }
};

template <class T>
bool operator==(ZyList<T> const & a, ZyList<T> const & b)
{
    return a.std_list() == b.std_list();
}
template <class T>
bool operator!=(ZyList<T> const & a, ZyList<T> const & b)
{
    return !(a == b);
}
