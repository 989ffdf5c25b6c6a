// SPDX-License-Identifier: BSD-3-Clause
// References that can be elements of a container.
#pragma once

#include <memory>

/**
 * Holds a reference to a mutable T and owns nothing; the referent must outlive it. Assigning turns it to
 * another referent and changes none. Equality is that of the referents.
 */
template <class T>
class ZyRef
{
public:
    /** Refers to \a object. */
    ZyRef(T & object) noexcept : m_object(std::addressof(object)) {}
    ZyRef(T &&) = delete;
    ZyRef(ZyRef const &) noexcept = default;
    ZyRef & operator=(ZyRef const &) noexcept = default;
    virtual ~ZyRef() = default;

    /** The object referred to. */
    T & get() const noexcept { return *m_object; }
    T & operator*() const noexcept { return *m_object; }
    T * operator->() const noexcept { return m_object; }
    /** The object referred to. */
    operator T &() const noexcept { return *m_object; }

    bool operator==(ZyRef const & other) const { return *m_object == *other.m_object; }
    bool operator!=(ZyRef const & other) const { return !(*this == other); }

private:
    T * m_object;
};

/**
 * Holds a reference to a const T and owns nothing; the referent must outlive it. Assigning turns it to
 * another referent. Equality is that of the referents.
 */
template <class T>
class ZyCRef
{
public:
    /** Refers to \a object. */
    ZyCRef(T const & object) noexcept : m_object(std::addressof(object)) {}
    ZyCRef(T const &&) = delete;
    /** Refers to what \a object refers to. */
    ZyCRef(ZyRef<T> const & object) noexcept : m_object(std::addressof(object.get())) {}
    ZyCRef(ZyCRef const &) noexcept = default;
    ZyCRef & operator=(ZyCRef const &) noexcept = default;
    virtual ~ZyCRef() = default;

    /** The object referred to. */
    T const & get() const noexcept { return *m_object; }
    T const & operator*() const noexcept { return *m_object; }
    T const * operator->() const noexcept { return m_object; }
    /** The object referred to. */
    operator T const &() const noexcept { return *m_object; }

    bool operator==(ZyCRef const & other) const { return *m_object == *other.m_object; }
    bool operator!=(ZyCRef const & other) const { return !(*this == other); }

private:
    T const * m_object;
};
