// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking: the walks, the copy loops and what an archive from elsewhere must not do.

#include <ZyException.h>
#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFileSystem.h>
#include <ZyZipFile.h>
#include <ZyZipper.h>

#include <minizip/unzip.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace
{

constexpr unsigned int blockSize = 16384;

/** Counts bytes for a caller who may or may not want to know. */
class Meter
{
public:
    Meter(ZyZipper::Progress const & progress, unsigned long long total)
        : m_progress(progress), m_total(total)
    {
        advance(0);
    }
    void advance(unsigned long long bytes)
    {
        m_done += bytes;
        if (m_progress && !m_progress(m_done, m_total)) {
            throw ZyUserCancelledException();
        }
    }
    unsigned long long done() const { return m_done; }

private:
    ZyZipper::Progress const & m_progress;
    unsigned long long m_done = 0;
    unsigned long long m_total;
};

void copy(ZyIODevice & from, ZyIODevice & to, Meter & meter)
{
    while (!from.atEnd()) {
        ZyString const block = from.read(blockSize);
        to.write(block);
        meter.advance(block.size());
    }
}

void openFile(ZyFile & file, ZyIODevice::Mode mode)
{
    if (!file.open(mode)) {
        throw ZyCannotOpenFileException(file.path());
    }
}

void addFile(ZyZipArchive & archive, ZyFilePath const & source, ZyFilePath const & name, Meter & meter)
{
    ZyFile file(source);
    openFile(file, ZyIODevice::Read);
    if (ZySharedPtr<ZyZipFile> const entry = archive.open(name, ZyZipArchive::DefaultLevel).lock()) {
        copy(file, *entry, meter);
    }
    file.close();
}

// A path below a POSIX root has no root in the stored form, so that `relative` refuses it. The walk delivers
// paths that begin with the text of the base, and what follows is what `relative` would give.
ZyFilePath entryName(ZyFilePath const & base, ZyFilePath const & file)
{
    std::string const & root = base.path().toStdString();
    std::string const & text = file.path().toStdString();
    if (!root.empty() && root[0] == '\\' && root.compare(0, 2, "\\\\") != 0 &&
        text.compare(0, root.size(), root) == 0) {
        return ZyFilePath(text.substr(root.size()));
    }
    return base.relative(file);
}

template <class Function>
void forEachFile(ZyFilePath const & directory, Function const & visit)
{
    ZyFileSystem::ForEachFile(directory, true, false, [&visit](ZyFilePath && path) {
        if (!path.isDirectory()) {
            visit(path);
        }
    });
}

unsigned long long sizeOf(ZyFilePath const & source)
{
    if (!ZyFileSystem::IsDirectory(source)) {
        return ZyFileSystem::Exists(source) ? ZyFileSystem::FileSize(source) : 0;
    }
    unsigned long long total = 0;
    forEachFile(source, [&total](ZyFilePath const & path) { total += ZyFileSystem::FileSize(path); });
    return total;
}

void pack(ZyZipArchive & archive, ZyFilePath const & source, Meter & meter)
{
    if (!ZyFileSystem::IsDirectory(source)) {
        addFile(archive, source, ZyFilePath(source.filename()), meter);
        return;
    }
    ZyFilePath const base = source.isDirectory() ? source : ZyFilePath(source.path() + "/");
    forEachFile(source,
                [&](ZyFilePath const & path) { addFile(archive, path, entryName(base, path), meter); });
}

// The sizes that the archive tells, which need not be true.
unsigned long long toldSize(ZyZipArchive const & archive)
{
    unzFile const handle = archive.internal().unzip;
    unsigned long long total = 0;
    for (int code = unzGoToFirstFile(handle); code == UNZ_OK; code = unzGoToNextFile(handle)) {
        unz_file_info64 info = {};
        unzGetCurrentFileInfo64(handle, &info, nullptr, 0, nullptr, 0, nullptr, 0);
        total += info.uncompressed_size;
    }
    return total;
}

// ".." also with dots and blanks behind it, which some systems cut off.
bool isParentSegment(std::string_view segment)
{
    return segment.substr(0, 2) == ".." && segment.find_first_not_of(". ", 2) == std::string_view::npos;
}

bool isDriveSegment(std::string_view segment)
{
    return segment.size() == 2 && segment[1] == ':' && ZyString::IsLetter(segment[0]);
}

// Whether the cleaned output path of an entry lies outside the target, or the name brings a root of its own.
bool leavesTarget(ZyFilePath const & entry)
{
    std::string_view rest = entry.path().toStdString();
    if (rest.substr(0, 2) == "\\\\") {
        return true;
    }
    for (long depth = 0; !rest.empty();) {
        std::string_view const segment = rest.substr(0, rest.find('\\'));
        rest.remove_prefix(std::min(rest.size(), segment.size() + 1));
        if (isDriveSegment(segment)) {
            return true;
        }
        if (isParentSegment(segment)) {
            --depth;
        } else if (!segment.empty() && segment != ".") {
            ++depth;
        }
        if (depth < 0) {
            return true;
        }
    }
    return false;
}

void refuseEscapes(ZyZipArchive & archive, ZyDeque<ZyFilePath> const & entries)
{
    for (ZyFilePath const & entry : entries.std_deque()) {
        if (leavesTarget(entry)) {
            archive.open(entry,
                         ZyZipArchive::DefaultLevel); // a name that cannot be found has words of its own
            throw ZyInvalidPathException(entry);
        }
    }
}

/** Unpacks the entries of one archive one after the other. */
class Unpacker
{
public:
    Unpacker(ZyZipArchive & archive, ZyFilePath const & target, ZyZipArchive::EntryNames names)
        : m_archive(archive), m_target(target), m_names(names)
    {}

    void unpack(ZyFilePath const & name, Meter & meter)
    {
        ZySharedPtr<ZyZipFile> const entry = m_archive.open(name, ZyZipArchive::DefaultLevel).lock();
        if (!entry) {
            return;
        }
        ZyFilePath const output = m_target.appended(name);
        if (m_names == ZyZipArchive::Portable && name.isDirectory()) {
            makeDirectory(output);
            return;
        }
        makeDirectory(ZyFilePath(output.parentPath()));
        write(*entry, output, meter);
        // Only now the zip library tells whether the checksum was right.
        if (unzCloseCurrentFile(m_archive.internal().unzip) == UNZ_CRCERROR) {
            throw ZyInvalidCallException(ZyString("ZyZipFile read failed: ") +
                                         m_archive.errorMessage(UNZ_CRCERROR));
        }
    }

private:
    // Neighbours often share a directory; asking the disk for each of them would cost as much as small files
    // do.
    void makeDirectory(ZyFilePath const & path)
    {
        if (path.path().toStdString() == m_made) {
            return;
        }
        if (!ZyFileSystem::Exists(path)) {
            ZyFileSystem::CreateDirectory(path, true);
        }
        m_made = path.path().toStdString();
    }

    static void write(ZyIODevice & entry, ZyFilePath const & output, Meter & meter)
    {
        ZyFile file(output);
        openFile(file, ZyIODevice::Write);
        unsigned long long const before = meter.done();
        try {
            copy(entry, file, meter);
        } catch (ZyUserCancelledException const &) {
            file.close();
            ZyFileSystem::Remove(output);
            throw;
        }
        file.close();
        // Closing a file does not tell when its last bytes found no room.
        if (ZyFileSystem::FileSize(output) < meter.done() - before) {
            throw ZyIOException("Error occurred on writing to file");
        }
    }

    ZyZipArchive & m_archive;
    ZyFilePath const & m_target;
    ZyZipArchive::EntryNames m_names;
    std::string m_made;
};

} // namespace

ZyZipper::ZyZipper() = default;

void ZyZipper::Zip(ZyFilePath const & archive, ZyFilePath const & source, ZyZipArchive::EntryNames names)
{
    Zip(archive, source, Progress(), names);
}

void ZyZipper::Zip(ZyFilePath const & archive, ZyFilePath const & source, Progress const & progress,
                   ZyZipArchive::EntryNames names)
{
    ZyZipArchive zip(archive, ZyZipArchive::Write, names);
    try {
        Meter meter(progress, progress ? sizeOf(source) : 0);
        pack(zip, source, meter);
    } catch (ZyUserCancelledException const &) {
        zip.close();
        ZyFileSystem::Remove(archive);
        throw;
    }
    zip.close();
}

void ZyZipper::Unzip(ZyFilePath const & archive, ZyFilePath const & target, ZyZipArchive::EntryNames names)
{
    Unzip(archive, target, Progress(), names);
}

void ZyZipper::Unzip(ZyFilePath const & archive, ZyFilePath const & target, Progress const & progress,
                     ZyZipArchive::EntryNames names)
{
    if (!target.isDirectory()) {
        throw ZyFileException("Cannot unzip as target path is not a directory", target.path());
    }
    ZyZipArchive zip(archive, ZyZipArchive::Read, names);
    unsigned long long const total = progress ? toldSize(zip) : 0;
    ZyDeque<ZyFilePath> const entries = zip.paths();
    if (entries.isEmpty()) {
        throw ZyInvalidPathException(
            archive); // its directory is damaged: without any entry it would not have opened
    }
    refuseEscapes(zip, entries);
    Meter meter(progress, total);
    Unpacker unpacker(zip, target, names);
    for (ZyFilePath const & entry : entries.std_deque()) {
        unpacker.unpack(entry, meter);
    }
}
