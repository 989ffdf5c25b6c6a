// SPDX-License-Identifier: BSD-3-Clause
// Commands and messages on their way to the host.
#include "Faults.h"
#include "VirtualSlot.h"

#include <TandobleException.h>
#include <ZyCommandShell.h>
#include <ZyException.h>
#include <ZyString.h>

#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cfenv>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <regex>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

static_assert(std::is_empty_v<ZyCommandShell> && std::is_copy_assignable_v<ZyCommandShell> &&
              std::is_move_assignable_v<ZyCommandShell>);

namespace
{
constexpr char const * unresolved =
    "*** FATAL ERROR *** Unresolved dynamic function 'widgets_GetShellInterface' called\n";
constexpr char const * unhandled =
    "Unhandled exception caught in module ..\\src\\Util\\ZyCommandShell at line 83\n";

/** A shell that does what the test says, and remembers how it was called. */
struct Shell final : ShellInterface
{
    int execute(char const * command, void * context, CommandOptions & given) override
    {
        commands.emplace_back(command);
        hasContext = context != nullptr;
        options = given;
        if (onExecute) {
            onExecute();
        }
        return 1;
    }
    void reserved() override { ++reservedCalls; }
    void currentHandler(MessageHandlerRef & holder) override
    {
        wasEmpty = holder == nullptr;
        holder = handler;
        if (onHandler) {
            onHandler();
        }
    }

    std::function<void()> onExecute;
    std::function<void()> onHandler;
    MessageHandlerRef handler;
    std::vector<std::string> commands;
    CommandOptions options;
    bool hasContext = true;
    bool wasEmpty = false;
    int reservedCalls = 0;
};

/** Faults, on any number of threads. */
struct ThreadShell final : ShellInterface
{
    int execute(char const *, void *, CommandOptions &) override
    {
        Faults::callNull();
        return 0;
    }
    void currentHandler(MessageHandlerRef &) override {}
};

/** What is taken from the heap by the library. */
struct Allocations
{
    std::atomic<bool> isCounting = false;
    std::atomic<int> count = 0;
};

Allocations allocations;

struct Handler : MessageHandler
{
    void message(YString const &) override {}
};

bool isNullHandler(MessageHandlerRef const & handler)
{
    return dynamic_cast<NullMessageHandler *>(handler.get()) != nullptr;
}

class ZyCommandShellTest : public testing::Test
{
protected:
    /** What comes out while the shell runs a command. */
    std::string run(std::function<void()> onExecute)
    {
        m_shell.onExecute = std::move(onExecute);
        m_output.clear();
        EXPECT_NO_THROW(ZyCommandShell::RunCommand("command", false));
        return m_output.text();
    }

    Shell m_shell;
    kb::ScopedShell m_scoped{&m_shell};
    kb::OutputCapture m_output;
};
} // namespace

#if !ZY_ADDRESS_SANITIZER && !ZY_THREAD_SANITIZER

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete" // new is not inlined, delete is
#endif

void * operator new(std::size_t size)
{
    if (allocations.isCounting) {
        ++allocations.count;
    }
    if (void * const memory = std::malloc(size != 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void * memory) noexcept
{
    std::free(memory);
}

void operator delete(void * memory, std::size_t) noexcept
{
    std::free(memory);
}

#endif

#if ZY_SLOTS_VISIBLE

TEST(ZyCommandShell, FindsTheFunctionsOfAShellInTheirOrder)
{
    EXPECT_EQ(virtualSlot(&ShellInterface::execute), 0u);
    EXPECT_EQ(virtualSlot(&ShellInterface::reserved), 1u);
    EXPECT_EQ(virtualSlot(&ShellInterface::currentHandler), 2u);
}

#endif

TEST(ZyCommandShell, PrintsThatThereIsNoHostAndReturns)
{
    kb::OutputCapture const output;
    ZyCommandShell::RunCommand("command", true);
    EXPECT_EQ(output.text(), unresolved);
    EXPECT_EQ(output.formats(), std::vector<std::string>{"%s\n"});
}

TEST(ZyCommandShell, PrintsWhatACallThroughAMissingShellIs)
{
    kb::ScopedShell const shell(nullptr);
    kb::OutputCapture const output;
    ZyCommandShell::RunCommand("command", true);
    EXPECT_EQ(output.text(), "An access violation occurred at 0 in unknown base 0\n");
}

TEST_F(ZyCommandShellTest, HandsTheCommandToTheHost)
{
    m_shell.handler = std::make_shared<Handler>();
    ZyCommandShell::RunCommand("open 'a'", true);
    EXPECT_EQ(m_shell.commands, std::vector<std::string>{"open 'a'"});
    EXPECT_FALSE(m_shell.hasContext);
    EXPECT_TRUE(m_shell.wasEmpty);
    EXPECT_EQ(m_shell.options.handler, m_shell.handler);
    EXPECT_TRUE(m_shell.options.flag);
    EXPECT_FALSE(m_shell.options.second);
    EXPECT_TRUE(m_shell.options.third);
    EXPECT_TRUE(m_shell.options.text1.isEmpty() && m_shell.options.text2.isEmpty());
    EXPECT_TRUE(m_shell.options.reserved[0] == nullptr && m_shell.options.reserved[1] == nullptr);
    EXPECT_EQ(m_shell.reservedCalls, 0);
    EXPECT_EQ(m_output.text(), "");
    ZyCommandShell::RunCommand("second", false);
    EXPECT_FALSE(m_shell.options.flag);
    EXPECT_TRUE(m_shell.options.third);
}

TEST_F(ZyCommandShellTest, HandsEveryTextOnAsItIs)
{
    std::string const longText(1'000'000, '%');
    for (std::string const & text :
         {std::string(), std::string("quotes \" ' ` {braces} [x] (y)"), std::string("a\nb\r\n\tc\\"),
          std::string("%s%n%d%%%99999d"), std::string("\xC3\xA9\xFF\x80"), longText}) {
        m_shell.commands.clear();
        ZyCommandShell::RunCommand(text.c_str(), false);
        EXPECT_EQ(m_shell.commands, std::vector<std::string>{text});
    }
    EXPECT_EQ(m_output.text(), "");
}

TEST_F(ZyCommandShellTest, EndsACommandAtItsFirstNul)
{
    ZyCommandShell::RunCommand(ZyString(std::string("ab\0cd", 5)), false);
    EXPECT_EQ(m_shell.commands, std::vector<std::string>{"ab"});
}

TEST_F(ZyCommandShellTest, KeepsAnEmptyHandlerThatTheShellTold)
{
    ZyCommandShell::RunCommand("command", false);
    EXPECT_EQ(m_shell.options.handler, nullptr);
}

TEST_F(ZyCommandShellTest, Deliberate_output_of_shell_without_handler)
{
    m_shell.handler = std::make_shared<Handler>();
    for (std::function<void()> const & failure : std::vector<std::function<void()>>{
             [] { throw 1; }, [] { throw DynFuncException("x"); }, [] { throw std::runtime_error("x"); },
             [] { throw ZyNullPointerException(); }, [] { Faults::writeToNull(); }}) {
        m_shell.onHandler = failure;
        m_shell.options.handler.reset();
        ZyCommandShell::RunCommand("command", false);
        EXPECT_TRUE(isNullHandler(m_shell.options.handler));
    }
    EXPECT_EQ(m_shell.commands.size(), 5u);
    EXPECT_EQ(m_output.text(), "");
}

TEST_F(ZyCommandShellTest, PrintsTheMessageOfAFaultStructure)
{
    EXPECT_EQ(run([] { throw DynFuncException("some_Function"); }),
              "*** FATAL ERROR *** Unresolved dynamic function 'some_Function' called\n");
    EXPECT_EQ(run([] {
                  OsException fault;
                  std::snprintf(fault.message, sizeof fault.message, "%s", "100%n of it");
                  throw fault;
              }),
              "100%n of it\n");
    EXPECT_EQ(run([] { throw TandobleException(); }), "\n");
    EXPECT_EQ(run([] { throw DynFuncException(std::string(2000, 'x').c_str()); }).size(), 1000u);
}

TEST_F(ZyCommandShellTest, Deliberate_command_place_in_source)
{
    EXPECT_EQ(run([] { throw 1; }), unhandled);
    EXPECT_EQ(m_output.formats(),
              std::vector<std::string>{"Unhandled exception caught in module %s at line %d\n"});
}

TEST_F(ZyCommandShellTest, LetsNoExceptionOut)
{
    EXPECT_EQ(run([] { throw std::runtime_error("x"); }), unhandled);
    EXPECT_EQ(run([] { throw ZyNullPointerException(); }), unhandled);
    EXPECT_EQ(run([] { throw std::bad_alloc(); }), unhandled);
    EXPECT_EQ(run([] { throw "text"; }), unhandled);
    EXPECT_EQ(run([] { throw std::make_unique<int>(1); }), unhandled);
    DynFuncException fault("x");
    EXPECT_EQ(run([&] { throw &fault; }), unhandled);
    EXPECT_EQ(run([] {}), "");
}

TEST_F(ZyCommandShellTest, PrintsAnAccessViolation)
{
    std::string const text = run([] { Faults::writeToNull(); });
    EXPECT_TRUE(std::regex_match(
        text, std::regex("An access violation occurred at [0-9a-f]+ in zytests_util[^ ]* base [0-9a-f]+\n")))
        << text;
    EXPECT_EQ(run([] { Faults::callNull(); }), "An access violation occurred at 0 in unknown base 0\n");
}

TEST_F(ZyCommandShellTest, PrintsEveryKindOfFaultInItsWords)
{
    struct Kind
    {
        char const * words;
        void (*raise)();
    };
    constexpr char const * where = " occurred at [0-9a-f]+ in zytests_util[^ ]* base [0-9a-f]+\n";
    for (Kind const & kind : {Kind{"An access violation", [] { Faults::writeToNull(); }},
                              Kind{"An access violation", [] { Faults::readFromNowhere(); }},
                              Kind{"An access violation", [] { Faults::writeToCode(); }},
                              Kind{"An integer divide by zero exception", [] { Faults::divideByZero(); }},
                              Kind{"An unexpected exception", [] { Faults::illegalInstruction(); }}}) {
        unsigned const resets = kb::ResetFpuCount();
        std::string const text = run(kind.raise);
        EXPECT_TRUE(std::regex_match(text, std::regex(kind.words + std::string(where)))) << text;
        EXPECT_EQ(kb::ResetFpuCount(), resets);
    }
}

TEST_F(ZyCommandShellTest, SurvivesAStackThatOverflows)
{
    std::string const text = run([] { Faults::overflowStack(0); });
    EXPECT_EQ(text.rfind("An unexpected exception occurred at ", 0), 0u) << text;
}

#if ZY_TRAPS_ARITHMETIC

TEST_F(ZyCommandShellTest, PrintsTrapsOfArithmeticByNameAndResetsTheUnit)
{
    struct Trap
    {
        char const * words;
        int exception;
        double left;
        char operation;
        double right;
    };
    for (Trap const & trap : {Trap{"divide by zero", FE_DIVBYZERO, 1.0, '/', 0.0},
                              Trap{"invalid operation", FE_INVALID, 0.0, '/', 0.0},
                              Trap{"overflow", FE_OVERFLOW, 1e300, '*', 1e300},
                              Trap{"underflow", FE_UNDERFLOW, 1e-300, '*', 1e-300}}) {
        feenableexcept(FE_INVALID); // the working state of the host
        unsigned const resets = kb::ResetFpuCount();
        std::string const text = run([&trap] {
            std::feclearexcept(FE_ALL_EXCEPT);
            feenableexcept(trap.exception);
            Faults::calculate(trap.left, trap.operation, trap.right);
        });
        EXPECT_EQ(text.rfind(std::string("A floating point exception (") + trap.words + ") occurred at ", 0),
                  0u)
            << text;
        EXPECT_EQ(kb::ResetFpuCount() - resets, 1u);
        EXPECT_EQ(fegetexcept(), 0);
    }
}

#endif

TEST_F(ZyCommandShellTest, SurvivesTenThousandFaultsOnFourThreads)
{
    constexpr int times = 2500;
    std::atomic<int> told = 0;
    kb::SetOutput([&told](char const *, char const * text, std::size_t) {
        told += std::string(text) == "An access violation occurred at 0 in unknown base 0\n" ? 1 : 0;
    });
    ThreadShell shell;
    kb::ScopedShell const scoped(&shell);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int k = 0; k < times; ++k) {
                ZyCommandShell::RunCommand("command", false);
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    kb::SetOutput({});
    EXPECT_EQ(told, 4 * times);
}

TEST_F(ZyCommandShellTest, TakesNothingFromTheHeapForAFault)
{
    // The fault may have struck while the heap was locked.
    kb::SetOutput([](char const *, char const *, std::size_t) { allocations.isCounting = false; });
    m_shell.onExecute = [] {
        allocations.count = 0;
        allocations.isCounting = true;
        Faults::writeToNull();
    };
    ZyCommandShell::RunCommand("command", false);
    kb::SetOutput({});
    EXPECT_FALSE(allocations.isCounting);
    EXPECT_EQ(allocations.count, 0);
}

TEST_F(ZyCommandShellTest, IsReadyAgainAfterEveryFailure)
{
    for (int i = 0; i < 100; ++i) {
        run([] { Faults::callNull(); });
        run([] { throw 1; });
        EXPECT_EQ(run([] {}), "");
    }
    EXPECT_EQ(m_shell.commands.size(), 300u);
}

TEST_F(ZyCommandShellTest, RunsCommandsWithinCommands)
{
    std::string const text = run([this] {
        m_shell.onExecute = [] { Faults::callNull(); };
        ZyCommandShell::RunCommand("inner", false);
        throw DynFuncException("outer");
    });
    EXPECT_EQ(text, "An access violation occurred at 0 in unknown base 0\n"
                    "*** FATAL ERROR *** Unresolved dynamic function 'outer' called\n");
    EXPECT_EQ(m_shell.commands, (std::vector<std::string>{"command", "inner"}));
}

TEST_F(ZyCommandShellTest, IsForgottenWhenTheHostWithdrawsIt)
{
    kb::WithdrawFunction("widgets_GetShellInterface");
    ZyCommandShell::RunCommand("command", false);
    EXPECT_TRUE(m_shell.commands.empty());
    EXPECT_EQ(m_output.text(), unresolved);
}

TEST_F(ZyCommandShellTest, Deliberate_message_is_format)
{
    for (char const * message : {"100%", "text", "100%%", "%s|%d|%n", "", "a\n"}) {
        ZyCommandShell::PrintMessage(message);
    }
    EXPECT_EQ(m_output.formats(), (std::vector<std::string>{"100%", "text", "100%%", "%s|%d|%n", "", "a\n"}));
    EXPECT_EQ(m_output.text(), "100%text100%(null)|0|a\n");
    EXPECT_TRUE(m_shell.commands.empty());
}

TEST_F(ZyCommandShellTest, EndsAMessageAtItsFirstNul)
{
    ZyCommandShell::PrintMessage(ZyString(std::string("ab\0cd", 5)));
    EXPECT_EQ(m_output.text(), "ab");
}
