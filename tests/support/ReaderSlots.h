// SPDX-License-Identifier: BSD-3-Clause
// The places that the operations of every element reader share.
#pragma once

#include "VirtualSlot.h"

#include <gtest/gtest.h>

#if ZY_SLOTS_VISIBLE
/** Expects the operations of an element reader at their places, but for children(), which some overload. */
template <class Reader>
void expectReaderSlots()
{
    EXPECT_EQ(virtualSlot(&Reader::attributes), 2u);
    EXPECT_EQ(virtualSlot(&Reader::hasAttribute), 4u);
    EXPECT_EQ(virtualSlot(&Reader::name), 5u);
    EXPECT_EQ(virtualSlot(&Reader::readAttribute), 6u);
    EXPECT_EQ(virtualSlot(&Reader::readAttributeBase64), 7u);
    EXPECT_EQ(virtualSlot(&Reader::readText), 8u);
    EXPECT_EQ(virtualSlot(&Reader::readTextBase64), 9u);
}
#endif
