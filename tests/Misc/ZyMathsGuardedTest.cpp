// SPDX-License-Identifier: BSD-3-Clause
// Tests of the guarded functions: values to four units of the last place, since C libraries differ there, and
// failures by class.
#include <ZyException.h>
#include <ZyMaths.h>
#include <ZyString.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cfenv>
#include <cmath>
#include <limits>
#include <string>

using Trigonometry = ZyMaths::Trigonometry;
using Hyperbolic = ZyMaths::Hyperbolic;
using Power = ZyMaths::Power;

static_assert(ZyMaths::PI == 3.141592653589793 && ZyMaths::PI_2 == 1.5707963267948966);

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double quiet = std::numeric_limits<double>::quiet_NaN();
constexpr double signalling = std::numeric_limits<double>::signaling_NaN();

/** What a call gives: the name of an exception, or a value. */
struct Outcome
{
    Outcome(double number) : value(number) {}
    Outcome(char const * exception) : failure(exception) {}

    std::string failure;
    double value = 0.0;
};

Outcome const invalid("ZyInvalidOperationMathsException");
Outcome const byZero("ZyDivideByZeroException");
Outcome const overflow("ZyOverflowException");
Outcome const underflow("ZyUnderflowException");
Outcome const domain("ZyDomainException");

struct OneCase
{
    char const * name;
    double (*function)(double const &);
    double x;
    Outcome expected;
};

struct TwoCase
{
    char const * name;
    double base;
    double exponent;
    Outcome expected;
};

struct WholeCase
{
    char const * name;
    double base;
    int exponent;
    Outcome expected;
};

template <class Call>
void expectOutcome(Call const & call, Outcome const & expected)
{
    std::string failure;
    double value = 0.0;
    try {
        value = call();
    } catch (ZyMathsException const & thrown) {
        failure = thrown.name();
    }
    EXPECT_EQ(failure, expected.failure);
    if (failure.empty() && std::isnan(expected.value)) {
        EXPECT_TRUE(std::isnan(value)) << value;
    } else if (failure.empty()) {
        EXPECT_DOUBLE_EQ(value, expected.value); // four units of the last place
        EXPECT_EQ(std::signbit(value), std::signbit(expected.value));
    }
}

template <class Case>
std::string nameOf(testing::TestParamInfo<Case> const & info)
{
    return info.param.name;
}
class OneArgument : public testing::TestWithParam<OneCase>
{};
class RealPower : public testing::TestWithParam<TwoCase>
{};
class WholePower : public testing::TestWithParam<WholeCase>
{};

OneCase const inverse[] = {
    {"ArcCosineOne", Trigonometry::ArcCosine, 1.0, 0.0},
    {"ArcCosineMinusOne", Trigonometry::ArcCosine, -1.0, 3.141592653589793},
    {"ArcCosineZero", Trigonometry::ArcCosine, 0.0, 1.5707963267948966},
    {"ArcCosineHalf", Trigonometry::ArcCosine, 0.5, 1.0471975511965979},
    {"ArcCosineTwo", Trigonometry::ArcCosine, 2.0, domain},
    {"ArcCosineBelow", Trigonometry::ArcCosine, -1.0000000000000002, domain},
    {"ArcCosineNan", Trigonometry::ArcCosine, quiet, domain},
    {"ArcCosineInfinity", Trigonometry::ArcCosine, infinity, domain},
    {"ArcSineOne", Trigonometry::ArcSine, 1.0, 1.5707963267948966},
    {"ArcSineMinusOne", Trigonometry::ArcSine, -1.0, -1.5707963267948966},
    {"ArcSineZero", Trigonometry::ArcSine, 0.0, 0.0},
    {"ArcSineSmall", Trigonometry::ArcSine, 1e-300, 1e-300},
    {"ArcSineSubnormal", Trigonometry::ArcSine, 1e-310, underflow},
    {"ArcSineAbove", Trigonometry::ArcSine, 1.0000001, domain},
    {"ArcSineNan", Trigonometry::ArcSine, quiet, domain},
};

OneCase const reciprocal[] = {
    {"CosecantZero", Trigonometry::Cosecant, 0.0, byZero},
    {"CosecantMinusZero", Trigonometry::Cosecant, -0.0, byZero},
    {"CosecantRightAngle", Trigonometry::Cosecant, ZyMaths::PI_2, 1.0},
    {"CosecantOne", Trigonometry::Cosecant, 1.0, 1.1883951057781212},
    {"CosecantPi", Trigonometry::Cosecant, ZyMaths::PI, 8165619676597685.0},
    {"CosecantInfinity", Trigonometry::Cosecant, infinity, invalid},
    {"CosecantNan", Trigonometry::Cosecant, quiet, quiet},
    {"CosecantOverflowsBeforeItUnderflows", Trigonometry::Cosecant, 1e-310, overflow},
    {"CosecantUnderflowsOnTheWay", Trigonometry::Cosecant, 1e-308, underflow},
    {"SecantZero", Trigonometry::Secant, 0.0, 1.0},
    {"SecantRightAngle", Trigonometry::Secant, ZyMaths::PI_2, 16331239353195370.0},
    {"SecantInfinity", Trigonometry::Secant, infinity, invalid},
    {"CotangentZero", Trigonometry::Cotangent, 0.0, byZero},
    {"CotangentMinusZero", Trigonometry::Cotangent, -0.0, byZero},
    {"CotangentRightAngle", Trigonometry::Cotangent, ZyMaths::PI_2, 6.123233995736766e-17},
    {"CotangentSmall", Trigonometry::Cotangent, 1e-8, 1e8},
    {"CotangentSubnormal", Trigonometry::Cotangent, 1e-310, overflow},
};

OneCase const hyperbolic[] = {
    {"CoshZero", Hyperbolic::Cosh, 0.0, 1.0},
    {"CoshLarge", Hyperbolic::Cosh, 710.0, 1.1169973830808557e308},
    {"CoshBeyond", Hyperbolic::Cosh, 710.5, overflow},
    {"CoshFarBeyond", Hyperbolic::Cosh, 1000.0, overflow},
    {"CoshFarBelow", Hyperbolic::Cosh, -1000.0, overflow},
    {"CoshInfinity", Hyperbolic::Cosh, infinity, infinity},
    {"SinhZero", Hyperbolic::Sinh, 0.0, 0.0},
    {"SinhOne", Hyperbolic::Sinh, 1.0, 1.1752011936438014},
    {"SinhFarBelow", Hyperbolic::Sinh, -1000.0, overflow},
    {"SinhSmall", Hyperbolic::Sinh, 1e-300, 1e-300},
    {"SinhSubnormal", Hyperbolic::Sinh, 1e-310, underflow},
    {"SinhSmallest", Hyperbolic::Sinh, 5e-324, underflow},
};

OneCase const roots[] = {
    {"SqrtZero", Power::Sqrt, 0.0, 0.0},
    {"SqrtMinusZero", Power::Sqrt, -0.0, -0.0},
    {"SqrtFour", Power::Sqrt, 4.0, 2.0},
    {"SqrtTwo", Power::Sqrt, 2.0, 1.4142135623730951},
    {"SqrtSmallest", Power::Sqrt, 5e-324, 2.2227587494850775e-162},
    {"SqrtInfinity", Power::Sqrt, infinity, infinity},
    {"SqrtNan", Power::Sqrt, quiet, quiet},
    {"SqrtSignallingNan", Power::Sqrt, signalling, invalid},
    {"SqrtMinusOne", Power::Sqrt, -1.0, invalid},
    {"SqrtMinusSubnormal", Power::Sqrt, -1e-320, invalid},
    {"SqrtMinusInfinity", Power::Sqrt, -infinity, invalid},
};

TwoCase const realPowers[] = {
    {"RootOfANegativeNumber", -1.0, 0.5, invalid},
    {"ThirdRootOfANegativeNumber", -8.0, 1.0 / 3.0, invalid},
    {"CubeOfANegativeNumber", -2.0, 3.0, -8.0},
    {"ZeroToMinusOne", 0.0, -1.0, byZero},
    {"ZeroToMinusHalf", 0.0, -0.5, byZero},
    {"ZeroToMinusTwo", 0.0, -2.0, byZero},
    {"ZeroToZero", 0.0, 0.0, 1.0},
    {"NanToZero", quiet, 0.0, 1.0},
    {"OneToNan", 1.0, quiet, 1.0},
    {"GreatestPowerOfTwo", 2.0, 1023.0, 8.98846567431158e307},
    {"OnePowerTooGreat", 2.0, 1024.0, overflow},
    {"PowerOfTenTooGreat", 10.0, 400.0, overflow},
    {"NegativeTooGreat", -10.0, 309.0, overflow},
    {"LeastNormalNumber", 2.0, -1022.0, 2.2250738585072014e-308},
    {"Subnormal", 2.0, -1023.0, underflow},
    {"PowerTooSmall", 2.0, -1080.0, underflow},
    {"PowerOfTenTooSmall", 10.0, -310.0, underflow},
    {"InfinityToMinusOne", infinity, -1.0, 0.0},
    {"NanSquared", quiet, 2.0, quiet},
    {"Inexact", 2.0, 0.5, 1.4142135623730951},
};

WholeCase const wholePowers[] = {
    {"TenSquared", 10.0, 2, 100.0},
    {"TenCubed", 10.0, 3, 1000.0},
    {"SquareTooGreat", 1e200, 2, overflow},
    {"CubeTooGreat", 1e200, 3, overflow},
    {"SquareTooSmall", 1e-200, 2, underflow},
    {"ZeroToMinusOne", 0.0, -1, byZero},
    {"NegativeToMinusThree", -2.0, -3, -0.125},
    {"InfinitySquared", infinity, 2, infinity},
    {"AnythingToZero", 7.5, 0, 1.0},
    {"LeastExponent", 2.0, std::numeric_limits<int>::min(), underflow},
};
} // namespace

TEST_P(OneArgument, HasItsOutcome)
{
    expectOutcome([] { return GetParam().function(GetParam().x); }, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Inverse, OneArgument, testing::ValuesIn(inverse), nameOf<OneCase>);
INSTANTIATE_TEST_SUITE_P(Reciprocal, OneArgument, testing::ValuesIn(reciprocal), nameOf<OneCase>);
INSTANTIATE_TEST_SUITE_P(Hyperbolic, OneArgument, testing::ValuesIn(hyperbolic), nameOf<OneCase>);
INSTANTIATE_TEST_SUITE_P(Roots, OneArgument, testing::ValuesIn(roots), nameOf<OneCase>);

TEST_P(RealPower, HasItsOutcome)
{
    expectOutcome([] { return Power::Pow(GetParam().base, GetParam().exponent); }, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Pow, RealPower, testing::ValuesIn(realPowers), nameOf<TwoCase>);

TEST_P(WholePower, HasItsOutcome)
{
    expectOutcome([] { return Power::Pow(GetParam().base, GetParam().exponent); }, GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Pow, WholePower, testing::ValuesIn(wholePowers), nameOf<WholeCase>);

// The exception is looked at with its words, six digits of the value among them.
TEST(ZyMathsGuarded, RangeFailuresTellTheValue)
{
    EXPECT_ZY_THROW(Trigonometry::ArcSine(1.0000001), ZyDomainException,
                    "Value (1) is outside range [-1, 1]");
    EXPECT_ZY_THROW(Trigonometry::ArcSine(-2.5), ZyDomainException, "Value (-2.5) is outside range [-1, 1]");
    EXPECT_ZY_THROW(Trigonometry::ArcCosine(1.001), ZyDomainException,
                    "Value (1.001) is outside range [-1, 1]");
    EXPECT_ZY_THROW(Trigonometry::ArcCosine(std::fabs(quiet)), ZyDomainException,
                    "Value (nan) is outside range [-1, 1]");
}

TEST(ZyMathsGuarded, TheRangeIsCheckedBeforeAnythingIsCleared)
{
    std::feraiseexcept(FE_OVERFLOW);
    EXPECT_THROW(Trigonometry::ArcSine(2.0), ZyDomainException);
    EXPECT_THROW(Trigonometry::ArcCosine(2.0), ZyDomainException);
    EXPECT_NE(std::fetestexcept(FE_OVERFLOW), 0);
    EXPECT_EQ(Trigonometry::ArcSine(0.0), 0.0);
    EXPECT_EQ(std::fetestexcept(FE_OVERFLOW), 0);
}

TEST(ZyMathsGuarded, FailuresHaveTheirWords)
{
    EXPECT_ZY_THROW(Power::Sqrt(-1.0), ZyInvalidOperationMathsException, "Invalid operation");
    EXPECT_ZY_THROW(Power::Pow(-1.0, 0.5), ZyInvalidOperationMathsException, "Invalid operation");
    EXPECT_ZY_THROW(Trigonometry::Cosecant(0.0), ZyDivideByZeroException, "Divide by zero");
    EXPECT_ZY_THROW(Trigonometry::Cotangent(0.0), ZyDivideByZeroException, "Divide by zero");
    EXPECT_ZY_THROW(Hyperbolic::Sinh(1000.0), ZyOverflowException, "Overflow - result too large");
    EXPECT_ZY_THROW(Power::Pow(2.0, -1080.0), ZyUnderflowException, "Underflow - result too small");
}

TEST(ZyMathsGuarded, AnInexactResultIsGood)
{
    EXPECT_DOUBLE_EQ(Power::Pow(2.0, 0.5), 1.4142135623730951);
    EXPECT_NE(std::fetestexcept(FE_INEXACT), 0);
    EXPECT_EQ(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW), 0);
}

TEST(ZyMathsGuarded, AFailureDoesNotSpoilTheNextCall)
{
    EXPECT_THROW(Power::Sqrt(-1.0), ZyInvalidOperationMathsException);
    EXPECT_EQ(Power::Sqrt(4.0), 2.0);
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TEST(ZyMathsGuarded, TheSquareIsAProduct)
{
    for (double const base : {0.1, 1.0 / 3.0, -7.7e77, 1.0000000001}) {
        EXPECT_EQ(Power::Pow(base, 2), base * base);
    }
}

TEST(ZyMathsGuarded, AnglesAreConverted)
{
    EXPECT_EQ(Trigonometry::DegToRad(180.0), ZyMaths::PI);
    EXPECT_EQ(Trigonometry::DegToRad(1.0), 0.017453292519943295);
    EXPECT_EQ(Trigonometry::RadToDeg(ZyMaths::PI), 180.0);
    EXPECT_EQ(Trigonometry::RadToDeg(1.0), 57.29577951308232);
    EXPECT_EQ(Trigonometry::DegToRad(infinity), infinity); // not guarded
    EXPECT_EQ(Trigonometry::RadToDeg(1e308), infinity);
}
