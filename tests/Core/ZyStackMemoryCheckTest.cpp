// SPDX-License-Identifier: BSD-3-Clause
// Tests of the stack guard.
#include <ZyException.h>
#include <ZyStackMemoryCheck.h>

#include <keelbase/KbHost.h>

#include <ThrowsMessage.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <thread>
#include <type_traits>

static_assert(std::is_empty_v<ZyStackMemoryCheck> && !std::is_polymorphic_v<ZyStackMemoryCheck>);
static_assert(std::is_copy_assignable_v<ZyStackMemoryCheck> && std::is_move_assignable_v<ZyStackMemoryCheck>);

namespace
{
/** Leaves the process with the real readings. */
class ZyStackGuard : public testing::Test
{
protected:
    ~ZyStackGuard() override { kb::SetStackAvail({}); }

    static void setFree(std::size_t bytes)
    {
        kb::SetStackAvail([bytes] { return bytes; });
    }
};

/** Goes down until the guard ends it; the depth that was reached. */
int descend(int depth)
{
    unsigned char volatile frame[4096];
    frame[0] = 1;
    try {
        ZyStackMemoryCheck::Check();
    } catch (ZyStackLimitException const &) {
        return depth;
    }
    int const volatile end = -1; // not seen by the compiler, which objects to what never ends
    return depth == end ? 0 : descend(depth + 1) + (frame[0] - 1);
}
} // namespace

TEST_F(ZyStackGuard, ZeroBytesAreAlwaysThere)
{
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check(0));
    setFree(0);
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check(0));
}

TEST_F(ZyStackGuard, ThrowsBelowTheWantedBytes)
{
    setFree(1000);
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check(1000));
    EXPECT_ZY_THROW(ZyStackMemoryCheck::Check(1001), ZyStackLimitException, "Stack limit reached");
}

TEST_F(ZyStackGuard, WantsTwoHundredThousandBytesByItself)
{
    setFree(200000);
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check());
    setFree(199999);
    EXPECT_ZY_THROW(ZyStackMemoryCheck::Check(), ZyStackLimitException, "Stack limit reached");
}

TEST_F(ZyStackGuard, Deliberate_stack_read_twice)
{
    int readings = 0;
    kb::SetStackAvail([&] { return ++readings == 1 ? std::size_t(0) : std::size_t(500); });
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check(500));
    EXPECT_EQ(readings, 2);
    readings = 0;
    kb::SetStackAvail([&] { return ++readings == 1 ? std::size_t(500) : std::size_t(0); });
    EXPECT_ZY_THROW(ZyStackMemoryCheck::Check(500), ZyStackLimitException, "Stack limit reached");
}

TEST_F(ZyStackGuard, CountsBeyondThirtyTwoBits)
{
    setFree(std::size_t(1) << 45);
    EXPECT_NO_THROW(ZyStackMemoryCheck::Check(std::numeric_limits<unsigned int>::max()));
}

TEST_F(ZyStackGuard, EndsARealRecursionInTime)
{
    int depth = 0;
    std::thread([&] { depth = descend(0); }).join();
    EXPECT_GT(depth, 1);
}

TEST(ZyStackMemoryCheck, AssignmentDoesNothing)
{
    ZyStackMemoryCheck a;
    ZyStackMemoryCheck const b;
    EXPECT_EQ(&(a = b), &a);
    EXPECT_EQ(&(a = ZyStackMemoryCheck()), &a);
}
