// SPDX-License-Identifier: BSD-3-Clause
// Quoted in docs/guide-values.md.
#include <ZyCore.h>

#include <iostream>

int main()
{
    // What a plain function would answer with a NaN is an exception.
    std::cout << ZyMaths::Power::Pow(2.0, 0.5) << '\n';
    try {
        ZyMaths::Power::Sqrt(-1.0);
    } catch (ZyMathsException const & failure) {
        std::cout << failure.name() << ": " << failure.message().c_str() << '\n';
    }
    try {
        ZyMaths::Trigonometry::ArcSine(1.5);
    } catch (ZyDomainException const & failure) {
        std::cout << failure.message().c_str() << '\n';
    }

    // Samples in bins of equal width.
    ZyHistogram const histogram(ZyVector<double>{0, 1, 2, 3, 4}, 2);
    ZyVector<double> density;
    histogram.calculateProbabilityDensity(density);
    unsigned int index = 0;
    for (ZyHistogram::Bin const & bin : histogram) {
        std::cout << bin.minimum() << " to " << bin.maximum() << ": " << bin.frequency() << ", "
                  << density[index++] << '\n';
    }
    std::cout << "entropy " << histogram.calculateEntropyEstimate() << '\n';

    // Colours for drawing them.
    ZyColour const bars = ZyColour(ZyColour::Blue).lighter(0.5);
    std::cout << bars.toString().c_str() << '\n';
}
