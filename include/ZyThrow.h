// SPDX-License-Identifier: BSD-3-Clause
// Throwing from code that stands in headers.
// Templates call these, so that they need neither the exception classes nor the string class, and so that no
// throw code lands in every inlined dereference.
#pragma once

#include <ZyExport.h>

/** Throws the exceptions of the library's own templates. Every function throws what its name says. */
struct ZYCORE_EXPORT ZyThrow
{
    [[noreturn]] static void BadCast(); ///< the standard std::bad_cast
    /** ZyIndexOutOfBoundsException(index, bound) */
    [[noreturn]] static void IndexOutOfBounds(unsigned int index, unsigned int bound);
    [[noreturn]] static void InvalidCall(char const * message); ///< ZyInvalidCallException
    [[noreturn]] static void LengthError(char const * message); ///< the standard std::length_error
    [[noreturn]] static void NotFound();                        ///< ZyNotFoundException()
    [[noreturn]] static void NullPointer();                     ///< ZyNullPointerException()
    [[noreturn]] static void NullPointer(char const * message); ///< ZyNullPointerException(message)
};
