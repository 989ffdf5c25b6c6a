// SPDX-License-Identifier: BSD-3-Clause
// The workbook that a data table becomes.
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyTemporaryDir.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include "DataTables.h"
#include "LayoutExamples.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace
{
std::string const sheetStart = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet "
                               "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">";

/** One entry of a package. */
std::string entryOf(ZyFilePath const & package, char const * entry)
{
    ZyZipArchive archive(package, ZyZipArchive::Read);
    ZySharedPtr<ZyZipFile> const file = archive.open(ZyFilePath(entry), ZyZipArchive::DefaultLevel).lock();
    return file->readAll().toStdString();
}

/** The worksheet that a table becomes. */
std::string sheetOf(ZyDataTable const & table)
{
    ZyTemporaryDir const directory;
    ZyFilePath const package = directory.path("table.xlsx");
    table.writeOOXML(package);
    return entryOf(package, "xl/worksheets/sheet1.xml");
}

/** The rows and merges of a worksheet in the spelling of the examples: all values alike. */
std::string plainSheet(std::string const & sheet)
{
    constexpr auto strict = ZyComparableString::CaseSensitive;
    std::size_t const from = sheet.find("<sheetData>") + std::string("<sheetData>").size();
    ZyString plain(sheet.substr(from, sheet.find("</worksheet>") - from));
    plain.replace(" t=\"inlineStr\"><is><t></t></is>", "><v>''</v>", strict);
    plain.replace(" t=\"inlineStr\"><is><t>", "><v>", strict);
    plain.replace("</t></is>", "</v>", strict);
    plain.replace("<row/>", "<row></row>", strict);
    plain.replace("</sheetData>", "", strict);
    return plain.toStdString();
}

std::vector<std::string> namesOf(ZyFilePath const & package)
{
    ZyZipArchive const archive(package, ZyZipArchive::Read);
    ZyDeque<ZyFilePath> const paths = archive.paths();
    std::vector<std::string> names;
    for (ZyFilePath const & path : paths.std_deque()) {
        names.push_back(path.path().toStdString());
    }
    return names;
}
} // namespace

TEST(ZyDataTableOutput, WritesAWorksheetOfAllKinds)
{
    ZyDataTable table;
    table.addRow(Items{ZyVariant("Größe <&>"), ZyDataTableItem("wide", 2)}, ZyDataTable::Header);
    table.addRow(Items{ZyVariant(-7), ZyVariant(0.5), ZyVariant(true)}, ZyDataTable::Data);
    table.addRow(Items{ZyVariant(), ZyVariant(3u)}, ZyDataTable::SubHeader);
    EXPECT_EQ(
        sheetOf(table),
        sheetStart +
            "<sheetData>"
            "<row><c r=\"A1\" t=\"inlineStr\"><is><t>Größe &lt;&amp;&gt;</t></is></c>"
            "<c r=\"B1\" t=\"inlineStr\"><is><t>wide</t></is></c><c r=\"C1\"/></row>"
            "<row><c r=\"A2\"><v>-7</v></c><c r=\"B2\"><v>0.5</v></c><c r=\"C2\" t=\"b\"><v>1</v></c></row>"
            "<row><c r=\"A3\"/><c r=\"B3\" t=\"inlineStr\"><is><t>3</t></is></c>"
            "<c r=\"C3\" t=\"inlineStr\"><is><t></t></is></c></row>"
            "</sheetData><mergeCells count=\"1\"><mergeCell ref=\"B1:C1\"/></mergeCells></worksheet>\n");
}

TEST(ZyDataTableOutput, WritesAnEmptySheetOfAnEmptyTable)
{
    EXPECT_EQ(sheetOf(ZyDataTable()), sheetStart + "<sheetData/></worksheet>\n");
}

TEST(ZyDataTableOutput, Deliberate_headings_look_like_any_row)
{
    ZyDataTable headings;
    headings.addRow(Items{ZyVariant("h")}, ZyDataTable::Header);
    EXPECT_EQ(sheetOf(headings), sheetOf(tableOf({Items{ZyVariant("h")}})));
}

TEST(ZyDataTableOutput, WritesAWholePackage)
{
    ZyTemporaryDir const directory;
    ZyFilePath const package = directory.path("table.xlsx");
    tableOf({Items{ZyVariant(1)}}).writeOOXML(package);
    EXPECT_EQ(namesOf(package),
              (std::vector<std::string>{"xl\\worksheets\\sheet1.xml", "[Content_Types].xml", "_rels\\.rels",
                                        "xl\\_rels\\workbook.xml.rels", "xl\\workbook.xml"}));
    EXPECT_NE(
        entryOf(package, "xl/workbook.xml").find("<sheet name=\"sheet1\" sheetId=\"1\" r:id=\"rId1\"/>"),
        std::string::npos);
}

TEST(ZyDataTableOutput, AddsSheetsToAWorkbook)
{
    ZyTemporaryDir const directory;
    ZyFilePath const package = directory.path("two.xlsx");
    {
        ZyOOXMLWriter writer(package, ZyOOXMLWriter::Spreadsheet);
        tableOf({Items{ZyVariant(1)}}).writeOOXML(writer, "a");
        EXPECT_ZY_THROW(tableOf({Items{ZyVariant(2)}}).writeOOXML(writer, "A"), ZyInvalidParameterException,
                        "Document with the given name already exists: A");
        tableOf({Items{ZyVariant(3)}}).writeOOXML(writer, "b");
        writer.close();
    }
    EXPECT_EQ(plainSheet(entryOf(package, "xl/worksheets/a.xml")), "<row><c r=\"A1\"><v>1</v></c></row>");
    EXPECT_EQ(plainSheet(entryOf(package, "xl/worksheets/b.xml")), "<row><c r=\"A1\"><v>3</v></c></row>");
}

TEST(ZyDataTableOutput, ThrowsWhenTheFileCannotBeCreated)
{
    EXPECT_ZY_THROW(ZyDataTable().writeOOXML(ZyFilePath("no-such-directory/table.xlsx")),
                    ZyInvalidPathException, "Invalid path: no-such-directory\\table.xlsx");
}

TEST(ZyDataTableOutput, ThrowsWhenARowOfHeightOneHasAnItemWithoutValues)
{
    ZyTemporaryDir const directory;
    ZyDataTable const table = tableOf({Items{ZyVariant(1)}, Items{Values{}, ZyVariant(2)}});
    EXPECT_ZY_THROW(table.writeOOXML(directory.path("table.xlsx")), ZyInvalidCallException,
                    "Cannot get value from data table, number of items equals: 0");
}

TEST(ZyDataTableOutput, ThrowsWhenTheDiskIsFull)
{
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no device that is always full";
    }
    std::mt19937 random(19);
    ZyDataTable table;
    for (int row = 0; row < 20000; ++row) {
        table.addRow(Items{ZyVariant(static_cast<int>(random() % 1000000000)), ZyVariant("x"), Values{1, 2}},
                     ZyDataTable::Data);
    }
    EXPECT_ZY_THROW(table.writeOOXML(ZyFilePath("/dev/full")), ZyInvalidCallException,
                    "ZyZipFile write failed: Zip failure");
}

class ZyDataTableSheet : public testing::TestWithParam<LayoutExample>
{};

TEST_P(ZyDataTableSheet, BecomesTheSheetOfTheExample)
{
    if (GetParam().sheet.empty()) {
        EXPECT_ZY_THROW(sheetOf(GetParam().table()), ZyInvalidCallException,
                        "Cannot get value from data table, number of items equals: 0");
    } else {
        EXPECT_EQ(plainSheet(sheetOf(GetParam().table())), GetParam().sheet);
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, ZyDataTableSheet, testing::ValuesIn(layoutExamples()),
                         [](testing::TestParamInfo<LayoutExample> const & example) {
                             return example.param.name;
                         });
