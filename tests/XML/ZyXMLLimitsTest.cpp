// SPDX-License-Identifier: BSD-3-Clause
// A host's own type bound through rules, from the declaration to the finished list.
#include <ZyXMLLambdaRule.h>

#include "XmlLoad.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
struct Limit
{
    std::string name;
    int value = 0;
};

bool operator==(Limit const & a, Limit const & b)
{
    return a.name == b.name && a.value == b.value;
}

using Limits = std::vector<Limit>;
} // namespace

template <>
struct ZyXMLObject<Limit, void>
{
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> LoadRule();
};

ZySharedPtr<ZyXMLLambdaDefinition<Limit>> ZyXMLObject<Limit>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const definition = [] {
        ZySharedPtr<ZyXMLLambdaDefinition<Limit>> made(new ZyXMLLambdaDefinition<Limit>);
        made->setup = [](ZyXMLRule & rule) {
            auto const limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
            rule.addChildRule("Name", [limit](ZyXMLRule &, ZyXMLElementReader & element) {
                limit->name = element.readText().toStdString();
            });
            rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
        };
        made->start = [](ZyXMLRule & rule, ZyXMLElementReader &) { *rule.recall<Limit>("val") = Limit(); };
        made->finish = [](ZyXMLRule & rule) {
            return ZyUniquePtr<Limit>(new Limit(*rule.recall<Limit>("val")));
        };
        return made;
    }();
    return definition;
}

namespace
{
Limits loadLimits(std::string const & text)
{
    Limits limits;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<Limit>("Limits/Limit", [&](ZyUniquePtr<Limit> limit) { limits.push_back(*limit); });
    loadText(*loader, text);
    return limits;
}
} // namespace

TEST(ZyXMLLimits, LoadThroughTheBoundType)
{
    EXPECT_EQ(loadLimits("<Limits><Limit><Name>a</Name><Value>1</Value></Limit><Other/></Limits>"),
              (Limits{{"a", 1}}));
}

TEST(ZyXMLLimits, BeginEachElementAfresh)
{
    EXPECT_EQ(
        loadLimits("<Limits><Limit><Name>a</Name><Value>1</Value></Limit><Limit><Value>2</Value></Limit>"
                   "<Limit/><Other><Limit><Name>x</Name></Limit></Other></Limits>"),
        (Limits{{"a", 1}, {"", 2}, {"", 0}}));
}

TEST(ZyXMLLimits, DeliverWhatWasReadBeforeTheDocumentBrokeOff)
{
    std::string const whole = "<Limits><Limit><Name>a</Name><Value>1</Value></Limit>";
    EXPECT_EQ(loadLimits(whole + "<Limit><Name>b</Name>"), (Limits{{"a", 1}, {"b", 0}}));
    EXPECT_EQ(loadLimits(whole + "<Limit><Name>b</Nome>"), (Limits{{"a", 1}, {"b", 0}}));
}

TEST(ZyXMLLimits, LoadThroughARuleWithoutATraitsClass)
{
    Limits limits;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add(ZyUniquePtr<ZyXMLRule>(
        new ZyXMLLambdaRule<Limit>(ZyXMLPath{"Limits", "Limit"}, ZyXMLObject<Limit>::LoadRule(),
                                   [&](ZyUniquePtr<Limit> limit) { limits.push_back(*limit); })));
    loadText(*loader, "<Limits><Limit><Name>a</Name><Value>1</Value></Limit></Limits>");
    EXPECT_EQ(limits, (Limits{{"a", 1}}));
}

TEST(ZyXMLLimits, HaveOneDefinition)
{
    EXPECT_EQ(ZyXMLObject<Limit>::LoadRule(), ZyXMLObject<Limit>::LoadRule());
}
