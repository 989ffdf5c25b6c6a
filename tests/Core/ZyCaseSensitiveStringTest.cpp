// SPDX-License-Identifier: BSD-3-Clause
// Tests of the string whose equality respects case, and of the converter interface.
#include <ZyCaseSensitiveString.h>
#include <ZyStringConverter.h>
#include <ZyStringView.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

static_assert(sizeof(ZyCaseSensitiveString) == sizeof(ZyString), "it adds no data");
static_assert(std::is_base_of_v<ZyString, ZyCaseSensitiveString>);
static_assert(std::is_copy_constructible_v<ZyCaseSensitiveString> &&
              std::is_move_assignable_v<ZyCaseSensitiveString>);
static_assert(std::has_virtual_destructor_v<ZyStringConverter<double>> &&
              std::is_abstract_v<ZyStringConverter<double>>);

TEST(ZyCaseSensitiveString, EqualityRespectsCase)
{
    ZyCaseSensitiveString const upper("Abc");
    ZyCaseSensitiveString const lower("abc");
    EXPECT_FALSE(upper == lower);
    EXPECT_TRUE(upper != lower);
    EXPECT_TRUE(upper == ZyCaseSensitiveString("Abc"));
    EXPECT_FALSE(upper != ZyCaseSensitiveString("Abc"));
}

TEST(ZyCaseSensitiveString, EqualityWithLiteralsRespectsCase)
{
    ZyCaseSensitiveString const text("Abc");
    EXPECT_TRUE(text == "Abc");
    EXPECT_FALSE(text == "abc");
    EXPECT_FALSE(text != "Abc");
    EXPECT_TRUE(text != "abc");
    EXPECT_TRUE("Abc" == text);
    EXPECT_FALSE("abc" == text);
    EXPECT_TRUE("abc" != text);
}

TEST(ZyCaseSensitiveString, NullPointerCountsAsEmptyText)
{
    char const * const none = nullptr;
    EXPECT_TRUE(ZyCaseSensitiveString() == none);
    EXPECT_TRUE(ZyCaseSensitiveString("a") != none);
}

TEST(ZyCaseSensitiveString, EqualityWithOtherTextsRespectsCase)
{
    ZyCaseSensitiveString const text("Abc");
    EXPECT_TRUE(text == ZyString("Abc"));
    EXPECT_FALSE(text == ZyString("abc"));
    EXPECT_FALSE(text == ZyStringView("abc"));
    EXPECT_TRUE(text == ZyStringView("Abc"));
}

TEST(ZyCaseSensitiveString, LeftSideDecides)
{
    ZyCaseSensitiveString const text("Abc");
    EXPECT_TRUE(ZyString("abc") == text);
    EXPECT_FALSE(ZyString("abc") != text);
    EXPECT_TRUE(ZyStringView("abc") == text);
}

TEST(ZyCaseSensitiveString, EqualityThroughTheBaseRespectsCase)
{
    ZyCaseSensitiveString const text("Abc");
    ZyComparableString const & base = text;
    EXPECT_FALSE(base == ZyString("abc"));
    EXPECT_FALSE(base == "abc");
    EXPECT_TRUE(base < ZyString("abc"));
}

TEST(ZyCaseSensitiveString, Deliberate_case_sensitive_order_is_partial)
{
    ZyCaseSensitiveString const upper("Abc");
    ZyCaseSensitiveString const lower("abc");
    EXPECT_FALSE(upper == lower);
    EXPECT_TRUE(upper < lower);
    EXPECT_TRUE(upper <= lower);
    EXPECT_TRUE(upper >= lower);
    EXPECT_FALSE(upper > lower);
    EXPECT_FALSE(lower < upper);
}

TEST(ZyCaseSensitiveString, BytesFrom128OnComeBeforeAscii)
{
    EXPECT_TRUE(ZyCaseSensitiveString("\xC3\xA9") < ZyCaseSensitiveString("a"));
    EXPECT_TRUE(ZyCaseSensitiveString("_") < ZyCaseSensitiveString("a"));
    EXPECT_FALSE(ZyCaseSensitiveString("_") < ZyCaseSensitiveString("A"));
}

TEST(ZyCaseSensitiveString, ShorterOfTwoEqualBeginningsIsLess)
{
    EXPECT_TRUE(ZyCaseSensitiveString("ab") < ZyCaseSensitiveString("abc"));
    EXPECT_TRUE(ZyCaseSensitiveString() < ZyCaseSensitiveString("a"));
    EXPECT_FALSE(ZyCaseSensitiveString() < ZyCaseSensitiveString());
}

TEST(ZyCaseSensitiveString, ComparesPastEmbeddedNul)
{
    ZyCaseSensitiveString const a(ZyString(std::string("a\0b", 3)));
    ZyCaseSensitiveString const b(ZyString(std::string("a\0B", 3)));
    EXPECT_TRUE(a != b);
    EXPECT_TRUE(b < a);
    EXPECT_FALSE(a == "a");
}

TEST(ZyCaseSensitiveString, IsMadeFromStrings)
{
    ZyString source("a text that is too long for the small buffer");
    ZyCaseSensitiveString const copied(source);
    EXPECT_TRUE(copied == source.c_str());
    ZyCaseSensitiveString const moved(std::move(source));
    EXPECT_TRUE(moved == copied);
    EXPECT_TRUE(source.isEmpty());
}

TEST(ZyCaseSensitiveString, CopiesAreDeep)
{
    ZyCaseSensitiveString first("abc");
    ZyCaseSensitiveString const second(first);
    first[0] = 'X';
    EXPECT_TRUE(first == "Xbc");
    EXPECT_TRUE(second == "abc");
}

TEST(ZyCaseSensitiveString, MovedFromIsEmptyAndUsable)
{
    ZyCaseSensitiveString first("abc");
    ZyCaseSensitiveString second(std::move(first));
    EXPECT_TRUE(first == "");
    first = "new";
    EXPECT_TRUE(first == "new");
    second = std::move(first);
    EXPECT_TRUE(second == "new");
    EXPECT_TRUE(first.isEmpty());
}

TEST(ZyCaseSensitiveString, AssignsToItself)
{
    ZyCaseSensitiveString text("abc");
    ZyCaseSensitiveString & same = text;
    text = same;
    EXPECT_TRUE(text == "abc");
    text = std::move(same);
    EXPECT_TRUE(text == "abc");
}

TEST(ZyCaseSensitiveString, TakesAllAssignments)
{
    ZyCaseSensitiveString text;
    text = "literal";
    EXPECT_TRUE(text == "literal");
    text = ZyString("string");
    EXPECT_TRUE(text == "string");
    ZyString const named("Named");
    text = named;
    EXPECT_TRUE(text == "Named");
    ZyCaseSensitiveString const other("Other");
    text = other;
    EXPECT_TRUE(text == "Other");
}

namespace
{
/** Counts upward in text. */
class UnaryConverter : public ZyStringConverter<unsigned int>
{
public:
    ZyString convert(unsigned int const & value) const override { return ZyString(std::string(value, '|')); }
    unsigned int convert(ZyString const & text) const override { return text.size(); }
};
} // namespace

TEST(ZyStringConverter, WorksThroughItsInterface)
{
    UnaryConverter const converter;
    ZyStringConverter<unsigned int> const & interface = converter;
    EXPECT_TRUE(interface.convert(3u) == "|||");
    EXPECT_EQ(interface.convert(ZyString("||")), 2u);
}
