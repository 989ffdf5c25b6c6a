// SPDX-License-Identifier: BSD-3-Clause
// The exceptions that carry paths: their words, their paths and their place in the tree.
#include <ZyFileException.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <type_traits>

static_assert(sizeof(ZyFileException) == sizeof(ZyException) + 2 * sizeof(ZyFilePath),
              "two paths behind the state");
static_assert(sizeof(ZyFileNotFoundException) == sizeof(ZyFileException), "no other class adds a field");
static_assert(std::is_base_of_v<ZyException, ZyFileException>);
static_assert(std::is_base_of_v<ZyFileException, ZyFileLockedException>);
static_assert(std::is_base_of_v<ZyFileException, ZyFileNotFoundException>);
static_assert(std::is_base_of_v<ZyFileException, ZyFileSaveException>);
static_assert(std::is_base_of_v<ZyFileException, ZyInvalidPathException>);
static_assert(std::is_base_of_v<ZyFileException, ZyCannotOpenFileException>);

namespace
{
void expectIs(ZyFileException const & failure, char const * name, char const * message, char const * path1,
              char const * path2 = "")
{
    EXPECT_STREQ(failure.name(), name);
    EXPECT_STREQ(failure.what(), message);
    EXPECT_EQ(failure.path1().path().toStdString(), path1);
    EXPECT_EQ(failure.path2().path().toStdString(), path2);
}
} // namespace

TEST(ZyFileException, HasTheGivenWordsAndPaths)
{
    expectIs(ZyFileException("words"), "ZyFileException", "words", "");
    expectIs(ZyFileException("words", "a/b"), "ZyFileException", "words", "a\\b");
    expectIs(ZyFileException("words", ZyFilePath("a/b"), ZyFilePath("c/d")), "ZyFileException", "words",
             "a\\b", "c\\d");
}

TEST(ZyFileException, TakesAStandardFailure)
{
    std::filesystem::filesystem_error const failure("op", "a/b", "c/d",
                                                    std::make_error_code(std::errc::invalid_argument));
    expectIs(ZyFileException(failure), "ZyFileException", failure.what(), "a\\b", "c\\d");
}

TEST(ZyFileException, CopiesAreDeep)
{
    ZyFileNotFoundException const original("a/b");
    ZyFileNotFoundException copy(original);
    expectIs(copy, "ZyFileNotFoundException", "File not found: a/b", "a\\b");
    copy = ZyFileNotFoundException("c");
    expectIs(copy, "ZyFileNotFoundException", "File not found: c", "c");
    expectIs(original, "ZyFileNotFoundException", "File not found: a/b", "a\\b");
}

TEST(ZyFileException, NamesTheClassThatWasThrown)
{
    try {
        throw ZyFileNotFoundException("a");
    } catch (ZyFileException const & caught) {
        EXPECT_STREQ(caught.name(), "ZyFileNotFoundException");
    }
}

TEST(ZyFileLockedException, ComposesItsWords)
{
    expectIs(ZyFileLockedException("a/b"), "ZyFileLockedException", "File already locked: a/b", "a\\b");
}

TEST(ZyFileNotFoundException, ComposesItsWords)
{
    expectIs(ZyFileNotFoundException(ZyString("a/b")), "ZyFileNotFoundException", "File not found: a/b",
             "a\\b");
    expectIs(ZyFileNotFoundException(ZyFilePath("a/b")), "ZyFileNotFoundException", "File not found: a\\b",
             "a\\b");
    expectIs(ZyFileNotFoundException("a/b"), "ZyFileNotFoundException", "File not found: a/b", "a\\b");
}

TEST(ZyFileSaveException, ComposesItsWords)
{
    expectIs(ZyFileSaveException("disk full", "a/b"), "ZyFileSaveException", "Cannot save [disk full]",
             "a\\b");
}

TEST(ZyInvalidPathException, ComposesItsWords)
{
    expectIs(ZyInvalidPathException("a/b"), "ZyInvalidPathException", "Invalid path: a\\b", "a\\b");
}

TEST(ZyCannotOpenFileException, ComposesItsWords)
{
    expectIs(ZyCannotOpenFileException(ZyString("a/b")), "ZyCannotOpenFileException", "Cannot open file: a/b",
             "a\\b");
    expectIs(ZyCannotOpenFileException(ZyFilePath("a/b")), "ZyCannotOpenFileException",
             "Cannot open file: a\\b", "a\\b");
    expectIs(ZyCannotOpenFileException("a/b"), "ZyCannotOpenFileException", "Cannot open file: a/b", "a\\b");
}

TEST(ZyFileException, KeepsAnUncheckedPathAsItIs)
{
    expectIs(ZyInvalidPathException(ZyFilePath::CreateUnchecked(" a/b")), "ZyInvalidPathException",
             "Invalid path:  a/b", " a/b");
}
