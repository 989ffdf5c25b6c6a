// SPDX-License-Identifier: BSD-3-Clause
// Tests of the histogram and of its bins.
#include <ZyDeque.h>
#include <ZyHistogram.h>
#include <ZyList.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

using Bin = ZyHistogram::Bin;
using Frequencies = std::vector<unsigned int>;
using Numbers = std::vector<double>;

static_assert(std::has_virtual_destructor_v<ZyHistogram> && std::has_virtual_destructor_v<Bin>);
static_assert(sizeof(ZyHistogram) == 2 * sizeof(void *));
static_assert(sizeof(Bin) == sizeof(void *) + 3 * sizeof(double), "a frequency takes the place of a double");
static_assert(std::is_copy_constructible_v<ZyHistogram> && std::is_copy_assignable_v<ZyHistogram>);
static_assert(!std::is_default_constructible_v<ZyHistogram>);
static_assert(std::is_same_v<decltype(std::declval<ZyHistogram const &>().begin()), ZyIterator<Bin const>>);
static_assert(std::is_same_v<decltype(std::declval<Bin const &>().minimum()), double const &>);

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

Frequencies frequencies(ZyHistogram const & histogram)
{
    Frequencies result;
    for (Bin const & bin : histogram) {
        result.push_back(bin.frequency());
    }
    return result;
}

/** The lower edges of all bins, and the upper one of the last. */
Numbers edges(ZyHistogram const & histogram)
{
    Numbers result;
    double last = 0;
    for (Bin const & bin : histogram) {
        result.push_back(bin.minimum());
        last = bin.maximum();
    }
    result.push_back(last);
    return result;
}

Numbers density(ZyHistogram const & histogram)
{
    ZyVector<double> result;
    return histogram.calculateProbabilityDensity(result).std_vector();
}
} // namespace

TEST(ZyHistogramBin, DefaultIsEmpty)
{
    Bin const bin;
    EXPECT_EQ(bin.minimum(), 0.0);
    EXPECT_EQ(bin.maximum(), 0.0);
    EXPECT_EQ(bin.frequency(), 0u);
    EXPECT_EQ(bin.calculateArea(), 0.0);
}

TEST(ZyHistogramBin, PutsItsEdgesInOrder)
{
    Bin const bin(5, 1);
    EXPECT_EQ(bin.minimum(), 1.0);
    EXPECT_EQ(bin.maximum(), 5.0);
    EXPECT_EQ(bin.frequency(), 0u);
    Bin const filled(5, 1, 7);
    EXPECT_EQ(filled.minimum(), 1.0);
    EXPECT_EQ(filled.maximum(), 5.0);
    EXPECT_EQ(filled.frequency(), 7u);
}

TEST(ZyHistogramBin, CountsAndTellsItsArea)
{
    Bin bin(-1, 0.5, 2);
    EXPECT_EQ(bin.calculateArea(), 3.0);
    bin.increment();
    EXPECT_EQ(bin.frequency(), 3u);
    EXPECT_EQ(bin.calculateArea(), 4.5);
}

TEST(ZyHistogramBin, EqualityMindsTheFrequency)
{
    EXPECT_TRUE(Bin(1, 2) == Bin(2, 1));
    EXPECT_FALSE(Bin(1, 2) != Bin(2, 1));
    EXPECT_FALSE(Bin(1, 2) == Bin(1, 2, 1));
    EXPECT_TRUE(Bin(1, 2) != Bin(1, 2, 1));
}

TEST(ZyHistogramBin, EqualityForgivesTheLastDigitsOfTheEdges)
{
    EXPECT_TRUE(Bin(0.1 + 0.2, 1, 4) == Bin(0.3, 1, 4));
    EXPECT_TRUE(Bin(0, 0.1 + 0.2, 4) == Bin(0, 0.3, 4));
    EXPECT_FALSE(Bin(0.3001, 1) == Bin(0.3, 1));
    EXPECT_FALSE(Bin(0, 0.3001) == Bin(0, 0.3));
}

TEST(ZyHistogramBin, Copies)
{
    Bin bin(1, 2, 3);
    Bin const copy(bin);
    bin.increment();
    EXPECT_TRUE(copy == Bin(1, 2, 3));
    bin = copy;
    EXPECT_TRUE(bin == copy);
}

TEST(ZyHistogram, SortsValues)
{
    ZyHistogram const histogram(ZyVector<double>{0, 1, 2, 3, 4}, 2);
    EXPECT_EQ(histogram.numberBins(), 2u);
    EXPECT_EQ(edges(histogram), (Numbers{0, 2, 4}));
    EXPECT_EQ(frequencies(histogram),
              (Frequencies{2, 3})); // an inner edge goes right, the largest value left
    EXPECT_EQ(histogram.sumFrequency(), 5u);
    EXPECT_EQ(histogram.calculateArea(), 10.0);
    EXPECT_EQ(density(histogram), (Numbers{0.4, 0.6}));
    EXPECT_DOUBLE_EQ(histogram.calculateEntropyEstimate(), -(0.4 * std::log(0.4) + 0.6 * std::log(0.6)));
}

TEST(ZyHistogram, TakesEveryContainerInAnyOrder)
{
    Frequencies const expected = {2, 0, 1, 2};
    EXPECT_EQ(frequencies(ZyHistogram(ZyDeque<double>{1.5, -2, -2, 2, 0.5}, 4)), expected);
    EXPECT_EQ(frequencies(ZyHistogram(ZyList<double>{2, 1.5, 0.5, -2, -2}, 4)), expected);
    EXPECT_EQ(edges(ZyHistogram(ZyList<double>{2, 1.5, 0.5, -2, -2}, 4)), (Numbers{-2, -1, 0, 1, 2}));
}

TEST(ZyHistogram, NoBinsAreAsked)
{
    ZyHistogram const histogram(ZyVector<double>{1, 2, 3}, 0);
    EXPECT_EQ(histogram.numberBins(), 0u);
    EXPECT_TRUE(histogram.begin() == histogram.end());
    EXPECT_EQ(histogram.sumFrequency(), 0u);
    EXPECT_EQ(histogram.calculateArea(), 0.0);
    EXPECT_EQ(density(histogram), Numbers());
    EXPECT_EQ(histogram.calculateEntropyEstimate(), 0.0);
}

TEST(ZyHistogram, NoValuesGiveNoBins)
{
    EXPECT_EQ(ZyHistogram(ZyVector<double>(), 0).numberBins(), 0u);
    EXPECT_EQ(ZyHistogram(ZyVector<double>(), 5).numberBins(), 0u);
}

TEST(ZyHistogram, EqualValuesHaveBinsWithoutWidth)
{
    ZyHistogram const histogram(ZyVector<double>{7, 7, 7}, 4);
    EXPECT_EQ(edges(histogram), (Numbers{7, 7, 7, 7, 7}));
    EXPECT_EQ(histogram.sumFrequency(), 3u);
    EXPECT_EQ(histogram.calculateArea(), 0.0);
    EXPECT_EQ(density(histogram), (Numbers{0, 0, 0, 0}));
    EXPECT_EQ(histogram.calculateEntropyEstimate(), 0.0);
    EXPECT_FALSE(std::signbit(ZyHistogram(ZyVector<double>{0.5}, 3).calculateArea()));
}

TEST(ZyHistogram, OneBinHoldsAll)
{
    ZyHistogram const histogram(ZyVector<double>{1, 2, 4}, 1);
    EXPECT_EQ(edges(histogram), (Numbers{1, 4}));
    EXPECT_EQ(frequencies(histogram), (Frequencies{3}));
    EXPECT_EQ(density(histogram), (Numbers{1}));
    EXPECT_EQ(histogram.calculateEntropyEstimate(), 0.0); // as is that of every certain result
}

TEST(ZyHistogram, EdgesDoNotAccumulateRoundings)
{
    ZyHistogram const histogram(ZyVector<double>{0.1, 0.9}, 1000);
    double const width = (0.9 - 0.1) / 1000;
    unsigned int index = 0;
    for (Bin const & bin : histogram) {
        ASSERT_EQ(bin.minimum(), index * width + 0.1);
        ASSERT_EQ(bin.maximum(), (index + 1) * width + 0.1);
        ++index;
    }
    EXPECT_EQ(index, 1000u);
    EXPECT_EQ(histogram.sumFrequency(), 2u);
}

// 0.3 divided by a tenth is less than 3, and 0.6 less than 6.
TEST(ZyHistogram, RoundingDecidesOnEdgesThatAreNoBinaryFractions)
{
    ZyHistogram const histogram(ZyVector<double>{0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1}, 10);
    EXPECT_EQ(frequencies(histogram), (Frequencies{1, 1, 2, 0, 1, 2, 1, 0, 1, 2}));
}

TEST(ZyHistogram, NanCountsInTheFirstBinAndDoesNotWidenTheRange)
{
    Numbers const samples = {notANumber, 1, notANumber, 3, 2, notANumber};
    ZyHistogram const histogram(ZyVector<double>(samples.begin(), samples.end()), 2);
    EXPECT_EQ(edges(histogram), (Numbers{1, 2, 3}));
    EXPECT_EQ(frequencies(histogram), (Frequencies{4, 2}));
    EXPECT_EQ(frequencies(ZyHistogram(ZyVector<double>{notANumber}, 2)), (Frequencies{1, 0}));
}

TEST(ZyHistogram, RangesBeyondAllNumbersCountInTheFirstBin)
{
    EXPECT_EQ(frequencies(ZyHistogram(ZyVector<double>{-1.7e308, 0, 1.7e308}, 3)), (Frequencies{3, 0, 0}));
    EXPECT_EQ(frequencies(ZyHistogram(ZyVector<double>{0, infinity, 1}, 2)), (Frequencies{3, 0}));
    EXPECT_EQ(frequencies(ZyHistogram(ZyVector<double>{0, -infinity, 1}, 2)), (Frequencies{3, 0}));
    EXPECT_EQ(frequencies(ZyHistogram(ZyVector<double>{infinity, infinity}, 2)), (Frequencies{2, 0}));
}

TEST(ZyHistogram, TinyRangesStayWithinTheBins)
{
    double const tiny = std::numeric_limits<double>::denorm_min();
    ZyHistogram const histogram(ZyVector<double>{0, tiny}, 1000); // the width is 0, the quotient infinite
    EXPECT_EQ(histogram.sumFrequency(), 2u);
    EXPECT_EQ(histogram.numberBins(), 1000u);
}

TEST(ZyHistogram, DensityReplacesWhatTheResultHeld)
{
    ZyVector<double> result = {9, 9, 9};
    ZyHistogram const histogram(ZyVector<double>{0, 1, 2, 3}, 2);
    EXPECT_EQ(&histogram.calculateProbabilityDensity(result), &result);
    EXPECT_EQ(result.std_vector(), (Numbers{0.5, 0.5}));
}

TEST(ZyHistogram, DensityAddsUpToOne)
{
    Numbers samples;
    for (int index = 0; index < 1000; ++index) {
        samples.push_back(std::sin(index * 0.37) * 1e6);
    }
    double sum = 0;
    for (double const share : density(ZyHistogram(ZyVector<double>(samples.begin(), samples.end()), 37))) {
        sum += share;
    }
    EXPECT_NEAR(sum, 1.0, 1e-12);
}

TEST(ZyHistogram, EmptyBinsAddNothingToTheEntropy)
{
    ZyHistogram const histogram(ZyVector<double>{0, 0, 8, 8}, 8);
    EXPECT_EQ(density(histogram), (Numbers{0.5, 0, 0, 0, 0, 0, 0, 0.5}));
    EXPECT_DOUBLE_EQ(histogram.calculateEntropyEstimate(), std::log(2.0));
}

TEST(ZyHistogram, Deliberate_histogram_entropy_ignores_width)
{
    double const narrow = ZyHistogram(ZyVector<double>{0, 1, 2, 3}, 4).calculateEntropyEstimate();
    double const wide = ZyHistogram(ZyVector<double>{0, 1024, 2048, 3072}, 4).calculateEntropyEstimate();
    EXPECT_EQ(narrow, wide);
    EXPECT_DOUBLE_EQ(narrow, std::log(4.0));
}

TEST(ZyHistogram, CopiesAreDeep)
{
    ZyHistogram histogram(ZyVector<double>{0, 1, 2, 3, 4}, 2);
    ZyHistogram const copy(histogram);
    histogram = ZyHistogram(ZyVector<double>{0, 1}, 1);
    EXPECT_EQ(frequencies(histogram), (Frequencies{2}));
    EXPECT_EQ(frequencies(copy), (Frequencies{2, 3}));
    ZyHistogram const & self = histogram;
    histogram = self;
    EXPECT_EQ(frequencies(histogram), (Frequencies{2}));
    ZyHistogram const moved(std::move(histogram));
    EXPECT_EQ(frequencies(moved), frequencies(histogram)); // NOLINT: there is no move that would empty it
}

TEST(ZyHistogram, HoldsMoreValuesThanBins)
{
    std::vector<double> samples(100000, 1.0);
    samples.push_back(0.0);
    ZyHistogram const histogram(ZyVector<double>(samples.begin(), samples.end()), 3);
    EXPECT_EQ(frequencies(histogram), (Frequencies{1, 0, 100000}));
}
