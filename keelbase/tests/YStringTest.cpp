// SPDX-License-Identifier: BSD-3-Clause
// The support library's string: what it holds, how it converts, how it compares.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <type_traits>
#include <utility>

static_assert(!std::is_convertible_v<YString, char const *>,
              "would make comparisons with literals ambiguous");
static_assert(std::is_convertible_v<char const *, YString>);
static_assert(std::is_convertible_v<std::string, YString>);
static_assert(!std::is_convertible_v<int, YString>, "a number must not slip into a text parameter");
static_assert(!std::is_convertible_v<unsigned, YString>);
static_assert(!std::is_convertible_v<kb_int64, YString>);
static_assert(std::is_base_of_v<YString, TempString>);
static_assert(std::is_nothrow_move_constructible_v<YString>);
static_assert(sizeof(kb_int64) == 8);

TEST(YString, IsEmptyByDefault)
{
    YString const text;
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_EQ(text.length(), 0);
    EXPECT_TRUE(text.isEmpty());
}

TEST(YString, TakesANullPointerAsTheEmptyText)
{
    char const * const none = nullptr;
    EXPECT_TRUE(YString(none).isEmpty());
    EXPECT_TRUE(TempString(none).isEmpty());
}

TEST(YString, HoldsItsOwnCopy)
{
    char source[] = "abc";
    YString const text(source);
    source[0] = 'x';
    EXPECT_STREQ(text.c_str(), "abc");
    EXPECT_EQ(text.length(), 3);
    EXPECT_FALSE(text.isEmpty());
}

TEST(YString, EndsAtTheFirstNul)
{
    YString const text(std::string("ab\0cd", 5));
    EXPECT_EQ(text.length(), 2);
    EXPECT_TRUE(text == "ab");
    EXPECT_TRUE(text + "e" == "abe");
}

TEST(YString, RendersIntegersInDecimal)
{
    EXPECT_STREQ(YString(0).c_str(), "0");
    EXPECT_STREQ(YString(-7).c_str(), "-7");
    EXPECT_STREQ(YString(INT_MAX).c_str(), "2147483647");
    EXPECT_STREQ(YString(INT_MIN).c_str(), "-2147483648");
    EXPECT_STREQ(YString(UINT_MAX).c_str(), "4294967295");
    EXPECT_STREQ(YString(kb_int64{LLONG_MAX}).c_str(), "9223372036854775807");
    EXPECT_STREQ(YString(kb_int64{LLONG_MIN}).c_str(), "-9223372036854775808");
}

TEST(YString, ComparesByBytes)
{
    YString const text("abc");
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE("abc" == text);
    EXPECT_FALSE(text == "ABC");
    EXPECT_TRUE(text != "ABC");
    EXPECT_TRUE(YString("ABC") < text);
    EXPECT_FALSE(text < text);
    EXPECT_TRUE(YString("z") < YString("\xC3\xA9"));
}

TEST(YString, ComparesAsciiLettersWithoutCase)
{
    EXPECT_EQ(YString("aBc").compareNoCase("AbC"), 0);
    EXPECT_LT(YString("ab").compareNoCase("ABC"), 0);
    EXPECT_GT(YString("ABC").compareNoCase("ab"), 0);
    EXPECT_LT(YString("a").compareNoCase("B"), 0);
    EXPECT_NE(YString("[").compareNoCase("{"), 0);
    EXPECT_NE(YString("\xC3\xA9").compareNoCase("\xC3\x89"), 0);
    EXPECT_GT(YString("\xFF").compareNoCase("z"), 0);
    EXPECT_EQ(YString().compareNoCase(""), 0);
}

TEST(YString, Appends)
{
    YString text("a");
    text += "b";
    text += text;
    EXPECT_STREQ(text.c_str(), "abab");
    EXPECT_STREQ(("x" + text + YString(1)).c_str(), "xabab1");
    EXPECT_STREQ(text.c_str(), "abab");
}

TEST(YString, CanBeAssignedAfterItWasMovedFrom)
{
    YString source("a text that is longer than the small buffer");
    YString const target(std::move(source));
    source = "new";
    EXPECT_STREQ(source.c_str(), "new");
    EXPECT_STREQ(target.c_str(), "a text that is longer than the small buffer");
}

TEST(TempString, IsAYStringInAllButItsType)
{
    TempString const text("abc");
    YString copy = text;
    copy += "d";
    EXPECT_TRUE(copy == "abcd");
    EXPECT_TRUE(text == "abc");
    EXPECT_TRUE(TempString(copy) == copy);
    EXPECT_STREQ(TempString(5).c_str(), "5");
}
