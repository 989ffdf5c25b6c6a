// SPDX-License-Identifier: BSD-3-Clause
// The order of attributes in formats that fix one: a table. Such formats are saved by code that knows no more
// of them than this.
#include "XML/ZyXMLAttributeOrder_p.h"

#include "XML/ZyXMLNames_p.h"

#include <limits>

namespace
{
constexpr std::string_view companion = "_ascii";

ZyXMLAttributeOrder::Format const & msw()
{
    static ZyXMLAttributeOrder::Format const format = {
        {"parameter", {"name", "nom", "usedvalue", "tol"}},
        {"sensval", {"case", "value"}},
        {"step", {"name", "case", "seed", "description"}},
        {"meritfunction", {"value", "name"}},
        {"header", {"analysis", "date", "numcores", "title", "group"}},
        {"msw", {"xmlns", "xmlns:xsi", "xsi:schemaLocation", "version", "rev"}},
    };
    return format;
}
} // namespace

ZyXMLAttributeOrder::Format const * ZyXMLAttributeOrder::formatOf(std::string_view namespaceUri)
{
    return namespaceUri == ZyXMLNames::msw ? &msw() : nullptr;
}

unsigned ZyXMLAttributeOrder::rank(Element const & element, std::string_view attribute)
{
    unsigned result = 0;
    for (std::string_view const name : element.attributes) {
        if (attribute.substr(0, name.size()) == name) {
            std::string_view const rest = attribute.substr(name.size());
            if (rest.empty() || rest == companion) {
                return rest.empty() ? result : result + 1;
            }
        }
        result += 2;
    }
    return std::numeric_limits<unsigned>::max();
}
