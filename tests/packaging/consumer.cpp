// SPDX-License-Identifier: BSD-3-Clause
// What a first program of someone else would do: text, a container, a table that becomes a workbook, a type
// of its own in XML, an icon, and an exception across the library's border.
#include "binding.h"

#include <ZyCore.h>
#include <keelbase/Keelbase.h>

#include <QIcon>

#include <iostream>

int main()
try {
    ZyVector<ZyString> words = {"resistor", "capacitor"};
    words.add(ZyString(YString("inductor")));
    ZyDataTable table;
    table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("Part"), ZyVariant("Length")}, ZyDataTable::Header);
    for (ZyString const & word : words) {
        table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant(word), ZyVariant(word.size())}, ZyDataTable::Data);
    }
    table.writeOOXML(ZyFilePath("words.xlsx"));
    if (!bindsItsOwnType()) {
        std::cerr << "The own type did not come back\n";
        return 3;
    }
    QIcon const & icon = ZyIconManager::Get("none.png");
    if (!icon.isNull()) {
        std::cerr << "There is an icon without a desktop\n";
        return 4;
    }
    std::cout << ZyFileSystem::FileSize(ZyFilePath("words.xlsx")) << " bytes\n"
              << words.find("diode").c_str();
    return 1;
} catch (ZyNotFoundException const & e) {
    std::cout << e.name() << ": " << e.what() << '\n';
    return 0;
} catch (ZyException const & e) {
    std::cerr << e.name() << ": " << e.what() << '\n';
    return 2;
}
