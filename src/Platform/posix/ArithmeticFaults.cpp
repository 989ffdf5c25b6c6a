// SPDX-License-Identifier: BSD-3-Clause
// The arithmetic state by flags alone. Reading and clearing them through the C library costs more than most
// functions that are guarded, a hundred nanoseconds on x86-64: there the two status words are used directly.
#include "Platform/ArithmeticFaults.h"

#include <fenv.h>

#ifdef __x86_64__
#include <xmmintrin.h>

namespace
{
constexpr unsigned int sseMasks = 0x1F80; ///< a bit a fault: set, it raises a flag; clear, it traps
constexpr unsigned int x87Masks = 0x3F;

unsigned int x87Control()
{
    unsigned short word = 0;
    __asm__ __volatile__("fnstcw %0" : "=m"(word));
    return word;
}

unsigned int x87Status()
{
    unsigned short word = 0;
    __asm__ __volatile__("fnstsw %0" : "=a"(word));
    return word;
}

/**
 * Clears the flags, unless the thread traps: then nothing happens. Each word is read once and written only
 * where it has to be: writing that of the x87 unit is the most expensive of all.
 *
 * \return whether the thread traps
 */
bool trapsOrClears()
{
    unsigned int const sse = _mm_getcsr();
    unsigned int const x87 = x87Status();
    if ((sse & sseMasks) != sseMasks || (x87Control() & x87Masks) != x87Masks) {
        return true;
    }
    if ((x87 & FE_ALL_EXCEPT) != 0) {
        std::feclearexcept(FE_ALL_EXCEPT);
    } else if ((sse & FE_ALL_EXCEPT) != 0) {
        _mm_setcsr(sse & ~static_cast<unsigned int>(FE_ALL_EXCEPT));
    }
    return false;
}

int flags()
{
    return static_cast<int>((_mm_getcsr() | x87Status()) & FE_ALL_EXCEPT);
}
} // namespace

#else

namespace
{
/** Clears the flags, unless the thread traps. \return whether it does */
bool trapsOrClears()
{
#ifdef __GLIBC__
    if (fegetexcept() != 0) {
        return true;
    }
#endif
    std::feclearexcept(FE_ALL_EXCEPT);
    return false;
}

int flags()
{
    return std::fetestexcept(FE_ALL_EXCEPT);
}
} // namespace

#endif

ZyPlatform::ArithmeticFaults::ArithmeticFaults() : m_held(trapsOrClears())
{
    if (m_held) {
        std::feholdexcept(&m_environment); // clears the flags too
    }
}

void ZyPlatform::ArithmeticFaults::giveBack()
{
    std::fesetenv(&m_environment);
}

int ZyPlatform::ArithmeticFaults::raised() const
{
    return flags();
}
