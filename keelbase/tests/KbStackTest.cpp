// SPDX-License-Identifier: BSD-3-Clause
// The free bytes of a thread's stack: that it falls, and that hosts may replace it.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <thread>

namespace
{

/** Every test leaves the process with the real readings. */
class SpStackAvail : public testing::Test
{
protected:
    ~SpStackAvail() override { kb::SetStackAvail({}); }
};

/** The reading in a frame that lies at least some bytes further down; the address sanitizer would move it. */
__attribute__((noinline, no_sanitize("address"))) std::size_t readBelow(std::size_t bytes)
{
    unsigned char volatile frame[1024];
    frame[0] = 1;
    std::size_t const result = bytes <= sizeof(frame) ? sp_StackAvail() : readBelow(bytes - sizeof(frame));
    return frame[0] == 1 ? result : 0;
}

} // namespace

TEST_F(SpStackAvail, FallsAsTheStackGrows)
{
    std::size_t const here = sp_StackAvail();
    std::size_t const below = readBelow(100000);
    EXPECT_GE(here - below, 100000u);
    EXPECT_LT(here - below, 1000000u);
    EXPECT_LE(sp_StackAvail() - below, here - below + 10000);
}

TEST_F(SpStackAvail, TakesWhatTheHostGives)
{
    int calls = 0;
    kb::SetStackAvail([&] {
        ++calls;
        return std::size_t(42);
    });
    EXPECT_EQ(sp_StackAvail(), 42u);
    std::thread([] { EXPECT_EQ(sp_StackAvail(), 42u); }).join();
    EXPECT_EQ(calls, 2);
    kb::SetStackAvail({});
    EXPECT_GT(sp_StackAvail(), 42u);
    EXPECT_EQ(calls, 2);
}
