// SPDX-License-Identifier: BSD-3-Clause
// Sample values sorted into bins of equal width, and what follows from the bins.
#include <ZyHistogram.h>

#include <ZyMaths.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

class ZyHistogram::Private : public ZyPrivateObject
{
public:
    /** In ascending order of range. */
    ZyVector<Bin> bins;
};

namespace
{
struct Range
{
    double low;
    double high;
};

/** The smallest and the largest value; NaN counts as neither. */
Range rangeOf(std::vector<double> const & values)
{
    double const infinity = std::numeric_limits<double>::infinity();
    Range range = {infinity, -infinity};
    for (double const value : values) {
        range.low = std::min(range.low, value);
        range.high = std::max(range.high, value);
    }
    return range;
}

/** The bin of a value that lies \a widths widths above the smallest; 0 where that is not a number. */
unsigned int binIndex(double widths, unsigned int numberBins)
{
    return widths >= numberBins ? numberBins - 1 : widths > 0 ? static_cast<unsigned int>(widths) : 0;
}

double width(ZyHistogram::Bin const & bin)
{
    return std::fabs(bin.maximum() - bin.minimum());
}
} // namespace

ZyHistogram::Bin::Bin() : Bin(0.0, 0.0) {}

ZyHistogram::Bin::Bin(double const & a, double const & b) : Bin(a, b, 0) {}

ZyHistogram::Bin::Bin(double const & a, double const & b, unsigned int frequency)
    : m_minimum(std::min(a, b)), m_maximum(std::max(a, b)), m_frequency(frequency)
{}

ZyHistogram::Bin::Bin(Bin const & other) = default;

ZyHistogram::Bin::~Bin() = default;

ZyHistogram::Bin & ZyHistogram::Bin::operator=(Bin const & other) = default;

double ZyHistogram::Bin::calculateArea() const
{
    return width(*this) * m_frequency;
}

bool ZyHistogram::Bin::operator==(Bin const & other) const
{
    return ZyMaths::Double::Equal(m_minimum, other.m_minimum) &&
           ZyMaths::Double::Equal(m_maximum, other.m_maximum) && m_frequency == other.m_frequency;
}

ZyHistogram::ZyHistogram(ZyContainer<double> const & values, unsigned int numberBins) : m_d(new Private)
{
    std::vector<double> const samples(values.begin(), values.end()); // each step of the interface is a call
    if (samples.empty() || numberBins == 0) {
        return;
    }
    Range const range = rangeOf(samples);
    double const binWidth = (range.high - range.low) / numberBins;
    std::vector<Bin> & bins = d().bins.std_vector();
    bins.reserve(numberBins);
    for (unsigned int index = 0; index < numberBins; ++index) {
        bins.emplace_back(index * binWidth + range.low, (index + 1.0) * binWidth + range.low);
    }
    for (double const value : samples) {
        bins[binIndex((value - range.low) / binWidth, numberBins)].increment();
    }
}

ZyHistogram::ZyHistogram(ZyHistogram const & other) : m_d(new Private(other.d())) {}

ZyHistogram::~ZyHistogram() = default;

ZyHistogram & ZyHistogram::operator=(ZyHistogram const & other)
{
    ZyVector<Bin> bins(other.d().bins); // all or none, should memory end
    d().bins.std_vector().swap(bins.std_vector());
    return *this;
}

unsigned int ZyHistogram::numberBins() const
{
    return d().bins.size();
}

ZyIterator<ZyHistogram::Bin const> ZyHistogram::begin() const
{
    return d().bins.begin();
}

ZyIterator<ZyHistogram::Bin const> ZyHistogram::end() const
{
    return d().bins.end();
}

unsigned int ZyHistogram::sumFrequency() const
{
    unsigned int sum = 0;
    for (Bin const & bin : d().bins.std_vector()) {
        sum += bin.frequency();
    }
    return sum;
}

double ZyHistogram::calculateArea() const
{
    double sum = 0.0;
    for (Bin const & bin : d().bins.std_vector()) {
        sum += bin.calculateArea();
    }
    return sum;
}

ZyVector<double> const & ZyHistogram::calculateProbabilityDensity(ZyVector<double> & result) const
{
    double const area = calculateArea();
    result.clear();
    result.reserve(numberBins());
    for (Bin const & bin : d().bins.std_vector()) {
        result.add(area == 0.0 ? 0.0 : bin.calculateArea() / area);
    }
    return result;
}

double ZyHistogram::calculateEntropyEstimate() const
{
    ZyVector<double> density;
    calculateProbabilityDensity(density);
    double sum = 0.0;
    for (unsigned int index = 0; index < numberBins(); ++index) {
        double const p = density.std_vector()[index];
        if (p > 0.0 && width(d().bins.std_vector()[index]) > 0.0) {
            sum += p * std::log(p); // not p / width: histogram-entropy-ignores-width
        }
    }
    return -sum;
}
