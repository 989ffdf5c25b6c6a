// SPDX-License-Identifier: BSD-3-Clause
// The XML forms of a property and of a set of them.
#include <ZyProperties.h>

#include "XML/ZyXMLNames_p.h"

#include <ZyException.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

namespace
{
/** What a child rule has delivered, which must be something. */
template <class T>
T const & delivered(ZyUniquePtr<T> const & value)
{
    if (!value) {
        throw ZyXMLException("Invalid property");
    }
    return *value;
}

void setUpProperty(ZyXMLRule & rule)
{
    auto const property = rule.remember("val", ZySharedPtr<ZyProperty>(new ZyProperty));
    rule.addChildRule("Name", [property](ZyXMLRule &, ZyXMLElementReader & element) {
        property->setName(element.readText());
    });
    rule.addChildRule<ZyVariant>(
        "Value", [property](ZyUniquePtr<ZyVariant> value) { property->setValue(delivered(value)); });
}

void setUpProperties(ZyXMLRule & rule)
{
    auto const properties = rule.remember("props", ZySharedPtr<ZyProperties>(new ZyProperties));
    rule.addChildRule<ZyProperty>(
        "Property", [properties](ZyUniquePtr<ZyProperty> property) { properties->add(delivered(property)); });
}
} // namespace

void ZyXMLObject<ZyProperty>::Write(ZyXMLElementWriter & element, ZyProperty const & value)
{
    element.createElement("Name", ZyXMLNames::types)->writeText(value.name());
    ZyXMLObject<ZyVariant>::Write(*element.createElement("Value", ZyXMLNames::types), value.value());
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyProperty>> ZyXMLObject<ZyProperty>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyProperty>> const definition(
        new ZyXMLLambdaDefinition<ZyProperty>{
            setUpProperty,
            [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<ZyProperty>("val") = ZyProperty(); },
            [](ZyXMLRule & rule) {
                return ZyUniquePtr<ZyProperty>(new ZyProperty(*rule.recall<ZyProperty>("val")));
            }});
    return definition;
}

void ZyXMLObject<ZyProperties>::Write(ZyXMLElementWriter & element, ZyProperties const & value)
{
    value.forEach([&](ZyProperty const & property) {
        ZyXMLObject<ZyProperty>::Write(*element.createElement("Property", ZyXMLNames::types), property);
    });
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyProperties>> ZyXMLObject<ZyProperties>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyProperties>> const definition(
        new ZyXMLLambdaDefinition<ZyProperties>{
            setUpProperties,
            [](ZyXMLRule & rule, ZyXMLElementReader &) { rule.recall<ZyProperties>("props")->clear(); },
            [](ZyXMLRule & rule) {
                return ZyUniquePtr<ZyProperties>(new ZyProperties(*rule.recall<ZyProperties>("props")));
            }});
    return definition;
}
