// SPDX-License-Identifier: BSD-3-Clause
// A moment of the steady clock.
#include <ZyTimePoint.h>

using Clock = std::chrono::steady_clock;

static_assert(Clock::period::den == 1000000000 && Clock::period::num == 1, "the clock counts nanoseconds");

class ZyTimePoint::Private : public ZyPrivateObject
{
public:
    explicit Private(Clock::time_point const & value) : point(value) {}

    Clock::time_point point;
};

ZyTimePoint::ZyTimePoint() : ZyTimePoint(Clock::time_point()) {}

ZyTimePoint::ZyTimePoint(ZyTimeDuration const & sinceEpoch)
    : ZyTimePoint(Clock::time_point(sinceEpoch.std_duration()))
{}

ZyTimePoint::ZyTimePoint(Clock::time_point const & point) : m_d(new Private(point)) {}

ZyTimePoint::ZyTimePoint(ZyTimePoint const & other)
    : ZyPrivateObject(other), m_d(new Private(other.d()->point))
{}

ZyTimePoint::~ZyTimePoint() = default;

ZyTimePoint & ZyTimePoint::operator=(ZyTimePoint const & other)
{
    d()->point = other.d()->point;
    return *this;
}

ZyTimePoint & ZyTimePoint::operator=(Clock::time_point const & point)
{
    d()->point = point;
    return *this;
}

ZyTimePoint::operator Clock::time_point const &() const
{
    return d()->point;
}

ZyTimePoint ZyTimePoint::Now()
{
    return ZyTimePoint(Clock::now());
}

ZyTimeDuration ZyTimePoint::operator-(ZyTimePoint const & other) const
{
    return duration() - other.duration();
}

ZyTimeDuration ZyTimePoint::duration(ZyTimePoint const & other) const
{
    return *this < other ? other - *this : *this - other;
}

ZyTimeDuration ZyTimePoint::duration() const
{
    return ZyTimeDuration(d()->point.time_since_epoch());
}

bool ZyTimePoint::operator==(ZyTimePoint const & other) const
{
    return d()->point == other.d()->point;
}

bool ZyTimePoint::operator==(Clock::time_point const & other) const
{
    return d()->point == other;
}

bool ZyTimePoint::operator!=(ZyTimePoint const & other) const
{
    return d()->point != other.d()->point;
}

bool ZyTimePoint::operator!=(Clock::time_point const & other) const
{
    return d()->point != other;
}

bool ZyTimePoint::operator<(ZyTimePoint const & other) const
{
    return d()->point < other.d()->point;
}

bool ZyTimePoint::operator<=(ZyTimePoint const & other) const
{
    return d()->point <= other.d()->point;
}

bool ZyTimePoint::operator>(ZyTimePoint const & other) const
{
    return d()->point > other.d()->point;
}

bool ZyTimePoint::operator>=(ZyTimePoint const & other) const
{
    return d()->point >= other.d()->point;
}

int ZyTimePoint::compare(ZyTimePoint const & other) const
{
    return *this < other ? -1 : *this == other ? 0 : 1;
}
