// SPDX-License-Identifier: BSD-3-Clause
// CSV in, a sorted table, CSV out, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    ZyStringDevice input;
    input.open(ZyIODevice::ReadWrite);
    input.write("R3,\"resistor, 1 %\",4700\nC1,capacitor,1e-09\nR1,resistor\n");
    input.close();

    // Typed: numbers become numbers. A cell that a short row lacks is a Boolean.
    ZyVariantTable const parts = ZyVariantTable::LoadCSV(input, true);
    std::cout << parts.numberRows() << " by " << parts.numberColumns() << ", last cell "
              << ZyVariant::TypeString(parts.at(2, 2).type()) << '\n';

    ZyDataTable table(parts);
    table.sort(0);

    ZyStringDevice output;
    ZyCSVWriter writer(output);
    table.forEach([&](ZyDataTableItem const & item, unsigned int, unsigned int column) {
        if (column == 0) {
            writer.startLine();
        }
        writer.addValue(item.value());
    });
    writer.endLine();
    output.close();
    output.open(ZyIODevice::Read);
    while (!output.atEnd()) {
        std::cout << output.readLine(0).trim().c_str() << '\n';
    }
}
