// SPDX-License-Identifier: BSD-3-Clause
// The side of the support library that hosts and tests see. The foundation library itself does not include
// it.
#pragma once

#include <keelbase/KbTypes.h>

#include <cstddef>
#include <functional>
#include <string>

namespace kb
{

/**
 * Chooses where sp_GetTempFile() puts its paths, for the whole process.
 *
 * \param path UTF-8, with or without a final slash; null or empty: the system's temporary directory again,
 * which is what TMPDIR names, or "/tmp" when that is no directory \threads any
 */
KB_API void SetTempDirectory(char const * path);

/**
 * Replaces what sp_GetGUID() gives, for the whole process.
 *
 * \param source called for every identifier, without a lock; empty: unique identifiers again
 * \threads any
 */
KB_API void SetGuidSource(std::function<std::string()> source);

/**
 * Replaces what sp_StackAvail() gives, for the whole process.
 *
 * \param source called for every reading, without a lock; empty: the real readings again
 * \threads any
 */
KB_API void SetStackAvail(std::function<std::size_t()> source);

} // namespace kb
