// SPDX-License-Identifier: BSD-3-Clause
// Seconds since 1970 and calendar fields, in local time and in UTC.
#pragma once

#include <cstdint>
#include <ctime>

namespace ZyPlatform
{
// The time zone is that of the process at the call. All of these may be called from any thread.

/** mktime: normalises fields that are out of range; -1 when the calendar does not hold the result. */
std::int64_t localToSeconds(std::tm fields);
/** The same for fields in UTC. */
std::int64_t utcToSeconds(std::tm fields);
/** localtime. \return false: the calendar does not hold the moment, the fields are not set */
bool secondsToLocal(std::int64_t seconds, std::tm & fields);
/** gmtime. \return false: the calendar does not hold the moment, the fields are not set */
bool secondsToUtc(std::int64_t seconds, std::tm & fields);
} // namespace ZyPlatform
