// SPDX-License-Identifier: BSD-3-Clause
// The clocks of the system.
#include "ProcessorTime.h"

#include <ctime>

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
