// SPDX-License-Identifier: BSD-3-Clause
// A colour for drawing code.
#include <ZyColour.h>

#include <ZyString.h>

#include <string>

namespace
{
int clamped(int channel)
{
    return channel < 1 ? 0 : channel >= 255 ? 255 : channel;
}

/** Clamps before it cuts: an integer does not hold every real. NaN is not even 1. */
int clamped(double channel)
{
    return !(channel >= 1.0) ? 0 : channel >= 255.0 ? 255 : static_cast<int>(channel);
}
} // namespace

ZyColour::ZyColour() : ZyColour(0, 0, 0) {}

ZyColour::ZyColour(int red, int green, int blue) : ZyColour(red, green, blue, 255) {}

ZyColour::ZyColour(int red, int green, int blue, int alpha)
    : m_red(clamped(red)), m_green(clamped(green)), m_blue(clamped(blue)), m_alpha(clamped(alpha))
{}

ZyColour::ZyColour(double const & red, double const & green, double const & blue, int alpha)
    : m_red(clamped(red)), m_green(clamped(green)), m_blue(clamped(blue)), m_alpha(clamped(alpha))
{}

ZyColour::ZyColour(double const & red, double const & green, double const & blue, double const & alpha)
    : m_red(clamped(red)), m_green(clamped(green)), m_blue(clamped(blue)), m_alpha(clamped(alpha))
{}

ZyColour::ZyColour(Value value) : ZyColour(FromValue(value)) {}

ZyColour::ZyColour(ZyColour const & other) : ZyColour(other.m_red, other.m_green, other.m_blue, other.m_alpha)
{}

// Does not throw, so a vector that grows moves its colours and does not clamp them.
ZyColour::ZyColour(ZyColour && other) noexcept = default;

ZyColour & ZyColour::operator=(ZyColour const & other) = default;

ZyColour & ZyColour::operator=(ZyColour && other) noexcept = default;

ZyColour ZyColour::FromValue(Value value)
{
    switch (value) {
    case Blue:
        return ZyColour(0, 0, 255);
    case Green:
        return ZyColour(0, 255, 0);
    case Red:
        return ZyColour(255, 0, 0);
    case White:
        return ZyColour(255, 255, 255);
    case Black:
        break;
    }
    return ZyColour();
}

bool ZyColour::operator==(ZyColour const & other) const
{
    return m_red == other.m_red && m_green == other.m_green && m_blue == other.m_blue &&
           m_alpha == other.m_alpha;
}

ZyColour ZyColour::darker(double const & factor) const
{
    double const rest = 1.0 - factor;
    return ZyColour(m_red * rest, m_green * rest, m_blue * rest, m_alpha);
}

ZyColour ZyColour::lighter(double const & factor) const
{
    auto const towardsWhite = [&factor](double channel) { return (255.0 - channel) * factor + channel; };
    return ZyColour(towardsWhite(m_red), towardsWhite(m_green), towardsWhite(m_blue), m_alpha);
}

ZyString ZyColour::toString() const
{
    return ZyString("r:" + std::to_string(m_red) + " g:" + std::to_string(m_green) +
                    " b:" + std::to_string(m_blue) + " a:" + std::to_string(m_alpha));
}
