// SPDX-License-Identifier: BSD-3-Clause
// The place of a virtual function in the table of its class, which modules that were built apart rely on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#if defined(__GXX_ABI_VERSION)
#define ZY_SLOTS_VISIBLE 1
#else
#define ZY_SLOTS_VISIBLE 0
#endif

/**
 * The entry in the table, from 0, under the ABI of g++ and clang++; a destructor takes two. The largest
 * number for a function that is not virtual.
 */
template <class Function>
std::size_t virtualSlot(Function function)
{
    // The offset in the table plus 1; on ARM the offset, and the mark in the second word.
    std::uintptr_t words[2];
    static_assert(sizeof(function) == sizeof(words), "a pointer to a member function");
    std::memcpy(words, &function, sizeof(words));
    bool const isVirtual = (words[0] & 1) != 0 || (words[1] & 1) != 0;
    return isVirtual ? (words[0] & ~std::uintptr_t(1)) / sizeof(void *)
                     : std::numeric_limits<std::size_t>::max();
}
