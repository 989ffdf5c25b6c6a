// SPDX-License-Identifier: BSD-3-Clause
// The single-file spreadsheet: its bytes, its spans, its device. Expected texts were made by hand from the
// rules of the format.
#include <ZyXMLSpreadsheetWriter.h>

#include "RecordingDevice.h"
#include "ThrowsMessage.h"

#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyXMLStreamWriter.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyXMLSpreadsheetWriter) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::has_virtual_destructor_v<ZyXMLSpreadsheetWriter>);
static_assert(!std::is_copy_constructible_v<ZyXMLSpreadsheetWriter>);

std::string const head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<?mso-application progid=\"Excel.Sheet\"?>\n<Workbook "
    "xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\" "
    "xmlns:ss=\"urn:schemas-microsoft-com:office:spreadsheet\">\n"
    "  <Worksheet ss:Name=\"Sheet1\">\n";
std::string const tail = "  </Worksheet>\n</Workbook>\n";

/** What stands between head and tail. */
std::string table(std::function<void(ZyXMLSpreadsheetWriter &)> const & write)
{
    ZyStringDevice device;
    {
        ZyXMLSpreadsheetWriter writer(device);
        write(writer);
    }
    std::string const text = device.content().toStdString();
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
    return text.substr(head.size(), text.size() - head.size() - tail.size());
}

std::string oneCell(ZyVariant const & value, unsigned int columnSpan = 1, unsigned int rowSpan = 1)
{
    std::string const text =
        table([&](ZyXMLSpreadsheetWriter & writer) { writer.addCell(value, columnSpan, rowSpan); });
    std::string const front = "    <Table>\n      <Row>\n        <Cell";
    std::string const back = "\n        </Cell>\n      </Row>\n    </Table>\n";
    EXPECT_EQ(text.substr(0, front.size()), front);
    return text.substr(front.size(), text.size() - front.size() - back.size());
}

/** The same document with one call of the stream writer for each part of it. */
class SlowWriter
{
public:
    explicit SlowWriter(ZyIODevice & device)
        : m_xml(device, {true, 2}), m_ss("urn:schemas-microsoft-com:office:spreadsheet")
    {
        m_xml.writeDefaultNamespace(m_ss);
        m_xml.writeNamespace(m_ss, "ss");
        m_xml.startElement("Workbook");
        m_xml.startElement("Worksheet");
        m_xml.writeAttribute("Name", "Sheet1", m_ss);
        m_xml.startElement("Table");
    }
    void startRow()
    {
        endRow();
        m_xml.startElement("Row");
        m_inRow = true;
    }
    void endRow()
    {
        if (std::exchange(m_inRow, false)) {
            m_xml.finishElement();
        }
    }
    void addCell(ZyVariant const & value, unsigned int columnSpan, unsigned int rowSpan)
    {
        if (!m_inRow) {
            startRow();
        }
        m_xml.startElement("Cell");
        if (columnSpan > 1) {
            m_xml.writeAttribute("MergeAcross", columnSpan - 1, m_ss);
        }
        if (rowSpan > 1) {
            m_xml.writeAttribute("MergeDown", rowSpan - 1, m_ss);
        }
        m_xml.startElement("Data");
        bool const isNumber = value.type() == ZyVariant::Integer || value.type() == ZyVariant::Double;
        m_xml.writeAttribute("Type", isNumber ? "Number" : "String", m_ss);
        m_xml.writeText(value.toString());
        m_xml.finishElement();
        m_xml.finishElement();
    }
    void finish() { m_xml.finishDocument(); }

private:
    ZyXMLStreamWriter m_xml;
    ZyString m_ss;
    bool m_inRow = false;
};
} // namespace

TEST(ZyXMLSpreadsheetWriter, WritesANumberAndATextThatSpans)
{
    ZyStringDevice device;
    ZyXMLSpreadsheetWriter writer(device);
    writer.startRow();
    writer.addCell(1, 1, 1);
    writer.addCell("x", 3, 2);
    writer.finish();
    EXPECT_EQ(device.content().toStdString(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
              "<?mso-application progid=\"Excel.Sheet\"?>\n"
              "<Workbook xmlns=\"urn:schemas-microsoft-com:office:spreadsheet\" "
              "xmlns:ss=\"urn:schemas-microsoft-com:office:spreadsheet\">\n"
              "  <Worksheet ss:Name=\"Sheet1\">\n"
              "    <Table>\n"
              "      <Row>\n"
              "        <Cell>\n"
              "          <Data ss:Type=\"Number\">1</Data>\n"
              "        </Cell>\n"
              "        <Cell ss:MergeAcross=\"2\" ss:MergeDown=\"1\">\n"
              "          <Data ss:Type=\"String\">x</Data>\n"
              "        </Cell>\n"
              "      </Row>\n"
              "    </Table>\n"
              "  </Worksheet>\n"
              "</Workbook>\n");
}

TEST(ZyXMLSpreadsheetWriter, WritesATableWithoutRows)
{
    EXPECT_EQ(table([](ZyXMLSpreadsheetWriter &) {}), "    <Table/>\n");
}

TEST(ZyXMLSpreadsheetWriter, WritesRowsWithoutCells)
{
    EXPECT_EQ(table([](ZyXMLSpreadsheetWriter & writer) {
                  writer.startRow();
                  writer.endRow();
                  writer.endRow();
                  writer.startRow();
              }),
              "    <Table>\n      <Row/>\n      <Row/>\n    </Table>\n");
}

TEST(ZyXMLSpreadsheetWriter, StartsARowForACellThatHasNone)
{
    EXPECT_EQ(table([](ZyXMLSpreadsheetWriter & writer) {
                  writer.addCell(1, 1, 1);
                  writer.endRow();
                  writer.addCell(2, 1, 1);
              }),
              "    <Table>\n      <Row>\n        <Cell>\n          <Data ss:Type=\"Number\">1</Data>\n       "
              " </Cell>\n"
              "      </Row>\n      <Row>\n        <Cell>\n          <Data ss:Type=\"Number\">2</Data>\n      "
              "  </Cell>\n"
              "      </Row>\n    </Table>\n");
}

TEST(ZyXMLSpreadsheetWriterSpans, AcrossStandOnTheCell)
{
    EXPECT_EQ(oneCell("x", 3, 1), " ss:MergeAcross=\"2\">\n          <Data ss:Type=\"String\">x</Data>");
}

TEST(ZyXMLSpreadsheetWriterSpans, DownStandOnTheCell)
{
    EXPECT_EQ(oneCell("x", 1, 2), " ss:MergeDown=\"1\">\n          <Data ss:Type=\"String\">x</Data>");
}

TEST(ZyXMLSpreadsheetWriterSpans, OfZeroAndOneWriteNothing)
{
    EXPECT_EQ(oneCell("x", 0, 0), ">\n          <Data ss:Type=\"String\">x</Data>");
    EXPECT_EQ(oneCell("x", 1, 1), ">\n          <Data ss:Type=\"String\">x</Data>");
}

TEST(ZyXMLSpreadsheetWriterSpans, MayBeAsLargeAsTheyCome)
{
    EXPECT_EQ(oneCell("x", 4294967295u, 4294967295u),
              " ss:MergeAcross=\"4294967294\" ss:MergeDown=\"4294967294\">\n          <Data "
              "ss:Type=\"String\">x</Data>");
}

TEST(ZyXMLSpreadsheetWriterKinds, Deliberate_single_file_booleans_are_text)
{
    EXPECT_EQ(oneCell(true), ">\n          <Data ss:Type=\"String\">true</Data>");
    EXPECT_EQ(oneCell(false), ">\n          <Data ss:Type=\"String\">false</Data>");
}

TEST(ZyXMLSpreadsheetWriterKinds, NumbersAreNumbersAndAllElseIsText)
{
    EXPECT_EQ(oneCell(-3), ">\n          <Data ss:Type=\"Number\">-3</Data>");
    EXPECT_EQ(oneCell(1234567.0), ">\n          <Data ss:Type=\"Number\">1.23457e+06</Data>");
    EXPECT_EQ(oneCell(HUGE_VAL), ">\n          <Data ss:Type=\"Number\">inf</Data>");
    EXPECT_EQ(oneCell(ZyVariant()), ">\n          <Data ss:Type=\"String\">null</Data>");
    EXPECT_EQ(oneCell(7u), ">\n          <Data ss:Type=\"String\">7</Data>");
    EXPECT_EQ(oneCell(""), ">\n          <Data ss:Type=\"String\"></Data>");
    EXPECT_EQ(oneCell("<&>\"'\n"), ">\n          <Data ss:Type=\"String\">&lt;&amp;&gt;&quot;'\n</Data>");
    EXPECT_EQ(oneCell(ZyFilePath("a/b")), ">\n          <Data ss:Type=\"String\">a\\b</Data>");
    EXPECT_EQ(oneCell(ZyPair<ZyString, ZyString>{"x", "y"}),
              ">\n          <Data ss:Type=\"String\">[x,y]</Data>");
}

TEST(ZyXMLSpreadsheetWriter, WritesWhatTheStreamWriterWouldWriteCallByCall)
{
    std::mt19937 random(7);
    std::string const instruction = "\r\n<?mso-application progid=\"Excel.Sheet\"?>\n";
    for (int round = 0; round < 500; ++round) {
        ZyStringDevice fast;
        ZyStringDevice slow;
        ZyXMLSpreadsheetWriter writer(fast);
        SlowWriter reference(slow);
        for (std::size_t step = random() % 30; step > 0; --step) {
            auto const choice = static_cast<unsigned int>(random() % 8);
            if (choice == 0) {
                writer.startRow();
                reference.startRow();
            } else if (choice == 1) {
                writer.endRow();
                reference.endRow();
            } else {
                ZyVariant const value =
                    choice % 2 ? ZyVariant(static_cast<int>(step)) : ZyVariant("<\xc3\xa4\xff>");
                auto const columnSpan = static_cast<unsigned int>(random() % 3);
                auto const rowSpan = static_cast<unsigned int>(random() % 3);
                writer.addCell(value, columnSpan, rowSpan);
                reference.addCell(value, columnSpan, rowSpan);
            }
        }
        writer.finish();
        reference.finish();
        std::string const text = fast.content().toStdString();
        ASSERT_EQ(text.substr(text.find(instruction) + instruction.size() - 1), slow.content().toStdString());
    }
}

TEST(ZyXMLSpreadsheetWriterDevice, IsOpenedWhenClosed)
{
    ZyStringDevice device("old");
    ZyXMLSpreadsheetWriter writer(device);
    EXPECT_EQ(device.mode(), ZyIODevice::Write);
    EXPECT_EQ(device.content().toStdString().find("old"), std::string::npos);
}

TEST(ZyXMLSpreadsheetWriterDevice, IsUsedAsItStandsWhenOpenForWriting)
{
    ZyStringDevice device("old");
    device.open(ZyIODevice::Append);
    ZyXMLSpreadsheetWriter writer(device);
    EXPECT_EQ(device.mode(), ZyIODevice::Append);
    writer.finish();
    EXPECT_EQ(device.content().toStdString(), "old" + head + "    <Table/>\n" + tail);
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
}

TEST(ZyXMLSpreadsheetWriterDevice, InReadModeIsRefusedAndLeftAlone)
{
    ZyStringDevice device("text");
    device.open(ZyIODevice::Read);
    EXPECT_ZY_THROW(ZyXMLSpreadsheetWriter{device}, ZyInvalidCallException,
                    "Device is in read mode, cannot write to it");
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
    EXPECT_EQ(device.lastError().toStdString(), "");
    EXPECT_EQ(device.readAll().toStdString(), "text");
}

TEST(ZyXMLSpreadsheetWriter, CompletesTheDocumentWhenDestroyed)
{
    EXPECT_EQ(table([](ZyXMLSpreadsheetWriter & writer) {
                  writer.startRow();
                  writer.addCell(1, 1, 1);
              }),
              "    <Table>\n      <Row>\n        <Cell>\n          <Data ss:Type=\"Number\">1</Data>\n       "
              " </Cell>\n"
              "      </Row>\n    </Table>\n");
}

TEST(ZyXMLSpreadsheetWriter, FinishesOnce)
{
    ZyStringDevice device;
    ZyXMLSpreadsheetWriter writer(device);
    writer.finish();
    ZyString const text = device.content();
    writer.finish();
    EXPECT_EQ(device.content().toStdString(), text.toStdString());
}

TEST(ZyXMLSpreadsheetWriter, HasNoTableLeftAfterFinishing)
{
    ZyStringDevice device;
    ZyXMLSpreadsheetWriter writer(device);
    writer.finish();
    EXPECT_ZY_THROW(writer.startRow(), ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
    EXPECT_ZY_THROW(writer.addCell(1, 1, 1), ZyNullPointerException, "ZyUniquePtr dereferencing nullptr");
    writer.endRow();
}

TEST(ZyXMLSpreadsheetWriterFailure, IsThrownByTheCallThatMeetsItAndForgivenByTheDestructor)
{
    RecordingDevice device;
    device.good = 3;
    {
        ZyXMLSpreadsheetWriter writer(device);
        EXPECT_ZY_THROW(writer.addCell(ZyString(std::string(100000, 'x')), 1, 1), ZyIOException,
                        "no room left");
        EXPECT_ZY_THROW(writer.finish(), ZyIOException, "no room left");
    }
    EXPECT_EQ(device.failures, 1);
    EXPECT_EQ(device.closed, 1);
}

TEST(ZyXMLSpreadsheetWriterFailure, OfTheBeginningComesOutOfTheConstructor)
{
    for (std::size_t good = 0; good < 3; ++good) {
        RecordingDevice device;
        device.good = good;
        EXPECT_ZY_THROW(ZyXMLSpreadsheetWriter{device}, ZyIOException, "no room left");
        EXPECT_EQ(device.closed, 1);
    }
}

TEST(ZyXMLSpreadsheetWriterFailureDeath, FirstMetByTheDestructorEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(
        {
            RecordingDevice device;
            device.good = 3;
            ZyXMLSpreadsheetWriter writer(device);
        },
        "");
}
