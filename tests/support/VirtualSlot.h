// SPDX-License-Identifier: BSD-3-Clause
// The place of a virtual function in the table of its class, under the ABI of g++ and clang++: the destructor
// takes two places.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

template <class Function>
std::size_t virtualSlot(Function function)
{
    std::uintptr_t word = 0;
    static_assert(sizeof(function) >= sizeof(word));
    std::memcpy(&word, &function, sizeof(word));
    return static_cast<std::size_t>(word & ~std::uintptr_t(1)) / sizeof(void *);
}
