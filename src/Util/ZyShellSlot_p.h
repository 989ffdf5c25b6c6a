// SPDX-License-Identifier: BSD-3-Clause
// The slot for the function of the host that gives its shell.
#pragma once

#include <keelbase/KbShell.h>

namespace ZyShellSlot
{
constexpr char const * name = "widgets_GetShellInterface";

/** Set before any code runs, to a stub that says that the function is missing. Called without a test. */
extern ShellFunction function;
} // namespace ZyShellSlot
