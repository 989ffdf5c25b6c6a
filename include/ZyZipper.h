// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking of whole files and directory trees.
#pragma once

#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyZipArchive.h>

#include <functional>

/**
 * Packs a file or a directory tree into a zip archive, and unpacks an archive.
 *
 * By default entry names are stored and looked up with backslashes, as ZyZipArchive tells;
 * ZyZipArchive::Portable makes archives that every zip program understands, and unpacks theirs.
 *
 * Memory does not grow with the size or (but for their names) the number of files. There is no limit to what
 * an archive may unfold to: the disk is the caller's to guard.
 *
 * \code
 * ZyZipper::Zip("results.zip", "C:/runs/7/", ZyZipArchive::Portable);
 * ZyZipper::Unzip("results.zip", "C:/copy/", ZyZipArchive::Portable);
 * \endcode
 */
class ZYCORE_EXPORT ZyZipper
{
public:
    /** Told of the bytes done so far and of all that are to be done; false stops the work. */
    using Progress = std::function<bool(unsigned long long done, unsigned long long total)>;

    /**
     * Packs \a source into a new archive: a file under its bare name, a directory with every file below it
     * under its path from there. Directories themselves, and on POSIX files whose name begins with a dot, are
     * not stored.
     *
     * \deliberate{zip-packs-text} Files are read through ZyFile, which is made for text: in content with zero bytes, what
     * stands between such a byte and the end of its block of 16,384 bytes is lost.
     *
     * When an exception ends the work, what was written of the archive stays.
     *
     * \throws ZyInvalidPathException the archive cannot be created
     * \throws ZyFileNotFoundException, ZyCannotOpenFileException a file cannot be read
     * \throws ZyInvalidCallException the archive cannot be written, as ZyZipFile tells; or \a source is a directory
     * given by a relative path, as ZyFilePath::relative tells
     * \throws ZyInvalidParameterException an entry cannot be made, as ZyZipArchive::open tells
     */
    static void Zip(ZyFilePath const & archive, ZyFilePath const & source,
                    ZyZipArchive::EntryNames names = ZyZipArchive::Native);
    /**
     * The same with news of the progress: once at the start, then after each block. Stopping removes the
     * archive.
     * \throws ZyUserCancelledException \a progress returned false
     */
    static void Zip(ZyFilePath const & archive, ZyFilePath const & source, Progress const & progress,
                    ZyZipArchive::EntryNames names = ZyZipArchive::Native);
    /**
     * Unpacks all entries below \a target, making the directories that are missing. Existing files are
     * overwritten.
     *
     * Before anything is created, an archive is refused that holds a name which would leave the target, or a
     * drive or network root. After its last byte a file is checked against the checksum in the archive. An
     * entry that is a directory becomes one with ZyZipArchive::Portable, and cannot be opened for writing
     * otherwise.
     *
     * \throws ZyFileException \a target does not end in a separator: "Cannot unzip as target path is not a directory"
     * \throws ZyFileNotFoundException there is no such archive
     * \throws ZyInvalidPathException the archive cannot be opened or lists no entry (path of the archive); a name is
     * refused (path of the entry)
     * \throws ZyInvalidParameterException an entry cannot be opened, as ZyZipArchive::open tells
     * \throws ZyInvalidCallException an entry cannot be read, as ZyZipFile tells; its checksum is wrong:
     * "ZyZipFile read failed: Unzip CRC error"
     * \throws ZyCannotOpenFileException a file cannot be created
     * \throws ZyIOException a file cannot be written: "Error occurred on writing to file"
     */
    static void Unzip(ZyFilePath const & archive, ZyFilePath const & target,
                      ZyZipArchive::EntryNames names = ZyZipArchive::Native);
    /**
     * The same with news of the progress: once at the start, then after each block. Stopping removes the file
     * under way; those before it stay.
     * \throws ZyUserCancelledException \a progress returned false
     */
    static void Unzip(ZyFilePath const & archive, ZyFilePath const & target, Progress const & progress,
                      ZyZipArchive::EntryNames names = ZyZipArchive::Native);

private:
    ZyZipper();
    ~ZyZipper() = default;
};
