// SPDX-License-Identifier: BSD-3-Clause
// The numbers that checked access reports.
#include <ZyDeque.h>
#include <ZyString.h>
#include <ZyVector.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

TEST(ZyContainerIndex, Deliberate_container_index_last)
{
    ZyDeque<int> const deque{1, 2, 3};
    ZyVector<int> const vector{1, 2, 3};
    EXPECT_ZY_THROW(deque[3], ZyIndexOutOfBoundsException, "Index out of bounds [3,2]");
    EXPECT_ZY_THROW(vector.at(7), ZyIndexOutOfBoundsException, "Index out of bounds [7,2]");
    EXPECT_ZY_THROW(ZyDeque<int>().at(0), ZyIndexOutOfBoundsException, "Index out of bounds [0,4294967295]");
    EXPECT_ZY_THROW(ZyString("abc").at(3), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
}
