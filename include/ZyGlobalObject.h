// SPDX-License-Identifier: BSD-3-Clause
// What the process-wide store holds: any object of a host, and containers of the common types.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZySharedPtr.h>

#include <utility>

/** Base of everything that ZyGlobal stores. Hosts derive from it to store anything they like. */
class ZYCORE_EXPORT ZyGlobalObject
{
public:
    ZyGlobalObject() = default;
    ZyGlobalObject(ZyGlobalObject const &) = default;
    ZyGlobalObject & operator=(ZyGlobalObject const &) = default;
    virtual ~ZyGlobalObject() = 0;
};

/**
 * A stored object that shares one T.
 *
 * \tparam N the tag of the type; objects of one T with different tags are of different classes
 */
template <class T, int N>
class ZyGlobalTemplateObject : public ZyGlobalObject
{
public:
    ZyGlobalTemplateObject() = default;
    /** Holds \a value, which may be null. */
    explicit ZyGlobalTemplateObject(ZySharedPtr<T> value) : m_value(std::move(value)) {}

    /** What is held; null when there is none. */
    ZySharedPtr<T> const & value() const { return m_value; }

private:
    ZySharedPtr<T> m_value;
};

/**
 * The form in which the library stores its own values: a deque, also for a single value.
 *
 * In use are `<double, 1>`, `<int, 2>` and `<ZyString, 3>`.
 */
template <class T, int N>
class ZyContainerGlobalObject : public ZyGlobalTemplateObject<ZyDeque<T>, N>
{
public:
    /** Without a deque: what is read from such an object throws ZyNullPointerException. */
    ZyContainerGlobalObject() = default;
    /** Holds \a items, which may be null. */
    explicit ZyContainerGlobalObject(ZySharedPtr<ZyDeque<T>> items)
        : ZyGlobalTemplateObject<ZyDeque<T>, N>(std::move(items))
    {}
    /** Takes the items over. */
    explicit ZyContainerGlobalObject(ZyDeque<T> && items)
        : ZyContainerGlobalObject(ZySharedPtr<ZyDeque<T>>(new ZyDeque<T>(std::move(items))))
    {}
};
