// SPDX-License-Identifier: BSD-3-Clause
// Looking into strings, editing them, splitting them.
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyString.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <vector>

namespace
{
constexpr auto blind = ZyComparableString::CaseInsensitive;
constexpr auto strict = ZyComparableString::CaseSensitive;

std::string bytes(ZyString const & text)
{
    return text.toStdString();
}

using Texts = std::vector<std::string>;

Texts texts(ZyDeque<ZyStringView> const & views)
{
    Texts result;
    for (ZyStringView const & view : views.std_deque()) {
        result.push_back(view.toString().toStdString());
    }
    return result;
}

/** The told loop of replacing, place by place. */
std::string replaceReference(std::string text, std::string const & from, std::string const & to,
                             ZyComparableString::Comparison comparison)
{
    if (from.empty() || from.size() > text.size()) {
        return text;
    }
    std::string const inserted = to.c_str();
    for (std::size_t i = 0; i + from.size() <= text.size();) {
        if (ZyString(text.substr(i, from.size())).compare(ZyString(from), comparison) == 0) {
            text.replace(i, from.size(), inserted);
            i += inserted.size();
        } else {
            ++i;
        }
    }
    return text;
}

/** The told scan of splitting. */
Texts tokenizeReference(std::string const & text, std::string const & delimiter,
                        ZyComparableString::Comparison comparison)
{
    std::size_t const d = delimiter.size();
    if (d > text.size()) {
        return {text};
    }
    Texts tokens;
    std::size_t s = 0;
    for (std::size_t e = d; e <= text.size();) {
        if (ZyString(text.substr(e - d, d)).compare(ZyString(delimiter), comparison) == 0) {
            tokens.push_back(text.substr(s, e - s - d));
            s = e;
            e += d;
        } else {
            ++e;
        }
    }
    if (s <= text.size()) {
        tokens.push_back(text.substr(s));
    }
    return tokens;
}

/** The told loop of spacing capitals. */
std::string spaceReference(std::string text)
{
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (std::isupper(text[i], std::locale()) && !std::isspace(text[i - 1], std::locale())) {
            text.insert(i, 1, ' ');
            ++i;
        }
    }
    return text;
}

class Noise
{
public:
    std::string text(std::size_t most, char const * alphabet, std::size_t letters)
    {
        std::string result(next() % (most + 1), ' ');
        for (char & c : result) {
            c = alphabet[next() % letters];
        }
        return result;
    }
    unsigned int next() { return (m_state = m_state * 1664525u + 1013904223u) >> 8; }

private:
    unsigned int m_state = 4711;
};
} // namespace

TEST(ZyStringEqual, ComparesAsAsked)
{
    ZyString const text("ABC");
    EXPECT_FALSE(text.equal(ZyString("abc"), strict));
    EXPECT_TRUE(text.equal(ZyString("abc"), blind));
    EXPECT_TRUE(text.equal(ZyStringView("abc"), blind));
    EXPECT_TRUE(text.equal("ABC", strict));
    EXPECT_FALSE(text.equal("ABCD", blind));
    EXPECT_FALSE(text.equal(ZyStringView("ab"), blind));
    EXPECT_TRUE(text.equal("abc", static_cast<ZyComparableString::Comparison>(2)));
}

TEST(ZyStringLessThan, LooksAtTheFirstDifferenceThenAtTheSizes)
{
    EXPECT_TRUE(ZyString("abc").lessThan("ABD", blind));
    EXPECT_FALSE(ZyString("abc").lessThan("ABD", strict));
    EXPECT_TRUE(ZyString("abc").lessThan("abcd", strict));
    EXPECT_FALSE(ZyString("abcd").lessThan("abc", blind));
    EXPECT_FALSE(ZyString("abc").lessThan("ABC", blind));
    EXPECT_TRUE(ZyString("\xE9").lessThan("a", strict));
}

TEST(ZyStringContains, FindsPartsAnywhere)
{
    ZyString const text("one Two three");
    EXPECT_TRUE(text.contains("two"));
    EXPECT_FALSE(text.contains("two", strict));
    EXPECT_TRUE(text.contains("Two", strict));
    EXPECT_TRUE(text.contains("ONE"));
    EXPECT_TRUE(text.contains("EE"));
    EXPECT_FALSE(text.contains("threee"));
    EXPECT_FALSE(text.contains("one Two three four"));
    EXPECT_TRUE(text.contains(""));
}

TEST(ZyStringContains, Deliberate_empty_contains_empty)
{
    EXPECT_FALSE(ZyString().contains(""));
    EXPECT_FALSE(ZyString().contains("", blind));
    EXPECT_TRUE(ZyString().contains("", strict));
    EXPECT_TRUE(ZyString("a").contains(""));
}

TEST(ZyStringContains, MeasuresAPartUpToItsNulWhenCaseCounts)
{
    ZyString const part(std::string("b\0x", 3));
    EXPECT_TRUE(ZyString("abc").contains(part, strict));
    EXPECT_FALSE(ZyString("abc").contains(part, blind));
    EXPECT_TRUE(ZyString(std::string("aB\0Xc", 5)).contains(part, blind));
}

TEST(ZyStringContains, FindsAtEveryPlaceOfALongText)
{
    for (unsigned int place = 0; place < 130; ++place) {
        std::string text(130, '-');
        text.replace(place, 3, "AbC");
        text.resize(140, '-');
        EXPECT_TRUE(ZyString(text).contains("aBc")) << place;
        EXPECT_FALSE(ZyString(text).contains("aBc", strict)) << place;
        EXPECT_TRUE(ZyString(text).contains("AbC", strict)) << place;
        EXPECT_FALSE(ZyString(text).contains("abcabc")) << place;
    }
}

TEST(ZyStringEnds, MatchStartAndEnd)
{
    ZyString const text("Filter.XML");
    EXPECT_TRUE(text.startsWith("filter"));
    EXPECT_FALSE(text.startsWith("filter", strict));
    EXPECT_TRUE(text.endsWith(".xml"));
    EXPECT_FALSE(text.endsWith(".xml", strict));
    EXPECT_TRUE(text.endsWith(".XML", strict));
    EXPECT_TRUE(text.startsWith(""));
    EXPECT_TRUE(text.endsWith(""));
    EXPECT_TRUE(ZyString().startsWith(""));
    EXPECT_FALSE(ZyString().endsWith("a"));
    EXPECT_FALSE(ZyString("a").startsWith("ab"));
}

TEST(ZyStringFind, SearchesForwardsAndBackwards)
{
    ZyString const text("abcabc");
    EXPECT_EQ(text.find('c', 0), 2u);
    EXPECT_EQ(text.find('c', 3), 5u);
    EXPECT_EQ(text.find('c', 5), 5u);
    EXPECT_EQ(text.findLastOf('a'), 3u);
    EXPECT_EQ(ZyString(std::string("a\0b", 3)).find('\0', 0), 1u);
}

TEST(ZyStringFind, ThrowsWhenTheCharacterIsNotThere)
{
    ZyString const text("abc");
    EXPECT_ZY_THROW(text.find('x', 0), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(text.find('A', 0), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(text.find('a', 1), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(text.find('c', 3), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(text.find('a', 4294967295u), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(text.findLastOf('x'), ZyNotFoundException, "Item not found: String::findLastOf");
    EXPECT_ZY_THROW(ZyString().find('a', 0), ZyNotFoundException, "Item not found: String::find");
    EXPECT_ZY_THROW(ZyString().findLastOf('a'), ZyNotFoundException, "Item not found: String::findLastOf");
}

TEST(ZyStringReplace, ReplacesEveryOccurrenceOnce)
{
    EXPECT_EQ(bytes(ZyString("aa").replace("a", "aa", strict)), "aaaa");
    EXPECT_EQ(bytes(ZyString("aaa").replace("aa", "b", strict)), "ba");
    EXPECT_EQ(bytes(ZyString("abAB").replace("ab", "", blind)), "");
    EXPECT_EQ(bytes(ZyString("abcab").replace("abc", "", strict)), "ab");
    EXPECT_EQ(bytes(ZyString("xAxaX").replace("a", "-", blind)), "x-x-X");
    EXPECT_EQ(bytes(ZyString("abc").replace("", "x", blind)), "abc");
    EXPECT_EQ(bytes(ZyString("ab").replace("abc", "x", blind)), "ab");
    EXPECT_EQ(bytes(ZyString().replace("a", "x", blind)), "");
}

TEST(ZyStringReplace, TakesItsOwnTextAsArgument)
{
    ZyString text("a-b-c");
    text.replace("-", text, strict);
    EXPECT_EQ(bytes(text), "aa-b-cba-b-cc");
    text.replace(text, "x", strict);
    EXPECT_EQ(bytes(text), "x");
}

TEST(ZyStringReplace, Deliberate_replace_inserts_up_to_a_nul)
{
    EXPECT_EQ(bytes(ZyString("a-b").replace("-", ZyString(std::string("x\0y", 3)), strict)), "axb");
}

TEST(ZyStringReplace, LeavesTheSourceOfACopyAlone)
{
    ZyString const text("a.b");
    EXPECT_EQ(bytes(text.replaced(".", ",", strict)), "a,b");
    EXPECT_EQ(bytes(text), "a.b");
    ZyString changed("a.b");
    EXPECT_EQ(&changed.replace(".", ",", strict), &changed);
}

TEST(ZyStringReplace, AgreesWithTheRuleOnManyTexts)
{
    Noise noise;
    for (int i = 0; i < 20000; ++i) {
        std::string const text = noise.text(60, "aAbB-", 5);
        std::string const from = noise.text(3, "aAbB-", 5);
        std::string const to = noise.text(4, "aB\0-", 4);
        for (auto comparison : {blind, strict}) {
            ASSERT_EQ(bytes(ZyString(text).replace(ZyString(from), ZyString(to), comparison)),
                      replaceReference(text, from, to, comparison))
                << text << " | " << from << " | " << to;
        }
    }
}

TEST(ZyStringTrim, RemovesWhiteSpaceAtBothEnds)
{
    EXPECT_EQ(bytes(ZyString(" \t\r\n\v\fa b \n").trim()), "a b");
    EXPECT_EQ(bytes(ZyString("ab").trim()), "ab");
    EXPECT_EQ(bytes(ZyString("   ").trim()), "");
    EXPECT_EQ(bytes(ZyString().trim()), "");
    ZyString const text("  ab ");
    EXPECT_EQ(text.trimmed().toString().toStdString(), "ab");
    EXPECT_EQ(text.size(), 5u);
    EXPECT_EQ(ZyString().trimmed().size(), 0u);
    ZyString const blanks("  ");
    EXPECT_EQ(blanks.trimmed().size(), 0u);
    EXPECT_EQ(bytes(ZyString(std::string(" \0 ", 3)).trim()), std::string(1, '\0'));
}

TEST(ZyStringResize, FillsOrCuts)
{
    ZyString text("abc");
    EXPECT_EQ(bytes(text.resize(5, 'x')), "abcxx");
    EXPECT_EQ(bytes(text.resize(2, 'y')), "ab");
    EXPECT_EQ(bytes(text.resize(0, 'y')), "");
}

TEST(ZyStringSpaceCapitals, PutsABlankBeforeCapitals)
{
    EXPECT_EQ(bytes(ZyString("ThisIsIt").spaceCapitals()), "This Is It");
    EXPECT_EQ(bytes(ZyString("ABC").spaceCapitals()), "A B C");
    EXPECT_EQ(bytes(ZyString("A BC").spaceCapitals()), "A B C");
    EXPECT_EQ(bytes(ZyString(" A").spaceCapitals()), " A");
    EXPECT_EQ(bytes(ZyString("iOS").spaceCapitals()), "i O S");
    EXPECT_EQ(bytes(ZyString("\tAB").spaceCapitals()), "\tA B");
    EXPECT_EQ(bytes(ZyString("A").spaceCapitals()), "A");
    EXPECT_EQ(bytes(ZyString().spaceCapitals()), "");
    ZyString const text("aB");
    EXPECT_EQ(bytes(text.spacedCapitals()), "a B");
    EXPECT_EQ(bytes(text), "aB");
}

TEST(ZyStringSpaceCapitals, AgreesWithTheRuleOnManyTexts)
{
    Noise noise;
    for (int i = 0; i < 5000; ++i) {
        std::string const text = noise.text(30, "aAB \t", 5);
        ASSERT_EQ(bytes(ZyString(text).spaceCapitals()), spaceReference(text)) << text;
    }
}

TEST(ZyStringSubstring, IsAViewCutToWhatIsLeft)
{
    ZyString const text("abcdef");
    EXPECT_EQ(text.substring(2).toString().toStdString(), "cdef");
    EXPECT_EQ(text.substring(2, 2).toString().toStdString(), "cd");
    EXPECT_EQ(text.substring(4, 100).toString().toStdString(), "ef");
    EXPECT_EQ(text.substring(6).size(), 0u);
    EXPECT_ZY_THROW(text.substring(7), ZyIndexOutOfBoundsException, "Index out of bounds [7,6]");
    EXPECT_ZY_THROW(text.substring(7, 1), ZyIndexOutOfBoundsException, "Index out of bounds [7,6]");
}

TEST(ZyStringWhiteSpace, IsFoundAnywhere)
{
    EXPECT_TRUE(ZyString("a b").containsWhiteSpace());
    EXPECT_TRUE(ZyString("\t").containsWhiteSpace());
    EXPECT_FALSE(ZyString("ab").containsWhiteSpace());
    EXPECT_FALSE(ZyString().containsWhiteSpace());
    EXPECT_TRUE(ZyString::IsWhiteSpace('\v'));
    EXPECT_FALSE(ZyString::IsWhiteSpace('\0'));
}

TEST(ZyStringIsLetter, KnowsTheAsciiLettersOnly)
{
    int letters = 0;
    for (int c = -128; c < 128; ++c) {
        letters += ZyString::IsLetter(static_cast<char>(c)) ? 1 : 0;
    }
    EXPECT_EQ(letters, 52);
    EXPECT_TRUE(ZyString::IsLetter('a') && ZyString::IsLetter('z') && ZyString::IsLetter('A') &&
                ZyString::IsLetter('Z'));
}

TEST(ZyStringNewLine, Deliberate_new_line_is_the_same_everywhere)
{
    EXPECT_EQ(bytes(ZyString::NewLine()), "\r\n");
}

struct TokenCase
{
    char const * text;
    char const * delimiter;
    Texts tokens;
};

class ZyStringTokenize : public testing::TestWithParam<TokenCase>
{};

TEST_P(ZyStringTokenize, KeepsEmptyTokens)
{
    ZyString const text(GetParam().text);
    EXPECT_EQ(texts(text.tokenize(GetParam().delimiter)), GetParam().tokens);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ZyStringTokenize,
    testing::Values(TokenCase{"a,,b", ",", {"a", "", "b"}}, TokenCase{",a", ",", {"", "a"}},
                    TokenCase{"a,", ",", {"a", ""}}, TokenCase{"", ",", {""}}, TokenCase{"abc", ",", {"abc"}},
                    TokenCase{"a", "bcd", {"a"}}, TokenCase{"a--b---c", "--", {"a", "b", "-c"}},
                    TokenCase{"--", "--", {"", ""}}, TokenCase{"-", "--", {"-"}},
                    TokenCase{"aaa", "aa", {"", "a"}}, TokenCase{"aXbxc", "x", {"a", "b", "c"}}));

TEST(ZyStringTokenizing, RespectsCaseWhenAsked)
{
    ZyString const text("aXbxc");
    EXPECT_EQ(texts(text.tokenize("x", strict)), (Texts{"aXb", "c"}));
}

TEST(ZyStringTokenizing, PointsIntoTheString)
{
    ZyString const text("ab,cd");
    ZyDeque<ZyStringView> const tokens = text.tokenize(",");
    EXPECT_EQ(&tokens[1][0], text.c_str() + 3);
}

TEST(ZyStringTokenizing, RefusesAnEmptyDelimiter)
{
    EXPECT_ZY_THROW(ZyString("abc").tokenize(""), ZyInvalidParameterException, "Delimiter is empty");
    EXPECT_ZY_THROW(ZyString().tokenize("", strict), ZyInvalidParameterException, "Delimiter is empty");
}

TEST(ZyStringTokenizing, AgreesWithTheRuleOnManyTexts)
{
    Noise noise;
    for (int i = 0; i < 20000; ++i) {
        std::string const text = noise.text(70, "aAb,", 4);
        std::string delimiter = noise.text(2, "aA,", 3);
        delimiter += noise.next() % 2 ? "," : "a";
        for (auto comparison : {blind, strict}) {
            ZyString const whole(text);
            ASSERT_EQ(texts(whole.tokenize(ZyString(delimiter), comparison)),
                      tokenizeReference(text, delimiter, comparison))
                << text << " | " << delimiter;
        }
    }
}
