// SPDX-License-Identifier: BSD-3-Clause
// Where temporary files lie, which the environment tells.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

TEST(SpGetTempFileDirectory, FollowsTheEnvironment)
{
    std::string const before = std::getenv("TMP") != nullptr ? std::getenv("TMP") : "";
    std::filesystem::path const directory = std::filesystem::temp_directory_path() / "zy_tmp_\u00B5";
    std::filesystem::create_directory(directory);
    _wputenv_s(L"TMP", directory.c_str());
    std::filesystem::path const file = std::filesystem::u8path(sp_GetTempFile().c_str());
    _putenv_s("TMP", before.c_str());
    EXPECT_TRUE(std::filesystem::equivalent(file.parent_path(), directory)) << file;
    std::filesystem::remove(directory);
}
