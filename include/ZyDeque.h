// SPDX-License-Identifier: BSD-3-Clause
// The default collection of the library.
#pragma once

#include <ZyContainer.h>

#include <deque>
#include <initializer_list>
#include <iterator>
#include <utility>

/**
 * The default collection: a double-ended queue behind the container interface.
 *
 * The held container is what hot code walks: the interface's iterators cost an allocation each and a virtual
 * call a step. Exceeding the standard container's largest size raises its own length failure.
 */
template <class T>
class ZyDeque : public ZyIndexedContainer<T, std::deque<T>>
{
    using Base = ZyIndexedContainer<T, std::deque<T>>;

public:
    ZyDeque() = default;
    ZyDeque(ZyDeque const &) = default;
    ZyDeque(ZyDeque &&) = default;
    ZyDeque(std::initializer_list<T> items) : Base(std::deque<T>(items)) {}
    template <class I, class = typename std::iterator_traits<I>::iterator_category>
    ZyDeque(I first, I last) : Base(std::deque<T>(first, last))
    {}
    virtual ~ZyDeque() = default;

    ZyDeque & operator=(ZyDeque const &) = default;
    ZyDeque & operator=(ZyDeque &&) = default;

    /** Appends all items of another one; it may be this one. */
    ZyDeque & append(ZyDeque const & other)
    {
        this->appendItems(other.m_items);
        return *this;
    }
    /** The same as append(). */
    ZyDeque & operator+=(ZyDeque const & other) { return append(other); }

    /** The held container, on loan. */
    std::deque<T> & std_deque() { return this->m_items; }
    std::deque<T> const & std_deque() const { return this->m_items; }
};

template <class T>
bool operator==(ZyDeque<T> const & a, ZyDeque<T> const & b)
{
    return a.std_deque() == b.std_deque();
}
template <class T>
bool operator!=(ZyDeque<T> const & a, ZyDeque<T> const & b)
{
    return !(a == b);
}
