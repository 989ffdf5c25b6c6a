// SPDX-License-Identifier: BSD-3-Clause
// The bindings of identifiers and of time.
#include <ZyXMLObject.h>

#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyTimeDuration.h>
#include <ZyTimePoint.h>
#include <ZyUUID.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
using Count = decltype(ZyTimeDuration::Nanoseconds::value);

ZyTimeDuration span(Count nanoseconds)
{
    return ZyTimeDuration(ZyTimeDuration::Nanoseconds{nanoseconds});
}

template <class T>
std::vector<T> roundTrip(std::vector<T> const & values)
{
    std::string const document = writtenValues(values);
    return loadValues<T>(document.substr(3, document.rfind("</r>") - 3));
}
} // namespace

TEST(ZyXMLObjectOfUUID, IsItsText)
{
    std::vector<ZyUUID> const values{ZyUUID("a-b"), ZyUUID(), ZyUUID("")};
    EXPECT_EQ(writtenValues(std::vector<ZyUUID>{ZyUUID("a-B")}), "<r><v>a-B</v></r>\n");
    EXPECT_EQ(roundTrip(values), values);
}

TEST(ZyXMLObjectOfUUID, IsSwappedWithAFreshOne)
{
    ZyXMLLambdaRule<ZyUUID> rule("v", ZyXMLObject<ZyUUID>::LoadRule());
    rule.onAdded();
    *rule.recall<ZyUUID>("val") = ZyUUID("a");
    rule.onFinish();
    EXPECT_EQ(rule.recall<ZyUUID>("val")->toString().size(), 36u);
}

TEST(ZyXMLObjectOfDuration, IsTheNanoseconds)
{
    std::vector<ZyTimeDuration> const values{span(0), span(-1), span(1234567890123),
                                             span(std::numeric_limits<Count>::max()),
                                             span(std::numeric_limits<Count>::min())};
    EXPECT_EQ(writtenValues(values), "<r><v>0</v><v>-1</v><v>1234567890123</v><v>9223372036854775807</v>"
                                     "<v>-9223372036854775808</v></r>\n");
    EXPECT_EQ(roundTrip(values), values);
}

TEST(ZyXMLObjectOfDuration, RefusesWhatIsNoNumber)
{
    EXPECT_STD_THROW(loadValues<ZyTimeDuration>("<v>abc</v>"), std::invalid_argument,
                     "invalid stoll argument");
    EXPECT_STD_THROW(loadValues<ZyTimeDuration>("<v/>"), std::invalid_argument, "invalid stoll argument");
    EXPECT_STD_THROW(loadValues<ZyTimeDuration>("<v>9223372036854775808</v>"), std::out_of_range,
                     "stoll argument out of range");
}

TEST(ZyXMLObjectOfTimePoint, IsTheDurationSinceTheEpoch)
{
    std::vector<ZyTimePoint> const values{ZyTimePoint(), ZyTimePoint(span(77)), ZyTimePoint::Now()};
    EXPECT_EQ(writtenValues(std::vector<ZyTimePoint>{ZyTimePoint(span(77))}), "<r><v>77</v></r>\n");
    EXPECT_EQ(roundTrip(values), values);
}

TEST(ZyXMLObjectMemoryOfTime, HasItsNames)
{
    ZyXMLLambdaRule<ZyTimeDuration> duration("v", ZyXMLObject<ZyTimeDuration>::LoadRule());
    EXPECT_ZY_THROW(duration.onFinish(), ZyNotFoundException, "Item not found: val");
    duration.onAdded();
    EXPECT_EQ(*duration.recall<ZyTimeDuration>("val"), ZyTimeDuration());
    ZyXMLLambdaRule<ZyTimePoint> point("v", ZyXMLObject<ZyTimePoint>::LoadRule());
    EXPECT_ZY_THROW(point.onFinish(), ZyNotFoundException, "Item not found: val");
    point.onAdded();
    EXPECT_EQ(*point.recall<ZyTimeDuration>("val"), ZyTimeDuration());
}

TEST(ZyXMLObjectRulesOfTime, AreOneForTheProcess)
{
    EXPECT_EQ(ZyXMLObject<ZyUUID>::LoadRule(), ZyXMLObject<ZyUUID>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyTimeDuration>::LoadRule(), ZyXMLObject<ZyTimeDuration>::LoadRule());
    EXPECT_EQ(ZyXMLObject<ZyTimePoint>::LoadRule(), ZyXMLObject<ZyTimePoint>::LoadRule());
}
