// SPDX-License-Identifier: BSD-3-Clause
// The plain file of hosts.
#include <ZyFile.h>

#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::is_base_of_v<ZyFileDevice, ZyFile> && sizeof(ZyFile) == sizeof(ZyFileDevice));
static_assert(!std::is_copy_constructible_v<ZyFile> && !std::is_copy_assignable_v<ZyFile>);

TEST(ZyFile, HasItsPath)
{
    EXPECT_TRUE(ZyFile().path().isNull());
    EXPECT_EQ(ZyFile("a/b.txt").path(), "a\\b.txt");
}

TEST(ZyFile, ReadsWhatItHasWritten)
{
    ScratchDirectory const scratch;
    ZyFile file(scratch / "a.txt");
    file.open(ZyIODevice::Write);
    file.write("one\ntwo\n");
    file.close();
    file.open(ZyIODevice::Read);
    EXPECT_EQ(file.readLine(0).toStdString(), "one\n");
    EXPECT_EQ(file.readRemaining().toStdString(), "two\n");
}

TEST(ZyFile, TellsWhetherAPathExists)
{
    ScratchDirectory const scratch;
    EXPECT_FALSE(ZyFile::Exists(scratch / "a"));
    EXPECT_TRUE(ZyFile::Exists(scratch.write("a", "")));
    EXPECT_TRUE(ZyFile::Exists(scratch.path()));
    EXPECT_FALSE(ZyFile::Exists(ZyFilePath()));
}
