// SPDX-License-Identifier: BSD-3-Clause
// The file device that hosts create.
#include <ZyFile.h>

#include <ZyFileSystem.h>

ZyFile::ZyFile()
{
    readsAsFileDevice(typeid(ZyFile));
}

ZyFile::ZyFile(ZyFilePath const & path) : ZyFileDevice(path)
{
    readsAsFileDevice(typeid(ZyFile));
}

ZyFile::~ZyFile() = default;

bool ZyFile::Exists(ZyFilePath const & path)
{
    return ZyFileSystem::Exists(path);
}
