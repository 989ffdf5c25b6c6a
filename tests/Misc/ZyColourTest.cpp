// SPDX-License-Identifier: BSD-3-Clause
// Tests of colours.
#include <ZyColour.h>
#include <ZyPrint.h>
#include <ZyString.h>

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(sizeof(ZyColour) == 4 * sizeof(int) && !std::is_polymorphic_v<ZyColour>);
static_assert(std::is_nothrow_move_constructible_v<ZyColour> && std::is_nothrow_move_assignable_v<ZyColour>);
static_assert(std::is_convertible_v<ZyColour::Value, ZyColour>);
static_assert(std::is_trivially_destructible_v<ZyColour>);
static_assert(ZyColour::Black == 0 && ZyColour::Blue == 1 && ZyColour::Green == 2 && ZyColour::Red == 3 &&
              ZyColour::White == 4);

namespace
{
/** The channels as the colour holds them; nothing is copied on the way. */
std::vector<int> channels(ZyColour const & colour)
{
    return {colour.red(), colour.green(), colour.blue(), colour.alpha()};
}

using Channels = std::vector<int>;
} // namespace

TEST(ZyColour, DefaultIsOpaqueBlack)
{
    EXPECT_EQ(channels(ZyColour()), (Channels{0, 0, 0, 255}));
}

TEST(ZyColour, FieldsStandInOrder)
{
    ZyColour const colour(1, 2, 3, 4);
    int const * const fields = reinterpret_cast<int const *>(&colour);
    EXPECT_EQ((Channels{fields[0], fields[1], fields[2], fields[3]}), (Channels{1, 2, 3, 4}));
}

TEST(ZyColour, IntegersAreClamped)
{
    EXPECT_EQ(channels(ZyColour(300, -5, 128)), (Channels{255, 0, 128, 255}));
    EXPECT_EQ(channels(ZyColour(0, 1, 254, 255)), (Channels{0, 1, 254, 255}));
    EXPECT_EQ(channels(ZyColour(256, -1, INT_MAX, INT_MIN)), (Channels{255, 0, 255, 0}));
}

TEST(ZyColour, RealsAreCutAndClamped)
{
    EXPECT_EQ(channels(ZyColour(1.9, 254.9, 255.9, 255)), (Channels{1, 254, 255, 255}));
    EXPECT_EQ(channels(ZyColour(0.9, -0.9, -300.5, 300)), (Channels{0, 0, 0, 255}));
    EXPECT_EQ(channels(ZyColour(1.0, 2.5, 3.99, 4.99)), (Channels{1, 2, 3, 4}));
    EXPECT_EQ(channels(ZyColour(1.0, 2.0, 3.0, -4.0)), (Channels{1, 2, 3, 0}));
}

TEST(ZyColour, RealsBeyondTheIntegersAreClamped)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(channels(ZyColour(1e10, -1e10, infinity, 1e300)), (Channels{255, 0, 255, 255}));
    EXPECT_EQ(channels(ZyColour(-infinity, notANumber, 7.0, notANumber)), (Channels{0, 0, 7, 0}));
}

TEST(ZyColour, NamedColours)
{
    EXPECT_EQ(channels(ZyColour::FromValue(ZyColour::Black)), (Channels{0, 0, 0, 255}));
    EXPECT_EQ(channels(ZyColour::FromValue(ZyColour::Blue)), (Channels{0, 0, 255, 255}));
    EXPECT_EQ(channels(ZyColour::FromValue(ZyColour::Green)), (Channels{0, 255, 0, 255}));
    EXPECT_EQ(channels(ZyColour::FromValue(ZyColour::Red)), (Channels{255, 0, 0, 255}));
    EXPECT_EQ(channels(ZyColour::FromValue(ZyColour::White)), (Channels{255, 255, 255, 255}));
    ZyColour const converted = ZyColour::Green;
    EXPECT_EQ(channels(converted), (Channels{0, 255, 0, 255}));
}

TEST(ZyColour, UnknownNumbersAreBlack)
{
    EXPECT_EQ(channels(ZyColour::FromValue(static_cast<ZyColour::Value>(5))), (Channels{0, 0, 0, 255}));
    EXPECT_EQ(channels(ZyColour(static_cast<ZyColour::Value>(-1))), (Channels{0, 0, 0, 255}));
    EXPECT_EQ(channels(ZyColour::FromValue(static_cast<ZyColour::Value>(INT_MAX))), (Channels{0, 0, 0, 255}));
}

TEST(ZyColour, SettersStoreWhatTheyGet)
{
    ZyColour colour;
    colour.setRed(300);
    colour.setGreen(-5);
    colour.setBlue(17);
    colour.setAlpha(1000);
    EXPECT_EQ(channels(colour), (Channels{300, -5, 17, 1000}));
}

TEST(ZyColour, Deliberate_colour_copy_clamps)
{
    ZyColour colour;
    colour.setRed(300);
    ZyColour const copy(colour);
    EXPECT_EQ(copy.red(), 255);
    EXPECT_FALSE(copy == colour);
    EXPECT_TRUE(copy != colour);
}

TEST(ZyColour, AssigningAndMovingKeepTheChannels)
{
    ZyColour colour;
    colour.setRed(300);
    colour.setAlpha(-1);
    ZyColour assigned;
    assigned = colour;
    EXPECT_EQ(channels(assigned), (Channels{300, 0, 0, -1}));
    ZyColour moved(std::move(assigned));
    EXPECT_EQ(channels(moved), (Channels{300, 0, 0, -1}));
    ZyColour moveAssigned;
    moveAssigned = std::move(moved);
    EXPECT_EQ(channels(moveAssigned), (Channels{300, 0, 0, -1}));
}

TEST(ZyColour, GrowingVectorsMove)
{
    std::vector<ZyColour> colours(1);
    colours[0].setRed(300);
    colours.reserve(colours.capacity() + 100);
    EXPECT_EQ(colours[0].red(), 300);
}

TEST(ZyColour, EqualityMindsAllChannels)
{
    ZyColour const colour(1, 2, 3, 4);
    EXPECT_TRUE(colour == ZyColour(1, 2, 3, 4));
    EXPECT_FALSE(colour != ZyColour(1, 2, 3, 4));
    EXPECT_FALSE(colour == ZyColour(9, 2, 3, 4));
    EXPECT_FALSE(colour == ZyColour(1, 9, 3, 4));
    EXPECT_FALSE(colour == ZyColour(1, 2, 9, 4));
    EXPECT_FALSE(colour == ZyColour(1, 2, 3, 9));
}

TEST(ZyColour, Darker)
{
    EXPECT_EQ(channels(ZyColour(255, 255, 255, 77).darker(1.0)), (Channels{0, 0, 0, 77}));
    EXPECT_EQ(channels(ZyColour(10, 100, 201, 77).darker(0.0)), (Channels{10, 100, 201, 77}));
    EXPECT_EQ(channels(ZyColour(10, 101, 255, 77).darker(0.5)), (Channels{5, 50, 127, 77}));
    EXPECT_EQ(channels(ZyColour(10, 100, 200).darker(-1.0)), (Channels{20, 200, 255, 255}));
    EXPECT_EQ(channels(ZyColour(10, 100, 200).darker(2.0)), (Channels{0, 0, 0, 255}));
}

TEST(ZyColour, Lighter)
{
    EXPECT_EQ(channels(ZyColour(0, 0, 0, 77).lighter(1.0)), (Channels{255, 255, 255, 77}));
    EXPECT_EQ(channels(ZyColour(10, 100, 201, 77).lighter(0.0)), (Channels{10, 100, 201, 77}));
    EXPECT_EQ(channels(ZyColour(0, 100, 255, 77).lighter(0.5)), (Channels{127, 177, 255, 77}));
    EXPECT_EQ(channels(ZyColour(10, 100, 200).lighter(-1.0)), (Channels{0, 0, 145, 255}));
    EXPECT_EQ(channels(ZyColour(10, 100, 200).lighter(2.0)), (Channels{255, 255, 255, 255}));
}

TEST(ZyColour, DarkerAndLighterClampWhatASetterStored)
{
    ZyColour colour;
    colour.setRed(INT_MIN);
    colour.setGreen(INT_MAX);
    colour.setAlpha(1000);
    EXPECT_EQ(channels(colour.darker(0.0)), (Channels{0, 255, 0, 255}));
    EXPECT_EQ(channels(colour.lighter(0.0)), (Channels{0, 255, 0, 255}));
    EXPECT_EQ(channels(colour.lighter(std::numeric_limits<double>::quiet_NaN())), (Channels{0, 0, 0, 255}));
}

TEST(ZyColour, Text)
{
    EXPECT_EQ(ZyColour().toString().toStdString(), "r:0 g:0 b:0 a:255");
    EXPECT_EQ(ZyColour(1, 20, 255, 0).toString().toStdString(), "r:1 g:20 b:255 a:0");
    ZyColour colour;
    colour.setRed(-300);
    EXPECT_EQ(colour.toString().toStdString(), "r:-300 g:0 b:0 a:255");
    EXPECT_EQ(testing::PrintToString(ZyColour(ZyColour::Blue)), "r:0 g:0 b:255 a:255");
}
