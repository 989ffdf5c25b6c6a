// SPDX-License-Identifier: BSD-3-Clause
// Values as markup.
#include "Office/ZyCellText_p.h"

#include "XML/ZyXMLText_p.h"

#include <ZyVariant.h>

void ZyCellText::append(std::string & markup, ZyVariant const & value)
{
    switch (value.type()) {
    case ZyVariant::Integer:
        appendNumber(markup, value.asInteger());
        break;
    case ZyVariant::Double:
        appendNumber(markup, value.asDouble());
        break;
    case ZyVariant::String:
        ZyXMLText::appendEscaped(markup, value.asString().toStdString());
        break;
    default:
        ZyXMLText::appendEscaped(markup, value.toString().toStdString());
        break;
    }
}
