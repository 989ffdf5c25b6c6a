// SPDX-License-Identifier: BSD-3-Clause
// Paths on the home platform: the stored form is the system's own, and goes to it in wide characters. Beyond
// 260 characters the system takes a path only from its root on and behind a prefix, which nobody else gets to
// see.
#include "Platform/NativePath.h"

#include "Core/ZyUtf8_p.h"

#include <ZyFileException.h>

#include <windows.h>

#include <algorithm>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

namespace
{
constexpr std::wstring_view plainPrefix = L"\\\\?\\";
constexpr std::wstring_view sharePrefix = L"\\\\?\\UNC\\";

bool beginsWith(std::wstring_view text, std::wstring_view start)
{
    return text.substr(0, start.size()) == start;
}

/** The path from its root on, which the system makes: without dots, without slashes. Empty when it cannot. */
std::wstring fullPath(std::wstring const & path)
{
    DWORD const size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    DWORD const length = GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    full.resize(length < size ? length : 0);
    return full;
}

/** A full path behind the prefix, unless it has one or names a device. */
std::wstring prefixed(std::wstring const & full)
{
    if (full.empty() || beginsWith(full, plainPrefix) || beginsWith(full, L"\\\\.\\")) {
        return full;
    }
    if (beginsWith(full, L"\\\\")) {
        return std::wstring(sharePrefix).append(full, 2);
    }
    return std::wstring(plainPrefix) + full;
}

/**
 * The spelling under which the system takes a path of any length. Short ones stay as they are: behind the
 * prefix neither dots nor slashes mean anything, nor do names of devices.
 */
std::wstring unlimited(std::wstring const & path)
{
    constexpr std::size_t longestDirectory = MAX_PATH - 12; // a file in it has a short name at least
    std::wstring const full = fullPath(path);
    return full.size() < longestDirectory ? path : prefixed(full);
}

[[noreturn]] void throwLastError(std::wstring const & path)
{
    std::error_code const failure(static_cast<int>(GetLastError()), std::system_category());
    throw std::filesystem::filesystem_error("cannot remove all", path, failure);
}

struct CloseSearch
{
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};

/** Something in a directory. */
struct Entry
{
    std::wstring path;
    DWORD attributes;
};

std::vector<Entry> entriesOf(std::wstring const & directory)
{
    WIN32_FIND_DATAW found = {};
    HANDLE const first = FindFirstFileW((directory + L"\\*").c_str(), &found);
    if (first == INVALID_HANDLE_VALUE) {
        throwLastError(directory);
    }
    std::unique_ptr<HANDLE, CloseSearch> const search(first);
    std::vector<Entry> entries;
    do {
        std::wstring_view const name = found.cFileName;
        if (name != L"." && name != L"..") {
            entries.push_back({directory + L'\\' + found.cFileName, found.dwFileAttributes});
        }
    } while (FindNextFileW(search.get(), &found) != 0);
    return entries;
}

/** Enters no junction and no link to a directory: those are removed as they are. */
void removeEntry(Entry const & entry)
{
    constexpr DWORD kinds = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if ((entry.attributes & kinds) == FILE_ATTRIBUTE_DIRECTORY) {
        for (Entry const & inner : entriesOf(entry.path)) {
            removeEntry(inner);
        }
    }
    std::filesystem::remove(entry.path);
}
} // namespace

std::string NativePath::narrow(ZyFilePath const & path)
{
    ZyString trimmed(path.path());
    std::string text(std::move(trimmed.trim().toStdString()));
    if (text.find('\0') != std::string::npos) {
        throw ZyInvalidPathException(path);
    }
    return text;
}

std::filesystem::path NativePath::standard(ZyFilePath const & path)
{
    narrow(path); // refuses a NUL
    return std::filesystem::path(unlimited(path.toWString()));
}

QString NativePath::qt(ZyFilePath const & path)
{
    std::string text = narrow(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return QString::fromStdString(text);
}

std::string NativePath::textOf(std::filesystem::path const & path)
{
    std::wstring_view text = path.native();
    if (beginsWith(text, sharePrefix)) {
        return "\\\\" + ZyUtf8::fromWide(text.substr(sharePrefix.size()));
    }
    if (beginsWith(text, plainPrefix)) {
        text.remove_prefix(plainPrefix.size());
    }
    return ZyUtf8::fromWide(text);
}

// A new directory inherits the rights of its parent; the temporary directory of a user is the user's own.
bool NativePath::createPrivateDirectory(ZyFilePath const & path)
{
    return std::filesystem::create_directory(standard(path));
}

// All of it behind the prefix: a short path may have long ones in it, which not every standard library
// removes.
bool NativePath::removeTree(std::filesystem::path const & path)
{
    std::wstring whole = prefixed(fullPath(path.native()));
    while (!whole.empty() && whole.back() == L'\\') {
        whole.pop_back();
    }
    DWORD const attributes = GetFileAttributesW(whole.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return std::filesystem::remove(path); // tells what is wrong, unless it is not there
    }
    removeEntry({whole, attributes});
    return true;
}
