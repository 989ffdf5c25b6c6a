// SPDX-License-Identifier: BSD-3-Clause
// Devices, tables and writers when memory ends.
#include "AllocationFault.h"

#include <ZyCSVFile.h>
#include <ZyCSVWriter.h>
#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyTemporaryDir.h>
#include <ZyVariant.h>
#include <ZyVariantTable.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>
#include <ZyZipper.h>

#include <string>
#include <utility>

namespace
{
constexpr char csv[] = "1,2.5,a text that is longer than what a string keeps in itself\n"
                       "-7,\"a, quoted\",another text that is longer than what a string keeps in itself\n"
                       "short,2\n";

void writeFile(ZyFilePath const & path, char const * text)
{
    ZyFileDevice device(path);
    device.open(ZyIODevice::Write);
    device.write(text);
    device.close();
}

ZyDataTable dataTable()
{
    ZyDataTable table;
    for (int row = 9; row >= 0; --row) {
        ZyDeque<ZyDataTableItem> items;
        items.add(ZyDataTableItem(ZyVariant(row)));
        items.add(ZyDataTableItem(ZyVariant("a text that is longer than what a string keeps in itself")));
        ZyDeque<ZyVariant> stacked;
        stacked.add(ZyVariant(row * 0.5));
        stacked.add(ZyVariant("two"));
        items.add(ZyDataTableItem(std::move(stacked), 2));
        table.addRow(items, ZyDataTable::Data);
    }
    return table;
}
} // namespace

TEST(AllocationFailure, LosesNothingWhenATableIsLoaded)
{
    EXPECT_GT(failEveryAllocation(
                  [] {
                      ZyStringDevice device(csv);
                      ZyVariantTable const table = ZyVariantTable::LoadCSV(device, true);
                      EXPECT_EQ(table.numberRows(), 3u);
                  },
                  [](bool) {}),
              10u);
    ZyTemporaryDir const directory;
    ZyFilePath const path = directory.path("table.csv");
    writeFile(path, csv);
    EXPECT_GT(failEveryAllocation(
                  [&] {
                      ZyFileDevice device(path);
                      ZyVariantTable const table = ZyVariantTable::LoadCSV(device, false);
                      EXPECT_EQ(table.numberColumns(), 3u);
                  },
                  [](bool) {}),
              10u);
    EXPECT_GT(failEveryAllocation([&] { ZyVariantTable const table(path.path(), true); }, [](bool) {}), 10u);
}

TEST(AllocationFailure, LeavesATableAsItWas)
{
    ZyVariantTable const other(3, 3, ZyVariant("a text that is longer than what a string keeps in itself"));
    ZyVariantTable table(2, 2, ZyVariant(1));
    EXPECT_GT(failEveryAllocation([&] { table = other; },
                                  [&](bool returned) {
                                      EXPECT_EQ(table.numberRows(), returned ? 3u : 2u);
                                      EXPECT_EQ(table.numberColumns(), returned ? 3u : 2u);
                                      table = ZyVariantTable(2, 2, ZyVariant(1));
                                  }),
              0u);
    EXPECT_GT(failEveryAllocation([&] { other.toString(); }, [](bool) {}), 0u);
    EXPECT_GT(failEveryAllocation([&] { other.toStringTable(ZyVariantTable::UseDefault); }, [](bool) {}), 0u);
    EXPECT_GT(failEveryAllocation([&] { other.row(1); }, [](bool) {}), 0u);
}

TEST(AllocationFailure, LeavesTheRowsOfARichTableAsTheyWere)
{
    ZyDataTable const original = dataTable();
    ZyDataTable table(original);
    EXPECT_GT(failEveryAllocation([&] { table.sort(0); },
                                  [&](bool returned) {
                                      EXPECT_EQ(table.value(0, 0).asInteger(), returned ? 0 : 9);
                                      EXPECT_EQ(table.numberRows(), 10u);
                                      table = ZyDataTable(original);
                                  }),
              0u);
    ZyDeque<ZyDataTableItem> items;
    items.add(ZyDataTableItem(ZyVariant("another"), 7));
    EXPECT_GT(failEveryAllocation([&] { table.addRow(items, ZyDataTable::Data); },
                                  [&](bool returned) {
                                      EXPECT_EQ(table.numberRows(), returned ? 11u : 10u);
                                      EXPECT_LE(original.numberColumns(), table.numberColumns());
                                      table = ZyDataTable(original);
                                  }),
              0u);
    EXPECT_GT(failEveryAllocation([&] { dataTable(); }, [](bool) {}), 0u);
}

TEST(AllocationFailure, LosesNothingWhenTextIsWritten)
{
    EXPECT_GT(failEveryAllocation(
                  [] {
                      ZyStringDevice device;
                      ZyCSVWriter writer(device);
                      writer.addValue(ZyVariant("a text that is longer than what a string keeps in itself"));
                      writer.addValue(ZyVariant(2.5));
                      writer.endLine();
                  },
                  [](bool) {}),
              0u);
}

TEST(AllocationFailure, LosesNothingWhenALineIsSplit)
{
    ZyString const line(csv);
    EXPECT_GT(failEveryAllocation([&] { ZyCSVFile::ExtractLine(line); }, [](bool) {}), 0u);
}

TEST(AllocationFailure, LosesNothingWhenADeviceIsReadAndWritten)
{
    ZyTemporaryDir const directory;
    ZyFilePath const path = directory.path("text.txt");
    EXPECT_GT(failEveryAllocation([&] { writeFile(path, csv); }, [](bool) {}), 0u);
    EXPECT_GT(failEveryAllocation(
                  [&] {
                      ZyFileDevice device(path);
                      device.open(ZyIODevice::Read);
                      while (!device.atEnd()) {
                          device.readLine(0);
                      }
                      device.restart();
                      device.readAll();
                  },
                  [](bool) {}),
              0u);
    ZyStringDevice device("text");
    device.open(ZyIODevice::Append);
    EXPECT_GT(failEveryAllocation([&] { device.write(csv); },
                                  [&](bool returned) {
                                      std::string const wanted = std::string("text") + (returned ? csv : "");
                                      EXPECT_EQ(device.content().toStdString(), wanted);
                                  }),
              0u);
}

TEST(AllocationFailure, LosesNothingWhenAnArchiveIsRead)
{
    ZyTemporaryDir const directory;
    writeFile(directory.path("text.txt"), csv);
    ZyFilePath const archive = directory.path("text.zip");
    ZyZipper::Zip(archive, directory.path("text.txt"));
    EXPECT_GT(failEveryAllocation(
                  [&] {
                      ZyZipArchive zip(archive, ZyZipArchive::Read);
                      EXPECT_EQ(zip.paths().size(), 1u);
                      zip.open(ZyFilePath("text.txt"), ZyZipArchive::DefaultLevel).lock()->readAll();
                  },
                  [](bool) {}),
              0u);
    EXPECT_GT(failEveryAllocation([&] { ZyZipper::Unzip(archive, directory.path("out/")); }, [](bool) {}),
              0u);
    EXPECT_GT(failEveryAllocation([&] { ZyZipper::Zip(archive, directory.path("text.txt")); }, [](bool) {}),
              0u);
}
