// SPDX-License-Identifier: BSD-3-Clause
// Elementary functions: near to the true value, exact where that is promised, and the same bits everywhere.

#include "Elementary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace
{

constexpr int samples = 200000;
constexpr double infinity = std::numeric_limits<double>::infinity();

/** In units of the last place of \a expected. */
double distance(double actual, long double expected)
{
    int exponent = 0;
    std::frexp(double(expected), &exponent);
    return std::abs(double(actual - expected)) /
           std::ldexp(1.0, exponent - std::numeric_limits<double>::digits);
}

class Elementary : public testing::Test
{
protected:
    double between(double low, double high)
    {
        return low + (high - low) * (double(m_engine() >> 11) * 0x1p-53);
    }

private:
    std::mt19937_64 m_engine{1};
};

} // namespace

TEST_F(Elementary, LogarithmsAreRightWithinFourUnitsInTheLastPlace)
{
    for (int i = 0; i < samples; ++i) {
        for (double const number : {std::exp(between(-600, 600)), between(0.5, 2), between(0.999, 1.001)}) {
            long double const exact = number;
            ASSERT_LT(distance(naturalLogarithm(number), std::log(exact)), 4) << number;
            ASSERT_LT(distance(commonLogarithm(number), std::log10(exact)), 4) << number;
        }
    }
}

TEST_F(Elementary, PowersAreRightWithinFourUnitsInTheLastPlace)
{
    for (int i = 0; i < samples; ++i) {
        double const exponent = between(-700, 700);
        ASSERT_LT(distance(exponential(exponent), std::exp(static_cast<long double>(exponent))), 4)
            << exponent;
        double const decades = between(-22, 22);
        ASSERT_LT(distance(powerOfTen(decades), std::pow(10.0L, static_cast<long double>(decades))), 4)
            << decades;
    }
}

TEST_F(Elementary, CosineIsRightWithinTheLastPlaceOfOne)
{
    for (int i = 0; i < samples; ++i) {
        double const turns = between(-1, 1);
        long double const expected = std::cos(6.283185307179586476925286766559L * turns);
        ASSERT_LT(std::abs(double(cosineOfTurns(turns) - expected)), 0x1p-52) << turns;
    }
}

TEST_F(Elementary, WholePowersOfTenAreExactBothWays)
{
    for (int exponent = -22; exponent <= 22; ++exponent) {
        double const power = std::stod("1e" + std::to_string(exponent));
        EXPECT_EQ(powerOfTen(exponent), power);
        EXPECT_EQ(commonLogarithm(power), exponent);
    }
}

TEST_F(Elementary, QuartersOfATurnAreExact)
{
    EXPECT_EQ(cosineOfTurns(0), 1);
    EXPECT_EQ(cosineOfTurns(0.25), 0);
    EXPECT_EQ(cosineOfTurns(-0.25), 0);
    EXPECT_EQ(cosineOfTurns(0.5), -1);
    EXPECT_EQ(cosineOfTurns(0.75), 0);
    EXPECT_EQ(cosineOfTurns(1), 1);
}

TEST_F(Elementary, LogarithmsOfWhatHasNoneAreThoseOfTheCLibrary)
{
    EXPECT_EQ(naturalLogarithm(0), -infinity);
    EXPECT_EQ(commonLogarithm(0), -infinity);
    EXPECT_EQ(naturalLogarithm(infinity), infinity);
    EXPECT_EQ(commonLogarithm(infinity), infinity);
    EXPECT_TRUE(std::isnan(commonLogarithm(-1)));
    EXPECT_TRUE(std::isnan(commonLogarithm(std::numeric_limits<double>::quiet_NaN())));
}

TEST_F(Elementary, SmallestAndLargestNumbersHaveLogarithms)
{
    EXPECT_LT(distance(naturalLogarithm(std::numeric_limits<double>::denorm_min()), -744.440071921381262314L),
              4);
    EXPECT_LT(distance(commonLogarithm(std::numeric_limits<double>::max()), 308.254715559916743851L), 4);
}

// What result files hold to the last bit rests on these.
TEST_F(Elementary, BitsAreTheSameOnEverySystem)
{
    EXPECT_EQ(naturalLogarithm(0.1), -0x1.26bb1bbb55515p+1);
    EXPECT_EQ(commonLogarithm(2), 0x1.34413509f79fep-2);
    EXPECT_EQ(exponential(1), 0x1.5bf0a8b14576ap+1);
    EXPECT_EQ(powerOfTen(0.5), 0x1.94c583ada5b52p+1);
    EXPECT_EQ(cosineOfTurns(0.1), 0x1.9e3779b97f4a8p-1);
}
