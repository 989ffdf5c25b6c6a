// SPDX-License-Identifier: BSD-3-Clause
// The two XML forms of a moment: an element with the time as an attribute, and the binding, whose time is the
// text.
#include <ZyDateTime.h>

#include <ZyException.h>
#include <ZyStringView.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

namespace
{
ZyDateTime inUtc(ZyDateTime const & moment)
{
    ZyDateTime result(moment);
    result.setRepresentation(ZyDateTime::UTC);
    return result;
}

char const * nameOf(ZyDateTime::Representation representation)
{
    return representation == ZyDateTime::Local ? "local" : "utc";
}

ZyDateTime::Representation representationOf(ZyString const & name)
{
    return name == "local" ? ZyDateTime::Local : ZyDateTime::UTC;
}

/** What stands in the places of the fields. */
ZyDateTime readFields(ZyString const & text)
{
    int const year = text.substring(0, 4).toInt();
    int const month = text.substring(5, 2).toInt() - 1;
    int const day = text.substring(8, 2).toInt();
    int const hours = text.substring(11, 2).toInt();
    int const minutes = text.substring(14, 2).toInt();
    int const seconds = text.substring(17, 2).toInt();
    return ZyDateTime(day, static_cast<ZyDateTime::Month>(month), year, hours, minutes, seconds,
                      ZyDateTime::UTC);
}

void checkComesBack(ZyDateTime const & moment, ZyString const & text)
{
    if (inUtc(moment).toString() != text) {
        throw ZyInvalidParameterException(text);
    }
}
} // namespace

ZyUniquePtr<ZyDateTime> ZyDateTime::XMLLoader(ZyXMLElementReader & element)
{
    ZyString const text = element.readAttribute("time");
    ZyUniquePtr<ZyDateTime> result(new ZyDateTime(readFields(text)));
    result->setRepresentation(representationOf(element.readAttribute("rep")));
    checkComesBack(*result, text);
    return result;
}

ZyString ZyDateTime::xmlElementName() const
{
    return "DateTime";
}

void ZyDateTime::onWriteXMLAttributes(ZyXMLElementWriter & element) const
{
    element.writeAttribute("time", inUtc(*this).toString());
    element.writeAttribute("rep", nameOf(representation()));
}

void ZyDateTime::onWriteXMLContent(ZyXMLElementWriter &) const {}

void ZyXMLObject<ZyDateTime>::Write(ZyXMLElementWriter & element, ZyDateTime const & value)
{
    element.writeAttribute("rep", nameOf(value.representation()));
    element.writeText(inUtc(value).toString());
}

namespace
{
void startDateTime(ZyXMLRule & rule, ZyXMLElementReader & element)
{
    auto const value = rule.recall<ZyDateTime>("val");
    ZyDateTime::Representation const representation = representationOf(element.readAttribute("rep"));
    ZyString const text = element.readText();
    *value = readFields(text);
    value->setRepresentation(representation);
    checkComesBack(*value, text);
}
} // namespace

ZySharedPtr<ZyXMLLambdaDefinition<ZyDateTime>> ZyXMLObject<ZyDateTime>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyDateTime>> const definition(
        new ZyXMLLambdaDefinition<ZyDateTime>{
            [](ZyXMLRule & rule) { rule.remember("val", ZySharedPtr<ZyDateTime>(new ZyDateTime)); },
            startDateTime,
            [](ZyXMLRule & rule) {
                return ZyUniquePtr<ZyDateTime>(new ZyDateTime(*rule.recall<ZyDateTime>("val")));
            }});
    return definition;
}
