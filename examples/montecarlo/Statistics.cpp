// SPDX-License-Identifier: BSD-3-Clause
// Means, deviations and extremes.

#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

void include(Spread & spread, double value, int number)
{
    if (spread.values.size() == 0 || value < spread.lowest) {
        spread.lowest = value;
        spread.lowestCase = number;
    }
    if (spread.values.size() == 0 || value > spread.highest) {
        spread.highest = value;
        spread.highestCase = number;
    }
    spread.values.add(value);
}

double meanOf(std::vector<double> const & values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / double(values.size());
}

double deviationOf(std::vector<double> const & values, double mean)
{
    double squares = 0;
    for (double const value : values) {
        squares += (value - mean) * (value - mean);
    }
    return std::sqrt(squares / double(values.size() - 1));
}

} // namespace

Spread spreadOf(Results const & results, std::size_t merit)
{
    Spread spread;
    for (RunResult const * const result : results) {
        double const value = result->figures[merit];
        if (!std::isfinite(value)) {
            ++spread.missing;
            continue;
        }
        if (result->run.number == 1) {
            spread.nominal = value;
        }
        include(spread, value, int(result->run.number));
    }
    auto const & values = spread.values.std_vector();
    if (values.size() > 1) {
        spread.mean = meanOf(values);
        spread.deviation = deviationOf(values, spread.mean);
    } else {
        spread.mean = spread.nominal;
    }
    return spread;
}

// Between the square root, which is too fine for many values, and Sturges' rule, which is too coarse for
// them.
unsigned int binsFor(unsigned int values)
{
    return std::clamp(unsigned(std::lround(2 * std::cbrt(values))), 1U, 40U);
}
