// SPDX-License-Identifier: BSD-3-Clause
// A span of time in nanoseconds.
#include <ZyTimeDuration.h>

#include <ZyException.h>

#include <cstdint>
#include <limits>

class ZyTimeDuration::Private : public ZyPrivateObject
{
public:
    explicit Private(std::chrono::nanoseconds const & value) : duration(value) {}

    std::int64_t total() const { return duration.count(); }

    std::chrono::nanoseconds duration;
};

namespace
{
// Arithmetic that wraps, which signed numbers of the language do not.
constexpr std::int64_t sum(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

constexpr std::int64_t difference(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
}

constexpr std::int64_t product(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) * static_cast<std::uint64_t>(b));
}

constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

// Nanoseconds in each unit.
constexpr std::int64_t microsecond = 1000;
constexpr std::int64_t millisecond = 1000 * microsecond;
constexpr std::int64_t second = 1000 * millisecond;
constexpr std::int64_t minute = 60 * second;
constexpr std::int64_t hour = 60 * minute;

/** The nanoseconds of a count: multiplied first, in 64 bits, and tested by the count itself. */
std::chrono::nanoseconds checked(std::int64_t count, std::int64_t unit, char const * unitName)
{
    std::chrono::nanoseconds const result(product(count, unit));
    if (count > greatest / unit || count < -(greatest / unit)) {
        throw ZyInvalidParameterException(ZyString("Number of ") + unitName +
                                          " is greater than the value a time duration can hold");
    }
    return result;
}

/** The whole units, less those that make up whole larger ones. */
constexpr std::int64_t field(std::int64_t total, std::int64_t unit, std::int64_t larger)
{
    return total / unit - (total / larger) * (larger / unit);
}
} // namespace

ZyTimeDuration::ZyTimeDuration() : ZyTimeDuration(std::chrono::nanoseconds(0)) {}

ZyTimeDuration::ZyTimeDuration(Nanoseconds const & count)
    : ZyTimeDuration(std::chrono::nanoseconds(count.value))
{}

ZyTimeDuration::ZyTimeDuration(Microseconds const & count)
    : ZyTimeDuration(checked(count.value, microsecond, "microseconds"))
{}

ZyTimeDuration::ZyTimeDuration(Milliseconds const & count)
    : ZyTimeDuration(checked(count.value, millisecond, "milliseconds"))
{}

ZyTimeDuration::ZyTimeDuration(Seconds const & count)
    : ZyTimeDuration(checked(count.value, second, "seconds"))
{}

ZyTimeDuration::ZyTimeDuration(Minutes const & count)
    : ZyTimeDuration(checked(count.value, minute, "minutes"))
{}

ZyTimeDuration::ZyTimeDuration(Hours const & count) : ZyTimeDuration(checked(count.value, hour, "hours")) {}

ZyTimeDuration::ZyTimeDuration(std::chrono::nanoseconds const & duration) : m_d(new Private(duration)) {}

ZyTimeDuration::ZyTimeDuration(ZyTimeDuration const & other)
    : ZyPrivateObject(other), m_d(new Private(other.d()->duration))
{}

ZyTimeDuration::~ZyTimeDuration() = default;

ZyTimeDuration & ZyTimeDuration::operator=(ZyTimeDuration const & other)
{
    d()->duration = other.d()->duration;
    return *this;
}

ZyTimeDuration ZyTimeDuration::operator+(ZyTimeDuration const & other) const
{
    return ZyTimeDuration(std::chrono::nanoseconds(sum(d()->total(), other.d()->total())));
}

ZyTimeDuration ZyTimeDuration::operator-(ZyTimeDuration const & other) const
{
    return ZyTimeDuration(std::chrono::nanoseconds(difference(d()->total(), other.d()->total())));
}

ZyTimeDuration & ZyTimeDuration::operator+=(ZyTimeDuration const & other)
{
    d()->duration = std::chrono::nanoseconds(sum(d()->total(), other.d()->total()));
    return *this;
}

ZyTimeDuration & ZyTimeDuration::operator-=(ZyTimeDuration const & other)
{
    d()->duration = std::chrono::nanoseconds(difference(d()->total(), other.d()->total()));
    return *this;
}

bool ZyTimeDuration::operator==(ZyTimeDuration const & other) const
{
    return d()->duration == other.d()->duration;
}

bool ZyTimeDuration::operator!=(ZyTimeDuration const & other) const
{
    return d()->duration != other.d()->duration;
}

bool ZyTimeDuration::operator<(ZyTimeDuration const & other) const
{
    return d()->duration < other.d()->duration;
}

bool ZyTimeDuration::operator<=(ZyTimeDuration const & other) const
{
    return d()->duration <= other.d()->duration;
}

bool ZyTimeDuration::operator>(ZyTimeDuration const & other) const
{
    return d()->duration > other.d()->duration;
}

bool ZyTimeDuration::operator>=(ZyTimeDuration const & other) const
{
    return d()->duration >= other.d()->duration;
}

int ZyTimeDuration::compare(ZyTimeDuration const & other) const
{
    return *this < other ? -1 : *this == other ? 0 : 1;
}

ZyTimeDuration::Nanoseconds ZyTimeDuration::count() const
{
    return {d()->total()};
}

ZyTimeDuration::Nanoseconds ZyTimeDuration::toNanoseconds() const
{
    return count();
}

ZyTimeDuration::Microseconds ZyTimeDuration::toMicroseconds() const
{
    return {d()->total() / microsecond};
}

ZyTimeDuration::Milliseconds ZyTimeDuration::toMilliseconds() const
{
    return {d()->total() / millisecond};
}

ZyTimeDuration::Seconds ZyTimeDuration::toSeconds() const
{
    return {d()->total() / second};
}

ZyTimeDuration::Minutes ZyTimeDuration::toMinutes() const
{
    return {static_cast<int>(d()->total() / minute)};
}

ZyTimeDuration::Hours ZyTimeDuration::toHours() const
{
    return {static_cast<int>(d()->total() / hour)};
}

ZyTimeDuration::Nanoseconds ZyTimeDuration::nanoseconds() const
{
    return {field(d()->total(), 1, microsecond)};
}

ZyTimeDuration::Microseconds ZyTimeDuration::microseconds() const
{
    return {field(d()->total(), microsecond, millisecond)};
}

ZyTimeDuration::Milliseconds ZyTimeDuration::milliseconds() const
{
    return {field(d()->total(), millisecond, second)};
}

ZyTimeDuration::Seconds ZyTimeDuration::seconds() const
{
    return {field(d()->total(), second, minute)};
}

ZyTimeDuration::Minutes ZyTimeDuration::minutes() const
{
    return {static_cast<int>(field(d()->total(), minute, hour))};
}

ZyTimeDuration::Hours ZyTimeDuration::hours() const
{
    return toHours();
}

std::chrono::nanoseconds const & ZyTimeDuration::std_duration() const
{
    return d()->duration;
}

ZyTimeDuration::Nanoseconds ZyTimeDuration::MaxNanoseconds()
{
    return {greatest};
}

ZyTimeDuration::Microseconds ZyTimeDuration::MaxMicroseconds()
{
    return {greatest / microsecond};
}

ZyTimeDuration::Milliseconds ZyTimeDuration::MaxMilliseconds()
{
    return {greatest / millisecond};
}

ZyTimeDuration::Seconds ZyTimeDuration::MaxSeconds()
{
    return {greatest / second};
}

ZyTimeDuration::Minutes ZyTimeDuration::MaxMinutes()
{
    return {static_cast<int>(greatest / minute)};
}

ZyTimeDuration::Hours ZyTimeDuration::MaxHours()
{
    return {static_cast<int>(greatest / hour)};
}

ZyTimeDuration::Nanoseconds ZyTimeDuration::MinNanoseconds()
{
    return {std::numeric_limits<std::int64_t>::min()};
}

ZyTimeDuration::Microseconds ZyTimeDuration::MinMicroseconds()
{
    return {-MaxMicroseconds().value};
}

ZyTimeDuration::Milliseconds ZyTimeDuration::MinMilliseconds()
{
    return {-MaxMilliseconds().value};
}

ZyTimeDuration::Seconds ZyTimeDuration::MinSeconds()
{
    return {-MaxSeconds().value};
}

ZyTimeDuration::Minutes ZyTimeDuration::MinMinutes()
{
    return {-MaxMinutes().value};
}

ZyTimeDuration::Hours ZyTimeDuration::MinHours()
{
    return {-MaxHours().value};
}

ZyTimeDuration operator+(ZyTimeDuration::Nanoseconds const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}

ZyTimeDuration operator+(ZyTimeDuration::Microseconds const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}

ZyTimeDuration operator+(ZyTimeDuration::Milliseconds const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}

ZyTimeDuration operator+(ZyTimeDuration::Seconds const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}

ZyTimeDuration operator+(ZyTimeDuration::Minutes const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}

ZyTimeDuration operator+(ZyTimeDuration::Hours const & a, ZyTimeDuration const & b)
{
    return ZyTimeDuration(a) + b;
}
