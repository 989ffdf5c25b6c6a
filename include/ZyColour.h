// SPDX-License-Identifier: BSD-3-Clause
// A colour for drawing code.
#pragma once

#include <ZyExport.h>

class ZyString;

/**
 * A red, green, blue and alpha value with channels from 0 to 255; alpha 255 is opaque.
 *
 * \code
 * ZyColour const line = ZyColour(ZyColour::Blue).lighter(0.5);   // r:127 g:127 b:255 a:255
 * \endcode
 *
 * Constructors clamp: below 1 a channel becomes 0, from 255 on 255. Reals are cut to whole numbers towards
 * zero first, NaN counts as 0. Three reals alone are taken as three integers, which does the same wherever
 * the integers hold them.
 */
class ZYCORE_EXPORT ZyColour
{
public:
    /** The named colours, all opaque. */
    enum Value : int {
        Black = 0, ///< 0, 0, 0
        Blue = 1,  ///< 0, 0, 255
        Green = 2, ///< 0, 255, 0
        Red = 3,   ///< 255, 0, 0
        White = 4, ///< 255, 255, 255
    };

    /** Opaque black. */
    ZyColour();
    /** An opaque colour, clamped. */
    ZyColour(int red, int green, int blue);
    /** Clamped. */
    ZyColour(int red, int green, int blue, int alpha);
    /** Clamped; the reals are on the scale from 0 to 255. */
    ZyColour(double const & red, double const & green, double const & blue, int alpha);
    /** Clamped; the reals are on the scale from 0 to 255. */
    ZyColour(double const & red, double const & green, double const & blue, double const & alpha);
    /** As FromValue(). */
    ZyColour(Value value);
    /**
     * \deliberate{colour-copy-clamps} A copy is clamped where assignment and moving keep what a setter stored: a colour
     * that leaves its owner by copy can be drawn.
     */
    ZyColour(ZyColour const & other);
    /** Takes the channels as they are. */
    ZyColour(ZyColour && other) noexcept;

    /** Takes the channels as they are. */
    ZyColour & operator=(ZyColour const & other);
    /** Takes the channels as they are. */
    ZyColour & operator=(ZyColour && other) noexcept;

    /** A named colour; black for a number that names none. */
    static ZyColour FromValue(Value value);

    /** The red channel. */
    int red() const { return m_red; }
    /** The green channel. */
    int green() const { return m_green; }
    /** The blue channel. */
    int blue() const { return m_blue; }
    /** Opacity. */
    int alpha() const { return m_alpha; }

    /** Stores the number as it is. */
    void setRed(int red) { m_red = red; }
    /** Stores the number as it is. */
    void setGreen(int green) { m_green = green; }
    /** Stores the number as it is. */
    void setBlue(int blue) { m_blue = blue; }
    /** Stores the number as it is. */
    void setAlpha(int alpha) { m_alpha = alpha; }

    /** Whether all four channels are equal. */
    bool operator==(ZyColour const & other) const;
    /** Whether a channel differs. */
    bool operator!=(ZyColour const & other) const { return !(*this == other); }

    /** The colour moved towards black: 0 gives the same one, 1 black. Alpha stays; the result is clamped. */
    ZyColour darker(double const & factor) const;
    /** The colour moved towards white: 0 gives the same one, 1 white. Alpha stays; the result is clamped. */
    ZyColour lighter(double const & factor) const;

    /** The channels in decimal: "r:255 g:0 b:0 a:255". */
    ZyString toString() const;

private:
    int m_red;
    int m_green;
    int m_blue;
    int m_alpha;
};
