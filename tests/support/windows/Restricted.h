// SPDX-License-Identifier: BSD-3-Clause
// What a child process of a test may be denied. Windows denies nothing of it in these ways: tests that need
// it are left out (tests/windows/left-out.txt), and fail where they are run all the same.
#pragma once

#include <cstdlib>

namespace Restricted
{
inline void limitFileSize(unsigned long)
{
    std::_Exit(98);
}
inline void dropRights()
{
    std::_Exit(97);
}
inline void denyThreads()
{
    std::_Exit(96);
}
inline void allowOneMoreThread()
{
    std::_Exit(95);
}

/** Ends the process: 0 when the check says true, 1 when false, 2 when anything is thrown. */
template <class Check>
[[noreturn]] void exitWith(Check && check)
{
    int code = 2;
    try {
        code = check() ? 0 : 1;
    } catch (...) {
    }
    std::_Exit(code);
}
} // namespace Restricted
