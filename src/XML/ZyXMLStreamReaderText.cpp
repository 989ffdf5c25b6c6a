// SPDX-License-Identifier: BSD-3-Clause
// The current element of a stream as text.
#include <ZyXMLStreamReader.h>

#include "XML/ZyXMLStreamReader_p.h"

#include <ZyException.h>

#include <QByteArray>

#include <string>

namespace
{
std::string startTag(ZyString const & name, ZyXMLAttributeSetPtr const & attributes)
{
    std::string tag = "<" + name.toStdString();
    for (ZyXMLAttribute const & attribute : attributes) {
        tag += " " + attribute.name().toStdString() + "=\"" + attribute.value().toStdString() + "\"";
    }
    return tag + ">";
}

bool isBetweenElements(ZyXMLStreamReader::TokenType token)
{
    return token == ZyXMLStreamReader::NoToken || token == ZyXMLStreamReader::StartDocument ||
           token == ZyXMLStreamReader::EndElement;
}
} // namespace

/** Afterwards Qt's reader goes on where it was: it has read ahead, and must not see what follows twice. */
std::string ZyXMLStreamReader::Private::fragment(qint64 start, qint64 end)
{
    qint64 const back = bridge->pos();
    bridge->seek(start);
    QByteArray raw;
    while (raw.size() < end - start) { // one read may come a byte short
        QByteArray const piece = bridge->read(end - start - raw.size());
        if (piece.isEmpty()) {
            break;
        }
        raw += piece;
    }
    bridge->seek(back);
    bridge->check();
    return raw.toStdString();
}

ZyString ZyXMLStreamReader::toString()
{
    while (isBetweenElements(tokenType())) {
        nextElement();
    }
    if (tokenType() != StartElement) {
        throw ZyXMLException(errorString());
    }
    qint64 const start = d()->xml.characterOffset();
    std::string text = startTag(elementName(), attributes());
    for (unsigned int depth = 1; depth > 0;) {
        switch (next()) {
        case NoToken:
        case Invalid:
        case EndDocument:
            throw ZyXMLException(errorString());
        case StartElement:
            ++depth;
            break;
        case EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    text += d()->fragment(start, d()->xml.characterOffset());
    return ZyString(std::move(text));
}
