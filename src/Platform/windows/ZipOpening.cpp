// SPDX-License-Identifier: BSD-3-Clause
// The zip library opens by names in the system's code page, which lacks most letters; with its functions for
// wide names it takes all.
#include "Platform/ZipOpening.h"

#include "Platform/NativePath.h"

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <minizip/iowin32.h>

namespace
{
zlib_filefunc64_def wideFunctions()
{
    zlib_filefunc64_def functions = {};
    fill_win32_filefunc64W(&functions);
    return functions;
}
} // namespace

void * ZipOpening::read(ZyFilePath const & path)
{
    zlib_filefunc64_def functions = wideFunctions();
    return unzOpen2_64(NativePath::standard(path).c_str(), &functions);
}

void * ZipOpening::create(ZyFilePath const & path)
{
    zlib_filefunc64_def functions = wideFunctions();
    return zipOpen2_64(NativePath::standard(path).c_str(), APPEND_STATUS_CREATE, nullptr, &functions);
}
