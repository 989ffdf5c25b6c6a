// SPDX-License-Identifier: BSD-3-Clause
// The plain table without its readers: cells, moves, comparison, conversions.
#include <ZyVariantTable.h>

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyPair.h>

#include "TestDevices.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(sizeof(ZyVariantTable) == 2 * sizeof(void *));
static_assert(std::has_virtual_destructor_v<ZyVariantTable>);
static_assert(std::is_copy_constructible_v<ZyVariantTable> && std::is_copy_assignable_v<ZyVariantTable>);
static_assert(std::is_nothrow_move_constructible_v<ZyVariantTable> &&
              std::is_move_assignable_v<ZyVariantTable>);
static_assert(ZyVariantTable::UseDefault == 0 && ZyVariantTable::ThrowOnError == 1 &&
              ZyVariantTable::KeepFill == 2);

namespace
{
/** One row of one cell of each kind, in the order of their numbers. */
ZyVariantTable allKinds()
{
    std::vector<ZyVariant> const cells{ZyVariant(),
                                       true,
                                       ZyFilePath("f"),
                                       ZyPair<ZyFilePath, ZyFilePath>{ZyFilePath("f"), ZyFilePath("g")},
                                       -4,
                                       5.5,
                                       6u,
                                       "s",
                                       ZyPair<ZyString, ZyString>{"s", "t"}};
    ZyVariantTable table(1, static_cast<unsigned int>(cells.size()));
    for (unsigned int column = 0; column < cells.size(); ++column) {
        table.at(0, column) = cells[column];
    }
    return table;
}

/** A table of rows by columns of the integers 0, 1, 2 and so on. */
ZyVariantTable counted(unsigned int rows, unsigned int columns)
{
    ZyVariantTable table(rows, columns);
    int next = 0;
    table.forEach([&](unsigned int, unsigned int, ZyVariant & cell) { cell = next++; });
    return table;
}

/** A table of one cell. */
ZyVariantTable single(ZyVariant const & value)
{
    return ZyVariantTable(1, 1, value);
}
} // namespace

TEST(ZyVariantTable, HasNoRowsAndNoColumnsByDefault)
{
    ZyVariantTable const table;
    EXPECT_EQ(table.numberRows(), 0u);
    EXPECT_EQ(table.numberColumns(), 0u);
}

TEST(ZyVariantTable, HasNullCellsUnlessToldOtherwise)
{
    ZyVariantTable const table(2, 3);
    EXPECT_EQ(table.numberRows(), 2u);
    EXPECT_EQ(table.numberColumns(), 3u);
    EXPECT_EQ(table.at(1, 2).type(), ZyVariant::Null);
    ZyVariantTable const filled(2, 3, "x");
    EXPECT_EQ(filled.at(0, 0), ZyVariant("x"));
    EXPECT_EQ(filled.at(1, 2), ZyVariant("x"));
}

TEST(ZyVariantTable, RefusesMoreCellsThanAnIndexCanSay)
{
    EXPECT_STD_THROW(ZyVariantTable(65536, 65536), std::length_error, "ZyMatrix: rows times columns");
}

TEST(ZyVariantTable, ChecksTheRowAndThenTheColumnOfACell)
{
    ZyVariantTable table(2, 3);
    ZyVariantTable const & constant = table;
    EXPECT_ZY_THROW(table.at(2, 0), ZyIndexOutOfBoundsException, "Index out of bounds [2,2]");
    EXPECT_ZY_THROW(table.at(0, 3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(constant.at(5, 9), ZyIndexOutOfBoundsException, "Index out of bounds [5,2]");
    EXPECT_ZY_THROW(constant.at(1, 4294967295u), ZyIndexOutOfBoundsException,
                    "Index out of bounds [4294967295,3]");
    EXPECT_ZY_THROW(ZyVariantTable().at(0, 0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyVariantTable, GivesReferencesToTheCellsOfARow)
{
    ZyVariantTable table = counted(2, 3);
    ZyVector<ZyRef<ZyVariant>> row = table.row(1);
    ASSERT_EQ(row.size(), 3u);
    EXPECT_EQ(&row.at(0).get(), &table.at(1, 0));
    EXPECT_EQ(&row.at(2).get(), &table.at(1, 2));
    row.at(1).get() = "new";
    EXPECT_EQ(table.at(1, 1), ZyVariant("new"));
    ZyVariantTable const & constant = table;
    ZyVector<ZyCRef<ZyVariant>> const constantRow = constant.row(0);
    ASSERT_EQ(constantRow.size(), 3u);
    EXPECT_EQ(&constantRow.at(2).get(), &constant.at(0, 2));
}

TEST(ZyVariantTable, GivesReferencesToTheCellsOfAColumn)
{
    ZyVariantTable table = counted(3, 2);
    ZyVector<ZyRef<ZyVariant>> column = table.column(1);
    ASSERT_EQ(column.size(), 3u);
    EXPECT_EQ(&column.at(0).get(), &table.at(0, 1));
    EXPECT_EQ(&column.at(2).get(), &table.at(2, 1));
    column.at(1).get() = "new";
    EXPECT_EQ(table.at(1, 1), ZyVariant("new"));
    ZyVariantTable const & constant = table;
    ZyVector<ZyCRef<ZyVariant>> const constantColumn = constant.column(0);
    ASSERT_EQ(constantColumn.size(), 3u);
    EXPECT_EQ(&constantColumn.at(2).get(), &constant.at(2, 0));
}

TEST(ZyVariantTable, ReservesARowAndAColumnBeforeItFillsThem)
{
    ZyVariantTable const table(7, 5);
    EXPECT_EQ(table.row(0).std_vector().capacity(), 5u);
    EXPECT_EQ(table.column(0).std_vector().capacity(), 7u);
}

TEST(ZyVariantTable, ChecksTheIndexOfARowAndOfAColumn)
{
    ZyVariantTable table(2, 3);
    ZyVariantTable const & constant = table;
    EXPECT_ZY_THROW(table.row(2), ZyIndexOutOfBoundsException, "Index out of bounds [2,2]");
    EXPECT_ZY_THROW(constant.row(9), ZyIndexOutOfBoundsException, "Index out of bounds [9,2]");
    EXPECT_ZY_THROW(table.column(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(constant.column(9), ZyIndexOutOfBoundsException, "Index out of bounds [9,3]");
    EXPECT_ZY_THROW(ZyVariantTable().row(0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
    EXPECT_EQ(ZyVariantTable(2, 0).row(1).size(), 0u);
    EXPECT_EQ(ZyVariantTable(0, 2).column(1).size(), 0u);
}

TEST(ZyVariantTable, VisitsRowByRow)
{
    using Visit = std::tuple<unsigned int, unsigned int, int>;
    std::vector<Visit> visits;
    ZyVariantTable const table = counted(2, 2);
    table.forEach([&](unsigned int row, unsigned int column, ZyVariant const & cell) {
        visits.emplace_back(row, column, cell.asInteger());
    });
    EXPECT_EQ(visits, (std::vector<Visit>{{0, 0, 0}, {0, 1, 1}, {1, 0, 2}, {1, 1, 3}}));
}

TEST(ZyVariantTable, VisitsNothingOfAnEmptyTable)
{
    std::function<void(unsigned int, unsigned int, ZyVariant &)> const empty;
    ZyVariantTable none;
    none.forEach(empty);
    ZyVariantTable rowsOnly(3, 0);
    rowsOnly.forEach(empty);
    ZyVariantTable one(1, 1);
    EXPECT_THROW(one.forEach(empty), std::bad_function_call);
}

TEST(ZyVariantTable, CopiesDeeply)
{
    ZyVariantTable source = counted(2, 2);
    ZyVariantTable copy(source);
    source.at(0, 0) = "changed";
    EXPECT_EQ(copy.at(0, 0), ZyVariant(0));
    copy = source;
    EXPECT_EQ(copy.compare(source), 0);
    source.at(0, 0) = 7;
    EXPECT_EQ(copy.at(0, 0), ZyVariant("changed"));
}

TEST(ZyVariantTable, StaysAsItIsWhenAssignedToItself)
{
    ZyVariantTable table = counted(2, 2);
    ZyVariantTable & same = table;
    table = same;
    EXPECT_EQ(table.compare(counted(2, 2)), 0);
    table = std::move(same);
    EXPECT_EQ(table.compare(counted(2, 2)), 0);
}

TEST(ZyVariantTable, IsEmptyAndUsableAfterItWasMovedByAssignment)
{
    ZyVariantTable source = counted(2, 2);
    ZyVariantTable target = counted(1, 1);
    target = std::move(source);
    EXPECT_EQ(target.compare(counted(2, 2)), 0);
    EXPECT_EQ(source.numberRows(), 0u);
    EXPECT_EQ(source.numberColumns(), 0u);
    EXPECT_EQ(source.toString().toStdString(), "");
}

TEST(ZyVariantTable, MayBeAssignedToAfterItWasMovedByConstruction)
{
    ZyVariantTable source = counted(2, 2);
    ZyVariant const * const cell = &source.at(1, 1);
    ZyVariantTable const taken(std::move(source));
    EXPECT_EQ(&taken.at(1, 1), cell);
    source = counted(1, 2);
    EXPECT_EQ(source.compare(counted(1, 2)), 0);
    ZyVariantTable const again(std::move(source));
    source = again;
    EXPECT_EQ(source.compare(again), 0);
}

TEST(ZyVariantTable, GivesAnEmptyTableToTheSourceWhenTheTargetHadNone)
{
    ZyVariantTable target = counted(1, 1);
    ZyVariantTable const taken(std::move(target));
    ZyVariantTable source = counted(2, 2);
    target = std::move(source);
    EXPECT_EQ(target.compare(counted(2, 2)), 0);
    EXPECT_EQ(source.numberRows(), 0u);
    EXPECT_EQ(source.numberColumns(), 0u);
}

TEST(ZyVariantTableCompare, OrdersByNumberOfCellsThenColumnsThenRows)
{
    EXPECT_EQ(ZyVariantTable(1, 5).compare(ZyVariantTable(2, 3)), -1);
    EXPECT_EQ(ZyVariantTable(2, 3).compare(ZyVariantTable(1, 5)), 1);
    EXPECT_EQ(ZyVariantTable(3, 2).compare(ZyVariantTable(2, 3)), -1);
    EXPECT_EQ(ZyVariantTable(2, 3).compare(ZyVariantTable(3, 2)), 1);
    EXPECT_EQ(ZyVariantTable(0, 5).compare(ZyVariantTable(3, 0)), 1);
    EXPECT_EQ(ZyVariantTable(1, 0).compare(ZyVariantTable(2, 0)), -1);
    EXPECT_EQ(ZyVariantTable(2, 0).compare(ZyVariantTable(1, 0)), 1);
    EXPECT_EQ(ZyVariantTable(2, 3).compare(ZyVariantTable(2, 3)), 0);
}

TEST(ZyVariantTableCompare, Deliberate_table_compare_asymmetric)
{
    ZyVariantTable const one = counted(2, 2);
    ZyVariantTable other = counted(2, 2);
    other.at(1, 0) = 99;
    EXPECT_EQ(one.compare(other), 1);
    EXPECT_EQ(other.compare(one), 1);
}

TEST(ZyVariantTableCompare, ComparesCellsAsVariantsDo)
{
    EXPECT_EQ(single("ABC").compare(single("abc")), 0);
    EXPECT_EQ(single(0.1 + 0.2).compare(single(0.3)), 0);
    EXPECT_EQ(single(1).compare(single(1.0)), 1);
}

TEST(ZyVariantTableConversions, MakeDoublesOfIntegersAndDoubles)
{
    ZyMatrix<double> const numbers = allKinds().toDoubleTable(ZyVariantTable::UseDefault);
    EXPECT_EQ(numbers.rows(), 1u);
    EXPECT_EQ(numbers.std_vector(), (std::vector<double>{0, 0, 0, 0, -4, 5.5, 0, 0, 0}));
    EXPECT_EQ(allKinds().toDoubleTable(ZyVariantTable::KeepFill).std_vector(), numbers.std_vector());
    EXPECT_EQ(allKinds().toDoubleTable(static_cast<ZyVariantTable::ErrorRule>(77)).std_vector(),
              numbers.std_vector());
}

TEST(ZyVariantTableConversions, ThrowOnACellThatIsNoDoubleWhenToldSo)
{
    auto const convert = [](ZyVariant const & value) {
        single(value).toDoubleTable(ZyVariantTable::ThrowOnError);
    };
    EXPECT_ZY_THROW(convert(true), ZyBadVariantAccessException,
                    "Bad variant access [requested = Double] [actual = Boolean]");
    EXPECT_ZY_THROW(convert(1u), ZyBadVariantAccessException,
                    "Bad variant access [requested = Double] [actual = Size]");
    EXPECT_ZY_THROW(convert("1"), ZyBadVariantAccessException,
                    "Bad variant access [requested = Double] [actual = String]");
    EXPECT_EQ(single(3).toDoubleTable(ZyVariantTable::ThrowOnError)(0, 0), 3.0);
}

TEST(ZyVariantTableConversions, MakeIntegersOfIntegersOnly)
{
    ZyMatrix<int> const numbers = allKinds().toIntegerTable(ZyVariantTable::UseDefault);
    EXPECT_EQ(numbers.std_vector(), (std::vector<int>{0, 0, 0, 0, -4, 0, 0, 0, 0}));
    EXPECT_EQ(allKinds().toIntegerTable(ZyVariantTable::KeepFill).std_vector(), numbers.std_vector());
    auto const convert = [](ZyVariant const & value) {
        single(value).toIntegerTable(ZyVariantTable::ThrowOnError);
    };
    EXPECT_ZY_THROW(convert(1.0), ZyBadVariantAccessException,
                    "Bad variant access [requested = Integer] [actual = Double]");
    EXPECT_ZY_THROW(convert(1u), ZyBadVariantAccessException,
                    "Bad variant access [requested = Integer] [actual = Size]");
    EXPECT_ZY_THROW(convert(ZyVariant()), ZyBadVariantAccessException,
                    "Bad variant access [requested = Integer] [actual = Null]");
}

TEST(ZyVariantTableConversions, MakeTextsOfTheFourPlainKinds)
{
    ZyMatrix<ZyString> const texts = allKinds().toStringTable(ZyVariantTable::UseDefault);
    std::vector<std::string> plain;
    for (ZyString const & text : texts.std_vector()) {
        plain.push_back(text.toStdString());
    }
    EXPECT_EQ(plain, (std::vector<std::string>{"", "true", "", "", "-4", "5.5", "", "s", ""}));
    EXPECT_EQ(single(1234567.0).toStringTable(ZyVariantTable::KeepFill)(0, 0).toStdString(), "1.23457e+06");
    EXPECT_EQ(single(false).toStringTable(ZyVariantTable::KeepFill)(0, 0).toStdString(), "false");
    auto const convert = [](ZyVariant const & value) {
        single(value).toStringTable(ZyVariantTable::ThrowOnError);
    };
    EXPECT_ZY_THROW(convert(1u), ZyBadVariantAccessException,
                    "Bad variant access [requested = String] [actual = Size]");
    EXPECT_ZY_THROW(convert(ZyFilePath("f")), ZyBadVariantAccessException,
                    "Bad variant access [requested = String] [actual = FilePath]");
}

TEST(ZyVariantTableConversions, KeepTheShape)
{
    ZyMatrix<double> const numbers = ZyVariantTable(3, 0).toDoubleTable(ZyVariantTable::ThrowOnError);
    EXPECT_EQ(numbers.rows(), 3u);
    EXPECT_EQ(numbers.columns(), 0u);
    EXPECT_EQ(counted(2, 3).toIntegerTable(ZyVariantTable::ThrowOnError)(1, 2), 5);
}

TEST(ZyVariantTableToString, EndsCellsWithATabAndRowsWithALineFeed)
{
    EXPECT_EQ(ZyVariantTable().toString().toStdString(), "");
    EXPECT_EQ(ZyVariantTable(2, 0).toString().toStdString(), "\n\n");
    ZyVariantTable oneTwo(1, 2);
    oneTwo.at(0, 0) = 1;
    oneTwo.at(0, 1) = 2;
    EXPECT_EQ(oneTwo.toString().toStdString(), "1\t2\t\n");
    EXPECT_EQ(allKinds().toString().toStdString(), "null\ttrue\tf\t[f,g]\t-4\t5.5\t6\ts\t[s,t]\t\n");
    EXPECT_EQ(single(ZyString(std::string("a\0b", 3))).toString().toStdString(), std::string("a\0b\t\n", 5));
}
