// SPDX-License-Identifier: BSD-3-Clause
// The sole owner of an object: what hands ownership into the library and out of it.
#pragma once

#include <ZyThrow.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

template <class T>
class ZySharedPtr;

/**
 * Sole owner of an object allocated with the plain `new`. Move-only.
 *
 * Differs from the standard library's pointer in one point: a null dereference throws.
 *
 * \throws ZyNullPointerException from both dereferences: "ZyUniquePtr dereferencing nullptr"
 */
template <class T>
class ZyUniquePtr
{
public:
    using element_type = T;
    using pointer = T *;

    constexpr ZyUniquePtr() noexcept : m_object() {}
    constexpr ZyUniquePtr(std::nullptr_t) noexcept : m_object() {}
    explicit ZyUniquePtr(T * object) noexcept : m_object(object) {}
    ZyUniquePtr(ZyUniquePtr && other) noexcept : m_object(std::move(other.m_object)) {}
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *> && !std::is_same_v<U, T>>>
    ZyUniquePtr(ZyUniquePtr<U> && other) noexcept : m_object(other.release())
    {}
    ZyUniquePtr(ZyUniquePtr const &) = delete;
    virtual ~ZyUniquePtr() = default;

    ZyUniquePtr & operator=(ZyUniquePtr && other) noexcept
    {
        m_object = std::move(other.m_object);
        return *this;
    }
    template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *> && !std::is_same_v<U, T>>>
    ZyUniquePtr & operator=(ZyUniquePtr<U> && other) noexcept
    {
        m_object.reset(other.release());
        return *this;
    }
    ZyUniquePtr & operator=(std::nullptr_t) noexcept
    {
        m_object.reset();
        return *this;
    }
    ZyUniquePtr & operator=(ZyUniquePtr const &) = delete;

    std::add_lvalue_reference_t<T> operator*() const { return *checked(); }
    T * operator->() const { return checked(); }
    explicit operator bool() const noexcept { return static_cast<bool>(m_object); }

    /** The object, on loan; null when there is none. */
    T * get() const noexcept { return m_object.get(); }
    /** Hands the object over to the caller and is empty afterwards. */
    [[nodiscard]] T * release() noexcept { return m_object.release(); }
    /** Deletes the object and takes another one. */
    void reset(T * object = nullptr) noexcept { m_object.reset(object); }
    void swap(ZyUniquePtr & other) noexcept { m_object.swap(other.m_object); }

private:
    template <class U>
    friend class ZySharedPtr;

    T * checked() const
    {
        if (!m_object) {
            ZyThrow::NullPointer("ZyUniquePtr dereferencing nullptr");
        }
        return m_object.get();
    }

    std::unique_ptr<T> m_object;
};

template <class T, class U>
bool operator==(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return a.get() != b.get();
}
template <class T, class U>
bool operator<(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return std::less<std::common_type_t<T *, U *>>()(a.get(), b.get());
}
template <class T, class U>
bool operator>(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return b < a;
}
template <class T, class U>
bool operator<=(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return !(b < a);
}
template <class T, class U>
bool operator>=(ZyUniquePtr<T> const & a, ZyUniquePtr<U> const & b) noexcept
{
    return !(a < b);
}
template <class T>
bool operator==(ZyUniquePtr<T> const & a, std::nullptr_t) noexcept
{
    return !a.get();
}
template <class T>
bool operator==(std::nullptr_t, ZyUniquePtr<T> const & a) noexcept
{
    return !a.get();
}
template <class T>
bool operator!=(ZyUniquePtr<T> const & a, std::nullptr_t) noexcept
{
    return a.get() != nullptr;
}
template <class T>
bool operator!=(std::nullptr_t, ZyUniquePtr<T> const & a) noexcept
{
    return a.get() != nullptr;
}
template <class T>
void swap(ZyUniquePtr<T> & a, ZyUniquePtr<T> & b) noexcept
{
    a.swap(b);
}
