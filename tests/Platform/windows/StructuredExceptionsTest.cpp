// SPDX-License-Identifier: BSD-3-Clause
// Faults on the home platform: in frames of every shape, in functions of the system, on all threads, with
// traps.
#include "Faults.h"

#include "Platform/FaultFence.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <float.h>

namespace
{
using ZyPlatform::FaultFence;
using ZyPlatform::FaultInfo;

template <class Body>
std::uint32_t codeOf(Body body)
{
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call(body, fault));
    return fault.code;
}

constexpr std::uint32_t accessViolation = 0xC0000005;

void faultWithoutExceptions() noexcept
{
    Faults::writeToNull();
}

std::uint32_t codeWithTraps(unsigned int traps, double a, char operation, double b)
{
    return codeOf([&] {
        _controlfp(~traps & _MCW_EM, _MCW_EM);
        Faults::calculate(a, operation, b);
    });
}

#ifdef __GNUC__
/** 1 / 0 by the older arithmetic unit, which tells a trap at its next instruction. */
__attribute__((noinline)) void divideByTheOlderUnit()
{
    unsigned short const control = 0x037F & ~0x0004;
    __asm__ __volatile__("fldcw %0\n\tfld1\n\tfldz\n\tfdivrp\n\tfwait" : : "m"(control));
}
#endif
} // namespace

TEST(StructuredExceptions, EndFramesWithTextsAndHandlersOfTheirOwn)
{
    EXPECT_EQ(codeOf([] {
                  std::string const text(1000, 'x');
                  Faults::writeToNull();
              }),
              accessViolation);
    EXPECT_EQ(codeOf([] {
                  try {
                      Faults::writeToNull();
                  } catch (...) {
                      ADD_FAILURE() << "a fault is no exception of C++";
                  }
              }),
              accessViolation);
    EXPECT_EQ(codeOf([] { faultWithoutExceptions(); }), accessViolation);
    std::function<void()> const function = [] { Faults::writeToNull(); };
    EXPECT_EQ(codeOf([&] { function(); }), accessViolation);
}

TEST(StructuredExceptions, LeaveNoExceptionInFlightBehind)
{
    EXPECT_EQ(codeOf([] {
                  try {
                      throw std::runtime_error("being handled");
                  } catch (std::runtime_error const &) {
                      Faults::writeToNull();
                  }
              }),
              accessViolation);
    EXPECT_EQ(std::current_exception(), nullptr);
    EXPECT_EQ(std::uncaught_exceptions(), 0);
}

TEST(StructuredExceptions, AreToldFromInsideOfTheSystem)
{
    auto * volatile nowhere = reinterpret_cast<SYSTEMTIME *>(16);
    EXPECT_EQ(codeOf([&] { GetSystemTime(nowhere); }), accessViolation);
    auto const compare = [](void const *, void const *) { return Faults::divideByZero(); };
    int numbers[] = {2, 1};
    EXPECT_EQ(codeOf([&] { std::qsort(numbers, 2, sizeof(int), compare); }), 0xC0000094u);
    EXPECT_EQ(codeOf([] { RaiseException(0xC0001234, 0, 0, nullptr); }), 0xC0001234u);
}

TEST(StructuredExceptions, AreKeptByHandlersOfTheSystem)
{
    FaultInfo fault;
    bool isBad = false;
    EXPECT_TRUE(FaultFence::call([&] { isBad = IsBadReadPtr(reinterpret_cast<void *>(16), 4) != 0; }, fault));
    EXPECT_TRUE(isBad);
    EXPECT_TRUE(FaultFence::call([] { OutputDebugStringA("for debuggers"); }, fault));
}

TEST(StructuredExceptions, CarryTheRecordAndTheStateOfTheProcessor)
{
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call([] { Faults::divideByZero(); }, fault));
    auto const * const record = static_cast<EXCEPTION_RECORD const *>(fault.pointers.record);
    auto const * const context = static_cast<CONTEXT const *>(fault.pointers.context);
    ASSERT_NE(record, nullptr);
    ASSERT_NE(context, nullptr);
    EXPECT_EQ(record->ExceptionCode, 0xC0000094u);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(record->ExceptionAddress), fault.address);
    EXPECT_EQ(context->Rip, fault.address);
}

TEST(StructuredExceptions, TellTrapsOfArithmeticAndPutTheStateBack)
{
    unsigned int const before = _controlfp(0, 0);
    EXPECT_EQ(codeWithTraps(_EM_ZERODIVIDE, 1.0, '/', 0.0), 0xC000008Eu);
    EXPECT_EQ(_controlfp(0, 0), before);
    EXPECT_EQ(codeWithTraps(_EM_INVALID, 0.0, '/', 0.0), 0xC0000090u);
    EXPECT_EQ(codeWithTraps(_EM_OVERFLOW, 1e300, '*', 1e300), 0xC0000091u);
    EXPECT_EQ(codeWithTraps(_EM_UNDERFLOW, 1e-300, '*', 1e-300), 0xC0000093u);
    EXPECT_EQ(_controlfp(0, 0), before);
#ifdef __GNUC__
    EXPECT_EQ(codeOf(divideByTheOlderUnit), 0xC000008Eu);
    EXPECT_EQ(Faults::calculate(1.0, '/', 0.0), 1.0 / 0.0);
#endif
}

TEST(StructuredExceptions, NestAndComeTenThousandTimesOnFourThreads)
{
    std::vector<std::thread> threads;
    std::vector<int> told(4);
    for (int & own : told) {
        threads.emplace_back([&own] {
            FaultInfo outer;
            FaultInfo inner;
            for (int i = 0; i < 2500; ++i) {
                bool const ended = FaultFence::call(
                    [&] {
                        own += FaultFence::call([] { Faults::writeToNull(); }, inner) ? 0 : 1;
                        Faults::divideByZero();
                    },
                    outer);
                own += !ended && inner.code == accessViolation && outer.code == 0xC0000094 ? 1 : 0;
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(told, std::vector<int>(4, 5000));
}
