// SPDX-License-Identifier: BSD-3-Clause
// The side of the support library that hosts and tests see. The foundation library itself does not include
// it.
#pragma once

#include <keelbase/KbTypes.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

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

/** Something that a library has registered. */
struct Registration
{
    std::string name;    ///< as the library spells it
    std::string tag;     ///< the source that registers
    int line = 0;        ///< the line there
    bool filled = false; ///< whether the host has given it a value
};

/** The options that are registered now, in the order of their registration. \threads any */
KB_API std::vector<Registration> Options();

/** Gives an option its value, before or after it is registered. \threads any */
KB_API void SetOption(char const * name, bool value);

/** Takes all given values away again; the registrations stay. \threads any */
KB_API void ClearOptions();

/** How often sp_ResetFpu() has been called in this process. \threads any */
KB_API unsigned ResetFpuCount();

} // namespace kb
