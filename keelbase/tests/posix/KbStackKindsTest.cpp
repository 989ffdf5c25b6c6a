// SPDX-License-Identifier: BSD-3-Clause
// The free bytes of a thread's stack, on every kind of stack.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <vector>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
/** The reading on a thread with a stack of a size. */
std::size_t readOnThread(std::size_t stackSize)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    EXPECT_EQ(pthread_attr_setstacksize(&attributes, stackSize), 0);
    std::size_t reading = 0;
    auto const read = [](void * result) -> void * {
        *static_cast<std::size_t *>(result) = sp_StackAvail();
        return nullptr;
    };
    pthread_t thread;
    EXPECT_EQ(pthread_create(&thread, &attributes, read, &reading), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
    return reading;
}

/** Ends the process, well when the reading is that of a stack without a limit. */
[[noreturn]] void readWithoutLimit()
{
    rlimit const none = {RLIM_INFINITY, RLIM_INFINITY};
    bool const isSet = ::setrlimit(RLIMIT_STACK, &none) == 0;
    ::_exit(isSet && sp_StackAvail() > std::size_t(1) << 31 ? 0 : 1);
}

std::size_t signalReading = 1;

void readInHandler(int)
{
    signalReading = sp_StackAvail();
}

} // namespace

TEST(SpStackAvailKinds, FitsTheLimitOfTheMainThread)
{
    rlimit limit;
    ASSERT_EQ(::getrlimit(RLIMIT_STACK, &limit), 0);
    std::size_t const reading = sp_StackAvail();
    EXPECT_GT(reading, 0u);
    if (limit.rlim_cur != RLIM_INFINITY) {
        EXPECT_LE(reading, limit.rlim_cur);
    }
}

TEST(SpStackAvailKinds, FitsTheStackOfASmallThread)
{
    std::size_t const size = 256 * 1024;
    std::size_t const reading = readOnThread(size);
    EXPECT_LE(reading, size);
    EXPECT_GT(reading, size / 2);
}

TEST(SpStackAvailKinds, TellsEachThreadItsOwn)
{
    std::size_t const large = readOnThread(16 * 1024 * 1024);
    std::size_t const small = readOnThread(256 * 1024);
    EXPECT_GT(large, 8u * 1024 * 1024);
    EXPECT_LT(small, 1024u * 1024);
}

TEST(SpStackAvailKinds, IsZeroOnASignalStack)
{
    static_cast<void>(sp_StackAvail());
    std::vector<std::byte> memory(256 * 1024);
    stack_t signalStack = {};
    signalStack.ss_sp = memory.data();
    signalStack.ss_size = memory.size();
    stack_t before = {};
    ASSERT_EQ(::sigaltstack(&signalStack, &before), 0);
    struct sigaction action = {};
    action.sa_handler = readInHandler;
    action.sa_flags = SA_ONSTACK;
    struct sigaction actionBefore = {};
    ASSERT_EQ(::sigaction(SIGUSR1, &action, &actionBefore), 0);
    ::raise(SIGUSR1);
    ::sigaction(SIGUSR1, &actionBefore, nullptr);
    ::sigaltstack(&before, nullptr);
    EXPECT_EQ(signalReading, 0u);
}

TEST(SpStackAvailKinds, IsHugeWithoutALimit)
{
    rlimit limit;
    ASSERT_EQ(::getrlimit(RLIMIT_STACK, &limit), 0);
    if (limit.rlim_max != RLIM_INFINITY) {
        GTEST_SKIP() << "the stack is limited here";
    }
    // A program of its own: readings of the main thread begin with the first one.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(readWithoutLimit(), testing::ExitedWithCode(0), "");
}
