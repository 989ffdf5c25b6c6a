// SPDX-License-Identifier: BSD-3-Clause
// The workbook that a data table becomes.
#include <ZyDataTable.h>

#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZySharedPtr.h>
#include <ZyString.h>

#include <limits>

void ZyDataTable::writeOOXML(ZyFilePath const & path) const
{
    ZyOOXMLWriter writer(path, ZyOOXMLWriter::Spreadsheet);
    try {
        writeOOXML(writer, "sheet1");
    } catch (...) {
        // The destructor would close the writer too, but there a second failure ends the process.
        try {
            writer.close();
        } catch (...) {
            // The first failure is the one to report.
        }
        throw;
    }
    writer.close();
}

void ZyDataTable::writeOOXML(ZyOOXMLWriter & writer, ZyString const & sheetName) const
{
    ZySharedPtr<ZyOOXMLWriterSpreadsheet> const sheet = writer.addSheet(sheetName);
    unsigned int lastRow = std::numeric_limits<unsigned int>::max();
    forEachItemSpreadsheet([&](ZyVariant const & value, unsigned int row, unsigned int,
                               unsigned int columnSpan, unsigned int rowSpan, ItemType) {
        if (row != lastRow) {
            sheet->startRow();
            lastRow = row;
        }
        sheet->addCell(value, columnSpan, rowSpan);
    });
}
