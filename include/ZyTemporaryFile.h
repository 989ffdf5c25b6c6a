// SPDX-License-Identifier: BSD-3-Clause
// A scratch file that goes with its object.
#pragma once

#include <ZyExport.h>
#include <ZyFileDevice.h>

/**
 * A device on a file of its own in the temporary directory. The file comes with the first open() that writes
 * and is removed with the object.
 *
 * The destructor closes the device and removes the file; when that fails the process ends. Remove the file by
 * ZyFileSystem::Remove(path()) beforehand where that may happen: a file that is gone is no failure.
 */
class ZYCORE_EXPORT ZyTemporaryFile : public ZyFileDevice
{
public:
    /** Chooses a path that nothing has; creates and opens nothing. */
    ZyTemporaryFile();
    ~ZyTemporaryFile() override;
};
