// SPDX-License-Identifier: BSD-3-Clause
// The clocks of the systems.

#include "ProcessorTime.h"

#include <ctime>

#ifdef _WIN32
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
#else
namespace
{

double secondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

} // namespace

double threadSeconds()
{
    return secondsOf(CLOCK_THREAD_CPUTIME_ID);
}

double processSeconds()
{
    return secondsOf(CLOCK_PROCESS_CPUTIME_ID);
}
#endif
