// SPDX-License-Identifier: BSD-3-Clause
// Paths, files and devices in memory, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    // Stored with backslashes on every system, compared without regard to case.
    ZyFilePath const path("runs/7/Result.CSV");
    std::cout << path.path().c_str() << ' ' << path.filename().toString().c_str() << ' '
              << path.extension().toString().c_str() << ' ' << (path == ZyFilePath("RUNS\\7\\result.csv"))
              << '\n';

    // A folder that goes when the object goes.
    ZyTemporaryDir const folder;
    ZyFile file(folder.path("series.csv"));
    file.open(ZyIODevice::Write);
    file.write("1958-03,315.71\n1958-04,317.45\n");
    file.close();

    file.open(ZyIODevice::Read);
    while (!file.atEnd()) {
        std::cout << file.readLine(0).trim().c_str() << '\n';
    }
    file.close();
    std::cout << ZyFileSystem::FileSize(file.path()) << " bytes\n";

    // What takes a device takes memory too.
    ZyStringDevice memory;
    memory.open(ZyIODevice::ReadWrite);
    memory.write("in memory");
    std::cout << memory.readAll().c_str() << '\n';
}
