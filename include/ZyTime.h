// SPDX-License-Identifier: BSD-3-Clause
// The present time.
#pragma once

#include <ZyExport.h>
#include <ZyTimePoint.h>

/** Functions on time; there are no objects of this class. */
class ZYCORE_EXPORT ZyTime
{
public:
    ZyTime() = delete;

    /** The same as ZyTimePoint::Now(). \threads any */
    static ZyTimePoint Now();
};
