// SPDX-License-Identifier: BSD-3-Clause
// The rules of a limit.

#include "Limit.h"

#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLRule.h>

#include <algorithm>
#include <memory>

namespace
{

// Called once for each rule: puts a limit into the rule's memory, and tells what its children put into it.
void setUp(ZyXMLRule & rule)
{
    ZySharedPtr<Limit> const limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
    rule.addChildRule(
        "Name", [limit](ZyXMLRule &, ZyXMLElementReader & element) { limit->name = element.readText(); });
    rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
}

// Called at each element: one rule reads them all, so the limit before must not shine through. The children
// hold the limit in memory, so it gets a new content and does not become a new object.
void start(ZyXMLRule & rule, ZyXMLElementReader &)
{
    *rule.recall<Limit>("val") = Limit();
}

// Called when the children have been read.
ZyUniquePtr<Limit> finish(ZyXMLRule & rule)
{
    return ZyUniquePtr<Limit>(new Limit(*rule.recall<Limit>("val")));
}

} // namespace

void setLimit(Limits & limits, ZyString const & name, int value)
{
    auto const found =
        std::find_if(limits.begin(), limits.end(), [&](Limit const & limit) { return limit.name == name; });
    if (found != limits.end()) {
        found->value = value;
    } else {
        limits.push_back({name, value});
    }
}

ZySharedPtr<ZyXMLLambdaDefinition<Limit>> ZyXMLObject<Limit>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const definition(
        new ZyXMLLambdaDefinition<Limit>{setUp, start, finish});
    return definition;
}

void ZyXMLObject<Limit>::Write(ZyXMLElementWriter & element, Limit const & limit)
{
    // An element ends when its writer goes: here at the end of the line, and there at the end of the block.
    element.createElement("Name")->writeText(limit.name);
    std::unique_ptr<ZyXMLElementWriter> const value = element.createElement("Value");
    ZyXMLObject<int>::Write(*value, limit.value);
}
