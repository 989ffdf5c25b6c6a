// SPDX-License-Identifier: BSD-3-Clause
// Every write of every writer fails once, and from there on: the failure is told, by an exception of the
// tree, what has been written is the beginning of the document, and nothing ends the process.
#include "FailingDevice.h"

#include <ZyCSVWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyXMLSpreadsheetWriter.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{
constexpr unsigned never = ~0u;

using Job = std::function<void(ZySharedPtr<ZyIODevice> const &)>;

/** What a job writes when nothing fails, or before it fails. \param told whether it has thrown */
std::string written(Job const & job, unsigned failing, bool lasting, bool & told)
{
    ZySharedPtr<FailingDevice> const device(new FailingDevice(failing, lasting));
    told = false;
    try {
        job(device);
    } catch (ZyIOException const & e) {
        told = true;
        EXPECT_EQ(e.message().toStdString(), "The device is full");
    }
    EXPECT_EQ(told, device->hasFailed()) << "write " << failing;
    return device->written();
}

void failEveryWrite(Job const & job)
{
    bool told = false;
    std::string const complete = written(job, never, false, told);
    ASSERT_FALSE(told);
    ASSERT_FALSE(complete.empty());
    for (bool lasting : {false, true}) {
        unsigned failing = 0;
        do {
            ++failing;
            std::string const part = written(job, failing, lasting, told);
            EXPECT_EQ(part, complete.substr(0, part.size())) << "write " << failing;
            EXPECT_EQ(told, part.size() < complete.size()) << "write " << failing;
        } while (told && !testing::Test::HasFailure());
        EXPECT_GT(failing, 1u);
    }
}

/** Enough rows that a writer with a buffer writes more than once. */
template <class Writer>
void writeRows(Writer & writer, int rows)
{
    for (int row = 0; row < rows; ++row) {
        writer.startRow();
        writer.addCell(ZyVariant("a text that fills the buffer <&>"), 1, row % 4 == 0 ? 2u : 1u);
        writer.addCell(ZyVariant(row), 2, 1);
        writer.addCell(ZyVariant(row * 0.5), 1, 1);
    }
}
} // namespace

TEST(WriteFailure, OfCommaSeparatedTextIsToldAtOnce)
{
    failEveryWrite([](ZySharedPtr<ZyIODevice> const & device) {
        ZyCSVWriter writer(*device);
        for (int i = 0; i < 20; ++i) {
            writer.addValue(ZyVariant(i));
            writer.addValue(ZyVariant("text"));
            writer.endLine();
        }
    });
}

TEST(WriteFailure, OfAValueCanBeTriedAgain)
{
    for (unsigned failing = 1; failing <= 6; ++failing) {
        FailingDevice device(failing, false);
        ZyCSVWriter writer(device);
        auto persist = [&](std::function<void()> const & step) {
            try {
                step();
            } catch (ZyIOException const &) {
                step();
            }
        };
        for (int line = 0; line < 2; ++line) {
            persist([&] { writer.addValue(ZyVariant(1)); });
            persist([&] { writer.addValue(ZyVariant(2)); });
            persist([&] { writer.endLine(); });
        }
        EXPECT_EQ(device.written(), "1,2\r\n1,2\r\n") << "write " << failing;
    }
}

TEST(WriteFailure, OfAnXMLStreamIsTold)
{
    failEveryWrite([](ZySharedPtr<ZyIODevice> const & device) {
        ZyXMLStreamWriter writer(device);
        writer.startDocument();
        auto const root = writer.createElement("root");
        for (int i = 0; i < 3000; ++i) {
            auto const child = root->createElement("child");
            child->writeAttribute("number", ZyString(i));
            child->writeText("text");
        }
        writer.finishDocument();
    });
}

TEST(WriteFailure, OfAWorksheetIsTold)
{
    failEveryWrite([](ZySharedPtr<ZyIODevice> const & device) {
        ZyOOXMLWriterSpreadsheet sheet{ZyWeakPtr<ZyIODevice>(device)};
        writeRows(sheet, 1000);
        sheet.close();
    });
}

TEST(WriteFailure, OfASingleFileSpreadsheetIsTold)
{
    failEveryWrite([](ZySharedPtr<ZyIODevice> const & device) {
        ZyXMLSpreadsheetWriter writer(*device);
        writeRows(writer, 500);
        writer.finish();
    });
}
