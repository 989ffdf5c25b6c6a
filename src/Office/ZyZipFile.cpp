// SPDX-License-Identifier: BSD-3-Clause
// The device over the entry that is active in an archive.

#include <ZyException.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include "Office/ZyZipArchive_p.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <utility>

namespace
{

// A read asks for this much at first and then for as much as is there already: how much a caller would take
// says nothing about how much there is.
constexpr std::size_t firstPiece = 65536;

} // namespace

class ZyZipFile::Private : public ZyPrivateObject
{
public:
    ZyZipArchive * archive = nullptr;
};

ZyZipFile::ZyZipFile(ZyZipArchive * archive) : m_d(new Private)
{
    d()->archive = archive;
}

ZyZipFile::~ZyZipFile() = default;

ZyZipArchive & ZyZipFile::archive()
{
    if (d()->archive == nullptr) {
        throw ZyNullPointerException("ZyZipFile parent archive not set");
    }
    return *d()->archive;
}

ZyZipArchive const & ZyZipFile::archive() const
{
    return const_cast<ZyZipFile *>(this)->archive();
}

ZyFilePath ZyZipFile::path() const
{
    if (mode() != ZyIODevice::Read) {
        return ZyFilePath();
    }
    return ZyFilePath(CurrentName(archive().internal().unzip));
}

std::string ZyZipFile::CurrentName(void * unzip)
{
    // The zip library puts no terminating zero behind a name that fills the buffer.
    constexpr unsigned int size = 32768;
    std::string name(size + 1, '\0');
    unz_file_info unused = {};
    int const result = unzGetCurrentFileInfo(unzip, &unused, name.data(), size, nullptr, 0, nullptr, 0);
    name.resize(result == UNZ_OK ? std::strlen(name.data()) : 0);
    return name;
}

bool ZyZipFile::atEnd() const
{
    ZyZipArchive const * const parent = d()->archive;
    if (parent == nullptr || parent->mode() == ZyZipArchive::Write) {
        return true;
    }
    return unzeof(parent->internal().unzip) == 1;
}

void ZyZipFile::onClose() {}

bool ZyZipFile::onOpen(ZyIODevice::Mode)
{
    return true;
}

ZyString ZyZipFile::onRead(unsigned int count)
{
    if (d()->archive == nullptr) {
        throw ZyInvalidCallException("ZyZipFile cannot be read from as it is not the active file");
    }
    void * const unzip = archive().internal().unzip;
    std::string text;
    for (bool more = true; more && text.size() < count;) {
        std::size_t const had = text.size();
        std::size_t const piece = std::min(count - had, std::max(had, firstPiece));
        text.resize(had + piece);
        int result = unzReadCurrentFile(unzip, text.data() + had, static_cast<unsigned int>(piece));
        // Nothing although the entry is not at its end: it is shorter than it tells, and waiting would never
        // end.
        if (result == 0 && had == 0 && unzeof(unzip) != 1) {
            result = UNZ_BADZIPFILE;
        }
        if (result < 0) {
            throw ZyInvalidCallException(ZyString("ZyZipFile read failed: ") +
                                         archive().errorMessage(result));
        }
        text.resize(had + static_cast<std::size_t>(result));
        more = static_cast<std::size_t>(result) == piece;
    }
    return ZyString(std::move(text));
}

unsigned int ZyZipFile::onWrite(ZyString const & text)
{
    if (d()->archive == nullptr) {
        throw ZyInvalidCallException("ZyZipFile cannot be written to as it is not the active file");
    }
    unsigned long long & room = archive().d()->entryRoom;
    bool const fits = text.size() <= room;
    int const result =
        fits ? zipWriteInFileInZip(archive().internal().zip, text.c_str(), text.size()) : ZIP_ERRNO;
    if (result != ZIP_OK) {
        throw ZyInvalidCallException(ZyString("ZyZipFile write failed: ") + archive().errorMessage(result));
    }
    room -= text.size();
    return text.size();
}

void ZyZipFile::seek_read(unsigned int position)
{
    if (position != 0) {
        throw ZyInvalidCallException("ZyZipFile cannot be restarted");
    }
}

void ZyZipFile::seek_write(unsigned int)
{
    throw ZyInvalidCallException("ZyZipFile cannot be restarted");
}

void ZyZipFile::destroy()
{
    d()->archive = nullptr;
}
