// SPDX-License-Identifier: BSD-3-Clause
// Writing, listing and reading a zip archive, for the guide.

#include <ZyCore.h>

#include <iostream>

int main()
{
    {
        ZyZipArchive archive("results.zip", ZyZipArchive::Write, ZyZipArchive::Portable);
        // The archive keeps the entry; opening the next one ends it.
        archive.open("runs/7/gain.csv", ZyZipArchive::Best).lock()->write("11.5,12,12.6\n");
        archive.open("note.txt", ZyZipArchive::Store).lock()->write("made by hand\n");
    }

    ZyZipArchive archive("results.zip", ZyZipArchive::Read, ZyZipArchive::Portable);
    for (ZyFilePath const & path : archive.paths()) {
        ZySharedPtr<ZyZipFile> const entry = archive.open(path, ZyZipArchive::DefaultLevel).lock();
        std::cout << path.path().c_str() << ": " << entry->readRemaining().c_str();
    }
}
