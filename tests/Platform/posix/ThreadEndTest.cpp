// SPDX-License-Identifier: BSD-3-Clause
// Threads that a host ends in the middle of a command.
#include <ZyCommandShell.h>
#include <ZyString.h>

#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <pthread.h>

namespace
{
struct EndsThread final : ShellInterface
{
    int execute(char const *, void *, CommandOptions &) override
    {
        pthread_exit(nullptr);
        return 0;
    }
    void currentHandler(MessageHandlerRef &) override
    {
        if (atOnce) {
            pthread_exit(nullptr);
        }
    }

    bool atOnce = false;
};

/** Sets a flag when the frame that it lives in is left. */
class Leaves
{
public:
    explicit Leaves(bool & flag) : m_flag(flag) {}
    Leaves(Leaves const &) = delete;
    Leaves & operator=(Leaves const &) = delete;
    ~Leaves() { m_flag = true; }

private:
    bool & m_flag;
};

void * runCommand(void * left)
{
    Leaves const leaves(*static_cast<bool *>(left));
    ZyCommandShell::RunCommand("command", false);
    ADD_FAILURE() << "the thread goes on";
    return nullptr;
}
} // namespace

TEST(ThreadEnd, LeavesTheFramesOfACommand)
{
    EndsThread shell;
    kb::ScopedShell const scoped(&shell);
    kb::OutputCapture const output;
    for (bool const atOnce : {false, true}) {
        shell.atOnce = atOnce;
        bool isLeft = false;
        pthread_t thread = {};
        ASSERT_EQ(pthread_create(&thread, nullptr, runCommand, &isLeft), 0);
        ASSERT_EQ(pthread_join(thread, nullptr), 0);
        EXPECT_TRUE(isLeft);
    }
    EXPECT_EQ(output.text(), "");
}
