// SPDX-License-Identifier: BSD-3-Clause
// Tests of the guard of arithmetic: what flags, errno, exceptions and traps become.
#include <ZyException.h>
#include <ZyMaths.h>
#include <ZyString.h>

#include <Misc/ZyMathsGuard_p.h>

#include <ThrowsMessage.h>

#include <keelbase/KbHost.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <csignal>
#include <functional>
#include <limits>
#include <stdexcept>
#include <thread>

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

namespace
{
constexpr int allFlags = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT;

/** A function that raises flags and sets errno on its way to 42. */
std::function<double()> raising(int flags, int error = 0)
{
    return [flags, error] {
        std::feraiseexcept(flags);
        errno = error;
        return 42.0;
    };
}

template <class E>
std::function<double()> throwing(E const & failure)
{
    return [failure]() -> double { throw failure; };
}

/** Leaves the arithmetic of the thread as it was before the test. */
class ZyMathsGuardTest : public testing::Test
{
protected:
    ZyMathsGuardTest() { std::fegetenv(&m_environment); }
    ~ZyMathsGuardTest() override { std::fesetenv(&m_environment); }

private:
    std::fenv_t m_environment;
};

// Division and the like that the compiler shall not calculate beforehand.
double volatile zero = 0.0;
double volatile one = 1.0;
double volatile huge = 1e300;
} // namespace

TEST_F(ZyMathsGuardTest, ReturnsTheResult)
{
    EXPECT_EQ(ZyMathsGuard::Run([] { return 42.5; }), 42.5);
    EXPECT_TRUE(std::isnan(ZyMathsGuard::Run([] { return std::numeric_limits<double>::quiet_NaN(); })));
    EXPECT_TRUE(std::isinf(ZyMathsGuard::Run([] { return std::numeric_limits<double>::infinity(); })));
}

TEST_F(ZyMathsGuardTest, EachFlagHasItsException)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(FE_INVALID)), ZyInvalidOperationMathsException,
                    "Invalid operation");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(FE_DIVBYZERO)), ZyDivideByZeroException, "Divide by zero");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(FE_OVERFLOW)), ZyOverflowException,
                    "Overflow - result too large");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(FE_UNDERFLOW)), ZyUnderflowException,
                    "Underflow - result too small");
    EXPECT_EQ(ZyMathsGuard::Run(raising(FE_INEXACT)), 42.0);
}

TEST_F(ZyMathsGuardTest, ArithmeticItselfRaisesThem)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return zero / zero; }), ZyInvalidOperationMathsException,
                    "Invalid operation");
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return one / zero; }), ZyDivideByZeroException, "Divide by zero");
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return huge * huge; }), ZyOverflowException,
                    "Overflow - result too large");
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return one / huge / huge; }), ZyUnderflowException,
                    "Underflow - result too small");
    EXPECT_EQ(ZyMathsGuard::Run([] { return one / 3; }), 1.0 / 3);
}

// The other unit of the processor keeps flags of its own.
TEST_F(ZyMathsGuardTest, SeesTheFlagsOfLongArithmetic)
{
    EXPECT_ZY_THROW(
        ZyMathsGuard::Run([] { return static_cast<double>(static_cast<long double>(one) / zero); }),
        ZyDivideByZeroException, "Divide by zero");
    long double volatile quotient = static_cast<long double>(one) / zero;
    static_cast<void>(quotient);
    EXPECT_EQ(ZyMathsGuard::Run([] { return 42.0; }), 42.0);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TEST_F(ZyMathsGuardTest, FlagsAreLookedAtInOrder)
{
    for (int flags = 0; flags <= allFlags; ++flags) {
        if ((flags & ~allFlags) != 0) {
            continue;
        }
        if ((flags & FE_INVALID) != 0) {
            EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(flags)), ZyInvalidOperationMathsException,
                            "Invalid operation");
        } else if ((flags & FE_DIVBYZERO) != 0) {
            EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(flags)), ZyDivideByZeroException, "Divide by zero");
        } else if ((flags & FE_OVERFLOW) != 0) {
            EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(flags)), ZyOverflowException,
                            "Overflow - result too large");
        } else if ((flags & FE_UNDERFLOW) != 0) {
            EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(flags)), ZyUnderflowException,
                            "Underflow - result too small");
        } else {
            EXPECT_EQ(ZyMathsGuard::Run(raising(flags)), 42.0);
        }
    }
}

TEST_F(ZyMathsGuardTest, AFlagOfOneProcessorAloneIsAFailure)
{
    int const foreign = 1 << 20;
    ASSERT_EQ(foreign & allFlags, 0);
    EXPECT_ZY_THROW(ZyMathsGuard::Check(foreign, 0), ZyMathsException, "Maths error");
    EXPECT_NO_THROW(ZyMathsGuard::Check(foreign | FE_INEXACT, 0));
    EXPECT_ZY_THROW(ZyMathsGuard::Check(foreign | FE_OVERFLOW, 0), ZyOverflowException,
                    "Overflow - result too large");
}

TEST_F(ZyMathsGuardTest, ErrnoCountsWhereNoFlagIsRaised)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(0, EDOM)), ZyInvalidOperationMathsException,
                    "Invalid operation");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(0, ERANGE)), ZyMathsException, "Maths error");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(0, EINVAL)), ZyMathsException, "Maths error");
    EXPECT_EQ(ZyMathsGuard::Run(raising(0, 0)), 42.0);
}

TEST_F(ZyMathsGuardTest, ErrnoCountsForNothingBesideAFlag)
{
    EXPECT_EQ(ZyMathsGuard::Run(raising(FE_INEXACT, EDOM)), 42.0);
    EXPECT_EQ(ZyMathsGuard::Run(raising(FE_INEXACT, ERANGE)), 42.0);
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(FE_UNDERFLOW, EDOM)), ZyUnderflowException,
                    "Underflow - result too small");
}

TEST_F(ZyMathsGuardTest, WhatHappenedBeforeDoesNotCount)
{
    for (int const before : {allFlags, int(FE_INEXACT), int(FE_INVALID), int(FE_OVERFLOW | FE_DIVBYZERO)}) {
        std::feraiseexcept(before);
        errno = ERANGE;
        EXPECT_EQ(ZyMathsGuard::Run([] { return 42.0; }), 42.0);
        EXPECT_EQ(errno, 0);
        EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
    }
}

TEST_F(ZyMathsGuardTest, AnOldInexactResultDoesNotHideErrno)
{
    std::feraiseexcept(FE_INEXACT);
    EXPECT_ZY_THROW(ZyMathsGuard::Run(raising(0, EDOM)), ZyInvalidOperationMathsException,
                    "Invalid operation");
}

TEST_F(ZyMathsGuardTest, FlagsTellOfTheLastCall)
{
    EXPECT_EQ(ZyMathsGuard::Run(raising(FE_INEXACT)), 42.0);
    EXPECT_EQ(std::fetestexcept(allFlags), FE_INEXACT);
    EXPECT_THROW(ZyMathsGuard::Run(raising(FE_OVERFLOW)), ZyOverflowException);
    EXPECT_NE(std::fetestexcept(FE_OVERFLOW), 0);
}

TEST_F(ZyMathsGuardTest, AnEmptyFunctionIsAMathsError)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(std::function<double()>()), ZyMathsException, "Maths error");
}

TEST_F(ZyMathsGuardTest, ExceptionsOfTheFunctionPass)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyInvalidOperationMathsException("a"))),
                    ZyInvalidOperationMathsException, "a");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyDivideByZeroException())), ZyDivideByZeroException,
                    "Divide by zero");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyOverflowException("b"))), ZyOverflowException, "b");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyUnderflowException("c"))), ZyUnderflowException, "c");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyMathsException("d"))), ZyMathsException, "d");
}

TEST_F(ZyMathsGuardTest, OtherExceptionsBecomeAMathsError)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyNotFoundException())), ZyMathsException, "Maths error");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(std::runtime_error("a"))), ZyMathsException, "Maths error");
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(1)), ZyMathsException, "Maths error");
}

TEST_F(ZyMathsGuardTest, Deliberate_maths_guard_narrows)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(ZyDomainException(5, 0, 1))), ZyMathsException,
                    "Value (5) is outside range [0, 1]");
}

TEST_F(ZyMathsGuardTest, GuardsStandInsideOfEachOther)
{
    double const result = ZyMathsGuard::Run([] {
        try {
            ZyMathsGuard::Run(raising(FE_INVALID));
        } catch (ZyMathsException const &) {
            std::feclearexcept(FE_ALL_EXCEPT);
        }
        return ZyMathsGuard::Run([] { return 42.0; });
    });
    EXPECT_EQ(result, 42.0);
}

TEST_F(ZyMathsGuardTest, KeepsTheRoundingOfTheThread)
{
    double const lower = ZyMaths::Power::Sqrt(2.0);
    ASSERT_EQ(std::fesetround(FE_UPWARD), 0);
    std::feraiseexcept(allFlags);
    double const upper = ZyMaths::Power::Sqrt(2.0);
    EXPECT_EQ(std::fegetround(), FE_UPWARD);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(lower, 1.4142135623730951);
    EXPECT_GE(upper, lower);
}

TEST_F(ZyMathsGuardTest, EachThreadHasItsOwn)
{
    EXPECT_EQ(ZyMathsGuard::Run([] {
                  std::thread([] { std::feraiseexcept(FE_INVALID); }).join();
                  return 42.0;
              }),
              42.0);
    std::thread([] {
        EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return zero / zero; }), ZyInvalidOperationMathsException,
                        "Invalid operation");
    }).join();
}

#ifdef __GLIBC__

TEST_F(ZyMathsGuardTest, HoldsTrapsOff)
{
    int const traps = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;
    ASSERT_NE(feenableexcept(traps), -1);
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return one / zero; }), ZyDivideByZeroException, "Divide by zero");
    EXPECT_EQ(fegetexcept(), traps);
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return zero / zero; }), ZyInvalidOperationMathsException,
                    "Invalid operation");
    EXPECT_EQ(fegetexcept(), traps);
    EXPECT_ZY_THROW(ZyMathsGuard::Run(throwing(1)), ZyMathsException, "Maths error");
    EXPECT_EQ(fegetexcept(), traps);
    EXPECT_EQ(ZyMaths::Power::Sqrt(4.0), 2.0);
    EXPECT_EQ(fegetexcept(), traps);
    EXPECT_ZY_THROW(ZyMaths::Trigonometry::Cosecant(0.0), ZyDivideByZeroException, "Divide by zero");
    EXPECT_EQ(fegetexcept(), traps);
    fedisableexcept(traps);
}

#ifdef __SSE2__
TEST_F(ZyMathsGuardTest, HoldsTrapsOffThatOnlyOneUnitHas)
{
    unsigned int const state = _mm_getcsr();
    _mm_setcsr(state & ~static_cast<unsigned int>(_MM_MASK_DIV_ZERO));
    EXPECT_ZY_THROW(ZyMathsGuard::Run([] { return one / zero; }), ZyDivideByZeroException, "Divide by zero");
    EXPECT_EQ(_mm_getcsr() & _MM_MASK_DIV_ZERO, 0u);
    _mm_setcsr(state);
}
#endif

#endif

// Where translators of structured exceptions exist they stay after a good call; here no handler is touched at
// all.
TEST_F(ZyMathsGuardTest, Deliberate_maths_guard_keeps_translator)
{
    auto const before = std::signal(SIGFPE, SIG_IGN);
    EXPECT_EQ(ZyMathsGuard::Run([] { return 42.0; }), 42.0);
    EXPECT_THROW(ZyMathsGuard::Run([] { return zero / zero; }), ZyInvalidOperationMathsException);
    EXPECT_EQ(std::signal(SIGFPE, before), SIG_IGN);
}

TEST_F(ZyMathsGuardTest, FaultCodesHaveTheirExceptions)
{
    EXPECT_ZY_THROW(ZyMathsGuard::Translate(0xC000008E), ZyDivideByZeroException, "Divide by zero");
    EXPECT_ZY_THROW(ZyMathsGuard::Translate(0xC0000090), ZyInvalidOperationMathsException,
                    "Invalid operation");
    EXPECT_ZY_THROW(ZyMathsGuard::Translate(0xC0000091), ZyOverflowException, "Overflow - result too large");
    EXPECT_ZY_THROW(ZyMathsGuard::Translate(0xC0000093), ZyUnderflowException,
                    "Underflow - result too small");
    for (unsigned int const code : {0u, 0xC0000005u, 0xC000008Du, 0xC0000092u, 0xC0000094u, 0xC00002B4u}) {
        EXPECT_ZY_THROW(ZyMathsGuard::Translate(code), ZyMathsException, "Maths error");
    }
}

TEST_F(ZyMathsGuardTest, AFaultPutsTheFloatingPointUnitRight)
{
    unsigned int const before = kb::ResetFpuCount();
    EXPECT_THROW(ZyMathsGuard::Translate(0xC000008E), ZyDivideByZeroException);
    EXPECT_EQ(kb::ResetFpuCount(), before + 1);
    EXPECT_THROW(ZyMathsGuard::Translate(0), ZyMathsException);
    EXPECT_EQ(kb::ResetFpuCount(), before + 2);
}
