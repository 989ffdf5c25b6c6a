// SPDX-License-Identifier: BSD-3-Clause
// The walks over a data table.
#include "DataTables.h"
#include "LayoutExamples.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
std::string shown(ZyVariant const & value)
{
    std::string const text = value.toString().toStdString();
    return text.empty() ? "''" : text;
}

/** The calls of the walk over all cells. */
std::string cellsOf(ZyDataTable const & table)
{
    std::string calls;
    table.forEach([&](ZyDataTableItem const & item, unsigned int row, unsigned int column) {
        calls +=
            "(" + shown(item.value()) + " r" + std::to_string(row) + " c" + std::to_string(column) + ") ";
    });
    return calls;
}

/** The calls of the walk over one row. */
std::string itemsOf(ZyDataTable const & table, unsigned int row)
{
    std::string calls;
    table.forEachItem(row, [&](ZyDataTableItem const & item, unsigned int column, unsigned int columnSpan) {
        calls += "(" + shown(item.value()) + " c" + std::to_string(column) + " x" +
                 std::to_string(columnSpan) + ") ";
    });
    return calls;
}

/** The calls of the walk for a worksheet. */
std::string spreadsheetCellsOf(ZyDataTable const & table)
{
    std::string calls;
    table.forEachItemSpreadsheet([&](ZyVariant const & value, unsigned int row, unsigned int column,
                                     unsigned int columnSpan, unsigned int rowSpan, ZyDataTable::ItemType) {
        calls += "(" + shown(value) + " r" + std::to_string(row) + " c" + std::to_string(column) + " " +
                 std::to_string(columnSpan) + "x" + std::to_string(rowSpan) + ") ";
    });
    return calls;
}

/** A table whose one row became wider than the table is. */
ZyDataTable overfull()
{
    ZyDataTable table = tableOf({{ZyVariant(1), ZyVariant(2)}});
    *table.rows().at(0)->items.at(1) = ZyDataTableItem(2, 5);
    return table;
}
} // namespace

TEST(ZyDataTableForEach, VisitsEveryCellWithRowAndColumn)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("a", 2), ZyVariant("b")}, {ZyVariant("c")}});
    EXPECT_EQ(cellsOf(table), "(a r0 c0) (b r0 c2) (c r1 c0) ('' r1 c1) ('' r1 c2) ");
}

TEST(ZyDataTableForEach, VisitsNothingOfAnEmptyTable)
{
    EXPECT_EQ(cellsOf(ZyDataTable()), "");
    EXPECT_EQ(spreadsheetCellsOf(ZyDataTable()), "");
    EXPECT_EQ(ZyDataTable().numberSpreadsheetRows(), 0u);
}

TEST(ZyDataTableForEachItem, GivesSpansAndPadsAShortRow)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("wide", 4)}, {ZyVariant(1), ZyVariant(2)}, Items()});
    EXPECT_EQ(itemsOf(table, 0), "(wide c0 x4) ");
    EXPECT_EQ(itemsOf(table, 1), "(1 c0 x1) (2 c1 x1) ('' c2 x1) ('' c3 x1) ");
    EXPECT_EQ(itemsOf(table, 2), "('' c0 x1) ('' c1 x1) ('' c2 x1) ('' c3 x1) ");
}

TEST(ZyDataTableForEachItem, PadsWithStrings)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("wide", 2)}, {ZyVariant(1)}});
    table.forEachItem(1, [](ZyDataTableItem const & item, unsigned int column, unsigned int) {
        EXPECT_EQ(item.value().type(), column == 0 ? ZyVariant::Integer : ZyVariant::String);
    });
}

TEST(ZyDataTableForEachItem, ReportsARowThatIsNotThere)
{
    ZyDataTable const table = tableOf({{ZyVariant(1)}});
    EXPECT_ZY_THROW(itemsOf(table, 1), ZyIndexOutOfBoundsException, "Index out of bounds [1,1]");
}

TEST(ZyDataTableForEachItem, ThrowsOnAnEmptyFunctionOnlyWhereThereIsACell)
{
    std::function<void(ZyDataTableItem const &, unsigned int, unsigned int)> const empty;
    tableOf({Items()}).forEachItem(0, empty);
    EXPECT_THROW(tableOf({{ZyVariant(1)}}).forEachItem(0, empty), std::bad_function_call);
}

TEST(ZyDataTableWalks, RefuseARowThatIsWiderThanTheTable)
{
    ZyDataTable const table = overfull();
    char const * const words = "Data table row given invalid number of columns to iterate over";
    EXPECT_ZY_THROW(cellsOf(table), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(itemsOf(table, 0), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(spreadsheetCellsOf(table), ZyInvalidCallException, words);
    *table.rows().at(0)->items.at(0) = ZyDataTableItem(Values{1, 2});
    EXPECT_ZY_THROW(spreadsheetCellsOf(table), ZyInvalidCallException, words);
}

TEST(ZyDataTableSpreadsheetRows, AreTheHeightsOfTheRows)
{
    EXPECT_EQ(tableOf({{ZyVariant(1), ZyVariant(2)}, {ZyVariant(3)}}).numberSpreadsheetRows(), 2u);
    EXPECT_EQ(tableOf({{Values{1, 2, 3}, ZyVariant("x")}}).numberSpreadsheetRows(), 3u);
    EXPECT_EQ(tableOf({Items(), {Values{}}}).numberSpreadsheetRows(), 0u);
    EXPECT_EQ(tableOf({{Values{}, Values{1, 2}}, Items(), {ZyVariant(1)}}).numberSpreadsheetRows(), 3u);
}

TEST(ZyDataTableSpreadsheet, GivesSingleValuesAsTheyStand)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("a", 2), ZyVariant(1)}, {ZyVariant(2)}});
    EXPECT_EQ(spreadsheetCellsOf(table),
              "(a r0 c0 2x1) (1 r0 c2 1x1) (2 r1 c0 1x1) ('' r1 c1 1x1) ('' r1 c2 1x1) ");
}

TEST(ZyDataTableSpreadsheet, MakesOneTallCellBesideStackedValues)
{
    ZyDataTable const table = tableOf({{ZyVariant("x"), Values{1, 2, 3}}});
    EXPECT_EQ(table.numberSpreadsheetRows(), 3u);
    EXPECT_EQ(spreadsheetCellsOf(table), "(x r0 c0 1x3) (1 r0 c1 1x1) (2 r1 c1 1x1) (3 r2 c1 1x1) ");
}

TEST(ZyDataTableSpreadsheet, GoesOnBelowATallRow)
{
    ZyDataTable const table =
        tableOf({{Values{1, 2}}, {ZyVariant("below")}, {Values{3, 4, 5}}, {ZyVariant("end")}});
    EXPECT_EQ(spreadsheetCellsOf(table), "(1 r0 c0 1x1) (2 r1 c0 1x1) (below r2 c0 1x1) (3 r3 c0 1x1) "
                                         "(4 r4 c0 1x1) (5 r5 c0 1x1) (end r6 c0 1x1) ");
}

TEST(ZyDataTableSpreadsheet, PadsATallRowWithTallBlanks)
{
    ZyDataTable const table = tableOf({{ZyDataTableItem("wide", 3)}, {Values{1, 2}}});
    EXPECT_EQ(spreadsheetCellsOf(table),
              "(wide r0 c0 3x1) (1 r1 c0 1x1) ('' r1 c1 1x2) ('' r1 c2 1x2) (2 r2 c0 1x1) ");
}

TEST(ZyDataTableSpreadsheet, Deliberate_stacked_values_plain_offsets)
{
    ZyDataTable const divides = tableOf({{Values{"a", "b"}, Values{1, 2, 3, 4}}});
    EXPECT_EQ(spreadsheetCellsOf(divides),
              "(a r0 c0 1x2) (1 r0 c1 1x1) (b r1 c0 1x2) (2 r1 c1 1x1) (3 r2 c1 1x1) "
              "(4 r3 c1 1x1) ");
    ZyDataTable const leavesARest = tableOf({{Values{"a", "b"}, Values{1, 2, 3, 4, 5}}});
    EXPECT_EQ(spreadsheetCellsOf(leavesARest), "(a r0 c0 1x2) (1 r0 c1 1x1) (b r1 c0 1x2) (2 r1 c1 1x1) "
                                               "(3 r2 c1 1x1) (4 r3 c1 1x1) (5 r4 c1 1x1) ");
}

TEST(ZyDataTableSpreadsheet, GivesTheTypeOfTheRow)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant("h")}, ZyDataTable::Header);
    table.addRow(Items{Values{"s", "t"}}, ZyDataTable::SubHeader);
    table.addRow(Items{ZyVariant("d")}, ZyDataTable::Data);
    std::vector<int> types;
    table.forEachItemSpreadsheet([&](ZyVariant const &, unsigned int, unsigned int, unsigned int,
                                     unsigned int, ZyDataTable::ItemType type) { types.push_back(type); });
    EXPECT_EQ(types, (std::vector<int>{1, 2, 2, 0}));
}

TEST(ZyDataTableSpreadsheet, LeavesOutAnItemWithoutValuesInATallRowAndThrowsInAFlatOne)
{
    EXPECT_EQ(spreadsheetCellsOf(tableOf({{Values{}, Values{1, 2}}})), "(1 r0 c1 1x1) (2 r1 c1 1x1) ");
    EXPECT_ZY_THROW(spreadsheetCellsOf(tableOf({{Values{}, ZyVariant(1)}})), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 0");
}

TEST(ZyDataTableSpreadsheet, PutsTheBlanksOfARowWithoutHeightWhereTheNextRowStands)
{
    ZyDataTable const table = tableOf({Items(), {ZyVariant(1), ZyVariant(2)}});
    EXPECT_EQ(spreadsheetCellsOf(table), "('' r0 c0 1x0) ('' r0 c1 1x0) (1 r0 c0 1x1) (2 r0 c1 1x1) ");
}

class ZyDataTableLayout : public testing::TestWithParam<LayoutExample>
{};

TEST_P(ZyDataTableLayout, GivesTheCallsOfTheExample)
{
    ZyDataTable const table = GetParam().table();
    if (GetParam().calls.empty()) {
        EXPECT_ZY_THROW(spreadsheetCellsOf(table), ZyInvalidCallException,
                        "Cannot get value from data table, number of items equals: 0");
    } else {
        EXPECT_EQ(spreadsheetCellsOf(table), GetParam().calls);
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, ZyDataTableLayout, testing::ValuesIn(layoutExamples()),
                         [](testing::TestParamInfo<LayoutExample> const & example) {
                             return example.param.name;
                         });
