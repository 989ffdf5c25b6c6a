// SPDX-License-Identifier: BSD-3-Clause
// Names for temporary files: where they lie, how they look, that none comes twice.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace
{

namespace fs = std::filesystem;

/** Every test leaves the process with the system's temporary directory. */
class SpGetTempFile : public testing::Test
{
protected:
    ~SpGetTempFile() override { kb::SetTempDirectory(nullptr); }
};

} // namespace

TEST_F(SpGetTempFile, NamesAFileInTheTemporaryDirectoryAndCreatesNothing)
{
    std::string const path = sp_GetTempFile().c_str();
    EXPECT_TRUE(fs::equivalent(fs::path(path).parent_path(), (fs::temp_directory_path() / "").parent_path()))
        << path;
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(SpGetTempFile, UsesTheChosenDirectory)
{
    kb::SetTempDirectory("/some/where");
    EXPECT_TRUE(std::regex_match(sp_GetTempFile().c_str(), std::regex("/some/where/zy_[0-9a-f]+\\.tmp")));
    kb::SetTempDirectory("/some/where/");
    EXPECT_TRUE(std::regex_match(sp_GetTempFile().c_str(), std::regex("/some/where/zy_[0-9a-f]+\\.tmp")));
}

TEST_F(SpGetTempFile, GoesBackToTheSystemsDirectory)
{
    auto const parent = fs::path(sp_GetTempFile().c_str()).parent_path();
    kb::SetTempDirectory("/some/where");
    kb::SetTempDirectory("");
    EXPECT_EQ(fs::path(sp_GetTempFile().c_str()).parent_path(), parent);
}

TEST_F(SpGetTempFile, HasSixteenHexadecimalDigits)
{
    kb::SetTempDirectory("/d");
    EXPECT_EQ(sp_GetTempFile().length(), static_cast<int>(std::string("/d/zy_0123456789abcdef.tmp").size()));
}

TEST_F(SpGetTempFile, KeepsAUtf8Directory)
{
    kb::SetTempDirectory("/d\xC3\xA9");
    EXPECT_THAT(sp_GetTempFile().c_str(), testing::StartsWith("/d\xC3\xA9/zy_"));
}

TEST_F(SpGetTempFile, GivesNoNameTwiceFromSeveralThreads)
{
    std::vector<std::vector<std::string>> names(4);
    std::vector<std::thread> threads;
    threads.reserve(names.size());
    for (auto & own : names) {
        threads.emplace_back([&own] {
            for (int i = 0; i < 500; ++i) {
                own.emplace_back(sp_GetTempFile().c_str());
            }
        });
    }
    std::set<std::string> all;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        all.insert(names[i].begin(), names[i].end());
    }
    EXPECT_EQ(all.size(), 2000u);
}
