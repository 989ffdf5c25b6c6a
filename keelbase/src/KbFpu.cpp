// SPDX-License-Identifier: BSD-3-Clause
// The state of the floating point unit.
#include <keelbase/KbHost.h>
#include <keelbase/KbSystem.h>

#include <atomic>
#include <cfenv>

namespace
{
std::atomic<unsigned> resets = 0;
}

void sp_ResetFpu()
{
    std::fesetenv(FE_DFL_ENV);
    ++resets;
}

unsigned kb::ResetFpuCount()
{
    return resets;
}
