// SPDX-License-Identifier: BSD-3-Clause
// What a signal and the state of the processor say, in the numbers of structured exceptions.
#include "FaultHandlers.h"

#include <cstdint>

#include <ucontext.h>

namespace
{
/** What is needed of the state of the processor; zeros where we do not know how it is laid out. */
struct Machine
{
    std::uintptr_t instruction = 0;
    std::uintptr_t stack = 0;
    bool hasDenormal = false; ///< a denormal operand, and the thread traps them
};

#if defined(__linux__) && defined(__x86_64__)
/** A flag that is up and whose mask is down. */
bool hasTrapped(unsigned int flags, unsigned int masks, unsigned int bit)
{
    return (flags & ~masks & bit) != 0;
}

Machine machineOf(ucontext_t const & context)
{
    constexpr unsigned int denormal = 2;
    Machine machine;
    machine.instruction = static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]);
    machine.stack = static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RSP]);
    if (context.uc_mcontext.fpregs != nullptr) {
        auto const & state = *context.uc_mcontext.fpregs;
        machine.hasDenormal =
            hasTrapped(state.mxcsr, state.mxcsr >> 7, denormal) || hasTrapped(state.swd, state.cwd, denormal);
    }
    return machine;
}
#elif defined(__linux__) && defined(__aarch64__)
Machine machineOf(ucontext_t const & context)
{
    Machine machine;
    machine.instruction = context.uc_mcontext.pc;
    machine.stack = context.uc_mcontext.sp;
    return machine;
}
#else
Machine machineOf(ucontext_t const &)
{
    return {};
}
#endif

/** Memory beside the end of the stack: the next page below the last one, or the guard there. */
bool isStackOverflow(siginfo_t const & info, Machine const & machine)
{
    constexpr std::uintptr_t reach = 65536;
    auto const address = reinterpret_cast<std::uintptr_t>(info.si_addr);
    auto const distance = address > machine.stack ? address - machine.stack : machine.stack - address;
    bool const isMissing = info.si_code == SEGV_MAPERR || info.si_code == SEGV_ACCERR;
    return isMissing && machine.stack != 0 && distance <= reach;
}

std::uint32_t arithmeticCode(siginfo_t const & info, Machine const & machine)
{
    switch (info.si_code) {
    case FPE_INTDIV:
        return 0xC0000094;
    case FPE_INTOVF:
        return 0xC0000095;
    case FPE_FLTDIV:
        return 0xC000008E;
    case FPE_FLTOVF:
        return 0xC0000091;
    case FPE_FLTUND:
        return machine.hasDenormal ? 0xC000008D : 0xC0000093;
    case FPE_FLTRES:
        return 0xC000008F;
    case FPE_FLTINV:
        return 0xC0000090;
    default:
        return 0xC00002B4; // sent by hand: some floating point exception, nobody says which
    }
}

std::uint32_t codeOf(int signal, siginfo_t const & info, Machine const & machine)
{
    switch (signal) {
    case SIGSEGV:
        return isStackOverflow(info, machine) ? 0xC00000FD : 0xC0000005;
    case SIGFPE:
        return arithmeticCode(info, machine);
    case SIGBUS:
        return 0xC0000006;
    case SIGILL:
        return 0xC000001D;
    default:
        return 0x80000003; // a break point
    }
}
} // namespace

ZyPlatform::FaultInfo FaultHandlers::describe(int signal, siginfo_t const * info, void const * context)
{
    siginfo_t const unknown = {};
    Machine const machine =
        context != nullptr ? machineOf(*static_cast<ucontext_t const *>(context)) : Machine();
    ZyPlatform::FaultInfo fault;
    fault.code = codeOf(signal, info != nullptr ? *info : unknown, machine);
    fault.address = machine.instruction;
    return fault;
}
