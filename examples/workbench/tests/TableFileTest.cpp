// SPDX-License-Identifier: BSD-3-Clause
// Files as tables, and tables as files.

#include "TableFile.h"

#include "Restricted.h"
#include "ScratchDirectory.h"
#include "TableError.h"
#include "ThrowsMessage.h"

#include <XMLReport.h>
#include <ZyPrint.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace
{

QString name(std::string const & file)
{
    return QString::fromStdString(file);
}

class TableFile : public ::testing::Test
{
protected:
    /** A file of two runs, of which the second has moved a parameter. */
    std::string writeResults() const
    {
        XMLReportHeader header;
        header.meritFunctions.add({"gain", "g"});
        YHashTable<XMLReportInfo> runs;
        for (int number = 2; number >= 1; --number) {
            XMLReportInfo run;
            run.caseNumber = number;
            run.hasDescription = true;
            run.description = YString(number);
            run.sensValues[0].value = 1.5 * number;
            if (number == 2) {
                run.parameters[0].name = "R1";
                run.parameters[0].usedValue = 990;
            }
            runs.add(number, run);
        }
        std::string file = scratch / "runs.msw";
        EXPECT_TRUE(sp_WriteMswFile(YString(file.c_str()), runs, header));
        return file;
    }

    ScratchDirectory scratch;
};

} // namespace

TEST_F(TableFile, FormIsToldByTheName)
{
    EXPECT_EQ(formOf(QStringLiteral("a.CSV")), FileForm::Csv);
    EXPECT_EQ(formOf(QStringLiteral("a.zyt.xml")), FileForm::DataTable);
    EXPECT_EQ(formOf(QStringLiteral("a.msw")), FileForm::Result);
    EXPECT_EQ(formOf(QStringLiteral("a.xml")), FileForm::Other);
    EXPECT_EQ(formOf(QString()), FileForm::Other);
}

TEST_F(TableFile, CsvComesBack)
{
    std::string const text = "Name,Value\n\"a, b\",1.25\n,3\n";
    ZyDataTable const table = openTable(name(scratch.write("in.csv", text)));
    EXPECT_EQ(table.numberRows(), 3U);
    EXPECT_EQ(table.value(1, 1).asDouble(), 1.25);
    saveTable(name(scratch / "out.csv"), rowsOf(table));
    EXPECT_EQ(openTable(name(scratch / "out.csv")), table);
}

TEST_F(TableFile, RichTableComesBackWithWideAndTallCells)
{
    ZyDataTable table;
    table.addRow(ZyDeque<ZyDataTableItem>{ZyDataTableItem(ZyVariant("wide"), 2)}, ZyDataTable::Header);
    table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant(0.1), ZyDeque<ZyVariant>{1, 2, 3}}, ZyDataTable::Data);
    std::string const file = scratch / "rich.zyt.xml";
    saveTable(name(file), rowsOf(table));
    EXPECT_EQ(openTable(name(file)), table);
}

TEST_F(TableFile, ResultsBecomeRowsByCase)
{
    ZyDataTable const table = openTable(name(writeResults()));
    ASSERT_EQ(table.numberRows(), 3U);
    EXPECT_TRUE(table.isHeader(0));
    EXPECT_EQ(table.value(0, 2).toString(), ZyString("gain"));
    EXPECT_EQ(table.value(0, 3).toString(), ZyString("R1"));
    EXPECT_EQ(table.value(1, 0), ZyVariant(1));
    EXPECT_EQ(table.value(1, 2), ZyVariant(1.5));
    EXPECT_EQ(table.value(1, 3), ZyVariant(ZyString()));
    EXPECT_EQ(table.value(2, 2), ZyVariant(3.0));
    EXPECT_EQ(table.value(2, 3), ZyVariant(990.0));
}

TEST_F(TableFile, ResultsCannotBeSavedAsSuch)
{
    std::string const file = scratch / "x.msw";
    EXPECT_ZY_THROW(saveTable(name(file), {blankRow(1)}), TableError,
                    file + ": can be saved as .csv or .zyt.xml only");
    EXPECT_FALSE(scratch.has("x.msw"));
}

TEST_F(TableFile, DamagedFilesAreToldWithTheirNames)
{
    std::string const csv = scratch.write("bad.csv", "a,b\n\"c,d\n");
    EXPECT_ZY_THROW(openTable(name(csv)), TableError, csv + ":2: a quoted field does not end on its line");
    std::string const xml = scratch.write("bad.zyt.xml", "<DataTable><Rows><Cell/></Rows></DataTable>");
    EXPECT_ZY_THROW(openTable(name(xml)), TableError,
                    xml + ":1: an element \"Cell\" where \"Row\" is expected");
    std::string const msw = scratch.write("bad.msw", "<msw");
    EXPECT_ZY_THROW(openTable(name(msw)), TableError, msw + ": is no result file that can be read");
    std::string const other = scratch.write("a.bin", "");
    EXPECT_ZY_THROW(openTable(name(other)), TableError,
                    other + ": is no table; open a .csv, .zyt.xml or .msw file");
    std::string const absent = scratch / "absent.msw";
    EXPECT_ZY_THROW(openTable(name(absent)), TableError, absent + ": there is no such file");
}

TEST_F(TableFile, TextIsATableOfLines)
{
    std::string const file = scratch.write("a.net", "R1 in out 1k\r\nC1 out 0 1n\n.end");
    ZyDataTable const table = openText(name(file));
    ASSERT_EQ(table.numberRows(), 3U);
    EXPECT_EQ(table.value(0, 0).asString(), ZyString("R1 in out 1k"));
    EXPECT_EQ(table.value(2, 0).asString(), ZyString(".end"));
}

TEST_F(TableFile, DirectoryInTheWayIsLeftAlone)
{
    std::string const target = scratch / "folder.csv";
    std::filesystem::create_directory(target);
    EXPECT_ZY_THROW(saveTable(name(target), {blankRow(2)}), TableError,
                    target + ": Unable to open file for writing");
    EXPECT_TRUE(std::filesystem::is_directory(target));
}

TEST_F(TableFile, ReadOnlyDirectoryKeepsTheOldFile)
{
    std::string const file = scratch.write("kept.csv", "old\n");
    std::filesystem::permissions(scratch.path(), std::filesystem::perms(0555));
    auto const save = [&file] {
        Restricted::dropRights(); // root may write everywhere
        try {
            saveTable(name(file), {blankRow(2)});
        } catch (TableError const & failure) {
            std::_Exit(failure.message().toStdString() == file + ": Unable to open file for writing" ? 0 : 1);
        }
        std::_Exit(2);
    };
    EXPECT_EXIT(save(), testing::ExitedWithCode(0), "");
    std::filesystem::permissions(scratch.path(), std::filesystem::perms(0755));
    EXPECT_EQ(scratch.read("kept.csv"), "old\n");
}

TEST_F(TableFile, TextThatWouldNotComeBackIsNotSaved)
{
    std::string const file = scratch.write("a.zyt.xml", "old");
    EXPECT_ZY_THROW(saveTable(name(file), {withValue(*blankRow(1), 0, ZyVariant(" blank "))}), TableError,
                    file + ": row 1, cell 1: a text with blanks at its ends would not come back as it is");
    EXPECT_EQ(scratch.read("a.zyt.xml"), "old");
}
