// SPDX-License-Identifier: BSD-3-Clause
// Iteration across the container interface: a value object over a polymorphic implementation.
// Hot code walks the standard container behind the concrete class instead: an iterator costs an allocation.
#pragma once

#include <ZySharedPtr.h>
#include <ZyThrow.h>
#include <ZyUniquePtr.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

/** What an iterator does; T is const for the iterators of const containers. */
template <class T>
class ZyIteratorImpl
{
public:
    virtual ~ZyIteratorImpl() = default;
    /** Advances by one and returns itself. */
    virtual ZyIteratorImpl & operator++() = 0;
    virtual T const & operator*() const = 0;
    virtual T & operator*() = 0;
    virtual T const * operator->() const = 0;
    virtual T * operator->() = 0;
    /** \throws std::bad_cast \a other is an implementation of another kind */
    virtual bool operator==(ZyIteratorImpl const & other) const = 0;
    virtual bool operator!=(ZyIteratorImpl const & other) const { return !(*this == other); }
    /** True while there is a current element, that is, before the end. */
    virtual bool hasCurrent() const = 0;
    /** A copy that advances independently. */
    virtual ZyUniquePtr<ZyIteratorImpl> clone() const = 0;

protected:
    ZyIteratorImpl() = default;
    ZyIteratorImpl(ZyIteratorImpl const &) = default;
    ZyIteratorImpl & operator=(ZyIteratorImpl const &) = default;
};

/**
 * The implementation over a range of standard iterators: the current position and the end of the range.
 * Changing the container invalidates it as the standard container's rules say.
 */
template <class T, class I>
class ZyContainerIteratorImpl final : public ZyIteratorImpl<T>
{
public:
    /** Stands at \a current in a range that ends with \a end. */
    ZyContainerIteratorImpl(I current, I end) : m_current(current), m_end(end) {}

    ZyContainerIteratorImpl & operator++() override
    {
        ++m_current;
        return *this;
    }
    T const & operator*() const override { return *m_current; }
    T & operator*() override { return *m_current; }
    T const * operator->() const override { return std::addressof(*m_current); }
    T * operator->() override { return std::addressof(*m_current); }
    bool operator==(ZyIteratorImpl<T> const & other) const override
    {
        if (typeid(other) != typeid(ZyContainerIteratorImpl)) {
            ZyThrow::BadCast();
        }
        return m_current == static_cast<ZyContainerIteratorImpl const &>(other).m_current;
    }
    bool hasCurrent() const override { return m_current != m_end; }
    ZyUniquePtr<ZyIteratorImpl<T>> clone() const override
    {
        return ZyUniquePtr<ZyIteratorImpl<T>>(new ZyContainerIteratorImpl(*this));
    }

private:
    I m_current;
    I m_end;
};

/**
 * Walks a container through its interface; a model of an input iterator. Copies advance independently.
 *
 * \throws ZyNullPointerException from a dereference without implementation: "Iterator not assigned data"
 * \throws ZyInvalidCallException from a dereference at the end: "Iterator cannot be dereferenced when at end"
 * \throws std::bad_cast from a comparison with an iterator of another kind of container
 */
template <class T>
class ZyIterator
{
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = std::remove_const_t<T>;
    using difference_type = std::ptrdiff_t;
    using pointer = T *;
    using reference = T &;

    ZyIterator() {}
    explicit ZyIterator(ZyUniquePtr<ZyIteratorImpl<T>> impl) : m_impl(std::move(impl)) {}
    ZyIterator(ZyIterator const & other)
        : m_impl(other.m_impl ? ZySharedPtr<Impl>(other.m_impl->clone()) : nullptr)
    {}
    ZyIterator(ZyIterator && other) noexcept : m_impl(std::move(other.m_impl)) {}
    virtual ~ZyIterator() = default;

    ZyIterator & operator=(ZyIterator const & other)
    {
        ZyIterator(other).m_impl.swap(m_impl);
        return *this;
    }
    ZyIterator & operator=(ZyIterator && other) noexcept
    {
        m_impl = std::move(other.m_impl);
        return *this;
    }

    T & operator*() const { return *checked(); }
    T * operator->() const { return checked().operator->(); }
    ZyIterator & operator++()
    {
        if (m_impl) {
            ++*m_impl.get();
        }
        return *this;
    }
    ZyIterator operator++(int)
    {
        ZyIterator before(*this);
        ++*this;
        return before;
    }
    bool operator==(ZyIterator const & other) const
    {
        if (!m_impl || !other.m_impl) {
            return !m_impl && !other.m_impl;
        }
        return *static_cast<Impl const *>(m_impl.get()) == *static_cast<Impl const *>(other.m_impl.get());
    }
    bool operator!=(ZyIterator const & other) const { return !(*this == other); }

private:
    using Impl = ZyIteratorImpl<T>;

    Impl & checked() const
    {
        if (!m_impl) {
            ZyThrow::NullPointer("Iterator not assigned data");
        }
        if (!m_impl.get()->hasCurrent()) {
            ZyThrow::InvalidCall("Iterator cannot be dereferenced when at end");
        }
        return *m_impl.get();
    }

    ZySharedPtr<Impl> m_impl;
};
