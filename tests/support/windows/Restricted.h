// SPDX-License-Identifier: BSD-3-Clause
// What a child process of a test may be denied. Windows denies nothing of it in these ways: tests that need
// it are left out (tests/windows/left-out.txt), and fail where they are run all the same.
#pragma once

#include "ChildExit.h"

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
} // namespace Restricted
