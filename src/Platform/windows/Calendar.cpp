// SPDX-License-Identifier: BSD-3-Clause
// The calendar without bounds. The C library knows the years from 1970 to 3000 only, and the rules of the
// time zone with them; before and after it is always standard time.
#include "Platform/Calendar.h"

#include <time.h>

#include <limits>

namespace
{
constexpr std::int64_t secondsOfDay = 86400;
constexpr std::int64_t daysOfEra = 146097; ///< four hundred years

struct Quotient
{
    std::int64_t whole;
    std::int64_t rest; ///< never negative
};

Quotient divided(std::int64_t number, std::int64_t by)
{
    std::int64_t const rest = ((number % by) + by) % by;
    return {(number - rest) / by, rest};
}

/** Days since 1970. \a month counts from 0 and is in range; years begin with March here, so that the leap day
 * is last. */
std::int64_t daysTo(std::int64_t year, std::int64_t month)
{
    std::int64_t const fromMarch = (month + 10) % 12;
    Quotient const era = divided(month < 2 ? year - 1 : year, 400);
    std::int64_t const inEra = era.rest * 365 + era.rest / 4 - era.rest / 100 + (153 * fromMarch + 2) / 5;
    return era.whole * daysOfEra + inEra - 719468;
}

std::int64_t secondsTo(std::tm const & fields)
{
    Quotient const month = divided(fields.tm_mon, 12);
    std::int64_t const days =
        daysTo(fields.tm_year + 1900LL + month.whole, month.rest) + fields.tm_mday - 1LL;
    return days * secondsOfDay + fields.tm_hour * 3600LL + fields.tm_min * 60LL + fields.tm_sec;
}

bool setFields(std::int64_t seconds, std::tm & fields)
{
    Quotient const day = divided(seconds, secondsOfDay);
    Quotient const era = divided(day.whole + 719468, daysOfEra);
    std::int64_t const yearOfEra =
        (era.rest - era.rest / 1460 + era.rest / 36524 - era.rest / (daysOfEra - 1)) / 365;
    std::int64_t const dayOfYear = era.rest - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    std::int64_t const fromMarch = (5 * dayOfYear + 2) / 153;
    std::int64_t const month = (fromMarch + 2) % 12;
    std::int64_t const year = era.whole * 400 + yearOfEra + (month < 2 ? 1 : 0);
    if (year - 1900 > std::numeric_limits<int>::max() || year - 1900 < std::numeric_limits<int>::min()) {
        return false;
    }
    fields = {};
    fields.tm_year = static_cast<int>(year - 1900);
    fields.tm_mon = static_cast<int>(month);
    fields.tm_mday = static_cast<int>(dayOfYear - (153 * fromMarch + 2) / 5 + 1);
    fields.tm_hour = static_cast<int>(day.rest / 3600);
    fields.tm_min = static_cast<int>(day.rest / 60 % 60);
    fields.tm_sec = static_cast<int>(day.rest % 60);
    fields.tm_wday = static_cast<int>(divided(day.whole + 4, 7).rest);
    fields.tm_yday = static_cast<int>(day.whole - daysTo(year, 0));
    return true;
}

/** What standard time is behind UTC, in seconds, by a moment that the C library knows. */
std::int64_t behindUtc()
{
    __time64_t const moment = 978307200;
    std::tm fields = {};
    _tzset();
    _localtime64_s(&fields, &moment);
    return moment - secondsTo(fields) + (fields.tm_isdst > 0 ? 3600 : 0);
}
} // namespace

std::int64_t ZyPlatform::localToSeconds(std::tm fields)
{
    std::tm const asked = fields;
    std::int64_t const known = _mktime64(&fields);
    if (known != -1) {
        return known;
    }
    std::int64_t const seconds = secondsTo(asked) + behindUtc();
    std::tm result = {};
    return setFields(seconds, result) ? seconds : -1;
}

std::int64_t ZyPlatform::utcToSeconds(std::tm fields)
{
    std::int64_t const seconds = secondsTo(fields);
    return setFields(seconds, fields) ? seconds : -1;
}

bool ZyPlatform::secondsToLocal(std::int64_t seconds, std::tm & fields)
{
    __time64_t const moment = seconds;
    _tzset();
    if (seconds >= 0 && _localtime64_s(&fields, &moment) == 0) {
        return true;
    }
    constexpr std::int64_t farthest = std::numeric_limits<std::int64_t>::max() - secondsOfDay;
    return seconds < farthest && seconds > -farthest && setFields(seconds - behindUtc(), fields);
}

bool ZyPlatform::secondsToUtc(std::int64_t seconds, std::tm & fields)
{
    return setFields(seconds, fields);
}
