// SPDX-License-Identifier: BSD-3-Clause
// Faults inside of a fence, on every system alike: each kind, on all threads, nested, over and over.
#include "Faults.h"

#include "Platform/FaultFence.h"
#include "Platform/Module.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace
{
using ZyPlatform::FaultFence;
using ZyPlatform::FaultInfo;

constexpr std::uint32_t accessViolation = 0xC0000005;

template <class Body>
std::uint32_t codeOf(Body body)
{
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call(body, fault));
    return fault.code;
}

/** A kind of fault that comes the same way everywhere. */
struct Kind
{
    std::uint32_t code;
    void (*raise)();
};

constexpr Kind kinds[] = {
    {accessViolation, [] { Faults::writeToNull(); }}, {accessViolation, [] { Faults::readFromNowhere(); }},
    {accessViolation, [] { Faults::callNull(); }},    {accessViolation, [] { Faults::writeToCode(); }},
    {0xC0000094, [] { Faults::divideByZero(); }},     {0xC000001D, [] { Faults::illegalInstruction(); }},
    {0x80000003, [] { Faults::breakPoint(); }},
};

// Address sanitizer, which looks at every fault for itself, gets ten thousand in all.
constexpr int manyTimes = ZY_ADDRESS_SANITIZER ? 1500 : 10000;

/** How many of so many faults of each kind are told. */
int faults(int count)
{
    int told = 0;
    for (int i = 0; i < count; ++i) {
        for (Kind const & kind : kinds) {
            FaultInfo fault;
            told += !FaultFence::call(kind.raise, fault) && fault.code == kind.code ? 1 : 0;
        }
    }
    return told;
}

/** Faults when an exception passes. */
class FaultsInDestructor
{
public:
    FaultsInDestructor() = default;
    FaultsInDestructor(FaultsInDestructor const &) = delete;
    FaultsInDestructor & operator=(FaultsInDestructor const &) = delete;
    ~FaultsInDestructor() { Faults::writeToNull(); }
};

std::uint32_t codeOfNested(int depth)
{
    return codeOf([depth] {
        if (depth > 0) {
            EXPECT_EQ(codeOfNested(depth - 1), accessViolation);
        }
        Faults::writeToNull();
    });
}
} // namespace

TEST(FaultFence, LetsAGoodFunctionThrough)
{
    FaultInfo fault;
    fault.code = 1;
    int calls = 0;
    EXPECT_TRUE(FaultFence::call([&] { ++calls; }, fault));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(fault.code, 1u);
}

TEST(FaultFence, CallsTheFunctionThatItIsGivenAndNoCopy)
{
    struct Counter
    {
        Counter() = default;
        Counter(Counter const &) = delete;
        Counter & operator=(Counter const &) = delete;
        void operator()() { ++count; }
        int count = 0;
    };
    Counter counter;
    FaultInfo fault;
    FaultFence::call(counter, fault);
    FaultFence::call(counter, fault);
    EXPECT_EQ(counter.count, 2);
}

TEST(FaultFence, LetsExceptionsThrough)
{
    FaultInfo fault;
    EXPECT_THROW(FaultFence::call([] { throw std::runtime_error("passes"); }, fault), std::runtime_error);
    EXPECT_THROW(FaultFence::call([] { throw 1; }, fault), int);
    EXPECT_EQ(codeOf([] { Faults::writeToNull(); }), accessViolation);
}

TEST(FaultFence, TellsEachKindOfFaultByItsCode)
{
    for (Kind const & kind : kinds) {
        EXPECT_EQ(codeOf(kind.raise), kind.code);
    }
}

TEST(FaultFence, TellsTheInstruction)
{
    FaultInfo fault;
    FaultFence::call([] { Faults::callNull(); }, fault);
    EXPECT_EQ(fault.address, 0u);
    FaultFence::call([] { Faults::writeToNull(); }, fault);
    auto const begin = reinterpret_cast<std::uintptr_t>(&Faults::writeToNull);
    EXPECT_GE(fault.address, begin);
    EXPECT_LT(fault.address, begin + 512);
    EXPECT_EQ(std::string(ZyPlatform::moduleOf(fault.address).file).rfind("zytests_platform", 0), 0u);
}

TEST(FaultFence, SurvivesEachKindTenThousandTimes)
{
    EXPECT_EQ(faults(manyTimes), manyTimes * 7);
}

TEST(FaultFence, SurvivesEachKindOnFourThreadsAtOnce)
{
    std::atomic<int> told = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] { told += faults(manyTimes / 4); });
    }
    told += faults(manyTimes / 4); // and on this one
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(told, manyTimes / 4 * 7 * 5);
}

TEST(FaultFence, SurvivesAFaultOnEachOfAThousandThreads)
{
    int told = 0;
    for (int i = 0; i < 1000; ++i) {
        std::thread([&] { told += faults(1); }).join();
    }
    EXPECT_EQ(told, 7000);
}

TEST(FaultFence, TellsAStackThatOverflows)
{
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(codeOf([] { Faults::overflowStack(0); }), 0xC00000FDu);
        std::thread([] { EXPECT_EQ(codeOf([] { Faults::overflowStack(0); }), 0xC00000FDu); }).join();
    }
    EXPECT_EQ(codeOf([] { Faults::writeToNull(); }), accessViolation);
}

TEST(FaultFence, Nests)
{
    FaultInfo inner;
    FaultInfo outer;
    bool isReached = false;
    EXPECT_FALSE(FaultFence::call(
        [&] {
            EXPECT_FALSE(FaultFence::call([] { Faults::divideByZero(); }, inner));
            isReached = true;
            EXPECT_TRUE(FaultFence::call([] {}, inner));
            Faults::writeToNull();
        },
        outer));
    EXPECT_TRUE(isReached);
    EXPECT_EQ(inner.code, 0xC0000094u);
    EXPECT_EQ(outer.code, accessViolation);
    EXPECT_EQ(codeOfNested(100), accessViolation);
}

TEST(FaultFence, IsUpAgainAfterAnExceptionHasLeftAnInnerOne)
{
    EXPECT_EQ(codeOf([] {
                  FaultInfo inner;
                  EXPECT_THROW(FaultFence::call([] { throw 1; }, inner), int);
                  Faults::writeToNull();
              }),
              accessViolation);
}

TEST(FaultFence, IsOfItsThreadAlone)
{
    FaultInfo fault;
    EXPECT_TRUE(FaultFence::call(
        [] {
            std::thread([] {
                FaultInfo other;
                EXPECT_FALSE(FaultFence::call([] { Faults::writeToNull(); }, other));
            }).join();
        },
        fault));
}

TEST(FaultFence, EndsAFunctionInTheMiddleOfTheStandardLibrary)
{
    std::vector<int> numbers(100);
    EXPECT_EQ(codeOf([&] {
                  std::qsort(numbers.data(), numbers.size(), sizeof(int),
                             [](void const *, void const *) { return Faults::divideByZero(); });
              }),
              0xC0000094u);
    if (ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER) {
        return; // which have functions of their own for the rest, and their own words for it
    }
    char const * volatile nothing = nullptr;
    std::size_t volatile size = 0;
    EXPECT_EQ(codeOf([&] { size = std::string(nothing + 8, 16).size(); }), accessViolation);
    std::uintptr_t volatile address = 16;
    EXPECT_EQ(codeOf([&] { std::free(reinterpret_cast<void *>(address)); }), accessViolation);
    EXPECT_EQ(std::string(1000, 'x').size(), 1000u); // the heap is alive
}

TEST(FaultFence, LeavesNoExceptionInFlightBehind)
{
    if (ZY_ADDRESS_SANITIZER) {
        GTEST_SKIP() << "the exceptions are dropped, and the sanitizer counts them as leaks";
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(codeOf([] {
                      FaultsInDestructor const object;
                      throw 1;
                  }),
                  accessViolation);
        EXPECT_EQ(std::uncaught_exceptions(), 0);
        EXPECT_EQ(codeOf([] {
                      try {
                          throw 1;
                      } catch (int) {
                          Faults::writeToNull();
                      }
                  }),
                  accessViolation);
        EXPECT_EQ(std::current_exception(), nullptr);
    }
}

TEST(FaultFence, KeepsTheExceptionThatItsCallerHandles)
{
    try {
        throw std::runtime_error("being handled");
    } catch (std::runtime_error const &) {
        EXPECT_EQ(codeOf([] { Faults::writeToNull(); }), accessViolation);
        EXPECT_NE(std::current_exception(), nullptr);
        EXPECT_THROW(throw, std::runtime_error);
    }
    EXPECT_EQ(std::current_exception(), nullptr);
}
