// SPDX-License-Identifier: BSD-3-Clause
// The free bytes of a thread's stack.
#include "KbReplaceable_p.h"

#include <keelbase/KbHost.h>
#include <keelbase/KbSystem.h>

#include <cstdint>
#include <limits>

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

#if defined(_MSC_VER)
#include <intrin.h>
#endif

namespace
{

KbReplaceable<std::size_t> & stackSource()
{
    static KbReplaceable<std::size_t> source;
    return source;
}

/** Where the stack of a thread lies, the guard pages left out. Both ends are 0 when the system does not tell.
 */
struct Stack
{
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
};

Stack stackOfThread()
{
    Stack stack;
#ifdef _WIN32
    ULONG_PTR low = 0;
    ULONG_PTR high = 0;
    GetCurrentThreadStackLimits(&low, &high);
    stack.low = low;
    stack.high = high;
#else
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) {
        return stack;
    }
    void * address = nullptr;
    std::size_t size = 0;
    std::size_t guard = 0;
    if (pthread_attr_getstack(&attributes, &address, &size) == 0 &&
        pthread_attr_getguardsize(&attributes, &guard) == 0) {
        stack.high = reinterpret_cast<std::uintptr_t>(address) + size;
        stack.low = reinterpret_cast<std::uintptr_t>(address) + guard;
    }
    pthread_attr_destroy(&attributes);
#endif
    return stack;
}

std::uintptr_t frameAddress()
{
#if defined(_MSC_VER)
    return reinterpret_cast<std::uintptr_t>(_AddressOfReturnAddress());
#else
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
#endif
}

} // namespace

void kb::SetStackAvail(std::function<std::size_t()> source)
{
    stackSource().replace(std::move(source));
}

std::size_t sp_StackAvail()
{
    if (auto const replacement = stackSource().replacement()) {
        return replacement();
    }
    // Asking the system reads its table of memory on the main thread: once is enough.
    thread_local Stack const stack = stackOfThread();
    if (stack.high == 0) {
        return std::numeric_limits<std::size_t>::max();
    }
    std::uintptr_t const frame = frameAddress();
    return frame < stack.low || frame > stack.high ? 0 : frame - stack.low;
}
