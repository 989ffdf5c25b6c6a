// SPDX-License-Identifier: BSD-3-Clause
// Sorting the rows of a data table.
#include <ZyFilePath.h>
#include <ZyPair.h>

#include "DataTables.h"
#include "TestDevices.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{
/** A table of one column. */
ZyDataTable columnTable(std::vector<ZyVariant> const & values)
{
    ZyDataTable table;
    for (ZyVariant const & value : values) {
        table.addRow(Items{value}, ZyDataTable::Data);
    }
    return table;
}

bool descending(ZyVariant const & a, ZyVariant const & b)
{
    return b.compare(a) < 0;
}

/** The rows themselves, in order. */
std::vector<ZyDataTableRow const *> rowsOf(ZyDataTable const & table)
{
    std::vector<ZyDataTableRow const *> rows;
    for (ZySharedPtr<ZyDataTableRow> const & row : table.rows().std_deque()) {
        rows.push_back(row.get());
    }
    return rows;
}
} // namespace

TEST(ZyDataTableSort, SortsAscendingByOneColumn)
{
    ZyDataTable table = tableOf(
        {{ZyVariant("c"), ZyVariant(1)}, {ZyVariant("A"), ZyVariant(3)}, {ZyVariant("b"), ZyVariant(2)}});
    table.sort(0);
    EXPECT_EQ(columnOf(table, 0), "A b c ");
    EXPECT_EQ(columnOf(table, 1), "3 2 1 ");
    table.sort(1);
    EXPECT_EQ(columnOf(table, 0), "c b A ");
}

TEST(ZyDataTableSort, SortsKindsByTheirNumbers)
{
    ZyDataTable table = columnTable({"text", 6u, 5.5, 4, true, ZyVariant()});
    table.sort(0);
    EXPECT_EQ(columnOf(table, 0), "null true 4 5.5 6 text ");
}

TEST(ZyDataTableSort, SortsAsToldByAPredicate)
{
    ZyDataTable table = columnTable({1, 3, 2});
    table.sort(0, descending);
    EXPECT_EQ(columnOf(table, 0), "3 2 1 ");
    table.sort(0, 1, 2,
               [](ZyVariant const & a, ZyVariant const & b) { return a.asInteger() < b.asInteger(); });
    EXPECT_EQ(columnOf(table, 0), "3 1 2 ");
}

TEST(ZyDataTableSort, LeavesTheRowsOutsideTheRangeInPlace)
{
    ZyDataTable table = columnTable({9, 5, 4, 3, 0});
    table.sort(0, 1, 3);
    EXPECT_EQ(columnOf(table, 0), "9 3 4 5 0 ");
    table.sort(0, 0, 0);
    table.sort(0, 5, 0);
    table.sort(0, 77, 0);
    table.sort(0, 4, 1);
    EXPECT_EQ(columnOf(table, 0), "9 3 4 5 0 ");
    table.sort(0, 0, 5);
    EXPECT_EQ(columnOf(table, 0), "0 3 4 5 9 ");
}

TEST(ZyDataTableSort, Deliberate_headings_sort_with_the_others)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant("z")}, ZyDataTable::Header);
    table.addRow(Items{ZyVariant("a")}, ZyDataTable::Data);
    table.sort(0);
    EXPECT_EQ(columnOf(table, 0), "a z ");
    EXPECT_TRUE(table.isHeader(1));
}

TEST(ZyDataTableSort, SortsByTheItemThatCoversTheColumnAndByNothingWhereThereIsNone)
{
    ZyDataTable table =
        tableOf({{ZyDataTableItem("b", 2)}, {ZyVariant("x"), ZyVariant("a")}, {ZyVariant("y")}});
    table.sort(1);
    EXPECT_EQ(columnOf(table, 0), "y x b ");
}

TEST(ZyDataTableSort, RefusesAColumnThatIsNotThere)
{
    ZyDataTable table = columnTable({2, 1});
    EXPECT_ZY_THROW(table.sort(1), ZyInvalidCallException, "Column number outside of the range of columns");
    EXPECT_ZY_THROW(table.sort(1, 0, 0), ZyInvalidCallException,
                    "Column number outside of the range of columns");
    EXPECT_ZY_THROW(table.sort(1, descending), ZyInvalidCallException,
                    "Column number outside of the range of columns");
    EXPECT_ZY_THROW(ZyDataTable().sort(0), ZyInvalidCallException,
                    "Column number outside of the range of columns");
    EXPECT_EQ(columnOf(table, 0), "2 1 ");
}

TEST(ZyDataTableSort, RefusesACellOfSeveralValuesInTheRange)
{
    ZyDataTable table = tableOf({{Values{5, 6}}, {ZyVariant(2)}, {ZyVariant(1)}});
    auto const before = rowsOf(table);
    EXPECT_ZY_THROW(table.sort(0), ZyInvalidCallException,
                    "Cannot sort on column that has multiple values per cell");
    EXPECT_ZY_THROW(table.sort(0, 0, 1), ZyInvalidCallException,
                    "Cannot sort on column that has multiple values per cell");
    EXPECT_EQ(rowsOf(table), before);
    table.sort(0, 1, 2);
    EXPECT_EQ(table.value(1, 0), ZyVariant(1));
    EXPECT_EQ(table.value(2, 0), ZyVariant(2));
}

TEST(ZyDataTableSort, RefusesACellWithoutAValueWhereSomethingIsCompared)
{
    ZyDataTable table = tableOf({{ZyVariant(3)}, {ZyVariant(2)}, {Values{}}});
    auto const before = rowsOf(table);
    EXPECT_ZY_THROW(table.sort(0), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 0");
    EXPECT_EQ(rowsOf(table), before);
    table.sort(0, 2, 1);
    table.sort(0, 0, 2);
    EXPECT_EQ(table.value(0, 0), ZyVariant(2));
}

TEST(ZyDataTableSort, RefusesARangeThatPassesTheEnd)
{
    ZyDataTable table = columnTable({3, 2, 1});
    auto const before = rowsOf(table);
    unsigned int const most = std::numeric_limits<unsigned int>::max();
    EXPECT_ZY_THROW(table.sort(0, 0, 4), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(table.sort(0, 2, 2), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(table.sort(0, 7, 1), ZyIndexOutOfBoundsException, "Index out of bounds [7,3]");
    EXPECT_ZY_THROW(table.sort(0, 1, most), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(table.sort(0, 2, most - 1), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(table.sort(0, most, 2), ZyIndexOutOfBoundsException,
                    "Index out of bounds [4294967295,3]");
    EXPECT_EQ(rowsOf(table), before);
}

TEST(ZyDataTableSort, LeavesTheTableWholeWhenThePredicateThrows)
{
    std::mt19937 random(7);
    for (int failingCall = 1; failingCall < 400; ++failingCall) {
        std::vector<ZyVariant> values;
        for (int i = 0; i < 60; ++i) {
            values.emplace_back(static_cast<int>(random() % 1000));
        }
        ZyDataTable table = columnTable(values);
        auto const before = rowsOf(table);
        int calls = 0;
        bool failed = false;
        try {
            table.sort(0, [&](ZyVariant const & a, ZyVariant const & b) {
                if (++calls == failingCall) {
                    throw std::runtime_error("enough");
                }
                return a.asInteger() < b.asInteger();
            });
        } catch (std::runtime_error const &) {
            failed = true;
        }
        if (failed) {
            ASSERT_EQ(rowsOf(table), before);
        } else {
            ASSERT_EQ(rowsOf(table).size(), before.size());
        }
    }
}

TEST(ZyDataTableSort, RefusesAnEmptyPredicateWhereSomethingIsCompared)
{
    ZyDataTable table = columnTable({2, 1});
    ZyDataTable::LessThan const empty;
    EXPECT_THROW(table.sort(0, empty), std::bad_function_call);
    EXPECT_EQ(columnOf(table, 0), "2 1 ");
    table.sort(0, 0, 1, empty);
}

TEST(ZyDataTableSort, KeepsEveryRowWhateverThePredicateAnswers)
{
    std::mt19937 random(11);
    std::vector<ZyVariant> values;
    for (int i = 0; i < 500; ++i) {
        values.emplace_back(static_cast<int>(random() % 5));
    }
    std::vector<ZyDataTable::LessThan> const predicates{
        [](ZyVariant const & a, ZyVariant const & b) { return a.asInteger() <= b.asInteger(); },
        [](ZyVariant const &, ZyVariant const &) { return true; },
        [&](ZyVariant const &, ZyVariant const &) { return random() % 2 == 0; },
    };
    for (ZyDataTable::LessThan const & predicate : predicates) {
        ZyDataTable table = columnTable(values);
        auto before = rowsOf(table);
        table.sort(0, predicate);
        auto after = rowsOf(table);
        std::sort(before.begin(), before.end());
        std::sort(after.begin(), after.end());
        EXPECT_EQ(after, before);
    }
}

TEST(ZyDataTableSort, KeepsEveryRowWithNumbersThatAreNone)
{
    std::mt19937 random(13);
    std::vector<ZyVariant> values;
    for (int i = 0; i < 1000; ++i) {
        values.emplace_back(i % 3 == 0 ? std::numeric_limits<double>::quiet_NaN()
                                       : 1.0 + static_cast<double>(random() % 100) * 1e-16);
    }
    ZyDataTable table = columnTable(values);
    auto before = rowsOf(table);
    table.sort(0);
    auto after = rowsOf(table);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_EQ(after, before);
}

TEST(ZyDataTableSort, OrdersEveryPairAsVariantsCompare)
{
    double const infinity = std::numeric_limits<double>::infinity();
    std::vector<ZyVariant> const values{
        ZyVariant(),
        false,
        true,
        ZyFilePath("B/c"),
        ZyFilePath("a/b"),
        ZyPair<ZyFilePath, ZyFilePath>{ZyFilePath("b"), ZyFilePath("a")},
        ZyPair<ZyFilePath, ZyFilePath>{ZyFilePath("a"), ZyFilePath("b")},
        -2147483647 - 1,
        -1,
        0,
        1,
        2147483647,
        -infinity,
        -1.5,
        -0.0,
        0.0,
        1e-310,
        0.1 + 0.2,
        0.3,
        1e300,
        infinity,
        std::numeric_limits<double>::quiet_NaN(),
        0u,
        1u,
        2147483648u,
        4294967295u,
        "",
        ZyString(std::string(1, '\0')),
        ZyString(std::string("a\0", 2)),
        "a",
        "A",
        "a\x80",
        "a\x80\x80",
        "a\x80z",
        "a\xFF",
        "\x80",
        "\xC3\xA4",
        "z",
        "abcdefgh",
        "ABCDEFGH",
        "abcdefgha",
        "abcdefghB",
        "abcdefg",
        "abcdefg\x80",
        "[",
        "_",
        ZyPair<ZyString, ZyString>{"b", "a"},
        ZyPair<ZyString, ZyString>{"a", "b"},
    };
    for (ZyVariant const & a : values) {
        for (ZyVariant const & b : values) {
            ZyDataTable byRule = columnTable({a, b});
            ZyDataTable byPredicate(byRule);
            byRule.sort(0);
            byPredicate.sort(0, [](ZyVariant const & x, ZyVariant const & y) { return x.compare(y) < 0; });
            ASSERT_EQ(rowsOf(byRule), rowsOf(byPredicate))
                << a.toString().toStdString() << " and " << b.toString().toStdString();
        }
    }
}

TEST(ZyDataTableSort, FoldsTextsAsTheGlobalLocaleDoes)
{
    class HashIsA : public std::ctype<char>
    {
    protected:
        char do_tolower(char c) const override { return c == '#' ? 'a' : std::ctype<char>::do_tolower(c); }
    };
    ZyDataTable table = columnTable({"ab", "#a", "aa"});
    table.sort(0);
    EXPECT_EQ(columnOf(table, 0), "#a aa ab ");
    GlobalLocale const guard(std::locale(std::locale::classic(), new HashIsA));
    table.sort(0, 1, 2);
    EXPECT_EQ(columnOf(table, 0), "#a aa ab ");
    ZyDataTable another = columnTable({"ac", "#b", "aa", "#d"});
    another.sort(0);
    EXPECT_EQ(columnOf(another, 0), "aa #b ac #d ");
}

TEST(ZyDataTableSort, SortsManyRows)
{
    std::mt19937 random(17);
    std::vector<ZyVariant> values;
    for (int i = 0; i < 5000; ++i) {
        values.emplace_back(static_cast<int>(random() % 100000));
    }
    ZyDataTable table = columnTable(values);
    table.sort(0);
    for (unsigned int row = 1; row < table.numberRows(); ++row) {
        ASSERT_LE(table.value(row - 1, 0).compare(table.value(row, 0)), 0);
    }
}
