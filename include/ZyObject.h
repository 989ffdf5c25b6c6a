// SPDX-License-Identifier: BSD-3-Clause
// The polymorphic base of values whose type is not known where they are kept.
#pragma once

#include <ZyExport.h>

/** Base of type-erased values: a virtual destructor and nothing else. */
class ZYCORE_EXPORT ZyObject
{
public:
    ZyObject() = default;
    ZyObject(ZyObject const &) = default;
    ZyObject & operator=(ZyObject const &) = default;
    virtual ~ZyObject();
};
