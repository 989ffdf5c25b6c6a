// SPDX-License-Identifier: BSD-3-Clause
// A scratch file that goes with its object.
#include <ZyTemporaryFile.h>

#include <ZyFileSystem.h>

#include <keelbase/Keelbase.h>

ZyTemporaryFile::ZyTemporaryFile() : ZyFileDevice(ZyString(sp_GetTempFile()))
{
    readsAsFileDevice(typeid(ZyTemporaryFile));
}

ZyTemporaryFile::~ZyTemporaryFile()
{
    close();
    ZyFileSystem::Remove(path());
}
