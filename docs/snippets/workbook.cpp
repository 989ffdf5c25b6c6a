// SPDX-License-Identifier: BSD-3-Clause
// A workbook with a merged heading, a tall cell and stacked values, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    using Row = ZyDeque<ZyDataTableItem>;
    ZyDataTable table;
    table.addRow(Row{ZyDataTableItem(ZyVariant("Run"), 1), ZyDataTableItem(ZyVariant("Gain, dB"), 2)},
                 ZyDataTable::Header);
    // One value beside three: the first cell becomes three rows tall.
    table.addRow(
        Row{ZyDataTableItem(ZyVariant(7)),
            ZyDataTableItem(ZyDeque<ZyVariant>{ZyVariant("min"), ZyVariant("mean"), ZyVariant("max")}),
            ZyDataTableItem(ZyDeque<ZyVariant>{ZyVariant(11.5), ZyVariant(12.0), ZyVariant(12.6)})},
        ZyDataTable::Data);

    table.forEachItemSpreadsheet([](ZyVariant const & value, unsigned int row, unsigned int column,
                                    unsigned int columnSpan, unsigned int rowSpan, ZyDataTable::ItemType) {
        std::cout << row << ' ' << column << " (" << columnSpan << " by " << rowSpan << ") "
                  << value.toString().c_str() << '\n';
    });

    try {
        ZyOOXMLWriter workbook("gain.xlsx", ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
        table.writeOOXML(workbook, "Gain");
        workbook.close();
    } catch (ZyException const & problem) {
        std::cerr << problem.what() << '\n';
        return 1;
    }
}
