// SPDX-License-Identifier: BSD-3-Clause
// Where temporary files lie, which the environment tells.
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace
{
/** Sets TMPDIR and puts it back. */
class ScopedTmpdir
{
public:
    explicit ScopedTmpdir(std::string const & value)
    {
        if (char const * before = std::getenv("TMPDIR")) {
            m_before = before;
        }
        setenv("TMPDIR", value.c_str(), 1);
    }
    ~ScopedTmpdir()
    {
        if (m_before.empty()) {
            unsetenv("TMPDIR");
        } else {
            setenv("TMPDIR", m_before.c_str(), 1);
        }
    }
    ScopedTmpdir(ScopedTmpdir const &) = delete;
    ScopedTmpdir & operator=(ScopedTmpdir const &) = delete;

private:
    std::string m_before;
};
} // namespace

TEST(SpGetTempFileDirectory, FollowsTheEnvironment)
{
    ScopedTmpdir const tmpdir("/usr");
    EXPECT_THAT(sp_GetTempFile().c_str(), testing::MatchesRegex("/usr/zy_[0-9a-f]+\\.tmp"));
}

TEST(SpGetTempFileDirectory, FallsBackWhenTheEnvironmentNamesNoDirectory)
{
    ScopedTmpdir const tmpdir("/no/such/directory");
    EXPECT_THAT(sp_GetTempFile().c_str(), testing::MatchesRegex("/tmp/zy_[0-9a-f]+\\.tmp"));
}
