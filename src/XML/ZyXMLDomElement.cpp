// SPDX-License-Identifier: BSD-3-Clause
// Elements of documents in memory: a thin coat over QDomElement.
#include <ZyXMLDomElement.h>

#include "XML/ZyXMLAttributeSet_p.h"
#include "XML/ZyXMLDomElement_p.h"
#include "XML/ZyXMLDomGuard_p.h"

#include <ZyBase64Converter.h>
#include <ZyException.h>
#include <ZyString.h>
#include <ZyXMLAttribute.h>

#include <QDomAttr>
#include <QDomNamedNodeMap>
#include <QDomText>
#include <QString>
#include <QXmlStreamAttributes>

#include <algorithm>

namespace
{
/** How many elements stand above and at a node. */
int depthOf(QDomNode node)
{
    int depth = 0;
    for (; node.isElement(); node = node.parentNode()) {
        ++depth;
    }
    return depth;
}

/**
 * The attributes in the order of a hash. QDomNamedNodeMap walks from its start to each one that it is asked
 * for; when they are many, they are therefore taken out of a copy, so that the next one stands at the start.
 */
QXmlStreamAttributes attributesOf(QDomElement element)
{
    int const count = element.attributes().count();
    bool const areMany = count > 64;
    if (areMany) {
        element = element.cloneNode(false).toElement();
    }
    QDomNamedNodeMap const map = element.attributes();
    QXmlStreamAttributes result;
    result.reserve(count);
    for (int i = 0; i < count; ++i) {
        QDomAttr const attribute = map.item(areMany ? 0 : i).toAttr();
        result.append(QString(), attribute.name(), attribute.value());
        if (areMany) {
            element.removeAttributeNode(attribute);
        }
    }
    return result;
}

/** A prefix for an attribute without one: a name of its own, or that of the same namespace. */
QString freePrefix(QDomElement const & element, QString const & namespaceUri)
{
    QDomNamedNodeMap const attributes = element.attributes();
    auto const isTaken = [&](QString const & prefix) {
        for (int i = 0; i < attributes.count(); ++i) {
            QDomNode const attribute = attributes.item(i);
            if ((attribute.prefix() == prefix && attribute.namespaceURI() != namespaceUri) ||
                attribute.nodeName() == QLatin1String("xmlns:") + prefix) {
                return true;
            }
        }
        return element.prefix() == prefix && element.namespaceURI() != namespaceUri;
    };
    QString prefix;
    for (int number = 1; prefix.isNull() || isTaken(prefix); ++number) {
        prefix = QLatin1Char('n') + QString::number(number);
    }
    return prefix;
}
} // namespace

ZyXMLDomElement::ZyXMLDomElement() : m_d(new Private) {}

ZyXMLDomElement::ZyXMLDomElement(QDomElement const & element, QDomDocument const & document)
    : m_d(new Private(element, document))
{}

ZyXMLDomElement::ZyXMLDomElement(ZyXMLDomElement const & other)
    : ZyPrivateObject(other), m_d(new Private(*other.d()))
{}

ZyXMLDomElement & ZyXMLDomElement::operator=(ZyXMLDomElement const & other)
{
    *d() = *other.d();
    return *this;
}

ZyXMLDomElement::~ZyXMLDomElement() = default;

bool ZyXMLDomElement::isNull() const
{
    return d()->element.isNull();
}

ZyString ZyXMLDomElement::name() const
{
    return ZyString(d()->element.tagName());
}

void ZyXMLDomElement::setName(ZyString const & name)
{
    checkChange();
    d()->element.setTagName(name.toQString());
}

ZyString ZyXMLDomElement::text() const
{
    return ZyString(d()->element.text());
}

void ZyXMLDomElement::setText(ZyString const & text)
{
    checkChange();
    QDomElement & element = d()->element;
    if (!element.text().isEmpty()) {
        QDomNode child = element.firstChild();
        while (!child.isNull() && !child.isText()) {
            child = child.nextSibling();
        }
        element.removeChild(child);
    }
    element.appendChild(d()->document.createTextNode(text.toQString()));
}

ZyString ZyXMLDomElement::attribute(ZyString const & name) const
{
    QDomAttr const attribute = d()->element.attributeNode(name.toQString());
    if (attribute.isNull()) {
        throw ZyUnknownXMLAttributeException(name);
    }
    return ZyString(attribute.value());
}

ZyString ZyXMLDomElement::attribute(ZyString const & name, ZyString const & defaultValue) const
{
    QDomAttr const attribute = d()->element.attributeNode(name.toQString());
    return attribute.isNull() ? defaultValue : ZyString(attribute.value());
}

double ZyXMLDomElement::attributeBase64(ZyString const & name) const
{
    return ZyStringDoubleBase64Converter().convert(attribute(name));
}

double ZyXMLDomElement::attributeBase64(ZyString const & name, double const & defaultValue) const
{
    return hasAttribute(name) ? attributeBase64(name) : defaultValue;
}

/** QDomElement keeps them in the order of a hash, which is another one in each process. */
ZyXMLAttributeSetPtr ZyXMLDomElement::attributes() const
{
    QXmlStreamAttributes sorted = attributesOf(d()->element);
    std::sort(sorted.begin(), sorted.end(), [](QXmlStreamAttribute const & a, QXmlStreamAttribute const & b) {
        return a.name() < b.name();
    });
    ZyXMLAttributeSetPtr result(new ZyXMLAttributeSet);
    ZyXMLAttributeReading(sorted).fill(*result);
    return result;
}

bool ZyXMLDomElement::hasAttribute(ZyString const & name) const
{
    return d()->element.hasAttribute(name.toQString());
}

void ZyXMLDomElement::setAttribute(ZyString const & name, ZyString const & value)
{
    checkAttribute(name);
    d()->element.setAttribute(name.toQString(), value.toQString());
}

void ZyXMLDomElement::setAttribute(ZyString const & name, ZyString const & value,
                                   ZyString const & namespaceUri)
{
    if (namespaceUri.isEmpty()) {
        return setAttribute(name, value);
    }
    checkAttribute(name);
    QString const uri = namespaceUri.toQString();
    QString qualified = name.toQString();
    if (!qualified.contains(QLatin1Char(':'))) {
        qualified.prepend(freePrefix(d()->element, uri) + QLatin1Char(':'));
    }
    d()->element.setAttributeNS(uri, qualified, value.toQString());
}

void ZyXMLDomElement::setAttribute(ZyXMLAttribute const & attribute)
{
    setAttribute(attribute.name(), attribute.value());
}

void ZyXMLDomElement::setAttributeBase64(ZyString const & name, double const & value)
{
    setAttribute(name, ZyStringDoubleBase64Converter().convert(value));
}

void ZyXMLDomElement::setAttributeBase64(ZyString const & name, double const & value,
                                         ZyString const & namespaceUri)
{
    setAttribute(name, ZyStringDoubleBase64Converter().convert(value), namespaceUri);
}

ZyXMLDomElement ZyXMLDomElement::addElement(ZyString const & name)
{
    checkChild(name);
    return appended(d()->document.createElement(name.toQString()));
}

ZyXMLDomElement ZyXMLDomElement::addElement(ZyString const & namespaceUri, ZyString const & name)
{
    checkChild(name);
    return appended(d()->document.createElementNS(namespaceUri.toQString(), name.toQString()));
}

std::list<ZyXMLDomElement> ZyXMLDomElement::children() const
{
    std::list<ZyXMLDomElement> result;
    QDomElement child = d()->element.firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        result.push_back(ZyXMLDomElement(child, d()->document));
    }
    return result;
}

std::list<ZyXMLDomElement> ZyXMLDomElement::children(ZyString const & name) const
{
    std::list<ZyXMLDomElement> result;
    QDomElement child = d()->element.firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        if (ZyString(child.tagName()) == name) {
            result.push_back(ZyXMLDomElement(child, d()->document));
        }
    }
    return result;
}

ZyXMLDomElement ZyXMLDomElement::clone(bool deep) const
{
    return ZyXMLDomElement(d()->element.cloneNode(deep).toElement(), d()->document);
}

void ZyXMLDomElement::checkChange() const
{
    if (isNull()) {
        throw ZyNullDomElementException();
    }
}

void ZyXMLDomElement::checkAttribute(ZyString const & name) const
{
    if (name.containsWhiteSpace()) {
        throw ZyInvalidXMLOperation(name);
    }
    checkChange();
}

void ZyXMLDomElement::checkChild(ZyString const & name) const
{
    checkChange();
    if (depthOf(d()->element) >= ZyXMLDomGuard::maxDepth) {
        ZyXMLDomGuard::refuseDepth(name);
    }
}

ZyXMLDomElement ZyXMLDomElement::appended(QDomElement const & child)
{
    d()->element.appendChild(child);
    return ZyXMLDomElement(child, d()->document);
}
