// SPDX-License-Identifier: BSD-3-Clause
// The present time.
#include <ZyTime.h>

ZyTimePoint ZyTime::Now()
{
    return ZyTimePoint::Now();
}
