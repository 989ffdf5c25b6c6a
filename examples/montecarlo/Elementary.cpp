// SPDX-License-Identifier: BSD-3-Clause
// Each argument is reduced to a small one, exactly where that is possible, and a short series does the rest.

#include "Elementary.h"

#include <cmath>
#include <iterator>

namespace
{

// The upper part has so few digits that its product with the exponent of a double is exact.
constexpr double ln2Upper = 0x1.62e42feep-1;
constexpr double ln2Lower = 0x1.a39ef35793c76p-33;
constexpr double ln2 = 0x1.62e42fefa39efp-1;
constexpr double ln10 = 0x1.26bb1bbb55516p+1;
constexpr double twoPi = 0x1.921fb54442d18p+2;
constexpr int largestExactPower = 22;

/** \param coefficients the first one is that of x to the power of 0 */
template <class Coefficients>
double polynomial(Coefficients const & coefficients, double x)
{
    double sum = 0;
    for (auto next = std::rbegin(coefficients); next != std::rend(coefficients); ++next) {
        sum = sum * x + *next;
    }
    return sum;
}

/** Of a number within the square roots of 1/2 and 2, less 1. */
double logarithmOfOneMore(double x)
{
    // Twice the series of the inverse hyperbolic tangent, without its first term.
    constexpr double series[] = {2.0 / 3,  2.0 / 5,  2.0 / 7,  2.0 / 9,  2.0 / 11,
                                 2.0 / 13, 2.0 / 15, 2.0 / 17, 2.0 / 19, 2.0 / 21};
    double const s = x / (2 + x);
    double const halfSquare = x * x / 2;
    double const rest = s * s * polynomial(series, s * s);
    return x - (halfSquare - s * (halfSquare + rest));
}

double wholePowerOfTen(int exponent)
{
    double power = 1;
    for (int i = 0; i < std::abs(exponent); ++i) {
        power *= 10;
    }
    return power;
}

double timesPowerOfTen(double number, int exponent)
{
    return exponent < 0 ? number / wholePowerOfTen(exponent) : number * wholePowerOfTen(exponent);
}

/** \param x within the eighth part of a turn to either side, radians */
double smallSine(double x)
{
    constexpr double series[] = {1,
                                 -1.0 / 6,
                                 1.0 / 120,
                                 -1.0 / 5040,
                                 1.0 / 362880,
                                 -1.0 / 39916800,
                                 1.0 / 6227020800,
                                 -1.0 / 1307674368000,
                                 1.0 / 355687428096000};
    return x * polynomial(series, x * x);
}

/** \param x as for smallSine */
double smallCosine(double x)
{
    constexpr double series[] = {1,
                                 -1.0 / 2,
                                 1.0 / 24,
                                 -1.0 / 720,
                                 1.0 / 40320,
                                 -1.0 / 3628800,
                                 1.0 / 479001600,
                                 -1.0 / 87178291200,
                                 1.0 / 20922789888000};
    return polynomial(series, x * x);
}

} // namespace

double naturalLogarithm(double number)
{
    if (!(number > 0) || std::isinf(number)) {
        return std::log(number);
    }
    int exponent = 0;
    double fraction = std::frexp(number, &exponent);
    if (fraction < 0x1.6a09e667f3bcdp-1) {
        fraction *= 2;
        --exponent;
    }
    return exponent * ln2Upper + (exponent * ln2Lower + logarithmOfOneMore(fraction - 1));
}

double commonLogarithm(double number)
{
    double const rough = naturalLogarithm(number) / ln10;
    if (!(std::abs(rough) < largestExactPower)) {
        return rough;
    }
    int const nearest = int(std::lround(rough));
    return nearest + naturalLogarithm(timesPowerOfTen(number, -nearest)) / ln10;
}

double exponential(double exponent)
{
    // What is left of the series of the exponential function after its first two terms.
    constexpr double series[] = {1.0 / 2,       1.0 / 6,        1.0 / 24,        1.0 / 120,
                                 1.0 / 720,     1.0 / 5040,     1.0 / 40320,     1.0 / 362880,
                                 1.0 / 3628800, 1.0 / 39916800, 1.0 / 479001600, 1.0 / 6227020800};
    double const twos = std::floor(exponent / ln2 + 0.5);
    double const upper = exponent - twos * ln2Upper;
    double const lower = twos * ln2Lower;
    double const small = upper - lower;
    return std::ldexp(1 + (upper - (lower - small * small * polynomial(series, small))), int(twos));
}

double powerOfTen(double exponent)
{
    double const nearest = std::floor(exponent + 0.5);
    return timesPowerOfTen(exponential((exponent - nearest) * ln10), int(nearest));
}

double cosineOfTurns(double turns)
{
    double const quarters = std::floor(4 * turns + 0.5);
    double const small = (turns - quarters / 4) * twoPi;
    switch (static_cast<unsigned int>(int(quarters)) & 3U) {
    case 0:
        return smallCosine(small);
    case 1:
        return -smallSine(small);
    case 2:
        return -smallCosine(small);
    default:
        return smallSine(small);
    }
}
