// SPDX-License-Identifier: BSD-3-Clause
// What tests ask the system to do in its own way.
#pragma once

#include <stdlib.h>

#include <string>

namespace Environment
{
/** The variable that names the directory for temporary files. */
constexpr char const * temporary = "TMP";

/** Writes numbers with a comma. */
constexpr char const * germanLocale = "German_Germany.1252";

/** Sets a variable, or takes it away with null. */
inline void set(char const * name, char const * value)
{
    ::_putenv_s(name, value != nullptr ? value : "");
}

/** There are no pipes in the file system. */
inline bool makePipe(std::string const &)
{
    return false;
}

/** Whether a process has ended itself as unfit to go on, for the use in EXPECT_EXIT. */
inline bool endsByAbort(int code)
{
    return code == 3;
}
} // namespace Environment
