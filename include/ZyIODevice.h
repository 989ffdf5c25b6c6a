// SPDX-License-Identifier: BSD-3-Clause
// The one abstraction through which the library moves bytes.
#pragma once

#include <ZyException.h>
#include <ZyExport.h>
#include <ZyString.h>

/**
 * An abstract device: a stream of pieces of text that is opened, read, written and closed.
 *
 * A device is closed, or open in one mode. Reading is allowed in the modes Read and ReadWrite, writing in
 * Write, ReadWrite and Append. It can be opened again after close(). Counts and positions are bytes. A class
 * of its own implements the `on…` hooks, which are called in fitting modes only.
 *
 * \code
 * ZyStringDevice device("a\nb\n");
 * device.open(ZyIODevice::Read);
 * while (!device.atEnd()) {
 *     use(device.readLine(0));   // "a\n", "b\n"
 * }
 * device.close();
 * \endcode
 *
 * Code that gets a device to write to opens it when it is closed, refuses it when its mode is exactly Read,
 * and uses it as it stands otherwise.
 *
 * \threads one thread at a time
 */
class ZYCORE_EXPORT ZyIODevice
{
public:
    /** How a device is opened, in bits. */
    enum Mode : int {
        Closed = 0,    ///< not open
        Read = 1,      ///< reading
        Write = 2,     ///< writing
        ReadWrite = 3, ///< both
        Append = 4,    ///< writing at the end
        Truncate = 8,  ///< flag: discard the former content
        Text = 16      ///< flag: open a file in text mode rather than binary
    };

    /** A device of unknown kind did not open: thrown by callers whose call of open() returned false. */
    class ZYCORE_EXPORT CannotOpenException : public ZyException
    {
    public:
        /** An empty message. */
        CannotOpenException();
        /** \a message is the whole message. */
        explicit CannotOpenException(ZyString const & message);

        /** \deliberate{cannot-open-name} "CannotOpenException", without the class it is nested in. */
        char const * name() const override;
    };

    /** Closed, without an error. */
    ZyIODevice();
    /** Copies the mode and the error text and nothing else; what is open is not shared. */
    ZyIODevice(ZyIODevice const & other);
    ZyIODevice & operator=(ZyIODevice const & other);
    // The virtual operations from here on have the order that hosts have been built against.
    virtual ~ZyIODevice();

    /** Moves the read position to a byte counted from the start, where the device can. */
    virtual void seek_read(unsigned int position) = 0;
    /** Moves the write position to a byte counted from the start, where the device can. */
    virtual void seek_write(unsigned int position) = 0;

protected:
    /** What readAll() does; by default from the start to the end. */
    virtual ZyString onReadAll();
    /** What readRemaining() does; by default onRead(128) until the end. */
    virtual ZyString onReadRemaining();
    /** What readLine() does; by default onRead(1) until a line feed, the end, or the maximum. */
    virtual ZyString onReadLine(unsigned int maximum);

public:
    /** True in a mode that reads when nothing is left, and always in other modes. */
    virtual bool atEnd() const = 0;

protected:
    /** Closes what onOpen() opened; the mode is Closed already. */
    virtual void onClose() = 0;
    /** Opens the device; false when it cannot, with the reason told to setError(). */
    virtual bool onOpen(Mode mode) = 0;
    /** Reads at most \a count bytes from the read position and moves it. */
    virtual ZyString onRead(unsigned int count) = 0;
    /** Writes at the write position and moves it; returns how many bytes were accepted. */
    virtual unsigned int onWrite(ZyString const & text) = 0;

public:
    /**
     * Opens the device and keeps \a mode exactly as given.
     *
     * \deliberate{mode-with-flag-refuses} Reading and writing ask for exact modes: a device opened with a flag
     * added, such as Write and Truncate, opens accordingly and then refuses both.
     *
     * \return false, with the reason in lastError(): "Device already open" and nothing has changed; or the
     * device cannot be opened
     */
    bool open(Mode mode);
    /** Closes the device; nothing happens when it is closed. */
    void close();

    /** At most \a count bytes; fewer at the end. \throws ZyIOInvalidReadException in another mode, no message */
    ZyString read(unsigned int count);
    /** The whole device from its start. \throws ZyIOInvalidReadException in another mode, no message */
    ZyString readAll();
    /** From the read position to the end. \throws ZyIOInvalidReadException in another mode, no message */
    ZyString readRemaining();
    /**
     * Up to and including the next line feed, and at most \a maximum bytes unless that is 0; empty at the
     * end. A carriage return is a character like any other.
     * \throws ZyIOInvalidReadException in another mode, no message
     */
    ZyString readLine(unsigned int maximum);
    /**
     * Writes at the write position.
     *
     * \return the bytes accepted. When they are fewer than given nothing is thrown, and lastError() is the
     * number that is missing and " bytes were not written".
     * \throws ZyIOInvalidWriteException in another mode, no message; nothing is written
     */
    unsigned int write(ZyString const & text);
    /** Moves both positions to the start. */
    void restart();

    /** The mode as it was given to open(); Closed while the device is not open. */
    Mode mode() const;
    /**
     * \deliberate{device-has-error} True means that no error text is stored, false that one is. Callers use
     * lastError().
     */
    bool hasError() const;
    /**
     * The text of the last failure.
     *
     * \deliberate{last-error-stays} Neither a later success nor close() clears it: the next failure replaces it.
     */
    ZyString const & lastError() const;

protected:
    /** Replaces lastError(). */
    void setError(ZyString error);

private:
    void assertCanRead() const;
    void assertCanWrite() const;

    Mode m_mode = Closed;
    ZyString m_lastError;
};

/** Adds flags: the bits of both. */
constexpr ZyIODevice::Mode operator|(ZyIODevice::Mode a, ZyIODevice::Mode b)
{
    return static_cast<ZyIODevice::Mode>(static_cast<int>(a) | static_cast<int>(b));
}
