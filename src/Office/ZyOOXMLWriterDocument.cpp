// SPDX-License-Identifier: BSD-3-Clause
// One XML part: the device it goes to, the stream writer on it, and its end.
#include <ZyOOXMLWriterDocument.h>

#include "XML/ZyXMLStreamWriter_p.h"

#include <ZyException.h>
#include <ZyIODevice.h>
#include <ZyXMLStreamWriter.h>

#include <utility>

class ZyOOXMLWriterDocument::Private : public ZyPrivateObject
{
public:
    ZyWeakPtr<ZyIODevice> device;
    ZySharedPtr<ZyXMLStreamWriter> writer; ///< shares the device's life
};

ZyOOXMLWriterDocument::ZyOOXMLWriterDocument(ZyWeakPtr<ZyIODevice> device) : m_d(new Private)
{
    d()->writer.reset(new ZyXMLStreamWriter(device.lock()));
    d()->device = std::move(device);
}

ZyOOXMLWriterDocument::ZyOOXMLWriterDocument(ZyOOXMLWriterDocument const & other)
    : m_d(new Private(*other.d()))
{}
ZyOOXMLWriterDocument::ZyOOXMLWriterDocument(ZyOOXMLWriterDocument && other) noexcept = default;
ZyOOXMLWriterDocument::~ZyOOXMLWriterDocument() = default;

ZyOOXMLWriterDocument & ZyOOXMLWriterDocument::operator=(ZyOOXMLWriterDocument const & other)
{
    if (!d()) {
        d().reset(new Private);
    }
    *d() = *other.d();
    return *this;
}

ZyOOXMLWriterDocument & ZyOOXMLWriterDocument::operator=(ZyOOXMLWriterDocument && other) noexcept = default;

bool ZyOOXMLWriterDocument::isAlive() const
{
    return d() && d()->writer && !d()->device.expired();
}

void ZyOOXMLWriterDocument::close()
{
    if (!isAlive()) {
        return;
    }
    onClose();
    writer().finishDocument();
    d()->writer.reset();
    d()->device.reset();
}

ZyXMLStreamWriter & ZyOOXMLWriterDocument::writer()
{
    if (!isAlive()) {
        throw ZyInvalidCallException("Document writer has no valid device");
    }
    return *d()->writer;
}

bool ZyOOXMLWriterDocument::hasReportedFailure() const
{
    return isAlive() && ZyXMLMarkup::HasReportedFailure(*d()->writer);
}
