// SPDX-License-Identifier: BSD-3-Clause
// The floating point unit goes back to its default state.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <cfenv>

TEST(SpResetFpu, ClearsFlagsAndRounding)
{
    std::fesetround(FE_UPWARD);
    std::feraiseexcept(FE_OVERFLOW | FE_DIVBYZERO);
    sp_ResetFpu();
    EXPECT_EQ(std::fegetround(), FE_TONEAREST);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TEST(SpResetFpu, IsCounted)
{
    unsigned const before = kb::ResetFpuCount();
    sp_ResetFpu();
    sp_ResetFpu();
    EXPECT_EQ(kb::ResetFpuCount(), before + 2);
}
