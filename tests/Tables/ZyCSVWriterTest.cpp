// SPDX-License-Identifier: BSD-3-Clause
// Comma-separated text onto a device.
#include <ZyCSVWriter.h>

#include <ZyException.h>
#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>

#include "TestDevices.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyCSVWriter) == 2 * sizeof(void *));
static_assert(std::has_virtual_destructor_v<ZyCSVWriter>);
static_assert(!std::is_copy_constructible_v<ZyCSVWriter> && !std::is_copy_assignable_v<ZyCSVWriter>);

namespace
{
using Texts = std::vector<std::string>;

std::string contentOf(ZyStringDevice const & device)
{
    return device.content().toStdString();
}
} // namespace

TEST(ZyCSVWriter, WritesValuesAndALineEnd)
{
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    writer.addValue(1);
    writer.addValue(2);
    writer.endLine();
    EXPECT_EQ(contentOf(device), "1,2\r\n");
    writer.endLine();
    EXPECT_EQ(contentOf(device), "1,2\r\n");
}

TEST(ZyCSVWriter, Deliberate_csv_start_line_ends_a_line)
{
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    writer.startLine();
    EXPECT_EQ(contentOf(device), "");
    writer.addValue("a");
    writer.startLine();
    EXPECT_EQ(contentOf(device), "a\r\n");
    writer.addValue("b");
    EXPECT_EQ(contentOf(device), "a\r\nb");
}

TEST(ZyCSVWriter, WritesEveryKindAsItsText)
{
    std::vector<ZyVariant> const values{
        ZyVariant(),
        true,
        false,
        ZyFilePath("a/b"),
        ZyPair<ZyFilePath, ZyFilePath>{ZyFilePath("a"), ZyFilePath("b")},
        -2147483647 - 1,
        2147483647,
        0.1 + 0.2,
        1234567.0,
        -0.0,
        1e300,
        5e-324,
        std::numeric_limits<double>::infinity(),
        std::numeric_limits<double>::quiet_NaN(),
        4294967295u,
        "",
        "text",
        ZyString(std::string("a\0b", 3)),
        "\xFF\xC3\x28",
        ZyPair<ZyString, ZyString>{"a", "b"},
    };
    RecordingDevice device;
    ZyCSVWriter writer(device);
    std::string const comma(",");
    for (std::size_t i = 0; i < values.size(); ++i) {
        writer.addValue(values[i]);
        EXPECT_EQ(device.writes.back(), (i > 0 ? comma : "") + values[i].toString().toStdString());
    }
}

TEST(ZyCSVWriter, WritesEachValueInOnePiece)
{
    RecordingDevice device;
    ZyCSVWriter writer(device);
    writer.addValue(1);
    writer.addValue("two");
    writer.addValue(3.5);
    writer.endLine();
    writer.addValue("");
    writer.addValue("");
    writer.endLine();
    EXPECT_EQ(device.writes, (Texts{"1", ",two", ",3.5", "\r\n", "", ",", "\r\n"}));
}

TEST(ZyCSVWriter, Deliberate_csv_writer_quotes_nothing)
{
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    writer.addValue("a,b");
    writer.addValue("say \"x\"");
    writer.addValue("two\nlines");
    EXPECT_EQ(contentOf(device), "a,b,say \"x\",two\nlines");
}

TEST(ZyCSVWriter, OpensAClosedDeviceForWriting)
{
    ZyStringDevice device("old");
    ZyCSVWriter writer(device);
    EXPECT_EQ(device.mode(), ZyIODevice::Write);
    EXPECT_EQ(contentOf(device), "");
}

TEST(ZyCSVWriter, RefusesADeviceInReadMode)
{
    ZyStringDevice device("old");
    device.open(ZyIODevice::Read);
    EXPECT_ZY_THROW(ZyCSVWriter{device}, ZyInvalidCallException,
                    "Device is in read mode, cannot write to it");
    EXPECT_EQ(contentOf(device), "old");
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
}

TEST(ZyCSVWriter, TakesADeviceOfAnyOtherModeAsItIs)
{
    for (int const mode : {2, 3, 4, 2 + 8, 1 + 16}) {
        RecordingDevice device;
        device.open(static_cast<ZyIODevice::Mode>(mode));
        ZyCSVWriter writer(device);
        EXPECT_EQ(device.mode(), mode);
    }
    ZyStringDevice device("old,");
    device.open(ZyIODevice::Append);
    ZyCSVWriter writer(device);
    writer.addValue(1);
    EXPECT_EQ(contentOf(device), "old,1");
}

TEST(ZyCSVWriter, DoesNotLookAtTheResultOfOpening)
{
    RecordingDevice device;
    device.opens = false;
    ZyCSVWriter writer(device);
    EXPECT_ZY_THROW(writer.addValue(1), ZyIOInvalidWriteException, "");
}

TEST(ZyCSVWriter, PassesOnWhatOpeningThrows)
{
    ZyFile file(ZyFilePath("no-such-directory/file.csv"));
    EXPECT_ZY_THROW(ZyCSVWriter{file}, ZyCannotOpenFileException,
                    "Cannot open file: no-such-directory\\file.csv");
}

TEST(ZyCSVWriter, DoesNotCountAValueWhoseWriteFailed)
{
    RecordingDevice device;
    device.failingWrite = 0;
    ZyCSVWriter writer(device);
    EXPECT_ZY_THROW(writer.addValue("lost"), ZyIOException, "Write refused");
    writer.endLine();
    EXPECT_EQ(device.writes, Texts{});
    writer.addValue("first");
    writer.addValue("second");
    EXPECT_EQ(device.writes, (Texts{"first", ",second"}));
}

TEST(ZyCSVWriter, KeepsALineUnderWayWhoseEndFailed)
{
    RecordingDevice device;
    device.failingWrite = 1;
    ZyCSVWriter writer(device);
    writer.addValue("a");
    EXPECT_ZY_THROW(writer.endLine(), ZyIOException, "Write refused");
    writer.addValue("b");
    writer.endLine();
    EXPECT_EQ(device.writes, (Texts{"a", ",b", "\r\n"}));
}

TEST(ZyCSVWriter, FailsOnADeviceThatWasClosed)
{
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    writer.addValue(1);
    device.close();
    EXPECT_ZY_THROW(writer.addValue(2), ZyIOInvalidWriteException, "");
    EXPECT_ZY_THROW(writer.endLine(), ZyIOInvalidWriteException, "");
}

TEST(ZyCSVWriter, NeitherEndsTheLineNorClosesTheDeviceWhenItGoes)
{
    ZyStringDevice device;
    {
        ZyCSVWriter writer(device);
        writer.addValue(1);
    }
    EXPECT_EQ(contentOf(device), "1");
    EXPECT_EQ(device.mode(), ZyIODevice::Write);
}

TEST(ZyCSVWriter, ReportsAFullDisk)
{
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no device that is always full";
    }
    ZyFile file(ZyFilePath("/dev/full"));
    file.open(ZyIODevice::Append);
    ZyCSVWriter writer(file);
    ZyVariant const value(ZyString(std::string(1000, 'x')));
    auto const fill = [&] {
        for (int i = 0; i < 1000; ++i) {
            writer.addValue(value);
        }
    };
    EXPECT_ZY_THROW(fill(), ZyIOException, "Error occurred on writing to file");
}

TEST(ZyCSVWriter, WritesNumbersAsTheCLocaleDoes)
{
    if (!GlobalLocale::Exists("de_DE.UTF-8")) {
        GTEST_SKIP() << "no German locale";
    }
    GlobalLocale const guard(std::locale("de_DE.UTF-8"));
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    writer.addValue(1234.5);
    writer.addValue(1234567);
    writer.addValue(1234567u);
    EXPECT_EQ(contentOf(device), "1234.5,1234567,1234567");
}
