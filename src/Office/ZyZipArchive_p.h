// SPDX-License-Identifier: BSD-3-Clause
// The state of an open archive, shared by the archive and its entry.
#pragma once

#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include <minizip/unzip.h>
#include <minizip/zip.h>

#include <cstddef>
#include <string>
#include <unordered_map>

/** Where each name stands in the directory, so that opening by name need not walk the records before it. */
struct ZyZipIndex
{
    /** Names of this many bytes and more are refused by the zip library's own lookup, and here alike. */
    static constexpr std::size_t LookupLimit = 256;

    bool complete = false; ///< a walk over all records has ended well
    std::unordered_map<std::string, unz64_file_pos> positions;

    /** What a name is stored and found by: itself, or in the portable form its spelling with forward slashes.
     */
    static std::string Key(std::string name, ZyZipArchive::EntryNames names);
    /** Notes where the current entry stands; of equal names the first stays. */
    void add(void * unzip, std::string const & key);
    /** Makes the entry of that name current, with the results of the zip library's own lookup. */
    int locate(void * unzip, std::string const & key) const;
};

class ZyZipArchive::Private : public ZyPrivateObject
{
public:
    ZyFilePath path;
    Mode mode = Read;
    ZyZipArchive_Internal internal;
    ZySharedPtr<ZyZipFile> activeFile;
    bool closed = true;

    EntryNames names = Native;
    ZyZipIndex index;
    unsigned long long entryRoom = 0; ///< bytes that may still be written to the active entry

    // The zip library itself ends the open entry at its next call: here the device is only cut off.
    void endActive();
    ZyDeque<ZyFilePath> walk();
    int locate(ZyFilePath const & entry);
    unsigned long long roomForEntry() const;
    int openEntry(ZyFilePath const & entry, Compression compression);
    void close();
};
