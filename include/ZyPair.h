// SPDX-License-Identifier: BSD-3-Clause
// Two values in one.
#pragma once

#include <utility>

/** Two public values without a virtual table; ordered by `first`, then by `second`. */
template <class A, class B>
struct ZyPair
{
    ZyPair() : first(), second() {}
    ZyPair(A a, B b) : first(std::move(a)), second(std::move(b)) {}

    /** What is compared first. */
    A first;
    /** What decides when the first ones are equal. */
    B second;
};

template <class A, class B>
bool operator==(ZyPair<A, B> const & a, ZyPair<A, B> const & b)
{
    return a.first == b.first && a.second == b.second;
}
template <class A, class B>
bool operator!=(ZyPair<A, B> const & a, ZyPair<A, B> const & b)
{
    return !(a == b);
}
template <class A, class B>
bool operator<(ZyPair<A, B> const & a, ZyPair<A, B> const & b)
{
    return a.first < b.first || (!(b.first < a.first) && a.second < b.second);
}
