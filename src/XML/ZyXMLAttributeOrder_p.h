// SPDX-License-Identifier: BSD-3-Clause
// The order of attributes in formats that fix one.
#pragma once

#include <string_view>
#include <vector>

namespace ZyXMLAttributeOrder
{
/** The attributes of an element, in their order. */
struct Element
{
    std::string_view name;
    std::vector<std::string_view> attributes;
};

using Format = std::vector<Element>;

/** The format of documents whose root element is in a namespace; null for all that fix no order. */
Format const * formatOf(std::string_view namespaceUri);

/**
 * Where an attribute stands among those of its element; equal ranks are in the order of their names. A
 * companion, named by "_ascii" behind the name of another, follows that one; what is not in the list comes
 * last.
 */
unsigned rank(Element const & element, std::string_view attribute);
} // namespace ZyXMLAttributeOrder
