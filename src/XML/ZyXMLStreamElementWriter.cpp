// SPDX-License-Identifier: BSD-3-Clause
// Element writers of the stream: they check that they are the innermost element and hand on to the stream
// writer.
#include <ZyXMLStreamElementWriter.h>

#include "XML/ZyXMLStreamWriter_p.h"

#include <ZyBase64Converter.h>
#include <ZyException.h>
#include <ZyList.h>
#include <ZyString.h>
#include <ZyXMLStreamWriter.h>

class ZyXMLStreamElementWriter::Private : public ZyPrivateObject
{
public:
    ZyXMLStreamWriter * writer = nullptr; ///< null once the element has been cut loose
    ZyList<ZyString> attributes;          ///< the names written so far
};

ZyXMLStreamElementWriter::ZyXMLStreamElementWriter(ZyXMLStreamWriter * writer) : m_d(new Private)
{
    if (!writer) {
        throw ZyNullPointerException("Invalid parent");
    }
    d()->writer = writer;
}

ZyXMLStreamElementWriter::~ZyXMLStreamElementWriter()
{
    if (d()->writer) {
        d()->writer->d()->close(this);
    }
}

std::unique_ptr<ZyXMLElementWriter> ZyXMLStreamElementWriter::createElement(ZyString const & name,
                                                                            ZyString const & namespaceUri)
{
    checkActive("Invalid attempt to start element");
    return d()->writer->createElement(name, namespaceUri);
}

std::unique_ptr<ZyXMLElementWriter> ZyXMLStreamElementWriter::createElement(ZyString const & name)
{
    checkActive("Invalid attempt to start element");
    return d()->writer->createElement(name);
}

void ZyXMLStreamElementWriter::writeAttribute(ZyString const & name, ZyString const & value,
                                              ZyString const & namespaceUri)
{
    checkAttribute(name);
    d()->writer->writeAttribute(name, value, namespaceUri);
    d()->attributes.add(name);
}

void ZyXMLStreamElementWriter::writeAttribute(ZyString const & name, ZyString const & value)
{
    checkAttribute(name);
    d()->writer->writeAttribute(name, value);
    d()->attributes.add(name);
}

void ZyXMLStreamElementWriter::writeAttributeBase64(ZyString const & name, double const & value,
                                                    ZyString const & namespaceUri)
{
    writeAttribute(name, ZyStringDoubleBase64Converter().convert(value), namespaceUri);
}

void ZyXMLStreamElementWriter::writeAttributeBase64(ZyString const & name, double const & value)
{
    writeAttribute(name, ZyStringDoubleBase64Converter().convert(value));
}

void ZyXMLStreamElementWriter::writeText(ZyString const & text)
{
    checkActive("Invalid attempt to write text");
    d()->writer->writeText(text);
}

void ZyXMLStreamElementWriter::writeTextBase64(double const & value)
{
    writeText(ZyStringDoubleBase64Converter().convert(value));
}

void ZyXMLStreamElementWriter::disable()
{
    d()->writer = nullptr;
}

bool ZyXMLStreamElementWriter::isActive() const
{
    return d()->writer && d()->writer->isCurrent(this);
}

void ZyXMLStreamElementWriter::checkActive(char const * refusal) const
{
    if (!isActive()) {
        throw ZyInvalidXMLOperation(refusal);
    }
}

void ZyXMLStreamElementWriter::checkAttribute(ZyString const & name) const
{
    checkActive("Invalid attempt to write attribute");
    if (d()->attributes.contains(name)) {
        throw ZyInvalidXMLAttributeName(name);
    }
}
