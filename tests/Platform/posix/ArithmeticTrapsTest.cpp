// SPDX-License-Identifier: BSD-3-Clause
// Floating point arithmetic on threads that trap it.
#include "Faults.h"

#include "Platform/FaultFence.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cstdint>
#include <limits>
#include <thread>

#if ZY_TRAPS_ARITHMETIC

#include <xmmintrin.h>

namespace
{
using ZyPlatform::FaultFence;
using ZyPlatform::FaultInfo;

constexpr double denormal = std::numeric_limits<double>::denorm_min();

struct Trap
{
    std::uint32_t code;
    int exception;
    double left;
    char operation;
    double right;
};

constexpr Trap traps[] = {
    {0xC000008E, FE_DIVBYZERO, 1.0, '/', 0.0}, {0xC0000091, FE_OVERFLOW, 1e300, '*', 1e300},
    {0xC0000090, FE_INVALID, 0.0, '/', 0.0},   {0xC0000093, FE_UNDERFLOW, 1e-300, '*', 1e-300},
    {0xC000008F, FE_INEXACT, 1.0, '/', 3.0},
};

std::uint32_t codeOf(Trap const & trap)
{
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call(
        [&trap] {
            std::feclearexcept(FE_ALL_EXCEPT);
            feenableexcept(trap.exception);
            Faults::calculate(trap.left, trap.operation, trap.right);
        },
        fault));
    return fault.code;
}

/** One divided by zero on the older unit, which tells a trap at its next instruction. */
ZY_FAULTS void divideLongNumbers()
{
    long double volatile one = 1;
    long double volatile zero = 0;
    long double volatile result = one / zero;
    result = result + one;
}
} // namespace

TEST(ArithmeticTraps, AreToldByTheirCodes)
{
    for (Trap const & trap : traps) {
        EXPECT_EQ(codeOf(trap), trap.code);
    }
}

TEST(ArithmeticTraps, ComeTenThousandTimesOnTwoThreads)
{
    constexpr int times = 5000;
    auto const all = [] {
        for (int i = 0; i < times; ++i) {
            for (Trap const & trap : traps) {
                ASSERT_EQ(codeOf(trap), trap.code);
            }
        }
    };
    std::thread other(all);
    all();
    other.join();
}

TEST(ArithmeticTraps, TellDenormalOperands)
{
    FaultInfo fault;
    constexpr unsigned int denormalMask = 0x100;
    EXPECT_FALSE(FaultFence::call(
        [] {
            std::feclearexcept(FE_ALL_EXCEPT);
            _mm_setcsr(_mm_getcsr() & ~denormalMask);
            Faults::calculate(denormal, '+', 1.0);
        },
        fault));
    EXPECT_EQ(fault.code, 0xC000008Du);
    EXPECT_NE(_mm_getcsr() & denormalMask, 0u);
}

TEST(ArithmeticTraps, OfTheOlderUnitAreTold)
{
    FaultInfo fault;
    for (int i = 0; i < 100; ++i) {
        EXPECT_FALSE(FaultFence::call(
            [] {
                feenableexcept(FE_DIVBYZERO);
                divideLongNumbers();
            },
            fault));
        EXPECT_EQ(fault.code, 0xC000008Eu);
        EXPECT_EQ(fegetexcept(), 0);
    }
}

TEST(ArithmeticTraps, AndRoundingAreAfterAFaultWhatTheyWereBefore)
{
    std::fenv_t before;
    std::fegetenv(&before);
    std::fesetround(FE_UPWARD);
    feenableexcept(FE_OVERFLOW);
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call(
        [] {
            std::fesetround(FE_DOWNWARD);
            feenableexcept(FE_INVALID);
            Faults::writeToNull();
        },
        fault));
    EXPECT_EQ(std::fegetround(), FE_UPWARD);
    EXPECT_EQ(fegetexcept(), FE_OVERFLOW);
    fedisableexcept(FE_ALL_EXCEPT);
    std::fesetenv(&before);
}

#endif
