// SPDX-License-Identifier: BSD-3-Clause
// The file device that hosts create.
#pragma once

#include <ZyExport.h>
#include <ZyFileDevice.h>

/** A file on disk; all that it does is told at ZyFileDevice and ZyIODevice. */
class ZYCORE_EXPORT ZyFile : public ZyFileDevice
{
public:
    /** The null path, which cannot be opened. */
    ZyFile();
    explicit ZyFile(ZyFilePath const & path);
    ~ZyFile() override;

    /** As ZyFileSystem::Exists. */
    static bool Exists(ZyFilePath const & path);
};
