// SPDX-License-Identifier: BSD-3-Clause
// Paths as values: the normal form, the parts, comparison, and what is built from two of them.
#include <ZyFilePath.h>

#include "ThrowsMessage.h"

#include <ZyDeque.h>
#include <ZyException.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <deque>
#include <filesystem>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(sizeof(ZyFilePath) == 2 * sizeof(void *), "a virtual table and the state");
static_assert(std::is_polymorphic_v<ZyFilePath> && std::has_virtual_destructor_v<ZyFilePath>);
static_assert(std::is_copy_constructible_v<ZyFilePath> && std::is_copy_assignable_v<ZyFilePath>);
static_assert(std::is_move_constructible_v<ZyFilePath> && std::is_move_assignable_v<ZyFilePath>);

namespace
{
std::string text(ZyFilePath const & path)
{
    return path.path().toStdString();
}

std::string text(ZyStringView const & view)
{
    return view.toString().toStdString();
}

// The normal form in seven steps, as it is defined; the class makes it in one pass.
std::string normalInSteps(std::string const & given)
{
    ZyString s(given);
    s.trim();                                                     // 1
    s.replace("/", "\\", ZyComparableString::CaseSensitive);      // 2
    if (!s.contains("\\\\", ZyComparableString::CaseSensitive)) { // 3
        return s.toStdString();
    }
    std::deque<ZyStringView> const tokens = s.tokenize("\\", ZyComparableString::CaseSensitive).std_deque();
    ZyString r; // 4
    std::size_t next = 0;
    if (s.startsWith("\\\\")) {
        next = 2;
        r = "\\\\";
    } else {
        r = tokens[next++].toString();
    }
    for (; next < tokens.size(); ++next) {
        if (tokens[next].size() > 0) {
            r += ZyString("\\") + tokens[next];
        }
    }
    if (s.endsWith("\\") && !r.endsWith("\\")) { // 5
        r += "\\";
    }
    r.replace("\\\\\\", "\\\\", ZyComparableString::CaseSensitive); // 6
    return r.toStdString();                                         // 7
}

struct Case
{
    char const * from;
    char const * to;
};

class Normal : public testing::TestWithParam<Case>
{};
class Root : public testing::TestWithParam<Case>
{};
class Parent : public testing::TestWithParam<Case>
{};
class Name : public testing::TestWithParam<Case>
{};
class Extension : public testing::TestWithParam<Case>
{};
class Stem : public testing::TestWithParam<Case>
{};
} // namespace

TEST_P(Normal, IsMadeByEveryConstructorFromText)
{
    std::string const from = GetParam().from;
    std::string const to = GetParam().to;
    EXPECT_EQ(text(ZyFilePath(from.c_str())), to);
    EXPECT_EQ(text(ZyFilePath(from)), to);
    EXPECT_EQ(text(ZyFilePath(std::string(from))), to);
    ZyString const string(from);
    EXPECT_EQ(text(ZyFilePath(string)), to);
    EXPECT_EQ(text(ZyFilePath(ZyString(from))), to);
    EXPECT_EQ(text(ZyFilePath(ZyStringView(string))), to);
    std::filesystem::path const standard(from);
    EXPECT_EQ(text(ZyFilePath(standard)), to);
    EXPECT_EQ(text(ZyFilePath(std::filesystem::path(from))), to);
    std::wstring const wide(from.begin(), from.end());
    EXPECT_EQ(text(ZyFilePath(wide.c_str())), to);
    EXPECT_EQ(text(ZyFilePath(wide)), to);
    EXPECT_EQ(normalInSteps(from), to);
}

INSTANTIATE_TEST_SUITE_P(
    ZyFilePath, Normal,
    testing::Values(Case{"", ""}, Case{"a", "a"}, Case{"/", "\\"}, Case{"//", "\\\\"}, Case{"///", "\\\\"},
                    Case{"////a", "\\\\a"}, Case{"//server////share", "\\\\server\\share"},
                    Case{"\\\\server\\\\\\\\share", "\\\\server\\share"}, Case{"C:/a//b/", "C:\\a\\b\\"},
                    Case{"C:\\a\\\\\\b", "C:\\a\\b"}, Case{"  C:/a b / ", "C:\\a b \\"}, Case{"a/", "a\\"},
                    Case{"a////", "a\\"}, Case{"/a", "\\a"}, Case{" \t\r\n", ""}, Case{"./../a", ".\\..\\a"},
                    Case{"\\/a/\\b", "\\\\a\\b"}, Case{"/ /", "\\ \\"}));

TEST(ZyFilePath, NormalFormInOnePassIsThatInSevenSteps)
{
    std::mt19937 engine(20240611);
    std::string const alphabet("//\\\\\\ab. \t:\0", 13);
    for (int i = 0; i < 100000; ++i) {
        std::string given(engine() % 13, ' ');
        for (char & c : given) {
            c = alphabet[engine() % alphabet.size()];
        }
        ASSERT_EQ(text(ZyFilePath(given)), normalInSteps(given)) << testing::PrintToString(given);
    }
}

TEST(ZyFilePath, NormalFormIsStable)
{
    for (char const * given : {"///", "//a//b", "/a//b/", " a / b ", "C://x"}) {
        ZyFilePath const once(given);
        EXPECT_EQ(text(ZyFilePath(once.path())), text(once));
    }
}

TEST(ZyFilePath, DoubledSeparatorsGoButTheNetworkPrefixStays)
{
    EXPECT_EQ(text(ZyFilePath("a\\\\b\\\\\\c")), "a\\b\\c");
    EXPECT_EQ(text(ZyFilePath("\\\\server\\\\\\\\share")), "\\\\server\\share");
}

TEST(ZyFilePath, KeepsItsNormalFormOverAMegabyteOfSeparators)
{
    EXPECT_EQ(text(ZyFilePath(std::string(1 << 20, '/'))), "\\\\");
    EXPECT_EQ(text(ZyFilePath("a" + std::string(1 << 20, '/') + "b")), "a\\b");
}

TEST(ZyFilePath, HoldsBytesThatAreNoUtf8AndNuls)
{
    EXPECT_EQ(text(ZyFilePath(std::string("a/\xff\0/b", 6))), std::string("a\\\xff\0\\b", 6));
}

TEST(ZyFilePath, TakesANullPointerForTheEmptyText)
{
    char const * narrow = nullptr;
    wchar_t const * wide = nullptr;
    EXPECT_TRUE(ZyFilePath(narrow).isNull());
    EXPECT_TRUE(ZyFilePath(wide).isNull());
}

TEST(ZyFilePath, DecodesWideText)
{
    EXPECT_EQ(text(ZyFilePath(L" d\u00e4ta/\u20ac.csv")), "d\xc3\xa4ta\\\xe2\x82\xac.csv");
    EXPECT_EQ(text(ZyFilePath(std::wstring(L"\U0001F600"))), "\xf0\x9f\x98\x80");
}

TEST(ZyFilePath, RefusesMalformedWideText)
{
    wchar_t const lone[] = {wchar_t(0xD800), wchar_t('x'), 0};
    EXPECT_STD_THROW(ZyFilePath(lone), std::range_error, "bad conversion");
}

TEST(ZyFilePath, TakesStandardPathsOfAnyBytes)
{
    EXPECT_EQ(text(ZyFilePath(std::filesystem::u8path("d\xc3\xa4ta/x"))), "d\xc3\xa4ta\\x");
}

TEST(ZyFilePath, WideTextRoundTrips)
{
    ZyFilePath const path("C:/d\xc3\xa4ta/\xf0\x9f\x98\x80.csv");
    EXPECT_EQ(path.toWString(), L"C:\\d\u00e4ta\\\U0001F600.csv");
    EXPECT_EQ(ZyFilePath(path.toWString()), path);
}

TEST(ZyFilePath, WideTextReplacesBadBytesAndEndsAtANul)
{
    EXPECT_EQ(ZyFilePath("a\xff/b").toWString(), L"a\uFFFD\\b");
    EXPECT_EQ(ZyFilePath(std::string("a\0b", 3)).toWString(), L"a");
}

TEST(ZyFilePath, Deliberate_wide_path_is_trimmed)
{
    ZyFilePath const path = ZyFilePath::CreateUnchecked(" a//b/ ");
    EXPECT_EQ(text(path), " a//b/ ");
    EXPECT_EQ(path.toWString(), L"a//b/");
    EXPECT_EQ(text(path), " a//b/ ");
    EXPECT_EQ(text(ZyFilePath(" a//b/ ")), "a\\b\\");
}

TEST(ZyFilePath, CopiesDoNotNormaliseAgain)
{
    ZyFilePath const path = ZyFilePath::CreateUnchecked(" a/b ");
    ZyFilePath const copy(path);
    ZyFilePath assigned;
    assigned = path;
    EXPECT_EQ(text(copy), " a/b ");
    EXPECT_EQ(text(assigned), " a/b ");
    EXPECT_NE(copy.path().c_str(), path.path().c_str());
}

TEST(ZyFilePath, MovedFromPathIsNullAndUsable)
{
    ZyFilePath first("a/b");
    ZyFilePath second(std::move(first));
    EXPECT_EQ(text(second), "a\\b");
    EXPECT_TRUE(first.isNull());
    first = "c";
    second = std::move(first);
    EXPECT_EQ(text(second), "c");
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(text(first.filename()), "");
    first = second;
    EXPECT_EQ(text(first), "c");
}

TEST(ZyFilePath, AssigningToItselfChangesNothing)
{
    ZyFilePath path("a/long/enough/to/need/memory/of/its/own");
    ZyFilePath & same = path;
    path = same;
    EXPECT_EQ(text(path), "a\\long\\enough\\to\\need\\memory\\of\\its\\own");
    path = std::move(same);
    EXPECT_EQ(text(path), "a\\long\\enough\\to\\need\\memory\\of\\its\\own");
}

TEST(ZyFilePath, ThreeNamesGiveTheStoredText)
{
    ZyFilePath const path("a/b");
    ZyString const & converted = path;
    EXPECT_EQ(&path.path(), &path.toString());
    EXPECT_EQ(&path.path(), &converted);
    EXPECT_EQ(ZyString("<" + path.path() + ">").toStdString(), "<a\\b>");
}

TEST(ZyFilePath, Deliberate_null_path_is_a_file)
{
    ZyFilePath const path;
    EXPECT_TRUE(path.isNull());
    EXPECT_TRUE(path.isFile());
    EXPECT_FALSE(path.isDirectory());
    EXPECT_TRUE(path.isRelative());
    EXPECT_FALSE(path.isAbsolute());
    EXPECT_EQ(text(path.rootName()), "");
    EXPECT_EQ(text(path.filename()), "");
    EXPECT_EQ(text(path.extension()), "");
    EXPECT_EQ(text(path.stem()), "");
    EXPECT_EQ(text(path.parentPath()), "");
}

TEST(ZyFilePath, SpellingDecidesWhatIsADirectory)
{
    EXPECT_TRUE(ZyFilePath("a/").isDirectory());
    EXPECT_FALSE(ZyFilePath("a/").isFile());
    EXPECT_TRUE(ZyFilePath("a").isFile());
    EXPECT_FALSE(ZyFilePath("a").isNull());
    EXPECT_TRUE(ZyFilePath("//").isDirectory());
}

TEST_P(Root, IsFound)
{
    ZyFilePath const path(GetParam().from);
    EXPECT_EQ(text(path.rootName()), GetParam().to);
    EXPECT_EQ(path.isAbsolute(), path.rootName().size() > 0);
    EXPECT_EQ(path.isRelative(), path.rootName().size() == 0);
}

INSTANTIATE_TEST_SUITE_P(ZyFilePath, Root,
                         testing::Values(Case{"//server/x", "\\\\server"}, Case{"//server", "\\\\server"},
                                         Case{"//", "\\\\"}, Case{"C:x", "C:"}, Case{"C:/x:y", "C:"},
                                         Case{"C:", "C:"}, Case{":", ":"}, Case{"/x", ""}, Case{"/", ""},
                                         Case{"x/y", ""}, Case{"//a:b/c", "\\\\a:b"}));

TEST(ZyFilePath, Deliberate_any_colon_is_a_root)
{
    EXPECT_EQ(text(ZyFilePath("dir/a:b/c").rootName()), "dir\\a:");
    EXPECT_TRUE(ZyFilePath("notes 12:30").isAbsolute());
    EXPECT_FALSE(ZyFilePath("/home/x").isAbsolute());
}

TEST_P(Name, IsTheLastSegment)
{
    EXPECT_EQ(text(ZyFilePath(GetParam().from).filename()), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(ZyFilePath, Name,
                         testing::Values(Case{"C:/a/b.txt", "b.txt"}, Case{"C:/a/b.d/", "b.d"},
                                         Case{"b", "b"}, Case{"b/", "b"}, Case{"/", ""}, Case{"//", ""},
                                         Case{"//server", "server"}, Case{"C:", "C:"}, Case{"C:/", "C:"},
                                         Case{"C:x", "C:x"}));

TEST_P(Extension, RunsFromTheLastDot)
{
    EXPECT_EQ(text(ZyFilePath(GetParam().from).extension()), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(ZyFilePath, Extension,
                         testing::Values(Case{"name.", "."}, Case{"name..", ""}, Case{".bashrc", ".bashrc"},
                                         Case{"a/.x.y/", ".y"}, Case{".", ""}, Case{"..", ""},
                                         Case{"a.tar.gz", ".gz"}, Case{"a.d/b", ""}, Case{"a.d/", ".d"},
                                         Case{"a", ""}, Case{"...", ""}, Case{"..a", ".a"}));

TEST_P(Stem, IsTheNameWithoutTheExtension)
{
    EXPECT_EQ(text(ZyFilePath(GetParam().from).stem()), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(ZyFilePath, Stem,
                         testing::Values(Case{"a/name.", "name"}, Case{"name..", "name.."},
                                         Case{".bashrc", ""}, Case{"a/.x.y/", ".x"}, Case{".", "."},
                                         Case{"a.tar.gz", "a.tar"}, Case{"a.d/b", "b"}, Case{"a.d/", "a"}));

TEST(ZyFilePath, Deliberate_leading_dot_is_extension)
{
    EXPECT_EQ(text(ZyFilePath("/home/.profile").extension()), ".profile");
    EXPECT_EQ(text(ZyFilePath("/home/.profile").stem()), "");
    EXPECT_EQ(text(ZyFilePath("end.").extension()), ".");
    EXPECT_EQ(text(ZyFilePath("end..").extension()), "");
}

TEST_P(Parent, KeepsItsSeparator)
{
    EXPECT_EQ(text(ZyFilePath(GetParam().from).parentPath()), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(ZyFilePath, Parent,
                         testing::Values(Case{"C:", "C:"}, Case{"C:/", "C:\\"}, Case{"C:/x", "C:\\"},
                                         Case{"//server", "\\\\"}, Case{"//server/", "\\\\"}, Case{"/", "\\"},
                                         Case{"C:x", ""}, Case{"//", "\\"}, Case{"C:/a/b", "C:\\a\\"},
                                         Case{"C:/a/b/", "C:\\a\\"}, Case{"a", ""}, Case{"a/", ""},
                                         Case{"/a", "\\"}, Case{"c:/C:", "c:\\C:"}));

TEST(ZyFilePath, PartsPointIntoThePath)
{
    ZyFilePath const path("C:/a/b.txt");
    EXPECT_EQ(&path.filename()[0], path.path().c_str() + 5);
    EXPECT_EQ(&path.extension()[0], path.path().c_str() + 6);
    EXPECT_EQ(&path.parentPath()[0], path.path().c_str());
}

TEST(ZyFilePath, ComparesWithoutRegardToCaseAndKindOfSlash)
{
    ZyFilePath const path("C:/Data/X.csv");
    EXPECT_TRUE(path == ZyFilePath("c:\\data\\x.CSV"));
    EXPECT_FALSE(path != ZyFilePath("c:\\data\\x.CSV"));
    EXPECT_TRUE(ZyFilePath("a/B") < ZyFilePath("A/c"));
    EXPECT_TRUE(ZyFilePath("a/B") <= ZyFilePath("A/b"));
    EXPECT_TRUE(ZyFilePath("B") > ZyFilePath("a"));
    EXPECT_TRUE(ZyFilePath("B") >= ZyFilePath("b"));
    EXPECT_FALSE(ZyFilePath("a") < ZyFilePath("A"));
    EXPECT_TRUE(ZyFilePath("a") < ZyFilePath("a/"));
}

TEST(ZyFilePath, UncheckedPathsCompareAsTheyStand)
{
    EXPECT_TRUE(ZyFilePath::CreateUnchecked("a/b") != ZyFilePath("a/b"));
}

TEST(ZyFilePath, ComparesWithTextOnEitherSideAsAPath)
{
    ZyFilePath const path("a/b");
    ZyString const string("A//B");
    std::string const standard("A//B");
    EXPECT_TRUE(path == "A//B" && "A//B" == path && !(path != "A//B") && !("A//B" != path));
    EXPECT_TRUE(path == string && string == path && path == standard && standard == path);
    EXPECT_TRUE(path == ZyStringView(string) && ZyStringView(string) == path);
    EXPECT_TRUE(path < "a/c" && "a/a" < path && path <= "A/B" && "A/B" <= path);
    EXPECT_TRUE(path > "a/a" && "a/c" > path && path >= "A/B" && "A/B" >= path);
}

TEST(ZyFilePath, OrdersSortedContainers)
{
    std::map<ZyFilePath, int> map;
    map["a/b"] = 1;
    map["A\\B"] = 2;
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(map["a\\b"], 2);
}

TEST(ZyFilePath, IsAncestorOfItself)
{
    EXPECT_TRUE(ZyFilePath("a/b").isAncestor("A/B"));
    EXPECT_TRUE(ZyFilePath("a/b/").isAncestor("a/b/"));
    EXPECT_TRUE(ZyFilePath().isAncestor(ZyFilePath()));
}

TEST(ZyFilePath, OnlyADirectoryIsAnAncestor)
{
    EXPECT_TRUE(ZyFilePath("a/").isAncestor("A/b"));
    EXPECT_TRUE(ZyFilePath("a/").isAncestor("a/b/c/"));
    EXPECT_FALSE(ZyFilePath("a").isAncestor("a/b"));
    EXPECT_FALSE(ZyFilePath("a/b/").isAncestor("a/bc/d"));
    EXPECT_FALSE(ZyFilePath("a/b/c/").isAncestor("a/b"));
    EXPECT_FALSE(ZyFilePath("a/b/").isAncestor("a/b"));
    EXPECT_FALSE(ZyFilePath().isAncestor("a"));
}

TEST(ZyFilePath, AppendsWithOneSeparator)
{
    EXPECT_EQ(text(ZyFilePath("a").appended("b")), "a\\b");
    EXPECT_EQ(text(ZyFilePath("a/").appended("b")), "a\\b");
    EXPECT_EQ(text(ZyFilePath("a").appended("/b")), "a\\b");
    EXPECT_EQ(text(ZyFilePath("a/").appended("/b/")), "a\\b\\");
    EXPECT_EQ(text(ZyFilePath("a").appended(ZyFilePath())), "a\\");
    EXPECT_EQ(text(ZyFilePath("a/").appended(ZyFilePath())), "a\\");
    EXPECT_EQ(text(ZyFilePath("a/").appended("C:/x")), "a\\C:\\x");
    EXPECT_EQ(text(ZyFilePath("//s").appended("x")), "\\\\s\\x");
    EXPECT_EQ(text(ZyFilePath("a").appended("//s")), "a\\s");
    EXPECT_EQ(text(ZyFilePath("//").appended("/x")), "\\\\x");
}

TEST(ZyFilePath, Deliberate_null_path_appended)
{
    EXPECT_EQ(text(ZyFilePath().appended("x")), "\\x");
    EXPECT_EQ(text(ZyFilePath().appended(ZyFilePath())), "\\");
}

TEST(ZyFilePath, AbsoluteResolvesDots)
{
    ZyFilePath const base("C:/a/b/");
    EXPECT_EQ(text(base.absolute("..\\x")), "C:\\a\\x");
    EXPECT_EQ(text(base.absolute("..\\..")), "C:\\");
    EXPECT_EQ(text(base.absolute("s\\")), "C:\\a\\b\\s");
    EXPECT_EQ(text(base.absolute(ZyFilePath())), "C:\\a\\b");
    EXPECT_EQ(text(base.absolute("\\x\\y")), "C:\\x\\y");
    EXPECT_EQ(text(base.absolute(".\\.\\x")), "C:\\a\\b\\x");
}

TEST(ZyFilePath, AbsoluteStartsAtTheDirectoryOfAFile)
{
    EXPECT_EQ(text(ZyFilePath("C:/a/file.txt").absolute("x")), "C:\\a\\x");
    EXPECT_EQ(text(ZyFilePath("C:").absolute("x")), "C:\\x");
}

TEST(ZyFilePath, AbsoluteOnAServer)
{
    ZyFilePath const base("//srv/sh/");
    EXPECT_EQ(text(base.absolute("..")), "\\\\srv");
    EXPECT_EQ(text(base.absolute("\\x")), "\\\\srv\\sh\\x");
    EXPECT_ZY_THROW(base.absolute("..\\..\\x"), ZyInvalidCallException, "Path becomes invalid://srv/../x");
}

TEST(ZyFilePath, AbsoluteLeavesARootedPathAlone)
{
    EXPECT_EQ(text(ZyFilePath("D:/q/").absolute("C:/x/../y")), "C:\\x\\..\\y");
    EXPECT_EQ(text(ZyFilePath().absolute("C:/x/../y")), "C:\\x\\..\\y");
}

TEST(ZyFilePath, AbsoluteOfTwoNullPathsIsNull)
{
    EXPECT_TRUE(ZyFilePath().absolute(ZyFilePath()).isNull());
}

TEST(ZyFilePath, AbsoluteNeedsARootedBase)
{
    char const * const words = "Cannot generate absolute path from relative base path";
    EXPECT_ZY_THROW(ZyFilePath("a/").absolute("x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath("\\d\\").absolute("x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath().absolute("x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath("a").absolute(ZyFilePath()), ZyInvalidCallException, words);
}

TEST(ZyFilePath, AbsoluteReportsAPathThatClimbsTooHigh)
{
    EXPECT_ZY_THROW(ZyFilePath("C:/a/b/").absolute("..\\..\\..\\x"), ZyInvalidCallException,
                    "Path becomes invalid:C:/../x");
}

TEST(ZyFilePath, Deliberate_dots_in_names)
{
    EXPECT_ZY_THROW(ZyFilePath("C:/a/b/").absolute("v1..2"), ZyInvalidCallException,
                    "Path becomes invalid:C:/a/b/v1..2");
}

TEST(ZyFilePath, RelativeIsTheWayFromTheDirectory)
{
    ZyFilePath const base("C:/a/b/");
    EXPECT_EQ(text(base.relative("c:\\A\\x")), "..\\x");
    EXPECT_EQ(text(base.relative(base)), ".");
    EXPECT_EQ(text(base.relative("C:\\a\\")), "..\\");
    EXPECT_EQ(text(base.relative("C:\\")), "..\\..\\");
    EXPECT_EQ(text(base.relative("C:\\a\\b\\d\\")), "d");
    EXPECT_EQ(text(base.relative("C:\\a\\b\\c\\e.txt")), "c\\e.txt");
    EXPECT_EQ(text(ZyFilePath("C:/a/file").relative("C:/a/other")), "other");
    EXPECT_EQ(text(ZyFilePath("//srv/s1/").relative("//SRV/s2/f")), "..\\s2\\f");
}

TEST(ZyFilePath, RelativeUnderAnotherRootIsTheTarget)
{
    EXPECT_EQ(text(ZyFilePath("C:/a/").relative("D:/x/../y")), "D:\\x\\..\\y");
    EXPECT_EQ(text(ZyFilePath("//srv/a/").relative("C:/x")), "C:\\x");
}

TEST(ZyFilePath, RelativeNeedsTwoRootedPaths)
{
    char const * const words = "Cannot find relative path when one is already relative";
    EXPECT_ZY_THROW(ZyFilePath("a/").relative("C:/x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath("C:/a/").relative("x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath("/d/").relative("/d/x"), ZyInvalidCallException, words);
    EXPECT_ZY_THROW(ZyFilePath().relative(ZyFilePath()), ZyInvalidCallException, words);
}

TEST(ZyFilePath, AbsoluteUndoesRelative)
{
    ZyFilePath const base("C:/a/b/");
    for (char const * target : {"C:/a/b/c", "C:/a/x/y", "C:/z", "C:/a/b/\xc3\xa4"}) {
        EXPECT_EQ(base.absolute(base.relative(target)), target);
    }
}
