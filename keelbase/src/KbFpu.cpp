// SPDX-License-Identifier: BSD-3-Clause
// The state of the floating point unit.
#include <keelbase/KbHost.h>
#include <keelbase/KbSystem.h>

#include <atomic>
#include <cfenv>

#ifdef __MINGW32__
#include <xmmintrin.h>
#endif

namespace
{
std::atomic<unsigned> resets = 0;
}

void sp_ResetFpu()
{
    std::fesetenv(FE_DFL_ENV);
#ifdef __MINGW32__
    _mm_setcsr(0x1F80); // which the library of this compiler leaves as it is
#endif
    ++resets;
}

unsigned kb::ResetFpuCount()
{
    return resets;
}
