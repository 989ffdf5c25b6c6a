// SPDX-License-Identifier: BSD-3-Clause
// Means, deviations and extremes.

#include "Statistics.h"

#include <algorithm>
#include <cmath>

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

double sumOf(std::vector<double> const & values, double less, int power)
{
    double sum = 0;
    for (double const value : values) {
        sum += std::pow(value - less, power);
    }
    return sum;
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
        spread.mean = sumOf(values, 0, 1) / double(values.size());
        spread.deviation = std::sqrt(sumOf(values, spread.mean, 2) / double(values.size() - 1));
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
