// SPDX-License-Identifier: BSD-3-Clause
// Tests of the byte buffer.
#include <ZyByteArray.h>

#include <ThrowsMessage.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyByteArray) == 2 * sizeof(void *), "a table pointer and the state");
static_assert(std::has_virtual_destructor_v<ZyByteArray> && std::is_copy_constructible_v<ZyByteArray>);

TEST(ZyByteArray, DefaultHasNoBytesAndATerminator)
{
    ZyByteArray const bytes;
    EXPECT_EQ(bytes.length(), 0);
    ASSERT_NE(bytes.data(), nullptr);
    EXPECT_EQ(bytes.data()[0], '\0');
}

TEST(ZyByteArray, LengthAloneSetsTheTerminatorOnly)
{
    ZyByteArray const bytes(3);
    EXPECT_EQ(bytes.length(), 3);
    EXPECT_EQ(bytes.data()[3], '\0');
}

TEST(ZyByteArray, CopiesTheData)
{
    ZyByteArray const bytes(3, "a\0c");
    EXPECT_EQ(bytes.length(), 3);
    EXPECT_EQ(std::memcmp(bytes.data(), "a\0c", 4), 0);
}

TEST(ZyByteArray, NullDataLeavesTheBytesUnset)
{
    ZyByteArray const bytes(3, nullptr);
    EXPECT_EQ(bytes.length(), 3);
    EXPECT_EQ(bytes.data()[3], '\0');
}

TEST(ZyByteArray, NegativeLengthCountsAsNone)
{
    ZyByteArray const plain(-1);
    EXPECT_EQ(plain.length(), 0);
    EXPECT_EQ(plain.data()[0], '\0');
    ZyByteArray const filled(INT_MIN, "abc");
    EXPECT_EQ(filled.length(), 0);
    ZyByteArray resized(2);
    resized.resize(-7);
    EXPECT_EQ(resized.length(), 0);
    EXPECT_EQ(resized.data()[0], '\0');
}

TEST(ZyByteArray, IndexReadsAndWrites)
{
    ZyByteArray bytes(2, "ab");
    bytes[1] = 'x';
    ZyByteArray const & read = bytes;
    EXPECT_EQ(read[0], 'a');
    EXPECT_EQ(read[1], 'x');
    EXPECT_STREQ(bytes.data(), "ax");
}

TEST(ZyByteArray, IndexOutsideTellsIndexAndLength)
{
    ZyByteArray bytes(3, "abc");
    ZyByteArray const & read = bytes;
    EXPECT_ZY_THROW(bytes[3], ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(read[3], ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(bytes[-1], ZyIndexOutOfBoundsException, "Index out of bounds [-1,3]");
    EXPECT_ZY_THROW(read[INT_MAX], ZyIndexOutOfBoundsException, "Index out of bounds [2147483647,3]");
    EXPECT_NO_THROW(static_cast<void>(bytes[2]));
}

TEST(ZyByteArray, EmptyArrayHasNoValidIndex)
{
    ZyByteArray bytes;
    EXPECT_ZY_THROW(bytes[0], ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyByteArray, CopiesAreDeep)
{
    ZyByteArray first(3, "abc");
    ZyByteArray const second(first);
    first[0] = 'X';
    EXPECT_STREQ(second.data(), "abc");
    EXPECT_NE(first.data(), second.data());
}

TEST(ZyByteArray, MovingCopies)
{
    ZyByteArray first(3, "abc");
    ZyByteArray second(std::move(first));
    EXPECT_STREQ(second.data(), "abc");
    EXPECT_STREQ(first.data(), "abc");
    first = std::move(second);
    EXPECT_STREQ(first.data(), "abc");
}

TEST(ZyByteArray, AssignmentTakesLengthAndBytes)
{
    ZyByteArray target(1, "x");
    target = ZyByteArray(4, "long");
    EXPECT_EQ(target.length(), 4);
    EXPECT_STREQ(target.data(), "long");
    target = ZyByteArray();
    EXPECT_EQ(target.length(), 0);
    EXPECT_STREQ(target.data(), "");
}

TEST(ZyByteArray, AssignsToItself)
{
    ZyByteArray bytes(3, "abc");
    ZyByteArray const & same = bytes;
    bytes = same;
    EXPECT_EQ(bytes.length(), 3);
    EXPECT_STREQ(bytes.data(), "abc");
}

TEST(ZyByteArray, Deliberate_resize_discards)
{
    ZyByteArray bytes(3, "abc");
    bytes.resize(5);
    EXPECT_EQ(bytes.length(), 5);
    EXPECT_EQ(bytes.data()[5], '\0');
    std::memset(&bytes[0], 'z', 5);
    EXPECT_STREQ(bytes.data(),
                 "zzzzz"); // nothing of the old content is promised, so all of it may be written
    bytes.resize(0);
    EXPECT_EQ(bytes.length(), 0);
    EXPECT_EQ(bytes.data()[0], '\0');
}

TEST(ZyByteArray, ResizeGivesAnotherBuffer)
{
    ZyByteArray bytes(64, nullptr);
    char const * const before = bytes.data();
    bytes.resize(64);
    EXPECT_NE(bytes.data(), before);
}

TEST(ZyByteArray, HoldsALargeBuffer)
{
    ZyByteArray bytes(1 << 20);
    bytes[(1 << 20) - 1] = 'e';
    EXPECT_EQ(bytes.data()[1 << 20], '\0');
    EXPECT_ZY_THROW(bytes[1 << 20], ZyIndexOutOfBoundsException, "Index out of bounds [1048576,1048576]");
}
