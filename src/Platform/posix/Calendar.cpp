// SPDX-License-Identifier: BSD-3-Clause
// The calendar of the C library, whose time has 64 bits.
#include "Platform/Calendar.h"

#include <time.h>

static_assert(sizeof(time_t) == sizeof(std::int64_t), "the time of the system has 64 bits");

std::int64_t ZyPlatform::localToSeconds(std::tm fields)
{
    return mktime(&fields);
}

std::int64_t ZyPlatform::utcToSeconds(std::tm fields)
{
    return timegm(&fields);
}

bool ZyPlatform::secondsToLocal(std::int64_t seconds, std::tm & fields)
{
    time_t const moment = seconds;
    tzset(); // localtime_r need not look whether the zone has changed
    return localtime_r(&moment, &fields) != nullptr;
}

bool ZyPlatform::secondsToUtc(std::int64_t seconds, std::tm & fields)
{
    time_t const moment = seconds;
    return gmtime_r(&moment, &fields) != nullptr;
}
