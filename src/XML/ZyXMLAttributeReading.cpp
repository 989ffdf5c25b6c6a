// SPDX-License-Identifier: BSD-3-Clause
// The parser's attributes become a set of ours.
#include "XML/ZyXMLAttributeSet_p.h"

#include <ZyString.h>

#include <QXmlStreamAttributes>

void ZyXMLAttributeReading::append(ZyXMLAttributeSet & set, QXmlStreamAttributes const & attributes)
{
    for (QXmlStreamAttribute const & attribute : attributes) {
        set.addAttribute(ZyString(attribute.name()), ZyString(attribute.value()));
    }
}
