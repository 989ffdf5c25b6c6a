// SPDX-License-Identifier: BSD-3-Clause
// The frame of every class that hides its fields: the base of its state and the pointer that owns it.
// The state classes themselves stand in the sources of their owners.
#pragma once

#include <ZyExport.h>

#include <memory>

/**
 * Base of every nested `Private` class. It has no data; its one virtual operation is the destructor.
 *
 * A class X declares `class ZYCORE_PRIVATE Private;`, holds one `ZyPrivatePtr<Private>` as its first member
 * and reaches it through two private accessors named `d`. Copies of X are deep.
 */
class ZYCORE_EXPORT ZyPrivateObject
{
public:
    /** Destroys the state behind a public object; a null pointer is left alone. Stateless. */
    class Deleter
    {
    public:
        Deleter() = default;
        Deleter(Deleter const &) = default;
        Deleter(Deleter &&) = default;
        Deleter & operator=(Deleter const &) { return *this; }
        Deleter & operator=(Deleter &&) { return *this; }
        /** Destroys \a object, which may be null. */
        void operator()(ZyPrivateObject * object) const { delete object; }
    };

    ZyPrivateObject() {}
    ZyPrivateObject(ZyPrivateObject const &) {}
    virtual ~ZyPrivateObject() = default;
    ZyPrivateObject & operator=(ZyPrivateObject const &) { return *this; }
};

/** The owning pointer of every class with hidden fields. */
template <class P>
using ZyPrivatePtr = std::unique_ptr<P, ZyPrivateObject::Deleter>;
