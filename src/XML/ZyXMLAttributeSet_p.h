// SPDX-License-Identifier: BSD-3-Clause
// The state of a set of attributes, and how the parser's attributes become one.
#pragma once

#include <ZyXMLAttributeSet.h>

#include <vector>

class QXmlStreamAttributes;

class ZyXMLAttributeSet::Private : public ZyPrivateObject
{
public:
    std::vector<ZyXMLAttribute> attributes; ///< in the order of first insertion
};

/** Fills sets from what Qt's reader has found. */
class ZyXMLAttributeReading
{
public:
    /** As addAttribute with the local name and the value of each; the time does not grow with the square. */
    static void append(ZyXMLAttributeSet & set, QXmlStreamAttributes const & attributes);
};
