// SPDX-License-Identifier: BSD-3-Clause
// A text in memory as a device.
#pragma once

#include <ZyExport.h>
#include <ZyIODevice.h>
#include <ZyPrivateObject.h>

/**
 * A text in memory behind the device interface, with a read position and a write position of their own.
 *
 * Opening for Write empties the content; ReadWrite and Append keep it and write at its end; Read starts at
 * the front. close() keeps the content. NULs are bytes like others, except where a write overwrites.
 *
 * Not copyable. \threads one thread at a time
 */
class ZYCORE_EXPORT ZyStringDevice : public ZyIODevice
{
public:
    /** Empty content. */
    ZyStringDevice();
    explicit ZyStringDevice(ZyString && content);
    explicit ZyStringDevice(ZyString const & content);
    explicit ZyStringDevice(char const * content);
    ZyStringDevice(ZyStringDevice const &) = delete;
    ZyStringDevice & operator=(ZyStringDevice const &) = delete;
    ~ZyStringDevice() override;

    /** The live content, whether or not the device is open. */
    ZyString const & content() const;

    /**
     * Moves the read position, at most to the end.
     *
     * \deliberate{text-seeks-in-any-mode} In any mode, also while the device is closed, where a file device ignores it.
     */
    void seek_read(unsigned int position) override;
    /** Moves the write position, at most to the end; in any mode, too. */
    void seek_write(unsigned int position) override;
    bool atEnd() const override;

protected:
    ZyString onReadAll() override;
    ZyString onReadRemaining() override;
    ZyString onReadLine(unsigned int maximum) override;
    void onClose() override;
    /** Always true. */
    bool onOpen(Mode mode) override;
    ZyString onRead(unsigned int count) override;
    /**
     * Appends at the end, overwrites in front of it.
     *
     * \deliberate{overwrite-ends-at-nul} What overwrites ends at its first NUL while all that it covers is
     * replaced: the content then shrinks, and the position still moves by the full size.
     */
    unsigned int onWrite(ZyString const & text) override;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
