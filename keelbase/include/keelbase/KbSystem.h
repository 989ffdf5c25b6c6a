// SPDX-License-Identifier: BSD-3-Clause
// What the suite asks of the operating system.
#pragma once

#include <keelbase/YString.h>

#include <cstddef>
#include <cstdio>

/**
 * The path, in UTF-8 and with forward slashes, of a file that does not exist yet: in the temporary directory,
 * named "zy_", 16 random hexadecimal digits, ".tmp". Nothing is created, and the name cannot be guessed.
 *
 * \throws std::runtime_error the system gives no random bytes
 * \threads any
 */
KB_API YString sp_GetTempFile();

/**
 * A new globally unique identifier of random bits: 36 characters, lower case, four hyphens, no braces. None
 * comes twice, in a child process of fork() neither.
 *
 * \throws std::runtime_error the system gives no random bytes
 * \threads any
 */
KB_API YString sp_GetGUID();

/**
 * The free bytes of the calling thread's stack: 0 outside of it (on a signal stack, in a fiber), a huge
 * number where the stack has no limit or the system does not tell it.
 *
 * \threads any; the first reading of a thread is slow, as the system's table of memory is read for it
 */
KB_API std::size_t sp_StackAvail();

/**
 * Opens a file as std::fopen does, by a path in UTF-8 with slashes of either kind. Child processes do not
 * inherit it. Text mode changes line ends only where the system does.
 *
 * \return null when it cannot be opened
 * \threads any
 */
KB_API std::FILE * fopen_s_utf8(YString const & path, char const * mode);

/** The last component of a path: what stands behind the last slash of either kind. Null counts as empty. */
KB_API YString sp_GetFileName(char const * path);

/**
 * Puts the calling thread's floating point unit into the default state: no flags, no traps, rounding to
 * nearest.
 *
 * \threads any
 */
KB_API void sp_ResetFpu();
