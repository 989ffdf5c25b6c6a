// SPDX-License-Identifier: BSD-3-Clause
// The XML stream writer: Qt's writer behind a bridge to our devices, the stack of open elements, and the
// rules of what may follow what. The bridge itself stands in ZyXMLDeviceBridge.cpp.
#include <ZyXMLStreamWriter.h>

#include "Core/ZyString_p.h"
#include "XML/ZyXMLStreamWriter_p.h"
#include "XML/ZyXMLText_p.h"

#include <ZyException.h>
#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyXMLStreamElementWriter.h>

#include <algorithm>
#include <utility>

ZyXMLStreamWriter::Private::Private(ZyIODevice & target, ZySharedPtr<ZyIODevice> && shared,
                                    AutoFormattingSettings const & formatting)
    : bridge(std::make_shared<MyIODevice>(target)), device(&target), owner(std::move(shared))
{
    bridge->open(QIODevice::WriteOnly);
    xml.setDevice(bridge.get());
    xml.setAutoFormatting(formatting.enabled);
    xml.setAutoFormattingIndent(formatting.indent);
}

ZyXMLStreamWriter::Private::~Private()
{
    disableAll();
}

template <class Call>
void ZyXMLStreamWriter::Private::write(Call const & call)
{
    call(xml);
    bridge->check();
}

void ZyXMLStreamWriter::Private::startElement(ZyString const & name, ZyString const * namespaceUri,
                                              ZyXMLStreamElementWriter * element)
{
    QString const tag = this->name(name);
    write([&](QXmlStreamWriter & to) {
        if (namespaceUri) {
            to.writeStartElement(this->name(*namespaceUri), tag);
        } else {
            to.writeStartElement(tag);
        }
    });
    state = TagOpen;
    open.push_front(element);
}

void ZyXMLStreamWriter::Private::checkAttribute(ZyString const & name) const
{
    if (name.containsWhiteSpace()) {
        throw ZyInvalidXMLAttributeName(name);
    }
    if (state != TagOpen) {
        throw ZyInvalidXMLOperation("Illegal attribute write");
    }
}

void ZyXMLStreamWriter::Private::closeInnermost()
{
    if (!open.empty()) {
        ZyXMLStreamElementWriter * const element = open.front();
        open.pop_front();
        if (element) {
            element->disable();
        }
    }
    xml.writeEndElement();
    state = open.empty() ? NoElement : InElement;
}

void ZyXMLStreamWriter::Private::close(ZyXMLStreamElementWriter const * element)
{
    for (std::size_t depth = depthOf(element); depth > 0; --depth) {
        closeInnermost();
    }
}

std::size_t ZyXMLStreamWriter::Private::depthOf(ZyXMLStreamElementWriter const * element) const
{
    auto const outermost = std::find(open.rbegin(), open.rend(), element);
    return static_cast<std::size_t>(open.rend() - outermost);
}

void ZyXMLStreamWriter::Private::disableAll()
{
    for (ZyXMLStreamElementWriter * const element : open) {
        if (element) {
            element->disable();
        }
    }
    open.clear();
}

QString ZyXMLStreamWriter::Private::name(ZyString const & text)
{
    std::string const & bytes = text.toStdString();
    constexpr std::size_t longest = 64;
    if (bytes.empty() || bytes.size() > longest) {
        return text.toQString();
    }
    std::size_t const front = static_cast<unsigned char>(bytes.front());
    std::size_t const back = static_cast<unsigned char>(bytes.back());
    std::size_t const mark = bytes.size() * 7 + front * 3 + back;
    Name & kept = m_names[mark % m_names.size()];
    if (kept.bytes != bytes) {
        kept.text = text.toQString();
        kept.bytes = bytes;
    }
    return kept.text;
}

ZyXMLStreamWriter::ZyXMLStreamWriter(ZyIODevice & device, AutoFormattingSettings const & formatting)
    : m_d(new Private(device, ZySharedPtr<ZyIODevice>(), formatting))
{}

ZyXMLStreamWriter::ZyXMLStreamWriter(ZySharedPtr<ZyIODevice> device,
                                     AutoFormattingSettings const & formatting)
    : m_d(new Private(*device, std::move(device), formatting))
{}

ZyXMLStreamWriter::ZyXMLStreamWriter(ZyFilePath const & path, AutoFormattingSettings const & formatting)
    : ZyXMLStreamWriter(ZySharedPtr<ZyIODevice>(new ZyFileDevice(path)), formatting)
{}

ZyXMLStreamWriter::~ZyXMLStreamWriter()
{
    if (d()->state != Private::Finished) {
        d()->xml.setDevice(nullptr);
        d()->bridge->flush();
        d()->device->close();
    }
}

void ZyXMLStreamWriter::startDocument()
{
    startDocument("1.0");
}

void ZyXMLStreamWriter::startDocument(ZyString const & version)
{
    if (d()->state != Private::Nothing) {
        throw ZyInvalidXMLOperation("Attempting to create document when already created");
    }
    d()->write([&](QXmlStreamWriter & xml) { xml.writeStartDocument(version.toQString()); });
    d()->state = Private::Declared;
}

void ZyXMLStreamWriter::startElement(ZyString const & name)
{
    d()->startElement(name, nullptr, nullptr);
}

std::unique_ptr<ZyXMLStreamElementWriter> ZyXMLStreamWriter::createElement(ZyString const & name)
{
    auto element = std::make_unique<ZyXMLStreamElementWriter>(this);
    d()->startElement(name, nullptr, element.get());
    return element;
}

std::unique_ptr<ZyXMLStreamElementWriter> ZyXMLStreamWriter::createElement(ZyString const & name,
                                                                           ZyString const & namespaceUri)
{
    auto element = std::make_unique<ZyXMLStreamElementWriter>(this);
    d()->startElement(name, &namespaceUri, element.get());
    return element;
}

void ZyXMLStreamWriter::writeAttribute(ZyString const & name, ZyString const & value)
{
    d()->checkAttribute(name);
    if (ZyXMLText::isPlain(ZyTextAccess::view(name)) && ZyXMLText::isPlain(ZyTextAccess::view(value))) {
        std::string & markup = d()->bridge->text(); // what Qt would write for it
        markup.append(" ").append(ZyTextAccess::view(name)).append("=\"");
        markup.append(ZyTextAccess::view(value)).append("\"");
        d()->bridge->collected();
        d()->bridge->check();
        return;
    }
    d()->write([&](QXmlStreamWriter & xml) { xml.writeAttribute(d()->name(name), value.toQString()); });
}

void ZyXMLStreamWriter::writeAttribute(ZyString const & name, ZyString const & value,
                                       ZyString const & namespaceUri)
{
    d()->checkAttribute(name);
    d()->write([&](QXmlStreamWriter & xml) {
        xml.writeAttribute(d()->name(namespaceUri), d()->name(name), value.toQString());
    });
}

void ZyXMLStreamWriter::writeDefaultNamespace(ZyString const & uri)
{
    d()->write([&](QXmlStreamWriter & xml) { xml.writeDefaultNamespace(uri.toQString()); });
}

void ZyXMLStreamWriter::writeNamespace(ZyString const & uri, ZyString const & prefix)
{
    d()->write([&](QXmlStreamWriter & xml) { xml.writeNamespace(uri.toQString(), prefix.toQString()); });
}

void ZyXMLStreamWriter::writeText(ZyString const & text)
{
    if (d()->state != Private::TagOpen) {
        throw ZyInvalidXMLOperation("Illegal write text call");
    }
    d()->write([](QXmlStreamWriter & xml) { xml.writeCharacters(QString()); }); // ends the start tag
    ZyXMLText::appendEscaped(d()->bridge->text(), ZyTextAccess::view(text));
    d()->bridge->collected();
    d()->bridge->check();
    d()->state = Private::InElement;
}

void ZyXMLStreamWriter::finishElement()
{
    d()->closeInnermost();
    d()->bridge->check();
}

void ZyXMLStreamWriter::finishElement(ZyXMLStreamElementWriter const * element)
{
    for (std::size_t depth = d()->depthOf(element); depth > 0; --depth) {
        finishElement();
    }
}

void ZyXMLStreamWriter::finishDocument()
{
    if (d()->state == Private::Finished) {
        return;
    }
    d()->xml.writeEndDocument();
    d()->bridge->flush();
    d()->state = Private::Finished;
    d()->xml.setDevice(nullptr);
    d()->disableAll();
    d()->device->close();
    d()->bridge->check();
}

bool ZyXMLStreamWriter::isCurrent(ZyXMLStreamElementWriter const * element) const
{
    return d()->open.empty() ? !element : d()->open.front() == element;
}
