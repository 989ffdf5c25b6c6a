// SPDX-License-Identifier: BSD-3-Clause
// The bindings of single values, which are the text of their element.
#include <ZyXMLObject.h>

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

#include "XML/ZyXMLBinding_p.h"

using ZyXMLBinding::define;
using ZyXMLBinding::rememberNew;
using ZyXMLBinding::takeOut;
using ZyXMLBinding::valueSlot;

namespace
{
template <class T>
ZyUniquePtr<T> copyOf(ZyXMLRule & rule)
{
    return ZyUniquePtr<T>(new T(*rule.recall<T>(valueSlot)));
}

template <class T>
void rememberValue(ZyXMLRule & rule)
{
    rememberNew<T>(rule, valueSlot);
}
} // namespace

void ZyXMLObject<int>::Write(ZyXMLElementWriter & element, int const & value)
{
    element.writeText(ZyString(value));
}

ZySharedPtr<ZyXMLLambdaDefinition<int>> ZyXMLObject<int>::LoadRule()
{
    static auto const definition = define<int>(
        rememberValue<int>,
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<int>(valueSlot) = element.readText().toInt();
        },
        copyOf<int>);
    return definition;
}

void ZyXMLObject<double>::Write(ZyXMLElementWriter & element, double const & value)
{
    element.writeTextBase64(value);
}

ZySharedPtr<ZyXMLLambdaDefinition<double>> ZyXMLObject<double>::LoadRule()
{
    static auto const definition = define<double>(
        rememberValue<double>,
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<double>(valueSlot) = element.readTextBase64();
        },
        copyOf<double>);
    return definition;
}

void ZyXMLObject<ZyString>::Write(ZyXMLElementWriter & element, ZyString const & value)
{
    element.writeText(value);
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyString>> ZyXMLObject<ZyString>::LoadRule()
{
    static auto const definition = define<ZyString>(
        rememberValue<ZyString>,
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<ZyString>(valueSlot) = element.readText();
        },
        copyOf<ZyString>);
    return definition;
}

void ZyXMLObject<ZyFilePath>::Write(ZyXMLElementWriter & element, ZyFilePath const & value)
{
    element.writeText(value.toString());
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyFilePath>> ZyXMLObject<ZyFilePath>::LoadRule()
{
    static auto const definition = define<ZyFilePath>(
        rememberValue<ZyFilePath>,
        [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            *rule.recall<ZyFilePath>(valueSlot) = ZyFilePath(element.readText());
        },
        [](ZyXMLRule & rule) { return takeOut<ZyFilePath>(rule, valueSlot); });
    return definition;
}
