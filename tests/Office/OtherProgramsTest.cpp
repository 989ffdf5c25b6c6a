// SPDX-License-Identifier: BSD-3-Clause
// What other spreadsheet programs read from our files: values, kinds and merges.
#include "Program.h"
#include "ScratchDirectory.h"

#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyVariant.h>
#include <ZyXMLSpreadsheetWriter.h>

#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>

#include <string>

namespace
{
class OtherPrograms : public testing::Test
{
protected:
    QString file(char const * name) const { return QString::fromStdString(m_directory / name); }
    ZyFilePath path(char const * name) const { return ZyFilePath(file(name).toUtf8().constData()); }

    void writeWorkbook() const
    {
        ZyOOXMLWriter workbook(path("book.xlsx"), ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
        auto const sheet = workbook.addSheet("Values");
        sheet->startRow();
        sheet->addCell("head <&>\"'", 3, 1);
        sheet->addCell("tall", 1, 2);
        sheet->startRow();
        sheet->addCell(42, 1, 1);
        sheet->addCell(-2.5, 1, 1);
        sheet->addCell(1e-5, 1, 1);
        sheet->startRow();
        sheet->addCell(true, 1, 1);
        sheet->addCell(ZyVariant(), 1, 1);
        sheet->addCell("7", 1, 1);
        sheet->addCell("\xc3\xa4\xe2\x82\xac", 2, 2);
        sheet->startRow();
        sheet->addCell(1, 1, 1);
        sheet->addCell("", 1, 1);
        workbook.addSheet("Second")->startRow();
    }

    /** LibreOffice's view of a file; false when the machine has none. */
    bool readWithLibreOffice(char const * name, std::string & listing)
    {
        QString const office = Program::find(QStringLiteral("soffice"));
        if (office.isEmpty() || Program::python().isEmpty()) {
            return false;
        }
        QString const profile = QUrl::fromLocalFile(file("profile")).toString();
        Program::run(office,
                     {QStringLiteral("-env:UserInstallation=") + profile, QStringLiteral("--headless"),
                      QStringLiteral("--convert-to"), QStringLiteral("fods"), QStringLiteral("--outdir"),
                      file("converted"), file(name)});
        QString const converted = file("converted/") +
                                  QString::fromUtf8(name).section(QLatin1Char('.'), 0, 0) +
                                  QStringLiteral(".fods");
        EXPECT_TRUE(QFile::exists(converted)); // the exit status says nothing
        listing = Program::script("Office/list_fods.py", {converted});
        return true;
    }

private:
    ScratchDirectory m_directory;
};
} // namespace

TEST_F(OtherPrograms, OpenpyxlReadsAPortableWorkbook)
{
    if (Program::python().isEmpty()) {
        GTEST_SKIP() << "there is no Python";
    }
    writeWorkbook();
    std::string const listing = Program::script("Office/list_workbook.py", {file("book.xlsx")});
    if (listing == "absent\n") {
        GTEST_SKIP() << "there is no openpyxl";
    }
    EXPECT_EQ(listing, "sheet Values\n"
                       "A1 s 'head <&>\"\\''\n"
                       "D1 s 'tall'\n"
                       "A2 n 42\n"
                       "B2 n -2.5\n"
                       "C2 n 1e-05\n"
                       "A3 b True\n"
                       "C3 s '7'\n"
                       "D3 s '\xc3\xa4\xe2\x82\xac'\n"
                       "A4 n 1\n"
                       "B4 s ''\n"
                       "merge A1:C1\n"
                       "merge D1:D2\n"
                       "merge D3:E4\n"
                       "sheet Second\n");
}

TEST_F(OtherPrograms, LibreOfficeReadsAPortableWorkbook)
{
    writeWorkbook();
    std::string listing;
    if (!readWithLibreOffice("book.xlsx", listing)) {
        GTEST_SKIP() << "there is no LibreOffice";
    }
    EXPECT_EQ(listing, "sheet Values\n"
                       "A1 string 'head <&>\"\\''\n"
                       "D1 string 'tall'\n"
                       "A2 float 42.0\n"
                       "B2 float -2.5\n"
                       "C2 float 1e-05\n"
                       "A3 boolean true\n"
                       "C3 string '7'\n"
                       "D3 string '\xc3\xa4\xe2\x82\xac'\n"
                       "A4 float 1.0\n"
                       "merge A1:C1\n"
                       "merge D1:D2\n"
                       "merge D3:E4\n"
                       "sheet Second\n");
}

TEST_F(OtherPrograms, LibreOfficeReadsASingleFileSpreadsheet)
{
    {
        ZyFileDevice device(path("book.xml"));
        ZyXMLSpreadsheetWriter sheet(device);
        sheet.startRow();
        sheet.addCell("head <&>\"'", 3, 1);
        sheet.addCell("tall", 1, 2);
        sheet.startRow();
        sheet.addCell(42, 1, 1);
        sheet.addCell(-2.5, 1, 1);
        sheet.addCell(1e-5, 1, 1);
        sheet.startRow();
        sheet.addCell(true, 1, 1);
        sheet.addCell("7", 1, 1);
        sheet.addCell("\xc3\xa4\xe2\x82\xac", 2, 2);
        sheet.finish();
    }
    std::string listing;
    if (!readWithLibreOffice("book.xml", listing)) {
        GTEST_SKIP() << "there is no LibreOffice";
    }
    EXPECT_EQ(listing, "sheet Sheet1\n"
                       "A1 string 'head <&>\"\\''\n"
                       "D1 string 'tall'\n"
                       "A2 float 42.0\n"
                       "B2 float -2.5\n"
                       "C2 float 1e-05\n"
                       "A3 string 'true'\n"
                       "B3 string '7'\n"
                       "C3 string '\xc3\xa4\xe2\x82\xac'\n"
                       "merge A1:C1\n"
                       "merge C3:D4\n"
                       "merge D1:D2\n");
}
