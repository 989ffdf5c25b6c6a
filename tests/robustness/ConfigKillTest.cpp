// SPDX-License-Identifier: BSD-3-Clause
// A process is killed at random moments while it writes the configuration: what it was told to be written is
// there, whole, and the next process can write.
#include "Killed.h"
#include "ScratchDirectory.h"

#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <random>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int rounds = 250;

/** A value that tells which one it is at both of its ends. */
std::string stateOf(int number)
{
    std::string const text = std::to_string(number);
    return text + ' ' + std::string(20000, 'x') + ' ' + text;
}

int numberOf(std::string const & state)
{
    int const number = std::atoi(state.c_str());
    return state == stateOf(number) ? number : -1;
}

/** Writes one state after the other, telling each that is written, until it is killed. */
[[noreturn]] void writeStates(int first, int told, long moment)
{
    Killed::after(moment);
    for (int number = first;; ++number) {
        if (cfgman_WriteConfigSetting("S", "state", stateOf(number).c_str()) != 1 ||
            ::write(told, &number, sizeof(number)) != sizeof(number)) {
            std::_Exit(1);
        }
    }
}

/** The last state that a process told before it was killed; \a before when it told none. */
int writeAndBeKilled(int before, long moment)
{
    int ends[2] = {};
    EXPECT_EQ(::pipe(ends), 0);
    pid_t const child = ::fork();
    if (child == 0) {
        writeStates(before + 1, ends[1], moment);
    }
    ::close(ends[1]);
    int last = before;
    for (int number = 0; ::read(ends[0], &number, sizeof(number)) == sizeof(number);) {
        last = number;
    }
    ::close(ends[0]);
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
    return last;
}

std::string valueOf(char const * key)
{
    YString value;
    EXPECT_EQ(cfgman_GetConfigSetting("S", key, &value, false), 1) << key;
    return value.c_str();
}
} // namespace

TEST(ConfigKill, LeavesTheLastStateWhole)
{
    ScratchDirectory const scratch;
    kb::UseConfigFile((scratch / "suite.cfg").c_str());
    cfgman_WriteConfigSetting("S", "other", "stays");
    cfgman_WriteConfigSetting("S", "state", stateOf(0).c_str());
    std::mt19937 random(std::random_device{}());
    int state = 0;
    for (int round = 1; round <= rounds; ++round) {
        long const moment = 1 + static_cast<long>(std::uniform_real_distribution<>(0, 2e7)(random));
        int const told = writeAndBeKilled(state, moment);
        state = numberOf(valueOf("state"));
        // The last one may have been written and not been told any more.
        ASSERT_TRUE(state == told || state == told + 1)
            << state << " in round " << round << ", told " << told;
        ASSERT_EQ(valueOf("other"), "stays");
    }
    EXPECT_GT(state, 0);
    EXPECT_EQ(cfgman_WriteConfigSetting("S", "after", "1"), 1);
    EXPECT_FALSE(scratch.has("suite.cfg.new"));
    kb::UseMemoryConfig();
}
