// SPDX-License-Identifier: BSD-3-Clause
// Open files and child processes.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <cstdio>

#include <fcntl.h>

TEST(FopenSUtf8Inheritance, IsNotInheritedByChildren)
{
    YString const path = sp_GetTempFile();
    std::FILE * const file = fopen_s_utf8(path, "w");
    ASSERT_NE(file, nullptr);
    EXPECT_NE(::fcntl(::fileno(file), F_GETFD) & FD_CLOEXEC, 0);
    std::fclose(file);
    std::remove(path.c_str());
}
