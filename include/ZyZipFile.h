// SPDX-License-Identifier: BSD-3-Clause
// One entry of a zip archive as a byte device.
#pragma once

#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyIODevice.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>

#include <string>

class ZyZipArchive;

/**
 * The active entry of a ZyZipArchive, which makes it and alone owns it.
 *
 * It runs forward only. When the archive opens another entry or closes, a device that is still held is cut
 * off: reading and writing it fail with the words below.
 *
 * \deliberate{checksum-not-verified-on-read} Reading ends with the last byte, before the zip library would compare the
 * checksum of the entry; ZyZipper::Unzip compares it.
 *
 * Failures of reading and writing:
 * - ZyInvalidCallException "ZyZipFile read failed: " and ZyZipArchive::errorMessage: broken data, or data
 * that end before the size that the archive tells ("Unzip bad zip file")
 * - ZyInvalidCallException "ZyZipFile write failed: " and ZyZipArchive::errorMessage: the disk is full, or
 * the entry or the archive would pass what the plain zip form holds ("Zip failure")
 * - ZyInvalidCallException "ZyZipFile cannot be read from as it is not the active file", "ZyZipFile cannot be
 * written to as it is not the active file"
 * - ZyInvalidCallException "ZyZipFile cannot be restarted": restart(), and any seek but that of reading to 0
 */
class ZYCORE_EXPORT ZyZipFile : public ZyIODevice
{
public:
    ZyZipFile(ZyZipFile const &) = delete;
    ZyZipFile & operator=(ZyZipFile const &) = delete;
    ~ZyZipFile() override;

    /** The archive of this entry. \throws ZyNullPointerException cut off: "ZyZipFile parent archive not set" */
    ZyZipArchive & archive();
    ZyZipArchive const & archive() const;
    /**
     * The name of the entry that is current in the archive; the null path unless this device is open for
     * reading.
     *
     * \deliberate{zip-path-is-that-of-the-archive} The archive is asked, and its current entry need not be this one.
     *
     * \throws ZyNullPointerException cut off while open for reading: "ZyZipFile parent archive not set"
     */
    ZyFilePath path() const;
    /** Whether all told bytes were read; true under write and when cut off. */
    bool atEnd() const override;

protected:
    void onClose() override;
    bool onOpen(ZyIODevice::Mode mode) override;
    ZyString onRead(unsigned int count) override;
    unsigned int onWrite(ZyString const & text) override;

private:
    friend class ZyZipArchive;

    explicit ZyZipFile(ZyZipArchive * archive = nullptr);

    /** \throws ZyInvalidCallException unless \a position is 0: "ZyZipFile cannot be restarted" */
    void seek_read(unsigned int position) override;
    /** \throws ZyInvalidCallException always: "ZyZipFile cannot be restarted" */
    void seek_write(unsigned int position) override;
    static std::string CurrentName(void * unzip);
    /** Cuts this device off from its archive. */
    void destroy();

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
