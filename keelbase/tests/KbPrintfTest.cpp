// SPDX-License-Identifier: BSD-3-Clause
// The layout of a print argument and what its constructors set.
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <type_traits>

static_assert(std::is_trivially_copyable_v<PrintfArg> && std::is_standard_layout_v<PrintfArg>);
static_assert(offsetof(PrintfArg, kind) == 0 && offsetof(PrintfArg, spare) == sizeof(int));
static_assert(offsetof(PrintfArg, value) == 2 * sizeof(int) && sizeof(PrintfArg) == 2 * sizeof(int) + 8);

TEST(PrintfArg, IsAllZeroByDefault)
{
    PrintfArg const argument;
    std::array<unsigned char, sizeof argument> bytes;
    bytes.fill(0xFF);
    std::memcpy(bytes.data(), &argument, bytes.size());
    EXPECT_THAT(bytes, testing::Each(0));
}

TEST(PrintfArg, HoldsTextByPointer)
{
    char const * const text = "text";
    PrintfArg const argument(text);
    EXPECT_EQ(argument.kind, PrintfArg::Text);
    EXPECT_EQ(argument.spare, 0);
    EXPECT_EQ(argument.value.text, text);
}

TEST(PrintfArg, HoldsNumbersWithTheirKind)
{
    EXPECT_EQ(PrintfArg(-1).kind, PrintfArg::Int);
    EXPECT_EQ(PrintfArg(-1).value.i, -1);
    EXPECT_EQ(PrintfArg(4294967295u).value.i, 4294967295);
    EXPECT_EQ(PrintfArg(kb_int64{1} << 40).value.i, 1099511627776);
    EXPECT_EQ(PrintfArg(0.5).kind, PrintfArg::Real);
    EXPECT_EQ(PrintfArg(0.5).value.d, 0.5);
    EXPECT_EQ(PrintfArg(0.5).spare, 0);
}
