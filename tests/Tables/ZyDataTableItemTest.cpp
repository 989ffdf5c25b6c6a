// SPDX-License-Identifier: BSD-3-Clause
// One cell of a data table.
#include "DataTables.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyDataTableItem) == sizeof(void *));
static_assert(!std::is_polymorphic_v<ZyDataTableItem>);
static_assert(std::is_copy_constructible_v<ZyDataTableItem> && std::is_copy_assignable_v<ZyDataTableItem>);
static_assert(std::is_move_constructible_v<ZyDataTableItem> && std::is_move_assignable_v<ZyDataTableItem>);

TEST(ZyDataTableItem, HoldsTheEmptyStringByDefault)
{
    ZyDataTableItem const item;
    EXPECT_EQ(item.columnSpan(), 1u);
    EXPECT_EQ(item.numberValues(), 1u);
    EXPECT_EQ(item.value().type(), ZyVariant::String);
    EXPECT_EQ(item.value().asString().toStdString(), "");
}

TEST(ZyDataTableItem, HoldsOneValueAndASpan)
{
    ZyVariant const value("x");
    EXPECT_EQ(ZyDataTableItem(value).value(), value);
    EXPECT_EQ(ZyDataTableItem(value).columnSpan(), 1u);
    EXPECT_EQ(ZyDataTableItem(ZyVariant(7)).value(), ZyVariant(7));
    EXPECT_EQ(ZyDataTableItem(value, 3).value(), value);
    EXPECT_EQ(ZyDataTableItem(value, 3).columnSpan(), 3u);
    EXPECT_EQ(ZyDataTableItem(ZyVariant(7), 0).columnSpan(), 0u);
    EXPECT_EQ(ZyDataTableItem(ZyVariant(7), 4294967295u).columnSpan(), 4294967295u);
}

TEST(ZyDataTableItem, HoldsSeveralValues)
{
    Values const values{1, 2, 3};
    EXPECT_EQ(ZyDataTableItem(values).values(), values);
    EXPECT_EQ(ZyDataTableItem(values).columnSpan(), 1u);
    EXPECT_EQ(ZyDataTableItem(Values(values)).numberValues(), 3u);
    EXPECT_EQ(ZyDataTableItem(values, 2).columnSpan(), 2u);
    ZyDataTableItem const moved(Values{4, 5}, 6);
    EXPECT_EQ(moved.values(), (Values{4, 5}));
    EXPECT_EQ(moved.columnSpan(), 6u);
}

TEST(ZyDataTableItem, MovesValuesInWithoutACopy)
{
    ZyVariant value(ZyString(std::string(100, 'x')));
    char const * const characters = value.asString().c_str();
    ZyDataTableItem const item(std::move(value));
    EXPECT_EQ(item.value().asString().c_str(), characters);
    Values values{ZyString(std::string(100, 'y'))};
    ZyVariant const * const first = &values.at(0);
    ZyDataTableItem const stacked(std::move(values));
    EXPECT_EQ(&stacked.values().at(0), first);
}

TEST(ZyDataTableItem, ThrowsWhenItHasNotExactlyOneValue)
{
    ZyDataTableItem const none(Values{});
    EXPECT_EQ(none.numberValues(), 0u);
    EXPECT_ZY_THROW(none.value(), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 0");
    EXPECT_ZY_THROW(ZyDataTableItem(Values{1, 2, 3}).value(), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 3");
}

TEST(ZyDataTableItem, TakesOtherValuesAndKeepsItsSpan)
{
    ZyDataTableItem item(Values{1, 2, 3}, 4);
    ZyVariant const value("one");
    item.set(value);
    EXPECT_EQ(item.values(), (Values{"one"}));
    item.set(ZyVariant(2.5));
    EXPECT_EQ(item.values(), (Values{2.5}));
    item.set(Values{7, 8});
    EXPECT_EQ(item.values(), (Values{7, 8}));
    item.set(Values{});
    EXPECT_EQ(item.numberValues(), 0u);
    EXPECT_EQ(item.columnSpan(), 4u);
}

TEST(ZyDataTableItem, TakesOneOfItsOwnValues)
{
    ZyDataTableItem item(Values{"first", "second"});
    item.set(item.values().at(1));
    EXPECT_EQ(item.values(), (Values{"second"}));
    item.set(item.value());
    EXPECT_EQ(item.values(), (Values{"second"}));
}

TEST(ZyDataTableItem, VisitsItsValuesFromTopToBottom)
{
    Values visited;
    ZyDataTableItem(Values{1, "b", 3.0}).forEachValue([&](ZyVariant const & value) { visited.add(value); });
    EXPECT_EQ(visited, (Values{1, "b", 3.0}));
    std::function<void(ZyVariant const &)> const empty;
    ZyDataTableItem(Values{}).forEachValue(empty);
    EXPECT_THROW(ZyDataTableItem().forEachValue(empty), std::bad_function_call);
}

TEST(ZyDataTableItem, IsEqualWhenSpanAndValuesAre)
{
    EXPECT_TRUE(ZyDataTableItem(Values{1, "x"}, 2) == ZyDataTableItem(Values{1, "X"}, 2));
    EXPECT_FALSE(ZyDataTableItem(Values{1, "x"}, 2) == ZyDataTableItem(Values{1, "x"}, 3));
    EXPECT_FALSE(ZyDataTableItem(Values{1, "x"}) == ZyDataTableItem(Values{1}));
    EXPECT_FALSE(ZyDataTableItem(Values{1, 2}) == ZyDataTableItem(Values{2, 1}));
    EXPECT_TRUE(ZyDataTableItem(Values{1}) != ZyDataTableItem(Values{1.0}));
    EXPECT_FALSE(ZyDataTableItem(Values{}) != ZyDataTableItem(Values{}));
}

TEST(ZyDataTableItem, CopiesDeeply)
{
    ZyDataTableItem source(Values{1, 2}, 3);
    ZyDataTableItem const copy(source);
    ZyDataTableItem assigned;
    assigned = source;
    source.set(ZyVariant("changed"));
    EXPECT_EQ(copy, ZyDataTableItem(Values{1, 2}, 3));
    EXPECT_EQ(assigned, ZyDataTableItem(Values{1, 2}, 3));
    ZyDataTableItem & same = assigned;
    assigned = same;
    EXPECT_EQ(assigned, ZyDataTableItem(Values{1, 2}, 3));
    assigned = std::move(same);
    EXPECT_EQ(assigned, ZyDataTableItem(Values{1, 2}, 3));
}

TEST(ZyDataTableItem, HoldsNothingAfterItWasMoved)
{
    ZyDataTableItem source(Values{1, 2}, 3);
    ZyDataTableItem target(std::move(source));
    EXPECT_EQ(target, ZyDataTableItem(Values{1, 2}, 3));
    EXPECT_EQ(source.numberValues(), 0u);
    source.set(ZyVariant(5));
    EXPECT_EQ(source.value(), ZyVariant(5));
    source = std::move(target);
    EXPECT_EQ(source, ZyDataTableItem(Values{1, 2}, 3));
    EXPECT_EQ(target.numberValues(), 0u);
}
