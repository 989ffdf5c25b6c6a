// SPDX-License-Identifier: BSD-3-Clause
// The state of the elements of documents in memory.
#pragma once

#include <ZyXMLDomElement.h>

#include <QDomDocument>
#include <QDomElement>

class ZyXMLDomElement::Private : public ZyPrivateObject
{
public:
    Private() = default;
    Private(QDomElement const & node, QDomDocument const & owner) : element(node), document(owner) {}

    QDomElement element;
    QDomDocument document; ///< makes the new nodes; kept, since its nodes do not keep it
};
