// SPDX-License-Identifier: BSD-3-Clause
// The string device: what each mode does to content and positions, reading, overwriting.
#include <ZyStringDevice.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

static_assert(std::is_base_of_v<ZyIODevice, ZyStringDevice>);
static_assert(sizeof(ZyStringDevice) == sizeof(ZyIODevice) + sizeof(void *));
static_assert(!std::is_copy_constructible_v<ZyStringDevice> && !std::is_copy_assignable_v<ZyStringDevice>);

namespace
{
std::string content(ZyStringDevice const & device)
{
    return device.content().toStdString();
}

// Shows the hooks, which do not ask for a mode.
class Open : public ZyStringDevice
{
public:
    using ZyStringDevice::onReadRemaining;
    using ZyStringDevice::onWrite;
    using ZyStringDevice::ZyStringDevice;
};

// What opening does to the content "abc" with both positions at 1.
struct Opening
{
    int mode;
    char const * content;
    bool readsFromTheFront;
    char const * writtenX; ///< the content when "X" has been written then
};

class ZyStringDeviceOpening : public testing::TestWithParam<Opening>
{
protected:
    ZyStringDeviceOpening()
    {
        device.seek_read(1);
        device.seek_write(1);
        opened = device.open(ZyIODevice::Mode(GetParam().mode));
    }

    Open device{"abc"};
    bool opened;
};
} // namespace

TEST_P(ZyStringDeviceOpening, SetsTheContent)
{
    EXPECT_TRUE(opened);
    EXPECT_EQ(device.mode(), GetParam().mode);
    EXPECT_EQ(content(device), GetParam().content);
}

TEST_P(ZyStringDeviceOpening, SetsTheReadPosition)
{
    std::string const read = device.onReadRemaining().toStdString();
    EXPECT_EQ(read, GetParam().readsFromTheFront ? GetParam().content : "");
}

TEST_P(ZyStringDeviceOpening, SetsTheWritePosition)
{
    device.onWrite("X");
    EXPECT_EQ(content(device), GetParam().writtenX);
}

INSTANTIATE_TEST_SUITE_P(ZyStringDevice, ZyStringDeviceOpening,
                         testing::Values(Opening{0, "abc", false, "aXc"}, Opening{1, "abc", true, "aXc"},
                                         Opening{2, "", false, "X"}, Opening{3, "abc", true, "abcX"},
                                         Opening{4, "abc", false, "abcX"}, Opening{5, "abc", true, "aXc"},
                                         Opening{6, "abc", false, "abcX"}, Opening{7, "abc", true, "abcX"},
                                         Opening{8, "", false, "X"}, Opening{9, "abc", true, "aXc"},
                                         Opening{10, "", false, "X"}, Opening{11, "", true, "X"},
                                         Opening{12, "abc", false, "abcX"}, Opening{14, "abc", false, "abcX"},
                                         Opening{15, "", true, "X"}, Opening{16, "abc", false, "aXc"}));

TEST(ZyStringDevice, OpeningForReadingStartsAtTheFrontAndForWritingLeavesTheReadPosition)
{
    ZyStringDevice device("abc");
    device.seek_read(2);
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.read(1).toStdString(), "a");
    device.close();
    device.open(ZyIODevice::Append);
    device.write("d");
    device.close();
    device.seek_write(1);
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readAll().toStdString(), "abcd");
    device.close();
}

TEST(ZyStringDevice, IsMadeFromEveryKindOfText)
{
    ZyString text("abc");
    EXPECT_EQ(content(ZyStringDevice()), "");
    EXPECT_EQ(content(ZyStringDevice("abc")), "abc");
    EXPECT_EQ(content(ZyStringDevice(text)), "abc");
    EXPECT_EQ(content(ZyStringDevice(std::move(text))), "abc");
    EXPECT_TRUE(text.isEmpty());
    char const * null = nullptr;
    EXPECT_EQ(content(ZyStringDevice(null)), "");
}

TEST(ZyStringDevice, OpensClosedAndStaysClosed)
{
    ZyStringDevice device("abc");
    EXPECT_TRUE(device.open(ZyIODevice::Closed));
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
    EXPECT_EQ(content(device), "abc");
}

TEST(ZyStringDevice, KeepsItsContentWhenItIsClosed)
{
    ZyStringDevice device;
    device.open(ZyIODevice::Write);
    device.write("abc");
    device.close();
    EXPECT_EQ(content(device), "abc");
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readAll().toStdString(), "abc");
}

TEST(ZyStringDevice, WriteEmptiesAndAppendKeeps)
{
    ZyStringDevice device("old");
    device.open(ZyIODevice::Append);
    device.write("new");
    EXPECT_EQ(content(device), "oldnew");
    device.close();
    device.open(ZyIODevice::Write);
    EXPECT_EQ(content(device), "");
    device.write("x");
    EXPECT_EQ(content(device), "x");
}

TEST(ZyStringDevice, ReadsPiecesAndKnowsItsEnd)
{
    ZyStringDevice device("abcde");
    EXPECT_TRUE(device.atEnd());
    device.open(ZyIODevice::Read);
    EXPECT_FALSE(device.atEnd());
    EXPECT_EQ(device.read(2).toStdString(), "ab");
    EXPECT_EQ(device.read(0).toStdString(), "");
    EXPECT_EQ(device.read(~0u).toStdString(), "cde");
    EXPECT_TRUE(device.atEnd());
    EXPECT_EQ(device.read(1).toStdString(), "");
    device.close();
    device.open(ZyIODevice::Append);
    EXPECT_TRUE(device.atEnd());
}

TEST(ZyStringDevice, ReadsAllFromAnywhere)
{
    ZyStringDevice device("abcde");
    device.open(ZyIODevice::Read);
    device.read(2);
    EXPECT_EQ(device.readAll().toStdString(), "abcde");
    EXPECT_TRUE(device.atEnd());
}

TEST(ZyStringDevice, ReadsWhatRemains)
{
    ZyStringDevice device("abcde");
    device.open(ZyIODevice::Read);
    device.read(2);
    EXPECT_EQ(device.readRemaining().toStdString(), "cde");
    EXPECT_EQ(device.readRemaining().toStdString(), "");
    device.seek_read(0);
    EXPECT_EQ(device.readRemaining().toStdString(), "abcde");
    EXPECT_TRUE(device.atEnd());
}

TEST(ZyStringDevice, ReadsLines)
{
    ZyStringDevice device("ab\r\n\ncd");
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readLine(0).toStdString(), "ab\r\n");
    EXPECT_EQ(device.readLine(0).toStdString(), "\n");
    EXPECT_EQ(device.readLine(0).toStdString(), "cd");
    EXPECT_EQ(device.readLine(0).toStdString(), "");
}

TEST(ZyStringDevice, LineHasAMaximum)
{
    ZyStringDevice device("abcdef\n");
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readLine(3).toStdString(), "abc");
    EXPECT_EQ(device.readLine(4).toStdString(), "def\n");
    device.seek_read(0);
    EXPECT_EQ(device.readLine(100).toStdString(), "abcdef\n");
}

TEST(ZyStringDevice, ReadsNulsLikeOtherBytes)
{
    std::string const text("a\0b\n\0", 5);
    ZyStringDevice device{ZyString(text)};
    device.open(ZyIODevice::Read);
    EXPECT_EQ(device.readLine(0).toStdString(), std::string("a\0b\n", 4));
    EXPECT_EQ(device.readRemaining().toStdString(), std::string("\0", 1));
    EXPECT_EQ(device.readAll().toStdString(), text);
}

TEST(ZyStringDevice, Deliberate_text_seeks_in_any_mode)
{
    ZyStringDevice device("abc");
    device.seek_read(1000);
    device.seek_write(1000);
    device.open(ZyIODevice::ReadWrite);
    device.seek_read(1000);
    EXPECT_TRUE(device.atEnd());
    device.write("d");
    EXPECT_EQ(content(device), "abcd");
    EXPECT_EQ(device.read(5).toStdString(), "d");
    device.restart();
    EXPECT_EQ(device.read(1).toStdString(), "a");
    device.write("X");
    EXPECT_EQ(content(device), "Xbcd");
}

TEST(ZyStringDevice, OverwritesAndGoesOnBehindTheEnd)
{
    ZyStringDevice device("abc");
    device.open(ZyIODevice::ReadWrite);
    device.seek_write(1);
    EXPECT_EQ(device.write("WXYZ"), 4u);
    EXPECT_EQ(content(device), "aWXYZ");
    EXPECT_EQ(content(device).size(), 5u);
    device.write("!");
    EXPECT_EQ(content(device), "aWXYZ!");
}

TEST(ZyStringDevice, OverwritesInTheMiddle)
{
    ZyStringDevice device("abcdef");
    device.open(ZyIODevice::ReadWrite);
    device.seek_write(2);
    EXPECT_EQ(device.write("XY"), 2u);
    EXPECT_EQ(content(device), "abXYef");
    EXPECT_EQ(device.write(""), 0u);
    EXPECT_EQ(content(device), "abXYef");
}

TEST(ZyStringDevice, Deliberate_overwrite_ends_at_nul)
{
    ZyStringDevice device("abcdef");
    device.open(ZyIODevice::ReadWrite);
    device.seek_write(1);
    EXPECT_EQ(device.write(ZyString(std::string("X\0YZ", 4))), 4u);
    EXPECT_EQ(content(device), "aXf");
    // The position is 5 now, beyond the end: nothing is covered by what follows.
    EXPECT_EQ(device.write("Q"), 1u);
    EXPECT_EQ(content(device), "aXfQ");
    EXPECT_EQ(device.write("R"), 1u);
    EXPECT_EQ(content(device), "aXfQR");
}

TEST(ZyStringDevice, NulsAppendedStay)
{
    ZyStringDevice device("ab");
    device.open(ZyIODevice::ReadWrite);
    device.seek_write(1);
    EXPECT_EQ(device.write(ZyString(std::string("XY\0Z", 4))), 4u);
    EXPECT_EQ(content(device), std::string("aXY\0Z", 5));
}

TEST(ZyStringDevice, WritesItsOwnContent)
{
    ZyStringDevice device("abc");
    device.open(ZyIODevice::ReadWrite);
    EXPECT_EQ(device.write(device.content()), 3u);
    EXPECT_EQ(content(device), "abcabc");
    EXPECT_EQ(device.lastError().toStdString(), "");
    device.seek_write(1);
    EXPECT_EQ(device.write(device.content()), 6u);
    EXPECT_EQ(content(device), "aabcabc");
}

TEST(ZyStringDevice, RefusesTheWrongMode)
{
    ZyStringDevice device("abc");
    EXPECT_ZY_THROW(device.read(1), ZyIOInvalidReadException, "");
    EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
    device.open(ZyIODevice::Read);
    EXPECT_ZY_THROW(device.write("x"), ZyIOInvalidWriteException, "");
    EXPECT_FALSE(device.open(ZyIODevice::Read));
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
}

TEST(ZyStringDevice, TakesManySmallWrites)
{
    ZyStringDevice device;
    device.open(ZyIODevice::Write);
    for (int i = 0; i < 100000; ++i) {
        device.write("0123456789");
    }
    EXPECT_EQ(device.content().size(), 1000000u);
}
