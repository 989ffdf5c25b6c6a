// SPDX-License-Identifier: BSD-3-Clause
// Tests of durations.
#include <ZyException.h>
#include <ZyTimeDuration.h>

#include <ThrowsMessage.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

static_assert(sizeof(ZyTimeDuration) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyTimeDuration>);
static_assert(std::has_virtual_destructor_v<ZyTimeDuration>);
static_assert(std::is_copy_constructible_v<ZyTimeDuration> && std::is_copy_assignable_v<ZyTimeDuration>);
static_assert(std::is_same_v<ZyTimeDuration::Nanoseconds, ZyTimeComponent<__int64, 0>>);
static_assert(std::is_same_v<ZyTimeDuration::Microseconds, ZyTimeComponent<__int64, 1>>);
static_assert(std::is_same_v<ZyTimeDuration::Milliseconds, ZyTimeComponent<__int64, 2>>);
static_assert(std::is_same_v<ZyTimeDuration::Seconds, ZyTimeComponent<__int64, 3>>);
static_assert(std::is_same_v<ZyTimeDuration::Minutes, ZyTimeComponent<int, 4>>);
static_assert(std::is_same_v<ZyTimeDuration::Hours, ZyTimeComponent<int, 5>>);
static_assert(std::is_aggregate_v<ZyTimeComponent<int, 5>> && sizeof(ZyTimeComponent<int, 5>) == sizeof(int));
static_assert(std::is_trivially_copyable_v<ZyTimeComponent<__int64, 0>> &&
              sizeof(ZyTimeComponent<__int64, 0>) == 8);

namespace
{
constexpr __int64 greatest = std::numeric_limits<__int64>::max();
constexpr __int64 least = std::numeric_limits<__int64>::min();

using Nanoseconds = ZyTimeDuration::Nanoseconds;
using Microseconds = ZyTimeDuration::Microseconds;
using Milliseconds = ZyTimeDuration::Milliseconds;
using Seconds = ZyTimeDuration::Seconds;
using Minutes = ZyTimeDuration::Minutes;
using Hours = ZyTimeDuration::Hours;

__int64 total(ZyTimeDuration const & duration)
{
    return duration.count().value;
}

/** The limits pass, one beyond them throws with the words of the unit. */
template <class C>
void expectLimits(C max, C min, __int64 unit, std::string const & words)
{
    EXPECT_EQ(total(ZyTimeDuration(max)), max.value * unit);
    EXPECT_EQ(total(ZyTimeDuration(min)), min.value * unit);
    using T = decltype(max.value);
    for (T const value :
         {T(max.value + 1), std::numeric_limits<T>::max(), T(min.value - 1), std::numeric_limits<T>::min()}) {
        EXPECT_ZY_THROW(ZyTimeDuration(C{value}), ZyInvalidParameterException, words);
        EXPECT_ZY_THROW(C{value} + ZyTimeDuration(), ZyInvalidParameterException, words);
    }
}
} // namespace

TEST(ZyTimeDuration, DefaultIsZero)
{
    EXPECT_EQ(total(ZyTimeDuration()), 0);
}

TEST(ZyTimeDuration, ConvertsEveryUnit)
{
    EXPECT_EQ(total(Nanoseconds{-7}), -7);
    EXPECT_EQ(total(Microseconds{2}), 2000);
    EXPECT_EQ(total(Milliseconds{-2}), -2000000);
    EXPECT_EQ(total(Seconds{2}), 2000000000);
    EXPECT_EQ(total(Minutes{2}), 120000000000);
    EXPECT_EQ(total(Hours{-2}), -7200000000000);
    EXPECT_EQ(total(std::chrono::nanoseconds(5)), 5);
    EXPECT_EQ(total(ZyTimeDuration(std::chrono::minutes(1))), 60000000000);
}

TEST(ZyTimeDuration, AcceptsTheGreatestHoursAndNoMore)
{
    EXPECT_EQ(total(ZyTimeDuration(ZyTimeComponent<int, 5>{2562047})), 2562047 * 3600000000000);
    EXPECT_ZY_THROW((ZyTimeDuration(ZyTimeComponent<int, 5>{2562048})), ZyInvalidParameterException,
                    "Number of hours is greater than the value a time duration can hold");
}

TEST(ZyTimeDuration, Deliberate_duration_minimum_words)
{
    EXPECT_EQ(total(ZyTimeDuration(ZyTimeComponent<int, 5>{-2562047})), -2562047 * 3600000000000);
    EXPECT_ZY_THROW((ZyTimeDuration(ZyTimeComponent<int, 5>{-2562048})), ZyInvalidParameterException,
                    "Number of hours is greater than the value a time duration can hold");
}

TEST(ZyTimeDuration, ChecksTheRangeOfEveryUnit)
{
    expectLimits(ZyTimeDuration::MaxMicroseconds(), ZyTimeDuration::MinMicroseconds(), 1000,
                 "Number of microseconds is greater than the value a time duration can hold");
    expectLimits(ZyTimeDuration::MaxMilliseconds(), ZyTimeDuration::MinMilliseconds(), 1000000,
                 "Number of milliseconds is greater than the value a time duration can hold");
    expectLimits(ZyTimeDuration::MaxSeconds(), ZyTimeDuration::MinSeconds(), 1000000000,
                 "Number of seconds is greater than the value a time duration can hold");
    expectLimits(ZyTimeDuration::MaxMinutes(), ZyTimeDuration::MinMinutes(), 60000000000,
                 "Number of minutes is greater than the value a time duration can hold");
    expectLimits(ZyTimeDuration::MaxHours(), ZyTimeDuration::MinHours(), 3600000000000,
                 "Number of hours is greater than the value a time duration can hold");
}

TEST(ZyTimeDuration, AcceptsEveryCountOfNanoseconds)
{
    EXPECT_EQ(total(ZyTimeDuration(Nanoseconds{greatest})), greatest);
    EXPECT_EQ(total(ZyTimeDuration(Nanoseconds{least})), least);
    EXPECT_EQ(total(ZyTimeDuration(std::chrono::nanoseconds(least))), least);
}

TEST(ZyTimeDuration, TellsItsLimits)
{
    EXPECT_EQ(ZyTimeDuration::MaxNanoseconds().value, 9223372036854775807);
    EXPECT_EQ(ZyTimeDuration::MinNanoseconds().value, -9223372036854775807 - 1);
    EXPECT_EQ(ZyTimeDuration::MaxMicroseconds().value, 9223372036854775);
    EXPECT_EQ(ZyTimeDuration::MinMicroseconds().value, -9223372036854775);
    EXPECT_EQ(ZyTimeDuration::MaxMilliseconds().value, 9223372036854);
    EXPECT_EQ(ZyTimeDuration::MinMilliseconds().value, -9223372036854);
    EXPECT_EQ(ZyTimeDuration::MaxSeconds().value, 9223372036);
    EXPECT_EQ(ZyTimeDuration::MinSeconds().value, -9223372036);
    EXPECT_EQ(ZyTimeDuration::MaxMinutes().value, 153722867);
    EXPECT_EQ(ZyTimeDuration::MinMinutes().value, -153722867);
    EXPECT_EQ(ZyTimeDuration::MaxHours().value, 2562047);
    EXPECT_EQ(ZyTimeDuration::MinHours().value, -2562047);
}

TEST(ZyTimeDuration, HasFields)
{
    ZyTimeDuration const span = Hours{1} + (Minutes{2} + (Seconds{3} + ZyTimeDuration(Milliseconds{4})));
    EXPECT_EQ(span.hours().value, 1);
    EXPECT_EQ(span.minutes().value, 2);
    EXPECT_EQ(span.seconds().value, 3);
    EXPECT_EQ(span.milliseconds().value, 4);
    EXPECT_EQ(span.microseconds().value, 0);
    EXPECT_EQ(span.nanoseconds().value, 0);
}

TEST(ZyTimeDuration, FieldsOfANegativeOneAreNegativeOrZero)
{
    ZyTimeDuration const span(Nanoseconds{-1500});
    EXPECT_EQ(span.microseconds().value, -1);
    EXPECT_EQ(span.nanoseconds().value, -500);
    EXPECT_EQ(span.milliseconds().value, 0);
    EXPECT_EQ(span.hours().value, 0);
}

TEST(ZyTimeDuration, FieldsOfTheLimits)
{
    ZyTimeDuration const longest(ZyTimeDuration::MaxNanoseconds());
    EXPECT_EQ(longest.hours().value, 2562047);
    EXPECT_EQ(longest.minutes().value, 47);
    EXPECT_EQ(longest.seconds().value, 16);
    EXPECT_EQ(longest.milliseconds().value, 854);
    EXPECT_EQ(longest.microseconds().value, 775);
    EXPECT_EQ(longest.nanoseconds().value, 807);
    ZyTimeDuration const shortest(ZyTimeDuration::MinNanoseconds());
    EXPECT_EQ(shortest.hours().value, -2562047);
    EXPECT_EQ(shortest.minutes().value, -47);
    EXPECT_EQ(shortest.seconds().value, -16);
    EXPECT_EQ(shortest.milliseconds().value, -854);
    EXPECT_EQ(shortest.microseconds().value, -775);
    EXPECT_EQ(shortest.nanoseconds().value, -808);
}

TEST(ZyTimeDuration, Deliberate_hours_beyond_a_day)
{
    ZyTimeDuration const span(Hours{49});
    EXPECT_EQ(span.hours().value, 49);
    EXPECT_EQ(span.toHours().value, 49);
}

TEST(ZyTimeDuration, TotalsTruncateTowardZero)
{
    ZyTimeDuration const span(Nanoseconds{7199999999999});
    EXPECT_EQ(span.count().value, 7199999999999);
    EXPECT_EQ(span.toNanoseconds().value, 7199999999999);
    EXPECT_EQ(span.toMicroseconds().value, 7199999999);
    EXPECT_EQ(span.toMilliseconds().value, 7199999);
    EXPECT_EQ(span.toSeconds().value, 7199);
    EXPECT_EQ(span.toMinutes().value, 119);
    EXPECT_EQ(span.toHours().value, 1);
    ZyTimeDuration const negative(Nanoseconds{-7199999999999});
    EXPECT_EQ(negative.toMicroseconds().value, -7199999999);
    EXPECT_EQ(negative.toMilliseconds().value, -7199999);
    EXPECT_EQ(negative.toSeconds().value, -7199);
    EXPECT_EQ(negative.toMinutes().value, -119);
    EXPECT_EQ(negative.toHours().value, -1);
}

TEST(ZyTimeDuration, Deliberate_durations_wrap)
{
    ZyTimeDuration const one(Nanoseconds{1});
    ZyTimeDuration const longest(ZyTimeDuration::MaxNanoseconds());
    ZyTimeDuration const shortest(ZyTimeDuration::MinNanoseconds());
    EXPECT_EQ(total(longest + one), least);
    EXPECT_EQ(total(ZyTimeDuration::MaxNanoseconds() + one), least);
    EXPECT_EQ(total(shortest - one), greatest);
    EXPECT_EQ(total(ZyTimeDuration() - shortest), least);
    ZyTimeDuration span(longest);
    span += one;
    EXPECT_EQ(total(span), least);
    span -= one;
    EXPECT_EQ(total(span), greatest);
    EXPECT_EQ(total(longest + longest), -2);
}

TEST(ZyTimeDuration, AddsAndSubtracts)
{
    ZyTimeDuration span = Seconds{2};
    EXPECT_EQ(total(span + Milliseconds{1}), 2001000000);
    EXPECT_EQ(total(span - Milliseconds{1}), 1999000000);
    ZyTimeDuration const & same = span;
    span += same;
    EXPECT_EQ(total(span), 4000000000);
    span -= same;
    EXPECT_EQ(total(span), 0);
    EXPECT_EQ(&(span += Seconds{1}), &span);
    EXPECT_EQ(&(span -= Seconds{1}), &span);
}

TEST(ZyTimeDuration, EveryComponentAddsFromTheLeft)
{
    ZyTimeDuration const one(Nanoseconds{1});
    EXPECT_EQ(total(Nanoseconds{1} + one), 2);
    EXPECT_EQ(total(Microseconds{1} + one), 1001);
    EXPECT_EQ(total(Milliseconds{1} + one), 1000001);
    EXPECT_EQ(total(Seconds{1} + one), 1000000001);
    EXPECT_EQ(total(Minutes{1} + one), 60000000001);
    EXPECT_EQ(total(Hours{1} + one), 3600000000001);
    EXPECT_EQ(total(Hours{1} + Minutes{1}), 3660000000000);
}

TEST(ZyTimeDuration, Compares)
{
    ZyTimeDuration const a(Seconds{1});
    ZyTimeDuration const same(Milliseconds{1000});
    ZyTimeDuration const longer(Minutes{1});
    EXPECT_EQ(a.compare(same), 0);
    EXPECT_TRUE(a == same);
    EXPECT_FALSE(a != same);
    EXPECT_EQ(a.compare(longer), -1);
    EXPECT_EQ(longer.compare(a), 1);
    EXPECT_TRUE(a < longer);
    EXPECT_FALSE(longer < a);
    EXPECT_FALSE(a < same);
    EXPECT_TRUE(a != longer && longer > a && a <= same && a >= same && a <= longer && !(a >= longer) &&
                !(a > same));
    EXPECT_EQ(ZyTimeDuration(ZyTimeDuration::MinNanoseconds()).compare(ZyTimeDuration::MaxNanoseconds()), -1);
}

TEST(ZyTimeDuration, CopiesDeeply)
{
    ZyTimeDuration a(Seconds{1});
    ZyTimeDuration const copy(a);
    a += Seconds{1};
    EXPECT_EQ(total(copy), 1000000000);
    a = copy;
    EXPECT_EQ(total(a), 1000000000);
    ZyTimeDuration const & itself = a;
    a = itself;
    EXPECT_EQ(total(a), 1000000000);
}

TEST(ZyTimeDuration, GivesTheStandardDuration)
{
    ZyTimeDuration const span(Milliseconds{5});
    std::chrono::nanoseconds const & held = span.std_duration();
    EXPECT_EQ(held, std::chrono::milliseconds(5));
    EXPECT_EQ(&held, &span.std_duration());
}
