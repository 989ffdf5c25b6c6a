// SPDX-License-Identifier: BSD-3-Clause
// The counting operator new.
#include "AllocationFault.h"

#include <cstdlib>

namespace
{
thread_local unsigned remaining = 0; // allocations until the one that fails; 0: none is to fail
thread_local bool struck = false;

void * allocate(std::size_t size)
{
    if (remaining > 0 && --remaining == 0) {
        struck = true;
        throw std::bad_alloc();
    }
    void * const block = std::malloc(size > 0 ? size : 1);
    if (!block) {
        throw std::bad_alloc();
    }
    return block;
}
} // namespace

AllocationFault::AllocationFault(unsigned number)
{
    struck = false;
    remaining = number;
}

AllocationFault::~AllocationFault()
{
    remaining = 0;
}

bool AllocationFault::hasStruck() const
{
    return struck;
}

void * operator new(std::size_t size)
{
    return allocate(size);
}

void * operator new[](std::size_t size)
{
    return allocate(size);
}

// The forms that answer with null, which the sorts of the standard library ask for their buffers.
void * operator new(std::size_t size, std::nothrow_t const &) noexcept
{
    try {
        return allocate(size);
    } catch (std::bad_alloc const &) {
        return nullptr;
    }
}

void * operator new[](std::size_t size, std::nothrow_t const & tag) noexcept
{
    return operator new(size, tag);
}

void operator delete(void * block) noexcept
{
    std::free(block);
}

void operator delete[](void * block) noexcept
{
    std::free(block);
}

void operator delete(void * block, std::size_t) noexcept
{
    std::free(block);
}

void operator delete[](void * block, std::size_t) noexcept
{
    std::free(block);
}
