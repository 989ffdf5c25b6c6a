// SPDX-License-Identifier: BSD-3-Clause
// Shared ownership: the pointer that factories return, the pointer that collections hand out, and their
// casts.
#pragma once

#include <ZyThrow.h>
#include <ZyUniquePtr.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

template <class T>
class ZyWeakPtr;

/**
 * Shared owner of an object allocated with the plain `new`: object pointer and control block pointer, two
 * words.
 *
 * Counting, conversion and comparison are those of the standard library's shared pointer; handles to one
 * object may be copied and dropped from several threads at once. A null dereference throws.
 *
 * \throws ZyNullPointerException from both dereferences, with an empty message
 */
template <class T>
class ZySharedPtr
{
public:
    using element_type = T;

    constexpr ZySharedPtr() noexcept {}
    constexpr ZySharedPtr(std::nullptr_t) noexcept {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    explicit ZySharedPtr(U * object) : m_object(object)
    {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZySharedPtr(ZySharedPtr<U> const & other) noexcept : m_object(other.m_object)
    {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZySharedPtr(ZySharedPtr<U> && other) noexcept : m_object(std::move(other.m_object))
    {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZySharedPtr(ZyUniquePtr<U> && other) : m_object(std::move(other.m_object))
    {}
    /** Shares the life of \a owner and points at \a object, a part of it or the same object under another
     * type. */
    template <class U>
    ZySharedPtr(ZySharedPtr<U> const & owner, T * object) noexcept : m_object(owner.m_object, object)
    {}

    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZySharedPtr & operator=(ZySharedPtr<U> const & other) noexcept
    {
        m_object = other.m_object;
        return *this;
    }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZySharedPtr & operator=(ZyUniquePtr<U> && other)
    {
        ZySharedPtr(std::move(other)).swap(*this);
        return *this;
    }

    std::add_lvalue_reference_t<T> operator*() const { return *checked(); }
    T * operator->() const { return checked(); }
    explicit operator bool() const noexcept { return static_cast<bool>(m_object); }

    /** The object, on loan; null when there is none. */
    T * get() const noexcept { return m_object.get(); }
    /** Gives up its share. */
    void reset() noexcept { m_object.reset(); }
    /** Gives up its share and takes over \a object. */
    template <class U>
    void reset(U * object)
    {
        m_object.reset(object);
    }
    void swap(ZySharedPtr & other) noexcept { m_object.swap(other.m_object); }
    /** How many shared pointers own the object; only a hint while other threads hold handles. */
    long use_count() const noexcept { return m_object.use_count(); }

private:
    template <class U>
    friend class ZySharedPtr;
    template <class U>
    friend class ZyWeakPtr;

    T * checked() const
    {
        if (!m_object) {
            ZyThrow::NullPointer();
        }
        return m_object.get();
    }

    std::shared_ptr<T> m_object;
};

/** Observes an object that shared pointers own, and keeps none alive. */
template <class T>
class ZyWeakPtr
{
public:
    using element_type = T;

    ZyWeakPtr() noexcept {}
    ZyWeakPtr(std::nullptr_t) noexcept {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZyWeakPtr(ZySharedPtr<U> const & object) noexcept : m_object(object.m_object)
    {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
    ZyWeakPtr(ZyWeakPtr<U> const & other) noexcept : m_object(other.m_object)
    {}
    ZyWeakPtr(ZyWeakPtr const & other) noexcept : m_object(other.m_object) {}
    ZyWeakPtr(ZyWeakPtr && other) noexcept : m_object(std::move(other.m_object)) {}
    virtual ~ZyWeakPtr() = default;

    ZyWeakPtr & operator=(ZyWeakPtr const & other) noexcept
    {
        if (this != &other) {
            m_object = other.m_object;
        }
        return *this;
    }
    ZyWeakPtr & operator=(ZyWeakPtr && other) noexcept
    {
        m_object = std::move(other.m_object);
        return *this;
    }

    /** The object, kept alive by the result; null when it has gone. */
    [[nodiscard]] ZySharedPtr<T> lock() const noexcept
    {
        ZySharedPtr<T> locked;
        locked.m_object = m_object.lock();
        return locked;
    }
    /** True when the object has gone or there never was one. */
    bool expired() const noexcept { return m_object.expired(); }
    /** Forgets the object. */
    void reset() noexcept { m_object.reset(); }
    void swap(ZyWeakPtr & other) noexcept { m_object.swap(other.m_object); }
    /** How many owners the object has; 0 when it is gone. */
    long use_count() const noexcept { return m_object.use_count(); }

    /** True when both watch one object (or none), also after it has gone. */
    bool operator==(ZyWeakPtr const & other) const noexcept
    {
        return !m_object.owner_before(other.m_object) && !other.m_object.owner_before(m_object);
    }
    bool operator!=(ZyWeakPtr const & other) const noexcept { return !(*this == other); }

private:
    template <class U>
    friend class ZyWeakPtr;

    std::weak_ptr<T> m_object;
};

template <class T, class U>
bool operator==(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return a.get() != b.get();
}
template <class T, class U>
bool operator<(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return std::less<std::common_type_t<T *, U *>>()(a.get(), b.get());
}
template <class T, class U>
bool operator>(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return b < a;
}
template <class T, class U>
bool operator<=(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return !(b < a);
}
template <class T, class U>
bool operator>=(ZySharedPtr<T> const & a, ZySharedPtr<U> const & b) noexcept
{
    return !(a < b);
}
template <class T>
bool operator==(ZySharedPtr<T> const & a, std::nullptr_t) noexcept
{
    return !a.get();
}
template <class T>
bool operator==(std::nullptr_t, ZySharedPtr<T> const & a) noexcept
{
    return !a.get();
}
template <class T>
bool operator!=(ZySharedPtr<T> const & a, std::nullptr_t) noexcept
{
    return a.get() != nullptr;
}
template <class T>
bool operator!=(std::nullptr_t, ZySharedPtr<T> const & a) noexcept
{
    return a.get() != nullptr;
}
template <class T>
void swap(ZySharedPtr<T> & a, ZySharedPtr<T> & b) noexcept
{
    a.swap(b);
}

/** Casts without a check, as static_cast does; the result shares the object's life. */
template <class T, class U>
ZySharedPtr<T> ZyStaticPointerCast(ZySharedPtr<U> const & object) noexcept
{
    return ZySharedPtr<T>(object, static_cast<T *>(object.get()));
}

/** Casts with a check, as dynamic_cast does; null when the object is of another type. */
template <class T, class U>
ZySharedPtr<T> ZyDynamicPointerCast(ZySharedPtr<U> const & object) noexcept
{
    T * cast = dynamic_cast<T *>(object.get());
    return cast ? ZySharedPtr<T>(object, cast) : ZySharedPtr<T>();
}
