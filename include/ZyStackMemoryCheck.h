// SPDX-License-Identifier: BSD-3-Clause
// A guard against using up the stack.
#pragma once

#include <ZyExport.h>

/**
 * Turns the near end of the stack into an exception, for recursion whose depth the input decides.
 *
 * \code
 * void walk(Node const & node)
 * {
 *     ZyStackMemoryCheck::Check(); // 200,000 bytes must be free
 *     ...
 * }
 * \endcode
 *
 * There are only static functions; objects of this class do not matter. Nothing in the library calls it.
 * \threads any; each call looks at the stack of its thread
 */
class ZYCORE_EXPORT ZyStackMemoryCheck
{
public:
    ZyStackMemoryCheck() = default;
    ZyStackMemoryCheck(ZyStackMemoryCheck const &) = default;
    ZyStackMemoryCheck(ZyStackMemoryCheck &&) = default;
    ZyStackMemoryCheck & operator=(ZyStackMemoryCheck const &) { return *this; }
    ZyStackMemoryCheck & operator=(ZyStackMemoryCheck &&) { return *this; }

    /**
     * Checks that at least \a bytes of the calling thread's stack are free; that many are enough.
     *
     * \throws ZyStackLimitException "Stack limit reached"
     * \cost two readings, some nanoseconds, but for the first call of a thread
     */
    static void Check(unsigned int bytes);
    /** The same for 200,000 bytes. \throws ZyStackLimitException "Stack limit reached" */
    static void Check();
};
