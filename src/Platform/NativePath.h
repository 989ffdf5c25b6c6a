// SPDX-License-Identifier: BSD-3-Clause
// The border between paths in stored form, which is one for all systems, and the spelling of this system.
// Every path that is handed to the system or to a library that opens files goes through here, and nothing
// else turns separators for that purpose.
#pragma once

#include <ZyFilePath.h>

#include <QString>

#include <filesystem>
#include <string>

/**
 * White space at the ends is taken off once more, since an unchecked path may have it. The system would take
 * a NUL for the end of a path and act on another file, so a path that holds one is refused.
 *
 * \throws ZyInvalidPathException the path holds a NUL
 */
namespace NativePath
{
/** The path in UTF-8 (for the system: in the bytes that were stored), with the system's separators. */
std::string narrow(ZyFilePath const & path);

/** The path as the standard library's file operations and file streams take it. */
std::filesystem::path standard(ZyFilePath const & path);

/** The path as Qt's file classes take it, with slashes; bytes that are no UTF-8 are lost. */
QString qt(ZyFilePath const & path);

/**
 * The text of a path that the standard library gave, UTF-8, not normalised.
 * \throws std::range_error "bad conversion": wide text that is not well-formed
 */
std::string textOf(std::filesystem::path const & path);

/**
 * Makes one directory that only the user of this process may enter.
 *
 * \return false when it is there already, as a directory
 * \throws std::filesystem::filesystem_error it cannot be made
 */
bool createPrivateDirectory(ZyFilePath const & path);

/**
 * Removes a file, or a directory with all that is in it; of a link the link alone.
 *
 * \param path as standard() gives it
 * \return false when there is no such thing
 * \throws std::filesystem::filesystem_error something cannot be removed; what stands behind it is still there
 */
bool removeTree(std::filesystem::path const & path);
} // namespace NativePath
