// SPDX-License-Identifier: BSD-3-Clause
// A count of one unit of time, with the unit in its type.
#pragma once

/**
 * A count whose unit is part of its type, so that it cannot be taken for another one.
 *
 * \tparam T the type of the count: `__int64` up to seconds, int for minutes and hours
 * \tparam N the unit: 0 nanoseconds, 1 microseconds, 2 milliseconds, 3 seconds, 4 minutes, 5 hours
 *
 * A plain structure without any check. ZyTimeDuration has short names for the six instances:
 *
 * \code
 * ZyTimeDuration::Minutes const limit = {5};
 * \endcode
 */
template <class T, int N>
struct ZyTimeComponent
{
    T value; ///< the count; not set by default construction
};
