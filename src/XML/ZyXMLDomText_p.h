// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory as text with a fixed order of attributes.
#pragma once

#include <QByteArray>
#include <QDomDocument>

namespace ZyXMLDomText
{
/**
 * What QDomDocument::toByteArray gives, in UTF-8, with the attributes of each start tag in a fixed order:
 * the one that the format of the document fixes (ZyXMLAttributeOrder), the order of the bytes of their names
 * otherwise. QDomDocument itself writes them in the order of a hash that is another one in each process.
 *
 * \param indent blanks a level, or -1 for none and no line breaks
 */
QByteArray of(QDomDocument const & document, int indent);

/** Turns a text in UTF-8 into the encoding that the document's declaration names, if it is a known one. */
QByteArray encoded(QByteArray const & text, QDomDocument const & document);
} // namespace ZyXMLDomText
