// SPDX-License-Identifier: BSD-3-Clause
// Names on the home platform: long ones, those in other letters, reserved ones, drives and network roots.
#include "ScratchDirectory.h"

#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFileSystem.h>
#include <ZyFileWriter.h>
#include <ZyString.h>
#include <ZyTemporaryDir.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace
{
constexpr char const * otherLetters = "\xC2\xB5 \xE2\x82\xAC \xE6\xBC\xA2 \xF0\x9F\x98\x80.txt";

class NativeNames : public testing::Test
{
protected:
    ZyFilePath in(std::string const & name) const { return ZyFilePath(scratch / name); }

    static void write(ZyFilePath const & path, char const * text)
    {
        ZyFile file(path);
        file.open(ZyIODevice::Write);
        file.write(text);
        file.close();
    }
    static std::string read(ZyFilePath const & path)
    {
        ZyFile file(path);
        file.open(ZyIODevice::Read);
        return file.readRemaining().toStdString();
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> result;
        for (auto const & entry : std::filesystem::directory_iterator(scratch.path())) {
            result.push_back(entry.path().filename().u8string());
        }
        return result;
    }

    ScratchDirectory const scratch;
};

/** A directory of many levels that stands far beyond 260 characters. */
ZyFilePath deep(ZyFilePath const & base)
{
    std::string path = base.path().toStdString();
    for (int i = 0; i < 6; ++i) {
        path += "\\" + std::string(100, static_cast<char>('a' + i));
    }
    return ZyFilePath(path);
}
} // namespace

TEST_F(NativeNames, TakesPathsBeyondTwoHundredAndSixtyCharacters)
{
    ZyFilePath const directory = deep(in("long"));
    EXPECT_FALSE(ZyFileSystem::Exists(directory));
    EXPECT_TRUE(ZyFileSystem::CreateDirectory(directory, true));
    EXPECT_TRUE(ZyFileSystem::IsDirectory(directory));
    ZyFilePath const file = directory.appended(ZyFilePath("file.txt"));
    write(file, "deep down");
    EXPECT_EQ(read(file), "deep down");
    EXPECT_EQ(ZyFileSystem::FileSize(file), 9u);
    std::vector<std::string> walked;
    ZyFileSystem::ForEachFile(directory, true, true,
                              [&](ZyFilePath && path) { walked.push_back(path.path().toStdString()); });
    EXPECT_EQ(walked, std::vector<std::string>{file.path().toStdString()});
    EXPECT_TRUE(ZyFileSystem::Remove(file));
    EXPECT_FALSE(ZyFileSystem::Exists(file));
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("long")));
    EXPECT_FALSE(ZyFileSystem::Exists(in("long")));
}

TEST_F(NativeNames, SavesAndZipsUnderLongNamesAndInOtherLetters)
{
    ZyFilePath const directory = deep(in("long"));
    ZyFileSystem::CreateDirectory(directory, true);
    for (ZyFilePath const & file : {directory.appended(ZyFilePath("saved.txt")), in(otherLetters)}) {
        ZyFileWriter writer(file.path());
        writer.open();
        writer.write("saved");
        writer.close();
        EXPECT_EQ(read(file), "saved");
        ZyFilePath const zip(file.path() + ".zip");
        {
            ZyZipArchive archive(zip, ZyZipArchive::Write);
            archive.open(ZyFilePath("entry"), ZyZipArchive::Best).lock()->write("packed");
        }
        ZyZipArchive archive(zip, ZyZipArchive::Read);
        EXPECT_EQ(archive.open(ZyFilePath("entry"), ZyZipArchive::Best).lock()->readRemaining().toStdString(),
                  "packed");
    }
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("long")));
}

TEST_F(NativeNames, OfAnyLengthAreRemovedWithTheirTree)
{
    for (char const * spelling : {"tree", "tree/"}) {
        ZyFilePath const directory = deep(in("tree"));
        ZyFileSystem::CreateDirectory(directory, true);
        write(directory.appended(ZyFilePath("file.txt")), "x");
        write(in(std::string("tree/") + otherLetters), "x");
        EXPECT_TRUE(ZyFileSystem::RemoveAll(in(spelling)));
        EXPECT_TRUE(names().empty());
        EXPECT_FALSE(ZyFileSystem::RemoveAll(in(spelling)));
    }
}

TEST_F(NativeNames, OfAnyLengthLeaveWithTheirTemporaryDirectory)
{
    ZyFilePath path;
    {
        ZyTemporaryDir const directory;
        path = directory.path();
        ZyFileSystem::CreateDirectory(deep(path), true);
        write(deep(path).appended(ZyFilePath("file.txt")), "x");
    }
    EXPECT_FALSE(ZyFileSystem::Exists(path));
}

TEST_F(NativeNames, OfAnOpenFileKeepItsTree)
{
    ZyFileSystem::CreateDirectory(in("tree"), false);
    write(in("tree/open"), "x");
    ZyFile file(in("tree/open"));
    file.open(ZyIODevice::Read);
    try {
        ZyFileSystem::RemoveAll(in("tree"));
        ADD_FAILURE() << "the file is open";
    } catch (ZyFileException const & failure) {
        EXPECT_EQ(failure.path1(), in("tree/open")) << "without the prefix";
    }
    file.close();
    EXPECT_TRUE(ZyFileSystem::RemoveAll(in("tree")));
}

TEST_F(NativeNames, TellsLongPathsAsTheyWereGiven)
{
    ZyFilePath const missing = deep(in("missing"));
    try {
        ZyFileSystem::FileSize(missing);
        ADD_FAILURE() << "there is no such file";
    } catch (ZyFileException const & failure) {
        EXPECT_EQ(failure.path1().path().toStdString(), missing.path().toStdString());
    }
}

TEST_F(NativeNames, AreInAnyLetters)
{
    write(in(otherLetters), "x");
    EXPECT_EQ(names(), std::vector<std::string>{otherLetters});
    EXPECT_EQ(read(in(otherLetters)), "x");
}

TEST_F(NativeNames, AreTheSameInEitherCase)
{
    write(in("Name.TXT"), "first");
    EXPECT_EQ(read(in("nAME.txt")), "first");
    write(in("NAME.txt"), "second");
    EXPECT_EQ(names(), std::vector<std::string>{"Name.TXT"});
    EXPECT_EQ(read(in("Name.TXT")), "second");
}

TEST_F(NativeNames, OfDevicesNameNoFile)
{
    write(in("NUL"), "swallowed");
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(read(in("nul")), "");
}

TEST_F(NativeNames, LoseDotsAndBlanksAtTheirEnds)
{
    write(in("dots..."), "x");
    EXPECT_EQ(names(), std::vector<std::string>{"dots"});
    EXPECT_EQ(read(in("dots")), "x");
}

TEST_F(NativeNames, OfOpenFilesCannotBeRemoved)
{
    write(in("open"), "x");
    ZyFile first(in("open"));
    first.open(ZyIODevice::Read);
    EXPECT_EQ(read(in("open")), "x") << "reading is shared";
    EXPECT_THROW(ZyFileSystem::Remove(in("open")), ZyFileException);
    first.close();
    EXPECT_TRUE(ZyFileSystem::Remove(in("open")));
}

TEST(NativeRoots, OfDrivesAndSharesAreTheSystemsOwn)
{
    EXPECT_TRUE(ZyFilePath("c:/users").isAbsolute());
    EXPECT_TRUE(ZyFilePath("\\\\server\\share\\file").isAbsolute());
    EXPECT_FALSE(ZyFilePath("\\users").isAbsolute());
    EXPECT_TRUE(ZyFileSystem::IsDirectory(ZyFilePath("C:\\")));
    EXPECT_TRUE(ZyFileSystem::IsDirectory(ZyFilePath("c:/windows")));
    EXPECT_FALSE(ZyFileSystem::Exists(ZyFilePath("Q:\\none")));
}
