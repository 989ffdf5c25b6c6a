// SPDX-License-Identifier: BSD-3-Clause
// Rows made from rows.

#include "Rows.h"

#include <ZyPrint.h>

#include <gtest/gtest.h>

namespace
{

ZyDataTableRow wideRow()
{
    ZyDataTable table;
    table.addRow(ZyDeque<ZyDataTableItem>{ZyDataTableItem(ZyVariant("wide"), 2), ZyDeque<ZyVariant>{1, 2.5}},
                 ZyDataTable::Header);
    return *rowsOf(table).front();
}

} // namespace

TEST(Rows, ColumnsAreNamedAsSpreadsheetsNameThem)
{
    EXPECT_EQ(columnName(0), QStringLiteral("A"));
    EXPECT_EQ(columnName(25), QStringLiteral("Z"));
    EXPECT_EQ(columnName(26), QStringLiteral("AA"));
    EXPECT_EQ(columnName(701), QStringLiteral("ZZ"));
    EXPECT_EQ(columnName(702), QStringLiteral("AAA"));
}

TEST(Rows, WideCellCoversItsColumns)
{
    ZyDataTableRow const row = wideRow();
    EXPECT_EQ(widthOf(row), 3);
    EXPECT_EQ(cellAt(row, 0), cellAt(row, 1));
    EXPECT_NE(cellAt(row, 0), cellAt(row, 2));
    EXPECT_EQ(cellAt(row, 3), nullptr);
    EXPECT_EQ(firstColumnOf(row, 1), 0);
    EXPECT_EQ(firstColumnOf(row, 2), 2);
}

TEST(Rows, StackedValuesAreSeparated)
{
    ZyDataTableRow const row = wideRow();
    EXPECT_EQ(textOf(cellAt(row, 2), QStringLiteral("; ")), QStringLiteral("1; 2.5"));
    EXPECT_EQ(textOf(nullptr, QStringLiteral("; ")), QString());
}

TEST(Rows, RowWithAnotherValueLeavesTheFirstRowAsItIs)
{
    ZyDataTableRow const row = wideRow();
    RowPtr const changed = withValue(row, 1, ZyVariant(7));
    EXPECT_EQ(textOf(cellAt(row, 0), QString()), QStringLiteral("wide"));
    EXPECT_EQ(textOf(cellAt(*changed, 0), QString()), QStringLiteral("7"));
    EXPECT_EQ(cellAt(*changed, 0)->columnSpan(), 2U);
    EXPECT_EQ(changed->type, ZyDataTable::Header);
    EXPECT_EQ(cellAt(row, 2), cellAt(*changed, 2)); // shared
}

TEST(Rows, ShortRowBecomesLongEnough)
{
    RowPtr const changed = withValue(wideRow(), 5, ZyVariant("end"));
    EXPECT_EQ(widthOf(*changed), 6);
    EXPECT_EQ(textOf(cellAt(*changed, 4), QString()), QString());
    EXPECT_EQ(textOf(cellAt(*changed, 5), QString()), QStringLiteral("end"));
}

TEST(Rows, TextsOfNumbersBecomeNumbers)
{
    EXPECT_EQ(valueOf(QStringLiteral("42")).type(), ZyVariant::Integer);
    EXPECT_EQ(valueOf(QStringLiteral("-1.5e3")).asDouble(), -1500.0);
    EXPECT_EQ(valueOf(QStringLiteral("nan")).type(), ZyVariant::String);
    EXPECT_EQ(valueOf(QStringLiteral("1e999")).type(), ZyVariant::String);
    EXPECT_EQ(valueOf(QString()).asString(), ZyString());
}
