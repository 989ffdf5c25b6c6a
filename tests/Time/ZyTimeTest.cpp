// SPDX-License-Identifier: BSD-3-Clause
// Tests of the present time.
#include <ZyTime.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::is_empty_v<ZyTime> && !std::is_default_constructible_v<ZyTime>);

TEST(ZyTime, NowIsThePointsNow)
{
    ZyTimePoint const before = ZyTimePoint::Now();
    ZyTimePoint const now = ZyTime::Now();
    EXPECT_TRUE(before <= now);
    EXPECT_TRUE(now <= ZyTimePoint::Now());
}
