// SPDX-License-Identifier: BSD-3-Clause
// The file device: opening, closing, positions and writing. Reading stands in a source of its own.
#include <ZyFileDevice.h>

#include "Core/ZyString_p.h"
#include "Files/ZyFileDevice_p.h"
#include "Platform/NativePath.h"

#include <ZyFileException.h>
#include <ZyFileSystem.h>

#include <exception>

namespace
{
constexpr std::size_t bufferSize = std::size_t(64) * 1024;

// The stream's flags for a mode; `none` lets every open fail.
std::ios_base::openmode streamFlags(ZyIODevice::Mode mode, ZyFilePath const & path)
{
    constexpr std::ios_base::openmode in = std::ios_base::in;
    constexpr std::ios_base::openmode out = std::ios_base::out;
    bool const truncate = (mode & ZyIODevice::Truncate) != 0;
    bool const append = (mode & ZyIODevice::Append) != 0;
    switch (mode & ZyIODevice::ReadWrite) {
    case ZyIODevice::ReadWrite:
        return in | out |
               (!truncate && ZyFileSystem::Exists(path) ? std::ios_base::app : std::ios_base::trunc);
    case ZyIODevice::Read:
        if (!ZyFileSystem::Exists(path)) {
            throw ZyFileNotFoundException(path);
        }
        return in;
    case ZyIODevice::Write:
        return out | (append ? std::ios_base::app : std::ios_base::trunc);
    default:
        if (append) {
            return out | std::ios_base::app;
        }
        return truncate ? out | std::ios_base::trunc : std::ios_base::openmode();
    }
}
} // namespace

ZyCannotOpenFileException::ZyCannotOpenFileException(ZyFileDevice const & device)
    : ZyFileException("Cannot open file (" + device.lastError() + "): " + device.path().path(), device.path(),
                      ZyFilePath())
{}

void ZyFileDevice::Private::turn(Direction to)
{
    if (direction != Neither && direction != to &&
        buffer.pubseekoff(0, std::ios_base::cur) == std::streampos(std::streamoff(-1))) {
        stream.setstate(std::ios_base::failbit);
    }
    direction = to;
}

void ZyFileDevice::Private::seek(unsigned int position, std::ios_base::openmode which)
{
    stream.clear();
    if (buffer.pubseekpos(std::streampos(position), which) == std::streampos(std::streamoff(-1))) {
        stream.setstate(std::ios_base::failbit);
    }
    direction = Neither;
}

ZyFileDevice::ZyFileDevice() : m_d(new Private) {}

ZyFileDevice::ZyFileDevice(ZyFilePath const & path) : m_d(new Private), m_path(path) {}

ZyFileDevice::ZyFileDevice(ZyString const & path) : m_d(new Private), m_path(path) {}

ZyFileDevice::ZyFileDevice(char const * path) : m_d(new Private), m_path(path) {}

ZyFileDevice::~ZyFileDevice() = default;

ZyFilePath const & ZyFileDevice::path() const
{
    return m_path;
}

void ZyFileDevice::readsAsFileDevice(std::type_info const & type)
{
    d()->type = &type;
}

bool ZyFileDevice::onOpen(Mode mode)
{
    ZyFileBuffer & buffer = d()->buffer;
    std::iostream & stream = d()->stream;
    if (mode == Closed) {
        buffer.close();
        throw ZyCannotOpenFileException(m_path);
    }
    std::ios_base::openmode const flags = streamFlags(mode, m_path);
    // Some systems open a directory for reading and then have nothing to read.
    if ((flags & std::ios_base::out) == 0 && ZyFileSystem::IsDirectory(m_path)) {
        throw ZyCannotOpenFileException(m_path);
    }
    d()->memory.resize(bufferSize);
    buffer.pubsetbuf(d()->memory.data(), static_cast<std::streamsize>(bufferSize));
    buffer.open(NativePath::standard(m_path), (mode & Text) != 0 ? flags : flags | std::ios_base::binary);
    if (!buffer.is_open()) {
        throw ZyCannotOpenFileException(m_path);
    }
    bool const wasBad = stream.bad();
    stream.clear();
    if (wasBad) {
        buffer.close();
        setError("Failed to open file in given mode");
        return false;
    }
    d()->direction = Private::Neither;
    d()->direct = typeid(*this) == *d()->type;
    return true;
}

void ZyFileDevice::onClose()
{
    // Closing flushes first; a failure of either is told by nothing but the flag.
    if (!d()->buffer.close()) {
        d()->stream.setstate(std::ios_base::failbit);
    }
}

void ZyFileDevice::seek_read(unsigned int position)
{
    if (mode() == Read || mode() == ReadWrite) {
        d()->seek(position, std::ios_base::in);
    }
}

void ZyFileDevice::seek_write(unsigned int position)
{
    if (mode() == Write || mode() == ReadWrite || mode() == Append) {
        d()->seek(position, std::ios_base::out);
    }
}

unsigned int ZyFileDevice::onWrite(ZyString const & text)
{
    std::iostream & stream = d()->stream;
    stream.clear();
    d()->turn(Private::Writing);
    try {
        if (!d()->buffer.put(ZyTextAccess::view(text))) {
            stream.setstate(std::ios_base::badbit);
        }
    } catch (std::exception const &) {
        stream.setstate(std::ios_base::badbit);
    }
    if (stream.bad()) {
        setError("Write failure");
        throw ZyIOException("Error occurred on writing to file");
    }
    return text.size();
}
