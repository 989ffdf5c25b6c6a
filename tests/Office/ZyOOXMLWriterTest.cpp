// SPDX-License-Identifier: BSD-3-Clause
// The package: its entries byte for byte, its order, its failures. Expected texts were made by hand from the
// rules of the format.
#include <ZyOOXMLWriter.h>

#include "Program.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
static_assert(sizeof(ZyOOXMLWriter) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::has_virtual_destructor_v<ZyOOXMLWriter>);
static_assert(!std::is_copy_constructible_v<ZyOOXMLWriter> && !std::is_move_constructible_v<ZyOOXMLWriter>);
static_assert(sizeof(ZyOOXMLWriter::FileType) == 4 && ZyOOXMLWriter::Spreadsheet == 0);

#define DECLARATION "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"

char const * const contentTypes = DECLARATION
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"><Default "
    "Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/><Default "
    "Extension=\"xml\" ContentType=\"application/xml\"/><Override PartName=\"/xl/workbook.xml\" "
    "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/><Override "
    "PartName=\"/xl/worksheets/sheet1.xml\" "
    "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/></Types>\n";

char const * const packageRelationships = DECLARATION
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship "
    "Target=\"xl/workbook.xml\" Id=\"rId1\" "
    "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\"/>"
    "</Relationships>\n";

char const * const workbookRelationships = DECLARATION
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship "
    "Target=\"worksheets/sheet1.xml\" Id=\"rId1\" "
    "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\"/>"
    "</Relationships>\n";

char const * const workbookPart = DECLARATION
    "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets><sheet "
    "name=\"sheet1\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>\n";

char const * const sheetPart = DECLARATION
    "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData><row><c "
    "r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row></sheetData></worksheet>\n";

class ZyOOXMLWriters : public testing::Test
{
protected:
    ZyFilePath path() const { return ZyFilePath(file().toUtf8().constData()); }
    QString file() const { return QString::fromStdString(m_directory / "book.xlsx"); }

    std::unique_ptr<ZyOOXMLWriter> create(ZyZipArchive::EntryNames names = ZyZipArchive::Native) const
    {
        return std::make_unique<ZyOOXMLWriter>(path(), ZyOOXMLWriter::Spreadsheet, names);
    }

    /** A workbook of one sheet with the numbers 1 and 2. */
    void writeSmall(ZyZipArchive::EntryNames names = ZyZipArchive::Native) const
    {
        auto const workbook = create(names);
        auto const sheet = workbook->addSheet("sheet1");
        sheet->startRow();
        sheet->addCell(1, 1, 1);
        sheet->addCell(2, 1, 1);
    }

    std::string bytes() const { return m_directory.read("book.xlsx"); }
    bool isComplete() const { return bytes().find("PK\x05\x06") != std::string::npos; }

    std::string part(char const * name) const
    {
        ZyZipArchive archive(path(), ZyZipArchive::Read);
        return archive.open(name, ZyZipArchive::DefaultLevel).lock()->readAll().toStdString();
    }

    std::vector<std::string> names() const
    {
        ZyZipArchive archive(path(), ZyZipArchive::Read);
        std::vector<std::string> all;
        ZyDeque<ZyFilePath> const paths = archive.paths();
        for (ZyFilePath const & name : paths.std_deque()) {
            all.push_back(name.toString().toStdString());
        }
        return all;
    }

private:
    ScratchDirectory m_directory;
};

using ZyOOXMLWriterDeath = ZyOOXMLWriters;
} // namespace

TEST_F(ZyOOXMLWriters, WriteTheToldPartsByteForByte)
{
    writeSmall();
    EXPECT_EQ(part("[Content_Types].xml"), contentTypes);
    EXPECT_EQ(part("_rels/.rels"), packageRelationships);
    EXPECT_EQ(part("xl/_rels/workbook.xml.rels"), workbookRelationships);
    EXPECT_EQ(part("xl/workbook.xml"), workbookPart);
    EXPECT_EQ(part("xl/worksheets/sheet1.xml"), sheetPart);
}

TEST_F(ZyOOXMLWriters, PutTheSheetsFirstAndTheFourPartsBehindThem)
{
    auto workbook = create();
    workbook->addSheet("a");
    workbook->addSheet("b");
    workbook.reset();
    EXPECT_EQ(names(), (std::vector<std::string>{"xl\\worksheets\\a.xml", "xl\\worksheets\\b.xml",
                                                 "[Content_Types].xml", "_rels\\.rels",
                                                 "xl\\_rels\\workbook.xml.rels", "xl\\workbook.xml"}));
}

TEST_F(ZyOOXMLWriters, NumberTheSheetsInOrder)
{
    auto workbook = create();
    workbook->addSheet("a");
    workbook->addSheet("b");
    workbook.reset();
    EXPECT_EQ(part("xl/workbook.xml"), DECLARATION
              "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
              "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets>"
              "<sheet name=\"a\" sheetId=\"1\" r:id=\"rId1\"/><sheet name=\"b\" sheetId=\"2\" r:id=\"rId2\"/>"
              "</sheets></workbook>\n");
    EXPECT_EQ(part("xl/_rels/workbook.xml.rels"), DECLARATION
              "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
              "<Relationship Target=\"worksheets/a.xml\" Id=\"rId1\" "
              "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\"/>"
              "<Relationship Target=\"worksheets/b.xml\" Id=\"rId2\" "
              "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\"/>"
              "</Relationships>\n");
    EXPECT_EQ(part("_rels/.rels"), packageRelationships);
    std::string const types = part("[Content_Types].xml");
    EXPECT_LT(types.find("/xl/worksheets/a.xml"), types.find("/xl/worksheets/b.xml"));
}

TEST_F(ZyOOXMLWriters, EscapeSheetNamesInTheParts)
{
    auto workbook = create();
    workbook->addSheet("R&D \"1\"");
    workbook.reset();
    EXPECT_NE(part("xl/workbook.xml").find("name=\"R&amp;D &quot;1&quot;\""), std::string::npos);
    EXPECT_NE(part("[Content_Types].xml").find("/xl/worksheets/R&amp;D &quot;1&quot;.xml"),
              std::string::npos);
    EXPECT_EQ(names().front(), "xl\\worksheets\\R&D \"1\".xml");
}

TEST_F(ZyOOXMLWriters, RefuseANameThatIsTakenWithoutRegardToCase)
{
    auto workbook = create();
    auto const sheet = workbook->addSheet("Sheet1");
    sheet->startRow();
    EXPECT_ZY_THROW(workbook->addSheet("sheet1"), ZyInvalidParameterException,
                    "Document with the given name already exists: sheet1");
    EXPECT_TRUE(sheet->isAlive());
    sheet->addCell(1, 1, 1);
    workbook.reset();
    EXPECT_EQ(names().size(), 5u);
    EXPECT_NE(part("xl/worksheets/Sheet1.xml").find("<c r=\"A1\"><v>1</v></c>"), std::string::npos);
}

TEST_F(ZyOOXMLWriters, CloseASheetWhenTheNextOneBegins)
{
    auto const workbook = create();
    auto const a = workbook->addSheet("a");
    auto const b = workbook->addSheet("b");
    EXPECT_FALSE(a->isAlive());
    EXPECT_TRUE(b->isAlive());
    EXPECT_ZY_THROW(a->startRow(), ZyInvalidCallException,
                    "Spreadsheet cannot be written to as has been closed");
}

TEST_F(ZyOOXMLWriters, LetTheCallerCloseASheet)
{
    auto workbook = create();
    auto const sheet = workbook->addSheet("sheet1");
    sheet->startRow();
    sheet->addCell(1, 1, 1);
    sheet->addCell(2, 1, 1);
    sheet->close();
    workbook.reset();
    EXPECT_EQ(part("xl/worksheets/sheet1.xml"), sheetPart);
}

TEST_F(ZyOOXMLWriters, Deliberate_package_closes_once)
{
    auto workbook = create();
    workbook->addSheet("sheet1");
    workbook->close();
    workbook->close();
    workbook.reset();
    EXPECT_EQ(names().size(), 5u);
}

TEST_F(ZyOOXMLWriters, Deliberate_package_is_whole_when_the_writer_is_gone)
{
    auto workbook = create();
    workbook->addSheet("sheet1");
    workbook->close();
    EXPECT_FALSE(isComplete());
    workbook.reset();
    EXPECT_TRUE(isComplete());
}

TEST_F(ZyOOXMLWriters, Deliberate_sheet_behind_close_is_not_listed)
{
    auto workbook = create();
    workbook->addSheet("a");
    workbook->close();
    workbook->addSheet("b")->close();
    workbook.reset();
    EXPECT_EQ(part("xl/workbook.xml").find("name=\"b\""), std::string::npos);
    EXPECT_EQ(names().back(), "xl\\worksheets\\b.xml");
}

TEST_F(ZyOOXMLWriters, Deliberate_package_closes_once_also_when_it_fails)
{
    auto workbook = create();
    EXPECT_ZY_THROW(workbook->close(), ZyFileSaveException,
                    "Cannot save [Cannot save document as not content provided]");
    workbook->close();
    workbook.reset(); // the failure has been told
}

TEST_F(ZyOOXMLWriters, CannotBeClosedAsAnUnknownKind)
{
    ZyOOXMLWriter workbook(path(), static_cast<ZyOOXMLWriter::FileType>(1));
    EXPECT_ZY_THROW(workbook.close(), ZyFileSaveException,
                    "Cannot save [Cannot save document as not content provided]");
    ZyOOXMLWriter second(path(), static_cast<ZyOOXMLWriter::FileType>(1));
    second.addSheet("a");
    EXPECT_ZY_THROW(second.close(), ZyFileSaveException, "Cannot save [Unknown document type]");
    second.close();
}

TEST_F(ZyOOXMLWriters, CannotBeMadeInAMissingDirectory)
{
    EXPECT_ZY_THROW(ZyOOXMLWriter(ZyFilePath("no-such-directory/a.xlsx"), ZyOOXMLWriter::Spreadsheet),
                    ZyInvalidPathException,
                    ZyInvalidPathException(ZyFilePath("no-such-directory/a.xlsx")).what());
}

TEST_F(ZyOOXMLWriterDeath, Deliberate_package_destructor_ends_process)
{
    EXPECT_DEATH({ create().reset(); }, "");
}

namespace
{
/** Text that does not get smaller. */
ZyString randomText(std::size_t size)
{
    std::mt19937 random;
    std::string text;
    while (text.size() < size) {
        text += static_cast<char>('0' + random() % 64);
    }
    return text;
}
} // namespace

TEST_F(ZyOOXMLWriterDeath, TellsOfAFullDiskAndUnwinds)
{
    auto const write = [&] {
        Restricted::limitFileSize(100000);
        ZyString const text = randomText(50000);
        try {
            ZyOOXMLWriter workbook(path(), ZyOOXMLWriter::Spreadsheet);
            auto const sheet = workbook.addSheet("a");
            for (int row = 0; row < 100; ++row) {
                sheet->startRow();
                sheet->addCell(text, 1, 1);
            }
        } catch (ZyInvalidCallException const & e) {
            return e.message().equal("ZyZipFile write failed: Zip failure",
                                     ZyComparableString::CaseSensitive);
        }
        return false;
    };
    EXPECT_EXIT(Restricted::exitWith(write), testing::ExitedWithCode(0), "");
}

TEST_F(ZyOOXMLWriterDeath, ClosesWithTheSameFailureAfterAFullDisk)
{
    auto const write = [&] {
        Restricted::limitFileSize(100000);
        ZyOOXMLWriter workbook(path(), ZyOOXMLWriter::Spreadsheet);
        auto const sheet = workbook.addSheet("a");
        EXPECT_THROW(sheet->addCell(randomText(500000), 1, 1), ZyInvalidCallException);
        EXPECT_THROW(workbook.close(), ZyInvalidCallException);
        workbook.close();
        return !testing::Test::HasFailure();
    };
    EXPECT_EXIT(Restricted::exitWith(write), testing::ExitedWithCode(0), "");
}

TEST_F(ZyOOXMLWriters, AreLeftIncompleteWhenASheetCannotBeAdded)
{
    auto workbook = create();
    workbook->addSheet("a");
    std::string const tooLong(70000, 'x');
    EXPECT_ZY_THROW(workbook->addSheet(tooLong), ZyInvalidParameterException,
                    "Cannot open zip archive file: Zip failure in xl\\worksheets\\" + tooLong + ".xml");
    workbook.reset();
    EXPECT_EQ(names(), std::vector<std::string>{"xl\\worksheets\\a.xml"});
}

TEST_F(ZyOOXMLWriters, Deliberate_package_entry_names)
{
    writeSmall();
    std::string const native = bytes();
    EXPECT_NE(native.find("xl\\worksheets\\sheet1.xml"), std::string::npos);
    EXPECT_EQ(native.find("xl/worksheets/sheet1.xml"), std::string::npos);
    writeSmall(ZyZipArchive::Portable);
    std::string portable = bytes();
    EXPECT_NE(portable.find("xl/worksheets/sheet1.xml"), std::string::npos);
    EXPECT_EQ(portable.find("xl\\worksheets\\sheet1.xml"), std::string::npos);

    for (std::string const name :
         {"xl/worksheets/sheet1.xml", "_rels/.rels", "xl/_rels/workbook.xml.rels", "xl/workbook.xml"}) {
        std::string stored = name;
        std::replace(stored.begin(), stored.end(), '/', '\\');
        for (std::size_t at = portable.find(name); at != std::string::npos; at = portable.find(name, at)) {
            portable.replace(at, name.size(), stored);
        }
    }
    EXPECT_EQ(portable, native);
}

TEST_F(ZyOOXMLWriters, AreReadBackByAnotherZipReader)
{
    if (Program::python().isEmpty()) {
        GTEST_SKIP() << "there is no Python";
    }
    std::string const mark = "|8|00002000|00002000|";
    writeSmall();
    EXPECT_EQ(Program::script("Office/list_zip.py", {file()}),
              "xl\\worksheets\\sheet1.xml" + mark + sheetPart + "[Content_Types].xml" + mark + contentTypes +
                  "_rels\\.rels" + mark + packageRelationships + "xl\\_rels\\workbook.xml.rels" + mark +
                  workbookRelationships + "xl\\workbook.xml" + mark + workbookPart);
    writeSmall(ZyZipArchive::Portable);
    EXPECT_EQ(Program::script("Office/list_zip.py", {file()}),
              "xl/worksheets/sheet1.xml" + mark + sheetPart + "[Content_Types].xml" + mark + contentTypes +
                  "_rels/.rels" + mark + packageRelationships + "xl/_rels/workbook.xml.rels" + mark +
                  workbookRelationships + "xl/workbook.xml" + mark + workbookPart);
}

TEST_F(ZyOOXMLWriters, KeepASheetOfASupersededEntryFromWriting)
{
    ZyZipArchive archive(path(), ZyZipArchive::Write);
    ZyOOXMLWriterSpreadsheet sheet(archive.open("a.xml", ZyZipArchive::DefaultLevel));
    auto const next = archive.open("b.xml", ZyZipArchive::DefaultLevel);
    sheet.startRow();
    EXPECT_ZY_THROW(sheet.close(), ZyInvalidCallException,
                    "ZyZipFile cannot be written to as it is not the active file");
}
