// SPDX-License-Identifier: BSD-3-Clause
// Fences by structured exceptions. Frames inside of the fence that have a handler of their own, those of the
// system above all, see a fault first and may keep it.
#include "Platform/FaultFence.h"

#include <windows.h>

#include <malloc.h>

#ifdef _MSC_VER
#include <eh.h>
#else
#include <cstring>

#include <cxxabi.h>
#include <xmmintrin.h>
#endif

namespace
{
/** The last fault of a thread: what the system tells of it would be gone with the frames that are dropped. */
struct LastFault
{
    LastFault()
    {
        ULONG room = 32 * 1024; // for the handlers, which run on the stack that has overflowed
        SetThreadStackGuarantee(&room);
    }

    void take(EXCEPTION_RECORD const & itsRecord, CONTEXT const & itsContext)
    {
        record = itsRecord;
        context = itsContext;
        info.code = record.ExceptionCode;
        info.address = reinterpret_cast<std::uintptr_t>(record.ExceptionAddress);
        info.pointers.record = &record;
        info.pointers.context = &context;
    }

    EXCEPTION_RECORD record = {};
    CONTEXT context = {};
    ZyPlatform::FaultInfo info;
};

LastFault & lastFault()
{
    static thread_local LastFault last;
    return last;
}

/** Puts the page back that notices the end of the stack: else the next overflow ends the process. */
void mendStack(std::uint32_t code)
{
    if (code == EXCEPTION_STACK_OVERFLOW) {
        _resetstkoflw();
    }
}
} // namespace

#ifdef _MSC_VER

// The branch for the home platform's own compiler. It wants /EHa. No machine that builds this project
// regularly has that compiler: this branch has been compiled and run by nobody yet.
namespace
{
struct Translated
{};

void __cdecl translate(unsigned int, EXCEPTION_POINTERS * pointers)
{
    lastFault().take(*pointers->ExceptionRecord, *pointers->ContextRecord);
    throw Translated();
}

/** Has the translator in force. */
class Translation
{
public:
    Translation() : m_previous(_set_se_translator(translate)) {}
    Translation(Translation const &) = delete;
    Translation & operator=(Translation const &) = delete;
    ~Translation() { _set_se_translator(m_previous); }

private:
    _se_translator_function m_previous;
};
} // namespace

bool ZyPlatform::FaultFence::run(void (*function)(void *), void * argument, FaultInfo & fault)
{
    lastFault();
    unsigned int control = 0;
    _controlfp_s(&control, 0, 0);
    try {
        Translation const translation;
        function(argument);
        return true;
    } catch (Translated const &) {
        fault = lastFault().info;
    }
    mendStack(fault.code);
    _clearfp();
    _controlfp_s(&control, control, _MCW_DN | _MCW_EM | _MCW_RC);
    return false;
}

#else

// This compiler has neither a translator nor blocks for structured exceptions. A frame with a handler of its
// own takes their place: the handler notes the fault and lets the system unwind to that frame, which returns
// false. C++ code between the two is dropped and not unwound: it is not compiled for exceptions at any
// instruction, and frames that let none through would end the process.
extern "C" {
/** Calls function(argument). \return 1, or 0 when a fault has ended it: then \a last tells of it */
int zyFaultFenceFrame(void (*function)(void *), void * argument, LastFault * last);
/** Where the frame goes on after a fault. */
extern char const zyFaultFenceLanding[];
EXCEPTION_DISPOSITION zyFaultFenceHandler(EXCEPTION_RECORD * record, void * frame, CONTEXT * context,
                                          DISPATCHER_CONTEXT * dispatcher);
}

// The stack pointer behind the prologue is what the handler gets as the frame; the third argument stands 40
// bytes above.
__asm__(R"(
    .text
    .p2align 4
    .globl  zyFaultFenceFrame
    .def    zyFaultFenceFrame; .scl 2; .type 32; .endef
    .seh_proc zyFaultFenceFrame
zyFaultFenceFrame:
    subq    $56, %rsp
    .seh_stackalloc 56
    .seh_endprologue
    movq    %r8, 40(%rsp)
    movq    %rcx, %rax
    movq    %rdx, %rcx
    call    *%rax
    movl    $1, %eax
    jmp     1f
    .globl  zyFaultFenceLanding
zyFaultFenceLanding:
    xorl    %eax, %eax
1:
    addq    $56, %rsp
    ret
    .seh_handler zyFaultFenceHandler, @except
    .seh_endproc
)");

namespace
{
/** The exceptions of C++ and what only a debugger is told go their way. */
bool isFault(EXCEPTION_RECORD const & record)
{
    constexpr DWORD ofTheHomeCompiler = 0xE06D7363;
    constexpr DWORD unwinding = 0x66; // being unwound for whatever reason, by this frame or another
    bool const isWarningOrError = (record.ExceptionCode >> 31) != 0;
    return isWarningOrError && record.ExceptionCode != ofTheHomeCompiler &&
           (record.ExceptionFlags & unwinding) == 0;
}

/** The arithmetic state of the thread, and what its C++ runtime knows of exceptions: two words by the common
 * C++ ABI. */
class ThreadState
{
public:
    ThreadState() : m_sse(_mm_getcsr())
    {
        __asm__ __volatile__("fnstenv %0\n\tfldenv %0" : "=m"(m_x87)); // storing it masks the traps
        std::memcpy(&m_exceptions, static_cast<void *>(abi::__cxa_get_globals()), sizeof m_exceptions);
    }
    void restore() const
    {
        __asm__ __volatile__("fnclex\n\tfldenv %0" : : "m"(m_x87)); // else the fault would strike again here
        _mm_setcsr(m_sse);
        // Otherwise an exception that was in flight or being handled would count as such for ever.
        std::memcpy(static_cast<void *>(abi::__cxa_get_globals()), &m_exceptions, sizeof m_exceptions);
    }

private:
    struct Exceptions
    {
        void * caught;
        unsigned int uncaught;
    };

    char m_x87[28];
    unsigned int m_sse;
    Exceptions m_exceptions;
};
} // namespace

EXCEPTION_DISPOSITION zyFaultFenceHandler(EXCEPTION_RECORD * record, void * frame, CONTEXT * context,
                                          DISPATCHER_CONTEXT * dispatcher)
{
    if (!isFault(*record)) {
        return ExceptionContinueSearch;
    }
    void * last = nullptr;
    std::memcpy(&last, static_cast<char *>(frame) + 40, sizeof last);
    static_cast<LastFault *>(last)->take(*record, *context);
    void * landing = nullptr;
    char const * const address = zyFaultFenceLanding;
    std::memcpy(&landing, &address, sizeof landing);
    RtlUnwindEx(frame, landing, record, nullptr, dispatcher->ContextRecord, dispatcher->HistoryTable);
    return ExceptionContinueSearch; // not reached
}

bool ZyPlatform::FaultFence::run(void (*function)(void *), void * argument, FaultInfo & fault)
{
    LastFault & last = lastFault();
    ThreadState const state;
    if (zyFaultFenceFrame(function, argument, &last) != 0) {
        return true;
    }
    state.restore();
    mendStack(last.info.code);
    fault = last.info;
    return false;
}

#endif
