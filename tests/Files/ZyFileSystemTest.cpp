// SPDX-License-Identifier: BSD-3-Clause
// The operations on the disk: results, failures, links, names of any bytes, and the walk through a directory.
#include <ZyFileSystem.h>

#include "Environment.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFile.h>
#include <ZyFileException.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

// A name that the home platform's headers define as a macro is a plain name here.
#define CreateDirectory CreateDirectoryW
#include <ZyFileSystem.h>
#undef CreateDirectory

static_assert(std::is_same_v<decltype(ZyFileSystem::FileSize(ZyFilePath())), unsigned long long>);
static_assert(std::is_same_v<decltype(&ZyFileSystem::ForEachFile),
                             void (*)(ZyFilePath const &, bool, bool, std::function<void(ZyFilePath &&)>)>);

namespace
{
namespace fs = std::filesystem;

class ZyFileSystemTest : public testing::Test
{
protected:
    ZyFilePath in(std::string const & name) const { return ZyFilePath(scratch / name); }

    /** What a walk tells, without the path of the scratch directory, sorted: siblings come in any order. */
    std::vector<std::string> walked(bool recursive, bool followLinks) const
    {
        std::string const base = ZyFilePath(scratch.path()).path().toStdString() + "\\";
        std::vector<std::string> paths;
        ZyFileSystem::ForEachFile(scratch.path(), recursive, followLinks, [&](ZyFilePath && path) {
            std::string const text = path.path().toStdString();
            EXPECT_EQ(text.substr(0, base.size()), base);
            paths.push_back(text.substr(base.size()));
        });
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    /** Expects a failure of the disk, whose words are those of the standard library. */
    template <class Work>
    void expectFailure(Work && work, ZyFilePath const & path)
    {
        try {
            work();
            ADD_FAILURE() << "nothing thrown";
        } catch (ZyFileException const & failure) {
            EXPECT_STREQ(failure.name(), "ZyFileException");
            EXPECT_EQ(failure.path1(), path);
            EXPECT_TRUE(failure.path2().isNull());
            EXPECT_FALSE(failure.message().isEmpty());
        }
    }

    ScratchDirectory const scratch;
    std::string const tooLong = std::string(300, 'x');
};

/** An environment variable for the length of a test. */
class Variable
{
public:
    Variable(char const * name, char const * value)
        : m_name(name), m_was(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    Variable(Variable const &) = delete;
    Variable & operator=(Variable const &) = delete;
    ~Variable() { m_wasSet ? qputenv(m_name, m_was) : qunsetenv(m_name); }

private:
    char const * m_name;
    QByteArray m_was;
    bool m_wasSet;
};
} // namespace

TEST_F(ZyFileSystemTest, ExistsForFilesAndDirectories)
{
    scratch.write("file", "");
    EXPECT_TRUE(ZyFileSystem::Exists(in("file")));
    EXPECT_TRUE(ZyFileSystem::Exists(scratch.path()));
    EXPECT_TRUE(ZyFileSystem::Exists(in("")));
    EXPECT_FALSE(ZyFileSystem::Exists(in("missing")));
    EXPECT_FALSE(ZyFileSystem::Exists(in("missing/file")));
    EXPECT_FALSE(ZyFileSystem::Exists(in("file/")));
    EXPECT_FALSE(ZyFileSystem::Exists(ZyFilePath()));
}

TEST_F(ZyFileSystemTest, ExistsFailsWhenTheSystemCannotTell)
{
    expectFailure([&] { ZyFileSystem::Exists(in(tooLong)); }, in(tooLong));
}

TEST_F(ZyFileSystemTest, ExistsFailsInALockedDirectory)
{
    ZyFileSystem::CreateDirectory(in("locked"), false);
    scratch.write("locked/file", "");
    fs::permissions(scratch.path() / "locked", fs::perms::none);
    fs::permissions(scratch.path(), fs::perms(0755));
    auto const child = [&] {
        Restricted::dropRights();
        Restricted::exitWith([&] {
            try {
                ZyFileSystem::Exists(in("locked/file"));
            } catch (ZyFileException const & failure) {
                return failure.path1() == in("locked/file");
            }
            return false;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    fs::permissions(scratch.path() / "locked", fs::perms::owner_all);
}

TEST_F(ZyFileSystemTest, IsDirectoryAsksTheDisk)
{
    scratch.write("file", "");
    EXPECT_TRUE(ZyFileSystem::IsDirectory(scratch.path()));
    EXPECT_TRUE(ZyFileSystem::IsDirectory(in("")));
    EXPECT_FALSE(ZyFileSystem::IsDirectory(in("file")));
    EXPECT_FALSE(ZyFileSystem::IsDirectory(in("missing/")));
    EXPECT_FALSE(ZyFileSystem::IsDirectory(ZyFilePath()));
}

TEST_F(ZyFileSystemTest, Deliberate_is_directory_lets_standard_errors_out)
{
    EXPECT_THROW(ZyFileSystem::IsDirectory(in(tooLong)), fs::filesystem_error);
}

TEST_F(ZyFileSystemTest, SizesOfFiles)
{
    scratch.write("empty", "");
    scratch.write("file", std::string("a\0b", 3));
    EXPECT_EQ(ZyFileSystem::FileSize(in("empty")), 0u);
    EXPECT_EQ(ZyFileSystem::FileSize(in("file")), 3u);
    fs::resize_file(scratch / "file", 5000000000u);
    EXPECT_EQ(ZyFileSystem::FileSize(in("file")), 5000000000u);
    expectFailure([&] { ZyFileSystem::FileSize(in("missing")); }, in("missing"));
    expectFailure([&] { ZyFileSystem::FileSize(scratch.path()); }, scratch.path());
    expectFailure([&] { ZyFileSystem::FileSize(ZyFilePath()); }, ZyFilePath());
}

TEST_F(ZyFileSystemTest, CreatesOneDirectory)
{
    EXPECT_TRUE(ZyFileSystem::CreateDirectory(in("a"), false));
    EXPECT_FALSE(ZyFileSystem::CreateDirectory(in("a"), false));
    EXPECT_TRUE(ZyFileSystem::CreateDirectory(in("b/"), false));
    EXPECT_FALSE(ZyFileSystem::CreateDirectory(in("b/"), false));
    EXPECT_TRUE(ZyFileSystem::IsDirectory(in("a")) && ZyFileSystem::IsDirectory(in("b")));
}

TEST_F(ZyFileSystemTest, CreatesWithoutParentsOnlyWhereTheParentIs)
{
    expectFailure([&] { ZyFileSystem::CreateDirectory(in("a/b"), false); }, in("a/b"));
    EXPECT_FALSE(scratch.has("a"));
}

TEST_F(ZyFileSystemTest, CreatesAllThatIsMissing)
{
    EXPECT_TRUE(ZyFileSystem::CreateDirectory(in("a/b/c"), true));
    EXPECT_FALSE(ZyFileSystem::CreateDirectory(in("a/b/c"), true));
    EXPECT_TRUE(ZyFileSystem::CreateDirectory(in("a/x/y/"), true));
    EXPECT_TRUE(scratch.has("a/b/c") && scratch.has("a/x/y"));
}

TEST_F(ZyFileSystemTest, DoesNotCreateOverAFile)
{
    scratch.write("file", "abc");
    for (bool parents : {false, true}) {
        expectFailure([&] { ZyFileSystem::CreateDirectory(in("file"), parents); }, in("file"));
        expectFailure([&] { ZyFileSystem::CreateDirectory(ZyFilePath(), parents); }, ZyFilePath());
    }
    EXPECT_EQ(scratch.read("file"), "abc");
}

TEST_F(ZyFileSystemTest, RemovesFilesAndEmptyDirectories)
{
    scratch.write("file", "");
    ZyFileSystem::CreateDirectory(in("empty"), false);
    ZyFileSystem::CreateDirectory(in("full/inner"), true);
    EXPECT_TRUE(ZyFileSystem::Remove(in("file")));
    EXPECT_FALSE(ZyFileSystem::Remove(in("file")));
    EXPECT_TRUE(ZyFileSystem::Remove(in("empty/")));
    expectFailure([&] { ZyFileSystem::Remove(in("full")); }, in("full"));
    EXPECT_TRUE(scratch.has("full/inner"));
    EXPECT_FALSE(ZyFileSystem::Remove(ZyFilePath()));
}

TEST_F(ZyFileSystemTest, DoesNotRemoveAFileThatIsSpelledAsADirectory)
{
    scratch.write("file", "abc");
    expectFailure([&] { ZyFileSystem::Remove(in("file/")); }, in("file/"));
    EXPECT_EQ(scratch.read("file"), "abc");
}

TEST_F(ZyFileSystemTest, RemovesTrees)
{
    ZyFileSystem::CreateDirectory(in("a/b/c"), true);
    scratch.write("a/b/file", "");
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("a/")));
    EXPECT_FALSE(scratch.has("a"));
    EXPECT_FALSE(ZyFileSystem::RemoveAll(in("a/")));
    EXPECT_FALSE(ZyFileSystem::RemoveAll(ZyFilePath()));
    scratch.write("file", "");
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("file")));
}

TEST_F(ZyFileSystemTest, RemovesALinkAndNotItsTarget)
{
    ZyFileSystem::CreateDirectory(in("target"), false);
    scratch.write("target/file", "abc");
    for (char const * spelling : {"link", "link/"}) {
        fs::create_directory_symlink("target", scratch.path() / "link");
        EXPECT_TRUE(ZyFileSystem::RemoveAll(in(spelling)));
        EXPECT_FALSE(fs::is_symlink(fs::symlink_status(scratch.path() / "link")));
        fs::create_directory_symlink("target", scratch.path() / "link");
        EXPECT_TRUE(ZyFileSystem::Remove(in(spelling)));
        EXPECT_FALSE(fs::is_symlink(fs::symlink_status(scratch.path() / "link")));
    }
    fs::create_symlink("missing", scratch.path() / "broken");
    EXPECT_TRUE(ZyFileSystem::Remove(in("broken")));
    EXPECT_EQ(scratch.read("target/file"), "abc");
}

TEST_F(ZyFileSystemTest, RemovesTreesWithoutFollowingTheirLinks)
{
    ZyFileSystem::CreateDirectory(in("target"), false);
    scratch.write("target/file", "abc");
    ZyFileSystem::CreateDirectory(in("tree"), false);
    fs::create_directory_symlink("../target", scratch.path() / "tree" / "link");
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("tree")));
    EXPECT_EQ(scratch.read("target/file"), "abc");
}

TEST_F(ZyFileSystemTest, RemovalFailsWithoutTheRight)
{
    ZyFileSystem::CreateDirectory(in("locked"), false);
    scratch.write("locked/file", "");
    fs::permissions(scratch.path() / "locked", fs::perms(0555));
    fs::permissions(scratch.path(), fs::perms(0755));
    auto const child = [&] {
        Restricted::dropRights();
        Restricted::exitWith([&] {
            int failures = 0;
            try {
                ZyFileSystem::Remove(in("locked/file"));
            } catch (ZyFileException const &) {
                ++failures;
            }
            try {
                ZyFileSystem::RemoveAll(in("locked"));
            } catch (ZyFileException const &) {
                ++failures;
            }
            return failures == 2;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    fs::permissions(scratch.path() / "locked", fs::perms::owner_all);
    EXPECT_TRUE(scratch.has("locked/file"));
}

TEST_F(ZyFileSystemTest, RefusesPathsWithANul)
{
    scratch.write("file", "abc");
    ZyFilePath const path = in(std::string("file\0.bak", 9));
    std::string const words = "Invalid path: " + path.path().toStdString();
    EXPECT_ZY_THROW(ZyFileSystem::Exists(path), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::IsDirectory(path), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::FileSize(path), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::CreateDirectory(path, true), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::Remove(path), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::RemoveAll(path), ZyInvalidPathException, words);
    EXPECT_ZY_THROW(ZyFileSystem::ForEachFile(path, true, true, [](ZyFilePath &&) {}), ZyInvalidPathException,
                    words);
    EXPECT_EQ(scratch.read("file"), "abc");
}

TEST_F(ZyFileSystemTest, HandlesNamesOfAnyBytes)
{
    for (char const * odd : {"d\xc3\xa4ta", "bad\xff", "a  b"}) {
        EXPECT_TRUE(ZyFileSystem::CreateDirectory(in(odd), false));
        EXPECT_TRUE(fs::is_directory(scratch.path() / odd));
        EXPECT_TRUE(ZyFileSystem::Exists(in(odd)));
        EXPECT_TRUE(ZyFileSystem::Remove(in(odd)));
    }
}

TEST_F(ZyFileSystemTest, TemporaryDirectoryIsADirectory)
{
    ZyFilePath const path = ZyFileSystem::TempDirectory();
    EXPECT_TRUE(path.isDirectory());
    EXPECT_TRUE(ZyFileSystem::IsDirectory(path));
}

TEST_F(ZyFileSystemTest, TemporaryDirectoryFollowsTheEnvironment)
{
    {
        Variable const variable(Environment::temporary, scratch.path().u8string().c_str());
        EXPECT_EQ(ZyFileSystem::TempDirectory(), in(""));
    }
    {
        Variable const variable(Environment::temporary, (scratch / "").c_str());
        EXPECT_EQ(ZyFileSystem::TempDirectory(), in(""));
    }
    {
        Variable const variable(Environment::temporary, (scratch / "missing").c_str());
        EXPECT_THROW(ZyFileSystem::TempDirectory(), ZyFileException);
    }
    Variable const variable(Environment::temporary, "");
    EXPECT_THROW(ZyFileSystem::TempDirectory(), ZyFileException);
}

TEST_F(ZyFileSystemTest, WalkOfAnEmptyDirectoryTellsNothing)
{
    EXPECT_TRUE(walked(true, true).empty());
    EXPECT_TRUE(walked(false, false).empty());
}

TEST_F(ZyFileSystemTest, WalkTellsFilesAndDirectories)
{
    ZyFileSystem::CreateDirectory(in("b/c"), true);
    scratch.write("a.txt", "");
    scratch.write("b/d.txt", "");
    scratch.write("b/c/e.txt", "");
    EXPECT_EQ(walked(false, false), (std::vector<std::string>{"a.txt", "b\\"}));
    EXPECT_EQ(walked(true, false),
              (std::vector<std::string>{"a.txt", "b\\", "b\\c\\", "b\\c\\e.txt", "b\\d.txt"}));
}

TEST_F(ZyFileSystemTest, WalkTellsADirectoryBeforeItsContent)
{
    ZyFileSystem::CreateDirectory(in("a/b"), true);
    scratch.write("a/b/c", "");
    std::vector<ZyFilePath> paths;
    ZyFileSystem::ForEachFile(in(""), true, false, [&](ZyFilePath && path) { paths.push_back(path); });
    EXPECT_EQ(paths, (std::vector<ZyFilePath>{in("a/"), in("a/b/"), in("a/b/c")}));
    EXPECT_TRUE(paths[0].isDirectory() && paths[2].isFile());
}

TEST_F(ZyFileSystemTest, WalkEntersLinksOnlyWhenTold)
{
    ScratchDirectory const outside;
    outside.write("file", "");
    fs::create_directory_symlink(outside.path(), scratch.path() / "link");
    EXPECT_EQ(walked(true, false), std::vector<std::string>{"link\\"});
    EXPECT_EQ(walked(true, true), (std::vector<std::string>{"link\\", "link\\file"}));
    EXPECT_EQ(walked(false, true), std::vector<std::string>{"link\\"});
}

TEST_F(ZyFileSystemTest, WalkEntersADirectoryOnce)
{
    ZyFileSystem::CreateDirectory(in("real"), false);
    scratch.write("real/file", "");
    fs::create_directory_symlink("real", scratch.path() / "link");
    std::vector<std::string> const paths = walked(true, true);
    EXPECT_EQ(paths.size(), 3u);
    EXPECT_EQ(std::count_if(paths.begin(), paths.end(),
                            [](std::string const & path) { return path.find("file") != std::string::npos; }),
              1);
}

TEST_F(ZyFileSystemTest, WalkEndsInALoopOfLinks)
{
    ZyFileSystem::CreateDirectory(in("a"), false);
    fs::create_directory_symlink("..", scratch.path() / "a" / "up");
    EXPECT_LT(walked(true, true).size(), 10u);
}

TEST_F(ZyFileSystemTest, WalkLeavesOutHiddenNamesBrokenLinksAndPipes)
{
    ZyFileSystem::CreateDirectory(in(".hidden"), false);
    scratch.write(".hidden/file", "");
    scratch.write(".dot", "");
    fs::create_symlink("missing", scratch.path() / "broken");
    ASSERT_TRUE(Environment::makePipe(scratch / "pipe"));
    scratch.write("file", "");
    EXPECT_EQ(walked(true, true), std::vector<std::string>{"file"});
}

TEST_F(ZyFileSystemTest, Deliberate_walk_reports_no_failure)
{
    scratch.write("file", "");
    for (char const * name : {"file", "missing", "missing/"}) {
        ZyFileSystem::ForEachFile(in(name), true, true, [](ZyFilePath &&) { ADD_FAILURE(); });
    }
}

TEST_F(ZyFileSystemTest, WalkPathsOpenAsTheyCome)
{
    scratch.write("d\xc3\xa4ta.txt", "abc");
    int calls = 0;
    ZyFileSystem::ForEachFile(scratch.path(), false, false, [&](ZyFilePath && path) {
        ++calls;
        ZyFile file(path);
        file.open(ZyIODevice::Read);
        EXPECT_EQ(file.readAll().toStdString(), "abc");
    });
    EXPECT_EQ(calls, 1);
}

TEST_F(ZyFileSystemTest, WalkLeavesOutNamesThatAreNoUtf8)
{
    scratch.write("bad\xff", "");
    scratch.write("good", "");
    EXPECT_EQ(walked(true, false), std::vector<std::string>{"good"});
}

TEST_F(ZyFileSystemTest, WalkPassesExceptionsThrough)
{
    scratch.write("file", "");
    EXPECT_ZY_THROW(ZyFileSystem::ForEachFile(scratch.path(), false, false,
                                              [](ZyFilePath &&) { throw ZyUserCancelledException(); }),
                    ZyUserCancelledException, "User cancelled");
}
