// SPDX-License-Identifier: BSD-3-Clause
// The structures that carry faults of the processor and of the system, and calls of missing functions.
#pragma once

#include <ZyExport.h>

#include <cstdint>

/**
 * A fault that is told as a plain structure, outside of the exception tree: no virtual table, nothing on the
 * heap. It is thrown and caught by value, so that it can be reported whatever state the fault has left.
 *
 * Nothing in the library throws one across a call of the library: ZyCommandShell::RunCommand reports them.
 * A fault is not thrown on its way there, so that a command cannot catch its own. The functions that a host
 * offers may throw these structures.
 */
struct ZYCORE_EXPORT TandobleException
{
    /** The values of #type that have a meaning. */
    enum Type {
        AccessViolation = 0, ///< memory that may not be used so, or that does not exist
        FloatingPoint = 1,   ///< floating point arithmetic, where the thread traps it
        IntegerDivide = 3,   ///< an integer divided by zero
        OtherFault = 4,      ///< anything else that the processor or the system refuses
        NoFault = 9          ///< not a fault: a missing function, or nothing yet
    };

    std::int32_t type = NoFault; ///< a #Type
    char message[1000] = {};     ///< in words, always terminated
};

/** The two pointers that a system with structured exceptions hands over with each; null on other systems. */
struct ZYCORE_EXPORT FaultPointers
{
    void * record = nullptr;  ///< the exception record; the system's, gone when the fault has been handled
    void * context = nullptr; ///< the state of the processor; likewise
};

/**
 * A fault of the processor or of the operating system. The message reads, for instance: An access violation
 * occurred at 6a12f0 in host.dll base 6a000000. Addresses are hexadecimal.
 */
struct ZYCORE_EXPORT OsException : TandobleException
{
    std::uint32_t code = 0; ///< as structured exceptions are numbered, on every system
    FaultPointers pointers; ///< what the system says of it
};

/** A call of a function that the host has not offered. */
struct ZYCORE_EXPORT DynFuncException : TandobleException
{
    /**
     * The message is "*** FATAL ERROR *** Unresolved dynamic function '%s' called" with the name.
     *
     * \param function the name of the function; cut where the message is full
     */
    explicit DynFuncException(char const * function);
};
