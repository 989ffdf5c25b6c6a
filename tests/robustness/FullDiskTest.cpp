// SPDX-License-Identifier: BSD-3-Clause
// Files that must not grow beyond a limit stand for a full disk: the system refuses the write that would pass
// it. Each try runs in a process of its own, since the limit is one of the process.
#include <ZyCSVWriter.h>
#include <ZyException.h>
#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyString.h>
#include <ZyTemporaryDir.h>
#include <ZyVariant.h>
#include <ZyXMLSpreadsheetWriter.h>
#include <ZyZipArchive.h>
#include <ZyZipper.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <string>

#include <sys/resource.h>

namespace
{
constexpr int toldOfIt = 3;
constexpr int wasSilent = 4;

/** In a child: how a job ends when no file may pass \a bytes. */
[[noreturn]] void runOnFullDisk(unsigned long bytes, std::function<void()> const & job)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit const limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
        job();
    } catch (ZyException const &) {
        std::_Exit(toldOfIt);
    }
    std::_Exit(wasSilent);
}

/** A text that does not compress to nothing. */
ZyString noise(unsigned index)
{
    std::string text;
    for (unsigned i = 0; i < 40; ++i) {
        index = index * 1664525u + 1013904223u;
        text += char('!' + index / 65536 % 90);
    }
    return text;
}

template <class Sheet>
void writeRows(Sheet & sheet)
{
    for (unsigned row = 0; row < 4000; ++row) {
        sheet.startRow();
        sheet.addCell(ZyVariant(noise(row)), 1, 1);
        sheet.addCell(ZyVariant(row * 0.125), 1, 1);
    }
}

class FullDisk : public testing::Test
{
protected:
    ZyFilePath file(char const * name) const { return m_directory.path(name); }

    void expectTold(unsigned long bytes, std::function<void()> const & job)
    {
        EXPECT_EXIT(runOnFullDisk(bytes, job), testing::ExitedWithCode(toldOfIt), "") << bytes;
    }

private:
    ZyTemporaryDir m_directory;
};
} // namespace

TEST_F(FullDisk, StopsCommaSeparatedText)
{
    for (unsigned long bytes : {0ul, 1ul, 5000ul, 100000ul}) {
        expectTold(bytes, [this] {
            ZyFileDevice device(file("full.csv"));
            ZyCSVWriter writer(device);
            for (unsigned row = 0; row < 4000; ++row) {
                writer.addValue(ZyVariant(noise(row)));
                writer.endLine();
            }
        });
    }
}

TEST_F(FullDisk, StopsASingleFileSpreadsheet)
{
    for (unsigned long bytes : {0ul, 5000ul, 100000ul}) {
        expectTold(bytes, [this] {
            ZyFileDevice device(file("full.xml"));
            ZyXMLSpreadsheetWriter writer(device);
            writeRows(writer);
            writer.finish();
        });
    }
}

TEST_F(FullDisk, StopsAWorkbook)
{
    for (unsigned long bytes : {0ul, 5000ul, 70000ul, 100000ul}) {
        expectTold(bytes, [this] {
            ZyOOXMLWriter workbook(file("full.xlsx"), ZyOOXMLWriter::Spreadsheet);
            writeRows(*workbook.addSheet("sheet"));
            workbook.close();
        });
    }
}

TEST_F(FullDisk, StopsAnArchive)
{
    ZyFileDevice source(file("source.txt"));
    source.open(ZyIODevice::Write);
    for (unsigned i = 0; i < 10000; ++i) {
        source.write(noise(i));
    }
    source.close();
    for (unsigned long bytes : {0ul, 5000ul, 100000ul}) {
        expectTold(bytes, [this] { ZyZipper::Zip(file("full.zip"), file("source.txt")); });
    }
}

TEST_F(FullDisk, StopsUnpacking)
{
    ZyFileDevice source(file("source.txt"));
    source.open(ZyIODevice::Write);
    for (unsigned i = 0; i < 10000; ++i) {
        source.write(noise(i));
    }
    source.close();
    ZyZipper::Zip(file("whole.zip"), file("source.txt"));
    for (unsigned long bytes : {0ul, 5000ul, 100000ul}) {
        expectTold(bytes, [this] { ZyZipper::Unzip(file("whole.zip"), file("out/")); });
    }
}
