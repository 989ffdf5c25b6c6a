// SPDX-License-Identifier: BSD-3-Clause
// What the desktop and the host open.
#include <ZyFileSystem.h>

#include "Files/ZyFileCommand_p.h"
#include "Files/ZyFilePath_p.h"
#include "Platform/NativePath.h"

#include <ZyCommandShell.h>
#include <ZyFileType.h>
#include <ZyString.h>

#include <QDesktopServices>
#include <QUrl>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace
{
bool contains(std::string_view text, std::string_view any)
{
    return text.find_first_of(any) != std::string_view::npos;
}

bool isFileOnDisk(ZyFilePath const & path)
{
    std::error_code ignored; // what cannot be looked at is not there
    std::filesystem::file_status const status = std::filesystem::status(NativePath::standard(path), ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}
} // namespace

void ZyFileSystem::OpenDirectory(ZyFilePath const & path)
{
    std::string_view const directory = ZyPathText::directory(path.path().toStdString());
    if (!contains(directory, std::string_view("\0", 1))) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(NativePath::qt(ZyFilePath(std::string(directory)))));
    }
}

void ZyFileSystem::OpenFile(ZyFilePath const & path)
{
    // With one of these the name would end the argument, and the rest of it would be a command of its own.
    bool const isUnsafe = contains(path.path().toStdString(), std::string_view("\"\n\r\0", 4));
    if (isUnsafe || !isFileOnDisk(path)) {
        return;
    }
    ZyString const command = ZyFileCommand::open(ZyFileType::ToType(path), path.path());
    if (!command.isEmpty()) {
        ZyCommandShell::RunCommand(command, true);
    }
}
