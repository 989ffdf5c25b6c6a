// SPDX-License-Identifier: BSD-3-Clause
// Runs a function and survives what the processor or the system objects to in it.
#pragma once

#include <TandobleException.h>

#include <cstdint>
#include <memory>
#include <type_traits>

namespace ZyPlatform
{
/** What ended a fenced function. */
struct FaultInfo
{
    std::uint32_t code = 0;     ///< as structured exceptions are numbered, on every system
    std::uintptr_t address = 0; ///< of the instruction that could not be carried out
    FaultPointers pointers;     ///< where the system has them
};

/**
 * A fence around a function: a fault of the calling thread inside of it ends the function and is told.
 *
 * - Exceptions of the function pass through.
 * - Fences nest: the innermost one of the thread tells the fault, the others stay as they are.
 * - Outside of fences nothing is different: faults go where the host sends them, its handlers included.
 * - What the function had under way is dropped, not unwound, where the system jumps out of it: locks stay
 * held and memory is not given back. The arithmetic state of the thread is that from before the call.
 *
 * \threads any; each has fences of its own
 */
class ZYCORE_EXPORT FaultFence
{
public:
    /**
     * Calls \a body, which is not copied.
     *
     * \param fault is set when a fault ended the call
     * \return whether the body came to its end
     */
    template <class Body>
    static bool call(Body && body, FaultInfo & fault)
    {
        using Plain = std::remove_reference_t<Body>;
        static_assert(!std::is_function_v<Plain>, "a function object, or a pointer to a function");
        auto * const object = const_cast<std::remove_const_t<Plain> *>(std::addressof(body));
        return run([](void * it) { (*static_cast<Plain *>(it))(); }, object, fault);
    }

private:
    static bool run(void (*function)(void *), void * argument, FaultInfo & fault);
};
} // namespace ZyPlatform
