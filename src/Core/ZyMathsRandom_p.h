// SPDX-License-Identifier: BSD-3-Clause
// The random draws as functions of a generator: the process uses its own one, tests use one whose seed they
// know. Results do not depend on the standard library's distributions, which every vendor writes differently.
#pragma once

#include <ZyExport.h>
#include <ZyUniquePtr.h>
#include <ZyVector.h>

#include <cmath>
#include <complex>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace ZyRandom
{
using Engine = std::mt19937;

/** The generator of the process, seeded once while the library is loaded. Not locked. Exported for our tests.
 */
ZYCORE_EXPORT Engine & ProcessEngine();

/** A number from 0 up to but not including 1, of two outputs, the low half first. */
inline double Unit(Engine & engine)
{
    double const low = static_cast<double>(engine());
    double const high = static_cast<double>(engine());
    double const unit = (low + high * 4294967296.0) / 18446744073709551616.0;
    return unit < 1.0 ? unit : std::nextafter(1.0, 0.0); // the largest pairs of outputs round to 1
}

/** The sum in unsigned arithmetic, which may wrap, read as a signed number again. */
inline int Offset(int low, std::uint32_t steps)
{
    return static_cast<int>(static_cast<std::uint32_t>(low) + steps);
}

inline int Integer(Engine & engine, int low, int high)
{
    std::uint32_t const all = 0xFFFFFFFFu;
    std::uint32_t const range = static_cast<std::uint32_t>(high) - static_cast<std::uint32_t>(low);
    if (range == 0) {
        return low;
    }
    if (range == all) {
        return Offset(low, static_cast<std::uint32_t>(engine()));
    }
    std::uint32_t const n = range + 1;
    bool const even = all % n == range;
    std::uint32_t drawn = static_cast<std::uint32_t>(engine());
    while (!even && drawn / n >= all / n) {
        drawn = static_cast<std::uint32_t>(engine());
    }
    return Offset(low, drawn % n);
}

inline double Double(Engine & engine, double low, double high)
{
    return low + (high - low) * Unit(engine);
}

inline std::complex<double> Complex(Engine & engine)
{
    double const imaginary = Unit(engine);
    double const real = Unit(engine);
    return std::complex<double>(real, imaginary);
}

/** Two independent normal deviates, in the order in which they are used. */
struct NormalPair
{
    explicit NormalPair(Engine & engine)
    {
        double square = 0.0;
        do {
            first = 2.0 * Unit(engine) - 1.0;
            second = 2.0 * Unit(engine) - 1.0;
            square = first * first + second * second;
        } while (square >= 1.0 || square == 0.0);
        double const factor = std::sqrt(-2.0 * std::log(square) / square);
        first *= factor;
        second *= factor;
    }

    double first;
    double second;
};

inline ZyUniquePtr<ZyVector<double>> NormalDistribution(Engine & engine, double mean, double sigma,
                                                        unsigned int count)
{
    if (count > 0x1FFFFFFFu) {
        ZyThrow::LengthError("vector::reserve");
    }
    ZyUniquePtr<ZyVector<double>> numbers(new ZyVector<double>);
    std::vector<double> & values = numbers->std_vector();
    values.reserve(count);
    while (values.size() < count) {
        NormalPair const pair(engine);
        values.push_back(pair.first * sigma + mean);
        if (values.size() < count) {
            values.push_back(pair.second * sigma + mean);
        }
    }
    return numbers;
}

/** Characters of the alphabet, each with the same probability. The alphabet is not empty. */
inline std::string Text(Engine & engine, unsigned int length, std::string_view alphabet)
{
    std::string text;
    text.reserve(length);
    for (unsigned int i = 0; i < length; ++i) {
        text += alphabet[static_cast<std::size_t>(Integer(engine, 0, static_cast<int>(alphabet.size()) - 1))];
    }
    return text;
}
} // namespace ZyRandom
