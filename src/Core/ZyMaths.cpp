// SPDX-License-Identifier: BSD-3-Clause
// Comparison of doubles and the random numbers of the process.
#include <ZyMaths.h>

#include <Core/ZyMathsRandom_p.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <exception>
#include <limits>
#include <random>

// Hosts may hand the constants on by reference. Not every compiler puts one into a library of Windows unless
// it is used there.
extern double const * const zyMathsConstants[];
double const * const zyMathsConstants[] = {&ZyMaths::PI, &ZyMaths::PI_2};

bool ZyMaths::Double::Equal(double const & a, double const & b)
{
    return Equal(a, b, std::numeric_limits<double>::epsilon(), 10);
}

bool ZyMaths::Double::Equal(double const & a, double const & b, double const & epsilon, int ulp)
{
    double const difference = std::fabs(a - b);
    return difference < std::fabs(a + b) * epsilon * ulp || difference < std::numeric_limits<double>::min();
}

namespace
{
/** The system's random number; without one, the clock and where the library happens to lie: loading must not
 * fail. */
std::uint32_t seed()
{
    try {
        return static_cast<std::uint32_t>(std::random_device()());
    } catch (std::exception const &) {
        static char const anchor = 0;
        auto const now =
            static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
        std::uint64_t const mixed = (now ^ reinterpret_cast<std::uintptr_t>(&anchor)) * 0x9E3779B97F4A7C15u;
        return static_cast<std::uint32_t>(mixed >> 32);
    }
}
} // namespace

ZyRandom::Engine & ZyRandom::ProcessEngine()
{
    static Engine engine(seed()); // local, so that it is ready for static objects of other sources too
    return engine;
}

int ZyMaths::Random::Integer(int low, int high)
{
    return ZyRandom::Integer(ZyRandom::ProcessEngine(), low, high);
}

double ZyMaths::Random::Double(double const & low, double const & high)
{
    return ZyRandom::Double(ZyRandom::ProcessEngine(), low, high);
}

std::complex<double> ZyMaths::Random::Complex()
{
    return ZyRandom::Complex(ZyRandom::ProcessEngine());
}

ZyUniquePtr<ZyVector<double>> ZyMaths::Random::NormalDistribution(double const & mean, double const & sigma,
                                                                  unsigned int count)
{
    return ZyRandom::NormalDistribution(ZyRandom::ProcessEngine(), mean, sigma, count);
}
