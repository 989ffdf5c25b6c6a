// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory as text with a fixed order of attributes.
#pragma once

#include <QByteArray>
#include <QDomDocument>

namespace ZyXMLDomText
{
/**
 * What QDomDocument::toByteArray gives, in UTF-8, with the attributes of each start tag in the order of the
 * bytes of their names. QDomDocument itself writes them in the order of a hash that is another one in each
 * process.
 *
 * \param indent blanks a level, or -1 for none and no line breaks
 */
QByteArray of(QDomDocument const & document, int indent);

/** Puts the attributes of each start tag in order, in place. What is not understood stays as it is. */
void sortAttributes(QByteArray & markup);

/** Turns a text in UTF-8 into the encoding that the document's declaration names, if it is a known one. */
QByteArray encoded(QByteArray const & text, QDomDocument const & document);
} // namespace ZyXMLDomText
