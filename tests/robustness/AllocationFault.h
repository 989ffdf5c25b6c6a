// SPDX-License-Identifier: BSD-3-Clause
// Lets one chosen allocation of this thread fail. The binary replaces the global operator new for it, so the
// library's own allocations and those of the standard containers inside it are counted; what C libraries take
// with malloc is not.
#pragma once

#include <ZyException.h>

#include <gtest/gtest.h>

#include <new>

/** While one of these lives, the allocation with a chosen number throws std::bad_alloc; all others succeed.
 */
class AllocationFault
{
public:
    /** \param number which allocation from now on; the first is 1 */
    explicit AllocationFault(unsigned number);
    AllocationFault(AllocationFault const &) = delete;
    AllocationFault & operator=(AllocationFault const &) = delete;
    ~AllocationFault();

    bool hasStruck() const;
};

/**
 * Runs \a operation again and again, with a failure at its first allocation, at its second, and so on, until
 * it gets through without one. It may throw std::bad_alloc or an exception of the tree, and nothing else.
 * Each time, \a after is called, with whether the operation has returned.
 *
 * \return how many allocations have failed
 */
template <class Operation, class After>
unsigned failEveryAllocation(Operation operation, After after)
{
    constexpr unsigned limit = 100000;
    for (unsigned number = 1; number < limit; ++number) {
        bool returned = false;
        bool struck = false;
        try {
            AllocationFault const fault(number);
            try {
                operation();
                returned = true;
            } catch (...) {
                struck = fault.hasStruck();
                throw;
            }
            struck = fault.hasStruck();
        } catch (std::bad_alloc const &) {
        } catch (ZyException const &) {
        }
        EXPECT_TRUE(struck || returned) << "thrown although no allocation has failed, number " << number;
        after(returned);
        if (!struck || ::testing::Test::HasFailure()) {
            return number - 1;
        }
    }
    ADD_FAILURE() << "more than " << limit << " allocations";
    return limit;
}
