// SPDX-License-Identifier: BSD-3-Clause
// Fences by signals. A handler of ours stands before that of the host: where a fence of the thread is up, it
// jumps back to it; everything else it hands on. It never throws: no unwinder gets out of every frame that a
// fault may strike in.
#include "Platform/FaultFence.h"

#include "FaultHandlers.h"

#include <cfenv>
#include <csetjmp>
#include <cstddef>
#include <cstring>

#include <cxxabi.h>
#include <sys/mman.h>

namespace
{
constexpr std::size_t stackSize = 65536;

/**
 * A stack for the handlers of a thread, which cannot run on one that has overflowed. A thread that has such a
 * stack already keeps its own.
 */
class AlternateStack
{
public:
    AlternateStack()
    {
        stack_t present = {};
        if (sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0) {
            return;
        }
        m_memory = mmap(nullptr, stackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        stack_t own = {};
        own.ss_sp = m_memory;
        own.ss_size = stackSize;
        if (m_memory != MAP_FAILED) {
            sigaltstack(&own, nullptr);
        }
    }
    AlternateStack(AlternateStack const &) = delete;
    AlternateStack & operator=(AlternateStack const &) = delete;
    ~AlternateStack()
    {
        if (m_memory == MAP_FAILED) {
            return;
        }
        stack_t present = {};
        if (sigaltstack(nullptr, &present) == 0 && present.ss_sp == m_memory) {
            present.ss_flags = SS_DISABLE;
            sigaltstack(&present, nullptr);
        }
        munmap(m_memory, stackSize);
    }

private:
    void * m_memory = MAP_FAILED;
};

/** What the C++ runtime knows of the exceptions of a thread: two words, laid out by the common C++ ABI. */
struct ExceptionState
{
    void * caught = nullptr;
    unsigned int uncaught = 0;
};

/** A fence that is up, and the state of the thread from before it. */
class Fence
{
public:
    Fence();
    Fence(Fence const &) = delete;
    Fence & operator=(Fence const &) = delete;
    ~Fence();

    /** Puts the thread back to what it was when the fence went up. */
    void restore() const;

    sigjmp_buf place;            ///< to jump to
    ZyPlatform::FaultInfo fault; ///< set before the jump
    Fence * outer;               ///< the next fence of the thread

private:
    sigset_t m_mask; ///< the signals that were blocked
    std::fenv_t m_arithmetic;
    ExceptionState m_exceptions;
};

// Read by the handler, in which the usual way to such a variable may allocate it.
[[gnu::tls_model("initial-exec")]] thread_local Fence * innermost = nullptr;

Fence::Fence() : outer(innermost)
{
    static_assert(sizeof(ExceptionState) == 2 * sizeof(void *), "the layout of the ABI");
    // A blocked fault ends the process; threads that leave all signals to another one block them.
    pthread_sigmask(SIG_UNBLOCK, &FaultHandlers::signals(), &m_mask);
    std::fegetenv(&m_arithmetic);
    std::memcpy(&m_exceptions, static_cast<void *>(abi::__cxa_get_globals()), sizeof m_exceptions);
}

Fence::~Fence()
{
    innermost = outer;
    sigset_t blocked;
    if (FaultHandlers::intersects(m_mask, blocked)) {
        pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    }
}

void Fence::restore() const
{
    pthread_sigmask(SIG_SETMASK, &m_mask, nullptr);
    std::fesetenv(&m_arithmetic);
    // Otherwise an exception that was in flight or being handled would count as such for ever.
    std::memcpy(static_cast<void *>(abi::__cxa_get_globals()), &m_exceptions, sizeof m_exceptions);
}
} // namespace

bool FaultHandlers::jump(int signal, siginfo_t const * info, void const * context)
{
    Fence * const fence = innermost;
    if (fence == nullptr) {
        return false;
    }
    fence->fault = describe(signal, info, context);
    siglongjmp(fence->place, 1);
}

bool ZyPlatform::FaultFence::run(void (*function)(void *), void * argument, FaultInfo & fault)
{
    static thread_local AlternateStack const stack;
    FaultHandlers::keepInstalled();
    Fence fence;
    if (sigsetjmp(fence.place, 0) == 0) {
        innermost = &fence;
        function(argument);
        return true;
    }
    fence.restore();
    fault = fence.fault;
    return false;
}
