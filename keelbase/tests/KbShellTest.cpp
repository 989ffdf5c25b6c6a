// SPDX-License-Identifier: BSD-3-Clause
// The shell that a test offers, and handlers of output.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(!std::has_virtual_destructor_v<ShellInterface> &&
              std::has_virtual_destructor_v<MessageHandler>);
static_assert(sizeof(ShellInterface) == sizeof(void *));
static_assert(!std::is_copy_constructible_v<kb::ScopedShell> &&
              !std::is_copy_constructible_v<MessageHandler>);

namespace
{
struct Shell final : ShellInterface
{
    int execute(char const *, void *, CommandOptions &) override { return 0; }
    void currentHandler(MessageHandlerRef &) override {}
};

ShellInterface * noShell()
{
    return nullptr;
}

ShellFunction offered()
{
    return reinterpret_cast<ShellFunction>(kb::OfferedFunction("widgets_GetShellInterface"));
}
} // namespace

TEST(ScopedShell, IsOfferedWhileItLives)
{
    EXPECT_EQ(offered(), nullptr);
    {
        Shell shell;
        kb::ScopedShell const scoped(&shell);
        ASSERT_NE(offered(), nullptr);
        EXPECT_EQ(offered()(), &shell);
    }
    EXPECT_EQ(offered(), nullptr);
}

TEST(ScopedShell, Nests)
{
    Shell outer;
    Shell inner;
    kb::ScopedShell const first(&outer);
    {
        kb::ScopedShell const second(&inner);
        EXPECT_EQ(offered()(), &inner);
        kb::ScopedShell const third(nullptr);
        EXPECT_EQ(offered()(), nullptr);
    }
    EXPECT_EQ(offered()(), &outer);
}

TEST(ScopedShell, LeavesWhatAHostHadOffered)
{
    kb::OfferFunction("widgets_GetShellInterface", reinterpret_cast<kb::Function>(noShell));
    {
        Shell shell;
        kb::ScopedShell const scoped(&shell);
        EXPECT_EQ(offered()(), &shell);
    }
    EXPECT_EQ(offered(), noShell);
    kb::WithdrawFunction("widgets_GetShellInterface");
}

TEST(CommandOptions, AreEmptyByDefault)
{
    CommandOptions const options;
    EXPECT_EQ(options.handler, nullptr);
    EXPECT_FALSE(options.flag || options.second || options.third);
    EXPECT_TRUE(options.text1.isEmpty() && options.text2.isEmpty());
    EXPECT_EQ(options.reserved[0], nullptr);
    EXPECT_EQ(options.reserved[1], nullptr);
}

TEST(NullMessageHandler, DropsWhatItGets)
{
    kb::OutputCapture const output;
    MessageHandlerRef const handler = std::make_shared<NullMessageHandler>();
    handler->message("text");
    EXPECT_EQ(output.text(), "");
}
