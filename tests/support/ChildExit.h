// SPDX-License-Identifier: BSD-3-Clause
// How a child process of a test tells what it has found. For use in EXPECT_EXIT.
#pragma once

#include <cstdlib>

namespace Restricted
{
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
