// SPDX-License-Identifier: BSD-3-Clause
// The standard bindings: what each type is written as, and what is read back.
#include <ZyXMLObject.h>

#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyBase64Converter.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPoint.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;

using FilePathPair = ZyPair<ZyFilePath, ZyFilePath>;
using StringPair = ZyPair<ZyString, ZyString>;

constexpr char const * uri = "http://schemas.zycore.example/schemas/application/zytypes/";

/** What Write puts into an element, without the element and the line end behind the document. */
template <class T>
std::string written(T const & value)
{
    std::string const document =
        writtenDocument([&](ZyXMLElementWriter & root) { ZyXMLObject<T>::Write(root, value); });
    if (document == "<r/>\n") {
        return "";
    }
    EXPECT_EQ(document.substr(0, 3), "<r>");
    EXPECT_EQ(document.substr(document.size() - 5), "</r>\n");
    return document.substr(3, document.size() - 8);
}

/** What is read where the values were written one after the other. */
template <class T>
std::vector<T> roundTrip(std::vector<T> const & values)
{
    std::string const document = writtenValues(values);
    return loadValues<T>(document.substr(3, document.rfind("</r>") - 3));
}

/** A child element as the stream writer spells it, with the number of its invented prefix. */
std::string child(char const * name, int number, std::string const & content)
{
    std::string const prefix = "n" + std::to_string(number);
    std::string const start = "<" + prefix + ":" + name + " xmlns:" + prefix + "=\"" + uri + "\"";
    return content.empty() ? start + "></" + prefix + ":" + name + ">"
                           : start + ">" + content + "</" + prefix + ":" + name + ">";
}

std::uint64_t bitsOf(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

std::string base64(double value)
{
    return ZyString::Base64(value).toStdString();
}

std::vector<double> const & oddDoubles()
{
    using Limits = std::numeric_limits<double>;
    static std::vector<double> const values{0.0,
                                            -0.0,
                                            0.1,
                                            1e300,
                                            Limits::denorm_min(),
                                            -Limits::denorm_min(),
                                            Limits::min(),
                                            Limits::max(),
                                            Limits::lowest(),
                                            Limits::infinity(),
                                            -Limits::infinity(),
                                            Limits::quiet_NaN(),
                                            -Limits::quiet_NaN()};
    return values;
}

template <class T>
void expectSameBits(T const & values, T const & expected)
{
    ASSERT_EQ(values.size(), expected.size());
    auto value = values.begin();
    for (double const wanted : expected) {
        EXPECT_EQ(bitsOf(*value++), bitsOf(wanted)) << wanted;
    }
}
} // namespace

TEST(ZyXMLObjectOfInt, IsDecimalText)
{
    EXPECT_EQ(written(-7), "-7");
    std::vector<int> const values{0, 1, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    EXPECT_EQ(roundTrip(values), values);
}

TEST(ZyXMLObjectOfInt, ReadsAsTextIsTurnedIntoNumbers)
{
    EXPECT_THAT(loadValues<int>("<v> 12 </v><v/><v>x</v><v>99999999999</v><v>3x</v>"),
                ElementsAre(12, 0, 0, std::numeric_limits<int>::max(), 3));
}

TEST(ZyXMLObjectOfDouble, IsBase64OfItsBytes)
{
    EXPECT_EQ(written(1.5), base64(1.5));
}

TEST(ZyXMLObjectOfDouble, KeepsEveryBit)
{
    expectSameBits(roundTrip(oddDoubles()), oddDoubles());
}

TEST(ZyXMLObjectOfDouble, RefusesText)
{
    EXPECT_ZY_THROW(loadValues<double>("<v>1.5</v>"), ZyInvalidParameterException, "Invalid string length");
    EXPECT_ZY_THROW(loadValues<double>("<v/>"), ZyInvalidParameterException, "Invalid string length");
}

TEST(ZyXMLObjectOfString, IsText)
{
    EXPECT_EQ(written(ZyString("a<b")), "a&lt;b");
    std::vector<ZyString> const values{"a", "", "a b", "<&>\"'", "\xC3\xA4\xE6\x97\xA5", "1\n2"};
    std::vector<ZyString> const read = roundTrip(values);
    ASSERT_EQ(read.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read[i].toStdString(), values[i].toStdString());
    }
}

TEST(ZyXMLObjectOfString, LosesWhiteSpaceAtItsEnds)
{
    EXPECT_EQ(roundTrip(std::vector<ZyString>{" \t a b \n"})[0].toStdString(), "a b");
}

TEST(ZyXMLObjectOfFilePath, IsItsStoredText)
{
    EXPECT_EQ(written(ZyFilePath("a/b c/")), "a\\b c\\");
    std::vector<ZyFilePath> const values{"a/b", ZyFilePath(), "C:\\x\\", "\\\\server\\share"};
    std::vector<ZyFilePath> const read = roundTrip(values);
    ASSERT_EQ(read.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read[i].toString().toStdString(), values[i].toString().toStdString());
    }
}

TEST(ZyXMLObjectOfPairs, AreTwoChildren)
{
    EXPECT_EQ(written(StringPair("a", "b")), child("First", 1, "a") + child("Second", 2, "b"));
    EXPECT_EQ(written(FilePathPair("a/b", "c")), child("First", 1, "a\\b") + child("Second", 2, "c"));
    EXPECT_EQ(written(StringPair()), child("First", 1, "") + child("Second", 2, ""));
}

TEST(ZyXMLObjectOfPairs, ComeBack)
{
    std::vector<StringPair> const texts{{"a", "b"}, {"", "c"}, {"d", ""}};
    EXPECT_EQ(roundTrip(texts), texts);
    std::vector<FilePathPair> const paths{{"a/b", "b"}, {"", "c"}, {"d", ""}};
    EXPECT_EQ(roundTrip(paths), paths);
}

TEST(ZyXMLObjectOfPairs, BeginEachElementAfresh)
{
    EXPECT_EQ(loadValues<StringPair>("<v><First>a</First><Second>b</Second></v><v><First>c</First></v><v/>"),
              (std::vector<StringPair>{{"a", "b"}, {"c", ""}, {"", ""}}));
    EXPECT_EQ(loadValues<FilePathPair>("<v><First>a</First><Second>b</Second></v><v><Second>c</Second></v>"),
              (std::vector<FilePathPair>{{"a", "b"}, {"", "c"}}));
}

TEST(ZyXMLObjectOfPoint, IsTwoChildren)
{
    EXPECT_EQ(written(ZyPoint(1, -2)), child("X", 1, "1") + child("Y", 2, "-2"));
    std::vector<ZyPoint> const values{{1, -2}, {0, 0}, {std::numeric_limits<int>::min(), 7}};
    EXPECT_EQ(roundTrip(values), values);
}

TEST(ZyXMLObjectOfPoint, Deliberate_point_carries_over)
{
    EXPECT_EQ(loadValues<ZyPoint>("<v><Y>8</Y></v><v><X>1</X><Y>2</Y></v><v><X>3</X></v><v><Y>4</Y></v><v/>"),
              (std::vector<ZyPoint>{{0, 8}, {1, 2}, {3, 2}, {3, 4}, {3, 4}}));
}

TEST(ZyXMLObjectOfPointD, IsTwoChildren)
{
    EXPECT_EQ(written(ZyPointD(1.5, -2)), child("X", 1, base64(1.5)) + child("Y", 2, base64(-2)));
    for (double const value : oddDoubles()) {
        ZyPointD const read = roundTrip(std::vector<ZyPointD>{{value, 1.0}})[0];
        EXPECT_EQ(bitsOf(read.x), bitsOf(value));
        EXPECT_EQ(read.y, 1.0);
    }
}

TEST(ZyXMLObjectOfPointD, Deliberate_real_point_carries_over)
{
    EXPECT_EQ(loadValues<ZyPointD>("<v><X>" + base64(0.5) + "</X><Y>" + base64(2) + "</Y></v><v><X>" +
                                   base64(3) + "</X></v>"),
              (std::vector<ZyPointD>{{0.5, 2}, {3, 2}}));
}

TEST(ZyXMLObjectOfDeques, AreOneChildAnItem)
{
    EXPECT_EQ(written(ZyDeque<int>{1, 2}), child("Item", 1, "1") + child("Item", 2, "2"));
    EXPECT_EQ(written(ZyDeque<double>{0.5}), child("Item", 1, base64(0.5)));
    EXPECT_EQ(written(ZyDeque<ZyString>{"a", ""}), child("Item", 1, "a") + child("Item", 2, ""));
    EXPECT_EQ(written(ZyDeque<int>()), "");
    EXPECT_EQ(written(ZyDeque<double>()), "");
    EXPECT_EQ(written(ZyDeque<ZyString>()), "");
}

TEST(ZyXMLObjectOfDeques, ComeBackWithoutPilingUp)
{
    std::vector<ZyDeque<int>> const numbers{{1, 2, 3}, {}, {4}};
    EXPECT_EQ(roundTrip(numbers), numbers);
    std::vector<ZyDeque<ZyString>> const texts{{"a", "", "c"}, {}, {"d"}};
    EXPECT_EQ(roundTrip(texts), texts);
    ZyDeque<double> const odd(oddDoubles().begin(), oddDoubles().end());
    std::vector<ZyDeque<double>> const reals = roundTrip(std::vector<ZyDeque<double>>{odd, {}, odd});
    ASSERT_EQ(reals.size(), 3u);
    expectSameBits(reals[0].std_deque(), odd.std_deque());
    EXPECT_TRUE(reals[1].isEmpty());
    expectSameBits(reals[2].std_deque(), odd.std_deque());
}

TEST(ZyXMLObjectOfVariant, IsOneChildNamedAfterItsKind)
{
    EXPECT_EQ(written(ZyVariant(true)), child("Boolean", 1, "true"));
    EXPECT_EQ(written(ZyVariant(false)), child("Boolean", 1, "false"));
    EXPECT_EQ(written(ZyVariant(-5)), child("Integer", 1, "-5"));
    EXPECT_EQ(written(ZyVariant(0.5)), child("Double", 1, base64(0.5)));
    EXPECT_EQ(written(ZyVariant(4294967295u)), child("Size", 1, "4294967295"));
    EXPECT_EQ(written(ZyVariant(ZyFilePath("a/b"))), child("FilePath", 1, "a\\b"));
    EXPECT_EQ(written(ZyVariant("t")), child("String", 1, "t"));
    std::string const types = std::string(" xmlns:n1=\"") + uri + "\"";
    EXPECT_EQ(written(ZyVariant(StringPair("a", "b"))),
              "<n1:StringPair" + types + "><n1:First>a</n1:First><n1:Second>b</n1:Second></n1:StringPair>");
    EXPECT_EQ(written(ZyVariant(FilePathPair("a", "b"))),
              "<n1:FilePathPair" + types +
                  "><n1:First>a</n1:First><n1:Second>b</n1:Second></n1:FilePathPair>");
}

TEST(ZyXMLObjectOfVariant, LeavesTheElementEmptyForNothing)
{
    EXPECT_EQ(written(ZyVariant()), "");
    EXPECT_EQ(loadValues<ZyVariant>("<v/><v>text</v>"), (std::vector<ZyVariant>{{}, {}}));
}

TEST(ZyXMLObjectOfVariant, ComesBack)
{
    std::vector<ZyVariant> const values{true,
                                        ZyVariant(),
                                        false,
                                        -5,
                                        0.5,
                                        4294967295u,
                                        ZyFilePath("a/b"),
                                        FilePathPair("a", "b"),
                                        "text",
                                        "",
                                        StringPair("a", "b"),
                                        ZyVariant()};
    std::vector<ZyVariant> const read = roundTrip(values);
    ASSERT_EQ(read.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read[i].type(), values[i].type()) << i;
        EXPECT_EQ(read[i], values[i]) << i;
    }
}

TEST(ZyXMLObjectOfVariant, KeepsEveryBitOfADouble)
{
    for (double const value : oddDoubles()) {
        EXPECT_EQ(bitsOf(roundTrip(std::vector<ZyVariant>{value})[0].asDouble()), bitsOf(value));
    }
}

TEST(ZyXMLObjectOfVariant, Deliberate_all_but_true_is_false)
{
    EXPECT_EQ(
        loadValues<ZyVariant>("<v><Boolean>TRUE</Boolean></v><v><Boolean> True </Boolean></v>"
                              "<v><Boolean>1</Boolean></v><v><Boolean/></v><v><Boolean>yes</Boolean></v>"),
        (std::vector<ZyVariant>{true, true, false, false, false}));
}

TEST(ZyXMLObjectOfVariant, TakesTheLastOfSeveralValues)
{
    EXPECT_EQ(loadValues<ZyVariant>("<v><Integer>1</Integer><String>a</String></v>"),
              (std::vector<ZyVariant>{"a"}));
}

TEST(ZyXMLObjectOfVariant, ReadsSizesAsAStreamDoes)
{
    EXPECT_EQ(loadValues<ZyVariant>("<v><Size>-1</Size></v><v><Size>99999999999</Size></v><v><Size/></v>"),
              (std::vector<ZyVariant>{4294967295u, 4294967295u, 0u}));
}

TEST(ZyXMLObjectOfVariant, FailsOnBadDoubles)
{
    EXPECT_ZY_THROW(loadValues<ZyVariant>("<v><Double></Double></v>"), ZyInvalidParameterException,
                    "Invalid string length");
}

namespace
{
/** A rule in a loader of its own that was set up by a definition, to look at its memory. */
template <class T>
class RuleAlone
{
public:
    RuleAlone()
        : m_rule(new ZyXMLLambdaRule<T>("v", ZyXMLObject<T>::LoadRule(),
                                        [this](ZyUniquePtr<T> value) { received = std::move(value); }))
    {
        m_loader->add(ZyUniquePtr<ZyXMLRule>(m_rule));
    }
    ZyXMLRule & rule() { return *m_rule; }

    ZyUniquePtr<T> received;

private:
    ZySharedPtr<ZyXMLLoader> m_loader = ZyXMLLoader::Create();
    ZyXMLLambdaRule<T> * m_rule;
};

template <class T>
T const & rememberedBy(RuleAlone<T> & alone, char const * slot)
{
    return *alone.rule().template recall<T>(slot);
}
} // namespace

TEST(ZyXMLObjectMemory, HasItsNames)
{
    RuleAlone<int> integer;
    EXPECT_EQ(rememberedBy(integer, "val"), 0);
    RuleAlone<double> real;
    EXPECT_EQ(rememberedBy(real, "val"), 0.0);
    RuleAlone<ZyString> text;
    EXPECT_TRUE(rememberedBy(text, "val").isEmpty());
    RuleAlone<ZyFilePath> path;
    EXPECT_TRUE(rememberedBy(path, "val").isNull());
    RuleAlone<StringPair> pair;
    EXPECT_EQ(rememberedBy(pair, "val"), StringPair());
    RuleAlone<FilePathPair> paths;
    EXPECT_EQ(rememberedBy(paths, "val"), FilePathPair());
    RuleAlone<ZyPoint> point;
    EXPECT_EQ(rememberedBy(point, "point"), ZyPoint());
    RuleAlone<ZyPointD> realPoint;
    EXPECT_EQ(rememberedBy(realPoint, "point"), ZyPointD());
    RuleAlone<ZyDeque<int>> integers;
    EXPECT_TRUE(rememberedBy(integers, "deque").isEmpty());
    RuleAlone<ZyDeque<double>> reals;
    EXPECT_TRUE(rememberedBy(reals, "deque").isEmpty());
    RuleAlone<ZyDeque<ZyString>> texts;
    EXPECT_TRUE(rememberedBy(texts, "deque").isEmpty());
    RuleAlone<ZyVariant> variant;
    EXPECT_EQ(rememberedBy(variant, "value"), ZyVariant());
}

TEST(ZyXMLObjectMemory, IsSwappedOrCopiedOrMovedAsTold)
{
    RuleAlone<ZyString> text;
    *text.rule().recall<ZyString>("val") = "a";
    text.rule().onFinish();
    EXPECT_EQ(rememberedBy(text, "val"), "a") << "a copy was handed over";
    RuleAlone<ZyFilePath> path;
    *path.rule().recall<ZyFilePath>("val") = ZyFilePath("a");
    path.rule().onFinish();
    EXPECT_EQ(*path.received, ZyFilePath("a"));
    EXPECT_TRUE(rememberedBy(path, "val").isNull());
    RuleAlone<StringPair> pair;
    *pair.rule().recall<StringPair>("val") = StringPair("a", "b");
    pair.rule().onFinish();
    EXPECT_EQ(*pair.received, StringPair("a", "b"));
    EXPECT_EQ(rememberedBy(pair, "val"), StringPair());
    RuleAlone<ZyPoint> point;
    *point.rule().recall<ZyPoint>("point") = ZyPoint(1, 2);
    point.rule().onFinish();
    EXPECT_EQ(rememberedBy(point, "point"), ZyPoint(1, 2));
    RuleAlone<ZyDeque<int>> items;
    items.rule().recall<ZyDeque<int>>("deque")->add(1);
    items.rule().onFinish();
    EXPECT_EQ(*items.received, ZyDeque<int>{1});
    EXPECT_TRUE(rememberedBy(items, "deque").isEmpty());
}

TEST(ZyXMLObjectMemory, IsAskedForByName)
{
    ZyXMLLambdaRule<int> rule("v", ZyXMLObject<int>::LoadRule()); // never set up
    EXPECT_ZY_THROW(rule.onFinish(), ZyNotFoundException, "Item not found: val");
    ZyXMLLambdaRule<ZyPoint> point("v", ZyXMLObject<ZyPoint>::LoadRule());
    EXPECT_ZY_THROW(point.onFinish(), ZyNotFoundException, "Item not found: point");
    ZyXMLLambdaRule<ZyDeque<int>> items("v", ZyXMLObject<ZyDeque<int>>::LoadRule());
    EXPECT_ZY_THROW(items.onFinish(), ZyNotFoundException, "Item not found: deque");
    ZyXMLLambdaRule<ZyVariant> variant("v", ZyXMLObject<ZyVariant>::LoadRule());
    EXPECT_ZY_THROW(variant.onFinish(), ZyNotFoundException, "Item not found: value");
}

namespace
{
template <class T>
void expectTwoChildren(char const * first, char const * second)
{
    for (char const * name : {first, second}) {
        ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
        loader->add<T>("v", {});
        EXPECT_THROW(loader->add<int>(ZyXMLPath{"v", name}, {}), ZyXMLDuplicateRuleException) << name;
    }
}
} // namespace

TEST(ZyXMLObjectChildren, HaveTheirNames)
{
    expectTwoChildren<StringPair>("First", "Second");
    expectTwoChildren<FilePathPair>("First", "Second");
    expectTwoChildren<ZyPoint>("X", "Y");
    expectTwoChildren<ZyPointD>("X", "Y");
    expectTwoChildren<ZyDeque<int>>("Item", "Item");
    expectTwoChildren<ZyDeque<double>>("Item", "Item");
    expectTwoChildren<ZyDeque<ZyString>>("Item", "Item");
    expectTwoChildren<ZyVariant>("Boolean", "StringPair/Second");
}

TEST(ZyXMLObjectChildren, OfAVariantAreAddedInTheirOrder)
{
    // Each name is refused behind those in front of it: a rule that is there already stops the set-up.
    std::vector<std::string> const names{"Boolean",  "Integer",      "Double", "Size",
                                         "FilePath", "FilePathPair", "String", "StringPair"};
    for (std::size_t taken = 0; taken < names.size(); ++taken) {
        ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
        loader->add<int>(ZyXMLPath{"v", ZyString(names[taken])}, {});
        EXPECT_ZY_THROW(loader->add<ZyVariant>("v", {}), ZyXMLDuplicateRuleException,
                        "Duplicate rule for XML path: v/" + names[taken]);
        for (std::size_t i = 0; i < names.size(); ++i) {
            auto const add = [&] { loader->add<int>(ZyXMLPath{"v", ZyString(names[i])}, {}); };
            if (i <= taken) {
                EXPECT_THROW(add(), ZyXMLDuplicateRuleException) << names[i];
            } else {
                EXPECT_NO_THROW(add()) << names[i];
            }
        }
    }
}

TEST(ZyXMLObjectRules, AreOneForTheProcess)
{
    EXPECT_EQ(ZyXMLObject<int>::LoadRule(), ZyXMLObject<int>::LoadRule());
    EXPECT_EQ(ZyXMLObject<double>::LoadRule(), ZyXMLObject<double>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyString>::LoadRule(), ZyXMLObject<ZyString>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyFilePath>::LoadRule(), ZyXMLObject<ZyFilePath>::LoadRule());
    EXPECT_EQ(ZyXMLObject<StringPair>::LoadRule(), ZyXMLObject<StringPair>::LoadRule());
    EXPECT_EQ(ZyXMLObject<FilePathPair>::LoadRule(), ZyXMLObject<FilePathPair>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyPoint>::LoadRule(), ZyXMLObject<ZyPoint>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyPointD>::LoadRule(), ZyXMLObject<ZyPointD>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyDeque<int>>::LoadRule(), ZyXMLObject<ZyDeque<int>>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyDeque<double>>::LoadRule(), ZyXMLObject<ZyDeque<double>>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyDeque<ZyString>>::LoadRule(), ZyXMLObject<ZyDeque<ZyString>>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyVariant>::LoadRule(), ZyXMLObject<ZyVariant>::LoadRule());
}

TEST(ZyXMLObjectRules, HaveTheFunctionsThatAreTold)
{
    EXPECT_FALSE(ZyXMLObject<ZyPoint>::LoadRule()->start);
    EXPECT_FALSE(ZyXMLObject<ZyPointD>::LoadRule()->start);
    EXPECT_TRUE(ZyXMLObject<int>::LoadRule()->setup && ZyXMLObject<int>::LoadRule()->start &&
                ZyXMLObject<int>::LoadRule()->finish);
}

TEST(ZyXMLObjectRules, MayStandSideBySideInOneLoader)
{
    std::vector<int> first;
    std::vector<int> second;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<int>("r/a", [&](ZyUniquePtr<int> value) { first.push_back(*value); });
    loader->add<int>("r/b", [&](ZyUniquePtr<int> value) { second.push_back(*value); });
    loadText(*loader, "<r><a>1</a><b>2</b><a>3</a></r>");
    EXPECT_THAT(first, ElementsAre(1, 3));
    EXPECT_THAT(second, ElementsAre(2));
}
