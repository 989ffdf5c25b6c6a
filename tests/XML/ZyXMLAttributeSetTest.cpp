// SPDX-License-Identifier: BSD-3-Clause
// Sets of attributes: order, names without regard to case, life, and the shared handle.
#include <ZyXMLAttributeSet.h>

#include "ThrowsMessage.h"

#include <ZyString.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace
{
static_assert(sizeof(ZyXMLAttributeSet) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLAttributeSet>);
static_assert(std::is_copy_constructible_v<ZyXMLAttributeSet> &&
              std::is_copy_assignable_v<ZyXMLAttributeSet>);
static_assert(std::is_nothrow_move_constructible_v<ZyXMLAttributeSet>);
static_assert(std::is_nothrow_move_assignable_v<ZyXMLAttributeSet>);
static_assert(std::is_base_of_v<std::shared_ptr<ZyXMLAttributeSet>, ZyXMLAttributeSetPtr>);
static_assert(std::has_virtual_destructor_v<ZyXMLAttributeSetPtr>);
static_assert(std::is_nothrow_move_constructible_v<ZyXMLAttributeSetPtr>);

/** "name=value " for each attribute, in order. */
std::string listed(ZyXMLAttributeSet const & set)
{
    std::string text;
    for (ZyXMLAttribute const & attribute : set) {
        text += attribute.name().toStdString() + "=" + attribute.value().toStdString() + " ";
    }
    return text;
}

ZyXMLAttributeSet abc()
{
    ZyXMLAttributeSet set;
    set.addAttribute("a", "1");
    set.addAttribute("b", "2");
    set.addAttribute("c", "3");
    return set;
}
} // namespace

TEST(ZyXMLAttributeSet, IsEmptyByDefault)
{
    ZyXMLAttributeSet set;
    EXPECT_EQ(set.size(), 0u);
    EXPECT_FALSE(set.hasAttribute("x"));
    EXPECT_TRUE(set.begin() == set.end());
    EXPECT_TRUE(std::as_const(set).begin() == std::as_const(set).end());
    set.removeAttribute("x");
    EXPECT_EQ(set.size(), 0u);
    EXPECT_EQ(set.readAttribute("x", "d").toStdString(), "d");
}

TEST(ZyXMLAttributeSet, Deliberate_attribute_names_ignore_case)
{
    ZyXMLAttributeSet set;
    set.addAttribute("Id", "1");
    set.addAttribute("unit", "V");
    set.addAttribute("ID", "2");
    EXPECT_EQ(listed(set), "Id=2 unit=V ");
    EXPECT_TRUE(set.hasAttribute("id"));
    EXPECT_EQ(set.get("iD").name().toStdString(), "Id");
    EXPECT_EQ(set.readAttribute("id").toStdString(), "2");
    EXPECT_EQ(set.readAttribute("id", "d").toStdString(), "2");
}

TEST(ZyXMLAttributeSet, KeepsTheOrderOfTheOthersWhenOneIsRemoved)
{
    ZyXMLAttributeSet set = abc();
    set.removeAttribute("B");
    EXPECT_EQ(listed(set), "a=1 c=3 ");
    set.removeAttribute("a");
    set.removeAttribute("missing");
    EXPECT_EQ(listed(set), "c=3 ");
    set.removeAttribute("c");
    EXPECT_EQ(set.size(), 0u);
    set.addAttribute("b", "4");
    EXPECT_EQ(listed(set), "b=4 ");
}

TEST(ZyXMLAttributeSet, AddsAnAttributeByItsNameAndValue)
{
    ZyXMLAttributeSet set = abc();
    set.addAttribute(ZyXMLAttribute("B", "new"));
    set.addAttribute(ZyXMLAttribute("d", "4"));
    EXPECT_EQ(listed(set), "a=1 b=new c=3 d=4 ");
}

TEST(ZyXMLAttributeSet, TakesADefaultConstructedAttribute)
{
    ZyXMLAttributeSet set;
    set.addAttribute(ZyXMLAttribute());
    EXPECT_EQ(set.size(), 1u);
    EXPECT_TRUE(set.hasAttribute(""));
    EXPECT_EQ(set.readAttribute("").toStdString(), "");
}

TEST(ZyXMLAttributeSet, AddsOneOfItsOwnAttributes)
{
    ZyXMLAttributeSet set = abc();
    set.addAttribute(*set.begin());
    set.addAttribute("d", set.get("c").value());
    EXPECT_EQ(listed(set), "a=1 b=2 c=3 d=3 ");
    set.removeAttribute(set.begin()->name());
    EXPECT_EQ(listed(set), "b=2 c=3 d=3 ");
}

TEST(ZyXMLAttributeSet, RefusesANewNameWithWhiteSpaceAndStaysAsItWas)
{
    ZyXMLAttributeSet set = abc();
    EXPECT_ZY_THROW(set.addAttribute("a b", "1"), ZyInvalidXMLAttributeName, "Invalid attribute name: a b");
    EXPECT_EQ(listed(set), "a=1 b=2 c=3 ");
}

TEST(ZyXMLAttributeSet, TellsWhichAttributeIsUnknown)
{
    ZyXMLAttributeSet const set = abc();
    EXPECT_ZY_THROW(set.get("Unit"), ZyUnknownXMLAttributeException, "Unknown attribute: Unit");
    EXPECT_ZY_THROW(set.readAttribute("x y"), ZyUnknownXMLAttributeException, "Unknown attribute: x y");
    EXPECT_ZY_THROW(ZyXMLAttributeSet().get(""), ZyUnknownXMLAttributeException, "Unknown attribute: ");
}

TEST(ZyXMLAttributeSet, LetsAttributesBeChangedInPlace)
{
    ZyXMLAttributeSet set = abc();
    for (ZyXMLAttribute & attribute : set) {
        attribute.setValue("v");
    }
    set.begin()->setName("first");
    EXPECT_EQ(listed(set), "first=v b=v c=v ");
    EXPECT_FALSE(set.hasAttribute("a"));
    EXPECT_TRUE(set.hasAttribute("First"));
}

TEST(ZyXMLAttributeSet, HoldsManyAttributesInOrder)
{
    ZyXMLAttributeSet set;
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        set.addAttribute("n" + std::to_string(i), std::to_string(i));
        expected += "n" + std::to_string(i) + "=" + std::to_string(i) + " ";
    }
    EXPECT_EQ(set.size(), 300u);
    EXPECT_EQ(listed(set), expected);
}

TEST(ZyXMLAttributeSet, CopiesDeeply)
{
    ZyXMLAttributeSet original = abc();
    ZyXMLAttributeSet const copy(original);
    ZyXMLAttributeSet assigned;
    assigned.addAttribute("z", "9");
    assigned = original;
    original.addAttribute("a", "changed");
    EXPECT_EQ(listed(copy), "a=1 b=2 c=3 ");
    EXPECT_EQ(listed(assigned), "a=1 b=2 c=3 ");
    ZyXMLAttributeSet const & same = assigned;
    assigned = same;
    EXPECT_EQ(listed(assigned), "a=1 b=2 c=3 ");
}

TEST(ZyXMLAttributeSet, HasNothingWhenMovedFromByConstruction)
{
    ZyXMLAttributeSet original = abc();
    ZyXMLAttributeSet const moved(std::move(original));
    EXPECT_EQ(listed(moved), "a=1 b=2 c=3 ");
    ZyXMLAttributeSet const copy(original); // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_EQ(copy.size(), 0u);
    EXPECT_EQ(original.size(), 0u);
    EXPECT_FALSE(original.hasAttribute("a"));
    EXPECT_EQ(listed(original), "");
    EXPECT_TRUE(original.begin() == original.end());
    original = moved;
    EXPECT_EQ(listed(original), "a=1 b=2 c=3 ");
}

TEST(ZyXMLAttributeSet, CanBeFilledAgainAfterAMove)
{
    ZyXMLAttributeSet original = abc();
    ZyXMLAttributeSet const moved(std::move(original));
    original.removeAttribute("a"); // NOLINT(bugprone-use-after-move): what is tested
    original.addAttribute("x", "1");
    EXPECT_EQ(listed(original), "x=1 ");
}

TEST(ZyXMLAttributeSet, LeavesAnEmptySetWhenMovedFromByAssignment)
{
    ZyXMLAttributeSet original = abc();
    ZyXMLAttributeSet target;
    target.addAttribute("z", "9");
    target = std::move(original);
    EXPECT_EQ(listed(target), "a=1 b=2 c=3 ");
    EXPECT_EQ(original.size(), 0u); // NOLINT(bugprone-use-after-move): what is tested
    original.addAttribute("x", "1");
    EXPECT_EQ(listed(original), "x=1 ");
    ZyXMLAttributeSet & same = target;
    target = std::move(same);
    EXPECT_EQ(listed(target), "a=1 b=2 c=3 ");
    ZyXMLAttributeSet const taken(std::move(target));
    original = std::move(target); // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_EQ(original.size(), 0u);
}

TEST(ZyXMLAttributeSetPtr, SharesOneSet)
{
    ZyXMLAttributeSetPtr handle(new ZyXMLAttributeSet(abc()));
    ZyXMLAttributeSetPtr const other = handle;
    handle->addAttribute("d", "4");
    (*handle).removeAttribute("a");
    handle.begin()->setValue("x");
    EXPECT_EQ(listed(*other), "b=x c=3 d=4 ");
    EXPECT_EQ(other->size(), 3u);
    EXPECT_EQ(other.use_count(), 2);
    EXPECT_EQ(other.end() - other.begin(), 3);
    EXPECT_EQ(handle.end() - handle.begin(), 3);
    std::string names;
    for (ZyXMLAttribute const & attribute : other) {
        names += attribute.name().toStdString();
    }
    EXPECT_EQ(names, "bcd");
}

TEST(ZyXMLAttributeSetPtr, TakesTheSetWithIt)
{
    std::weak_ptr<ZyXMLAttributeSet> watch;
    {
        ZyXMLAttributeSetPtr const handle(new ZyXMLAttributeSet);
        watch = handle;
        EXPECT_FALSE(watch.expired());
    }
    EXPECT_TRUE(watch.expired());
}

TEST(ZyXMLAttributeSetPtr, MovesWithoutCounting)
{
    ZyXMLAttributeSetPtr handle(std::make_shared<ZyXMLAttributeSet>(abc()));
    ZyXMLAttributeSetPtr moved(std::move(handle));
    EXPECT_EQ(moved.use_count(), 1);
    EXPECT_FALSE(handle); // NOLINT(bugprone-use-after-move): what is tested
    handle = std::move(moved);
    EXPECT_EQ(handle.use_count(), 1);
    moved = handle; // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_EQ(handle.use_count(), 2);
}

TEST(ZyXMLAttributeSetPtr, RefusesToBeUsedWithoutASet)
{
    ZyXMLAttributeSetPtr handle;
    ZyXMLAttributeSetPtr const & constant = handle;
    EXPECT_FALSE(handle);
    EXPECT_ZY_THROW(handle->size(), ZyNullPointerException, "");
    EXPECT_ZY_THROW(constant->size(), ZyNullPointerException, "");
    EXPECT_ZY_THROW(*handle, ZyNullPointerException, "");
    EXPECT_ZY_THROW(handle.begin(), ZyNullPointerException, "");
    EXPECT_ZY_THROW(constant.end(), ZyNullPointerException, "");
}
