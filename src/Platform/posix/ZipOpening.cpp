// SPDX-License-Identifier: BSD-3-Clause
// The zip library opens by names in bytes, which are the system's own.
#include "Platform/ZipOpening.h"

#include "Platform/NativePath.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

void * ZipOpening::read(ZyFilePath const & path)
{
    return unzOpen(NativePath::narrow(path).c_str());
}

void * ZipOpening::create(ZyFilePath const & path)
{
    return zipOpen(NativePath::narrow(path).c_str(), APPEND_STATUS_CREATE);
}
