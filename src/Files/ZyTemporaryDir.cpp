// SPDX-License-Identifier: BSD-3-Clause
// A scratch directory that goes with its object.
#include <ZyTemporaryDir.h>

#include "Platform/NativePath.h"

#include <ZyFileException.h>
#include <ZyFileSystem.h>

#include <filesystem>

namespace
{
constexpr int attempts = 1000;
constexpr unsigned int randomCharacters = 5;

// One attempt; false also when the system refuses, for it may be the name that it does not like.
bool created(ZyFilePath const & path)
{
    try {
        return !ZyFileSystem::Exists(path) && NativePath::createPrivateDirectory(path);
    } catch (ZyFileException const &) {
        return false;
    } catch (std::filesystem::filesystem_error const &) {
        return false;
    }
}

ZyFilePath createdDirectory()
{
    ZyFilePath const base = ZyFileSystem::TempDirectory();
    for (int i = 0; i < attempts; ++i) {
        ZyString const name = "zy_" + ZyString::Random(randomCharacters, ZyString::LettersAndDigits) + "/";
        ZyFilePath path = base.appended(name);
        if (created(path)) {
            return path;
        }
    }
    throw ZyFileException("Unable to create temporary directory");
}
} // namespace

ZyTemporaryDir::ZyTemporaryDir() : m_path(createdDirectory()) {}

ZyTemporaryDir::ZyTemporaryDir(ZyTemporaryDir const & other) = default;

ZyTemporaryDir & ZyTemporaryDir::operator=(ZyTemporaryDir const & other) = default;

ZyTemporaryDir::~ZyTemporaryDir()
{
    ZyFileSystem::RemoveAll(m_path);
}

ZyFilePath const & ZyTemporaryDir::path() const
{
    return m_path;
}

ZyFilePath ZyTemporaryDir::path(ZyString const & name) const
{
    return m_path.appended(name);
}
