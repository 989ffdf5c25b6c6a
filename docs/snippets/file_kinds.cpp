// SPDX-License-Identifier: BSD-3-Clause
// Quoted in docs/guide-desktop.md.
#include <ZyCore.h>

#include <iostream>

int main()
{
    for (char const * const path :
         {"C:/work/amp.zysch", "gain.CSV", "models/bc547.cir", "notes.txt", "runs/"}) {
        ZyFileType const type = ZyFilePath(path);
        std::cout << path << ": " << type.name().c_str();
        if (!type.icon().name().isEmpty()) {
            std::cout << ", icon " << type.icon().name().c_str();
        }
        std::cout << '\n';
    }

    // The filters of a dialog that opens graphs, or anything.
    std::cout << ZyFileType(ZyFileType::Graph).filter().c_str() << ";;"
              << ZyFileType(ZyFileType::Undefined).filter().c_str() << '\n';
    std::cout << ZyFileType(ZyFileType::FromName("netlist")).extensions().size()
              << " extensions of netlists\n";
}
