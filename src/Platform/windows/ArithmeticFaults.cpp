// SPDX-License-Identifier: BSD-3-Clause
// The arithmetic state by the flags of the C library and by the translator of structured exceptions, where
// the compiler has one.
#include "Platform/ArithmeticFaults.h"

#include "Misc/ZyMathsGuard_p.h"

#include <cerrno>
#include <cmath>

#ifdef _MSC_VER

namespace
{
void translate(unsigned int code, struct _EXCEPTION_POINTERS *)
{
    ZyMathsGuard::Translate(code);
}
} // namespace

ZyPlatform::ArithmeticFaults::ArithmeticFaults() : m_previous(_set_se_translator(translate))
{
    std::feclearexcept(FE_ALL_EXCEPT);
}

void ZyPlatform::ArithmeticFaults::restoreTranslator()
{
    _set_se_translator(m_previous);
}

#else

ZyPlatform::ArithmeticFaults::ArithmeticFaults()
{
    std::feclearexcept(FE_ALL_EXCEPT);
}

void ZyPlatform::ArithmeticFaults::restoreTranslator() {}

#endif

int ZyPlatform::ArithmeticFaults::raised() const
{
    // One by one: here all of them include another, which is no failure.
    return std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW | FE_UNDERFLOW | FE_INEXACT);
}

#ifdef __MINGW32__
double ZyPlatform::judged(double result, double first, double second)
{
    errno = 0;
    double const volatile argument = first; // one that signals raises a flag where it is used
    double const volatile sum = argument + second;
    bool const isFinite = std::isfinite(first) && std::isfinite(second);
    if (std::isnan(result)) {
        if (!std::isnan(first) && !std::isnan(second)) {
            std::feraiseexcept(FE_INVALID);
        }
    } else if (std::isinf(result)) {
        if (isFinite && std::fetestexcept(FE_OVERFLOW) == 0) {
            std::feraiseexcept(FE_DIVBYZERO);
        }
    } else if (isFinite && std::fpclassify(result) == FP_SUBNORMAL) {
        std::feraiseexcept(FE_UNDERFLOW);
    }
    static_cast<void>(sum);
    return result;
}
#endif
