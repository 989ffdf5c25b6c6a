// SPDX-License-Identifier: BSD-3-Clause
// Paths on the home platform: the stored form is the system's own, and goes to it in wide characters. Beyond
// 260 characters the system takes a path only from its root on and behind a prefix, which nobody else gets to
// see.
#include "Platform/NativePath.h"

#include "Core/ZyUtf8_p.h"

#include <ZyFileException.h>

#include <windows.h>

#include <algorithm>
#include <string_view>

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

/**
 * The spelling under which the system takes a path of any length. Short ones stay as they are: behind the
 * prefix neither dots nor slashes mean anything, nor do names of devices.
 */
std::wstring unlimited(std::wstring const & path)
{
    constexpr std::size_t longestDirectory = MAX_PATH - 12; // a file in it has a short name at least
    std::wstring const full = fullPath(path);
    if (full.size() < longestDirectory || beginsWith(full, plainPrefix) || beginsWith(full, L"\\\\.\\")) {
        return path;
    }
    if (beginsWith(full, L"\\\\")) {
        return std::wstring(sharePrefix).append(full, 2);
    }
    return std::wstring(plainPrefix) + full;
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
