// SPDX-License-Identifier: BSD-3-Clause
// Fences beside the signal handlers of a host: installed before, between and after, that jump, return, hand
// on, come once and go again. Each host is a process of its own.
#include "Faults.h"

#include "Platform/FaultFence.h"
#include "Platform/Module.h"

#include <gtest/gtest.h>

#include <csetjmp>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
using ZyPlatform::FaultFence;
using ZyPlatform::FaultInfo;

constexpr std::uint32_t accessViolation = 0xC0000005;

template <class Body>
std::uint32_t codeOf(Body body)
{
    FaultInfo fault;
    return FaultFence::call(body, fault) ? 0 : fault.code;
}

bool isFenced()
{
    return codeOf([] { Faults::writeToNull(); }) == accessViolation;
}

/** The handler of a host, and what it remembers. */
struct Host
{
    struct sigaction previous = {};
    sigjmp_buf place = {};
    int volatile calls = 0;
    int volatile code = 0;
};

Host host;

void jumpOut(int, siginfo_t * info, void *)
{
    host.calls = host.calls + 1;
    host.code = info->si_code;
    siglongjmp(host.place, 1);
}

void jumpOutPlainly(int)
{
    host.calls = host.calls + 1;
    siglongjmp(host.place, 1);
}

void handOn(int signal, siginfo_t * info, void * context)
{
    host.calls = host.calls + 1;
    if ((host.previous.sa_flags & SA_SIGINFO) != 0) {
        host.previous.sa_sigaction(signal, info, context);
    } else if (host.previous.sa_handler != SIG_DFL) {
        host.previous.sa_handler(signal);
    } else {
        std::_Exit(9);
    }
}

void putBackAndReturn(int signal, siginfo_t *, void *)
{
    if (++host.calls > 3) {
        std::_Exit(9); // it would go on for ever
    }
    sigaction(signal, &host.previous, nullptr);
}

void giveUp(int)
{
    std::_Exit(7);
}

void installFor(int signal, void (*handler)(int, siginfo_t *, void *), int flags = 0)
{
    struct sigaction action = {};
    action.sa_sigaction = handler;
    action.sa_flags = SA_SIGINFO | flags;
    sigaction(signal, &action, &host.previous);
}

void install(void (*handler)(int, siginfo_t *, void *), int flags = 0)
{
    installFor(SIGSEGV, handler, flags);
}

/** A fault outside of all fences. \return whether the host's handler has jumped out of it */
bool faultsToHost()
{
    int const before = host.calls;
    if (sigsetjmp(host.place, 1) == 0) {
        Faults::writeToNull();
        return false;
    }
    return host.calls == before + 1;
}

/** In a child process: ends it with 0 when all is as it should be, else with the line. */
#define CHECK_IN_CHILD(condition)                                                                            \
    if (!(condition)) {                                                                                      \
        std::fprintf(stderr, "line %d: %s\n", __LINE__, #condition);                                         \
        std::_Exit(1);                                                                                       \
    }

class Signals : public testing::Test
{
protected:
    Signals()
    {
        // The program is started anew for each child: nothing of ours is installed there yet.
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        rlimit const none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
    }
};

bool isSkipped()
{
    return ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER;
}
} // namespace

/** What ends in the default action is told by the sanitizer in its own way. */
#define EXPECT_KILLED(statement, signal)                                                                     \
    if (!isSkipped()) {                                                                                      \
        EXPECT_EXIT(                                                                                         \
            {                                                                                                \
                statement;                                                                                   \
                std::_Exit(2);                                                                               \
            },                                                                                               \
            testing::KilledBySignal(signal), "");                                                            \
    }

#define EXPECT_GOOD(statement)                                                                               \
    EXPECT_EXIT(                                                                                             \
        {                                                                                                    \
            statement;                                                                                       \
            std::_Exit(0);                                                                                   \
        },                                                                                                   \
        testing::ExitedWithCode(0), "")

TEST_F(Signals, OfAHostBeforeTheFirstFenceStayInForceOutside)
{
    EXPECT_GOOD({
        install(jumpOut);
        for (int i = 0; i < 1000; ++i) {
            CHECK_IN_CHILD(isFenced());
            CHECK_IN_CHILD(host.calls == i);
            CHECK_IN_CHILD(faultsToHost());
        }
        CHECK_IN_CHILD(host.code == SEGV_MAPERR);
    });
}

TEST_F(Signals, OfAHostAfterTheFirstFenceStayInForceOutside)
{
    EXPECT_GOOD({
        CHECK_IN_CHILD(isFenced());
        install(jumpOut);
        for (int i = 0; i < 1000; ++i) {
            CHECK_IN_CHILD(faultsToHost());
            CHECK_IN_CHILD(isFenced());
        }
    });
}

TEST_F(Signals, OfAHostInsideOfAFenceComeFirst)
{
    EXPECT_GOOD({
        CHECK_IN_CHILD(codeOf([] {
                           install(jumpOut);
                           CHECK_IN_CHILD(faultsToHost());
                       }) == 0);
        CHECK_IN_CHILD(isFenced());
        CHECK_IN_CHILD(faultsToHost());
    });
    EXPECT_GOOD({
        CHECK_IN_CHILD(codeOf([] {
                           install(handOn);
                           Faults::writeToNull();
                       }) == accessViolation);
        CHECK_IN_CHILD(host.calls == 1);
        CHECK_IN_CHILD(isFenced());
        CHECK_IN_CHILD(host.calls == 1);
    });
}

TEST_F(Signals, OfAHostInThePlainFormStayInForceOutside)
{
    EXPECT_GOOD({
        std::signal(SIGSEGV, jumpOutPlainly);
        CHECK_IN_CHILD(isFenced());
        CHECK_IN_CHILD(faultsToHost());
        CHECK_IN_CHILD(isFenced());
        CHECK_IN_CHILD(faultsToHost());
    });
}

TEST_F(Signals, KillWhereNobodyHandlesThem)
{
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            Faults::writeToNull();
        },
        SIGSEGV);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            Faults::divideByZero();
        },
        SIGFPE);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            Faults::illegalInstruction();
        },
        SIGILL);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            std::raise(SIGTRAP);
        },
        SIGTRAP);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            Faults::breakPoint(); // which does not come again when the handler returns
        },
        SIGTRAP);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            kill(getpid(), SIGBUS);
        },
        SIGBUS);
}

TEST_F(Signals, OfAHostThatHandsThemOnDoNotGoInCircles)
{
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            install(handOn);
            CHECK_IN_CHILD(isFenced());
            Faults::writeToNull();
        },
        SIGSEGV);
    EXPECT_KILLED(
        {
            CHECK_IN_CHILD(isFenced());
            install(putBackAndReturn);
            CHECK_IN_CHILD(isFenced());
            Faults::writeToNull();
        },
        SIGSEGV);
    EXPECT_KILLED(
        {
            install(putBackAndReturn);
            CHECK_IN_CHILD(isFenced());
            Faults::writeToNull();
        },
        SIGSEGV);
}

TEST_F(Signals, MayBeHandedOnWithoutTheirDetails)
{
    EXPECT_TRUE(isFenced());
    struct sigaction ours = {};
    sigaction(SIGSEGV, nullptr, &ours);
    EXPECT_EQ(codeOf([&] { ours.sa_sigaction(SIGUSR1, nullptr, nullptr); }), 0u);
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call([&] { ours.sa_sigaction(SIGSEGV, nullptr, nullptr); }, fault));
    EXPECT_EQ(fault.code, accessViolation);
    EXPECT_EQ(fault.address, 0u);
}

TEST_F(Signals, OfAHostMayComeAndGoForEver)
{
    EXPECT_GOOD({
        install(jumpOut);
        Host outer = host;
        for (int i = 0; i < 10000; ++i) {
            CHECK_IN_CHILD(isFenced());
            install(i % 2 == 0 ? handOn : jumpOut);
            CHECK_IN_CHILD(isFenced());
            sigaction(SIGSEGV, &host.previous, nullptr);
        }
        CHECK_IN_CHILD(isFenced());
        CHECK_IN_CHILD(faultsToHost());
        static_cast<void>(outer);
    });
}

TEST_F(Signals, OfAHostThatKeepsPuttingNewHandlersUpAreLeftAloneAtLast)
{
    EXPECT_GOOD({
        for (int extra = 1; extra < 31; ++extra) {
            struct sigaction action = {};
            action.sa_sigaction = jumpOut;
            action.sa_flags = SA_SIGINFO;
            sigaddset(&action.sa_mask, extra == SIGKILL || extra == SIGSTOP ? SIGRTMIN + extra : extra);
            sigaction(SIGSEGV, &action, nullptr);
            CHECK_IN_CHILD(codeOf([] {}) == 0);
            CHECK_IN_CHILD(faultsToHost());
        }
    });
}

TEST_F(Signals, ThatAHostWantsOnceComeOnce)
{
    EXPECT_KILLED(
        {
            install(jumpOut, static_cast<int>(SA_RESETHAND));
            CHECK_IN_CHILD(isFenced());
            CHECK_IN_CHILD(faultsToHost());
            CHECK_IN_CHILD(host.calls == 1);
            CHECK_IN_CHILD(isFenced());
            faultsToHost();
        },
        SIGSEGV);
}

TEST_F(Signals, ThatAHostIgnoresAreIgnoredUnlessTheyAreFaults)
{
    EXPECT_GOOD({
        std::signal(SIGSEGV, SIG_IGN);
        CHECK_IN_CHILD(isFenced());
        kill(getpid(), SIGSEGV);
        CHECK_IN_CHILD(codeOf([] { kill(getpid(), SIGSEGV); }) == 0);
    });
    EXPECT_KILLED(
        {
            std::signal(SIGSEGV, SIG_IGN);
            CHECK_IN_CHILD(isFenced());
            Faults::writeToNull();
        },
        SIGSEGV);
}

TEST_F(Signals, SentFromOutsideAreNoFaults)
{
    EXPECT_GOOD({
        install(jumpOut);
        CHECK_IN_CHILD(codeOf([] {
                           if (sigsetjmp(host.place, 1) == 0) {
                               kill(getpid(), SIGSEGV);
                           }
                       }) == 0);
        CHECK_IN_CHILD(host.calls == 1);
        CHECK_IN_CHILD(host.code == SI_USER);
    });
    EXPECT_KILLED(codeOf([] { kill(getpid(), SIGSEGV); }), SIGSEGV);
}

TEST_F(Signals, ThatTheFunctionRaisesAreFaults)
{
    EXPECT_EQ(codeOf([] { std::raise(SIGSEGV); }), accessViolation);
    EXPECT_EQ(codeOf([] { std::raise(SIGBUS); }), 0xC0000006u);
    EXPECT_EQ(codeOf([] { std::raise(SIGFPE); }), 0xC00002B4u);
    EXPECT_EQ(codeOf([] { std::raise(SIGILL); }), 0xC000001Du);
    EXPECT_EQ(codeOf([] { std::raise(SIGTRAP); }), 0x80000003u);
}

TEST_F(Signals, OfMemoryThatIsGoneFromItsFileAreFaults)
{
    std::FILE * const file = std::tmpfile();
    ASSERT_NE(file, nullptr);
    ASSERT_EQ(ftruncate(fileno(file), 4096), 0);
    void * const memory = mmap(nullptr, 4096, PROT_READ, MAP_SHARED, fileno(file), 0);
    ASSERT_NE(memory, MAP_FAILED);
    ASSERT_EQ(ftruncate(fileno(file), 0), 0);
    auto const read = [memory] { static_cast<void>(*static_cast<char volatile *>(memory)); };
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(codeOf(read), 0xC0000006u);
    }
    munmap(memory, 4096);
    std::fclose(file);
}

#if defined(__x86_64__) || defined(__i386__)

TEST_F(Signals, InCodeOfNoModuleAreToldWithTheirAddress)
{
    void * const memory =
        mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        GTEST_SKIP() << "no code can be made at run time here";
    }
    constexpr unsigned char illegal[] = {0x0F, 0x0B};
    std::memcpy(memory, illegal, sizeof illegal);
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call([memory] { reinterpret_cast<void (*)()>(memory)(); }, fault));
    EXPECT_EQ(fault.code, 0xC000001Du);
    EXPECT_EQ(fault.address, reinterpret_cast<std::uintptr_t>(memory));
    EXPECT_STREQ(ZyPlatform::moduleOf(fault.address).file, "");
    munmap(memory, 4096);
}

#endif

TEST_F(Signals, InAProgramWithAnOddNameAreToldByItsFile)
{
    pid_t const child = fork();
    if (child == 0) {
        execl("/proc/self/exe", "odd/name", "--gtest_filter=Module.TellsTheProgram*", "--gtest_brief=1",
              nullptr);
        std::_Exit(127);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST_F(Signals, ThatAThreadBlocksAreToldAndStayBlocked)
{
    std::thread([] {
        sigset_t all;
        sigset_t now;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, nullptr);
        for (int i = 0; i < 2; ++i) {
            EXPECT_TRUE(isFenced());
            EXPECT_EQ(codeOf([] {}), 0u);
            pthread_sigmask(SIG_SETMASK, nullptr, &now);
            EXPECT_EQ(sigismember(&now, SIGSEGV), 1);
            EXPECT_EQ(sigismember(&now, SIGTRAP), 1);
            EXPECT_EQ(sigismember(&now, SIGUSR1), 1);
        }
    }).join();
}

TEST_F(Signals, ThatTheFunctionBlocksStayBlockedUnlessItFaults)
{
    std::thread([] {
        auto const block = [] {
            sigset_t mask;
            sigemptyset(&mask);
            sigaddset(&mask, SIGUSR2);
            pthread_sigmask(SIG_BLOCK, &mask, nullptr);
        };
        auto const isBlocked = [] {
            sigset_t now;
            pthread_sigmask(SIG_SETMASK, nullptr, &now);
            return sigismember(&now, SIGUSR2) == 1;
        };
        EXPECT_EQ(codeOf([&] {
                      block();
                      Faults::writeToNull();
                  }),
                  accessViolation);
        EXPECT_FALSE(isBlocked());
        EXPECT_EQ(codeOf(block), 0u);
        EXPECT_TRUE(isBlocked());
    }).join();
}

TEST_F(Signals, UseTheStackThatAThreadHasForThem)
{
    std::thread([] {
        std::vector<char> memory(64 * 1024);
        stack_t own = {};
        own.ss_sp = memory.data();
        own.ss_size = memory.size();
        stack_t before = {};
        sigaltstack(&own, &before);
        EXPECT_TRUE(isFenced());
        stack_t now = {};
        sigaltstack(nullptr, &now);
        EXPECT_EQ(now.ss_sp, memory.data());
        sigaltstack(&before, nullptr);
    }).join();
}

TEST_F(Signals, AreToldWhileAThreadIsTakenDown)
{
    struct AtEnd
    {
        AtEnd() = default;
        AtEnd(AtEnd const &) = delete;
        AtEnd & operator=(AtEnd const &) = delete;
        ~AtEnd() { EXPECT_TRUE(isFenced()); } // the stack for the handlers is gone
    };
    std::thread([] {
        static thread_local AtEnd const atEnd;
        static_cast<void>(&atEnd);
        EXPECT_TRUE(isFenced());
    }).join();
}

TEST_F(Signals, AreToldInAChildProcess)
{
    EXPECT_TRUE(isFenced());
    pid_t const child = fork();
    if (child == 0) {
        std::_Exit(isFenced() && codeOf([] { Faults::divideByZero(); }) == 0xC0000094 ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
}

TEST_F(Signals, AreToldFromTheFirstFencesOfManyThreadsAtOnce)
{
    EXPECT_GOOD({
        std::vector<std::thread> threads;
        for (int i = 0; i < 16; ++i) {
            threads.emplace_back([] {
                for (int k = 0; k < 100; ++k) {
                    CHECK_IN_CHILD(isFenced());
                }
            });
        }
        for (std::thread & thread : threads) {
            thread.join();
        }
    });
}

TEST_F(Signals, ThatAreNoFaultsAreNotTouched)
{
    EXPECT_EXIT(
        {
            std::signal(SIGABRT, giveUp);
            codeOf([] { std::abort(); });
        },
        testing::ExitedWithCode(7), "");
}
