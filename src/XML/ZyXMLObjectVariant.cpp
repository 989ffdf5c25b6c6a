// SPDX-License-Identifier: BSD-3-Clause
// The binding of variants: one child element, named after the kind of the value.
#include <ZyXMLObject.h>

#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>

#include "XML/ZyXMLBinding_p.h"

using ZyXMLBinding::child;

namespace
{
using FilePathPair = ZyPair<ZyFilePath, ZyFilePath>;
using StringPair = ZyPair<ZyString, ZyString>;

constexpr char const * variantSlot = "value";

/** Adds a rule for the child element of a name, whose text is the value by way of \a read. */
template <class Read>
void addTextRule(ZyXMLRule & rule, char const * name, ZySharedPtr<ZyVariant> const & value, Read read)
{
    rule.addChildRule(
        name, [value, read](ZyXMLRule &, ZyXMLElementReader & element) { value->set(read(element)); });
}

/** Adds a rule for the child element of a name in which the value stands as its own type writes it. */
template <class T>
void addTypeRule(ZyXMLRule & rule, char const * name, ZySharedPtr<ZyVariant> const & value)
{
    rule.addChildRule<T>(name, [value](ZyUniquePtr<T> received) { value->set(*received); });
}

void setUp(ZyXMLRule & rule)
{
    auto const value = ZyXMLBinding::rememberNew<ZyVariant>(rule, variantSlot);
    addTextRule(rule, "Boolean", value,
                [](ZyXMLElementReader const & element) { return element.readText() == "true"; });
    addTextRule(rule, "Integer", value,
                [](ZyXMLElementReader const & element) { return element.readText().toInt(); });
    addTextRule(rule, "Double", value,
                [](ZyXMLElementReader const & element) { return element.readTextBase64(); });
    addTextRule(rule, "Size", value,
                [](ZyXMLElementReader const & element) { return element.readText().toSizeT(); });
    addTypeRule<ZyFilePath>(rule, "FilePath", value);
    addTypeRule<FilePathPair>(rule, "FilePathPair", value);
    addTextRule(rule, "String", value, [](ZyXMLElementReader const & element) { return element.readText(); });
    addTypeRule<StringPair>(rule, "StringPair", value);
}
} // namespace

void ZyXMLObject<ZyVariant>::Write(ZyXMLElementWriter & element, ZyVariant const & value)
{
    switch (value.type()) {
    case ZyVariant::Boolean:
        child(element, "Boolean")->writeText(value.asBoolean() ? "true" : "false");
        break;
    case ZyVariant::Integer:
        child(element, "Integer")->writeText(ZyString(value.asInteger()));
        break;
    case ZyVariant::Double:
        child(element, "Double")->writeTextBase64(value.asDouble());
        break;
    case ZyVariant::Size:
        child(element, "Size")->writeText(ZyString(value.asSize()));
        break;
    case ZyVariant::FilePath:
        ZyXMLObject<ZyFilePath>::Write(*child(element, "FilePath"), value.asFilePath());
        break;
    case ZyVariant::FilePathPair:
        ZyXMLObject<FilePathPair>::Write(*child(element, "FilePathPair"), value.asFilePathPair());
        break;
    case ZyVariant::String:
        child(element, "String")->writeText(value.asString());
        break;
    case ZyVariant::StringPair:
        ZyXMLObject<StringPair>::Write(*child(element, "StringPair"), value.asStringPair());
        break;
    case ZyVariant::Null:
        break;
    }
}

ZySharedPtr<ZyXMLLambdaDefinition<ZyVariant>> ZyXMLObject<ZyVariant>::LoadRule()
{
    static auto const definition = ZyXMLBinding::define<ZyVariant>(
        setUp,
        [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<ZyVariant>(variantSlot) = ZyVariant(); },
        [](ZyXMLRule & rule) {
            return ZyUniquePtr<ZyVariant>(new ZyVariant(*rule.recall<ZyVariant>(variantSlot)));
        });
    return definition;
}
