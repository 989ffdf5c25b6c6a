// SPDX-License-Identifier: BSD-3-Clause
// Comparison of doubles with a tolerance, the random numbers of the process, and functions whose failures are
// exceptions.
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
 * double const root = ZyMaths::Power::Sqrt(2.0);    // Sqrt(-1.0) throws where std::sqrt is silent
 * \endcode
 *
 * The functions of Trigonometry, Hyperbolic and Power are guarded, the two conversions of angles excepted: a
 * failure of the arithmetic is never silent. The flags of the processor and errno are cleared first, looked
 * at afterwards, and then tell of this call alone. The flags decide, in this order:
 *
 * - FE_INVALID: ZyInvalidOperationMathsException "Invalid operation"
 * - FE_DIVBYZERO: ZyDivideByZeroException "Divide by zero"
 * - FE_OVERFLOW: ZyOverflowException "Overflow - result too large"
 * - FE_UNDERFLOW: ZyUnderflowException "Underflow - result too small"
 * - FE_INEXACT alone: the result is good, as it is with no flag and errno 0
 * - no flag, and errno EDOM: ZyInvalidOperationMathsException; any other errno: ZyMathsException "Maths
 * error"
 *
 * An argument that is infinite or NaN is no failure by itself: only an operation that raises a flag is. Very
 * small arguments can underflow on the way to a good result, which fails as well.
 *
 * A guarded call is for any thread. Where the host lets the processor trap on arithmetic, trapping is held
 * off during the call. Expect the cost of the plain function and about 25 ns.
 */
class ZYCORE_EXPORT ZyMaths
{
public:
    /** The ratio of a circle's circumference to its diameter. */
    static constexpr double PI = 3.141592653589793;
    /** Half of it, a right angle. */
    static constexpr double PI_2 = 1.5707963267948966;

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
        /**
         * Both parts from 0 up to but not including 1.
         *
         * \deliberate{complex-draws-its-imaginary-part-first} The first number drawn is the imaginary part: the
         * order belongs to the sequence of the generator.
         */
        static std::complex<double> Complex();
        /**
         * Normally distributed numbers by the polar method. The second deviate of the last pair is dropped
         * when \a count is odd, and not kept for the next call.
         *
         * \param mean the mean of the distribution
         * \param sigma its standard deviation
         * \param count how many numbers; 0 draws nothing
         * \return \a count numbers, owned by the caller
         * \throws std::length_error \a count is above 536,870,911
         */
        static ZyUniquePtr<ZyVector<double>> NormalDistribution(double const & mean, double const & sigma,
                                                                unsigned int count);
    };

    /** Functions of angles, which are in radians. Guarded, see ZyMaths, but for the two conversions. */
    class ZYCORE_EXPORT Trigonometry
    {
    public:
        Trigonometry() = delete;

        /**
         * The angle from 0 to PI whose cosine is \a x.
         * \throws ZyDomainException \a x is not from -1 to 1, or NaN: "Value (2) is outside range [-1, 1]", the value as
         *         ZyString::ToString gives it
         */
        static double ArcCosine(double const & x);
        /** The angle from -PI_2 to PI_2 whose sine is \a x. \throws ZyDomainException as ArcCosine() */
        static double ArcSine(double const & x);
        /** 1 / sin(x). \throws ZyDivideByZeroException \a x is 0 */
        static double Cosecant(double const & x);
        /** 1 / cos(x). No double is a zero of the cosine: a right angle gives a large number. */
        static double Secant(double const & x);
        /** 1 / tan(x). \throws ZyDivideByZeroException \a x is 0 */
        static double Cotangent(double const & x);
        /** Degrees to radians. Not guarded. */
        static double DegToRad(double const & x);
        /** Radians to degrees. Not guarded. */
        static double RadToDeg(double const & x);
    };

    /** Hyperbolic functions. Guarded, see ZyMaths. */
    class ZYCORE_EXPORT Hyperbolic
    {
    public:
        Hyperbolic() = delete;

        /** The hyperbolic cosine. \throws ZyOverflowException \a x is finite and beyond about 710.48 on either side */
        static double Cosh(double const & x);
        /** The hyperbolic sine. \throws ZyOverflowException as Cosh() */
        static double Sinh(double const & x);
    };

    /** Powers and roots. Guarded, see ZyMaths. */
    class ZYCORE_EXPORT Power
    {
    public:
        Power() = delete;

        /** The square root. \throws ZyInvalidOperationMathsException \a x is below 0 */
        static double Sqrt(double const & x);
        /**
         * \a base to the power of \a exponent.
         * \throws ZyInvalidOperationMathsException a negative base with an exponent that is no whole number
         * \throws ZyDivideByZeroException base 0 with a negative exponent
         */
        static double Pow(double const & base, double const & exponent);
        /** The same; with the exponent 2 the base times itself. */
        static double Pow(double const & base, int exponent);
    };
};
