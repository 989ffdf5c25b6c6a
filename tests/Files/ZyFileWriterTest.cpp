// SPDX-License-Identifier: BSD-3-Clause
// Files that arrive whole or not at all.
#include <ZyFileWriter.h>

#include "Environment.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFileException.h>
#include <ZyString.h>
#include <ZyTemporaryFile.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QIODevice>
#include <QTextStream>

#include <filesystem>
#include <iterator>
#include <string>
#include <type_traits>

static_assert(std::has_virtual_destructor_v<ZyFileWriter>);
static_assert(sizeof(ZyFileWriter) == 2 * sizeof(void *));
static_assert(!std::is_copy_constructible_v<ZyFileWriter> && !std::is_copy_assignable_v<ZyFileWriter>);

namespace
{
namespace fs = std::filesystem;

class ZyFileWriterTest : public testing::Test
{
protected:
    std::ptrdiff_t count() const { return std::distance(fs::directory_iterator(scratch.path()), {}); }

    ScratchDirectory const scratch;
    std::string const target = scratch / "target.txt";
};

/** The path that a failed operation of a writer carries. */
template <class Operation>
std::string pathOf(Operation && operation)
{
    try {
        operation();
    } catch (ZyFileException const & failure) {
        EXPECT_EQ(failure.path2(), ZyFilePath());
        return failure.path1().path().toStdString();
    }
    return "nothing was thrown";
}

std::string stored(std::string const & path)
{
    return ZyFilePath(path).path().toStdString();
}

ZyString text(std::string const & content)
{
    return ZyString(content);
}
} // namespace

TEST_F(ZyFileWriterTest, TouchesNothingBeforeItIsOpened)
{
    ZyFileWriter const writer(text(target));
    EXPECT_EQ(count(), 0);
}

TEST_F(ZyFileWriterTest, GivesTheFileItsNameWhenItIsClosed)
{
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("first\n");
    writer.write("");
    writer.write("second \xc3\xa4\n");
    EXPECT_FALSE(scratch.has("target.txt"));
    writer.close();
    EXPECT_EQ(scratch.read("target.txt"), "first\nsecond \xc3\xa4\n");
    EXPECT_EQ(count(), 1);
}

TEST_F(ZyFileWriterTest, WritesAnEmptyFileWhenNothingIsWritten)
{
    scratch.write("target.txt", "old");
    ZyFileWriter writer(text(target));
    writer.open();
    writer.close();
    EXPECT_TRUE(scratch.has("target.txt"));
    EXPECT_EQ(scratch.read("target.txt"), "");
}

TEST_F(ZyFileWriterTest, LeavesTheOldFileWhenItIsDestroyedWithoutClose)
{
    scratch.write("target.txt", "old");
    {
        ZyFileWriter writer(text(target));
        writer.open();
        writer.write(std::string(100000, 'n'));
        EXPECT_EQ(scratch.read("target.txt"), "old");
    }
    EXPECT_EQ(scratch.read("target.txt"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(ZyFileWriterTest, Deliberate_every_close_commits)
{
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("new");
    writer.close();
    EXPECT_ZY_THROW(writer.close(), ZyFileSaveException, "Cannot save [Unknown error]");
    EXPECT_EQ(pathOf([&] { writer.close(); }), stored(target));
    EXPECT_EQ(scratch.read("target.txt"), "new");
}

TEST_F(ZyFileWriterTest, ThrowsWhenItIsClosedWithoutOpen)
{
    scratch.write("target.txt", "old");
    ZyFileWriter writer(text(target));
    writer.write("lost");
    EXPECT_ZY_THROW(writer.close(), ZyFileSaveException, "Cannot save [Unknown error]");
    EXPECT_EQ(scratch.read("target.txt"), "old");
}

TEST_F(ZyFileWriterTest, CanBeOpenedAgainAfterClose)
{
    ZyFileWriter writer(text(target));
    for (std::string const content : {"one", "two", ""}) {
        writer.open();
        writer.write(content);
        writer.close();
        EXPECT_EQ(scratch.read("target.txt"), content);
    }
}

TEST_F(ZyFileWriterTest, CannotBeOpenedTwice)
{
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("kept");
    EXPECT_ZY_THROW(writer.open(), ZyFileException, "Unable to open file for writing");
    writer.close();
    EXPECT_EQ(scratch.read("target.txt"), "kept");
}

TEST_F(ZyFileWriterTest, TakesARelativePathAgainstTheDirectoryOfItsConstruction)
{
    EXPECT_EXIT(Restricted::exitWith([&] {
                    fs::create_directory(scratch / "a");
                    fs::create_directory(scratch / "b");
                    fs::current_path(scratch / "a");
                    ZyFileWriter writer("target.txt");
                    fs::current_path(scratch / "b");
                    writer.open();
                    writer.write("here");
                    writer.close();
                    return true;
                }),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(scratch.read("a/target.txt"), "here");
    EXPECT_FALSE(scratch.has("b/target.txt"));
}

TEST_F(ZyFileWriterTest, Deliberate_file_writer_cuts_at_nul)
{
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write(std::string("ab\0cd", 5));
    writer.write(std::string("\0ef", 3));
    writer.write("gh");
    writer.close();
    EXPECT_EQ(scratch.read("target.txt"), "abgh");
}

TEST_F(ZyFileWriterTest, TakesBackslashesAndOtherLetters)
{
    fs::create_directory(fs::u8path(scratch / "sub \xc3\xa4"));
    ZyFileWriter writer(text(scratch.path().string() + "\\sub \xc3\xa4\\\xe2\x82\xac.txt"));
    writer.open();
    writer.write("x");
    writer.close();
    EXPECT_EQ(scratch.read("sub \xc3\xa4/\xe2\x82\xac.txt"), "x");
}

TEST_F(ZyFileWriterTest, RefusesAPathWithANul)
{
    std::string const path = scratch / std::string("a\0b", 3);
    EXPECT_ZY_THROW(ZyFileWriter(text(path)), ZyInvalidPathException, "Invalid path: " + stored(path));
    EXPECT_EQ(count(), 0);
}

TEST_F(ZyFileWriterTest, NamesNoFileByAnEmptyPath)
{
    EXPECT_EXIT(Restricted::exitWith([&] {
                    fs::current_path(scratch.path());
                    ZyFileWriter writer{ZyString()};
                    try {
                        writer.open();
                        writer.write("x");
                        writer.close();
                    } catch (ZyFileException const &) {
                        return true;
                    }
                    return false;
                }),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(count(), 0);
}

TEST_F(ZyFileWriterTest, WritesToThePathOfATemporaryFile)
{
    ZyTemporaryFile file;
    ZyFileWriter writer(file);
    writer.open();
    writer.write("scratch");
    writer.close();
    EXPECT_TRUE(file.open(ZyIODevice::Read));
    EXPECT_EQ(file.readAll().toStdString(), "scratch");
    file.close();
}

TEST_F(ZyFileWriterTest, ThrowsOnOpeningADirectory)
{
    fs::create_directory(target);
    scratch.write("target.txt/inside", "old");
    ZyFileWriter writer(text(target));
    EXPECT_ZY_THROW(writer.open(), ZyFileException, "Unable to open file for writing");
    EXPECT_EQ(pathOf([&] { writer.open(); }), stored(target));
    EXPECT_EQ(scratch.read("target.txt/inside"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(ZyFileWriterTest, ThrowsOnClosingWhenTheTargetHasBecomeADirectory)
{
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("x");
    fs::create_directory(target);
    EXPECT_ZY_THROW(writer.close(), ZyFileSaveException, "Cannot save [Is a directory]");
    EXPECT_TRUE(fs::is_directory(target));
    EXPECT_EQ(count(), 1);
}

TEST_F(ZyFileWriterTest, ThrowsOnOpeningInAMissingDirectory)
{
    std::string const path = scratch / "missing/target.txt";
    ZyFileWriter writer(text(path));
    EXPECT_ZY_THROW(writer.open(), ZyFileException, "Unable to open file for writing");
    EXPECT_EQ(pathOf([&] { writer.open(); }), stored(path));
    fs::create_directory(scratch / "missing");
    writer.open();
    writer.write("x");
    writer.close();
    EXPECT_EQ(scratch.read("missing/target.txt"), "x");
}

TEST_F(ZyFileWriterTest, ThrowsOnClosingWhenTheDirectoryHasVanished)
{
    fs::create_directory(scratch / "sub");
    std::string const path = scratch / "sub/target.txt";
    ZyFileWriter writer(text(path));
    writer.open();
    writer.write("x");
    fs::remove_all(scratch / "sub");
    EXPECT_ZY_THROW(writer.close(), ZyFileSaveException, "Cannot save [No such file or directory]");
    EXPECT_FALSE(scratch.has("sub"));
    EXPECT_ZY_THROW(writer.open(), ZyFileException, "Unable to open file for writing");
}

TEST_F(ZyFileWriterTest, ThrowsOnOpeningInAReadOnlyDirectory)
{
    scratch.write("target.txt", "old");
    fs::permissions(scratch.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                        fs::perms::others_exec);
    EXPECT_EXIT(
        {
            Restricted::dropRights();
            Restricted::exitWith([&] {
                ZyFileWriter writer(text(target));
                try {
                    writer.open();
                } catch (ZyFileException const & failure) {
                    return failure.message().toStdString() == "Unable to open file for writing" &&
                           failure.path1() == ZyFilePath(target);
                }
                return false;
            });
        },
        testing::ExitedWithCode(0), "");
    fs::permissions(scratch.path(), fs::perms::owner_all);
    EXPECT_EQ(scratch.read("target.txt"), "old");
    EXPECT_EQ(count(), 1);
}

TEST_F(ZyFileWriterTest, ThrowsOnOpeningAReadOnlyFile)
{
    scratch.write("target.txt", "old");
    fs::permissions(target, fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EXIT(
        {
            Restricted::dropRights();
            Restricted::exitWith([&] {
                ZyFileWriter writer(text(target));
                try {
                    writer.open();
                } catch (ZyFileException const & failure) {
                    return failure.message().toStdString() == "Unable to open file for writing";
                }
                return false;
            });
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(scratch.read("target.txt"), "old");
}

TEST_F(ZyFileWriterTest, ReplacesTheFileBehindASymbolicLink)
{
    fs::create_directory(scratch / "real");
    scratch.write("real/file.txt", "old");
    fs::create_symlink(scratch / "real/file.txt", target);
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("new");
    EXPECT_EQ(scratch.read("real/file.txt"), "old");
    writer.close();
    EXPECT_TRUE(fs::is_symlink(target));
    EXPECT_EQ(scratch.read("real/file.txt"), "new");
    EXPECT_EQ(count(), 2);
}

TEST_F(ZyFileWriterTest, ThrowsOnOpeningWhatIsNoRegularFile)
{
    ASSERT_TRUE(Environment::makePipe(target));
    fs::create_symlink(target, scratch / "link");
    for (std::string const & path : {target, scratch / "link"}) {
        ZyFileWriter writer{text(path)};
        EXPECT_ZY_THROW(writer.open(), ZyFileException, "Unable to open file for writing");
        EXPECT_EQ(pathOf([&] { writer.open(); }), stored(path));
    }
    EXPECT_TRUE(fs::is_fifo(target));
    EXPECT_EQ(count(), 2);
}

TEST_F(ZyFileWriterTest, KeepsThePermissionsOfTheOldFile)
{
    scratch.write("target.txt", "old");
    fs::perms const mine = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(target, mine);
    ZyFileWriter writer(text(target));
    writer.open();
    writer.write("new");
    writer.close();
    EXPECT_EQ(fs::status(target).permissions(), mine);
}

TEST_F(ZyFileWriterTest, HasADeviceForCodeThatWritesThroughQt)
{
    ZyFileWriter writer(text(target));
    EXPECT_FALSE(writer.device()->isOpen());
    writer.open();
    EXPECT_TRUE(writer.device()->isOpen());
    writer.write("text ");
    EXPECT_EQ(writer.device()->write(QByteArray("with\0nul ", 9)), 9);
    {
        QTextStream stream(writer.device());
        stream << 1.5;
    }
    writer.close();
    EXPECT_EQ(scratch.read("target.txt"), std::string("text with\0nul 1.5", 17));
}
