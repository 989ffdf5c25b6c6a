// SPDX-License-Identifier: BSD-3-Clause
// The file device: what each mode does, reading in pieces and lines, appending, and failures of the disk.
#include <ZyFileDevice.h>

#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <ZyFile.h>
#include <ZyFileException.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

static_assert(std::is_base_of_v<ZyIODevice, ZyFileDevice>);
static_assert(sizeof(ZyFileDevice) == sizeof(ZyIODevice) + sizeof(void *) + sizeof(ZyFilePath));
static_assert(!std::is_copy_constructible_v<ZyFileDevice> && !std::is_copy_assignable_v<ZyFileDevice>);
static_assert(std::is_base_of_v<ZyFileException, ZyCannotOpenFileException>);

namespace
{
using Mode = ZyIODevice::Mode;
constexpr Mode Read = ZyIODevice::Read;
constexpr Mode Write = ZyIODevice::Write;
constexpr Mode ReadWrite = ZyIODevice::ReadWrite;
constexpr Mode Append = ZyIODevice::Append;
constexpr Mode Truncate = ZyIODevice::Truncate;
constexpr Mode TextMode = ZyIODevice::Text;

std::string stored(std::filesystem::path const & path)
{
    return ZyFilePath(path).path().toStdString();
}

// A host's class: its lines come through its onRead().
class HostFile : public ZyFile
{
public:
    explicit HostFile(ZyFilePath const & path) : ZyFile(path) {}
    std::vector<unsigned int> counts;

protected:
    ZyString onRead(unsigned int count) override
    {
        counts.push_back(count);
        return ZyFile::onRead(count);
    }
};

class ZyFileDeviceTest : public testing::Test
{
protected:
    ScratchDirectory const scratch;
    std::string const name = scratch / "file.txt";
};
} // namespace

using ZyFileDeviceOpening = ZyFileDeviceTest;
using ZyFileDeviceReading = ZyFileDeviceTest;
using ZyFileDeviceWriting = ZyFileDeviceTest;
using ZyFileDeviceBoth = ZyFileDeviceTest;
using ZyFileDeviceFailure = ZyFileDeviceTest;

TEST(ZyFileDevice, HasThePathItWasMadeWith)
{
    EXPECT_TRUE(ZyFileDevice().path().isNull());
    EXPECT_EQ(ZyFileDevice(ZyFilePath("a/b")).path().path().toStdString(), "a\\b");
    EXPECT_EQ(ZyFileDevice(ZyString("a//b")).path().path().toStdString(), "a\\b");
    EXPECT_EQ(ZyFileDevice("a//b").path().path().toStdString(), "a\\b");
}

TEST_F(ZyFileDeviceOpening, WriteMakesAndEmpties)
{
    ZyFileDevice device(name.c_str());
    EXPECT_TRUE(device.open(Write));
    EXPECT_EQ(device.write("abc"), 3u);
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "abc");
    EXPECT_TRUE(device.open(Write));
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "");
}

TEST_F(ZyFileDeviceOpening, AppendMakesAndKeeps)
{
    ZyFileDevice device(name.c_str());
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(device.open(Append));
        device.write("abc");
        device.close();
    }
    EXPECT_EQ(scratch.read("file.txt"), "abcabc");
}

TEST_F(ZyFileDeviceOpening, WriteAndAppendKeepsAndThenRefuses)
{
    scratch.write("file.txt", "abc");
    ZyFileDevice device(name.c_str());
    EXPECT_TRUE(device.open(Write | Append));
    EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST_F(ZyFileDeviceOpening, FlagsAloneOpenAndThenRefuse)
{
    for (Mode mode : {Write | Truncate, Truncate, ReadWrite | Truncate}) {
        scratch.write("file.txt", "abc");
        ZyFileDevice device(name.c_str());
        EXPECT_TRUE(device.open(mode));
        EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
        EXPECT_ZY_THROW(device.read(1), ZyIOInvalidReadException, "");
        EXPECT_TRUE(device.atEnd());
        device.close();
        EXPECT_EQ(scratch.read("file.txt"), "");
    }
}

TEST_F(ZyFileDeviceOpening, ReadWithFlagsOpensForReading)
{
    scratch.write("file.txt", "abc");
    for (Mode mode : {Read | Append, Read | Truncate, Read | TextMode}) {
        ZyFileDevice device(name.c_str());
        EXPECT_TRUE(device.open(mode));
        EXPECT_ZY_THROW(device.read(1), ZyIOInvalidReadException, "");
    }
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST_F(ZyFileDeviceOpening, TextFlagAloneCannotBeOpened)
{
    scratch.write("file.txt", "abc");
    EXPECT_ZY_THROW(ZyFileDevice(name.c_str()).open(TextMode), ZyCannotOpenFileException,
                    "Cannot open file: " + stored(name));
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST_F(ZyFileDeviceOpening, ClosedCannotBeOpened)
{
    ZyFileDevice device(name.c_str());
    EXPECT_ZY_THROW(device.open(ZyIODevice::Closed), ZyCannotOpenFileException,
                    "Cannot open file: " + stored(name));
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
    EXPECT_FALSE(scratch.has("file.txt"));
}

TEST_F(ZyFileDeviceOpening, MissingFileCannotBeRead)
{
    ZyFileDevice device(name.c_str());
    EXPECT_ZY_THROW(device.open(Read), ZyFileNotFoundException, "File not found: " + stored(name));
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
    try {
        device.open(Read);
    } catch (ZyFileException const & failure) {
        EXPECT_EQ(failure.path1(), device.path());
    }
}

TEST_F(ZyFileDeviceOpening, MissingFileIsMadeForReadWrite)
{
    ZyFileDevice device(name.c_str());
    EXPECT_TRUE(device.open(ReadWrite));
    EXPECT_TRUE(device.atEnd());
    device.close();
    EXPECT_TRUE(scratch.has("file.txt"));
}

TEST_F(ZyFileDeviceOpening, MissingDirectoryCannotBeWrittenTo)
{
    std::string const inside = scratch / "missing/file.txt";
    for (Mode mode : {Write, ReadWrite, Append}) {
        EXPECT_ZY_THROW(ZyFileDevice(inside.c_str()).open(mode), ZyCannotOpenFileException,
                        "Cannot open file: " + stored(inside));
    }
}

TEST_F(ZyFileDeviceOpening, DirectoryCannotBeOpened)
{
    ZyFilePath const directory(scratch.path());
    ZyFilePath const spelled = directory.appended(ZyFilePath());
    for (Mode mode : {Read, Write, ReadWrite, Append}) {
        EXPECT_ZY_THROW(ZyFileDevice(directory).open(mode), ZyCannotOpenFileException,
                        "Cannot open file: " + directory.path().toStdString());
        EXPECT_ZY_THROW(ZyFileDevice(spelled).open(mode), ZyCannotOpenFileException,
                        "Cannot open file: " + spelled.path().toStdString());
    }
}

TEST_F(ZyFileDeviceOpening, FileSpelledAsADirectoryIsNotFound)
{
    scratch.write("file.txt", "abc");
    EXPECT_ZY_THROW(ZyFileDevice((name + "/").c_str()).open(Read), ZyFileNotFoundException,
                    "File not found: " + stored(name) + "\\");
    EXPECT_ZY_THROW(ZyFileDevice((name + "/").c_str()).open(Write), ZyCannotOpenFileException,
                    "Cannot open file: " + stored(name) + "\\");
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST(ZyFileDevice, NullPathCannotBeOpened)
{
    EXPECT_ZY_THROW(ZyFileDevice().open(Read), ZyFileNotFoundException, "File not found: ");
    EXPECT_ZY_THROW(ZyFileDevice().open(Write), ZyCannotOpenFileException, "Cannot open file: ");
    EXPECT_ZY_THROW(ZyFileDevice().open(ReadWrite), ZyCannotOpenFileException, "Cannot open file: ");
}

TEST_F(ZyFileDeviceOpening, PathWithANulIsRefusedAndNothingElseIsOpened)
{
    scratch.write("file.txt", "abc");
    std::string const path = name + std::string("\0.bak", 5);
    for (Mode mode : {Read, Write, ReadWrite, Append}) {
        EXPECT_ZY_THROW(ZyFileDevice(ZyString(path)).open(mode), ZyInvalidPathException,
                        "Invalid path: " + ZyFilePath(path).path().toStdString());
    }
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST_F(ZyFileDeviceOpening, UnreadableFileCannotBeOpened)
{
    scratch.write("file.txt", "abc");
    std::filesystem::permissions(name, std::filesystem::perms::none);
    std::filesystem::permissions(scratch.path(), std::filesystem::perms(0755));
    auto const refused = [&] {
        try {
            ZyFileDevice(name.c_str()).open(Read);
        } catch (ZyCannotOpenFileException const & failure) {
            return failure.message().toStdString() == "Cannot open file: " + stored(name);
        }
        return false;
    };
    auto const child = [&] {
        Restricted::dropRights();
        Restricted::exitWith(refused);
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(ZyFileDeviceOpening, OpensNamesOfAnyBytes)
{
    for (char const * odd :
         {"d\xc3\xa4ta \xe2\x82\xac.txt", "bad \xff\xfe utf8", "  inner  blanks", "quote\"'"}) {
        std::string const path = (scratch / "x") + odd;
        ZyFileDevice device{ZyString(path)};
        device.open(Write);
        device.write(odd);
        device.close();
        EXPECT_EQ(scratch.read("x" + std::string(odd)), odd);
    }
}

TEST_F(ZyFileDeviceOpening, FollowsALinkToAFile)
{
    scratch.write("file.txt", "abc");
    std::filesystem::create_symlink("file.txt", scratch.path() / "link");
    ZyFileDevice device((scratch / "link").c_str());
    device.open(Read);
    EXPECT_EQ(device.readAll().toStdString(), "abc");
}

TEST_F(ZyFileDeviceOpening, SaysWhenItIsOpenAlready)
{
    ZyFileDevice device(name.c_str());
    device.open(Write);
    EXPECT_FALSE(device.open(Read));
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
    EXPECT_EQ(ZyCannotOpenFileException(device).message().toStdString(),
              "Cannot open file (Device already open): " + stored(name));
    EXPECT_EQ(ZyCannotOpenFileException(device).path1(), device.path());
    EXPECT_TRUE(ZyCannotOpenFileException(device).path2().isNull());
    EXPECT_EQ(device.write("abc"), 3u);
}

TEST_F(ZyFileDeviceOpening, OpensAgainAtTheFrontAfterTheEnd)
{
    scratch.write("file.txt", "abc");
    ZyFileDevice device(name.c_str());
    for (int i = 0; i < 3; ++i) {
        device.open(Read);
        EXPECT_FALSE(device.atEnd());
        EXPECT_EQ(device.readLine(0).toStdString(), "abc");
        EXPECT_TRUE(device.atEnd());
        device.close();
        EXPECT_TRUE(device.atEnd());
    }
}

TEST_F(ZyFileDeviceOpening, DestructionKeepsWhatWasWritten)
{
    {
        ZyFileDevice device(name.c_str());
        device.open(Write);
        device.write("abc");
    }
    EXPECT_EQ(scratch.read("file.txt"), "abc");
}

TEST_F(ZyFileDeviceOpening, LetsOthersReadMeanwhile)
{
    ZyFileDevice device(name.c_str());
    device.open(Write);
    device.write(ZyString(std::string(100000, 'x')));
    ZyFileDevice other(name.c_str());
    EXPECT_TRUE(other.open(Read));
    EXPECT_EQ(other.read(10).toStdString(), "xxxxxxxxxx");
}

TEST_F(ZyFileDeviceReading, GivesPiecesAndAShortOneAtTheEnd)
{
    scratch.write("file.txt", "abcde");
    ZyFileDevice device(name.c_str());
    device.open(Read);
    EXPECT_EQ(device.read(2).toStdString(), "ab");
    EXPECT_EQ(device.read(0).toStdString(), "");
    EXPECT_EQ(device.read(2).toStdString(), "cd");
    EXPECT_EQ(device.read(100).toStdString(), "e");
    EXPECT_EQ(device.read(100).toStdString(), "");
    EXPECT_TRUE(device.atEnd());
}

TEST_F(ZyFileDeviceReading, TakesTheLargestCount)
{
    scratch.write("file.txt", "abcde");
    ZyFileDevice device(name.c_str());
    device.open(Read);
    EXPECT_EQ(device.read(~0u).toStdString(), "abcde");
}

TEST_F(ZyFileDeviceReading, EmptyFileGivesNothing)
{
    scratch.write("file.txt", "");
    ZyFileDevice device(name.c_str());
    device.open(Read);
    EXPECT_TRUE(device.atEnd());
    EXPECT_EQ(device.read(5).toStdString(), "");
    EXPECT_EQ(device.readAll().toStdString(), "");
    EXPECT_EQ(device.readRemaining().toStdString(), "");
    EXPECT_EQ(device.readLine(0).toStdString(), "");
}

TEST_F(ZyFileDeviceReading, CutsAtANulAndGoesOnBehindThePiece)
{
    scratch.write("file.txt", std::string("ab\0cd", 5));
    ZyFileDevice device(name.c_str());
    device.open(Read);
    EXPECT_EQ(device.read(5).toStdString(), "ab");
    EXPECT_EQ(device.read(5).toStdString(), "");
    device.seek_read(0);
    EXPECT_EQ(device.read(4).toStdString(), "ab");
    EXPECT_EQ(device.read(5).toStdString(), "d");
}

TEST_F(ZyFileDeviceReading, Deliberate_file_device_cuts_at_nul)
{
    std::string content(300, 'x');
    content[10] = '\0';
    scratch.write("file.txt", content);
    ZyFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readAll().toStdString(), std::string(182, 'x'));
    device.restart();
    EXPECT_EQ(device.readLine(0).toStdString(), std::string(299, 'x'));
}

TEST_F(ZyFileDeviceReading, RemainderHasItsPiecesFromThePosition)
{
    std::string content(300, 'x');
    content[100] = '\0';
    content[230] = '\0';
    scratch.write("file.txt", content);
    ZyFile device(name);
    device.open(Read);
    device.read(90);
    // Pieces: 90 to 217 with a NUL at 100, 218 to 299 with one at 230.
    EXPECT_EQ(device.readRemaining().toStdString(), std::string(10 + 12, 'x'));
}

TEST_F(ZyFileDeviceReading, GivesLines)
{
    scratch.write("file.txt", "ab\r\n\ncd");
    ZyFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readLine(0).toStdString(), "ab\r\n");
    EXPECT_EQ(device.readLine(0).toStdString(), "\n");
    EXPECT_EQ(device.readLine(0).toStdString(), "cd");
    EXPECT_EQ(device.readLine(0).toStdString(), "");
}

TEST_F(ZyFileDeviceReading, LineHasAMaximum)
{
    scratch.write("file.txt", "abcdef\n");
    ZyFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readLine(3).toStdString(), "abc");
    EXPECT_EQ(device.readLine(4).toStdString(), "def\n");
    EXPECT_EQ(device.readLine(4).toStdString(), "");
}

TEST_F(ZyFileDeviceReading, LineDropsItsNuls)
{
    scratch.write("file.txt", std::string("a\0b\n\0\0c", 7));
    ZyFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readLine(0).toStdString(), "ab\n");
    EXPECT_EQ(device.readLine(1).toStdString(), "c");
}

TEST_F(ZyFileDeviceReading, LineLongerThanTheBuffer)
{
    std::string const line(300000, 'x');
    scratch.write("file.txt", line + "\n" + line);
    ZyFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readLine(0).toStdString(), line + "\n");
    EXPECT_EQ(device.readLine(0).toStdString(), line);
}

TEST_F(ZyFileDeviceReading, LinesAcrossTheEdgesOfTheBuffer)
{
    std::string content;
    for (int i = 0; content.size() < 400000; ++i) {
        content += std::to_string(i) + std::string(static_cast<std::size_t>(i % 97), 'x') + "\n";
    }
    scratch.write("file.txt", content);
    ZyFile device(name);
    device.open(Read);
    std::string joined;
    while (!device.atEnd()) {
        joined += device.readLine(0).toStdString();
        ASSERT_EQ(joined.back(), '\n');
    }
    EXPECT_TRUE(joined == content);
    EXPECT_TRUE(device.readAll().toStdString() == content);
}

TEST_F(ZyFileDeviceReading, HostClassGetsItsPieces)
{
    scratch.write("file.txt", "ab\n" + std::string(300, 'x'));
    HostFile device(name);
    device.open(Read);
    EXPECT_EQ(device.readLine(0).toStdString(), "ab\n");
    EXPECT_EQ(device.counts, (std::vector<unsigned int>{1, 1, 1}));
    device.counts.clear();
    EXPECT_EQ(device.readRemaining().toStdString(), std::string(300, 'x'));
    EXPECT_EQ(device.counts, (std::vector<unsigned int>{128, 128, 128}));
}

TEST_F(ZyFileDeviceReading, DirectReadingGivesWhatThePiecesGive)
{
    std::mt19937 engine(7);
    for (int round = 0; round < 300; ++round) {
        std::string content(engine() % 600, 'x');
        for (char & c : content) {
            unsigned const draw = static_cast<unsigned>(engine() % 20);
            c = draw == 0 ? '\n' : draw == 1 ? '\0' : static_cast<char>('a' + draw);
        }
        scratch.write("file.txt", content);
        ZyFile direct(name);
        HostFile pieces(name);
        direct.open(round % 2 != 0 ? Read : ReadWrite);
        pieces.open(round % 2 != 0 ? Read : ReadWrite);
        for (int step = 0; step < 12; ++step) {
            unsigned const count = static_cast<unsigned>(engine() % 9);
            switch (engine() % 6) {
            case 0:
                ASSERT_EQ(direct.readRemaining().toStdString(), pieces.readRemaining().toStdString());
                break;
            case 1:
                ASSERT_EQ(direct.readAll().toStdString(), pieces.readAll().toStdString());
                break;
            case 2:
                ASSERT_EQ(direct.read(count).toStdString(), pieces.read(count).toStdString());
                break;
            case 3:
                direct.seek_read(count * 50);
                pieces.seek_read(count * 50);
                break;
            default:
                ASSERT_EQ(direct.readLine(count).toStdString(), pieces.readLine(count).toStdString());
            }
            ASSERT_EQ(direct.atEnd(), pieces.atEnd());
        }
    }
}

TEST_F(ZyFileDeviceReading, SeeksFromTheStart)
{
    scratch.write("file.txt", "abcde");
    ZyFileDevice device(name.c_str());
    device.open(Read);
    device.seek_read(3);
    EXPECT_EQ(device.read(1).toStdString(), "d");
    device.seek_write(0);
    EXPECT_EQ(device.read(1).toStdString(), "e");
    EXPECT_TRUE(device.atEnd());
    device.seek_read(1);
    EXPECT_FALSE(device.atEnd());
    EXPECT_EQ(device.readRemaining().toStdString(), "bcde");
    device.seek_read(1000);
    EXPECT_TRUE(device.atEnd());
    EXPECT_EQ(device.read(1).toStdString(), "");
    device.restart();
    EXPECT_EQ(device.read(1).toStdString(), "a");
}

TEST_F(ZyFileDeviceReading, SeekOnAClosedDeviceDoesNothing)
{
    scratch.write("file.txt", "abc");
    ZyFileDevice device(name.c_str());
    device.seek_read(2);
    device.open(Read);
    EXPECT_EQ(device.readAll().toStdString(), "abc");
}

TEST_F(ZyFileDeviceWriting, SeeksFromTheStart)
{
    ZyFileDevice device(name.c_str());
    device.open(Write);
    device.write("abcde");
    device.seek_write(1);
    device.write("XY");
    device.seek_read(0);
    device.write("Z");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "aXYZe");
}

TEST_F(ZyFileDeviceWriting, WritesEveryByte)
{
    std::string const bytes("a\0\xff\r\n", 5);
    ZyFileDevice device(name.c_str());
    device.open(Write);
    EXPECT_EQ(device.write(ZyString(bytes)), 5u);
    EXPECT_EQ(device.write(""), 0u);
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), bytes);
}

TEST_F(ZyFileDeviceWriting, MixesSmallAndLargePieces)
{
    std::string expected;
    ZyFileDevice device(name.c_str());
    device.open(Write);
    for (std::size_t i = 0; i < 300; ++i) {
        std::string const piece(i * i % 70000, static_cast<char>('a' + i % 26));
        EXPECT_EQ(device.write(ZyString(piece)), piece.size());
        expected += piece;
    }
    device.close();
    EXPECT_TRUE(scratch.read("file.txt") == expected);
}

TEST_F(ZyFileDeviceWriting, IsAlwaysAtTheEnd)
{
    ZyFileDevice device(name.c_str());
    device.open(Write);
    EXPECT_TRUE(device.atEnd());
}

TEST_F(ZyFileDeviceBoth, WriteGoesOnWhereTheReadEnded)
{
    ZyFileDevice device(name.c_str());
    device.open(ReadWrite);
    device.write("abcdef");
    EXPECT_TRUE(device.atEnd());
    device.seek_read(0);
    EXPECT_EQ(device.read(2).toStdString(), "ab");
    EXPECT_EQ(device.write("XY"), 2u);
    EXPECT_EQ(device.read(10).toStdString(), "ef");
    EXPECT_EQ(device.write("!"), 1u);
    device.seek_read(0);
    EXPECT_EQ(device.readAll().toStdString(), "abXYef!");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "abXYef!");
}

TEST_F(ZyFileDeviceBoth, Deliberate_read_write_appends)
{
    scratch.write("file.txt", "abcdef");
    ZyFileDevice device(name.c_str());
    device.open(ReadWrite);
    EXPECT_EQ(device.read(2).toStdString(), "ab");
    device.write("XY");
    EXPECT_TRUE(device.atEnd());
    EXPECT_EQ(device.read(1).toStdString(), "");
    device.seek_write(1);
    device.write("Z");
    device.seek_read(5);
    EXPECT_EQ(device.readLine(0).toStdString(), "fXYZ");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "abcdefXYZ");
}

TEST_F(ZyFileDeviceBoth, Deliberate_one_file_position)
{
    ZyFileDevice device(name.c_str());
    device.open(ReadWrite);
    device.write("abcdef");
    device.seek_read(1);
    device.write("X");
    device.seek_write(3);
    EXPECT_EQ(device.read(1).toStdString(), "d");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "aXcdef");
}

TEST_F(ZyFileDeviceBoth, LinesAndWritesAlternate)
{
    ZyFile device(name);
    device.open(ReadWrite);
    device.write("one\ntwo\nthree\n");
    device.restart();
    EXPECT_EQ(device.readLine(0).toStdString(), "one\n");
    device.write("TWO");
    EXPECT_EQ(device.readLine(0).toStdString(), "\n");
    EXPECT_EQ(device.readRemaining().toStdString(), "three\n");
    device.close();
    EXPECT_EQ(scratch.read("file.txt"), "one\nTWO\nthree\n");
}

TEST_F(ZyFileDeviceFailure, FullDiskWhileWritingALargePiece)
{
    auto const child = [&] {
        Restricted::limitFileSize(100000);
        Restricted::exitWith([&] {
            ZyFileDevice device(name.c_str());
            device.open(Write);
            try {
                device.write(ZyString(std::string(1000000, 'x')));
            } catch (ZyIOException const & failure) {
                return failure.message().toStdString() == "Error occurred on writing to file" &&
                       device.lastError().toStdString() == "Write failure" && device.mode() == Write;
            }
            return false;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(std::filesystem::file_size(name), 100000u);
}

TEST_F(ZyFileDeviceFailure, FullDiskWhileWritingSmallPieces)
{
    auto const child = [&] {
        Restricted::limitFileSize(100000);
        Restricted::exitWith([&] {
            ZyFileDevice device(name.c_str());
            device.open(Write);
            for (int i = 0; i < 50000; ++i) {
                try {
                    device.write("0123456789");
                } catch (ZyIOException const & failure) {
                    return failure.message().toStdString() == "Error occurred on writing to file" &&
                           device.lastError().toStdString() == "Write failure";
                }
            }
            return false;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(ZyFileDeviceFailure, Deliberate_file_close_is_silent_on_a_full_disk)
{
    auto const child = [&] {
        Restricted::limitFileSize(4);
        Restricted::exitWith([&] {
            ZyFileDevice device(name.c_str());
            device.open(Write);
            device.write("0123456789");
            device.close();
            return device.lastError().isEmpty();
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(ZyFileDeviceFailure, BadStreamIsToldAtTheNextOpenOnce)
{
    auto const child = [&] {
        Restricted::limitFileSize(1000);
        Restricted::exitWith([&] {
            ZyFileDevice device(name.c_str());
            device.open(Write);
            try {
                device.write(ZyString(std::string(1000000, 'x')));
            } catch (ZyIOException const &) {
            }
            device.close();
            bool const told = !device.open(Write) && device.mode() == ZyIODevice::Closed &&
                              device.lastError().toStdString() == "Failed to open file in given mode";
            return told && device.open(Write) && device.write("abc") == 3;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST_F(ZyFileDeviceFailure, FullDiskWhileTurningFromWritingToReading)
{
    auto const child = [&] {
        Restricted::limitFileSize(4);
        Restricted::exitWith([&] {
            ZyFileDevice device(name.c_str());
            device.open(ReadWrite);
            device.write("0123456789");
            return device.atEnd() && device.read(1).isEmpty();
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyFileDevice, OverridesInTheOrderOfTheFrame)
{
    struct Names : ZyFileDevice
    {
        static std::vector<std::size_t> slots()
        {
            return {virtualSlot(&ZyFileDevice::seek_read), virtualSlot(&Names::onReadLine),
                    virtualSlot(&ZyFileDevice::atEnd), virtualSlot(&Names::onWrite)};
        }
    };
    EXPECT_EQ(Names::slots(), (std::vector<std::size_t>{2, 6, 7, 11}));
}
