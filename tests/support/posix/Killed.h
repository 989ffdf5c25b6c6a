// SPDX-License-Identifier: BSD-3-Clause
// A process that is killed at a moment that it does not know.
#pragma once

#include <csignal>
#include <cstdlib>
#include <ctime>

namespace Killed
{
/** Lets the system kill this process after some time, whatever it does then. */
inline void after(long nanoseconds)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    itimerspec const moment{{0, 0}, {nanoseconds / 1000000000, nanoseconds % 1000000000}};
    if (::timer_create(CLOCK_MONOTONIC, &event, &timer) != 0 ||
        ::timer_settime(timer, 0, &moment, nullptr) != 0) {
        std::_Exit(99);
    }
}
} // namespace Killed
