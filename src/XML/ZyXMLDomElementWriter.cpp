// SPDX-License-Identifier: BSD-3-Clause
// Element writers into documents in memory: each call is handed to the element.
#include <ZyXMLDomElementWriter.h>

#include <ZyBase64Converter.h>
#include <ZyException.h>
#include <ZyString.h>
#include <ZyXMLDomElement.h>

class ZyXMLDomElementWriter::Private : public ZyPrivateObject
{
public:
    explicit Private(ZyXMLDomElement const & target) : element(target) {}

    ZyXMLDomElement element; ///< never null
};

ZyXMLDomElementWriter::ZyXMLDomElementWriter(ZyXMLDomElement const & element) : m_d(new Private(element))
{
    if (element.isNull()) {
        throw ZyNullDomElementException();
    }
}

ZyXMLDomElementWriter::~ZyXMLDomElementWriter() = default;

std::unique_ptr<ZyXMLElementWriter> ZyXMLDomElementWriter::createElement(ZyString const & namespaceUri,
                                                                         ZyString const & name)
{
    return std::make_unique<ZyXMLDomElementWriter>(d()->element.addElement(namespaceUri, name));
}

std::unique_ptr<ZyXMLElementWriter> ZyXMLDomElementWriter::createElement(ZyString const & name)
{
    return std::make_unique<ZyXMLDomElementWriter>(d()->element.addElement(name));
}

void ZyXMLDomElementWriter::writeAttribute(ZyString const & name, ZyString const & value,
                                           ZyString const & namespaceUri)
{
    d()->element.setAttribute(name, value, namespaceUri);
}

void ZyXMLDomElementWriter::writeAttribute(ZyString const & name, ZyString const & value)
{
    d()->element.setAttribute(name, value);
}

void ZyXMLDomElementWriter::writeAttributeBase64(ZyString const & name, double const & value,
                                                 ZyString const & namespaceUri)
{
    d()->element.setAttributeBase64(name, value, namespaceUri);
}

void ZyXMLDomElementWriter::writeAttributeBase64(ZyString const & name, double const & value)
{
    d()->element.setAttributeBase64(name, value);
}

void ZyXMLDomElementWriter::writeText(ZyString const & text)
{
    d()->element.setText(text);
}

void ZyXMLDomElementWriter::writeTextBase64(double const & value)
{
    d()->element.setText(ZyStringDoubleBase64Converter().convert(value));
}
