// SPDX-License-Identifier: BSD-3-Clause
// The arithmetic state by the flags of the C library and by the translator of structured exceptions, where
// the compiler has one.
#include "Platform/ArithmeticFaults.h"

#include "Misc/ZyMathsGuard_p.h"

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
    return std::fetestexcept(FE_ALL_EXCEPT);
}
