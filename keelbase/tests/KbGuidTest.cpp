// SPDX-License-Identifier: BSD-3-Clause
// Globally unique identifiers: how they look, that none comes twice, that they can be replaced.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

namespace
{

/** Every test leaves the process with identifiers of its own. */
class SpGetGuid : public testing::Test
{
protected:
    ~SpGetGuid() override { kb::SetGuidSource({}); }
};

} // namespace

TEST_F(SpGetGuid, HasThirtySixCharactersInLowerCaseWithFourHyphens)
{
    for (int i = 0; i < 100; ++i) {
        std::string const guid = sp_GetGUID().c_str();
        ASSERT_EQ(guid.size(), 36u);
        for (std::size_t at = 0; at < guid.size(); ++at) {
            bool const hyphen = at == 8 || at == 13 || at == 18 || at == 23;
            std::string const allowed = hyphen ? "-" : "0123456789abcdef";
            ASSERT_NE(allowed.find(guid[at]), std::string::npos) << guid;
        }
    }
}

TEST_F(SpGetGuid, TellsThatItIsRandom)
{
    for (int i = 0; i < 100; ++i) {
        std::string const guid = sp_GetGUID().c_str();
        EXPECT_EQ(guid[14], '4') << guid;
        EXPECT_THAT(std::string("89ab"), testing::HasSubstr(guid.substr(19, 1))) << guid;
    }
}

TEST_F(SpGetGuid, GivesNoneTwiceInAMillionFromFourThreads)
{
    std::vector<std::vector<std::string>> guids(4);
    std::vector<std::thread> threads;
    threads.reserve(guids.size());
    for (auto & own : guids) {
        threads.emplace_back([&own] {
            own.reserve(250000);
            for (int i = 0; i < 250000; ++i) {
                own.emplace_back(sp_GetGUID().c_str());
            }
        });
    }
    std::vector<std::string> all;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        all.insert(all.end(), guids[i].begin(), guids[i].end());
    }
    std::sort(all.begin(), all.end());
    EXPECT_EQ(std::adjacent_find(all.begin(), all.end()), all.end());
    EXPECT_EQ(all.size(), 1000000u);
}

TEST_F(SpGetGuid, TakesWhatTheHostGives)
{
    int calls = 0;
    kb::SetGuidSource([&] { return "id " + std::to_string(++calls); });
    EXPECT_STREQ(sp_GetGUID().c_str(), "id 1");
    EXPECT_STREQ(sp_GetGUID().c_str(), "id 2");
    kb::SetGuidSource({});
    EXPECT_EQ(sp_GetGUID().length(), 36);
    EXPECT_EQ(calls, 2);
}

TEST_F(SpGetGuid, LetsASourceAskForAnotherSource)
{
    kb::SetGuidSource([] {
        kb::SetGuidSource({}); // would block for ever under a lock
        return std::string(sp_GetGUID().c_str());
    });
    EXPECT_EQ(sp_GetGUID().length(), 36);
}
