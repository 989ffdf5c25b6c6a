// SPDX-License-Identifier: BSD-3-Clause
// Sample values sorted into bins of equal width.
#pragma once

#include <ZyContainer.h>
#include <ZyExport.h>
#include <ZyIterator.h>
#include <ZyPrivateObject.h>
#include <ZyVector.h>

/**
 * Sorts sample values into a fixed number of bins of equal width that span the range of the values.
 *
 * \code
 * ZyHistogram const histogram(ZyVector<double>{0, 1, 2, 3, 4}, 2);
 * for (ZyHistogram::Bin const & bin : histogram) {
 *     row(bin.minimum(), bin.maximum(), bin.frequency()); // 0 to 2: 2 values; 2 to 4: 3 values
 * }
 * \endcode
 *
 * A histogram does not change once it is made, except by assignment; copies are deep.
 *
 * \threads no locks: it may be read from several threads
 */
class ZYCORE_EXPORT ZyHistogram
{
public:
    /** A range of values and how many lie in it. */
    class ZYCORE_EXPORT Bin
    {
    public:
        /** From 0 to 0, with no values. */
        Bin();
        /** From the smaller to the larger of the two, with no values. */
        Bin(double const & a, double const & b);
        /** From the smaller to the larger of the two, with \a frequency values. */
        Bin(double const & a, double const & b, unsigned int frequency);
        Bin(Bin const & other);
        virtual ~Bin();

        Bin & operator=(Bin const & other);

        /** The lower edge. */
        double const & minimum() const { return m_minimum; }
        /** The upper edge. */
        double const & maximum() const { return m_maximum; }
        /** The number of values. */
        unsigned int frequency() const { return m_frequency; }
        /** Counts one value more. */
        void increment() { ++m_frequency; }
        /** The width, which is never negative, times the number of values. */
        double calculateArea() const;

        /** Whether the edges are equal as ZyMaths::Double::Equal says and the numbers of values are the same.
         */
        bool operator==(Bin const & other) const;
        /** The opposite of equality. */
        bool operator!=(Bin const & other) const { return !(*this == other); }

    private:
        double m_minimum;
        double m_maximum;
        unsigned int m_frequency;
    };

    /**
     * Sorts \a values into \a numberBins bins, which go from the smallest value to the largest.
     *
     * A value on an edge between two bins belongs to the upper one, the largest value to the last bin. Edges
     * are computed from the smallest value each time, and so is a value's bin: where the width is no binary
     * fraction, a value that is meant to lie on an edge may fall on either side of it.
     *
     * NaN values count in the first bin and do not widen the range. Where the range itself is no finite
     * number, or all values are equal, all values count in the first bin.
     *
     * \param values the samples, read during the call only
     * \param numberBins 0 gives a histogram without bins, and so does an empty container
     * \throws std::bad_alloc or std::length_error there is no memory for so many bins
     * \cost linear in the values and in the bins
     */
    ZyHistogram(ZyContainer<double> const & values, unsigned int numberBins);
    ZyHistogram(ZyHistogram const & other);
    virtual ~ZyHistogram();

    ZyHistogram & operator=(ZyHistogram const & other);

    /** The number of bins. */
    unsigned int numberBins() const;
    /** The first bin; they come in ascending order of range. */
    ZyIterator<Bin const> begin() const;
    /** The position behind the last bin. */
    ZyIterator<Bin const> end() const;

    /** The number of all values. */
    unsigned int sumFrequency() const;
    /** The sum of the areas of the bins. */
    double calculateArea() const;
    /**
     * Each bin's share of the area: its probability. The shares add up to 1; where the area is 0, all are 0.
     *
     * \param result takes one number a bin; what it held goes
     * \return \a result
     */
    ZyVector<double> const & calculateProbabilityDensity(ZyVector<double> & result) const;
    /**
     * The entropy of the bins' probabilities p, -sum(p * ln(p)), in nats.
     *
     * \deliberate{histogram-entropy-ignores-width} The estimate of a continuous entropy would divide each p by the bin's
     * width; here the divisor is 1 for every bin that has a width, so figures do not depend on the unit of
     * the values.
     */
    double calculateEntropyEstimate() const;

private:
    class ZYCORE_PRIVATE Private;

    Private & d() { return *m_d; }
    Private const & d() const { return *m_d; }

    ZyPrivatePtr<Private> m_d;
};
