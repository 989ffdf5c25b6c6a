// SPDX-License-Identifier: BSD-3-Clause
// Code that the processor or the system objects to, one function a kind, which compilers leave as they are.
#pragma once

#include "Sanitizers.h"

#include <csignal>
#include <cstddef>

/** Whether floating point arithmetic can be made to trap here. */
#if defined(__GLIBC__) && defined(__x86_64__)
#define ZY_TRAPS_ARITHMETIC 1
#else
#define ZY_TRAPS_ARITHMETIC 0
#endif

// What is wrong here is meant.
#if defined(__clang__)
#define ZY_FAULTS __attribute__((noinline, optnone, no_sanitize("undefined", "address", "thread")))
#elif defined(__GNUC__)
#define ZY_FAULTS __attribute__((noinline, noclone, no_sanitize("undefined", "address", "thread")))
#else
#define ZY_FAULTS
#endif

namespace Faults
{
ZY_FAULTS inline void writeToNull()
{
    int volatile * volatile nothing = nullptr;
    *nothing = 1;
}

/** An address that no processor of today can have. */
ZY_FAULTS inline void readFromNowhere()
{
    std::size_t volatile address = std::size_t(1) << (sizeof(std::size_t) * 8 - 2);
    int volatile * volatile nowhere = reinterpret_cast<int *>(address);
    static_cast<void>(*nowhere);
}

ZY_FAULTS inline void callNull()
{
    void (* volatile nothing)() = nullptr;
    nothing();
}

ZY_FAULTS inline void writeToCode()
{
    unsigned char volatile * volatile code = reinterpret_cast<unsigned char *>(&callNull);
    *code = 0;
}

ZY_FAULTS inline int divideByZero()
{
    int volatile dividend = 7;
    int volatile zero = 0;
    return dividend / zero;
}

/** The quotient is one more than the largest number. */
ZY_FAULTS inline int divideTooFar()
{
    int volatile least = -2147483647 - 1;
    int volatile minusOne = -1;
    return least / minusOne;
}

ZY_FAULTS inline double calculate(double a, char operation, double b)
{
    double volatile left = a;
    double volatile right = b;
    return operation == '*' ? left * right : operation == '/' ? left / right : left + right;
}

ZY_FAULTS inline void illegalInstruction()
{
#if defined(__x86_64__) || defined(__i386__)
    __asm__ __volatile__("ud2");
#else
    __builtin_trap();
#endif
}

ZY_FAULTS inline void breakPoint()
{
#if defined(__x86_64__) || defined(__i386__)
    __asm__ __volatile__("int3");
#else
    std::raise(SIGTRAP);
#endif
}

/** Fills the stack. */
ZY_FAULTS inline int overflowStack(int depth)
{
    char volatile frame[512];
    frame[0] = static_cast<char>(depth);
    int const volatile end = -1; // not seen by the compiler, which objects to what never ends
    return depth == end ? 0 : overflowStack(depth + 1) + frame[0];
}
} // namespace Faults
