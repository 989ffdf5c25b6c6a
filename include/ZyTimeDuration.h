// SPDX-License-Identifier: BSD-3-Clause
// A span of time in nanoseconds.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyTimeComponent.h>
#include <ZyTypes.h>

#include <chrono>

/**
 * A span of time: a signed 64-bit count of nanoseconds, some 292 years in each direction.
 *
 * \code
 * ZyTimeDuration const span = ZyTimeDuration::Hours{1} + ZyTimeDuration::Milliseconds{1500};
 * span.minutes().value;      // 0: the field
 * span.toMinutes().value;    // 60: the total
 * span.milliseconds().value; // 500
 * \endcode
 *
 * \deliberate{durations-wrap} What comes in is checked against the range, what is calculated is not: sums and differences
 * wrap in silence.
 *
 * A value class: copies are deep, and each allocates one small block. Code that measures in a tight loop
 * should keep the standard durations and points.
 */
class ZYCORE_EXPORT ZyTimeDuration : public ZyPrivateObject
{
public:
    using Nanoseconds = ZyTimeComponent<__int64, 0>;  ///< a count of nanoseconds
    using Microseconds = ZyTimeComponent<__int64, 1>; ///< a count of microseconds
    using Milliseconds = ZyTimeComponent<__int64, 2>; ///< a count of milliseconds
    using Seconds = ZyTimeComponent<__int64, 3>;      ///< a count of seconds
    using Minutes = ZyTimeComponent<int, 4>;          ///< a count of minutes
    using Hours = ZyTimeComponent<int, 5>;            ///< a count of hours

    /** No time. */
    ZyTimeDuration();
    /** That many nanoseconds; all of them fit. */
    ZyTimeDuration(Nanoseconds const & count);
    /**
     * Converts a count of a larger unit. The limits themselves pass.
     *
     * \deliberate{duration-minimum-words} Below the minimum the message says "greater" too: hosts know the one text.
     *
     * \throws ZyInvalidParameterException outside of MinMicroseconds() and MaxMicroseconds(): "Number of microseconds is
     *         greater than the value a time duration can hold"
     */
    ZyTimeDuration(Microseconds const & count);
    /** The same. \throws ZyInvalidParameterException "Number of milliseconds is greater than the value a time duration can hold" */
    ZyTimeDuration(Milliseconds const & count);
    /** The same. \throws ZyInvalidParameterException "Number of seconds is greater than the value a time duration can hold" */
    ZyTimeDuration(Seconds const & count);
    /** The same. \throws ZyInvalidParameterException "Number of minutes is greater than the value a time duration can hold" */
    ZyTimeDuration(Minutes const & count);
    /** The same. \throws ZyInvalidParameterException "Number of hours is greater than the value a time duration can hold" */
    ZyTimeDuration(Hours const & count);
    /** The standard library's duration, unchecked. */
    ZyTimeDuration(std::chrono::nanoseconds const & duration);
    ZyTimeDuration(ZyTimeDuration const & other);
    ~ZyTimeDuration() override;
    ZyTimeDuration & operator=(ZyTimeDuration const & other);

    /** The sum; it wraps in 64 bits. */
    ZyTimeDuration operator+(ZyTimeDuration const & other) const;
    /** The difference; it wraps in 64 bits. */
    ZyTimeDuration operator-(ZyTimeDuration const & other) const;
    /** Adds; the sum wraps in 64 bits. */
    ZyTimeDuration & operator+=(ZyTimeDuration const & other);
    /** Subtracts; the difference wraps in 64 bits. */
    ZyTimeDuration & operator-=(ZyTimeDuration const & other);

    bool operator==(ZyTimeDuration const & other) const;
    bool operator!=(ZyTimeDuration const & other) const;
    bool operator<(ZyTimeDuration const & other) const;
    bool operator<=(ZyTimeDuration const & other) const;
    bool operator>(ZyTimeDuration const & other) const;
    bool operator>=(ZyTimeDuration const & other) const;
    /** -1, 0 or 1, as this is shorter than, equal to or longer than the other; a negative span is shorter
     * than none. */
    int compare(ZyTimeDuration const & other) const;

    /** The total in nanoseconds. */
    Nanoseconds count() const;
    /** The same as count(). */
    Nanoseconds toNanoseconds() const;
    /** The total, truncated toward zero. */
    Microseconds toMicroseconds() const;
    /** The total, truncated toward zero. */
    Milliseconds toMilliseconds() const;
    /** The total, truncated toward zero. */
    Seconds toSeconds() const;
    /** The total, truncated toward zero. */
    Minutes toMinutes() const;
    /** The total, truncated toward zero. */
    Hours toHours() const;

    /** The field of nanoseconds: what is left over by whole microseconds, -999 to 999, with the sign of the
     * total. */
    Nanoseconds nanoseconds() const;
    /** What is left over by whole milliseconds, in whole microseconds: -999 to 999. */
    Microseconds microseconds() const;
    /** What is left over by whole seconds, in whole milliseconds: -999 to 999. */
    Milliseconds milliseconds() const;
    /** What is left over by whole minutes, in whole seconds: -59 to 59. */
    Seconds seconds() const;
    /** What is left over by whole hours, in whole minutes: -59 to 59. */
    Minutes minutes() const;
    /**
     * The whole hours, the same as toHours().
     *
     * \deliberate{hours-beyond-a-day} There is no field above this one, so the hours are not cut to a day.
     */
    Hours hours() const;

    /** The standard library's duration, valid as long as this object. */
    std::chrono::nanoseconds const & std_duration() const;

    static Nanoseconds MaxNanoseconds();   ///< 9223372036854775807
    static Microseconds MaxMicroseconds(); ///< 9223372036854775
    static Milliseconds MaxMilliseconds(); ///< 9223372036854
    static Seconds MaxSeconds();           ///< 9223372036
    static Minutes MaxMinutes();           ///< 153722867
    static Hours MaxHours();               ///< 2562047
    static Nanoseconds MinNanoseconds();   ///< -9223372036854775808
    static Microseconds MinMicroseconds(); ///< -9223372036854775
    static Milliseconds MinMilliseconds(); ///< -9223372036854
    static Seconds MinSeconds();           ///< -9223372036
    static Minutes MinMinutes();           ///< -153722867
    static Hours MinHours();               ///< -2562047

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/** Makes a duration of the count and adds; the sum wraps in 64 bits. \throws ZyInvalidParameterException as the constructor */
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Nanoseconds const & a, ZyTimeDuration const & b);
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Microseconds const & a, ZyTimeDuration const & b);
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Milliseconds const & a, ZyTimeDuration const & b);
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Seconds const & a, ZyTimeDuration const & b);
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Minutes const & a, ZyTimeDuration const & b);
ZYCORE_EXPORT ZyTimeDuration operator+(ZyTimeDuration::Hours const & a, ZyTimeDuration const & b);
