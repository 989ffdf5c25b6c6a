// SPDX-License-Identifier: BSD-3-Clause
// The clocks of the system.
#include "ProcessorTime.h"

#include <windows.h>

namespace
{

double secondsOf(FILETIME const & time)
{
    constexpr double ticks = 1e7; // a second
    return (double(time.dwHighDateTime) * 4294967296.0 + double(time.dwLowDateTime)) / ticks;
}

} // namespace

double threadSeconds()
{
    FILETIME created, ended, inSystem, inUser;
    GetThreadTimes(GetCurrentThread(), &created, &ended, &inSystem, &inUser);
    return secondsOf(inSystem) + secondsOf(inUser);
}

double processSeconds()
{
    FILETIME created, ended, inSystem, inUser;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &inSystem, &inUser);
    return secondsOf(inSystem) + secondsOf(inUser);
}
