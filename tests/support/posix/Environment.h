// SPDX-License-Identifier: BSD-3-Clause
// What tests ask the system to do in its own way.
#pragma once

#include <csignal>
#include <cstdlib>
#include <string>

#include <sys/stat.h>
#include <sys/wait.h>

namespace Environment
{
/** The variable that names the directory for temporary files. */
constexpr char const * temporary = "TMPDIR";

/** Writes numbers with a comma. */
constexpr char const * germanLocale = "de_DE.UTF-8";

/** Sets a variable, or takes it away with null. */
inline void set(char const * name, char const * value)
{
    value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
}

/** Makes a named pipe in the file system. */
inline bool makePipe(std::string const & path)
{
    return ::mkfifo(path.c_str(), 0600) == 0;
}

/** Whether a process has ended itself as unfit to go on, for the use in EXPECT_EXIT. */
inline bool endsByAbort(int status)
{
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
}
} // namespace Environment
