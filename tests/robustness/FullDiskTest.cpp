// SPDX-License-Identifier: BSD-3-Clause
// Files that must not grow beyond a limit stand for a full disk: the system refuses the write that would pass
// it. Each try runs in a process of its own, since the limit is one of the process.
#include <ZyCSVWriter.h>
#include <ZyException.h>
#include <ZyFileDevice.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyFileSystem.h>
#include <ZyFileWriter.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyString.h>
#include <ZyTemporaryDir.h>
#include <ZyVariant.h>
#include <ZyXMLSpreadsheetWriter.h>
#include <ZyZipArchive.h>
#include <ZyZipper.h>

#include <gtest/gtest.h>

#include <QIODevice>
#include <QTextStream>

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

    int fileCount() const
    {
        int count = 0;
        ZyFileSystem::ForEachFile(m_directory.path(), false, false, [&](ZyFilePath &&) { ++count; });
        return count;
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

namespace
{
void writeAtOnce(ZyFileWriter & writer)
{
    writer.write(std::string(100000, 'n'));
}

void writePieces(ZyFileWriter & writer)
{
    for (int i = 0; i < 1000; ++i) {
        writer.write(std::string(100, 'n'));
    }
}

void writeThroughDevice(ZyFileWriter & writer)
{
    writer.device()->write(std::string(100000, 'n').c_str(), 100000);
    writer.device()->seek(0); // takes back the failure that the device shows
}

void writeThroughStream(ZyFileWriter & writer)
{
    QTextStream stream(writer.device());
    for (int i = 0; i < 1000; ++i) {
        stream << QString(100, QLatin1Char('n'));
    }
}
} // namespace

// Sizes at the borders of the buffer, and the last byte: the failure comes at the first write, in the middle,
// when the last piece leaves the buffer.
TEST_F(FullDisk, LeavesTheOldFileToASafeSave)
{
    ZyFilePath const target = file("target.txt");
    for (auto write : {writeAtOnce, writePieces, writeThroughDevice, writeThroughStream}) {
        for (unsigned long bytes : {0ul, 1ul, 3ul, 16383ul, 16384ul, 16385ul, 50000ul, 98304ul, 99999ul}) {
            ZyFileDevice old(target);
            old.open(ZyIODevice::Write);
            old.write("old");
            old.close();
            expectTold(bytes, [&] {
                ZyFileWriter writer(target.path());
                writer.open();
                write(writer);
                try {
                    writer.close();
                } catch (ZyFileSaveException const & failure) {
                    bool const exact = failure.message() == ZyString("Cannot save [File too large]") &&
                                       failure.path1() == target;
                    std::_Exit(exact ? toldOfIt : wasSilent);
                }
            });
            old.open(ZyIODevice::Read);
            EXPECT_EQ(old.readAll().toStdString(), "old") << bytes;
            old.close();
            EXPECT_EQ(fileCount(), 1) << bytes;
        }
    }
}

TEST_F(FullDisk, LetsASafeSaveBeTriedAgain)
{
    ZyFilePath const target = file("target.txt");
    expectTold(RLIM_INFINITY, [&] {
        rlimit limit = {50000, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &limit);
        ZyFileWriter writer(target.path());
        writer.open();
        writeAtOnce(writer);
        try {
            writer.close();
        } catch (ZyFileSaveException const &) {
            limit.rlim_cur = RLIM_INFINITY;
            setrlimit(RLIMIT_FSIZE, &limit);
            writer.open();
            writeAtOnce(writer);
            writer.close();
            std::_Exit(toldOfIt);
        }
    });
    EXPECT_EQ(ZyFileSystem::FileSize(target), 100000u);
    EXPECT_EQ(fileCount(), 1);
}
