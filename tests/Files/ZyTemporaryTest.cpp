// SPDX-License-Identifier: BSD-3-Clause
// Scratch directories and files: how they are made, and that they go.
#include <ZyTemporaryDir.h>
#include <ZyTemporaryFile.h>

#include "Environment.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFileSystem.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<ZyTemporaryDir>);
static_assert(sizeof(ZyTemporaryDir) == sizeof(void *) + sizeof(ZyFilePath));
static_assert(std::is_copy_constructible_v<ZyTemporaryDir> && std::is_copy_assignable_v<ZyTemporaryDir>);
static_assert(std::is_base_of_v<ZyFileDevice, ZyTemporaryFile> &&
              sizeof(ZyTemporaryFile) == sizeof(ZyFileDevice));
static_assert(!std::is_copy_constructible_v<ZyTemporaryFile>);

namespace
{
namespace fs = std::filesystem;

std::string native(ZyFilePath const & path)
{
    std::string text = path.path().toStdString();
    for (char & c : text) {
        c = c == '\\' ? '/' : c;
    }
    return text;
}

/** Everything temporary goes into a directory of the test's own. */
class ZyTemporaryDirTest : public testing::Test
{
protected:
    ZyTemporaryDirTest() { qputenv(Environment::temporary, scratch.path().u8string().c_str()); }
    ~ZyTemporaryDirTest() override
    {
        wasSet ? qputenv(Environment::temporary, was) : qunsetenv(Environment::temporary);
    }

    ScratchDirectory const scratch;
    bool const wasSet = qEnvironmentVariableIsSet(Environment::temporary);
    QByteArray const was = qgetenv(Environment::temporary);
};

using ZyTemporaryFileTest = ZyTemporaryDirTest;
} // namespace

TEST_F(ZyTemporaryDirTest, IsADirectoryInTheTemporaryDirectory)
{
    ZyTemporaryDir const directory;
    EXPECT_TRUE(ZyFileSystem::IsDirectory(directory.path()));
    EXPECT_EQ(directory.path().parentPath().toString(), ZyFileSystem::TempDirectory().path());
    std::string const name = directory.path().filename().toString().toStdString();
    EXPECT_EQ(name.substr(0, 3), "zy_");
    EXPECT_EQ(name.size(), 8u);
    EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", 3),
              std::string::npos);
}

TEST_F(ZyTemporaryDirTest, IsOpenToItsUserAlone)
{
    ZyTemporaryDir const directory;
    EXPECT_EQ(fs::status(native(directory.path())).permissions(), fs::perms::owner_all);
}

TEST_F(ZyTemporaryDirTest, NamesPathsInsideWithOneSeparator)
{
    ZyTemporaryDir const directory;
    EXPECT_TRUE(directory.path().isDirectory());
    EXPECT_EQ(directory.path("a.txt").path().toStdString(), directory.path().path().toStdString() + "a.txt");
    EXPECT_EQ(directory.path("/b/").path().toStdString(), directory.path().path().toStdString() + "b\\");
    EXPECT_EQ(directory.path(""), directory.path());
}

TEST_F(ZyTemporaryDirTest, GoesWithAllThatIsInIt)
{
    std::string path;
    {
        ZyTemporaryDir const directory;
        path = native(directory.path());
        ZyFileSystem::CreateDirectory(directory.path("a/b"), true);
        ZyFile file(directory.path("a/b/c.txt"));
        file.open(ZyIODevice::Write);
        file.write("abc");
        file.close();
        EXPECT_TRUE(fs::exists(path + "a/b/c.txt"));
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::is_empty(scratch.path()));
}

TEST_F(ZyTemporaryDirTest, HasANameOfItsOwn)
{
    std::set<ZyFilePath> paths;
    for (int i = 0; i < 20; ++i) {
        paths.insert(ZyTemporaryDir().path());
    }
    EXPECT_GT(paths.size(), 15u); // names that have gone may come again
    ZyTemporaryDir const first;
    ZyTemporaryDir const second;
    EXPECT_NE(first.path(), second.path());
}

TEST_F(ZyTemporaryDirTest, Deliberate_copies_share_the_directory)
{
    ZyTemporaryDir const first;
    {
        ZyTemporaryDir const copy(first);
        EXPECT_EQ(copy.path(), first.path());
        EXPECT_TRUE(ZyFileSystem::Exists(first.path()));
    }
    EXPECT_FALSE(ZyFileSystem::Exists(first.path()));
    ZyTemporaryDir assigned;
    ZyFilePath const former = assigned.path();
    assigned = first;
    EXPECT_EQ(assigned.path(), first.path());
    EXPECT_TRUE(ZyFileSystem::RemoveAll(former));
}

TEST_F(ZyTemporaryDirTest, MayBeGoneBefore)
{
    ZyTemporaryDir const directory;
    EXPECT_TRUE(ZyFileSystem::RemoveAll(directory.path()));
}

TEST_F(ZyTemporaryDirTest, GivesUpWhereNothingCanBeMade)
{
    if (!fs::is_directory("/proc/self")) {
        GTEST_SKIP() << "no directory here in which even root can make nothing";
    }
    qputenv(Environment::temporary, "/proc");
    EXPECT_ZY_THROW(ZyTemporaryDir(), ZyFileException, "Unable to create temporary directory");
    qputenv(Environment::temporary, scratch.path().u8string().c_str());
}

TEST_F(ZyTemporaryDirTest, PassesTheFailureOfAMissingTemporaryDirectoryOn)
{
    qputenv(Environment::temporary, (scratch / "missing").c_str());
    EXPECT_THROW(ZyTemporaryDir(), ZyFileException);
    qputenv(Environment::temporary, scratch.path().u8string().c_str());
}

TEST_F(ZyTemporaryDirTest, EndsTheProcessWhenItCannotGo)
{
    fs::permissions(scratch.path(), fs::perms::all);
    auto const child = [&] {
        Restricted::dropRights();
        ZyTemporaryDir const directory;
        ZyFileSystem::CreateDirectory(directory.path("locked"), false);
        ZyFile file(directory.path("locked/file"));
        file.open(ZyIODevice::Write);
        file.close();
        fs::permissions(native(directory.path("locked")), fs::perms(0555));
    };
    EXPECT_DEATH(child(), "terminate called");
    for (auto const & entry : fs::directory_iterator(scratch.path())) {
        fs::permissions(entry.path() / "locked", fs::perms::owner_all);
    }
}

TEST_F(ZyTemporaryFileTest, NamesAFileThatIsNotThere)
{
    ZyTemporaryFile const file;
    EXPECT_FALSE(ZyFileSystem::Exists(file.path()));
    EXPECT_TRUE(file.path().isFile());
    EXPECT_EQ(file.path().parentPath().toString(), ZyFileSystem::TempDirectory().path());
    EXPECT_EQ(file.mode(), ZyIODevice::Closed);
    EXPECT_NE(ZyTemporaryFile().path(), file.path());
}

TEST_F(ZyTemporaryFileTest, NeverOpenedGoesQuietly)
{
    std::make_unique<ZyTemporaryFile>().reset();
    EXPECT_TRUE(fs::is_empty(scratch.path()));
}

TEST_F(ZyTemporaryFileTest, IsAFileUntilItGoes)
{
    std::string path;
    {
        ZyTemporaryFile file;
        path = native(file.path());
        file.open(ZyIODevice::Write);
        file.write("one\ntwo");
        file.close();
        EXPECT_EQ(fs::file_size(path), 7u);
        file.open(ZyIODevice::Read);
        EXPECT_EQ(file.readLine(0).toStdString(), "one\n");
        EXPECT_EQ(file.readRemaining().toStdString(), "two");
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::is_empty(scratch.path()));
}

TEST_F(ZyTemporaryFileTest, GoesWhileItIsOpen)
{
    {
        ZyTemporaryFile file;
        file.open(ZyIODevice::ReadWrite);
        file.write("abc");
    }
    EXPECT_TRUE(fs::is_empty(scratch.path()));
}

TEST_F(ZyTemporaryFileTest, EndsTheProcessWhenItCannotGo)
{
    auto const child = [] {
        ZyTemporaryFile const file;
        ZyFileSystem::CreateDirectory(file.path().appended("inside"), true); // a full directory in its place
    };
    EXPECT_DEATH(child(), "terminate called");
}
