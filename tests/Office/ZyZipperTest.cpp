// SPDX-License-Identifier: BSD-3-Clause
// Packing and unpacking of files and trees, and what an archive from elsewhere must not do.
#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFileSystem.h>
#include <ZyZipFile.h>
#include <ZyZipper.h>

#include "ThrowsMessage.h"
#include "ZipSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(!std::is_default_constructible_v<ZyZipper> && !std::is_destructible_v<ZyZipper>);

namespace
{

using namespace std::string_literals;

using Progress = std::vector<std::pair<unsigned long long, unsigned long long>>;

class ZyZipperTest : public ZipTest
{
public:
    std::vector<std::string> names(ZyZipArchive::EntryNames form = ZyZipArchive::Native) const
    {
        ZyZipArchive const archive(path("x.zip"), ZyZipArchive::Read, form);
        ZyDeque<ZyFilePath> const paths = archive.paths();
        std::vector<std::string> result;
        for (ZyFilePath const & name : paths.std_deque()) {
            result.push_back(name.path().toStdString());
        }
        std::sort(result.begin(), result.end()); // the order of the disk is any
        return result;
    }

    void zip(std::string const & source, ZyZipArchive::EntryNames form = ZyZipArchive::Native) const
    {
        ZyZipper::Zip(path("x.zip"), path(source), form);
    }

    void unzip(ZyZipArchive::EntryNames form = ZyZipArchive::Native) const
    {
        std::filesystem::create_directory(directory() / "out");
        ZyZipper::Unzip(path("x.zip"), path("out/"), form);
    }

    void makeTree() const
    {
        setText("tree/one.txt", "first");
        setText("tree/sub/two.txt", std::string(40000, '2'));
        setText("tree/sub/deep/three.txt", "");
    }

    void expectRefused(std::string const & name, std::string const & shown) const
    {
        makeArchive("x.zip", {{"honest.txt", "1"}, {name, "2"}});
        EXPECT_ZY_THROW(unzip(), ZyInvalidPathException, "Invalid path: " + shown);
        EXPECT_EQ(files("."), (std::vector<std::string>{"x.zip"})) << name;
        EXPECT_TRUE(std::filesystem::is_empty(directory() / "out")) << name;
    }
};

} // namespace

TEST_F(ZyZipperTest, PacksAFileUnderItsBareName)
{
    setText("some/where/a.txt", "content");
    zip("some/where/a.txt");
    EXPECT_EQ(names(), (std::vector<std::string>{"a.txt"}));
    unzip();
    EXPECT_EQ(text("out/a.txt"), "content");
}

TEST_F(ZyZipperTest, PacksATreeUnderItsPathsFromThere)
{
    makeTree();
    for (char const * const source : {"tree", "tree/"}) {
        zip(source);
        EXPECT_EQ(names(), (std::vector<std::string>{"one.txt", "sub\\deep\\three.txt", "sub\\two.txt"}));
    }
    unzip();
    EXPECT_EQ(files("out"), (std::vector<std::string>{"one.txt", "sub/deep/three.txt", "sub/two.txt"}));
    EXPECT_EQ(text("out/sub/two.txt"), std::string(40000, '2'));
}

TEST_F(ZyZipperTest, PacksATreeThatOtherProgramsUnpack)
{
    makeTree();
    zip("tree", ZyZipArchive::Portable);
    EXPECT_EQ(python("z = zipfile.ZipFile(path)\nprint(sorted(z.namelist()), z.testzip())", "x.zip"),
              "['one.txt', 'sub/deep/three.txt', 'sub/two.txt'] None\n");
    EXPECT_EQ(
        python("import os\nout = os.path.join(os.path.dirname(path), 'python')\n"
               "zipfile.ZipFile(path).extractall(out)\nprint(open(os.path.join(out, 'one.txt')).read())",
               "x.zip"),
        "first\n");
    EXPECT_EQ(files("python"), files("tree"));
}

TEST_F(ZyZipperTest, UnpacksTheTreesOfOtherProgramsInThePortableForm)
{
    setText("x.zip", "");
    python("z = zipfile.ZipFile(path, 'w', zipfile.ZIP_DEFLATED)\nz.writestr('sub/', "
           "'')\nz.writestr('empty/in/', '')\n"
           "z.writestr('sub/a.txt', 'A')\nz.writestr('gr\xc3\xbc\xc3\x9f.txt', 'B')\nz.writestr('./c.txt', "
           "'C', 0)\nz.close()",
           "x.zip");
    unzip(ZyZipArchive::Portable);
    EXPECT_EQ(files("out"), (std::vector<std::string>{"c.txt", "gr\xc3\xbc\xc3\x9f.txt", "sub/a.txt"}));
    EXPECT_TRUE(std::filesystem::is_directory(directory() / "out/empty/in"));
    EXPECT_EQ(text("out/sub/a.txt"), "A");
}

TEST_F(ZyZipperTest, DoesNotFindForwardSlashesInSubFolders)
{
    makeArchive("x.zip", {{"sub/a.txt", "A"}});
    EXPECT_ZY_THROW(unzip(), ZyInvalidParameterException,
                    "Cannot open zip archive file: Unzip end of list of file in sub\\a.txt");
    makeArchive("x.zip", {{"a.txt", "A"}, {"b.txt", "B"}});
    unzip();
    EXPECT_EQ(files("out"), (std::vector<std::string>{"a.txt", "b.txt"}));
}

TEST_F(ZyZipperTest, CannotOpenADirectoryEntryForWriting)
{
    makeArchive("x.zip", {{"sub\\", ""}});
    EXPECT_ZY_THROW(unzip(), ZyCannotOpenFileException,
                    "Cannot open file: " + path("out/sub/").path().toStdString());
    makeArchive("x.zip", {{"", "content"}});
    EXPECT_ZY_THROW(unzip(), ZyCannotOpenFileException,
                    "Cannot open file: " + path("out/").path().toStdString());
}

TEST_F(ZyZipperTest, ThrowsWhenTheTargetIsNotSpeltAsADirectory)
{
    makeArchive("x.zip", {{"a", "1"}});
    try {
        ZyZipper::Unzip(path("x.zip"), path("out"));
        ADD_FAILURE() << "nothing was thrown";
    } catch (ZyFileException const & failure) {
        EXPECT_STREQ(failure.name(), "ZyFileException");
        EXPECT_STREQ(failure.what(), "Cannot unzip as target path is not a directory");
        EXPECT_EQ(failure.path1(), path("out"));
        EXPECT_TRUE(failure.path2().isNull());
    }
    EXPECT_FALSE(exists("out"));
}

TEST_F(ZyZipperTest, LooksAtTheTargetBeforeTheArchive)
{
    EXPECT_ZY_THROW(ZyZipper::Unzip(path("none.zip"), path("out")), ZyFileException,
                    "Cannot unzip as target path is not a directory");
    EXPECT_ZY_THROW(ZyZipper::Unzip(path("none.zip"), path("out/")), ZyFileNotFoundException,
                    "File not found: " + path("none.zip").path().toStdString());
}

TEST_F(ZyZipperTest, MakesAMissingTarget)
{
    makeArchive("x.zip", {{"a", "1"}});
    ZyZipper::Unzip(path("x.zip"), path("new/target/"));
    EXPECT_EQ(text("new/target/a"), "1");
}

TEST_F(ZyZipperTest, OverwritesExistingFiles)
{
    makeArchive("x.zip", {{"a", "new"}});
    setText("out/a", "something longer");
    unzip();
    EXPECT_EQ(text("out/a"), "new");
}

TEST_F(ZyZipperTest, UnpacksZeroBytesAsTheyAre)
{
    std::string const content = std::string(16383, 'x') + "\0\0y\0"s;
    makeArchive("x.zip", {{"a", content}});
    unzip();
    EXPECT_EQ(text("out/a"), content);
}

TEST_F(ZyZipperTest, Deliberate_zip_packs_text)
{
    setText("a.bin", "ab\0cd"s + std::string(16379, 'x') + "next");
    zip("a.bin");
    unzip();
    EXPECT_EQ(text("out/a.bin"), "abnext");
}

TEST_F(ZyZipperTest, ThrowsWhenTheSourceIsMissing)
{
    EXPECT_ZY_THROW(zip("none.txt"), ZyFileNotFoundException,
                    "File not found: " + path("none.txt").path().toStdString());
}

TEST_F(ZyZipperTest, ThrowsWhenTheArchiveCannotBeCreated)
{
    makeTree();
    EXPECT_ZY_THROW(ZyZipper::Zip(path("none/x.zip"), path("tree")), ZyInvalidPathException,
                    "Invalid path: " + path("none/x.zip").path().toStdString());
}

TEST_F(ZyZipperTest, RefusesARelativeDirectory)
{
    EXPECT_ZY_THROW(ZyZipper::Zip(path("x.zip"), ZyFilePath("..")), ZyInvalidCallException,
                    "Cannot find relative path when one is already relative");
}

TEST_F(ZyZipperTest, PacksBelowADirectoryWhoseNameHasAColon)
{
    setText("12:30/a.txt", "1");
    setText("12:30/sub/13:30.txt", "2");
    zip("12:30");
    EXPECT_EQ(names(), (std::vector<std::string>{"a.txt", "sub\\13:30.txt"}));
    setText("plain/13:30.txt", "3");
    zip("plain");
    EXPECT_EQ(names(), (std::vector<std::string>{"13:30.txt"}));
    unzip();
    EXPECT_EQ(text("out/13:30.txt"), "3");
}

TEST_F(ZyZipperTest, LeavesOutWhatTheWalkLeavesOut)
{
    setText("tree/seen.txt", "1");
    setText("tree/.hidden", "2");
    setText("tree/.git/config", "3");
    std::filesystem::create_directory(directory() / "tree/empty");
    std::filesystem::create_symlink("seen.txt", directory() / "tree/link.txt");
    std::filesystem::create_symlink("nowhere", directory() / "tree/broken.txt");
    zip("tree");
    EXPECT_EQ(names(), (std::vector<std::string>{"link.txt", "seen.txt"}));
    unzip();
    EXPECT_EQ(text("out/link.txt"), "1");
    EXPECT_FALSE(std::filesystem::is_symlink(directory() / "out/link.txt"));
}

TEST_F(ZyZipperTest, CannotUnpackWhatItPacksOfAnEmptyDirectory)
{
    std::filesystem::create_directory(directory() / "empty");
    zip("empty");
    EXPECT_ZY_THROW(unzip(), ZyInvalidPathException, "Invalid path: " + path("x.zip").path().toStdString());
    setText("x.zip", std::string(100, 'j') + text("x.zip")); // with something in front it opens as an archive
    EXPECT_ZY_THROW(unzip(), ZyInvalidPathException, "Invalid path: " + path("x.zip").path().toStdString());
}

TEST_F(ZyZipperTest, EndsWhenTheArchiveLiesInItsOwnSource)
{
    setText("a.txt", "1");
    zip(".");
    EXPECT_EQ(names(), (std::vector<std::string>{"a.txt", "x.zip"}));
}

TEST_F(ZyZipperTest, RefusesNamesThatLeaveTheTarget)
{
    expectRefused("..\\up.txt", "..\\up.txt");
    expectRefused("..\\..\\up.txt", "..\\..\\up.txt");
    expectRefused("a\\..\\..\\up.txt", "a\\..\\..\\up.txt");
    expectRefused("a\\.\\..\\..\\b\\up.txt", "a\\.\\..\\..\\b\\up.txt");
    expectRefused("..", "..");
    expectRefused("\\..\\up.txt", "\\..\\up.txt");
}

TEST_F(ZyZipperTest, RefusesParentsInTheSpellingsThatSomeSystemsFold)
{
    expectRefused(".. \\up.txt", ".. \\up.txt");
    expectRefused("...\\up.txt", "...\\up.txt");
    expectRefused(".. .\\up.txt", ".. .\\up.txt");
}

TEST_F(ZyZipperTest, RefusesRootsInNames)
{
    expectRefused("C:\\up.txt", "C:\\up.txt");
    expectRefused("a\\z:\\up.txt", "a\\z:\\up.txt");
    expectRefused("\\\\server\\up.txt", "\\\\server\\up.txt");
}

TEST_F(ZyZipperTest, RefusesForwardSlashesThatLeaveTheTargetInThePortableForm)
{
    makeArchive("x.zip", {{"honest.txt", "1"}, {"../../up.txt", "2"}});
    EXPECT_ZY_THROW(unzip(ZyZipArchive::Portable), ZyInvalidPathException, "Invalid path: ..\\..\\up.txt");
    EXPECT_EQ(files("."), (std::vector<std::string>{"x.zip"}));
    // In the native form the name is not even found.
    EXPECT_ZY_THROW(unzip(), ZyInvalidParameterException,
                    "Cannot open zip archive file: Unzip end of list of file in ..\\..\\up.txt");
    EXPECT_EQ(files("."), (std::vector<std::string>{"x.zip"}));
}

TEST_F(ZyZipperTest, UnpacksNamesThatOnlyLookDangerous)
{
    makeArchive("x.zip", {{"a\\..\\b.txt", "1"}, {"..c.txt", "2"}, {"d..\\e.txt", "3"}, {"\\abs.txt", "4"}});
    unzip();
    EXPECT_EQ(files("out"), (std::vector<std::string>{"..c.txt", "abs.txt", "b.txt", "d../e.txt"}));
}

TEST_F(ZyZipperTest, ThrowsOnAWrongChecksum)
{
    makeArchive("x.zip", {{"a", "text"}, {"b", "more"}});
    std::string archive = text("x.zip");
    archive[14] = static_cast<char>(archive[14] ^ 1);
    std::size_t const record = archive.find("PK\x01\x02");
    archive[record + 16] = static_cast<char>(archive[record + 16] ^ 1);
    setText("x.zip", archive);
    EXPECT_ZY_THROW(unzip(), ZyInvalidCallException, "ZyZipFile read failed: Unzip CRC error");
    EXPECT_EQ(files("out"), (std::vector<std::string>{"a"}));
}

TEST_F(ZyZipperTest, ThrowsWhenNothingOfTheDirectoryCanBeRead)
{
    makeArchive("x.zip", {{"a", "1"}, {"b", "2"}});
    std::string const whole = text("x.zip");
    std::size_t const record = whole.find("PK\x01\x02");
    std::string damaged = whole;
    damaged[record] = 'X';
    setText("x.zip", damaged);
    EXPECT_ZY_THROW(unzip(), ZyInvalidPathException, "Invalid path: " + path("x.zip").path().toStdString());
    damaged = whole;
    damaged[whole.find("PK\x01\x02", record + 1)] = 'X';
    setText("x.zip", damaged);
    EXPECT_ZY_THROW(unzip(), ZyInvalidParameterException,
                    "Cannot open zip archive file: Unzip end of list of file in a");
}

TEST_F(ZyZipperTest, EndsOnEntriesThatAreShorterThanTheyTell)
{
    setText("x.zip", "");
    python("z = zipfile.ZipFile(path, 'w', zipfile.ZIP_BZIP2)\nz.writestr('a', 'text' * 1000)\nz.close()",
           "x.zip");
    EXPECT_ZY_THROW(unzip(), ZyInvalidCallException, "ZyZipFile read failed: Unzip bad zip file");
}

TEST_F(ZyZipperTest, TellsTheProgressInBytes)
{
    makeTree();
    Progress seen;
    auto const note = [&seen](unsigned long long done, unsigned long long total) {
        seen.emplace_back(done, total);
        return true;
    };
    ZyZipper::Zip(path("x.zip"), path("tree"), note);
    ASSERT_GE(seen.size(), 4U);
    EXPECT_EQ(seen.front(), Progress::value_type(0, 40005));
    EXPECT_EQ(seen.back(), Progress::value_type(40005, 40005));
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));

    seen.clear();
    ZyZipper::Unzip(path("x.zip"), path("out/"), note);
    EXPECT_EQ(seen.front(), Progress::value_type(0, 40005));
    EXPECT_EQ(seen.back(), Progress::value_type(40005, 40005));
    EXPECT_EQ(files("out"), files("tree"));

    seen.clear();
    ZyZipper::Zip(path("x.zip"), path("tree/sub/two.txt"), note, ZyZipArchive::Portable);
    EXPECT_EQ(seen, (Progress{{0, 40000}, {16384, 40000}, {32768, 40000}, {40000, 40000}}));
}

TEST_F(ZyZipperTest, TakesAnEmptyProgressForNone)
{
    makeTree();
    ZyZipper::Zip(path("x.zip"), path("tree"), ZyZipper::Progress());
    ZyZipper::Unzip(path("x.zip"), path("out/"), nullptr);
    EXPECT_EQ(files("out"), files("tree"));
}

TEST_F(ZyZipperTest, StopsPackingAndRemovesTheArchive)
{
    makeTree();
    auto const stop = [](unsigned long long done, unsigned long long) { return done < 20000; };
    EXPECT_ZY_THROW(ZyZipper::Zip(path("x.zip"), path("tree"), stop), ZyUserCancelledException,
                    "User cancelled");
    EXPECT_FALSE(exists("x.zip"));
}

TEST_F(ZyZipperTest, StopsUnpackingAndRemovesTheFileUnderWay)
{
    makeArchive("x.zip", {{"small", "1"}, {"large", std::string(100000, '2')}, {"later", "3"}});
    auto const stop = [](unsigned long long done, unsigned long long) { return done < 50000; };
    EXPECT_ZY_THROW(ZyZipper::Unzip(path("x.zip"), path("out/"), stop), ZyUserCancelledException,
                    "User cancelled");
    EXPECT_EQ(files("out"), (std::vector<std::string>{"small"}));
    auto const never = [](unsigned long long, unsigned long long) { return false; };
    EXPECT_ZY_THROW(ZyZipper::Unzip(path("x.zip"), path("none/"), never), ZyUserCancelledException,
                    "User cancelled");
    EXPECT_FALSE(exists("none"));
}

TEST_F(ZyZipperTest, LetsTheExceptionsOfTheProgressThrough)
{
    makeTree();
    auto const fail = [](unsigned long long, unsigned long long) -> bool { throw std::string("mine"); };
    EXPECT_THROW(ZyZipper::Zip(path("x.zip"), path("tree"), fail), std::string);
}
