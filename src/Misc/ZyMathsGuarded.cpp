// SPDX-License-Identifier: BSD-3-Clause
// The functions of ZyMaths that run under the guard of arithmetic, and the two conversions beside them.
#include <ZyMaths.h>

#include "Misc/ZyMathsGuard_p.h"

#include <ZyException.h>

#include <cmath>

namespace
{
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
    return ZyMathsGuard::Run([&x] { return std::acos(x); });
}

double ZyMaths::Trigonometry::ArcSine(double const & x)
{
    checkUnitRange(x);
    return ZyMathsGuard::Run([&x] { return std::asin(x); });
}

double ZyMaths::Trigonometry::Cosecant(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / std::sin(x); });
}

double ZyMaths::Trigonometry::Secant(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / std::cos(x); });
}

double ZyMaths::Trigonometry::Cotangent(double const & x)
{
    return ZyMathsGuard::Run([&x] { return 1.0 / std::tan(x); });
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
    return ZyMathsGuard::Run([&x] { return std::cosh(x); });
}

double ZyMaths::Hyperbolic::Sinh(double const & x)
{
    return ZyMathsGuard::Run([&x] { return std::sinh(x); });
}

double ZyMaths::Power::Sqrt(double const & x)
{
    return ZyMathsGuard::Run([&x] { return std::sqrt(x); });
}

double ZyMaths::Power::Pow(double const & base, double const & exponent)
{
    return ZyMathsGuard::Run([&base, &exponent] { return std::pow(base, exponent); });
}

double ZyMaths::Power::Pow(double const & base, int exponent)
{
    return ZyMathsGuard::Run([&base, exponent] {
        return exponent == 2 ? base * base : std::pow(base, static_cast<double>(exponent));
    });
}
