// SPDX-License-Identifier: BSD-3-Clause
// The functions of ZyMaths that run under the guard of arithmetic, and the two conversions beside them.
#include <ZyMaths.h>

#include "Misc/ZyMathsGuard_p.h"
#include "Platform/ArithmeticFaults.h"

#include <ZyException.h>

#include <cmath>

namespace
{
using ZyPlatform::judged;

/** A NaN is in no range. */
void checkUnitRange(double value)
{
    if (!(value >= -1.0 && value <= 1.0)) {
        throw ZyDomainException(value, -1.0, 1.0);
    }
}
} // namespace

double ZyMaths::Trigonometry::ArcCosine(double const & x)
{
    checkUnitRange(x); // outside of the guard, which would turn the exception into a plain one
    return ZyMathsGuard::Run([&x] { return judged(std::acos(x), x); });
}

double ZyMaths::Trigonometry::ArcSine(double const & x)
{
    checkUnitRange(x);
    return ZyMathsGuard::Run([&x] { return judged(std::asin(x), x); });
}

double ZyMaths::Trigonometry::Cosecant(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / judged(std::sin(x), x); });
}

double ZyMaths::Trigonometry::Secant(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / judged(std::cos(x), x); });
}

double ZyMaths::Trigonometry::Cotangent(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / judged(std::tan(x), x); });
}

double ZyMaths::Trigonometry::DegToRad(double const & x)
{
    return x * 0.017453292519943295;
}

double ZyMaths::Trigonometry::RadToDeg(double const & x)
{
    return x * 57.29577951308232;
}

double ZyMaths::Hyperbolic::Cosh(double const & x)
{
    return ZyMathsGuard::Run([&x] { return judged(std::cosh(x), x); });
}

double ZyMaths::Hyperbolic::Sinh(double const & x)
{
    return ZyMathsGuard::Run([&x] { return judged(std::sinh(x), x); });
}

double ZyMaths::Power::Sqrt(double const & x)
{
    return ZyMathsGuard::Run([&x] { return judged(std::sqrt(x), x); });
}

double ZyMaths::Power::Pow(double const & base, double const & exponent)
{
    return ZyMathsGuard::Run([&base, &exponent] { return judged(std::pow(base, exponent), base, exponent); });
}

double ZyMaths::Power::Pow(double const & base, int exponent)
{
    return ZyMathsGuard::Run([&base, exponent] {
        double const power = exponent;
        return exponent == 2 ? base * base : judged(std::pow(base, power), base, power);
    });
}
