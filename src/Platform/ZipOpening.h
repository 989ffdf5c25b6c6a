// SPDX-License-Identifier: BSD-3-Clause
// Opening archives by the zip library under any name that a file may have.
#pragma once

#include <ZyFilePath.h>

/** Both give a handle of the zip library, null when it cannot open the file. \throws ZyInvalidPathException a NUL */
namespace ZipOpening
{
/** A handle for its unz functions. */
void * read(ZyFilePath const & path);
/** A handle for its zip functions; what the file held is gone. */
void * create(ZyFilePath const & path);
} // namespace ZipOpening
