// SPDX-License-Identifier: BSD-3-Clause
// A scratch directory that goes with its object.
#pragma once

#include <ZyExport.h>
#include <ZyFilePath.h>

/**
 * A directory in the temporary directory, open to this user alone, which is removed with the object and all
 * that is in it.
 *
 * \code
 * ZyTemporaryDir const scratch;
 * ZyFile file(scratch.path("table.csv"));
 * \endcode
 *
 * \deliberate{copies-share-the-directory} A copy names the same directory, and the first of two copies that goes
 * removes it: keep none in a growing container. Assigning leaves the former directory behind.
 *
 * When the destructor cannot remove the tree the process ends. Call ZyFileSystem::RemoveAll(path())
 * beforehand where that may happen: it throws instead, and a directory that is gone is no failure.
 */
class ZYCORE_EXPORT ZyTemporaryDir
{
public:
    /** Creates it. \throws ZyFileException "Unable to create temporary directory": 1000 attempts failed */
    ZyTemporaryDir();
    ZyTemporaryDir(ZyTemporaryDir const & other);
    ZyTemporaryDir & operator=(ZyTemporaryDir const & other);
    virtual ~ZyTemporaryDir();

    /** The directory, with a final separator. */
    ZyFilePath const & path() const;
    /** The path of a name inside the directory. */
    ZyFilePath path(ZyString const & name) const;

private:
    ZyFilePath m_path;
};
