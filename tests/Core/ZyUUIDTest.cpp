// SPDX-License-Identifier: BSD-3-Clause
// Tests of identifiers.
#include <ZyHash.h>
#include <ZyPrint.h>
#include <ZyUUID.h>
#include <ZyVariant.h>

#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <QSet>
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>

static_assert(std::has_virtual_destructor_v<ZyUUID> && std::is_polymorphic_v<ZyUUID>);
static_assert(sizeof(ZyUUID) == sizeof(void *) + sizeof(ZyCaseSensitiveString),
              "a table pointer and the text");
static_assert(std::is_convertible_v<ZyUUID, ZyString> && std::is_convertible_v<ZyUUID, YString>);
static_assert(std::is_convertible_v<char const *, ZyUUID> && std::is_convertible_v<ZyString, ZyUUID> &&
              std::is_convertible_v<YString, ZyUUID>);

TEST(ZyUUID, TwoNewOnesAreUnequal)
{
    ZyUUID const a;
    ZyUUID const b;
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(a != b);
    EXPECT_EQ(a.toString().size(), 36u);
}

TEST(ZyUUID, TakesTheTextOfTheSource)
{
    kb::SetGuidSource([] { return std::string("0123"); });
    ZyUUID const id;
    kb::SetGuidSource({});
    EXPECT_EQ(id.toString().toStdString(), "0123");
}

TEST(ZyUUID, RespectsCaseWhereStringsDoNot)
{
    ZyUUID const id("abc");
    EXPECT_FALSE(id == ZyString("ABC"));
    EXPECT_TRUE(ZyString("abc") == ZyString("ABC"));
    EXPECT_TRUE(id == ZyString("abc"));
    EXPECT_FALSE(id == ZyUUID("ABC"));
    EXPECT_TRUE(id == ZyUUID("abc"));
    EXPECT_FALSE(id == "ABC");
    EXPECT_TRUE(id == "abc");
    EXPECT_FALSE(id == YString("ABC"));
    EXPECT_TRUE(id == YString("abc"));
    EXPECT_TRUE(id != ZyString("ABC"));
    EXPECT_TRUE(id != ZyUUID("ABC"));
    EXPECT_TRUE(id != "ABC");
    EXPECT_TRUE(id != YString("ABC"));
}

TEST(ZyUUID, RespectsCaseBesideAnyText)
{
    ZyUUID const id("abc");
    EXPECT_TRUE(id == ZyCaseSensitiveString("abc"));
    EXPECT_FALSE(id == ZyCaseSensitiveString("ABC"));
    EXPECT_TRUE(id == ZyStringView("abc"));
    EXPECT_FALSE(id == ZyStringView("ABC"));
    EXPECT_TRUE(id != ZyStringView("ABC"));
}

TEST(ZyUUID, RespectsCaseWithTextOnTheLeft)
{
    ZyUUID const id("abc");
    EXPECT_FALSE(ZyString("ABC") == id);
    EXPECT_TRUE(ZyString("ABC") != id);
    EXPECT_TRUE(ZyString("abc") == id);
    EXPECT_FALSE(ZyString("abc") != id);
    EXPECT_FALSE(ZyStringView("ABC") == id);
    EXPECT_TRUE(ZyStringView("ABC") != id);
    EXPECT_TRUE(ZyStringView("abc") == id);
    EXPECT_FALSE(ZyCaseSensitiveString("ABC") == id);
    EXPECT_TRUE(ZyCaseSensitiveString("abc") == id);
    EXPECT_FALSE("ABC" == id);
    EXPECT_TRUE("abc" == id);
    EXPECT_TRUE("ABC" != id);
}

TEST(ZyUUID, OrdersByBytes)
{
    EXPECT_TRUE(ZyUUID("ABC") < ZyUUID("abc"));
    EXPECT_FALSE(ZyUUID("abc") < ZyUUID("ABC"));
    EXPECT_TRUE(ZyUUID("B") < ZyUUID("a")) << "without case it would come behind";
    EXPECT_FALSE(ZyUUID("a") < ZyUUID("a"));
    std::set<ZyUUID> const ids{ZyUUID("a"), ZyUUID("A"), ZyUUID("a")};
    EXPECT_EQ(ids.size(), 2u);
}

TEST(ZyUUID, AnyTextServes)
{
    EXPECT_EQ(ZyUUID("").toString().size(), 0u);
    EXPECT_EQ(ZyUUID(static_cast<char const *>(nullptr)).toString().size(), 0u);
    std::string const bytes("\xFF\0{not hex}", 11);
    EXPECT_EQ(ZyUUID(ZyString(bytes)).toString().toStdString(), bytes);
    EXPECT_TRUE(ZyUUID(ZyString(bytes)) == ZyString(bytes));
    EXPECT_FALSE(ZyUUID(ZyString(bytes)) == "\xFF");
    EXPECT_EQ(ZyUUID(YString("y")).toString().toStdString(), "y");
}

TEST(ZyUUID, BecomesText)
{
    ZyUUID const id("Abc");
    ZyString const & reference = id;
    EXPECT_EQ(&reference, &id.toString());
    YString const closed = id;
    EXPECT_STREQ(closed.c_str(), "Abc");
    ZyString const made(id);
    EXPECT_EQ(made.toStdString(), "Abc");
    ZyString const converted = id;
    EXPECT_EQ(converted.toStdString(), "Abc");
    ZyString assigned;
    assigned = id;
    EXPECT_EQ(assigned.toStdString(), "Abc");
    auto const byValue = [](ZyString text) { return text; };
    EXPECT_EQ(byValue(id).toStdString(), "Abc");
}

TEST(ZyUUID, StringMadeOfItComparesWithoutCase)
{
    ZyString const text(ZyUUID("Abc"));
    EXPECT_TRUE(text == "ABC");
}

TEST(ZyUUID, BecomesAStringVariant)
{
    ZyVariant const value(ZyUUID("Abc"));
    EXPECT_EQ(value.type(), ZyVariant::String);
    EXPECT_EQ(value.asString().toStdString(), "Abc");
}

TEST(ZyUUID, CopiesAndMoves)
{
    ZyUUID a("a");
    ZyUUID const copy(a);
    EXPECT_TRUE(copy == a);
    ZyUUID moved(std::move(a));
    EXPECT_TRUE(moved == "a");
    EXPECT_TRUE(a == "");
    a = copy;
    EXPECT_TRUE(a == "a");
    ZyUUID b("b");
    b = std::move(a);
    EXPECT_TRUE(b == "a");
    ZyUUID const & itself = b;
    b = itself;
    EXPECT_TRUE(b == "a");
}

TEST(ZyUUID, Hashes)
{
    std::hash<ZyUUID> const hash{};
    EXPECT_EQ(hash(ZyUUID("a")), hash(ZyUUID("a")));
    EXPECT_NE(hash(ZyUUID("a")), hash(ZyUUID("A")));
    std::unordered_set<ZyUUID> const ids{ZyUUID("a"), ZyUUID("A"), ZyUUID("a")};
    EXPECT_EQ(ids.size(), 2u);
    QSet<ZyUUID> qtIds;
    qtIds << ZyUUID("a") << ZyUUID("A") << ZyUUID("a");
    EXPECT_EQ(qtIds.size(), 2);
}

TEST(ZyUUID, Prints)
{
    std::ostringstream stream;
    stream << ZyUUID("Abc");
    EXPECT_EQ(stream.str(), "Abc");
}
