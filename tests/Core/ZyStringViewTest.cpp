// SPDX-License-Identifier: BSD-3-Clause
// Slices of characters.
#include <ZyException.h>
#include <ZyString.h>
#include <ZyStringView.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <QString>

#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyStringView) == 2 * sizeof(void *));
static_assert(std::is_base_of_v<ZyComparableString, ZyStringView>);

TEST(ZyStringView, DefaultsToNothing)
{
    ZyStringView const view;
    EXPECT_EQ(view.size(), 0u);
    EXPECT_TRUE(view == "");
    EXPECT_TRUE(view.toString().isEmpty());
}

TEST(ZyStringView, MeasuresCText)
{
    EXPECT_EQ(ZyStringView("abc").size(), 3u);
    EXPECT_EQ(ZyStringView(static_cast<char const *>(nullptr)).size(), 0u);
}

TEST(ZyStringView, OfAnEmptyStringEqualsTheEmptyString)
{
    ZyString const empty;
    EXPECT_TRUE(ZyStringView(empty) == empty);
    EXPECT_TRUE(ZyStringView(empty) == ZyString());
}

TEST(ZyStringView, PointsAtTheCharactersOfTheString)
{
    ZyString const text("abcdef");
    ZyStringView const view(text, 2, 3);
    EXPECT_EQ(&view[0], text.c_str() + 2);
    EXPECT_EQ(view.toString().toStdString(), "cde");
}

TEST(ZyStringView, AtTheSizeIsEmptyAndBeyondThrows)
{
    ZyString const text("abc");
    EXPECT_EQ(ZyStringView(text, 3, 5).size(), 0u);
    EXPECT_ZY_THROW(ZyStringView(text, 4, 0), ZyIndexOutOfBoundsException, "Index out of bounds [4,3]");
    EXPECT_ZY_THROW(ZyStringView(text, 4294967295u, 1), ZyIndexOutOfBoundsException,
                    "Index out of bounds [4294967295,3]");
}

TEST(ZyStringView, CutsALengthThatIsTooLarge)
{
    ZyString const text("abc");
    EXPECT_EQ(ZyStringView(text, 1, 100).toString().toStdString(), "bc");
    EXPECT_EQ(ZyStringView(text, 1, 4294967295u).toString().toStdString(), "bc");
}

TEST(ZyStringView, Deliberate_view_tells_absence_by_a_number)
{
    EXPECT_EQ(ZyStringView("a.b.c").findLastOf('.'), 3u);
    EXPECT_EQ(ZyStringView("abc").findLastOf('.'), 4294967295u);
    EXPECT_EQ(ZyStringView(ZyString()).findLastOf('.'), 4294967295u);
}

TEST(ZyStringView, SlicesItself)
{
    ZyStringView const view("abcdef");
    EXPECT_EQ(view.substring(2).toString().toStdString(), "cdef");
    EXPECT_EQ(view.substring(2, 2).toString().toStdString(), "cd");
    EXPECT_EQ(view.substring(6).size(), 0u);
    EXPECT_ZY_THROW(view.substring(7), ZyIndexOutOfBoundsException, "Index out of bounds [7,6]");
    EXPECT_ZY_THROW(view.substring(8, 1), ZyIndexOutOfBoundsException, "Index out of bounds [8,6]");
}

TEST(ZyStringView, CopiesShareTheCharactersButNotTheView)
{
    ZyString const text("abc");
    ZyString const other("xy");
    ZyStringView const first(text);
    ZyStringView copy(first);
    EXPECT_EQ(&copy[0], &first[0]);
    copy = ZyStringView(other);
    EXPECT_TRUE(copy == "xy");
    EXPECT_TRUE(first == "abc");
    ZyStringView const & same = copy;
    copy = same;
    EXPECT_TRUE(copy == "xy");
}

TEST(ZyStringView, MovedFromMayBeAssignedAgain)
{
    ZyStringView source("abc");
    ZyStringView const target(std::move(source));
    EXPECT_TRUE(target == "abc");
    ZyStringView const other("xyz");
    source = other;
    EXPECT_TRUE(source == "xyz");
    ZyStringView again(std::move(source));
    source = ZyStringView("new");
    EXPECT_TRUE(source == "new");
    EXPECT_TRUE(again == "xyz");
}

TEST(ZyStringView, CopiesOfAMovedFromViewAreEmpty)
{
    ZyStringView source("abc");
    ZyStringView const target(std::move(source));
    ZyStringView const copy(source);
    EXPECT_EQ(copy.size(), 0u);
    ZyStringView assigned("q");
    assigned = static_cast<ZyStringView const &>(source);
    EXPECT_EQ(assigned.size(), 0u);
}

TEST(ZyStringView, MoveAssignmentSwaps)
{
    ZyStringView a("a");
    ZyStringView b("b");
    a = std::move(b);
    EXPECT_TRUE(a == "b");
    EXPECT_TRUE(b == "a");
}

TEST(ZyStringView, ConvertsToNumbersAndText)
{
    ZyString const text("x-12y");
    EXPECT_EQ(ZyStringView(text, 1, 3).toInt(), -12);
    ZyString const nul(std::string("a\0b", 3));
    EXPECT_EQ(ZyStringView(nul).toString().size(), 3u);
    EXPECT_EQ(ZyStringView(nul).toQString(), QStringLiteral("a"));
    EXPECT_EQ(ZyStringView("\xC3\xA4").toQString(), QString(QChar(0xE4)));
}
