// SPDX-License-Identifier: BSD-3-Clause
// Paths on systems with slashes: the separators turn and nothing else changes. Never through wide characters,
// which would refuse what is not ASCII, and what is no UTF-8 is a name like any other.
#include "Platform/NativePath.h"

#include <ZyFileException.h>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

std::string NativePath::narrow(ZyFilePath const & path)
{
    ZyString trimmed(path.path());
    std::string text(std::move(trimmed.trim().toStdString()));
    if (text.find('\0') != std::string::npos) {
        throw ZyInvalidPathException(path);
    }
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::filesystem::path NativePath::standard(ZyFilePath const & path)
{
    return std::filesystem::path(narrow(path));
}

QString NativePath::qt(ZyFilePath const & path)
{
    return QString::fromStdString(narrow(path));
}

std::string NativePath::textOf(std::filesystem::path const & path)
{
    return path.native();
}

bool NativePath::createPrivateDirectory(ZyFilePath const & path)
{
    std::filesystem::path const native = standard(path);
    if (::mkdir(native.c_str(), S_IRWXU) == 0) {
        return true;
    }
    std::error_code const failure(errno, std::generic_category());
    std::error_code ignored;
    if (failure == std::errc::file_exists && std::filesystem::is_directory(native, ignored)) {
        return false;
    }
    throw std::filesystem::filesystem_error("cannot create directory", native, failure);
}

bool NativePath::removeTree(std::filesystem::path const & path)
{
    return std::filesystem::remove_all(path) > 0;
}
