// SPDX-License-Identifier: BSD-3-Clause
// Tests of the tagged value.
#include <ZyVariant.h>

#include <Core/ZyVariant_p.h>
#include <ThrowsMessage.h>
#include <VirtualSlot.h>

#include <QString>
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using StringPair = ZyPair<ZyString, ZyString>;
using PathPair = ZyPair<ZyFilePath, ZyFilePath>;

static_assert(sizeof(ZyVariant) == 3 * sizeof(void *), "a table pointer, the state and the type");
static_assert(std::has_virtual_destructor_v<ZyVariant>);
static_assert(std::is_copy_constructible_v<ZyVariant> && std::is_move_assignable_v<ZyVariant>);
static_assert(ZyVariant::Null == 0 && ZyVariant::Boolean == 1 && ZyVariant::FilePath == 2 &&
              ZyVariant::FilePathPair == 3 && ZyVariant::Integer == 4 && ZyVariant::Double == 5 &&
              ZyVariant::Size == 6 && ZyVariant::String == 7 && ZyVariant::StringPair == 8);

// A pointer would become a Boolean, and then nobody would see it.
static_assert(!std::is_constructible_v<ZyVariant, int *> &&
              !std::is_constructible_v<ZyVariant, void const *>);
static_assert(!std::is_constructible_v<ZyVariant, wchar_t const *> &&
              !std::is_constructible_v<ZyVariant, ZyString *>);
static_assert(!std::is_constructible_v<ZyVariant, void (*)()> &&
              !std::is_constructible_v<ZyVariant, int ZyPair<int, int>::*>);
static_assert(std::is_constructible_v<ZyVariant, char *> && std::is_constructible_v<ZyVariant, char const *>);
static_assert(!std::is_constructible_v<ZyVariant, long long> &&
                  !std::is_constructible_v<ZyVariant, unsigned long>,
              "no number is narrowed silently");

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/** One value of every type, in the order of the types. */
std::vector<ZyVariant> everyKind()
{
    std::vector<ZyVariant> values(9);
    values[1].set(true);
    values[2].set(ZyFilePath("C:/a/b"));
    values[3].set(PathPair("a", "b"));
    values[4].set(-5);
    values[5].set(1.5);
    values[6].set(7u);
    values[7].set("Text");
    values[8].set(StringPair("x", "y"));
    return values;
}

std::string text(ZyVariant const & value)
{
    return value.toString().toStdString();
}

struct AfterVariant : ZyVariant
{
    virtual void last() {}
};
} // namespace

TEST(ZyVariant, DestructorIsItsOnlySlot)
{
#if ZY_SLOTS_VISIBLE
    EXPECT_EQ(virtualSlot(&AfterVariant::last), 2u);
#endif
}

TEST(ZyVariant, DefaultIsNull)
{
    ZyVariant const value;
    EXPECT_EQ(value.type(), ZyVariant::Null);
    EXPECT_EQ(text(value), "null");
    EXPECT_TRUE(value == ZyVariant());
    EXPECT_EQ(value.compare(ZyVariant()), 0);
}

TEST(ZyVariant, HoldsWhatItWasMadeOf)
{
    EXPECT_EQ(ZyVariant(true).asBoolean(), true);
    EXPECT_EQ(ZyVariant(-3).asInteger(), -3);
    EXPECT_EQ(ZyVariant(3u).asSize(), 3u);
    EXPECT_EQ(ZyVariant(2.5).asDouble(), 2.5);
    EXPECT_STREQ(ZyVariant("abc").asString().c_str(), "abc");
    EXPECT_STREQ(ZyVariant(ZyString("abc")).asString().c_str(), "abc");
    EXPECT_STREQ(ZyVariant(ZyFilePath("C:/a")).asFilePath().path().c_str(), "C:\\a");
    EXPECT_TRUE(ZyVariant(StringPair("a", "b")).asStringPair() == StringPair("a", "b"));
    EXPECT_TRUE(ZyVariant(PathPair("a", "b")).asFilePathPair() == PathPair("a", "b"));
}

TEST(ZyVariant, KeepsEveryBitOfNumbers)
{
    EXPECT_EQ(ZyVariant(INT_MIN).asInteger(), INT_MIN);
    EXPECT_EQ(ZyVariant(UINT_MAX).asSize(), UINT_MAX);
    EXPECT_EQ(ZyVariant(DBL_MAX).asDouble(), DBL_MAX);
    EXPECT_TRUE(std::signbit(ZyVariant(-0.0).asDouble()));
    EXPECT_TRUE(std::isnan(ZyVariant(notANumber).asDouble()));
}

TEST(ZyVariant, TypeFollowsTheConstructor)
{
    char characters[] = "abc";
    EXPECT_EQ(ZyVariant(false).type(), ZyVariant::Boolean);
    EXPECT_EQ(ZyVariant(0).type(), ZyVariant::Integer);
    EXPECT_EQ(ZyVariant('a').type(), ZyVariant::Integer);
    EXPECT_EQ(ZyVariant(0u).type(), ZyVariant::Size);
    EXPECT_EQ(ZyVariant(0.0).type(), ZyVariant::Double);
    EXPECT_EQ(ZyVariant("").type(), ZyVariant::String);
    EXPECT_EQ(ZyVariant(characters).type(), ZyVariant::String);
    EXPECT_EQ(ZyVariant(ZyString()).type(), ZyVariant::String);
    EXPECT_EQ(ZyVariant(QString()).type(), ZyVariant::String);
    EXPECT_EQ(ZyVariant(ZyFilePath()).type(), ZyVariant::FilePath);
    EXPECT_EQ(ZyVariant(StringPair()).type(), ZyVariant::StringPair);
    EXPECT_EQ(ZyVariant(PathPair()).type(), ZyVariant::FilePathPair);
}

TEST(ZyVariant, NullPointerIsTheEmptyText)
{
    char const * const none = nullptr;
    EXPECT_TRUE(ZyVariant(none).asString().isEmpty());
    EXPECT_TRUE(ZyVariant(nullptr).asString().isEmpty());
    ZyVariant value(5);
    value.set(none);
    EXPECT_TRUE(value.asString().isEmpty());
}

TEST(ZyVariant, TextKeepsEmbeddedNul)
{
    ZyString const characters(std::string("a\0b", 3));
    EXPECT_EQ(ZyVariant(characters).asString().size(), 3u);
    EXPECT_EQ(ZyVariant(characters).toString().size(), 3u);
    EXPECT_EQ(ZyVariant("a\0b").asString().size(), 1u);
}

TEST(ZyVariant, TakesTheCharactersOfATemporary)
{
    ZyString source("a text that is too long for the small buffer");
    char const * const characters = source.c_str();
    ZyVariant const made(std::move(source));
    EXPECT_EQ(made.asString().c_str(), characters);
    EXPECT_TRUE(source.isEmpty());

    ZyString other("another text that is too long for the small buffer");
    char const * const more = other.c_str();
    ZyVariant value(1);
    value.set(std::move(other));
    EXPECT_EQ(value.asString().c_str(), more);
    EXPECT_TRUE(other.isEmpty());
}

TEST(ZyVariant, ReadingAnotherKindNamesBoth)
{
    char const * const names[] = {"Null",   "Boolean", "FilePath", "FilePathPair", "Integer",
                                  "Double", "Size",    "String",   "StringPair"};
    for (ZyVariant const & value : everyKind()) {
        auto const expectRefusal = [&](ZyVariant::Type kind, auto const & read) {
            std::string const words = std::string("Bad variant access [requested = ") + names[kind] +
                                      "] [actual = " + names[value.type()] + "]";
            if (value.type() != kind) {
                EXPECT_ZY_THROW(read(), ZyBadVariantAccessException, words);
            } else {
                EXPECT_NO_THROW(read());
            }
        };
        expectRefusal(ZyVariant::Boolean, [&] { value.asBoolean(); });
        expectRefusal(ZyVariant::FilePath, [&] { value.asFilePath(); });
        expectRefusal(ZyVariant::FilePathPair, [&] { value.asFilePathPair(); });
        expectRefusal(ZyVariant::Integer, [&] { value.asInteger(); });
        expectRefusal(ZyVariant::Double, [&] { value.asDouble(); });
        expectRefusal(ZyVariant::Size, [&] { value.asSize(); });
        expectRefusal(ZyVariant::String, [&] { value.asString(); });
        expectRefusal(ZyVariant::StringPair, [&] { value.asStringPair(); });
    }
}

TEST(ZyVariant, TextOfANullIsRefused)
{
    EXPECT_ZY_THROW(ZyVariant().asString(), ZyBadVariantAccessException,
                    "Bad variant access [requested = String] [actual = Null]");
}

TEST(ZyVariant, NothingIsWidened)
{
    EXPECT_ZY_THROW(ZyVariant(1).asDouble(), ZyBadVariantAccessException,
                    "Bad variant access [requested = Double] [actual = Integer]");
    EXPECT_ZY_THROW(ZyVariant(1u).asInteger(), ZyBadVariantAccessException,
                    "Bad variant access [requested = Integer] [actual = Size]");
}

TEST(ZyBadVariantAccessException, NamesUnknownTypes)
{
    ZyBadVariantAccessException const failure(static_cast<ZyVariant::Type>(9),
                                              static_cast<ZyVariant::Type>(-1));
    EXPECT_STREQ(failure.what(), "Bad variant access [requested = Unknown] [actual = Unknown]");
    EXPECT_STREQ(failure.name(), "ZyBadVariantAccessException");
}

TEST(ZyBadVariantAccessException, CopiesAndIsCaughtAsTheBase)
{
    ZyBadVariantAccessException const failure(ZyVariant::Double, ZyVariant::Size);
    ZyBadVariantAccessException const copy(failure);
    EXPECT_STREQ(copy.what(), "Bad variant access [requested = Double] [actual = Size]");
    EXPECT_THROW(throw failure, ZyException);
}

TEST(ZyVariant, CopiesAreDeep)
{
    for (ZyVariant const & value : everyKind()) {
        ZyVariant copy(value);
        EXPECT_EQ(copy.type(), value.type());
        EXPECT_TRUE(copy == value);
        copy.set("changed");
        EXPECT_FALSE(copy == value);
    }
    ZyVariant const first("abc");
    ZyVariant const second(first);
    EXPECT_NE(first.asString().c_str(), second.asString().c_str());
}

TEST(ZyVariant, AssignsEveryKindOverEveryKind)
{
    std::vector<ZyVariant> const values = everyKind();
    for (ZyVariant const & source : values) {
        for (ZyVariant const & before : values) {
            ZyVariant copied(before);
            copied = source;
            EXPECT_EQ(copied.type(), source.type());
            EXPECT_TRUE(copied == source);
            EXPECT_EQ(text(copied), text(source));

            ZyVariant moved(before);
            ZyVariant temporary(source);
            moved = std::move(temporary);
            EXPECT_TRUE(moved == source);

            ZyVariant set(before);
            set.set(source);
            EXPECT_TRUE(set == source);
        }
    }
}

TEST(ZyVariant, SetTakesEveryArgument)
{
    ZyVariant value;
    value.set(true);
    EXPECT_EQ(value.asBoolean(), true);
    value.set(5);
    EXPECT_EQ(value.asInteger(), 5);
    value.set(6u);
    EXPECT_EQ(value.asSize(), 6u);
    value.set(7.5);
    EXPECT_EQ(value.asDouble(), 7.5);
    value.set("literal");
    EXPECT_TRUE(value.asString() == "literal");
    ZyString const named("named");
    value.set(named);
    EXPECT_TRUE(value.asString() == "named");
    value.set(ZyFilePath("a/b"));
    EXPECT_TRUE(value.asFilePath() == "a\\b");
    value.set(StringPair("a", "b"));
    EXPECT_TRUE(value.asStringPair().second == "b");
    value.set(PathPair("c", "d"));
    EXPECT_TRUE(value.asFilePathPair().second == "d");
    value.set(ZyVariant());
    EXPECT_EQ(value.type(), ZyVariant::Null);
}

TEST(ZyVariant, AssignsValuesOfOneKindInPlace)
{
    ZyVariant number(1.5);
    double const & inside = number.asDouble();
    number.set(2.5);
    EXPECT_EQ(inside, 2.5);
    number = ZyVariant(3.5);
    EXPECT_EQ(inside, 3.5);
    ZyVariant words("one");
    ZyString const & held = words.asString();
    words.set("two");
    EXPECT_TRUE(held == "two");
}

TEST(ZyVariant, AssignsToItself)
{
    for (ZyVariant value : everyKind()) {
        std::string const before = text(value);
        ZyVariant & same = value;
        value = same;
        EXPECT_EQ(text(value), before);
        value = std::move(same);
        EXPECT_EQ(text(value), before);
        value.set(same);
        EXPECT_EQ(text(value), before);
    }
}

TEST(ZyVariant, TakesAPartOfItself)
{
    ZyVariant value(StringPair("a text that is too long for the small buffer", "second"));
    value.set(value.asStringPair().first);
    EXPECT_STREQ(value.asString().c_str(), "a text that is too long for the small buffer");
    value.set(value.asString());
    EXPECT_STREQ(value.asString().c_str(), "a text that is too long for the small buffer");
    value.set(value.asString().c_str());
    EXPECT_STREQ(value.asString().c_str(), "a text that is too long for the small buffer");
    value.set(StringPair("a", "b"));
    value.set(value.asStringPair());
    EXPECT_TRUE(value.asStringPair() == StringPair("a", "b"));
    value.set(PathPair("c:/some/directory/that/is/long", "d"));
    value.set(value.asFilePathPair().first);
    EXPECT_STREQ(value.asFilePath().path().c_str(), "c:\\some\\directory\\that\\is\\long");
    value.set(value.asFilePath().path());
    EXPECT_STREQ(value.asString().c_str(), "c:\\some\\directory\\that\\is\\long");
    value.set(2.5);
    value.set(value.asDouble());
    EXPECT_EQ(value.asDouble(), 2.5);
}

TEST(ZyVariant, MovedFromByConstructionIsNull)
{
    for (ZyVariant value : everyKind()) {
        std::string const before = text(value);
        ZyVariant const moved(std::move(value));
        EXPECT_EQ(text(moved), before);
        EXPECT_EQ(value.type(), ZyVariant::Null);
        EXPECT_EQ(text(value), "null");
        EXPECT_TRUE(value == ZyVariant());
        EXPECT_TRUE(ZyVariant() == value);
        EXPECT_ZY_THROW(value.asBoolean(), ZyBadVariantAccessException,
                        "Bad variant access [requested = Boolean] [actual = Null]");
        value.set("again");
        EXPECT_TRUE(value.asString() == "again");
    }
}

TEST(ZyVariant, CopyOfAMovedFromOneIsNull)
{
    ZyVariant value("abc");
    ZyVariant const moved(std::move(value));
    ZyVariant copy(value);
    EXPECT_EQ(copy.type(), ZyVariant::Null);
    copy = ZyVariant(1);
    copy = value;
    EXPECT_TRUE(copy == ZyVariant());
    ZyVariant const again(std::move(value));
    EXPECT_EQ(again.type(), ZyVariant::Null);
}

TEST(ZyVariant, Deliberate_variant_move_keeps_the_type)
{
    for (ZyVariant value : everyKind()) {
        ZyVariant::Type const type = value.type();
        ZyVariant target;
        target = std::move(value);
        EXPECT_EQ(value.type(), type);
        EXPECT_EQ(target.type(), type);
        EXPECT_NO_THROW(value.toString());
        EXPECT_NO_THROW(static_cast<void>(value.compare(target)));
        value.set(3);
        EXPECT_EQ(value.asInteger(), 3);
    }
    ZyVariant words("abc");
    ZyVariant target("x");
    target.set(std::move(words));
    EXPECT_TRUE(words.asString().isEmpty());
    EXPECT_TRUE(target.asString() == "abc");
}

TEST(ZyVariant, SwapMovesNothing)
{
    ZyVariant first("abc");
    ZyVariant second(5);
    ZyString const * const inside = &first.asString();
    first.swap(second);
    EXPECT_EQ(first.asInteger(), 5);
    EXPECT_EQ(&second.asString(), inside);
    swap(first, second);
    EXPECT_EQ(&first.asString(), inside);
    first.swap(first);
    EXPECT_TRUE(first.asString() == "abc");
}

TEST(ZyVariantCompare, DifferentTypesDifferByTheirNumbers)
{
    std::vector<ZyVariant> const values = everyKind();
    for (ZyVariant const & a : values) {
        for (ZyVariant const & b : values) {
            EXPECT_EQ(a.compare(b), a.type() - b.type());
            EXPECT_EQ(a == b, a.type() == b.type());
            EXPECT_EQ(a != b, a.type() != b.type());
        }
    }
}

TEST(ZyVariantCompare, EqualNumbersOfDifferentTypesAreUnequal)
{
    EXPECT_FALSE(ZyVariant(1) == ZyVariant(1.0));
    EXPECT_EQ(ZyVariant(1).compare(ZyVariant(1.0)), -1);
    EXPECT_FALSE(ZyVariant(1u) == ZyVariant(1));
    EXPECT_EQ(ZyVariant(1u).compare(ZyVariant(1)), 2);
}

TEST(ZyVariantCompare, NumbersOfOneTypeByValue)
{
    EXPECT_EQ(ZyVariant(1).compare(ZyVariant(2)), -1);
    EXPECT_EQ(ZyVariant(2).compare(ZyVariant(1)), 1);
    EXPECT_EQ(ZyVariant(INT_MIN).compare(ZyVariant(INT_MAX)), -1);
    EXPECT_EQ(ZyVariant(1u).compare(ZyVariant(UINT_MAX)), -1);
    EXPECT_EQ(ZyVariant(false).compare(ZyVariant(true)), -1);
    EXPECT_EQ(ZyVariant(true).compare(ZyVariant(false)), 1);
    EXPECT_EQ(ZyVariant(-1.0).compare(ZyVariant(1.0)), -1);
    EXPECT_EQ(ZyVariant(5).compare(ZyVariant(5)), 0);
}

TEST(ZyVariantCompare, Deliberate_variant_order_is_tolerant_of_doubles)
{
    EXPECT_TRUE(ZyVariant(0.1 + 0.2) == ZyVariant(0.3));
    EXPECT_TRUE(ZyVariant(1.0) == ZyVariant(1.0 + 1e-15));
    EXPECT_EQ(ZyVariant(1.0).compare(ZyVariant(1.0 + 4.6e-15)), -1);
    EXPECT_TRUE(ZyVariant(0.0) == ZyVariant(-0.0));
}

TEST(ZyVariantCompare, Deliberate_variant_order_is_tolerant_but_not_of_infinities_and_nan)
{
    EXPECT_EQ(ZyVariant(infinity).compare(ZyVariant(infinity)), 1);
    EXPECT_EQ(ZyVariant(notANumber).compare(ZyVariant(notANumber)), 1);
    EXPECT_EQ(ZyVariant(notANumber).compare(ZyVariant(1.0)), 1);
    EXPECT_EQ(ZyVariant(1.0).compare(ZyVariant(notANumber)), 1);
    EXPECT_EQ(ZyVariant(-infinity).compare(ZyVariant(infinity)), -1);
    ZyVariant const value(notANumber);
    EXPECT_FALSE(value == value);
}

TEST(ZyVariantCompare, TextIgnoresCase)
{
    EXPECT_TRUE(ZyVariant("ABC") == ZyVariant("abc"));
    EXPECT_EQ(ZyVariant("abc").compare(ZyVariant("ABD")), -1);
    EXPECT_EQ(ZyVariant("ABD").compare(ZyVariant("abc")), 1);
    EXPECT_EQ(ZyVariant("ab").compare(ZyVariant("ABC")), -1);
    EXPECT_EQ(ZyVariant("z").compare(ZyVariant("a")), 1);
    EXPECT_EQ(ZyVariant("").compare(ZyVariant("")), 0);
    EXPECT_EQ(ZyVariant("\xC3\xA9").compare(ZyVariant("a")), -1);
}

TEST(ZyVariantCompare, PathsIgnoreCase)
{
    EXPECT_TRUE(ZyVariant(ZyFilePath("C:/A")) == ZyVariant(ZyFilePath("c:\\a")));
    EXPECT_EQ(ZyVariant(ZyFilePath("a")).compare(ZyVariant(ZyFilePath("B"))), -1);
    EXPECT_EQ(ZyVariant(ZyFilePath("B")).compare(ZyVariant(ZyFilePath("a"))), 1);
}

TEST(ZyVariantCompare, PairsByTheFirstThenByTheSecond)
{
    auto const compare = [](auto const & a, auto const & b) { return ZyVariant(a).compare(ZyVariant(b)); };
    EXPECT_EQ(compare(StringPair("a", "B"), StringPair("A", "b")), 0);
    EXPECT_EQ(compare(StringPair("a", "z"), StringPair("b", "a")), -1);
    EXPECT_EQ(compare(StringPair("b", "a"), StringPair("a", "z")), 1);
    EXPECT_EQ(compare(StringPair("a", "a"), StringPair("A", "b")), -1);
    EXPECT_EQ(compare(StringPair("a", "b"), StringPair("A", "a")), 1);
    EXPECT_EQ(compare(PathPair("a", "b"), PathPair("A", "B")), 0);
    EXPECT_EQ(compare(PathPair("a", "b"), PathPair("a", "c")), -1);
    EXPECT_EQ(compare(PathPair("b", "b"), PathPair("a", "c")), 1);
}

TEST(ZyVariantText, ToStringOfEveryKind)
{
    EXPECT_EQ(text(ZyVariant()), "null");
    EXPECT_EQ(text(ZyVariant(true)), "true");
    EXPECT_EQ(text(ZyVariant(false)), "false");
    EXPECT_EQ(text(ZyVariant(ZyFilePath("C:/a/b"))), "C:\\a\\b");
    EXPECT_EQ(text(ZyVariant(PathPair("a/b", "c"))), "[a\\b,c]");
    EXPECT_EQ(text(ZyVariant(INT_MIN)), "-2147483648");
    EXPECT_EQ(text(ZyVariant(1234567.0)), "1.23457e+06");
    EXPECT_EQ(text(ZyVariant(1.0)), "1");
    EXPECT_EQ(text(ZyVariant(UINT_MAX)), "4294967295");
    EXPECT_EQ(text(ZyVariant("Text")), "Text");
    EXPECT_EQ(text(ZyVariant(StringPair("a", "b"))), "[a,b]");
    EXPECT_EQ(text(ZyVariant(StringPair())), "[,]");
}

TEST(ZyVariantText, NamesOfTheTypes)
{
    char const * const names[] = {"Null",   "Boolean", "FilePath", "FilePathPair", "Integer",
                                  "Double", "Size",    "String",   "StringPair"};
    for (int type = 0; type < 9; ++type) {
        EXPECT_STREQ(ZyVariant::TypeString(static_cast<ZyVariant::Type>(type)), names[type]);
        EXPECT_EQ(ZyVariant::StringType(names[type]), type);
    }
}

TEST(ZyVariantText, OtherNumbersHaveNoName)
{
    for (int const type : {-1, 9, 100, INT_MAX, INT_MIN}) {
        EXPECT_STREQ(ZyVariant::TypeString(static_cast<ZyVariant::Type>(type)), "Unknown");
    }
}

TEST(ZyVariantText, TypesOfNamesIgnoreCase)
{
    EXPECT_EQ(ZyVariant::StringType("double"), ZyVariant::Double);
    EXPECT_EQ(ZyVariant::StringType("STRINGPAIR"), ZyVariant::StringPair);
    EXPECT_EQ(ZyVariant::StringType("Whatever"), ZyVariant::Null);
    EXPECT_EQ(ZyVariant::StringType("Null"), ZyVariant::Null);
    EXPECT_EQ(ZyVariant::StringType(""), ZyVariant::Null);
    EXPECT_EQ(ZyVariant::StringType(" Double"), ZyVariant::Null);
    EXPECT_EQ(ZyVariant::StringType("Unknown"), ZyVariant::Null);
}

TEST(ZyVariantAccess, TextMakesAStringOfExactlyTheCharacters)
{
    ZyVariant const value(ZyVariantAccess::text(std::string("a\0b", 3)));
    EXPECT_EQ(value.type(), ZyVariant::String);
    EXPECT_EQ(value.asString().toStdString(), std::string("a\0b", 3));
}

TEST(ZyVariantAccess, TakeHandsTheStateOver)
{
    std::vector<ZyVariant> cells;
    cells.reserve(1);
    {
        ZyVariant source("abc");
        ZyString const * const inside = &source.asString();
        cells.emplace_back(ZyVariantAccess::take(source));
        EXPECT_EQ(&cells[0].asString(), inside);
    } // the source, which has no state left, may be destroyed
    EXPECT_TRUE(cells[0].asString() == "abc");
}

TEST(ZyVariantAccess, ReserveRelocatesTheCells)
{
    std::vector<ZyVariant> cells;
    ZyVariantAccess::reserve(cells, 2);
    cells.emplace_back(1.5);
    cells.emplace_back("abc");
    double const * const number = &cells[0].asDouble();
    ZyString const * const words = &cells[1].asString();
    ZyVariantAccess::reserve(cells, 1000);
    EXPECT_GE(cells.capacity(), 1000u);
    ASSERT_EQ(cells.size(), 2u);
    EXPECT_EQ(&cells[0].asDouble(), number);
    EXPECT_EQ(&cells[1].asString(), words);
    ZyVariant const * const place = cells.data();
    ZyVariantAccess::reserve(cells, 10);
    EXPECT_EQ(cells.data(), place);
}
