// SPDX-License-Identifier: BSD-3-Clause
// Options: who registers them, what the host gives, in which order.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{

/** Every test leaves the process without given values. */
class Option : public testing::Test
{
protected:
    ~Option() override { kb::ClearOptions(); }
};

} // namespace

TEST_F(Option, IsFalseUntilTheHostGivesAValue)
{
    MakeOption const option("KbTestOption", "..\\src\\Some\\Source", 61);
    EXPECT_FALSE(sp_GetBoolOption("KbTestOption"));
    EXPECT_FALSE(sp_GetBoolOption("KbTestOption", true));
    kb::SetOption("KbTestOption", true);
    EXPECT_TRUE(sp_GetBoolOption("KbTestOption"));
    kb::SetOption("KbTestOption", false);
    EXPECT_FALSE(sp_GetBoolOption("KbTestOption", true));
}

TEST_F(Option, HasANameWithoutCase)
{
    MakeOption const option("KbTestOption", "", 0);
    kb::SetOption("KBTESTOPTION", true);
    EXPECT_TRUE(sp_GetBoolOption("kbtestoption"));
    EXPECT_TRUE(kb::Options().at(0).filled);
}

TEST_F(Option, ThatNobodyKnowsIsWhatTheCallerSays)
{
    EXPECT_FALSE(sp_GetBoolOption("KbNoOption"));
    EXPECT_TRUE(sp_GetBoolOption("KbNoOption", true));
}

TEST_F(Option, TakesAValueGivenBeforeItIsRegistered)
{
    kb::SetOption("KbTestOption", true);
    MakeOption const option("KbTestOption", "", 0);
    EXPECT_TRUE(sp_GetBoolOption("KbTestOption"));
}

TEST_F(Option, TellsWhereItWasRegisteredWhileItLives)
{
    {
        MakeOption const first("KbFirst", "..\\a", 1);
        MakeOption const second("KbSecond", "..\\b", 2);
        kb::SetOption("KbSecond", false);
        std::vector<kb::Registration> const options = kb::Options();
        ASSERT_EQ(options.size(), 2u);
        EXPECT_EQ(options[0].name, "KbFirst");
        EXPECT_EQ(options[0].tag, "..\\a");
        EXPECT_EQ(options[0].line, 1);
        EXPECT_FALSE(options[0].filled);
        EXPECT_EQ(options[1].name, "KbSecond");
        EXPECT_TRUE(options[1].filled);
    }
    EXPECT_TRUE(kb::Options().empty());
}

TEST_F(Option, MayBeRegisteredTwice)
{
    MakeOption const first("KbTestOption", "a", 1);
    {
        MakeOption const second("KbTestOption", "b", 2);
        EXPECT_EQ(kb::Options().size(), 2u);
    }
    ASSERT_EQ(kb::Options().size(), 1u);
    EXPECT_EQ(kb::Options()[0].tag, "a");
    EXPECT_FALSE(sp_GetBoolOption("KbTestOption", true));
}

TEST_F(Option, LosesItsValueWhenAllAreCleared)
{
    MakeOption const option("KbTestOption", "", 0);
    kb::SetOption("KbTestOption", true);
    kb::ClearOptions();
    EXPECT_FALSE(sp_GetBoolOption("KbTestOption", true));
    EXPECT_EQ(kb::Options().size(), 1u);
}

TEST_F(Option, IsReadAndGivenFromSeveralThreads)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([i] {
            for (int k = 0; k < 500; ++k) {
                MakeOption const option("KbTestOption", "", i);
                kb::SetOption("KbTestOption", true);
                EXPECT_TRUE(sp_GetBoolOption("KbTestOption"));
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(kb::Options().empty());
}
