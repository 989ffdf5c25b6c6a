// SPDX-License-Identifier: BSD-3-Clause
// Open files and child processes; line ends in text mode.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdio>
#include <string>

#include <io.h>

TEST(FopenSUtf8Modes, IsNotInheritedByChildren)
{
    YString const path = sp_GetTempFile();
    std::FILE * const file = fopen_s_utf8(path, "w");
    ASSERT_NE(file, nullptr);
    DWORD flags = HANDLE_FLAG_INHERIT;
    auto const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    EXPECT_NE(GetHandleInformation(handle, &flags), 0);
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0u);
    std::fclose(file);
    std::remove(path.c_str());
}

TEST(FopenSUtf8Modes, TextModeWritesBothLineEndCharacters)
{
    YString const path = sp_GetTempFile();
    for (std::string const mode : {"w", "wb"}) {
        std::FILE * const file = fopen_s_utf8(path, mode.c_str());
        ASSERT_NE(file, nullptr);
        std::fputs("a\n", file);
        std::fclose(file);
        std::FILE * const again = fopen_s_utf8(path, "rb");
        ASSERT_NE(again, nullptr);
        char text[8] = {};
        EXPECT_EQ(std::fread(text, 1, sizeof text, again), mode == "w" ? 3u : 2u);
        EXPECT_STREQ(text, mode == "w" ? "a\r\n" : "a\n");
        std::fclose(again);
    }
    std::remove(path.c_str());
}
