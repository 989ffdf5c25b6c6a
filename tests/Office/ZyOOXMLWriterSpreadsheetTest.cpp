// SPDX-License-Identifier: BSD-3-Clause
// One worksheet: the layout of cells and merges, the kinds of cells, and closed sheets. Expected texts were
// made by hand from the rules of the format.
#include <ZyOOXMLWriterSpreadsheet.h>

#include "RecordingDevice.h"
#include "ReferenceSheet.h"
#include "Sanitizers.h"
#include "ThrowsMessage.h"

#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>

#include <QFile>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyOOXMLWriterSpreadsheet) == 3 * sizeof(void *), "the base and a state of its own");
static_assert(std::is_base_of_v<ZyOOXMLWriterDocument, ZyOOXMLWriterSpreadsheet>);
static_assert(!std::is_copy_constructible_v<ZyOOXMLWriterSpreadsheet>);
static_assert(!std::is_copy_assignable_v<ZyOOXMLWriterSpreadsheet>);
static_assert(std::is_nothrow_move_constructible_v<ZyOOXMLWriterSpreadsheet>);
static_assert(std::is_nothrow_move_assignable_v<ZyOOXMLWriterSpreadsheet>);

char const * const head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                          "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">";
char const * const tail = "</worksheet>\n";

/** A sheet on a string, and its text without head and tail. */
class TestSheet
{
public:
    ZyOOXMLWriterSpreadsheet * operator->() { return &sheet; }

    std::string close()
    {
        sheet.close();
        std::string const text = device->content().toStdString();
        std::string const front = head;
        std::string const back = tail;
        EXPECT_EQ(text.substr(0, front.size()), front);
        EXPECT_EQ(text.substr(text.size() - back.size()), back);
        return text.substr(front.size(), text.size() - front.size() - back.size());
    }

    ZySharedPtr<ZyStringDevice> device{new ZyStringDevice};
    ZyOOXMLWriterSpreadsheet sheet{ZyWeakPtr<ZyIODevice>(device)};
};

std::string oneCell(ZyVariant const & value)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(value, 1, 1);
    std::string const text = sheet.close();
    std::string const front = "<sheetData><row><c r=\"A1\"";
    std::string const back = "</row></sheetData>";
    EXPECT_EQ(text.substr(0, front.size()), front);
    return text.substr(front.size(), text.size() - front.size() - back.size());
}
} // namespace

TEST(ZyOOXMLWriterSpreadsheet, WritesOneRowOfTwoNumbers)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 1);
    sheet->addCell(2, 1, 1);
    sheet->close();
    EXPECT_EQ(sheet.device->content().toStdString(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet "
              "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData><row><c "
              "r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row></sheetData></worksheet>\n");
}

TEST(ZyOOXMLWriterSpreadsheet, WritesAnEmptySheet)
{
    TestSheet sheet;
    sheet->close();
    EXPECT_EQ(
        sheet.device->content().toStdString(),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData/></worksheet>\n");
}

TEST(ZyOOXMLWriterSpreadsheet, WritesAllKindsAndAMerge)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell("x<&>\"'", 1, 2);
    sheet->addCell(true, 1, 1);
    sheet->addCell(1000000.0, 1, 1);
    sheet->addCell(ZyVariant(), 1, 1);
    sheet->addCell("", 1, 1);
    sheet->startRow();
    sheet->addCell(7, 1, 1);
    sheet->close();
    EXPECT_EQ(
        sheet.device->content().toStdString(),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><sheetData><row><c r=\"A1\" "
        "t=\"inlineStr\"><is><t>x&lt;&amp;&gt;&quot;'</t></is></c><c r=\"B1\" t=\"b\"><v>1</v></c><c "
        "r=\"C1\"><v>1e+06</v></c><c r=\"D1\"/><c r=\"E1\" t=\"inlineStr\"><is><t></t></is></c></row><row><c "
        "r=\"A2\"/><c r=\"B2\"><v>7</v></c></row></sheetData><mergeCells count=\"1\"><mergeCell "
        "ref=\"A1:A2\"/></mergeCells></worksheet>\n");
}

TEST(ZyOOXMLWriterSpreadsheetLetters, NameColumns)
{
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(0).toStdString(), "");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(1).toStdString(), "A");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(26).toStdString(), "Z");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(27).toStdString(), "AA");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(52).toStdString(), "AZ");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(53).toStdString(), "BA");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(702).toStdString(), "ZZ");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(703).toStdString(), "AAA");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(16384).toStdString(), "XFD");
    EXPECT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(4294967295u).toStdString(), "MWLQKWU");
}

TEST(ZyOOXMLWriterSpreadsheetLetters, FollowTheRuleForManyColumns)
{
    for (unsigned int column = 0; column < 20000; ++column) {
        ASSERT_EQ(ZyOOXMLWriterSpreadsheet::NumberToLetterString(column).toStdString(),
                  ReferenceSheet::letters(column));
    }
}

TEST(ZyOOXMLWriterSpreadsheetKinds, NullIsAnEmptyElement)
{
    EXPECT_EQ(oneCell(ZyVariant()), "/>");
}

TEST(ZyOOXMLWriterSpreadsheetKinds, BooleansAreLogical)
{
    EXPECT_EQ(oneCell(true), " t=\"b\"><v>1</v></c>");
    EXPECT_EQ(oneCell(false), " t=\"b\"><v>0</v></c>");
}

TEST(ZyOOXMLWriterSpreadsheetKinds, NumbersAreAsTheirText)
{
    for (int const number : {0, 1, -1, 7, 2147483647, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(oneCell(number), "><v>" + std::to_string(number) + "</v></c>");
    }
    for (double const number : {0.0, -0.0, 0.1, 1e6, 1234567.0, 123456.0, 1e-5, 0.0001, -2.5, 1e300, 5e-324,
                                1.0 / 3, HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(oneCell(number), "><v>" + ZyVariant(number).toString().toStdString() + "</v></c>");
    }
    EXPECT_EQ(oneCell(1234567.0), "><v>1.23457e+06</v></c>");
    EXPECT_EQ(oneCell(HUGE_VAL), "><v>inf</v></c>");
    EXPECT_EQ(oneCell(std::nan("")), "><v>nan</v></c>");
}

TEST(ZyOOXMLWriterSpreadsheetKinds, AllOthersAreInlineText)
{
    EXPECT_EQ(oneCell("text"), " t=\"inlineStr\"><is><t>text</t></is></c>");
    EXPECT_EQ(oneCell(""), " t=\"inlineStr\"><is><t></t></is></c>");
    EXPECT_EQ(oneCell(7u), " t=\"inlineStr\"><is><t>7</t></is></c>");
    EXPECT_EQ(oneCell(ZyFilePath("a/b.txt")), " t=\"inlineStr\"><is><t>a\\b.txt</t></is></c>");
    EXPECT_EQ(oneCell(ZyPair<ZyString, ZyString>{"<", "y"}), " t=\"inlineStr\"><is><t>[&lt;,y]</t></is></c>");
    EXPECT_EQ(oneCell(ZyPair<ZyFilePath, ZyFilePath>{"a", "b"}),
              " t=\"inlineStr\"><is><t>[a,b]</t></is></c>");
}

TEST(ZyOOXMLWriterSpreadsheetKinds, TextIsEscapedEndsAtANulAndIsMadeUtf8)
{
    EXPECT_EQ(oneCell(ZyString(std::string("a\0b", 3))), " t=\"inlineStr\"><is><t>a</t></is></c>");
    EXPECT_EQ(oneCell("\xff\x01\xc3\xa9"), " t=\"inlineStr\"><is><t>\xef\xbf\xbd\xc3\xa9</t></is></c>");
    EXPECT_EQ(oneCell(" \t\r\n "), " t=\"inlineStr\"><is><t> \t\r\n </t></is></c>");
}

TEST(ZyOOXMLWriterSpreadsheetKinds, ALongTextPassesWhole)
{
    std::string const text(3000000, 'x');
    EXPECT_EQ(oneCell(ZyString(text)), " t=\"inlineStr\"><is><t>" + text + "</t></is></c>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, StepsOverTheColumnsOfAMerge)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell("x", 2, 1);
    sheet->addCell(1, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\" t=\"inlineStr\"><is><t>x</t></is></c><c r=\"B1\"/><c "
              "r=\"C1\"><v>1</v></c></row></sheetData><mergeCells count=\"1\"><mergeCell "
              "ref=\"A1:B1\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, StepsOverTheRowsOfAMerge)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 2);
    sheet->addCell(2, 1, 1);
    sheet->startRow();
    sheet->addCell(3, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row><row><c r=\"A2\"/><c "
              "r=\"B2\"><v>3</v></c></row></sheetData><mergeCells count=\"1\"><mergeCell "
              "ref=\"A1:A2\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, CountsSpansOfZeroAsOne)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 0, 0);
    sheet->addCell(2, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row></sheetData>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, CoversTheSquaresOfARectangle)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 2, 2);
    sheet->addCell(2, 1, 1);
    sheet->startRow();
    sheet->addCell(3, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"/><c r=\"C1\"><v>2</v></c></row><row>"
              "<c r=\"A2\"/><c r=\"B2\"/><c r=\"C2\"><v>3</v></c></row></sheetData><mergeCells "
              "count=\"1\"><mergeCell ref=\"A1:B2\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, HasNoMergeCellsWithoutMerges)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(ZyVariant(), 1, 1);
    EXPECT_EQ(sheet.close(), "<sheetData><row><c r=\"A1\"/></row></sheetData>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, Deliberate_first_cell_without_row)
{
    TestSheet sheet;
    sheet->addCell(1, 1, 1);
    sheet->addCell(2, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"1\"><v>1</v></c><c r=\"A1\"><v>2</v></c></row></sheetData>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, OfARowOpenedByACellBelowAMergeNamesTheFillersSquareTwice)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 2);
    sheet->addCell(2, 1, 1);
    sheet->endRow();
    sheet->addCell(3, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row><row><c r=\"A2\"/><c "
              "r=\"A2\"><v>3</v></c></row></sheetData><mergeCells count=\"1\"><mergeCell "
              "ref=\"A1:A2\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, OfAFirstCellOfTwoByTwoWithoutARow)
{
    TestSheet sheet;
    sheet->addCell(1, 2, 2);
    sheet->addCell(2, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"1\"><v>1</v></c><c r=\"A1\"/><c r=\"B1\"><v>2</v></c></row>"
              "</sheetData><mergeCells count=\"1\"><mergeCell ref=\"1:A2\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, Deliberate_rows_below_by_the_next_column)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 1);
    sheet->addCell(2, 1, 3);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row></sheetData>"
              "<mergeCells count=\"1\"><mergeCell ref=\"B1:B3\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, LeavesARowEmptyWhoseCoveredSquareIsNotItsFirst)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 1);
    sheet->addCell(2, 1, 3);
    sheet->startRow();
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row><row/></sheetData>"
              "<mergeCells count=\"1\"><mergeCell ref=\"B1:B3\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, OfFourValuesBesideTwo)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(10, 1, 2);
    sheet->addCell(1, 1, 1);
    sheet->startRow();
    sheet->addCell(20, 1, 2);
    sheet->addCell(2, 1, 1);
    sheet->startRow();
    sheet->addCell(3, 1, 1);
    sheet->startRow();
    sheet->addCell(4, 1, 1);
    EXPECT_EQ(
        sheet.close(),
        "<sheetData><row><c r=\"A1\"><v>10</v></c><c r=\"B1\"><v>1</v></c></row><row><c r=\"A2\"/><c "
        "r=\"B2\"><v>20</v></c><c r=\"C2\"><v>2</v></c></row><row><c r=\"A3\"><v>3</v></c><c r=\"B3\"/></row>"
        "<row><c r=\"A4\"><v>4</v></c></row></sheetData><mergeCells count=\"2\"><mergeCell ref=\"A1:A2\"/>"
        "<mergeCell ref=\"B2:B3\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, OfOneValueBesideThree)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(9, 1, 3);
    for (int value = 1; value <= 3; ++value) {
        if (value > 1) {
            sheet->startRow();
        }
        sheet->addCell(value, 1, 1);
    }
    EXPECT_EQ(
        sheet.close(),
        "<sheetData><row><c r=\"A1\"><v>9</v></c><c r=\"B1\"><v>1</v></c></row><row><c r=\"A2\"/><c "
        "r=\"B2\"><v>2</v></c></row><row><c r=\"A3\"/><c r=\"B3\"><v>3</v></c></row></sheetData><mergeCells "
        "count=\"1\"><mergeCell ref=\"A1:A3\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, OfAMergeInTheLastColumn)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 1);
    sheet->addCell(9, 1, 3);
    sheet->startRow();
    sheet->addCell(2, 1, 1);
    sheet->startRow();
    sheet->addCell(3, 1, 1);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>9</v></c></row><row><c "
              "r=\"A2\"><v>2</v></c><c r=\"B2\"/></row><row><c r=\"A3\"><v>3</v></c><c r=\"B3\"/></row>"
              "</sheetData><mergeCells count=\"1\"><mergeCell ref=\"B1:B3\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, FollowsTheRulesOnRandomSheets)
{
    std::mt19937 random(5);
    for (int round = 0; round < 4000; ++round) {
        TestSheet sheet;
        ReferenceSheet reference;
        auto const largest = static_cast<unsigned int>(1 + random() % 5);
        for (std::size_t step = random() % 40; step > 0; --step) {
            auto const choice = static_cast<unsigned int>(random() % 10);
            if (choice < 2) {
                sheet->startRow();
                reference.startRow();
            } else if (choice == 2) {
                sheet->endRow();
                reference.endRow();
            } else {
                auto const columnSpan = static_cast<unsigned int>(random() % (largest + 1));
                auto const rowSpan = static_cast<unsigned int>(random() % (largest + 1));
                sheet->addCell(static_cast<int>(step), columnSpan, rowSpan);
                reference.addCell("><v>" + std::to_string(step) + "</v>", columnSpan, rowSpan);
            }
        }
        ASSERT_EQ(sheet.close(), reference.close()) << "round " << round;
    }
}

TEST(ZyOOXMLWriterSpreadsheetLayout, EndsARowOnceOnly)
{
    TestSheet sheet;
    sheet->endRow();
    sheet->startRow();
    sheet->endRow();
    sheet->endRow();
    EXPECT_EQ(sheet.close(), "<sheetData><row/></sheetData>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, BearsAMillionColumns)
{
    RecordingDevice * const recording = new RecordingDevice;
    ZySharedPtr<ZyIODevice> const device(recording);
    ZyOOXMLWriterSpreadsheet sheet(device);
    sheet.startRow();
    sheet.addCell(1, 1000000, 1);
    sheet.addCell(2, 1, 1);
    sheet.startRow();
    sheet.addCell(3, 1, 1);
    sheet.close();
    std::string const text = recording->text();
    EXPECT_NE(
        text.find("<c r=\"BDWGN1\"/><c r=\"BDWGO1\"><v>2</v></c></row><row><c r=\"A2\"><v>3</v></c></row>"),
        std::string::npos);
    EXPECT_NE(text.find("<mergeCell ref=\"A1:BDWGN1\"/>"), std::string::npos);
}

TEST(ZyOOXMLWriterSpreadsheetLayout, BearsAMillionRows)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 2, 1000000);
    sheet->startRow();
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"/></row><row><c r=\"A2\"/><c "
              "r=\"B2\"/></row></sheetData><mergeCells count=\"1\"><mergeCell "
              "ref=\"A1:B1000000\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, BearsMoreRowsThanThereAre)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->addCell(1, 1, 4294967295u);
    sheet->addCell(2, 1, 1);
    sheet->startRow();
    sheet->addCell(3, 1, 4294967295u);
    EXPECT_EQ(sheet.close(),
              "<sheetData><row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row><row><c r=\"A2\"/><c "
              "r=\"B2\"><v>3</v></c></row></sheetData><mergeCells count=\"2\"><mergeCell "
              "ref=\"A1:A4294967295\"/><mergeCell ref=\"B2:B0\"/></mergeCells>");
}

TEST(ZyOOXMLWriterSpreadsheetLayout, WritesTwentyThousandMerges)
{
    RecordingDevice * const recording = new RecordingDevice;
    ZySharedPtr<ZyIODevice> const device(recording);
    ZyOOXMLWriterSpreadsheet sheet(device);
    std::string merges = "<mergeCells count=\"20000\">";
    for (unsigned int row = 1; row <= 20000; ++row) {
        sheet.startRow();
        sheet.addCell("merged", 3, 1);
        merges += "<mergeCell ref=\"A" + std::to_string(row) + ":C" + std::to_string(row) + "\"/>";
    }
    sheet.close();
    merges += "</mergeCells></worksheet>\n";
    std::string const text = recording->text();
    EXPECT_EQ(text.substr(text.size() - merges.size()), merges);
}

TEST(ZyOOXMLWriterSpreadsheetMemory, DoesNotGrowWithTheRows)
{
#if ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER
    GTEST_SKIP() << "sanitizers keep freed memory";
#endif
    auto const peakKiB = [] {
        QFile status(QStringLiteral("/proc/self/status"));
        status.open(QIODevice::ReadOnly);
        QByteArray const text = status.readAll();
        int const at = text.indexOf("VmHWM:");
        return at < 0 ? -1 : text.mid(at + 6).trimmed().split(' ').front().toInt();
    };
    if (peakKiB() < 0) {
        GTEST_SKIP() << "the system does not tell the peak memory";
    }
    class Sink : public RecordingDevice
    {
    protected:
        unsigned int onWrite(ZyString const & text) override { return text.size(); }
    };
    ZySharedPtr<ZyIODevice> const device(new Sink);
    ZyOOXMLWriterSpreadsheet sheet(device);
    ZyString const text("a text of some length");
    int const before = peakKiB();
    for (int row = 0; row < 20000; ++row) {
        sheet.startRow();
        for (int column = 0; column < 20; ++column) {
            sheet.addCell(column % 2 ? ZyVariant(text) : ZyVariant(row + column / 8.0), 1, row % 5 ? 1u : 3u);
        }
    }
    sheet.close();
    EXPECT_LT(peakKiB() - before, 8192);
}

TEST(ZyOOXMLWriterSpreadsheetClosed, RefusesRowsAndCells)
{
    TestSheet sheet;
    sheet->startRow();
    sheet->close();
    EXPECT_FALSE(sheet->isAlive());
    EXPECT_ZY_THROW(sheet->startRow(), ZyInvalidCallException,
                    "Spreadsheet cannot be written to as has been closed");
    EXPECT_ZY_THROW(sheet->addCell(1, 1, 1), ZyInvalidCallException,
                    "Spreadsheet cannot be written to as has been closed");
    sheet->endRow();
    sheet->close();
}

TEST(ZyOOXMLWriterSpreadsheetClosed, RefusesToCloseByHand)
{
    class Opened : public ZyOOXMLWriterSpreadsheet
    {
    public:
        using ZyOOXMLWriterSpreadsheet::onClose;
        using ZyOOXMLWriterSpreadsheet::ZyOOXMLWriterSpreadsheet;
    };
    ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
    Opened sheet{ZyWeakPtr<ZyIODevice>(device)};
    sheet.close();
    EXPECT_ZY_THROW(sheet.onClose(), ZyInvalidCallException,
                    "Spreadsheet cannot be written to as has been closed");
}

TEST(ZyOOXMLWriterSpreadsheetFailure, OfTheDeviceComesOutOfTheCallThatMeetsIt)
{
    RecordingDevice * const recording = new RecordingDevice;
    ZySharedPtr<ZyIODevice> const device(recording);
    recording->good = 1;
    ZyOOXMLWriterSpreadsheet sheet(device);
    sheet.startRow();
    EXPECT_ZY_THROW(sheet.addCell(ZyString(std::string(100000, 'x')), 1, 1), ZyIOException, "no room left");
    EXPECT_ZY_THROW(sheet.endRow(), ZyIOException, "no room left");
    EXPECT_ZY_THROW(sheet.close(), ZyIOException, "no room left");
    EXPECT_EQ(recording->failures, 1);
}

TEST(ZyOOXMLWriterSpreadsheetFailure, HalfWayThroughClosingLeavesASheetWithoutADocument)
{
    RecordingDevice * const recording = new RecordingDevice;
    ZySharedPtr<ZyIODevice> const device(recording);
    recording->good = 1;
    ZyOOXMLWriterSpreadsheet sheet(device);
    sheet.startRow();
    EXPECT_ZY_THROW(sheet.close(), ZyIOException, "no room left");
    EXPECT_TRUE(sheet.isAlive());
    EXPECT_ZY_THROW(sheet.startRow(), ZyInvalidCallException, "Cannot write row as no document");
    EXPECT_ZY_THROW(sheet.close(), ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
}

TEST(ZyOOXMLWriterSpreadsheet, NeedsADevice)
{
    EXPECT_ZY_THROW(ZyOOXMLWriterSpreadsheet(ZyWeakPtr<ZyIODevice>()), ZyNullPointerException, "");
}

TEST(ZyOOXMLWriterSpreadsheet, MovesWithTheRowUnderWay)
{
    ZySharedPtr<ZyStringDevice> const device(new ZyStringDevice);
    ZyOOXMLWriterSpreadsheet first{ZyWeakPtr<ZyIODevice>(device)};
    first.startRow();
    first.addCell(1, 1, 1);
    ZyOOXMLWriterSpreadsheet second(std::move(first));
    second.addCell(2, 1, 1);
    second.close();
    EXPECT_NE(
        device->content().toStdString().find("<row><c r=\"A1\"><v>1</v></c><c r=\"B1\"><v>2</v></c></row>"),
        std::string::npos);
}

TEST(ZyOOXMLWriterSpreadsheet, AssignedOverAnotherEndsThatOnesElements)
{
    ZySharedPtr<ZyStringDevice> const lost(new ZyStringDevice);
    ZySharedPtr<ZyStringDevice> const device(new ZyStringDevice);
    ZyOOXMLWriterSpreadsheet sheet{ZyWeakPtr<ZyIODevice>(lost)};
    sheet.startRow();
    sheet = ZyOOXMLWriterSpreadsheet{ZyWeakPtr<ZyIODevice>(device)};
    EXPECT_EQ(lost->content().toStdString(), head + std::string("<sheetData><row/></sheetData></worksheet>"));
    sheet.startRow();
    sheet.addCell(1, 1, 1);
    sheet.close();
    EXPECT_EQ(device->content().toStdString(),
              head + std::string("<sheetData><row><c r=\"A1\"><v>1</v></c></row></sheetData>") + tail);
}
