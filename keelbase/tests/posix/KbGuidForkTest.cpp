// SPDX-License-Identifier: BSD-3-Clause
// Globally unique identifiers of two processes that were one.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <string>

#include <sys/wait.h>
#include <unistd.h>

TEST(SpGetGuidForked, DiffersInAChildProcess)
{
    static_cast<void>(sp_GetGUID());
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    pid_t const child = ::fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        YString const guid = sp_GetGUID();
        bool const written = ::write(ends[1], guid.c_str(), 36) == 36;
        ::_exit(written ? 0 : 1);
    }
    YString const mine = sp_GetGUID();
    std::string theirs(36, '\0');
    EXPECT_EQ(::read(ends[0], theirs.data(), theirs.size()), 36);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    ::close(ends[0]);
    ::close(ends[1]);
    EXPECT_NE(theirs, mine.c_str());
}
