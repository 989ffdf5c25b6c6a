// SPDX-License-Identifier: BSD-3-Clause
// The operations on the disk.
#pragma once

#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyTypes.h>

#include <functional>

// The headers of the home platform define the name as a macro.
#pragma push_macro("CreateDirectory")
#undef CreateDirectory

/**
 * Operations on the disk, the one place where paths leave the world of text.
 *
 * A failure of the system is a ZyFileException with the words and paths of the standard library, except at
 * IsDirectory(), which lets the standard std::filesystem::filesystem_error out. A path that holds a NUL is
 * refused everywhere with ZyInvalidPathException. Only OpenDirectory() and OpenFile() tell of no failure at
 * all.
 *
 * \threads any, where nothing else is said
 */
class ZYCORE_EXPORT ZyFileSystem
{
public:
    ZyFileSystem() = delete;

    /**
     * Makes a directory; with \a parents also what is missing above it.
     *
     * \return whether one was made; false when it is there already
     * \throws ZyFileException it cannot be made, or a file has the name
     * \throws ZyBadAllocException memory ran out
     */
    static bool CreateDirectory(ZyFilePath const & path, bool parents);
    /** Whether there is a file or directory. \throws ZyFileException the system cannot tell */
    static bool Exists(ZyFilePath const & path);
    /**
     * Whether there is a directory; not the test of the spelling that ZyFilePath makes.
     *
     * \deliberate{is-directory-lets-standard-errors-out} The one operation whose failure is not translated into a
     * ZyFileException.
     *
     * \throws std::filesystem::filesystem_error the system cannot tell
     */
    static bool IsDirectory(ZyFilePath const & path);
    /** The size of a file, bytes. \throws ZyFileException there is none */
    static unsigned __int64 FileSize(ZyFilePath const & path);
    /**
     * Removes one file, link or empty directory.
     *
     * \return whether there was something to remove
     * \throws ZyFileException it cannot be removed, or a directory is not empty
     */
    static bool Remove(ZyFilePath const & path);
    /**
     * Removes a file, or a directory with all that is in it. Of a link, also one to a directory and spelled
     * as one, the link is removed and not what it points at.
     *
     * \return whether there was something to remove
     * \throws ZyFileException something cannot be removed; part of the tree may be gone
     */
    static bool RemoveAll(ZyFilePath const & path);
    /** The system's directory for temporary files, with a final separator. \throws ZyFileException there is none */
    static ZyFilePath TempDirectory();
    /**
     * Calls \a visit for what is in a directory: directories, with a final separator, before their content,
     * and files; siblings in the order of the disk.
     *
     * Paths begin with \a path as it stands. Nothing is told of dot names, broken links, pipes and names that
     * are no UTF-8. A link to a directory comes as a directory and is entered only with \a followLinks; each
     * directory is entered once. Exceptions of \a visit pass through and end the walk.
     *
     * \deliberate{walk-reports-no-failure} What cannot be read, or is no directory, has no content, and nothing is thrown:
     * a walk goes on beside it.
     */
    static void ForEachFile(ZyFilePath const & path, bool recursive, bool followLinks,
                            std::function<void(ZyFilePath &&)> visit);

    /**
     * Shows a directory in the file manager of the desktop: the path itself when it ends with a separator,
     * else what stands in front of its last segment. A desktop that cannot do it goes unnoticed.
     *
     * \threads the thread of the user interface
     */
    static void OpenDirectory(ZyFilePath const & path);
    /**
     * Hands a file to the host, as the command of its kind (ZyFileType) with the stored text of the path.
     * Nothing happens, and nothing is told, when there is no such file, it is a directory, or its kind has no
     * command; neither when the host fails (ZyCommandShell::RunCommand).
     *
     * \deliberate{apostrophes-in-braces-only} Schematics, components and symbol libraries are named between braces and
     * apostrophes, of which those in the path are doubled; all others between double quotes as they are, for
     * the host reads them so. A path with a double quote, a line break or a NUL would end its argument, and
     * is not handed on.
     *
     * \threads as ZyCommandShell::RunCommand
     */
    static void OpenFile(ZyFilePath const & path);
};

#pragma pop_macro("CreateDirectory")
