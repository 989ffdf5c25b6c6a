// SPDX-License-Identifier: BSD-3-Clause
// Rules by themselves: place, loader, memory, and what needs a loader.
#include <ZyXMLRule.h>

#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <ZyException.h>
#include <ZyTemplateObject.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(std::is_abstract_v<ZyXMLRule> && std::has_virtual_destructor_v<ZyXMLRule>);
static_assert(sizeof(ZyXMLRule) == 2 * sizeof(void *) + sizeof(ZyXMLPath), "state and path");
static_assert(!std::is_copy_constructible_v<ZyXMLRule>);
static_assert(std::is_base_of_v<ZyObject, ZyTemplateObject<int>>);

namespace
{
struct PlainRule : ZyXMLRule
{
    PlainRule() = default;
    explicit PlainRule(ZyXMLPath const & path) : ZyXMLRule(path) {}
    explicit PlainRule(ZyXMLPath && path) : ZyXMLRule(std::move(path)) {}
    void onAdded() override {}
    void onStart(ZyXMLElementReader &) override {}
    void onFinish() override {}
};

struct Base
{
    int value = 0;
};
struct Derived : Base
{};

template <class T>
ZySharedPtr<T> shared(T value)
{
    return ZySharedPtr<T>(new T(std::move(value)));
}
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLRule, HasItsOperationsInTheToldOrder)
{
    EXPECT_EQ(virtualSlot(&ZyXMLRule::onAdded), 2u);
    EXPECT_EQ(virtualSlot(&ZyXMLRule::onStart), 3u);
    EXPECT_EQ(virtualSlot(&ZyXMLRule::onFinish), 4u);
}
#endif

TEST(ZyXMLRule, KeepsThePathThatItWasMadeWith)
{
    EXPECT_EQ(PlainRule().path(), ZyXMLPath());
    ZyXMLPath const path("a/b");
    EXPECT_EQ(PlainRule(path).path(), ZyXMLPath("a/b"));
    EXPECT_EQ(PlainRule(ZyXMLPath("c")).path(), ZyXMLPath("c"));
}

TEST(ZyXMLRule, HasNoLoaderUntilItIsGivenOne)
{
    PlainRule rule;
    EXPECT_TRUE(rule.loader().expired());
    ZySharedPtr<ZyXMLLoader> loader = ZyXMLLoader::Create();
    rule.setLoader(loader);
    EXPECT_EQ(rule.loader().lock(), loader);
    EXPECT_EQ(loader.use_count(), 1);
    loader.reset();
    EXPECT_TRUE(rule.loader().expired());
}

TEST(ZyXMLRule, CannotAddAnUntypedChildWithoutALoader)
{
    PlainRule rule(ZyXMLPath("a"));
    auto const add = [&] { rule.addChildRule("b", [](ZyXMLRule &, ZyXMLElementReader &) {}); };
    EXPECT_ZY_THROW(add(), ZyNullPointerException,
                    "XML rule cannot add a child rule when it is not assigned to a parent loader");
    rule.setLoader(ZyXMLLoader::Create()); // which goes at once
    EXPECT_ZY_THROW(add(), ZyNullPointerException,
                    "XML rule cannot add a child rule when it is not assigned to a parent loader");
}

TEST(ZyXMLRule, CannotAddATypedChildWithoutALoader)
{
    PlainRule rule(ZyXMLPath("a"));
    auto const add = [&] { rule.addChildRule<int>("b", [](ZyUniquePtr<int>) {}); };
    EXPECT_ZY_THROW(add(), ZyNullPointerException,
                    "No ZyXMLLoader object available when trying to add child rule");
    rule.setLoader(ZyXMLLoader::Create());
    EXPECT_ZY_THROW(add(), ZyNullPointerException,
                    "No ZyXMLLoader object available when trying to add child rule");
}

TEST(ZyXMLRule, RemembersAndRecallsTheSameObject)
{
    PlainRule rule;
    ZySharedPtr<int> const value = shared(5);
    EXPECT_EQ(rule.remember("val", value), value);
    EXPECT_EQ(rule.recall<int>("val"), value);
    EXPECT_EQ(rule.recall<int>(ZyString("val")), value);
    EXPECT_EQ(value.use_count(), 2);
}

TEST(ZyXMLRule, NamesOfMemoryIgnoreCase)
{
    PlainRule rule;
    ZySharedPtr<int> const first = rule.remember("Val", shared(1));
    EXPECT_EQ(rule.recall<int>("vAL"), first);
    EXPECT_EQ(rule.recall<int>(ZyString("VAL")), first);
    ZySharedPtr<int> const second = rule.remember("VAL", shared(2));
    EXPECT_EQ(rule.recall<int>("Val"), second);
}

TEST(ZyXMLRule, RememberingAgainReplaces)
{
    PlainRule rule;
    ZySharedPtr<int> const first = rule.remember("a", shared(1));
    rule.remember("b", shared(2));
    rule.remember("a", shared(3));
    EXPECT_EQ(*rule.recall<int>("a"), 3);
    EXPECT_EQ(*rule.recall<int>("b"), 2);
    EXPECT_EQ(first.use_count(), 1);
}

TEST(ZyXMLRule, RememberingNothingLeavesTheMemory)
{
    PlainRule rule;
    EXPECT_FALSE(rule.remember("a", ZySharedPtr<int>()));
    EXPECT_ZY_THROW(rule.recall<int>("a"), ZyNotFoundException, "Item not found: a");
    rule.remember("a", shared(1));
    EXPECT_FALSE(rule.remember("a", ZySharedPtr<int>()));
    EXPECT_EQ(*rule.recall<int>("a"), 1);
}

TEST(ZyXMLRule, RecallOfAMissingNameThrowsTheName)
{
    PlainRule rule;
    EXPECT_ZY_THROW(rule.recall<int>("val"), ZyNotFoundException, "Item not found: val");
    EXPECT_ZY_THROW(rule.recall<int>(ZyString("deque")), ZyNotFoundException, "Item not found: deque");
    EXPECT_ZY_THROW(rule.recall<int>(""), ZyNotFoundException, "Item not found: ");
    EXPECT_ZY_THROW(rule.recall<int>(static_cast<char const *>(nullptr)), ZyNotFoundException,
                    "Item not found: ");
}

TEST(ZyXMLRule, RecallOfAnotherTypeThrowsTheName)
{
    PlainRule rule;
    rule.remember("val", shared(1));
    rule.remember("derived", shared(Derived()));
    EXPECT_ZY_THROW(rule.recall<double>("val"), ZyNotFoundException, "Item not found: val");
    EXPECT_ZY_THROW(rule.recall<int const>("val"), ZyNotFoundException, "Item not found: val");
    EXPECT_ZY_THROW(rule.recall<Base>("derived"), ZyNotFoundException, "Item not found: derived");
    EXPECT_TRUE(rule.recall<Derived>("derived"));
}

TEST(ZyXMLRule, MemoryGoesWithTheRule)
{
    ZySharedPtr<int> const value = shared(5);
    {
        PlainRule rule;
        rule.remember("val", value);
        EXPECT_EQ(value.use_count(), 2);
    }
    EXPECT_EQ(value.use_count(), 1);
}

TEST(ZyTemplateObject, HoldsAValueAsAnObject)
{
    ZySharedPtr<ZyObject> const object(new ZyTemplateObject<std::string>("text"));
    auto const found = ZyDynamicPointerCast<ZyTemplateObject<std::string>>(object);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->value(), "text");
    found->value() += "s";
    EXPECT_EQ(static_cast<ZyTemplateObject<std::string> const &>(*found).value(), "texts");
    EXPECT_FALSE(ZyDynamicPointerCast<ZyTemplateObject<int>>(object));
}
