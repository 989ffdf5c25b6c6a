// SPDX-License-Identifier: BSD-3-Clause
// Numeric primitives: comparison of doubles with a tolerance, and the random numbers of the process.
#pragma once

#include <ZyExport.h>
#include <ZyUniquePtr.h>
#include <ZyVector.h>

#include <complex>

/**
 * Static numeric functions, in groups. Nothing here is ever constructed.
 *
 * \code
 * ZyMaths::Double::Equal(0.1 + 0.2, 0.3);      // true
 * int const dice = ZyMaths::Random::Integer(1, 6);
 * \endcode
 */
class ZYCORE_EXPORT ZyMaths
{
public:
    ZyMaths() = delete;

    /**
     * Comparison of doubles with a relative tolerance. No order follows from it: equality is not transitive,
     * and infinities and NaN are equal to nothing, themselves included.
     */
    class ZYCORE_EXPORT Double
    {
    public:
        Double() = delete;

        /** Equal within 10 units of the double epsilon, 2.220446049250313e-16. */
        static bool Equal(double const & a, double const & b);
        /**
         * Whether |a - b| is below |a + b| * epsilon * ulp, or below the smallest normal
         * double 2.2250738585072014e-308. Both tests are strict. The result holds only where no arithmetic
         * that ignores NaN is switched on.
         */
        static bool Equal(double const & a, double const & b, double const & epsilon, int ulp);
    };

    /**
     * The random numbers of the process, all drawn from one 32-bit Mersenne Twister.
     *
     * The generator is seeded from the system when the library is loaded and cannot be seeded again: results
     * differ from run to run. Not for secrets.
     *
     * \threads the generator is shared and has no lock; callers that draw from several threads keep them
     * apart
     */
    class ZYCORE_EXPORT Random
    {
    public:
        Random() = delete;

        /**
         * A whole number from the closed range, each with the same probability. Equal bounds draw nothing
         * from the generator; with \a low above \a high the range wraps around the 32-bit numbers.
         */
        static int Integer(int low, int high);
        /** low + (high - low) times a number from 0 up to but not including 1; \a low may lie above \a high.
         */
        static double Double(double const & low, double const & high);
        /** Both parts from 0 up to but not including 1. The imaginary part is drawn first. */
        static std::complex<double> Complex();
        /**
         * Normally distributed numbers by the polar method. The second deviate of the last pair is dropped
         * when \a count is odd, and not kept for the next call.
         *
         * \return \a count numbers, owned by the caller
         * \throws std::length_error \a count is above 536,870,911
         */
        static ZyUniquePtr<ZyVector<double>> NormalDistribution(double const & mean, double const & sigma,
                                                                unsigned int count);
    };
};
