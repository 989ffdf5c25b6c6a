// SPDX-License-Identifier: BSD-3-Clause
// The operations on the disk, over the standard library and Qt's directory walk.
#include <ZyFileSystem.h>

#include "Platform/NativePath.h"

#include <ZyFileException.h>

#include <QDirIterator>
#include <QFileInfo>
#include <QString>

#include <filesystem>
#include <new>
#include <string>
#include <system_error>

namespace
{
template <class Work>
auto translated(Work && work)
{
    try {
        return work();
    } catch (std::filesystem::filesystem_error const & failure) {
        throw ZyFileException(failure);
    }
}

// What to remove: of a link that is spelled as a directory the link. The standard library would follow it,
// and empty the directory that it points at.
std::filesystem::path removable(ZyFilePath const & path)
{
    std::filesystem::path const native = NativePath::standard(path);
    std::filesystem::path const bare = native.has_filename() ? native : native.parent_path();
    std::error_code ignored;
    return std::filesystem::is_symlink(std::filesystem::symlink_status(bare, ignored)) ? bare : native;
}
} // namespace

bool ZyFileSystem::CreateDirectory(ZyFilePath const & path, bool parents)
{
    try {
        return translated([&] {
            std::filesystem::path const native = NativePath::standard(path);
            return parents ? std::filesystem::create_directories(native)
                           : std::filesystem::create_directory(native);
        });
    } catch (std::bad_alloc const & failure) {
        throw ZyBadAllocException(failure);
    }
}

bool ZyFileSystem::Exists(ZyFilePath const & path)
{
    return translated([&] { return std::filesystem::exists(NativePath::standard(path)); });
}

bool ZyFileSystem::IsDirectory(ZyFilePath const & path)
{
    return std::filesystem::is_directory(NativePath::standard(path));
}

unsigned __int64 ZyFileSystem::FileSize(ZyFilePath const & path)
{
    return translated([&] {
        return static_cast<unsigned __int64>(std::filesystem::file_size(NativePath::standard(path)));
    });
}

bool ZyFileSystem::Remove(ZyFilePath const & path)
{
    return translated([&] { return std::filesystem::remove(removable(path)); });
}

bool ZyFileSystem::RemoveAll(ZyFilePath const & path)
{
    return translated([&] { return NativePath::removeTree(removable(path)); });
}

ZyFilePath ZyFileSystem::TempDirectory()
{
    return translated([] {
        ZyFilePath const directory(std::filesystem::temp_directory_path());
        return directory.isDirectory() ? directory : directory.appended(ZyFilePath());
    });
}

void ZyFileSystem::ForEachFile(ZyFilePath const & path, bool recursive, bool followLinks,
                               std::function<void(ZyFilePath &&)> visit)
{
    QDirIterator::IteratorFlags flags = QDirIterator::NoIteratorFlags;
    flags.setFlag(QDirIterator::Subdirectories, recursive);
    flags.setFlag(QDirIterator::FollowSymlinks, followLinks);
    QDir::Filters const filter = QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot;
    QDirIterator walk(NativePath::qt(path), filter, flags);
    while (walk.hasNext()) {
        QString entry = walk.next();
        if (walk.fileInfo().isDir()) {
            entry += QLatin1Char('/');
        }
        entry.replace(QLatin1Char('/'), QLatin1Char('\\'));
        visit(ZyFilePath::CreateUnchecked(ZyString(entry)));
    }
}
