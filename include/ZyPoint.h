// SPDX-License-Identifier: BSD-3-Clause
// Plain points of two coordinates.
#pragma once

/** A point; what the coordinates mean, and in which unit, is the user's matter. */
template <class T>
struct ZyPointTemplate
{
    constexpr ZyPointTemplate() : x(), y() {}
    constexpr ZyPointTemplate(T xValue, T yValue) : x(xValue), y(yValue) {}

    /** The first coordinate. */
    T x;
    /** The second coordinate. */
    T y;
};

template <class T>
constexpr bool operator==(ZyPointTemplate<T> const & a, ZyPointTemplate<T> const & b)
{
    return a.x == b.x && a.y == b.y;
}
template <class T>
constexpr bool operator!=(ZyPointTemplate<T> const & a, ZyPointTemplate<T> const & b)
{
    return !(a == b);
}

using ZyPoint = ZyPointTemplate<int>;     ///< a point on a signed 32-bit grid
using ZyPointD = ZyPointTemplate<double>; ///< a point of two doubles
