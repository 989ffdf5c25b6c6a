// SPDX-License-Identifier: BSD-3-Clause
// The free bytes of a thread's stack, on threads of several sizes.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <cstddef>

namespace
{
DWORD WINAPI readAvail(void * result)
{
    *static_cast<std::size_t *>(result) = sp_StackAvail();
    return 0;
}

/** The reading on a thread with a stack of a size. */
std::size_t readOnThread(std::size_t stackSize)
{
    std::size_t reading = 0;
    HANDLE const thread =
        CreateThread(nullptr, stackSize, readAvail, &reading, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    EXPECT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    CloseHandle(thread);
    return reading;
}
} // namespace

TEST(SpStackAvailKinds, FitsTheStackOfASmallThread)
{
    std::size_t const size = 2048 * 1024;
    std::size_t const reading = readOnThread(size);
    EXPECT_LE(reading, size);
    EXPECT_GT(reading, size / 2);
}

TEST(SpStackAvailKinds, TellsEachThreadItsOwn)
{
    std::size_t const large = readOnThread(16 * 1024 * 1024);
    std::size_t const small = readOnThread(2048 * 1024);
    EXPECT_GT(large, 8u * 1024 * 1024);
    EXPECT_LT(small, 4096u * 1024);
}
