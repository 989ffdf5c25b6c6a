// SPDX-License-Identifier: BSD-3-Clause
// Files that arrive complete or not at all.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class QIODevice;
class ZyString;
class ZyTemporaryFile;

/**
 * Writes a file that takes its name whole or not at all: what is written goes to a temporary file beside the
 * target, and close() moves that into place. Whatever happens before leaves an earlier file as it was: a
 * writer that is destroyed, a full disk, a process that is killed.
 *
 * \code
 * ZyFileWriter writer("limits.csv");
 * writer.open();
 * writer.write("A,B\r\n");
 * writer.close(); // from here on the new file is there
 * \endcode
 *
 * A symbolic link stays a link; the file that it names is replaced. A process that is killed while it writes
 * may leave the temporary file behind.
 *
 * Not copyable. \threads one thread at a time
 */
class ZYCORE_EXPORT ZyFileWriter
{
public:
    /**
     * A writer to \a path, which is taken against the working directory of this moment. Nothing happens on
     * the disk.
     * \throws ZyInvalidPathException "Invalid path: " path: it holds a NUL
     */
    explicit ZyFileWriter(ZyString const & path);
    /** A writer to the path of \a file, which is not used later. */
    explicit ZyFileWriter(ZyTemporaryFile const & file);
    ZyFileWriter(ZyFileWriter const &) = delete;
    ZyFileWriter & operator=(ZyFileWriter const &) = delete;
    /** What has not been closed is given up: the target stays as it was, the temporary file goes away. */
    virtual ~ZyFileWriter();

    /**
     * Begins a new file. May be called again after close().
     * \throws ZyFileException "Unable to open file for writing", with the file in path1(): it cannot be
     *         opened, or is open already
     */
    void open();
    /**
     * Writes a text. A failure is not told here but by close().
     *
     * \deliberate{file-writer-cuts-at-nul} The text ends at its first NUL: bytes go through device().
     */
    void write(ZyString const & text);
    /**
     * Puts the new file in the place of the old, on the disk and not only in the memory of the system.
     * \deliberate{every-close-commits} A writer does not remember that it was closed: closing it again
     * without open() throws.
     * \throws ZyFileSaveException "Cannot save [" reason "]", with the file in path1(): this or an earlier
     *         write failed, or nothing is open; the old file is untouched and what was written is gone
     */
    void close();
    /**
     * The device behind, for code that writes through Qt; failures of what it writes are told by close() too.
     * It belongs to the writer. Its own close() ends the process: close the writer instead.
     */
    QIODevice * device() const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
