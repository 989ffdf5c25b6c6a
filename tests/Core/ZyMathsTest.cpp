// SPDX-License-Identifier: BSD-3-Clause
// Tests of the tolerant comparison and of the random numbers.
#include <ZyMaths.h>
#include <ZyString.h>

#include <Core/ZyMathsRandom_p.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <complex>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<int> integers(ZyRandom::Engine & engine, int low, int high, int count)
{
    std::vector<int> result;
    for (int i = 0; i < count; ++i) {
        result.push_back(ZyRandom::Integer(engine, low, high));
    }
    return result;
}
} // namespace

TEST(ZyMathsDouble, EqualHoldsWithinTheTolerance)
{
    EXPECT_TRUE(ZyMaths::Double::Equal(0.1 + 0.2, 0.3));
    EXPECT_TRUE(ZyMaths::Double::Equal(1.0, 1.0 + 1e-15));
    EXPECT_TRUE(ZyMaths::Double::Equal(DBL_MAX, DBL_MAX));
    EXPECT_TRUE(ZyMaths::Double::Equal(5e-324, 0.0));
    EXPECT_TRUE(ZyMaths::Double::Equal(-1.5, -1.5));
}

TEST(ZyMathsDouble, EqualHoldsForZeros)
{
    EXPECT_TRUE(ZyMaths::Double::Equal(0.0, 0.0));
    EXPECT_TRUE(ZyMaths::Double::Equal(0.0, -0.0));
}

TEST(ZyMathsDouble, EqualFailsOutsideTheTolerance)
{
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, 1.0 + 4.6e-15));
    EXPECT_FALSE(ZyMaths::Double::Equal(1e-20, 2e-20));
    EXPECT_FALSE(ZyMaths::Double::Equal(0.0, 2.2250738585072014e-308));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, -1.0));
    EXPECT_FALSE(ZyMaths::Double::Equal(DBL_MAX, -DBL_MAX));
}

TEST(ZyMathsDouble, EqualIsStrictAtTheSmallestNormalNumber)
{
    EXPECT_TRUE(ZyMaths::Double::Equal(0.0, std::nextafter(2.2250738585072014e-308, 0.0)));
    EXPECT_FALSE(ZyMaths::Double::Equal(0.0, 2.2250738585072014e-308));
}

TEST(ZyMathsDouble, InfinitiesAndNanEqualNothing)
{
    EXPECT_FALSE(ZyMaths::Double::Equal(infinity, infinity));
    EXPECT_FALSE(ZyMaths::Double::Equal(-infinity, infinity));
    EXPECT_FALSE(ZyMaths::Double::Equal(notANumber, notANumber));
    EXPECT_FALSE(ZyMaths::Double::Equal(notANumber, 1.0));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, notANumber));
}

TEST(ZyMathsDouble, EqualTakesAToleranceOfItsOwn)
{
    EXPECT_TRUE(ZyMaths::Double::Equal(1.0, 1.1, 0.1, 1));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, 1.1, 0.1, 0));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, 1.1, 0.01, 1));
    EXPECT_TRUE(ZyMaths::Double::Equal(1.0, 1.1, 0.01, 10));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, 3.0, 0.5, 1)); // the bound itself is outside
    EXPECT_TRUE(ZyMaths::Double::Equal(1.0, 1.0, 0.0, 0));
    EXPECT_FALSE(ZyMaths::Double::Equal(1.0, 1.1, 0.1, -1));
}

TEST(ZyMathsRandom, GeneratorIsTheStandardMersenneTwister)
{
    ZyRandom::Engine engine(1);
    for (unsigned const expected : {1791095845u, 4282876139u, 3093770124u, 4005303368u, 491263u}) {
        EXPECT_EQ(engine(), expected);
    }
}

TEST(ZyMathsRandom, IntegersOfAKnownSeed)
{
    ZyRandom::Engine letters(1);
    EXPECT_EQ(integers(letters, 0, 61, 12), (std::vector<int>{41, 25, 8, 14, 37, 13, 21, 3, 43, 56, 2, 49}));
    ZyRandom::Engine dice(1);
    EXPECT_EQ(integers(dice, 1, 6, 12), (std::vector<int>{2, 6, 1, 3, 2, 2, 6, 6, 6, 1, 3, 4}));
    ZyRandom::Engine both(1);
    EXPECT_EQ(integers(both, -5, 5, 8), (std::vector<int>{-5, -2, 0, -5, -2, -4, 0, -4}));
    ZyRandom::Engine standard(5489);
    EXPECT_EQ(integers(standard, 0, 61, 4), (std::vector<int>{60, 46, 60, 13}));
}

TEST(ZyMathsRandom, IntegerRejectsWhatWouldBeUneven)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(integers(engine, INT_MIN, 0, 6),
              (std::vector<int>{-356387803, -2146992385, -1597193335, -848975157, -1517171889, -1133489216}));
    ZyRandom::Engine ten(1);
    ten.discard(10);
    EXPECT_EQ(engine, ten);
}

TEST(ZyMathsRandom, IntegerOfTheFullRangeDrawsOnce)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(integers(engine, INT_MIN, INT_MAX, 3), (std::vector<int>{-356387803, 2135392491, 946286476}));
}

TEST(ZyMathsRandom, IntegerOfEqualBoundsDrawsNothing)
{
    ZyRandom::Engine engine(1);
    ZyRandom::Engine const before(engine);
    EXPECT_EQ(ZyRandom::Integer(engine, 5, 5), 5);
    EXPECT_EQ(ZyRandom::Integer(engine, INT_MIN, INT_MIN), INT_MIN);
    EXPECT_EQ(engine, before);

    ZyRandom::Engine const process(ZyRandom::ProcessEngine());
    EXPECT_EQ(ZyMaths::Random::Integer(5, 5), 5);
    EXPECT_EQ(ZyRandom::ProcessEngine(), process);
}

TEST(ZyMathsRandom, IntegerWithTurnedBoundsWraps)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(ZyRandom::Integer(engine, 3, 1), 1791095848);
}

TEST(ZyMathsRandom, DoublesOfAKnownSeed)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(ZyRandom::Double(engine, 0.0, 1.0), 0.99718480823026556);
    EXPECT_EQ(ZyRandom::Double(engine, 0.0, 1.0), 0.93255736136816547);
    EXPECT_EQ(ZyRandom::Double(engine, 0.0, 1.0), 0.128124447772306);
}

TEST(ZyMathsRandom, DoubleAgreesWithTheStandardCanonicalNumber)
{
    ZyRandom::Engine ours(3);
    ZyRandom::Engine theirs(3);
    for (int i = 0; i < 10000; ++i) {
        ASSERT_EQ(ZyRandom::Unit(ours), (std::generate_canonical<double, 53>(theirs)));
    }
    EXPECT_EQ(ours, theirs);
}

TEST(ZyMathsRandom, DoubleScalesTheUnitNumber)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(ZyRandom::Double(engine, -10.0, 10.0), -10.0 + 20.0 * 0.99718480823026556);
}

TEST(ZyMathsRandom, DoubleWithTurnedBoundsLiesBetweenThem)
{
    for (int i = 0; i < 1000; ++i) {
        double const number = ZyMaths::Random::Double(2.0, -1.0);
        ASSERT_LE(number, 2.0);
        ASSERT_GE(number, -1.0);
    }
    EXPECT_EQ(ZyMaths::Random::Double(4.0, 4.0), 4.0);
}

TEST(ZyMathsRandom, Deliberate_complex_draws_its_imaginary_part_first)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(ZyRandom::Complex(engine), std::complex<double>(0.93255736136816547, 0.99718480823026556));
}

TEST(ZyMathsRandom, ComplexPartsLieBelowOne)
{
    for (int i = 0; i < 1000; ++i) {
        std::complex<double> const number = ZyMaths::Random::Complex();
        ASSERT_TRUE(number.real() >= 0.0 && number.real() < 1.0);
        ASSERT_TRUE(number.imag() >= 0.0 && number.imag() < 1.0);
    }
}

TEST(ZyMathsRandom, NormalNumbersOfAKnownSeed)
{
    ZyRandom::Engine engine(1);
    ZyUniquePtr<ZyVector<double>> const numbers = ZyRandom::NormalDistribution(engine, 10.0, 2.0, 5);
    double const expected[] = {7.1942545817441577, 8.9005076420891012, 7.9097063791159554, 13.16550458395028,
                               6.081210860505994};
    ASSERT_EQ(numbers->size(), 5u);
    for (unsigned int i = 0; i < 5; ++i) {
        EXPECT_DOUBLE_EQ(numbers->at(i), expected[i]);
    }
}

TEST(ZyMathsRandom, NormalDistributionDropsTheSpareNumber)
{
    ZyRandom::Engine engine(1);
    ZyRandom::NormalDistribution(engine, 10.0, 2.0, 3);
    ZyUniquePtr<ZyVector<double>> const numbers = ZyRandom::NormalDistribution(engine, 10.0, 2.0, 2);
    EXPECT_DOUBLE_EQ(numbers->at(0), 6.081210860505994);
    EXPECT_DOUBLE_EQ(numbers->at(1), 10.51518708258298);
}

TEST(ZyMathsRandom, NormalDistributionOfNoneIsEmptyAndDrawsNothing)
{
    ZyRandom::Engine const before(ZyRandom::ProcessEngine());
    EXPECT_EQ(ZyMaths::Random::NormalDistribution(0.0, 1.0, 0)->size(), 0u);
    EXPECT_EQ(ZyRandom::ProcessEngine(), before);
}

TEST(ZyMathsRandom, NormalDistributionRefusesAbsurdCounts)
{
    EXPECT_THROW(ZyMaths::Random::NormalDistribution(0.0, 1.0, 0x20000000u), std::length_error);
    EXPECT_THROW(ZyMaths::Random::NormalDistribution(0.0, 1.0, 0xFFFFFFFFu), std::length_error);
}

TEST(ZyMathsRandom, NormalDistributionHasItsMeanAndWidth)
{
    ZyRandom::Engine engine(2);
    unsigned int const count = 100001;
    ZyUniquePtr<ZyVector<double>> const numbers = ZyRandom::NormalDistribution(engine, 5.0, 3.0, count);
    double sum = 0.0;
    double squares = 0.0;
    for (double const number : numbers->std_vector()) {
        sum += number;
        squares += (number - 5.0) * (number - 5.0);
    }
    EXPECT_NEAR(sum / count, 5.0, 0.05);
    EXPECT_NEAR(std::sqrt(squares / count), 3.0, 0.05);
    EXPECT_EQ(numbers->size(), count);
}

TEST(ZyMathsRandom, ProcessEngineIsOneAndMoves)
{
    EXPECT_EQ(&ZyRandom::ProcessEngine(), &ZyRandom::ProcessEngine());
    ZyRandom::Engine const before(ZyRandom::ProcessEngine());
    ZyMaths::Random::Integer(0, 61);
    EXPECT_NE(ZyRandom::ProcessEngine(), before);
}

TEST(ZyStringRandom, TextOfAKnownSeed)
{
    ZyRandom::Engine engine(1);
    EXPECT_EQ(ZyRandom::Text(engine, 5, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"),
              "PzioL");
}

TEST(ZyStringRandom, DrawsFromTheAlphabetOfItsType)
{
    struct
    {
        ZyString::RandomType type;
        std::string alphabet;
    } const cases[] = {
        {ZyString::LettersAndDigits, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"},
        {ZyString::Digits, "0123456789"},
        {ZyString::LowerCase, "abcdefghijklmnopqrstuvwxyz"},
        {ZyString::UpperCase, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
        {ZyString::Letters, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"},
        {static_cast<ZyString::RandomType>(5),
         "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"},
        {static_cast<ZyString::RandomType>(-1),
         "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"},
    };
    for (auto const & entry : cases) {
        ZyRandom::Engine known(ZyRandom::ProcessEngine());
        std::string const text = ZyString::Random(2000, entry.type).toStdString();
        EXPECT_EQ(text, ZyRandom::Text(known, 2000, entry.alphabet)) << entry.type;
        EXPECT_EQ(text.find_first_not_of(entry.alphabet), std::string::npos);
    }
}

TEST(ZyStringRandom, TypesHaveTheirNumbers)
{
    EXPECT_EQ(ZyString::LettersAndDigits, 0);
    EXPECT_EQ(ZyString::Digits, 1);
    EXPECT_EQ(ZyString::LowerCase, 2);
    EXPECT_EQ(ZyString::UpperCase, 3);
    EXPECT_EQ(ZyString::Letters, 4);
}

TEST(ZyStringRandom, NoCharactersDrawNothing)
{
    ZyRandom::Engine const before(ZyRandom::ProcessEngine());
    EXPECT_TRUE(ZyString::Random(0, ZyString::Letters).isEmpty());
    EXPECT_EQ(ZyRandom::ProcessEngine(), before);
}

TEST(ZyStringRandom, DiffersFromCallToCall)
{
    EXPECT_STRNE(ZyString::Random(20, ZyString::Letters).c_str(),
                 ZyString::Random(20, ZyString::Letters).c_str());
}
