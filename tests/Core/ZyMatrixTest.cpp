// SPDX-License-Identifier: BSD-3-Clause
// Tests of the two-dimensional table.
#include <ZyMatrix.h>
#include <ZyString.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(std::has_virtual_destructor_v<ZyMatrix<int>>);
static_assert(sizeof(ZyMatrix<int>) == sizeof(void *) + sizeof(ZyVector<int>) + 2 * sizeof(unsigned int),
              "elements, rows, columns");

TEST(ZyMatrix, IsEmptyAtFirst)
{
    ZyMatrix<int> const matrix;
    EXPECT_EQ(matrix.rows(), 0u);
    EXPECT_EQ(matrix.columns(), 0u);
    EXPECT_TRUE(matrix.std_vector().empty());
}

TEST(ZyMatrix, FillsWithDefaults)
{
    ZyMatrix<int> const numbers(2, 3);
    EXPECT_EQ(numbers.rows(), 2u);
    EXPECT_EQ(numbers.columns(), 3u);
    EXPECT_EQ(numbers.std_vector(), (std::vector<int>(6, 0)));
    ZyMatrix<ZyString> const texts(1, 1);
    EXPECT_TRUE(texts(0, 0).isEmpty());
}

TEST(ZyMatrix, FillsWithAValue)
{
    ZyMatrix<double> const numbers(2, 2, 1.5);
    EXPECT_EQ(numbers.std_vector(), (std::vector<double>(4, 1.5)));
}

TEST(ZyMatrix, StoresRowAfterRow)
{
    ZyMatrix<int> matrix(2, 3);
    for (unsigned int row = 0; row < 2; ++row) {
        for (unsigned int column = 0; column < 3; ++column) {
            matrix(row, column) = static_cast<int>(10 * row + column);
        }
    }
    EXPECT_EQ(matrix.std_vector(), (std::vector<int>{0, 1, 2, 10, 11, 12}));
    ZyMatrix<int> const & constant = matrix;
    EXPECT_EQ(constant.at(1, 2), 12);
    EXPECT_EQ(constant(0, 1), 1);
    matrix.at(1, 0) = 7;
    EXPECT_EQ(matrix(1, 0), 7);
}

TEST(ZyMatrix, BadRowTellsTheNumberOfRows)
{
    ZyMatrix<int> matrix(2, 3);
    ZyMatrix<int> const & constant = matrix;
    EXPECT_ZY_THROW(matrix.at(2, 0), ZyIndexOutOfBoundsException, "Index out of bounds [2,2]");
    EXPECT_ZY_THROW(constant(4294967295u, 0), ZyIndexOutOfBoundsException,
                    "Index out of bounds [4294967295,2]");
}

TEST(ZyMatrix, BadColumnTellsTheNumberOfColumns)
{
    ZyMatrix<int> matrix(2, 3);
    ZyMatrix<int> const & constant = matrix;
    EXPECT_ZY_THROW(matrix(0, 3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(constant.at(1, 5), ZyIndexOutOfBoundsException, "Index out of bounds [5,3]");
}

TEST(ZyMatrix, ChecksTheRowFirst)
{
    ZyMatrix<int> matrix(2, 3);
    EXPECT_ZY_THROW(matrix.at(9, 9), ZyIndexOutOfBoundsException, "Index out of bounds [9,2]");
    ZyMatrix<int> empty;
    EXPECT_ZY_THROW(empty.at(0, 0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyMatrix, RowsWithoutColumnsAreKept)
{
    ZyMatrix<int> matrix(3, 0);
    EXPECT_EQ(matrix.rows(), 3u);
    EXPECT_EQ(matrix.columns(), 0u);
    EXPECT_ZY_THROW(matrix.at(0, 0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyMatrix, RefusesCountsWhoseProductWraps)
{
    EXPECT_THROW(ZyMatrix<char>(65536, 65536), std::length_error);
    EXPECT_THROW(ZyMatrix<char>(4294967295u, 4294967295u), std::length_error);
}

TEST(ZyMatrix, CopiesAreDeep)
{
    ZyMatrix<int> first(1, 2, 5);
    ZyMatrix<int> second(first);
    first(0, 0) = 6;
    EXPECT_EQ(second(0, 0), 5);
    EXPECT_TRUE(first != second);
    second = first;
    EXPECT_TRUE(first == second);
    ZyMatrix<int> const & same = second;
    second = same;
    EXPECT_TRUE(first == second);
}

TEST(ZyMatrix, MovedFromIsEmpty)
{
    ZyMatrix<int> first(2, 2, 5);
    ZyMatrix<int> second(std::move(first));
    EXPECT_EQ(second.rows(), 2u);
    EXPECT_EQ(first.rows(), 0u);
    EXPECT_EQ(first.columns(), 0u);
    EXPECT_ZY_THROW(first.at(0, 0), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
    first = std::move(second);
    EXPECT_EQ(first(1, 1), 5);
    EXPECT_EQ(second.rows(), 0u);
    EXPECT_TRUE(second.std_vector().empty());
}

TEST(ZyMatrix, SurvivesMoveToItself)
{
    ZyMatrix<int> matrix(1, 1, 5);
    ZyMatrix<int> & same = matrix;
    matrix = std::move(same);
    EXPECT_EQ(matrix.rows(), 1u);
    EXPECT_EQ(matrix(0, 0), 5);
}

TEST(ZyMatrix, TakesElementsOver)
{
    ZyMatrix<int> const matrix(2, 2, std::vector<int>{1, 2, 3, 4});
    EXPECT_EQ(matrix(1, 0), 3);
    EXPECT_THROW(ZyMatrix<int>(2, 2, std::vector<int>{1}), std::length_error);
}

TEST(ZyMatrix, EqualityNeedsTheSameShape)
{
    EXPECT_TRUE((ZyMatrix<int>(2, 3)) == (ZyMatrix<int>(2, 3)));
    EXPECT_FALSE((ZyMatrix<int>(2, 3)) == (ZyMatrix<int>(3, 2)));
    EXPECT_FALSE((ZyMatrix<int>(0, 3)) == (ZyMatrix<int>()));
    EXPECT_TRUE((ZyMatrix<ZyString>(1, 1, "a")) == (ZyMatrix<ZyString>(1, 1, "A")));
}
