// SPDX-License-Identifier: BSD-3-Clause
// The frame of all devices: modes, the error text, and reading written over the hooks.
#include <ZyIODevice.h>

#include <utility>

namespace
{
constexpr unsigned int pieceSize = 128; // of onReadRemaining(); hosts see it in their onRead()
}

ZyIODevice::CannotOpenException::CannotOpenException() = default;

ZyIODevice::CannotOpenException::CannotOpenException(ZyString const & message) : ZyException(message) {}

char const * ZyIODevice::CannotOpenException::name() const
{
    return "CannotOpenException";
}

ZyIODevice::ZyIODevice() = default;

ZyIODevice::ZyIODevice(ZyIODevice const & other) = default;

ZyIODevice & ZyIODevice::operator=(ZyIODevice const & other) = default;

ZyIODevice::~ZyIODevice() = default;

bool ZyIODevice::open(Mode mode)
{
    if (m_mode != Closed) {
        setError("Device already open");
        return false;
    }
    if (!onOpen(mode)) {
        return false;
    }
    m_mode = mode;
    return true;
}

void ZyIODevice::close()
{
    if (m_mode != Closed) {
        m_mode = Closed;
        onClose();
    }
}

ZyString ZyIODevice::read(unsigned int count)
{
    assertCanRead();
    return onRead(count);
}

ZyString ZyIODevice::readAll()
{
    assertCanRead();
    return onReadAll();
}

ZyString ZyIODevice::readRemaining()
{
    assertCanRead();
    return onReadRemaining();
}

ZyString ZyIODevice::readLine(unsigned int maximum)
{
    assertCanRead();
    return onReadLine(maximum);
}

unsigned int ZyIODevice::write(ZyString const & text)
{
    assertCanWrite();
    unsigned int const size = text.size(); // first: a device may write its own content, which grows
    unsigned int const written = onWrite(text);
    if (written < size) {
        setError(ZyString(size - written) + " bytes were not written");
    }
    return written;
}

void ZyIODevice::restart()
{
    seek_read(0);
    seek_write(0);
}

ZyIODevice::Mode ZyIODevice::mode() const
{
    return m_mode;
}

bool ZyIODevice::hasError() const
{
    return m_lastError.isEmpty();
}

ZyString const & ZyIODevice::lastError() const
{
    return m_lastError;
}

ZyString ZyIODevice::onReadAll()
{
    seek_read(0);
    return onReadRemaining();
}

ZyString ZyIODevice::onReadRemaining()
{
    assertCanRead();
    ZyString text = onRead(pieceSize);
    while (!atEnd()) {
        assertCanRead();
        text += onRead(pieceSize);
    }
    return text;
}

ZyString ZyIODevice::onReadLine(unsigned int maximum)
{
    ZyString line;
    while (!atEnd()) {
        bool const ended = !line.isEmpty() && line[line.size() - 1] == '\n';
        if (ended || (maximum != 0 && line.size() >= maximum)) {
            break;
        }
        assertCanRead();
        line += onRead(1);
    }
    return line;
}

void ZyIODevice::setError(ZyString error)
{
    m_lastError = std::move(error);
}

void ZyIODevice::assertCanRead() const
{
    if (m_mode != Read && m_mode != ReadWrite) {
        throw ZyIOInvalidReadException();
    }
}

void ZyIODevice::assertCanWrite() const
{
    if (m_mode != Write && m_mode != ReadWrite && m_mode != Append) {
        throw ZyIOInvalidWriteException();
    }
}
