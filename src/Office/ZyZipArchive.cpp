// SPDX-License-Identifier: BSD-3-Clause
// An archive over the zip library's sequential handles: opening, listing, looking up, closing.

#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFileSystem.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include "Core/ZyUtf8_p.h"
#include "Office/ZyZipArchive_p.h"
#include "Platform/NativePath.h"
#include "Platform/ZipOpening.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace
{

// The words stand for results of the reading and of the writing side.
char const * readMessage(int code)
{
    switch (code) {
    case UNZ_END_OF_LIST_OF_FILE:
        return "Unzip end of list of file";
    case UNZ_PARAMERROR:
        return "Unzip param error";
    case UNZ_BADZIPFILE:
        return "Unzip bad zip file";
    case UNZ_INTERNALERROR:
        return "Unzip internal error";
    case UNZ_CRCERROR:
        return "Unzip CRC error";
    default:
        return "Unzip faliure";
    }
}

char const * writeMessage(int code)
{
    switch (code) {
    case ZIP_PARAMERROR:
        return "Zip param error";
    case ZIP_BADZIPFILE:
        return "Zip bad zip file";
    case ZIP_INTERNALERROR:
        return "Zip internal error";
    default:
        return "Zip failure";
    }
}

int deflateLevel(ZyZipArchive::Compression compression)
{
    switch (compression) {
    case ZyZipArchive::Store:
        return 0;
    case ZyZipArchive::Fastest:
        return 1;
    case ZyZipArchive::Best:
        return 9;
    default:
        return Z_DEFAULT_COMPRESSION;
    }
}

// Other programs take the bytes of a name for an old code page unless a mark says that they are UTF-8.
bool needsUtf8Mark(std::string const & name)
{
    bool const plain =
        std::all_of(name.begin(), name.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
    if (plain) {
        return false;
    }
    try {
        ZyUtf8::toWide(name);
        return true;
    } catch (std::range_error const &) {
        return false;
    }
}

int createEntry(void * zip, std::string const & name, int level)
{
    zip_fileinfo const noDate = {};
    return zipOpenNewFileInZip(zip, name.c_str(), &noDate, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                               level);
}

int createMarkedEntry(void * zip, std::string const & name, int level)
{
    constexpr uLong utf8Mark = 1U << 11;
    zip_fileinfo const noDate = {};
    return zipOpenNewFileInZip4(zip, name.c_str(), &noDate, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                                level, 0, -MAX_WBITS, DEF_MEM_LEVEL, Z_DEFAULT_STRATEGY, nullptr, 0, 0,
                                utf8Mark);
}

// A walk over all records ends well with the end of the list. An archive of so many entries that their count
// does not fit its field has no such end: there the first thing that is no record counts as one.
bool endsWell(void * unzip, int code, unsigned long long walked)
{
    unz_global_info64 info = {};
    return code == UNZ_END_OF_LIST_OF_FILE ||
           (unzGetGlobalInfo64(unzip, &info) == UNZ_OK && info.number_entry == 0xFFFF && walked >= 0xFFFF);
}

} // namespace

std::string ZyZipIndex::Key(std::string name, ZyZipArchive::EntryNames names)
{
    if (names == ZyZipArchive::Portable) {
        std::replace(name.begin(), name.end(), '\\', '/');
    }
    return name;
}

void ZyZipIndex::add(void * unzip, std::string const & key)
{
    unz64_file_pos position = {};
    if (!complete && unzGetFilePos64(unzip, &position) == UNZ_OK) {
        positions.emplace(key, position);
    }
}

int ZyZipIndex::locate(void * unzip, std::string const & key) const
{
    if (key.size() >= LookupLimit) {
        return UNZ_PARAMERROR;
    }
    auto const found = positions.find(key);
    return found == positions.end() ? UNZ_END_OF_LIST_OF_FILE : unzGoToFilePos64(unzip, &found->second);
}

void ZyZipArchive::Private::endActive()
{
    if (activeFile) {
        activeFile->destroy();
        activeFile.reset();
    }
}

ZyDeque<ZyFilePath> ZyZipArchive::Private::walk()
{
    ZyDeque<ZyFilePath> result;
    std::string name;
    int code = unzGoToFirstFile(internal.unzip);
    for (; code == UNZ_OK; code = unzGoToNextFile(internal.unzip)) {
        name = ZyZipFile::CurrentName(internal.unzip);
        index.add(internal.unzip, ZyZipIndex::Key(name, names));
        result.add(ZyFilePath(name));
    }
    index.complete = endsWell(internal.unzip, code, result.size());
    return result;
}

int ZyZipArchive::Private::locate(ZyFilePath const & entry)
{
    // Either spelling may be there, so that the portable form looks at all names at once.
    if (names == Portable && !index.complete) {
        walk();
    }
    std::string const name = ZyZipIndex::Key(entry.path().c_str(), names);
    return index.complete ? index.locate(internal.unzip, name)
                          : unzLocateFile(internal.unzip, name.c_str(), 0);
}

unsigned long long ZyZipArchive::Private::roomForEntry() const
{
    // The plain form holds larger entries and later ones no more, and the zip library could not read them
    // again. The size on disk lags behind by what is buffered; the margin covers that.
    constexpr unsigned long long largest = 4294967294ULL;
    constexpr unsigned long long margin = 262144ULL;
    std::error_code unknown;
    std::uintmax_t const size = std::filesystem::file_size(NativePath::standard(path), unknown);
    return !unknown && size > largest - margin ? 0 : largest;
}

int ZyZipArchive::Private::openEntry(ZyFilePath const & entry, Compression compression)
{
    if (mode == Write) {
        activeFile->open(ZyIODevice::Write);
        entryRoom = roomForEntry();
        std::string const name = ZyZipIndex::Key(entry.path().c_str(), names);
        bool const marked = names == Portable && needsUtf8Mark(name);
        int const result =
            (marked ? createMarkedEntry : createEntry)(internal.zip, name, deflateLevel(compression));
        // Whatever went wrong is told as one kind of failure.
        return result == ZIP_OK ? 0 : 1;
    }
    activeFile->open(ZyIODevice::Read);
    int const located = locate(entry);
    // After a failed lookup the former entry is still current, and would open.
    return located == UNZ_OK ? unzOpenCurrentFile(internal.unzip) : located;
}

void ZyZipArchive::Private::close()
{
    endActive();
    if (closed) {
        return;
    }
    closed = true;
    if (mode == Read) {
        unzClose(internal.unzip);
    } else {
        zipClose(internal.zip, nullptr);
    }
    internal = ZyZipArchive_Internal();
}

ZyZipArchive::ZyZipArchive(ZyFilePath const & path, Mode mode, EntryNames names) : m_d(new Private)
{
    d()->path = path;
    d()->mode = mode;
    d()->names = names;
    ZyZipArchive_Internal & handles = d()->internal;
    switch (mode) {
    case Read:
        if (!ZyFileSystem::Exists(path)) {
            throw ZyFileNotFoundException(path);
        }
        handles.unzip = ZipOpening::read(path);
        break;
    case Write:
        handles.zip = ZipOpening::create(path);
        break;
    default:
        throw ZyInvalidParameterException("Unknown mode for zip/unzip");
    }
    if (handles.zip == nullptr && handles.unzip == nullptr) {
        throw ZyInvalidPathException(path);
    }
    d()->closed = false;
}

ZyZipArchive::~ZyZipArchive()
{
    d()->close();
}

ZyWeakPtr<ZyZipFile> ZyZipArchive::open(ZyFilePath const & path, Compression compression)
{
    d()->endActive();
    d()->activeFile = ZySharedPtr<ZyZipFile>(new ZyZipFile(this));
    int const code = d()->openEntry(path, compression);
    if (code != 0) {
        throw ZyInvalidParameterException(ZyString("Cannot open zip archive file: ") + errorMessage(code) +
                                          " in " + path.path());
    }
    return d()->activeFile;
}

ZyDeque<ZyFilePath> ZyZipArchive::paths() const
{
    if (d()->mode == Write) {
        throw ZyInvalidCallException("Zip paths cannot be returned in write mode");
    }
    d()->endActive();
    return d()->walk();
}

void ZyZipArchive::close()
{
    d()->close();
}

ZyString ZyZipArchive::errorMessage(int code) const
{
    switch (d()->mode) {
    case Read:
        return readMessage(code);
    case Write:
        return writeMessage(code);
    default:
        return "Zip/Unzip Unknown error"; // no archive has another mode: its constructor refuses one
    }
}

ZyZipArchive::Mode ZyZipArchive::mode() const
{
    return d()->mode;
}

ZyZipArchive_Internal & ZyZipArchive::internal() const
{
    return d()->internal;
}
