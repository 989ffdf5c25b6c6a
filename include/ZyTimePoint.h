// SPDX-License-Identifier: BSD-3-Clause
// A moment of the steady clock.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyTimeDuration.h>

#include <chrono>

/**
 * A moment of the steady clock, which never goes back and knows nothing of dates: a signed 64-bit count of
 * nanoseconds since the clock's epoch.
 *
 * \code
 * ZyTimePoint const start = ZyTimePoint::Now();
 * work();
 * ZyTimeDuration const taken = ZyTimePoint::Now() - start;
 * \endcode
 *
 * A value class: copies are deep, and each allocates one small block. Code that measures in a tight loop
 * should keep the standard points that this converts to. Differences wrap in 64 bits.
 */
class ZYCORE_EXPORT ZyTimePoint : public ZyPrivateObject
{
public:
    /** The clock's epoch. */
    ZyTimePoint();
    /** That span after the epoch. */
    ZyTimePoint(ZyTimeDuration const & sinceEpoch);
    /** The standard library's point. */
    ZyTimePoint(std::chrono::steady_clock::time_point const & point);
    ZyTimePoint(ZyTimePoint const & other);
    ~ZyTimePoint() override;
    ZyTimePoint & operator=(ZyTimePoint const & other);
    ZyTimePoint & operator=(std::chrono::steady_clock::time_point const & point);

    /** The standard library's point, valid as long as this object. */
    operator std::chrono::steady_clock::time_point const &() const;

    /** The present. \threads any */
    static ZyTimePoint Now();

    /** The span from \a other to this, negative when \a other is the later one. */
    ZyTimeDuration operator-(ZyTimePoint const & other) const;
    /** The span between both, whichever is the earlier one. */
    ZyTimeDuration duration(ZyTimePoint const & other) const;
    /** The span since the epoch. */
    ZyTimeDuration duration() const;

    bool operator==(ZyTimePoint const & other) const;
    bool operator==(std::chrono::steady_clock::time_point const & other) const;
    bool operator!=(ZyTimePoint const & other) const;
    bool operator!=(std::chrono::steady_clock::time_point const & other) const;
    bool operator<(ZyTimePoint const & other) const;
    bool operator<=(ZyTimePoint const & other) const;
    bool operator>(ZyTimePoint const & other) const;
    bool operator>=(ZyTimePoint const & other) const;
    /** -1, 0 or 1, as this comes before, with or after the other. */
    int compare(ZyTimePoint const & other) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
