// SPDX-License-Identifier: BSD-3-Clause
// A safe save and the parts of a URL, for the guide.

#include <ZyCore.h>

#include <iostream>

namespace
{
void print(ZyFilePath const & path)
{
    ZyFile file(path);
    file.open(ZyIODevice::Read);
    std::cout << file.readAll().c_str() << '\n';
    file.close();
}
} // namespace

int main()
{
    ZyTemporaryDir const folder;
    ZyFilePath const path = folder.path("limits.csv");
    {
        ZyFileWriter writer(path.path());
        writer.open();
        writer.write("A,1");
        writer.close(); // now the file is there
    }
    print(path);
    {
        ZyFileWriter writer(path.path());
        writer.open();
        writer.write("B,");
        // Not closed, as when an exception passes: the file stays as it was.
    }
    print(path);

    ZyUrl const url("https://example.org/data/new%20limits.csv#part-2");
    std::cout << url.host().c_str() << ' ' << url.filename().c_str() << ' ' << url.fragment().c_str() << '\n';
}
