// SPDX-License-Identifier: BSD-3-Clause
// Tests of points of the steady clock.
#include <ZyTimePoint.h>

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <thread>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyTimePoint) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyTimePoint> && std::has_virtual_destructor_v<ZyTimePoint>);
static_assert(std::is_copy_constructible_v<ZyTimePoint> && std::is_copy_assignable_v<ZyTimePoint>);

namespace
{
using Clock = std::chrono::steady_clock;

ZyTimePoint at(__int64 nanoseconds)
{
    return ZyTimePoint(ZyTimeDuration::Nanoseconds{nanoseconds});
}

__int64 total(ZyTimeDuration const & duration)
{
    return duration.count().value;
}
} // namespace

TEST(ZyTimePoint, DefaultIsTheEpoch)
{
    EXPECT_EQ(total(ZyTimePoint().duration()), 0);
    EXPECT_TRUE(ZyTimePoint() == Clock::time_point());
}

TEST(ZyTimePoint, IsASpanAfterTheEpoch)
{
    ZyTimePoint const point(ZyTimeDuration(ZyTimeDuration::Seconds{-2}));
    EXPECT_EQ(total(point.duration()), -2000000000);
}

TEST(ZyTimePoint, TakesAndGivesStandardPoints)
{
    Clock::time_point const standard = Clock::time_point() + std::chrono::milliseconds(3);
    ZyTimePoint point(standard);
    Clock::time_point const & held = point;
    EXPECT_EQ(held, standard);
    EXPECT_EQ(total(point.duration()), 3000000);
    EXPECT_TRUE(point == standard);
    EXPECT_FALSE(point != standard);
    point = standard + std::chrono::nanoseconds(1);
    EXPECT_EQ(total(point.duration()), 3000001);
    EXPECT_FALSE(point == standard);
    EXPECT_TRUE(point != standard);
}

TEST(ZyTimePoint, DifferenceHasASign)
{
    ZyTimePoint const a = at(100);
    ZyTimePoint const b = at(350);
    EXPECT_EQ(total(a - b), -250);
    EXPECT_EQ(total(b - a), 250);
    EXPECT_EQ(total(a - a), 0);
}

TEST(ZyTimePoint, DurationBetweenHasNone)
{
    ZyTimePoint const a = at(100);
    ZyTimePoint const b = at(350);
    EXPECT_EQ(total(a.duration(b)), 250);
    EXPECT_TRUE(a.duration(b) == b.duration(a));
    EXPECT_EQ(total(a.duration(a)), 0);
}

TEST(ZyTimePoint, DifferencesWrap)
{
    ZyTimePoint const last = at(std::numeric_limits<__int64>::max());
    ZyTimePoint const first = at(std::numeric_limits<__int64>::min());
    EXPECT_EQ(total(last - first), -1);
    EXPECT_EQ(total(first - last), 1);
    EXPECT_EQ(total(ZyTimePoint() - first), std::numeric_limits<__int64>::min());
}

TEST(ZyTimePoint, Compares)
{
    ZyTimePoint const a = at(1);
    ZyTimePoint const same = at(1);
    ZyTimePoint const later = at(2);
    EXPECT_EQ(a.compare(same), 0);
    EXPECT_EQ(a.compare(later), -1);
    EXPECT_EQ(later.compare(a), 1);
    EXPECT_TRUE(a == same && !(a == later) && a != later && !(a != same));
    EXPECT_TRUE(a < later && !(later < a) && !(a < same));
    EXPECT_TRUE(a <= same && a <= later && !(later <= a));
    EXPECT_TRUE(later > a && !(a > later) && !(a > same));
    EXPECT_TRUE(a >= same && later >= a && !(a >= later));
}

TEST(ZyTimePoint, CopiesDeeply)
{
    ZyTimePoint a = at(1);
    ZyTimePoint const copy(a);
    a = at(2);
    EXPECT_EQ(total(copy.duration()), 1);
    a = copy;
    EXPECT_EQ(total(a.duration()), 1);
    ZyTimePoint const & itself = a;
    a = itself;
    EXPECT_EQ(total(a.duration()), 1);
}

TEST(ZyTimePoint, NowIsTheSteadyClocks)
{
    Clock::time_point const before = Clock::now();
    ZyTimePoint const now = ZyTimePoint::Now();
    Clock::time_point const after = Clock::now();
    EXPECT_TRUE(ZyTimePoint(before) <= now);
    EXPECT_TRUE(now <= ZyTimePoint(after));
}

TEST(ZyTimePoint, NowServesManyThreads)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            ZyTimePoint last = ZyTimePoint::Now();
            for (int reading = 0; reading < 1000; ++reading) {
                ZyTimePoint const now = ZyTimePoint::Now();
                EXPECT_TRUE(last <= now);
                last = now;
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
}
