// SPDX-License-Identifier: BSD-3-Clause
// What the throws of the library's templates throw, and the bases that those templates share.
#include <ZyDeque.h>
#include <ZyList.h>
#include <ZyThrow.h>
#include <ZyVector.h>

#include <ThrowsMessage.h>

#include <gtest/gtest.h>

#include <deque>
#include <list>
#include <stdexcept>
#include <type_traits>
#include <typeinfo>
#include <vector>

static_assert(std::is_base_of_v<ZyIndexedContainer<int, std::deque<int>>, ZyDeque<int>>);
static_assert(std::is_base_of_v<ZyIndexedContainer<int, std::vector<int>>, ZyVector<int>>);
static_assert(std::is_base_of_v<ZyStandardContainer<int, std::list<int>>, ZyList<int>>);
static_assert(!std::is_base_of_v<ZyIndexedContainer<int, std::list<int>>, ZyList<int>>,
              "a list has no index");
static_assert(!std::is_destructible_v<ZyStandardContainer<int, std::list<int>>> &&
                  !std::is_destructible_v<ZyIndexedContainer<int, std::deque<int>>>,
              "nobody holds the shared bases");

TEST(ZyThrow, ThrowsWhatEachFunctionIsNamedAfter)
{
    EXPECT_ZY_THROW(ZyThrow::IndexOutOfBounds(3, 2), ZyIndexOutOfBoundsException,
                    "Index out of bounds [3,2]");
    EXPECT_ZY_THROW(ZyThrow::InvalidCall("No call"), ZyInvalidCallException, "No call");
    EXPECT_ZY_THROW(ZyThrow::NotFound(), ZyNotFoundException, "Item not found");
    EXPECT_ZY_THROW(ZyThrow::NullPointer(), ZyNullPointerException, "");
    EXPECT_ZY_THROW(ZyThrow::NullPointer("No object"), ZyNullPointerException, "No object");
    EXPECT_STD_THROW(ZyThrow::LengthError("Too long"), std::length_error, "Too long");
    EXPECT_STD_THROW(ZyThrow::BadCast(), std::bad_cast, std::bad_cast().what());
}
