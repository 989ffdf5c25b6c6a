// SPDX-License-Identifier: BSD-3-Clause
// The rich table: rows, shared rows, questions, equality.
#include <ZyVariantTable.h>

#include "DataTables.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyDataTable) == 2 * sizeof(void *));
static_assert(std::has_virtual_destructor_v<ZyDataTable> && std::has_virtual_destructor_v<ZyDataTableRow>);
static_assert(std::is_copy_constructible_v<ZyDataTable> && std::is_move_assignable_v<ZyDataTable>);
static_assert(!std::is_copy_assignable_v<ZyDataTable>);
static_assert(ZyDataTable::Data == 0 && ZyDataTable::Header == 1 && ZyDataTable::SubHeader == 2);

TEST(ZyDataTable, IsEmptyByDefault)
{
    ZyDataTable const table;
    EXPECT_EQ(table.numberRows(), 0u);
    EXPECT_EQ(table.numberColumns(), 0u);
    EXPECT_TRUE(table.rows().isEmpty());
}

TEST(ZyDataTable, IsAsWideAsTheSpansOfItsWidestRow)
{
    ZyDataTable const table =
        tableOf({{ZyDataTableItem("a", 1), ZyDataTableItem("b", 2), ZyDataTableItem("c", 3)},
                 {ZyDataTableItem("d")}});
    EXPECT_EQ(table.numberColumns(), 6u);
    EXPECT_EQ(table.value(0, 0), ZyVariant("a"));
    EXPECT_EQ(table.value(0, 1), ZyVariant("b"));
    EXPECT_EQ(table.value(0, 2), ZyVariant("b"));
    EXPECT_EQ(table.value(0, 3), ZyVariant("c"));
    EXPECT_EQ(table.value(0, 5), ZyVariant("c"));
}

TEST(ZyDataTable, GivesTheEmptyStringWhereARowDoesNotReach)
{
    ZyDataTable const table = tableOf({{ZyVariant(1), ZyVariant(2)}, {ZyDataTableItem("wide", 6)}, Items()});
    ZyVariant const & missing = table.value(0, 5);
    EXPECT_EQ(missing.type(), ZyVariant::String);
    EXPECT_EQ(missing.asString().toStdString(), "");
    EXPECT_EQ(&missing, &table.value(2, 0));
    EXPECT_EQ(&missing, &table.value(0, 4294967295u));
    EXPECT_EQ(table.values(0, 2), (Values{""}));
}

TEST(ZyDataTable, PassesOverItemsOfNoColumn)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("none", 0), ZyDataTableItem("a")}});
    EXPECT_EQ(table.numberColumns(), 1u);
    EXPECT_EQ(table.value(0, 0), ZyVariant("a"));
}

TEST(ZyDataTable, IsAtMostAsWideAsANumberCanSay)
{
    ZyDataTable const table =
        tableOf({{ZyDataTableItem("a", 4000000000u), ZyDataTableItem("b", 4000000000u)}});
    EXPECT_EQ(table.numberColumns(), 4294967295u);
    EXPECT_EQ(table.value(0, 4294967295u), ZyVariant("b"));
}

TEST(ZyDataTable, AddsRowsInFourWays)
{
    ZyDataTable table;
    ZySharedPtr<ZyDataTableItem> const shared(new ZyDataTableItem("shared"));
    SharedItems items{shared};
    table.addRow(std::move(items), ZyDataTable::Header);
    Items const copies{ZyVariant("copied"), ZyVariant(2)};
    table.addRow(copies, ZyDataTable::SubHeader);
    ZyDataTableRow row(SharedItems{shared}, ZyDataTable::Data);
    table.addRow(std::move(row));
    ZyUniquePtr<ZyDataTableRow> owned(new ZyDataTableRow(SharedItems{shared, shared}, ZyDataTable::Header));
    ZyDataTableRow const * const address = owned.get();
    table.addRow(std::move(owned));
    ASSERT_EQ(table.numberRows(), 4u);
    EXPECT_EQ(table.numberColumns(), 2u);
    EXPECT_EQ(table.rows().at(0)->items.at(0), shared);
    EXPECT_EQ(table.rows().at(1)->type, ZyDataTable::SubHeader);
    EXPECT_EQ(table.value(1, 0), ZyVariant("copied"));
    EXPECT_EQ(table.rows().at(2)->items.at(0), shared);
    EXPECT_TRUE(row.items.isEmpty());
    EXPECT_EQ(table.rows().at(3).get(), address);
}

TEST(ZyDataTable, MayHoldARowWithoutItems)
{
    ZyDataTable const table = tableOf({Items()});
    EXPECT_EQ(table.numberRows(), 1u);
    EXPECT_EQ(table.numberColumns(), 0u);
}

TEST(ZyDataTable, RefusesANullRowAndNullItems)
{
    ZyDataTable table = tableOf({{ZyVariant(1)}});
    EXPECT_ZY_THROW(table.addRow(ZyUniquePtr<ZyDataTableRow>()), ZyNullPointerException,
                    "ZyUniquePtr dereferencing nullptr");
    SharedItems nulls{ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem("wide", 9)),
                      ZySharedPtr<ZyDataTableItem>()};
    EXPECT_ZY_THROW(table.addRow(std::move(nulls), ZyDataTable::Data), ZyNullPointerException, "");
    EXPECT_EQ(table.numberRows(), 1u);
    EXPECT_EQ(table.numberColumns(), 1u);
}

TEST(ZyDataTable, HasNoRowsAndNoColumnsOnceCleared)
{
    ZyDataTable table = tableOf({{ZyVariant(1), ZyVariant(2)}});
    table.clear();
    EXPECT_EQ(table.numberRows(), 0u);
    EXPECT_EQ(table.numberColumns(), 0u);
    table.addRow(Items{ZyVariant(1)}, ZyDataTable::Data);
    EXPECT_EQ(table.numberColumns(), 1u);
}

TEST(ZyDataTable, KnowsBothKindsOfHeadings)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant("h")}, ZyDataTable::Header);
    table.addRow(Items{ZyVariant("s")}, ZyDataTable::SubHeader);
    table.addRow(Items{ZyVariant("d")}, ZyDataTable::Data);
    table.addRow(Items{ZyVariant("?")}, static_cast<ZyDataTable::ItemType>(3));
    EXPECT_TRUE(table.isHeader(0));
    EXPECT_TRUE(table.isHeader(1));
    EXPECT_FALSE(table.isHeader(2));
    EXPECT_FALSE(table.isHeader(3));
}

TEST(ZyDataTable, ReportsARowThatIsNotThereWithTheNumberOfRows)
{
    ZyDataTable const table = tableOf({{ZyVariant(1)}, {ZyVariant(2)}, {ZyVariant(3)}});
    EXPECT_ZY_THROW(table.isHeader(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(table.value(4, 0), ZyIndexOutOfBoundsException, "Index out of bounds [4,3]");
    EXPECT_ZY_THROW(table.values(5, 0), ZyIndexOutOfBoundsException, "Index out of bounds [5,3]");
    EXPECT_ZY_THROW(ZyDataTable().value(0, 0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyDataTable, ThrowsWhenAnItemHasNotOneValue)
{
    ZyDataTable const table = tableOf({{Values{1, 2}, Values{}}});
    EXPECT_ZY_THROW(table.value(0, 0), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 2");
    EXPECT_ZY_THROW(table.value(0, 1), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 0");
    EXPECT_EQ(table.values(0, 0), (Values{1, 2}));
    EXPECT_EQ(table.values(0, 1), Values{});
}

TEST(ZyDataTable, SharesItsRowsWithItsCopies)
{
    ZyDataTable source = tableOf({{ZyVariant(2)}, {ZyVariant(1)}});
    ZyDataTable copy(source);
    EXPECT_EQ(copy.rows().at(0), source.rows().at(0));
    source.rows().at(0)->items.at(0)->set(ZyVariant("both"));
    EXPECT_EQ(copy.value(0, 0), ZyVariant("both"));
}

TEST(ZyDataTable, IsNotDisturbedByWhatACopyDoesWithItsRows)
{
    ZyDataTable const source = tableOf({{ZyVariant(2)}, {ZyVariant(1)}});
    ZyDataTable copy(source);
    copy.sort(0);
    EXPECT_EQ(columnOf(copy, 0), "1 2 ");
    copy.addRow(Items{ZyVariant(3), ZyVariant(4)}, ZyDataTable::Data);
    EXPECT_EQ(columnOf(source, 0), "2 1 ");
    EXPECT_EQ(source.numberColumns(), 1u);
    copy.clear();
    EXPECT_EQ(source.numberRows(), 2u);
}

TEST(ZyDataTable, Deliberate_data_table_move_copies)
{
    ZyDataTable source = tableOf({{ZyVariant(1)}});
    ZyDataTable const moved(std::move(source));
    EXPECT_EQ(source.numberRows(), 1u);
    EXPECT_EQ(moved.rows().at(0), source.rows().at(0));
}

TEST(ZyDataTable, SwapsWhenItIsMoveAssigned)
{
    ZyDataTable one = tableOf({{ZyVariant(1)}});
    ZyDataTable two = tableOf({{ZyVariant(2)}, {ZyVariant(3)}});
    one = std::move(two);
    EXPECT_EQ(columnOf(one, 0), "2 3 ");
    EXPECT_EQ(columnOf(two, 0), "1 ");
    ZyDataTable & same = one;
    one = std::move(same);
    EXPECT_EQ(columnOf(one, 0), "2 3 ");
}

TEST(ZyDataTable, IsMadeOfAVariantTable)
{
    ZyVariantTable source(2, 3, "x");
    source.at(1, 2) = 7;
    ZyDataTable const table(source);
    source.at(0, 0) = "later";
    EXPECT_EQ(table.numberRows(), 2u);
    EXPECT_EQ(table.numberColumns(), 3u);
    EXPECT_EQ(table.value(0, 0), ZyVariant("x"));
    EXPECT_EQ(table.value(1, 2), ZyVariant(7));
    EXPECT_EQ(table.rows().at(0)->type, ZyDataTable::Data);
    EXPECT_EQ(table.rows().at(0)->items.at(0)->columnSpan(), 1u);
    EXPECT_EQ(ZyDataTable(ZyVariantTable(0, 4)).numberColumns(), 4u);
    EXPECT_EQ(ZyDataTable(ZyVariantTable(4, 0)).numberRows(), 4u);
}

TEST(ZyDataTable, IsEqualWhenRowsAndWidthsAre)
{
    ZyDataTable const table = tableOf({{ZyVariant("a"), ZyVariant(2)}, {ZyVariant(3)}});
    EXPECT_TRUE(table == tableOf({{ZyVariant("A"), ZyVariant(2)}, {ZyVariant(3)}}));
    EXPECT_FALSE(table != tableOf({{ZyVariant("A"), ZyVariant(2)}, {ZyVariant(3)}}));
    EXPECT_FALSE(table == tableOf({{ZyVariant("a"), ZyVariant(2)}}));
    EXPECT_FALSE(table == tableOf({{ZyVariant("a"), ZyVariant(2)}, {ZyVariant(4)}}));
    EXPECT_TRUE(table != tableOf({{ZyVariant("a"), ZyVariant(2)}, {ZyVariant(3), ZyVariant("")}}));
    EXPECT_TRUE(ZyDataTable() == ZyDataTable());
}

TEST(ZyDataTable, IsNotEqualWhenOnlyTheWidthOrATypeDiffers)
{
    ZyDataTable once = tableOf({{ZyVariant(1)}});
    ZyDataTable wide = tableOf({{ZyVariant(1), ZyVariant(2)}});
    wide.rows().at(0)->items = SharedItems{ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem(1))};
    EXPECT_FALSE(once == wide);
    ZyDataTable header;
    header.addRow(Items{ZyVariant(1)}, ZyDataTable::Header);
    EXPECT_FALSE(once == header);
}

TEST(ZyDataTable, ComparesRowsOfOneWidthAndDifferentNumbersOfItems)
{
    ZyDataTable const one = tableOf({{ZyDataTableItem("a", 2)}});
    ZyDataTable const two = tableOf({{ZyDataTableItem("a"), ZyDataTableItem("b")}});
    EXPECT_FALSE(one == two);
    EXPECT_FALSE(two == one);
    EXPECT_FALSE(tableOf({{ZyDataTableItem("a", 2), ZyDataTableItem("b", 1)}}) ==
                 tableOf({{ZyDataTableItem("a", 1), ZyDataTableItem("b", 2)}}));
}
