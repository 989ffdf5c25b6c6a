// SPDX-License-Identifier: BSD-3-Clause
// What the library has done when it is loaded.
#include <ZyMaths.h>

#include <keelbase/KbHost.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

TEST(ZyLoad, RegistersTheOptionOfReadableNumbers)
{
    ASSERT_GE(ZyMaths::Random::Integer(0, 1), 0); // refers to the library, so that it is linked
    std::vector<kb::Registration> const options = kb::Options();
    auto const option = std::find_if(options.begin(), options.end(), [](kb::Registration const & one) {
        return one.name == "WriteXMLAsciiReals";
    });
    ASSERT_NE(option, options.end());
    EXPECT_EQ(option->tag, "..\\src\\Misc\\XMLReport");
    EXPECT_EQ(option->line, 61);
    EXPECT_FALSE(option->filled);
    EXPECT_EQ(options.size(), 1u);
}

TEST(ZyLoad, RegistersTheSlotOfTheShell)
{
    ASSERT_GE(ZyMaths::Random::Integer(0, 1), 0);
    std::vector<kb::Registration> const slots = kb::Slots();
    ASSERT_EQ(slots.size(), 1u);
    EXPECT_EQ(slots[0].name, "widgets_GetShellInterface");
    EXPECT_EQ(slots[0].tag, "..\\src\\Util\\ZyCommandShell");
    EXPECT_EQ(slots[0].line, 23);
    EXPECT_FALSE(slots[0].filled);
}
