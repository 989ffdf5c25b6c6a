// SPDX-License-Identifier: BSD-3-Clause
// The end of a thread on its way through the frames.
#pragma once

#include <exception>

#ifdef __GLIBCXX__
#include <cxxabi.h>
#endif

namespace ZyPlatform
{
#ifdef __GLIBCXX__
/**
 * Travels through the frames of a thread that is being ended, as an exception does, and must not be stopped:
 * who catches everything catches this before, by reference, and throws it on.
 */
using ThreadEnd = abi::__forced_unwind;
#else
/** Threads end otherwise here: never thrown. */
class ThreadEnd
{
public:
    ThreadEnd() = delete;
};
#endif
} // namespace ZyPlatform
