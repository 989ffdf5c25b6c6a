// SPDX-License-Identifier: BSD-3-Clause
// How bridges open their devices, and the bridge from Qt's writer: collecting, failures, and the fast road
// for ready markup.
#include "XML/ZyXMLDeviceBridge_p.h"

#include "XML/ZyXMLStreamWriter_p.h"

#include <cstring>

namespace
{
constexpr std::size_t pieceSize = 65536;
}

bool ZyXMLDeviceBridge::open(OpenMode mode)
{
    if (!QIODevice::open(mode)) {
        return false;
    }
    if (mode == ReadOnly || mode == WriteOnly || mode == Append) {
        return device().open(static_cast<ZyIODevice::Mode>(static_cast<int>(mode)));
    }
    return (mode & ReadWrite) == ReadWrite && device().open(ZyIODevice::ReadWrite);
}

qint64 ZyXMLStreamWriter::Private::MyIODevice::readData(char *, qint64)
{
    return -1;
}

/**
 * Takes the bytes up to the first NUL, as a C text; Qt's writer never sends a NUL.
 * \return the size of that text
 */
qint64 ZyXMLStreamWriter::Private::MyIODevice::writeData(char const * data, qint64 size)
{
    void const * const nul = std::memchr(data, 0, static_cast<std::size_t>(size));
    qint64 const length = nul ? static_cast<char const *>(nul) - data : size;
    try {
        text().append(data, static_cast<std::size_t>(length));
        collected();
    } catch (...) {
        fail();
    }
    return length;
}

void ZyXMLStreamWriter::Private::MyIODevice::collected()
{
    if (m_straight || text().size() >= pieceSize) {
        flush();
    }
}

void ZyXMLStreamWriter::Private::MyIODevice::flush()
{
    if (!m_failure && !text().empty()) {
        try {
            device().write(m_collected);
            m_straight = false;
        } catch (...) {
            fail();
        }
    }
    text().clear();
}

void ZyXMLStreamWriter::Private::MyIODevice::fail()
{
    m_failure = std::current_exception();
    m_straight = true; // whatever comes is dropped at once
}

void ZyXMLStreamWriter::Private::MyIODevice::check()
{
    if (m_failure) {
        m_reported = true;
        std::rethrow_exception(m_failure);
    }
}

std::string & ZyXMLMarkup::Begin(ZyXMLStreamWriter & writer)
{
    if (writer.d()->state == ZyXMLStreamWriter::Private::TagOpen) {
        writer.d()->xml.writeCharacters(QString());
        writer.d()->state = ZyXMLStreamWriter::Private::InElement;
    }
    return writer.d()->bridge->text();
}

void ZyXMLMarkup::End(ZyXMLStreamWriter & writer)
{
    writer.d()->bridge->collected();
    writer.d()->bridge->check();
}

void ZyXMLMarkup::Flush(ZyXMLStreamWriter & writer)
{
    writer.d()->bridge->flush();
    writer.d()->bridge->check();
}

bool ZyXMLMarkup::HasReportedFailure(ZyXMLStreamWriter const & writer)
{
    return writer.d()->bridge->hasReported();
}
