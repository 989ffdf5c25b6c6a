// SPDX-License-Identifier: BSD-3-Clause
// The first program of the README: a table of two rows becomes a workbook.

#include <ZyCore.h>

int main()
{
    ZyDataTable table;
    table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("Month"), ZyVariant("CO2, ppm")}, ZyDataTable::Header);
    table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("1958-03"), ZyVariant(315.71)}, ZyDataTable::Data);

    ZyOOXMLWriter workbook("first.xlsx", ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
    table.writeOOXML(workbook, "CO2");
}
