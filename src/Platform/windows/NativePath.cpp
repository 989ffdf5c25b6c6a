// SPDX-License-Identifier: BSD-3-Clause
// Paths on the home platform: the stored form is the system's own, and goes to it in wide characters.
#include "Platform/NativePath.h"

#include "Core/ZyUtf8_p.h"

#include <ZyFileException.h>

#include <algorithm>

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
    return std::filesystem::path(path.toWString());
}

QString NativePath::qt(ZyFilePath const & path)
{
    std::string text = narrow(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return QString::fromStdString(text);
}

std::string NativePath::textOf(std::filesystem::path const & path)
{
    return ZyUtf8::fromWide(path.native());
}

// A new directory inherits the rights of its parent; the temporary directory of a user is the user's own.
bool NativePath::createPrivateDirectory(ZyFilePath const & path)
{
    return std::filesystem::create_directory(standard(path));
}
