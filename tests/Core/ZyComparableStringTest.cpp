// SPDX-License-Identifier: BSD-3-Clause
// Comparison across all kinds of text, a host's own included, and under other locales.
#include <ZyComparableString.h>
#include <ZyString.h>
#include <ZyStringView.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <locale>
#include <string>
#include <vector>

static_assert(ZyComparableString::CaseInsensitive == 0);
static_assert(ZyComparableString::CaseSensitive == 1);
static_assert(sizeof(ZyComparableString) == sizeof(void *), "no data");

namespace
{
/** A host's text: only the two primitives, and a count of their use. */
class HostText : public ZyComparableString
{
public:
    explicit HostText(std::string text) : m_text(std::move(text)) {}
    char const & operator[](unsigned int position) const override
    {
        ++reads;
        return m_text[position];
    }
    unsigned int size() const override { return static_cast<unsigned int>(m_text.size()); }

    mutable int reads = 0;

private:
    std::string m_text;
};

/** A host's string that changes a character: comparisons must see it. */
class Disguised : public ZyString
{
public:
    using ZyString::ZyString;
    char const & operator[](unsigned int) const override
    {
        static char const x = 'x';
        return x;
    }
};

/** Folds "1" to "2", so that a comparison that goes past the facet is found out. */
class OddFacet : public std::ctype<char>
{
protected:
    char do_tolower(char c) const override { return c == '1' ? '2' : std::ctype<char>::do_tolower(c); }
    char const * do_tolower(char * begin, char const * end) const override
    {
        for (; begin != end; ++begin) {
            *begin = do_tolower(*begin);
        }
        return end;
    }
};

class GlobalLocale
{
public:
    explicit GlobalLocale(std::locale const & locale) : m_former(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(m_former); }

private:
    std::locale m_former;
};

int sign(int value)
{
    return (value > 0) - (value < 0);
}

/** The rule, character by character. */
int reference(std::string const & a, std::string const & b, ZyComparableString::Comparison comparison)
{
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        auto const fold = [&](char c) {
            return comparison == ZyComparableString::CaseSensitive ? c : std::tolower(c, std::locale());
        };
        int const difference = static_cast<signed char>(fold(a[i])) - static_cast<signed char>(fold(b[i]));
        if (difference != 0) {
            return difference;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}
} // namespace

TEST(ZyComparableString, IgnoresCaseInAllOperators)
{
    ZyString const abc("ABC");
    EXPECT_TRUE(abc == ZyString("abc"));
    EXPECT_FALSE(abc != ZyString("abc"));
    EXPECT_TRUE(abc <= ZyString("abc"));
    EXPECT_TRUE(abc >= ZyString("abc"));
    EXPECT_FALSE(abc < ZyString("abc"));
    EXPECT_FALSE(abc > ZyString("abc"));
    EXPECT_TRUE(ZyString("abc") < ZyString("ABD"));
    EXPECT_TRUE(ZyString("abc") < ZyString("abcd"));
    EXPECT_TRUE(ZyString("b") > ZyString("ABCD"));
}

TEST(ZyComparableString, ComparesLiteralsOnBothSidesAsText)
{
    ZyString const text("abc");
    EXPECT_TRUE(text == "ABC");
    EXPECT_TRUE("ABC" == text);
    EXPECT_FALSE("abd" == text);
    EXPECT_TRUE("abd" != text);
    EXPECT_TRUE(text != "abd");
    EXPECT_TRUE(text < "ABD");
    EXPECT_TRUE(text <= "ABC");
    EXPECT_TRUE(text > "ABB");
    EXPECT_TRUE(text >= "ABC");
    EXPECT_TRUE("ABB" < text);
    EXPECT_TRUE("ABC" <= text);
    EXPECT_TRUE("ABD" > text);
    EXPECT_TRUE("ABC" >= text);
    ZyStringView const view("abc");
    EXPECT_TRUE("ABC" == view);
    EXPECT_TRUE(view == "ABC");
    EXPECT_TRUE(view < "B");
}

TEST(ZyComparableString, NullPointerIsTheEmptyText)
{
    char const * const none = nullptr;
    EXPECT_TRUE(ZyString() == none);
    EXPECT_TRUE(ZyString("a") != none);
    EXPECT_TRUE(none < ZyString("a"));
    EXPECT_TRUE(ZyStringView() == none);
}

TEST(ZyComparableString, ReturnsTheDifferenceOfSignedCharacters)
{
    EXPECT_EQ(ZyString("a").compare(ZyString("c"), ZyComparableString::CaseInsensitive), -2);
    EXPECT_LT(ZyString("\xC3\xA9"), ZyString("a"));
    EXPECT_LT(ZyString("_"), ZyString("A"));
    EXPECT_GT(ZyString("_").compare(ZyString("A"), ZyComparableString::CaseSensitive), 0);
    EXPECT_EQ(ZyString("ab").compare(ZyString("abcd"), ZyComparableString::CaseSensitive), -1);
    EXPECT_EQ(ZyString("abcd").compare(ZyString("ab"), ZyComparableString::CaseSensitive), 1);
    EXPECT_EQ(ZyString("Ab").compare(ZyString("ab"), static_cast<ZyComparableString::Comparison>(7)), 0);
}

TEST(ZyComparableString, SeesEmbeddedNulls)
{
    ZyString const a(std::string("a\0B", 3));
    ZyString const b(std::string("A\0b", 3));
    ZyString const c(std::string("a\0c", 3));
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a < c);
    EXPECT_FALSE(a == "a");
}

TEST(ZyComparableString, ComparesStringsViewsAndHostsFreely)
{
    ZyString const text("Node_1");
    ZyStringView const view("NODE_1");
    HostText const host("node_1");
    EXPECT_TRUE(text == view);
    EXPECT_TRUE(view == text);
    EXPECT_TRUE(host == text);
    EXPECT_TRUE(text == host);
    EXPECT_TRUE(view == host);
    EXPECT_TRUE(host == "NODE_1");
    EXPECT_TRUE("NODE_1" == host);
    EXPECT_TRUE(host < ZyString("node_2"));
    EXPECT_GT(host.reads, 0);
}

TEST(ZyComparableString, AsksAHostsStringThroughItsPrimitives)
{
    Disguised const disguised("abc");
    EXPECT_TRUE(disguised == "XXX");
    EXPECT_TRUE(ZyString("xxx") == disguised);
    EXPECT_FALSE(disguised == "abc");
}

TEST(ZyComparableString, TellsNumbersInAHostsText)
{
    EXPECT_TRUE(HostText(" 12 ").isInteger());
    EXPECT_FALSE(HostText("012").isInteger());
    EXPECT_TRUE(HostText("1e3").isDouble());
    EXPECT_FALSE(HostText("1,5").isDouble());
    EXPECT_TRUE(ZyStringView("-7").isInteger());
    EXPECT_TRUE(ZyStringView("-7.5").isDouble());
    EXPECT_FALSE(ZyStringView("").isDouble());
}

TEST(ZyComparableString, Deliberate_comparison_takes_the_locale_of_the_moment)
{
    ZyString const one("a1");
    ZyString const two("A2");
    EXPECT_FALSE(one == two);
    GlobalLocale const odd(std::locale(std::locale::classic(), new OddFacet));
    EXPECT_TRUE(one == two);
    EXPECT_TRUE(one == "a2");
    EXPECT_FALSE(one < two);
    EXPECT_EQ(one.compare(two, ZyComparableString::CaseSensitive), 32);
}

TEST(ZyComparableString, AgreesWithTheRuleOnManyTexts)
{
    unsigned int seed = 12345;
    auto const next = [&] { return (seed = seed * 1664525u + 1013904223u) >> 8; };
    char const alphabet[] = "aAbBzZ@[`{_\x7F\x80\xC0\xE0\xFF";
    for (int round = 0; round < 20000; ++round) {
        std::string a(next() % 40, ' ');
        for (char & c : a) {
            c = alphabet[next() % (sizeof alphabet)];
        }
        std::string b = a;
        for (char & c : b) {
            bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
            c = letter && next() % 2 ? static_cast<char>(c ^ 32)
                : next() % 50 == 0   ? alphabet[next() % 16]
                                     : c;
        }
        b.resize(next() % 8 == 0 ? next() % 40 : b.size(), 'q');
        for (auto comparison : {ZyComparableString::CaseInsensitive, ZyComparableString::CaseSensitive}) {
            int const expected = reference(a, b, comparison);
            ASSERT_EQ(sign(ZyString(a).compare(ZyString(b), comparison)), sign(expected)) << a << " | " << b;
            ASSERT_EQ(sign(HostText(a).compare(HostText(b), comparison)), sign(expected)) << a << " | " << b;
        }
        ASSERT_EQ(ZyString(a) == ZyString(b), reference(a, b, ZyComparableString::CaseInsensitive) == 0);
        ASSERT_EQ(ZyString(a) < ZyString(b), reference(a, b, ZyComparableString::CaseInsensitive) < 0);
    }
}

TEST(ZyComparableString, WorksThroughReferencesToTheBase)
{
    ZyString const text("Abc");
    ZyStringView const view("aBC");
    ZyComparableString const & a = text;
    ZyComparableString const & b = view;
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a != b);
    EXPECT_TRUE(a == text);
    EXPECT_TRUE(text == b);
}

TEST(ZyComparableString, Deliberate_signed_bytes_order)
{
    EXPECT_LT(ZyString("\x80"), ZyString("A"));
    EXPECT_LT(ZyString("\xFF"), ZyString(" "));
    EXPECT_LT(ZyString("\x80"), ZyString("\xFF"));
    EXPECT_LT(ZyString("\xFF").compare(ZyString("a"), ZyComparableString::CaseSensitive), 0);
}
