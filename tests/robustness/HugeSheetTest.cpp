// SPDX-License-Identifier: BSD-3-Clause
// Merges and rows of sizes that nobody would type, which must neither recurse nor stall.
#include <ZyIODevice.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyVariantTable.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

namespace
{
std::string worksheet(std::function<void(ZyOOXMLWriterSpreadsheet &)> const & write)
{
    ZySharedPtr<ZyStringDevice> const device(new ZyStringDevice);
    ZyOOXMLWriterSpreadsheet sheet{ZyWeakPtr<ZyIODevice>(device)};
    write(sheet);
    sheet.close();
    return device->content().toStdString();
}

std::size_t count(std::string const & text, std::string const & part)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++found;
    }
    return found;
}
} // namespace

TEST(HugeSheet, MergesAMillionColumns)
{
    std::string const text = worksheet([](ZyOOXMLWriterSpreadsheet & sheet) {
        sheet.startRow();
        sheet.addCell(ZyVariant(1), 1000000, 1);
        sheet.addCell(ZyVariant(2), 1, 1);
    });
    EXPECT_EQ(count(text, "<c "), 1000001u);
    EXPECT_NE(text.find("<mergeCell ref=\"A1:BDWGN1\"/>"), std::string::npos);
    EXPECT_NE(text.find("<c r=\"BDWGO1\"><v>2</v></c>"), std::string::npos);
}

TEST(HugeSheet, MergesAMillionRows)
{
    std::string const text = worksheet([](ZyOOXMLWriterSpreadsheet & sheet) {
        sheet.startRow();
        sheet.addCell(ZyVariant(1), 1, 1000000);
        for (int row = 0; row < 100; ++row) {
            sheet.startRow();
            sheet.addCell(ZyVariant(row), 1, 1);
        }
    });
    EXPECT_NE(text.find("<mergeCell ref=\"A1:A1000000\"/>"), std::string::npos);
    EXPECT_NE(text.find("<c r=\"A101\"/><c r=\"B101\"><v>99</v></c>"), std::string::npos);
}

TEST(HugeSheet, MergesTheWholeSheet)
{
    std::string const text = worksheet([](ZyOOXMLWriterSpreadsheet & sheet) {
        sheet.startRow();
        sheet.addCell(ZyVariant(1), 16384, 1048576);
    });
    EXPECT_NE(text.find("<mergeCell ref=\"A1:XFD1048576\"/>"), std::string::npos);
}

TEST(HugeSheet, TakesSpansUpToTheLargestNumber)
{
    std::string const text = worksheet([](ZyOOXMLWriterSpreadsheet & sheet) {
        sheet.startRow();
        sheet.addCell(ZyVariant(1), 1, ~0u);
        sheet.startRow();
        sheet.addCell(ZyVariant(2), 1, 1);
    });
    EXPECT_NE(text.find("<c r=\"B2\"><v>2</v></c>"), std::string::npos);
}

TEST(HugeSheet, CostsTheSameForEachOfManyMerges)
{
    std::string const text = worksheet([](ZyOOXMLWriterSpreadsheet & sheet) {
        for (int row = 0; row < 50000; ++row) {
            sheet.startRow();
            sheet.addCell(ZyVariant(row), 2, row % 2 == 0 ? 2u : 1u);
        }
    });
    EXPECT_NE(text.find("<mergeCells count=\"50000\">"), std::string::npos);
}

TEST(HugeInput, ReadsALineOfManyFieldsAndAFieldOfManyBytes)
{
    ZyStringDevice manyFields(std::string(1000000, ',') + "x\n");
    ZyVariantTable const wide = ZyVariantTable::LoadCSV(manyFields, true);
    EXPECT_EQ(wide.numberRows(), 1u);
    EXPECT_EQ(wide.numberColumns(), 1000001u);

    ZyStringDevice manyBytes(std::string(20000000, 'x') + ",1\n");
    ZyVariantTable const tall = ZyVariantTable::LoadCSV(manyBytes, true);
    EXPECT_EQ(tall.at(0, 0).asString().size(), 20000000u);
    EXPECT_EQ(tall.at(0, 1).asInteger(), 1);
}
