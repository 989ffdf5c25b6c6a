// SPDX-License-Identifier: BSD-3-Clause
// What comparisons mean must not depend on the language standard that a host is compiled with: this source is
// built under several, since from C++20 on a compiler may turn a comparison round.
#include <ZyCaseSensitiveString.h>
#include <ZyDeque.h>
#include <ZyFileType.h>
#include <ZyPair.h>
#include <ZyRef.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyStringView.h>
#include <ZyUniquePtr.h>

#include <gtest/gtest.h>

TEST(ZyComparisonLanguage, TheLeftSideDecidesAboutCase)
{
    EXPECT_TRUE(ZyString("abc") == ZyCaseSensitiveString("ABC"));
    EXPECT_FALSE(ZyCaseSensitiveString("ABC") == ZyString("abc"));
    EXPECT_FALSE(ZyString("abc") != ZyCaseSensitiveString("ABC"));
    EXPECT_TRUE(ZyCaseSensitiveString("ABC") != ZyString("abc"));
    EXPECT_TRUE(ZyStringView("abc") == ZyCaseSensitiveString("ABC"));
    EXPECT_FALSE(ZyCaseSensitiveString("ABC") == ZyStringView("abc"));
    EXPECT_FALSE(ZyCaseSensitiveString("ABC") == ZyCaseSensitiveString("abc"));
    EXPECT_TRUE(ZyString("ABC") == ZyString("abc"));
}

TEST(ZyComparisonLanguage, LiteralsAreTextOnBothSides)
{
    ZyString const text("abc");
    ZyCaseSensitiveString const exact("abc");
    EXPECT_TRUE(text == "ABC");
    EXPECT_TRUE("ABC" == text);
    EXPECT_FALSE(exact == "ABC");
    EXPECT_FALSE("ABC" == exact);
    EXPECT_TRUE("ABC" != exact);
    EXPECT_TRUE(exact != "ABC");
    EXPECT_TRUE("abc" == exact);
    EXPECT_FALSE("ABC" < exact) << "the literal is the left side and ignores case";
    EXPECT_FALSE(text < "ABC");
}

TEST(ZyComparisonLanguage, PairsAndPointersCompareWithoutAmbiguity)
{
    EXPECT_TRUE((ZyPair<ZyString, ZyString>("a", "b") == ZyPair<ZyString, ZyString>("A", "B")));
    ZySharedPtr<int> const shared(new int(1));
    ZySharedPtr<int const> const same(shared);
    EXPECT_TRUE(shared == same);
    EXPECT_TRUE(shared != nullptr);
    EXPECT_TRUE(nullptr != shared);
    ZyUniquePtr<int> const none;
    EXPECT_TRUE(none == nullptr);
    EXPECT_TRUE(nullptr == none);
    int one = 1;
    int alsoOne = 1;
    EXPECT_TRUE(ZyRef<int>(one) == ZyRef<int>(alsoOne));
    EXPECT_TRUE((ZyDeque<ZyString>{"a"} == ZyDeque<ZyString>{"A"}));
    ZyDeque<int> const numbers{1, 2};
    EXPECT_TRUE(numbers.begin() == numbers.begin());
    EXPECT_TRUE(numbers.begin() != numbers.end());
}

TEST(ZyComparisonLanguage, KindsOfFileCompareByNumber)
{
    ZyFileType const type(ZyFileType::CSV);
    ZyFileType const other(ZyFileType::Zip);
    EXPECT_TRUE(type == ZyFileType::CSV);
    EXPECT_TRUE(ZyFileType::CSV == type);
    EXPECT_TRUE(type == 4);
    EXPECT_FALSE(type == other);
    EXPECT_TRUE(type != other);
    EXPECT_TRUE(type != ZyFileType::Zip);
    EXPECT_TRUE(ZyFileType::Zip != type);
}
