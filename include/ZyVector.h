// SPDX-License-Identifier: BSD-3-Clause
// Contiguous items.
#pragma once

#include <ZyContainer.h>

#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

/**
 * A vector behind the container interface, where contiguous storage or slices are wanted.
 *
 * The held container is what hot code walks: the interface's iterators cost an allocation each and a virtual
 * call a step. Exceeding the standard container's largest size raises its own length failure.
 */
template <class T>
class ZyVector : public ZyIndexedContainer<T, std::vector<T>>
{
    using Base = ZyIndexedContainer<T, std::vector<T>>;

public:
    ZyVector() = default;
    ZyVector(ZyVector const &) = default;
    ZyVector(ZyVector &&) = default;
    ZyVector(std::initializer_list<T> items) : Base(std::vector<T>(items)) {}
    template <class I, class = typename std::iterator_traits<I>::iterator_category>
    ZyVector(I first, I last) : Base(std::vector<T>(first, last))
    {}
    ZyVector(unsigned int count, T const & value) : Base(std::vector<T>(count, value)) {}
    virtual ~ZyVector() = default;

    ZyVector & operator=(ZyVector const &) = default;
    ZyVector & operator=(ZyVector &&) = default;

    /** Appends all items of another one; it may be this one. */
    ZyVector & append(ZyVector const & other)
    {
        this->appendItems(other.m_items);
        return *this;
    }
    /** The same as append(). */
    ZyVector & operator+=(ZyVector const & other) { return append(other); }
    /** Makes room for \a count items in all. */
    void reserve(unsigned int count) { this->m_items.reserve(count); }

    /** The held container, on loan. */
    std::vector<T> & std_vector() { return this->m_items; }
    std::vector<T> const & std_vector() const { return this->m_items; }
};

template <class T>
bool operator==(ZyVector<T> const & a, ZyVector<T> const & b)
{
    return a.std_vector() == b.std_vector();
}
template <class T>
bool operator!=(ZyVector<T> const & a, ZyVector<T> const & b)
{
    return !(a == b);
}
