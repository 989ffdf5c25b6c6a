// SPDX-License-Identifier: BSD-3-Clause
// What a child process of a test may be denied: a large file, the rights of root, threads. For use in
// EXPECT_EXIT.
#pragma once

#include "ChildExit.h"

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <fstream>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Restricted
{
/** Lets every write beyond a size of its file fail, as on a full disk. */
inline void limitFileSize(unsigned long bytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit const limit = {bytes, bytes};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        std::_Exit(98);
    }
}

/** Gives up the rights of root; nothing for another user. */
inline void dropRights()
{
    constexpr unsigned nobody = 65534;
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) {
        std::_Exit(97);
    }
}

/** Lets no further thread be started. Gives up the rights of root, which no such limit binds. */
inline void denyThreads()
{
    dropRights();
    rlimit const limit = {1, 1};
    if (::setrlimit(RLIMIT_NPROC, &limit) != 0) {
        std::_Exit(96);
    }
}

/**
 * Lets one further thread be started and no more: of the memory that is left its stack takes more than half.
 * The threads that are there already keep their small ones.
 */
inline void allowOneMoreThread()
{
    constexpr std::size_t stackSize = std::size_t(1) << 31;
    static bool const limited = [] {
        pthread_attr_t attributes;
        std::ifstream sizes("/proc/self/statm");
        std::size_t pages = 0;
        sizes >> pages;
        rlim_t const used = pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
        rlimit const limit = {used + stackSize / 2 * 3, used + stackSize / 2 * 3};
        return ::pthread_attr_init(&attributes) == 0 && sizes &&
               ::pthread_attr_setstacksize(&attributes, stackSize) == 0 &&
               ::pthread_setattr_default_np(&attributes) == 0 && ::setrlimit(RLIMIT_AS, &limit) == 0;
    }();
    if (!limited) {
        std::_Exit(95);
    }
}
} // namespace Restricted
