// SPDX-License-Identifier: BSD-3-Clause
// A moment of the calendar. Its XML forms stand in a source of their own.
#include <ZyDateTime.h>

#include "Platform/Calendar.h"

#include <cstdint>
#include <cstdio>
#include <ctime>

class ZyDateTime::Private : public ZyPrivateObject
{
public:
    Private(std::int64_t moment, Representation view) : seconds(moment) { show(view); }

    /** Breaks the moment down. The seconds go to the system as they are: its clock's own unit does not hold
     * them all. */
    void show(Representation view)
    {
        representation = view;
        bool const held = view == Local ? ZyPlatform::secondsToLocal(seconds, fields)
                                        : ZyPlatform::secondsToUtc(seconds, fields);
        if (!held) {
            fields = std::tm();
            fields.tm_year = -1900;
            fields.tm_mon = -1;
            fields.tm_wday = -1;
        }
    }
    bool hasFields() const { return fields.tm_mon >= 0; }

    std::int64_t seconds; ///< since the epoch
    Representation representation = Local;
    std::tm fields = {};
};

namespace
{
constexpr char const * dayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                     "Thursday", "Friday", "Saturday"};
constexpr char const * monthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                       "July",    "August",   "September", "October", "November", "December"};

template <int N>
char const * nameOf(char const * const (&names)[N], int number)
{
    return number >= 0 && number < N ? names[number] : "error";
}

std::int64_t secondsOf(std::tm const & fields, ZyDateTime::Representation representation)
{
    return representation == ZyDateTime::Local ? ZyPlatform::localToSeconds(fields)
                                               : ZyPlatform::utcToSeconds(fields);
}

std::tm fieldsOf(int day, int month, int year, int hours, int minutes, int seconds)
{
    std::tm fields = {};
    fields.tm_mday = day;
    fields.tm_mon = month;
    fields.tm_year = static_cast<int>(static_cast<unsigned int>(year) - 1900u); // the least years wrap
    fields.tm_hour = hours;
    fields.tm_min = minutes;
    fields.tm_sec = seconds;
    return fields;
}
} // namespace

ZyDateTime::ZyDateTime() : m_d(new Private(0, Local)) {}

ZyDateTime::ZyDateTime(
    std::chrono::time_point<std::chrono::system_clock, std::chrono::seconds> const & moment)
    : m_d(new Private(moment.time_since_epoch().count(), Local))
{}

ZyDateTime::ZyDateTime(int day, Month month, int year, Representation representation)
    : ZyDateTime(day, month, year, 0, 0, 0, representation)
{}

ZyDateTime::ZyDateTime(int day, Month month, int year, int hours, int minutes, int seconds,
                       Representation representation)
    : m_d(new Private(secondsOf(fieldsOf(day, month, year, hours, minutes, seconds), representation),
                      representation))
{}

ZyDateTime::ZyDateTime(ZyDateTime const & other)
    : ZyXMLSerializableObject(other), m_d(new Private(*other.d()))
{}

ZyDateTime::~ZyDateTime() = default;

ZyDateTime & ZyDateTime::operator=(ZyDateTime const & other)
{
    *d() = *other.d();
    return *this;
}

ZyDateTime ZyDateTime::Now()
{
    auto const now = std::chrono::system_clock::now();
    return ZyDateTime(std::chrono::time_point_cast<std::chrono::seconds>(now));
}

int ZyDateTime::day() const
{
    return d()->fields.tm_mday;
}

ZyDateTime::Month ZyDateTime::month() const
{
    return static_cast<Month>(d()->fields.tm_mon);
}

int ZyDateTime::year() const
{
    return static_cast<int>(static_cast<unsigned int>(d()->fields.tm_year) + 1900u);
}

int ZyDateTime::hours() const
{
    return d()->fields.tm_hour;
}

int ZyDateTime::minutes() const
{
    return d()->fields.tm_min;
}

int ZyDateTime::seconds() const
{
    return d()->fields.tm_sec;
}

ZyString ZyDateTime::dayName() const
{
    return nameOf(dayNames, d()->fields.tm_wday);
}

ZyString ZyDateTime::monthName() const
{
    return nameOf(monthNames, d()->fields.tm_mon);
}

ZyDateTime::Representation ZyDateTime::representation() const
{
    return d()->representation;
}

void ZyDateTime::setRepresentation(Representation representation)
{
    d()->show(representation);
}

bool ZyDateTime::operator==(ZyDateTime const & other) const
{
    return d()->seconds == other.d()->seconds;
}

bool ZyDateTime::operator!=(ZyDateTime const & other) const
{
    return !(*this == other);
}

int ZyDateTime::compare(ZyDateTime const & other) const
{
    return d()->seconds < other.d()->seconds ? -1 : d()->seconds == other.d()->seconds ? 0 : 1;
}

ZyString ZyDateTime::toString() const
{
    if (!d()->hasFields()) {
        return "error";
    }
    // All numbers, which no locale changes; not every C library writes all years.
    std::tm const & fields = d()->fields;
    char text[64];
    int const head = std::snprintf(text, sizeof(text), "%lld-%02d-%02dT%02d:%02d:", fields.tm_year + 1900LL,
                                   fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min);
    auto const used = static_cast<std::size_t>(head);
    std::size_t const size = std::strftime(text + used, sizeof(text) - used,
                                           d()->representation == Local ? "%S%Z" : "%SZ", &fields);
    return size > 0 ? std::string(text, used + size) : std::string();
}

ZyDateTime::operator ZyString() const
{
    return toString();
}
