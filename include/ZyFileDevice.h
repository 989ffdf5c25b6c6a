// SPDX-License-Identifier: BSD-3-Clause
// A disk file as a device.
#pragma once

#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyIODevice.h>
#include <ZyPrivateObject.h>

#include <typeinfo>

/**
 * A file on disk behind the device interface, read and written through one buffer with one position. Hosts
 * create a ZyFile.
 *
 * The device is for text. A path that names a directory cannot be opened. What a write leaves in the buffer
 * reaches the disk when the buffer is full or the device is closed.
 *
 * \deliberate{read-write-appends} ReadWrite opens an existing file in append state: it is read from the start, and
 * every write goes to its end, wherever the position stands. A missing file is created.
 *
 * \deliberate{file-close-is-silent} A failure at close() is not reported, nor is one in the destructor, which closes the
 * file without calling close(). Use ZyFileWriter where a file must arrive whole.
 *
 * \deliberate{file-device-cuts-at-nul} A read drops what it has read from the first NUL on, while the position has
 * moved past it. readAll() and readRemaining() read pieces of 128 bytes, readLine() single ones, so that a
 * NUL costs the rest of its piece or just itself.
 *
 * A host's class over this one may replace onRead(): lines and remainders then come through it, a byte and
 * 128 bytes at a time; the library's own classes read them straight from the buffer, with the same result.
 *
 * Not copyable. \threads one thread at a time
 */
class ZYCORE_EXPORT ZyFileDevice : public ZyIODevice
{
public:
    /** The null path, which cannot be opened. */
    ZyFileDevice();
    /** The file at \a path; nothing is opened. */
    explicit ZyFileDevice(ZyFilePath const & path);
    explicit ZyFileDevice(ZyString const & path);
    explicit ZyFileDevice(char const * path);
    ZyFileDevice(ZyFileDevice const &) = delete;
    ZyFileDevice & operator=(ZyFileDevice const &) = delete;
    ~ZyFileDevice() override;

    /** The file, fixed at construction. */
    ZyFilePath const & path() const;

    /**
     * Moves the position, counted from the start; nothing happens in a mode that does not read.
     *
     * \deliberate{one-file-position} The write position moves too: the file has one.
     */
    void seek_read(unsigned int position) override;
    /** Moves the one position too; nothing happens in a mode that does not write. */
    void seek_write(unsigned int position) override;
    bool atEnd() const override;

protected:
    ZyString onReadRemaining() override;
    ZyString onReadLine(unsigned int maximum) override;
    void onClose() override;
    /**
     * \throws ZyFileNotFoundException "File not found: " path: to be read, and there is no such file
     * \throws ZyCannotOpenFileException "Cannot open file: " path: it cannot be opened in the mode
     * \throws ZyInvalidPathException "Invalid path: " path: the path holds a NUL
     * \return false with "Failed to open file in given mode": the stream still had the failure of a read or
     * write before; the file is closed again and the next attempt starts afresh
     */
    bool onOpen(Mode mode) override;
    /** \throws ZyIOException "Error occurred on reading from file" */
    ZyString onRead(unsigned int count) override;
    /** \throws ZyIOException "Error occurred on writing to file", with the lastError() "Write failure" */
    unsigned int onWrite(ZyString const & text) override;

private:
    // A class of ours says in its constructors that its objects read as this class does.
    friend class ZyFile;
    friend class ZyTemporaryFile;
    friend class ZyCSVFile;
    void readsAsFileDevice(std::type_info const & type);

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
    ZyFilePath m_path;
};
