// SPDX-License-Identifier: BSD-3-Clause
// Files by names in UTF-8, and the last component of a path.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace
{

namespace fs = std::filesystem;

/** A directory of the test's own. */
class FopenSUtf8 : public testing::Test
{
protected:
    FopenSUtf8() : m_directory(fs::u8path(sp_GetTempFile().c_str())) { fs::create_directory(m_directory); }
    ~FopenSUtf8() override { fs::remove_all(m_directory); }

    std::string path(std::string const & name) const { return (m_directory / fs::u8path(name)).u8string(); }
    std::string read(std::string const & name) const
    {
        std::ifstream file(m_directory / fs::u8path(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

    fs::path m_directory;
};

} // namespace

TEST_F(FopenSUtf8, WritesAFileWithANameInUtf8)
{
    std::FILE * const file = fopen_s_utf8(path("\xCE\xBC.html"), "wb");
    ASSERT_NE(file, nullptr);
    std::fputs("a\nb\r\n", file);
    std::fclose(file);
    EXPECT_EQ(read("\xCE\xBC.html"), "a\nb\r\n");
}

TEST_F(FopenSUtf8, TakesSlashesOfEitherKind)
{
    fs::create_directory(m_directory / "sub");
    std::FILE * const file = fopen_s_utf8(path("sub\\a.txt"), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_TRUE(fs::exists(m_directory / "sub" / "a.txt"));
}

TEST_F(FopenSUtf8, GivesNullForWhatCannotBeOpened)
{
    EXPECT_EQ(fopen_s_utf8(path("missing"), "r"), nullptr);
    EXPECT_EQ(fopen_s_utf8(path("missing/a"), "w"), nullptr);
    EXPECT_EQ(fopen_s_utf8("", "w"), nullptr);
    EXPECT_EQ(fopen_s_utf8(m_directory.u8string(), "w"), nullptr);
}

TEST(SpGetFileName, IsWhatStandsBehindTheLastSlash)
{
    EXPECT_STREQ(sp_GetFileName("/usr/lib/libZyCore.so").c_str(), "libZyCore.so");
    EXPECT_STREQ(sp_GetFileName("C:\\suite\\core.dll").c_str(), "core.dll");
    EXPECT_STREQ(sp_GetFileName("a/b\\c").c_str(), "c");
    EXPECT_STREQ(sp_GetFileName("a\\b/c").c_str(), "c");
    EXPECT_STREQ(sp_GetFileName("name").c_str(), "name");
}

TEST(SpGetFileName, IsEmptyBehindAFinalSlash)
{
    EXPECT_STREQ(sp_GetFileName("a/").c_str(), "");
    EXPECT_STREQ(sp_GetFileName("").c_str(), "");
    EXPECT_STREQ(sp_GetFileName(nullptr).c_str(), "");
}
