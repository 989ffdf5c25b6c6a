// SPDX-License-Identifier: BSD-3-Clause
// The calendar of the C library, through its functions for time of 64 bits.
#include "Platform/Calendar.h"

#include <time.h>

std::int64_t ZyPlatform::localToSeconds(std::tm fields)
{
    return _mktime64(&fields);
}

std::int64_t ZyPlatform::utcToSeconds(std::tm fields)
{
    return _mkgmtime64(&fields);
}

bool ZyPlatform::secondsToLocal(std::int64_t seconds, std::tm & fields)
{
    __time64_t const moment = seconds;
    return _localtime64_s(&fields, &moment) == 0;
}

bool ZyPlatform::secondsToUtc(std::int64_t seconds, std::tm & fields)
{
    __time64_t const moment = seconds;
    return _gmtime64_s(&fields, &moment) == 0;
}
