// SPDX-License-Identifier: BSD-3-Clause
// Paths of elements.
#include <ZyXMLPath.h>

#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyHash.h>
#include <ZyPrint.h>

#include <gtest/gtest.h>

#include <QHash>

#include <sstream>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>

static_assert(sizeof(ZyXMLPath) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLPath>);
static_assert(std::is_copy_constructible_v<ZyXMLPath> && std::is_copy_assignable_v<ZyXMLPath>);
static_assert(std::is_move_constructible_v<ZyXMLPath> && std::is_move_assignable_v<ZyXMLPath>);
static_assert(std::has_virtual_destructor_v<ZyXMLPath>);

namespace
{
std::string textOf(ZyXMLPath const & path)
{
    return path.toString().toStdString();
}
} // namespace

TEST(ZyXMLPath, IsEmptyByDefault)
{
    EXPECT_EQ(textOf(ZyXMLPath()), "");
    EXPECT_EQ(textOf(ZyXMLPath{}), "");
}

TEST(ZyXMLPath, OfNoNamesIsEmpty)
{
    EXPECT_EQ(textOf(ZyXMLPath(std::initializer_list<ZyString>{})), "");
    EXPECT_EQ(ZyXMLPath(std::initializer_list<ZyString>{}), ZyXMLPath());
}

TEST(ZyXMLPath, TakesTextAsItStands)
{
    EXPECT_EQ(textOf(ZyXMLPath("Root/Item/Name")), "Root/Item/Name");
    EXPECT_EQ(textOf(ZyXMLPath(ZyString("/a//b/"))), "/a//b/");
    EXPECT_EQ(textOf(ZyXMLPath(static_cast<char const *>(nullptr))), "");
    EXPECT_EQ(textOf(ZyXMLPath(ZyString(std::string("a\0b", 3)))), std::string("a\0b", 3));
}

TEST(ZyXMLPath, JoinsNames)
{
    EXPECT_EQ(textOf(ZyXMLPath{"a"}), "a");
    EXPECT_EQ(textOf(ZyXMLPath{"a", "b", "c"}), "a/b/c");
    EXPECT_EQ(textOf(ZyXMLPath({"a", "b"})), "a/b");
    EXPECT_EQ(textOf(ZyXMLPath{"", "b", ""}), "/b/");
}

TEST(ZyXMLPath, PushGoesOneLevelDown)
{
    ZyXMLPath path("a");
    EXPECT_EQ(&path.push("b"), &path);
    EXPECT_EQ(textOf(path), "a/b");
    EXPECT_EQ(textOf(ZyXMLPath("a").push("b")), "a/b");
}

TEST(ZyXMLPath, PushOnTheEmptyPathBecomesTheName)
{
    EXPECT_EQ(textOf(ZyXMLPath().push("a")), "a");
    EXPECT_EQ(textOf(ZyXMLPath().push("a/b").push("c")), "a/b/c");
    EXPECT_EQ(textOf(ZyXMLPath().push("").push("")), "");
    EXPECT_EQ(textOf(ZyXMLPath("a").push("")), "a/");
}

TEST(ZyXMLPath, PushesItsOwnText)
{
    ZyXMLPath path("a/b");
    path.push(path.toString());
    EXPECT_EQ(textOf(path), "a/b/a/b");
}

TEST(ZyXMLPath, PushedLeavesThePathAlone)
{
    ZyXMLPath const path("a");
    EXPECT_EQ(textOf(path.pushed("b")), "a/b");
    EXPECT_EQ(textOf(path), "a");
}

TEST(ZyXMLPath, ComparesWithRegardToCase)
{
    EXPECT_TRUE(ZyXMLPath("a/B") == ZyXMLPath("a/B"));
    EXPECT_FALSE(ZyXMLPath("a/B") == ZyXMLPath("a/b"));
    EXPECT_TRUE(ZyXMLPath("a/B") != ZyXMLPath("a/b"));
    EXPECT_TRUE(ZyXMLPath("a/B") < ZyXMLPath("a/b"));
    EXPECT_FALSE(ZyXMLPath("a/b") < ZyXMLPath("a/B"));
    EXPECT_FALSE(ZyXMLPath("a") < ZyXMLPath("a"));
    EXPECT_TRUE(ZyXMLPath("a") < ZyXMLPath("a/b"));
}

TEST(ZyXMLPath, CopiesAreDeep)
{
    ZyXMLPath const first("a");
    ZyXMLPath copy(first);
    copy.push("b");
    EXPECT_EQ(textOf(first), "a");
    ZyXMLPath assigned;
    assigned = first;
    assigned.push("c");
    EXPECT_EQ(textOf(first), "a");
    EXPECT_EQ(textOf(assigned), "a/c");
}

TEST(ZyXMLPath, MovedFromIsEmptyAndUsable)
{
    ZyXMLPath source("a/b");
    ZyXMLPath target(std::move(source));
    EXPECT_EQ(textOf(target), "a/b");
    EXPECT_EQ(textOf(source), ""); // NOLINT(bugprone-use-after-move): what is tested
    EXPECT_EQ(textOf(source.push("c")), "c");
    target = std::move(source);
    EXPECT_EQ(textOf(target), "c");
    EXPECT_EQ(textOf(source.push("d")), "d"); // NOLINT(bugprone-use-after-move): what is tested
}

TEST(ZyXMLPath, NamesTheExceptionOfADuplicateRule)
{
    EXPECT_ZY_THROW(throw ZyXMLDuplicateRuleException(ZyXMLPath("a/b")), ZyXMLDuplicateRuleException,
                    "Duplicate rule for XML path: a/b");
    EXPECT_ZY_THROW(throw ZyXMLDuplicateRuleException(ZyXMLPath()), ZyXMLDuplicateRuleException,
                    "Duplicate rule for XML path: ");
    EXPECT_ZY_THROW(throw ZyXMLDuplicateRuleException(), ZyXMLDuplicateRuleException,
                    "Duplicate rule for XML path");
}

TEST(ZyXMLPath, HashesItsBytes)
{
    std::unordered_set<ZyXMLPath> const paths{ZyXMLPath("a/b"), ZyXMLPath("a/B"), ZyXMLPath("a/b")};
    EXPECT_EQ(paths.size(), 2u);
    EXPECT_EQ(qHash(ZyXMLPath("a/b")), qHash(ZyXMLPath{"a", "b"}));
    EXPECT_NE(qHash(ZyXMLPath("a/b")), qHash(ZyXMLPath("a/B")));
    QHash<ZyXMLPath, int> numbers;
    numbers[ZyXMLPath("a/b")] = 1;
    EXPECT_TRUE(numbers.contains(ZyXMLPath("a/b")));
    EXPECT_FALSE(numbers.contains(ZyXMLPath("A/b")));
}

TEST(ZyXMLPath, PrintsItsText)
{
    std::ostringstream stream;
    stream << ZyXMLPath("a/b");
    EXPECT_EQ(stream.str(), "a/b");
}
