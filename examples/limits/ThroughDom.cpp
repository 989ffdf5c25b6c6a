// SPDX-License-Identifier: BSD-3-Clause
// Walking and changing a document in memory.
//
// A binding that opens its children by name alone, as that of Limit does, writes into a DOM as well as into a
// stream. Those of the library's types that have children (pairs, points, lists, variants, tables) give a
// namespace too, and a DOM writer takes the two arguments in the other order: what they write there cannot be
// read back. Such values go through a stream.

#include "ThroughDom.h"

#include "ThroughRules.h"

#include <ZyXMLDomElement.h>
#include <ZyXMLDomElementReader.h>
#include <ZyXMLDomElementWriter.h>

#include <memory>

namespace
{

// Knows no more than the abstract element, so it would read an element of a stream too.
Limit readLimit(ZyXMLElementReader & element)
{
    Limit limit;
    for (auto const & child : element.children()) {
        if (child->name() == "Name") {
            limit.name = child->readText();
        } else if (child->name() == "Value") {
            limit.value = child->readText().toInt();
        }
    }
    return limit;
}

} // namespace

Limits limitsOf(ZyXMLDomDocument & document)
{
    Limits limits;
    for (ZyXMLDomElement const & element : document.root().children(limitElement)) {
        ZyXMLDomElementReader reader(element);
        limits.push_back(readLimit(reader));
    }
    return limits;
}

void setLimit(ZyXMLDomDocument & document, ZyString const & name, int value)
{
    for (ZyXMLDomElement & element : document.root().children(limitElement)) {
        ZyXMLDomElementReader reader(element);
        if (readLimit(reader).name == name) {
            for (ZyXMLDomElement & child : element.children("Value")) {
                child.setText(ZyString(value));
            }
            return;
        }
    }
    ZyXMLDomElementWriter writer(document.root().addElement(limitElement));
    ZyXMLObject<Limit>::Write(writer, {name, value});
}
