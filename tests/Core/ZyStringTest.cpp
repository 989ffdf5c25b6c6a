// SPDX-License-Identifier: BSD-3-Clause
// A string's life: construction, conversion, access, joining, copies and moves.
#include <ZyException.h>
#include <ZyString.h>

#include "Environment.h"
#include "ThrowsMessage.h"

#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <QString>
#include <QStringRef>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

static_assert(sizeof(ZyString) == 2 * sizeof(void *));
static_assert(std::is_copy_constructible_v<ZyString> && std::is_copy_assignable_v<ZyString>);
static_assert(std::is_base_of_v<ZyComparableString, ZyString>);
static_assert(!std::is_constructible_v<bool, ZyString const &>, "a string is no condition");
static_assert(ZyString::LettersAndDigits == 0 && ZyString::Digits == 1 && ZyString::LowerCase == 2 &&
              ZyString::UpperCase == 3 && ZyString::Letters == 4);

namespace
{
std::string bytes(ZyString const & text)
{
    return text.toStdString();
}
} // namespace

TEST(ZyStringConstruction, TakesEveryForm)
{
    EXPECT_EQ(bytes(ZyString()), "");
    EXPECT_EQ(bytes(ZyString("abc")), "abc");
    EXPECT_EQ(bytes(ZyString('x')), "x");
    EXPECT_EQ(bytes(ZyString(-2147483647 - 1)), "-2147483648");
    EXPECT_EQ(bytes(ZyString(4294967295u)), "4294967295");
    EXPECT_EQ(bytes(ZyString(-9223372036854775807LL - 1)), "-9223372036854775808");
    EXPECT_EQ(bytes(ZyString(std::string("a\0b", 3))), std::string("a\0b", 3));
    std::string const kept("kept");
    EXPECT_EQ(bytes(ZyString(kept)), "kept");
    EXPECT_EQ(bytes(ZyString(QString(QChar(0xE4)))), "\xC3\xA4");
    QString const wide = QStringLiteral("abcdef");
    EXPECT_EQ(bytes(ZyString(QStringRef(&wide, 1, 3))), "bcd");
    EXPECT_EQ(bytes(ZyString(ZyStringView("view"))), "view");
    EXPECT_EQ(bytes(ZyString(YString("y"))), "y");
    EXPECT_EQ(bytes(ZyString(TempString("t"))), "t");
}

TEST(ZyStringConstruction, TakesANullPointerAsTheEmptyText)
{
    char const * const none = nullptr;
    EXPECT_TRUE(ZyString(none).isEmpty());
    ZyString text("abc");
    text += none;
    text.append(none);
    EXPECT_EQ(bytes(text + none), "abc");
    EXPECT_EQ(bytes(none + text), "abc");
    text = none;
    EXPECT_TRUE(text.isEmpty());
}

TEST(ZyStringConstruction, StopsCTextAtTheFirstNul)
{
    EXPECT_EQ(ZyString("ab\0cd").size(), 2u);
}

TEST(ZyStringConstruction, KeepsWhatUtf8CannotHoldOutOfTheBytes)
{
    EXPECT_EQ(bytes(ZyString(QString(QChar(0xD800)))), "?");
    EXPECT_EQ(bytes(ZyString(QString(QChar(0)))), std::string(1, '\0'));
}

TEST(ZyStringMove, LeavesAUsableEmptyString)
{
    ZyString source("a text that does not fit into the small buffer");
    ZyString const target = std::move(source);
    EXPECT_TRUE(source.isEmpty());
    EXPECT_EQ(bytes(target), "a text that does not fit into the small buffer");
    source += "again";
    EXPECT_EQ(bytes(source), "again");
    ZyString other("o");
    other = std::move(source);
    EXPECT_EQ(bytes(other), "again");
    EXPECT_TRUE(source.isEmpty());
}

TEST(ZyStringMove, OntoItselfChangesNothing)
{
    ZyString text("long enough to live on the heap, that is");
    ZyString & same = text;
    text = same;
    EXPECT_EQ(bytes(text), "long enough to live on the heap, that is");
    text = std::move(same);
    EXPECT_EQ(bytes(text), "long enough to live on the heap, that is");
    ZyString brief("s");
    ZyString & sameBrief = brief;
    brief = std::move(sameBrief);
    EXPECT_EQ(bytes(brief), "s");
}

TEST(ZyStringCopy, IsDeep)
{
    ZyString first("abc");
    ZyString const copy(first);
    first[0] = 'X';
    EXPECT_EQ(bytes(copy), "abc");
    EXPECT_EQ(bytes(first), "Xbc");
}

TEST(ZyStringConversion, GivesOneBufferUnderFourNames)
{
    ZyString const text("abc");
    EXPECT_EQ(text.c_str(), text.toCString());
    EXPECT_EQ(text.c_str(), text.tocs());
    EXPECT_EQ(text.c_str(), static_cast<char const *>(text));
    EXPECT_EQ(text.c_str(), text.toStdString().c_str());
}

TEST(ZyStringConversion, HandsOutTheStringItself)
{
    ZyString text("abc");
    text.toStdString() += "d";
    EXPECT_EQ(text.size(), 4u);
}

TEST(ZyStringConversion, DecodesForQtUpToTheFirstNul)
{
    EXPECT_EQ(ZyString("\xC3\xA4").toQString(), QString(QChar(0xE4)));
    EXPECT_EQ(ZyString(std::string("a\0b", 3)).toQString(), QStringLiteral("a"));
    EXPECT_EQ(ZyString("\xEF\xBB\xBF"
                       "abc")
                  .toQString(),
              QStringLiteral("abc"));
    EXPECT_EQ(ZyString("a\xFF").toQString(), QStringLiteral("a") + QChar(0xFFFD));
    QString const implicit = ZyString("x");
    EXPECT_EQ(implicit, QStringLiteral("x"));
}

TEST(ZyStringConversion, GoesToTheSupportLibraryAndBack)
{
    ZyString const text(std::string("ab\0c", 4));
    EXPECT_STREQ(text.toYString().c_str(), "ab");
    YString const there = text;
    ZyString const back = there;
    EXPECT_EQ(bytes(back), "ab");
    PrintfArg const argument = text;
    EXPECT_EQ(argument.kind, 0);
    EXPECT_EQ(argument.spare, 0);
    EXPECT_EQ(argument.value.text, text.c_str());
}

TEST(ZyStringConversion, DecodesWideText)
{
    EXPECT_EQ(ZyString("a\xC3\xA4").toWString(), L"a\u00E4");
    EXPECT_EQ(ZyString("\xF0\x9F\x98\x80").toWString(), L"\U0001F600");
    EXPECT_EQ(ZyString(std::string("a\0b", 3)).toWString(), L"a");
    EXPECT_EQ(ZyString("\xEF\xBB\xBF").toWString(), L"\uFEFF");
    EXPECT_EQ(ZyString("\xEE\x80\x80\xF4\x8F\xBF\xBF\xED\x9F\xBF").toWString(), L"\uE000\U0010FFFF\uD7FF");
}

class ZyStringMalformed : public testing::TestWithParam<char const *>
{};

TEST_P(ZyStringMalformed, Deliberate_wide_text_throws_a_standard_error)
{
    EXPECT_STD_THROW(ZyString(GetParam()).toWString(), std::range_error, "bad conversion");
}

INSTANTIATE_TEST_SUITE_P(Utf8, ZyStringMalformed,
                         testing::Values("a\xC3", "\x80", "\xC0\xAF", "\xC1\x81", "\xE0\x80\x80",
                                         "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF",
                                         "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "\xE2\x82", "\xC3(",
                                         "\xF0\x9F\x98"));

TEST(ZyStringNumbers, ReadIntegersAsTheHomePlatformDoes)
{
    EXPECT_EQ(ZyString("42").toInt(), 42);
    EXPECT_EQ(ZyString("  -7x").toInt(), -7);
    EXPECT_EQ(ZyString("+5").toInt(), 5);
    EXPECT_EQ(ZyString("").toInt(), 0);
    EXPECT_EQ(ZyString("abc").toInt(), 0);
    EXPECT_EQ(ZyString("2147483647").toInt(), 2147483647);
    EXPECT_EQ(ZyString("2147483648").toInt(), 2147483647);
    EXPECT_EQ(ZyString("-2147483648").toInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(ZyString("-2147483649").toInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(ZyString("99999999999999999999999999").toInt(), 2147483647);
    EXPECT_EQ(ZyString("- 5").toInt(), 0);
}

TEST(ZyStringNumbers, ReadDoublesAsTheCLibraryDoes)
{
    EXPECT_EQ(ZyString("1.5").toDouble(), 1.5);
    EXPECT_EQ(ZyString("  -1e3abc").toDouble(), -1000.0);
    EXPECT_EQ(ZyString("+.5").toDouble(), 0.5);
    EXPECT_EQ(ZyString("0x1p3").toDouble(), 8.0);
    EXPECT_EQ(ZyString("-0x10").toDouble(), -16.0);
    EXPECT_EQ(ZyString("1e400").toDouble(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ZyString("-inf").toDouble(), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(ZyString("nan").toDouble() != ZyString("nan").toDouble());
    EXPECT_EQ(ZyString("1e").toDouble(), 1.0);
    EXPECT_EQ(ZyString("1e-400").toDouble(), 0.0);
    EXPECT_EQ(ZyString("5e-324").toDouble(), 5e-324);
    EXPECT_EQ(ZyString("").toDouble(), 0.0);
    EXPECT_EQ(ZyString("x1").toDouble(), 0.0);
    EXPECT_TRUE(std::signbit(ZyString("-0").toDouble()));
}

struct SizeCase
{
    char const * text;
    unsigned int value;
};

class ZyStringToSizeT : public testing::TestWithParam<SizeCase>
{};

TEST_P(ZyStringToSizeT, ReadsAsAStreamDoes)
{
    EXPECT_EQ(ZyString(GetParam().text).toSizeT(), GetParam().value);
    std::locale const former = std::locale::global(std::locale(std::locale::classic(), new std::ctype<char>));
    EXPECT_EQ(ZyString(GetParam().text).toSizeT(), GetParam().value);
    std::locale::global(former);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, ZyStringToSizeT,
    testing::Values(SizeCase{"", 0}, SizeCase{"abc", 0}, SizeCase{"-", 0}, SizeCase{"- 5", 0},
                    SizeCase{"12abc", 12}, SizeCase{"1e3", 1}, SizeCase{"1,000", 1}, SizeCase{"0x10", 0},
                    SizeCase{"010", 10}, SizeCase{" \t7", 7}, SizeCase{"+5", 5}, SizeCase{"-1", 4294967295u},
                    SizeCase{"4294967295", 4294967295u}, SizeCase{"4294967296", 4294967295u},
                    SizeCase{"99999999999", 4294967295u}, SizeCase{"99999999999999999999999", 4294967295u},
                    SizeCase{"-4294967296", 4294967295u}, SizeCase{"-4294967295", 1}));

TEST(ZyStringNumbers, TellCanonicalIntegers)
{
    for (char const * yes : {"12", " 12 ", "-5", "0", "-2147483648", "2147483647", "\t7\n"}) {
        EXPECT_TRUE(ZyString(yes).isInteger()) << yes;
    }
    for (char const * no :
         {"+12", "012", "-0", "1.0", "", " ", "-", "1 2", "2147483648", "4294967297", "12a", "--1"}) {
        EXPECT_FALSE(ZyString(no).isInteger()) << no;
    }
}

TEST(ZyStringNumbers, TellDoubles)
{
    for (char const * yes : {" 1.5 ", "1e3", "inf", "NAN", "nan(1)", "0x1p3", "1e400", "+.5", "-.5e-7", "1.",
                             "-Infinity", "\t2\v"}) {
        EXPECT_TRUE(ZyString(yes).isDouble()) << yes;
    }
    for (char const * no :
         {"", "  ", "1,5", "1.5x", ".", "1e", "-", "0x", "i", "1 2", "node", "--1", "+-1"}) {
        EXPECT_FALSE(ZyString(no).isDouble()) << no;
    }
}

TEST(ZyStringNumbers, PrintSixSignificantDigits)
{
    EXPECT_EQ(bytes(ZyString::ToString(1234567.0)), "1.23457e+06");
    EXPECT_EQ(bytes(ZyString::ToString(0.1)), "0.1");
    EXPECT_EQ(bytes(ZyString::ToString(-0.0)), "-0");
    EXPECT_EQ(bytes(ZyString::ToString(100000.0)), "100000");
    EXPECT_EQ(bytes(ZyString::ToString(1e-5)), "1e-05");
    EXPECT_EQ(bytes(ZyString::ToString(5e-324)), "4.94066e-324");
    EXPECT_EQ(bytes(ZyString::ToString(std::numeric_limits<double>::max())), "1.79769e+308");
    EXPECT_EQ(bytes(ZyString::ToString(-std::numeric_limits<double>::infinity())), "-inf");
    EXPECT_EQ(bytes(ZyString::ToString(std::numeric_limits<double>::quiet_NaN())), "nan");
}

TEST(ZyStringNumbers, AreNotTouchedByTheLocaleOfTheProcess)
{
    std::string const former = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, Environment::germanLocale)) {
        GTEST_SKIP() << "no German locale on this machine";
    }
    EXPECT_EQ(bytes(ZyString::ToString(1.5)), "1.5");
    EXPECT_EQ(ZyString("1.5").toDouble(), 1.5);
    EXPECT_EQ(ZyString("+1.5").toDouble(), 1.5);
    EXPECT_TRUE(ZyString("1.5").isDouble());
    EXPECT_TRUE(ZyString(" +1.5").isDouble());
    EXPECT_FALSE(ZyString("1,5").isDouble());
    std::setlocale(LC_ALL, former.c_str());
}

TEST(ZyStringAccess, IsCheckedByAt)
{
    ZyString text("abc");
    EXPECT_EQ(text.at(2), 'c');
    text.at(0) = 'X';
    EXPECT_EQ(bytes(text), "Xbc");
    EXPECT_ZY_THROW(text.at(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    ZyString const empty;
    EXPECT_ZY_THROW(empty.at(0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
    EXPECT_EQ(text[1], 'b');
    text[1] = 'Y';
    EXPECT_EQ(static_cast<ZyString const &>(text)[1], 'Y');
}

TEST(ZyStringJoining, KeepsNullBytes)
{
    ZyString const a(std::string("a\0", 2));
    EXPECT_EQ((a + a).size(), 4u);
    EXPECT_EQ(bytes(a + "b"), std::string("a\0b", 3));
    EXPECT_EQ(bytes(a + ZyStringView(a)), std::string("a\0a\0", 4));
    EXPECT_EQ(bytes("x" + a), std::string("xa\0", 3));
}

TEST(ZyStringJoining, HasManyNames)
{
    ZyString text("a");
    ZyString & result = text.append(ZyString("b")).append("c").concat("d");
    text += ZyString("e");
    text += "f";
    EXPECT_EQ(bytes(text), "abcdef");
    EXPECT_EQ(&result, &text);
    text += text;
    EXPECT_EQ(bytes(text), "abcdefabcdef");
    text.append(text.c_str() + 10);
    EXPECT_EQ(bytes(text), "abcdefabcdefef");
}

TEST(ZyStringLocale, IsASnapshotOfTheConstruction)
{
    // The global locale changes while the string lives: what uses the string's own locale does not see it.
    class Spaces : public std::ctype<char>
    {
    public:
        Spaces() : std::ctype<char>(table()) {}
        static mask const * table()
        {
            static mask marks[table_size];
            std::copy(classic_table(), classic_table() + table_size, marks);
            marks[static_cast<unsigned char>('x')] |= space;
            return marks;
        }
    };
    ZyString before("xax");
    std::locale const former = std::locale::global(std::locale(std::locale::classic(), new Spaces));
    ZyString after("xax");
    ZyString assigned;
    assigned = before;
    bool const white = ZyString::IsWhiteSpace('x');
    bool const contains = before.containsWhiteSpace();
    std::locale::global(former);
    EXPECT_EQ(bytes(before.trim()), "xax");
    EXPECT_EQ(bytes(after.trim()), "a");
    EXPECT_EQ(bytes(assigned.trim()), "a") << "assignment leaves the target its own locale";
    ZyString const copy(after);
    EXPECT_TRUE(white);
    EXPECT_TRUE(contains);
    EXPECT_FALSE(ZyString::IsWhiteSpace('x'));
}

TEST(ZyStringLocale, Deliberate_assignment_keeps_locale)
{
    class Digits : public std::ctype<char>
    {
    protected:
        char do_tolower(char c) const override { return c == '1' ? '2' : std::ctype<char>::do_tolower(c); }
    };
    std::locale const former = std::locale::global(std::locale(std::locale::classic(), new Digits));
    ZyString const odd("1");
    std::locale::global(former);
    ZyString assigned;
    assigned = odd;
    ZyString const copied(odd);
    EXPECT_TRUE(odd.equal("2", ZyComparableString::CaseInsensitive));
    EXPECT_TRUE(copied.equal("2", ZyComparableString::CaseInsensitive));
    EXPECT_FALSE(assigned.equal("2", ZyComparableString::CaseInsensitive));
}
