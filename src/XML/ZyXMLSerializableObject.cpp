// SPDX-License-Identifier: BSD-3-Clause
// How an object that is an element writes itself.
#include <ZyXMLSerializableObject.h>

#include <ZyString.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include <memory>

ZyXMLSerializableObject::~ZyXMLSerializableObject() = default;

void ZyXMLSerializableObject::readXML(ZyXMLElementReader &) {}

void ZyXMLSerializableObject::writeXML(ZyXMLStreamWriter & writer) const
{
    std::unique_ptr<ZyXMLStreamElementWriter> const element = writer.createElement(xmlElementName());
    onWriteXMLAttributes(*element);
    onWriteXMLContent(*element);
}

void ZyXMLSerializableObject::writeXML(ZyXMLElementWriter & parent) const
{
    std::unique_ptr<ZyXMLElementWriter> const element = parent.createElement(xmlElementName());
    onWriteXMLAttributes(*element);
    onWriteXMLContent(*element);
}
