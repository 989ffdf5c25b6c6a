// SPDX-License-Identifier: BSD-3-Clause
// Properties, the process-wide store, identifiers and times when memory ends.
#include "AllocationFault.h"

#include <ZyDateTime.h>
#include <ZyErrorLogger.h>
#include <ZyGlobal.h>
#include <ZyProperties.h>
#include <ZyTimeDuration.h>
#include <ZyUUID.h>

#include <utility>

namespace
{
constexpr char longName[] = "a name that is longer than what a string keeps in itself";
constexpr char otherCase[] = "A NAME THAT IS LONGER THAN WHAT A STRING KEEPS IN ITSELF";
constexpr char longText[] = "a text that is longer than what a string keeps in itself";
} // namespace

TEST(AllocationFailure, AddsAPropertyWholeOrNotAtAll)
{
    ZyProperty const added(longName, longText);
    ZyProperties properties{ZyProperty("first", 1)};
    unsigned const failures =
        failEveryAllocation([&] { properties.add(added); },
                            [&](bool returned) {
                                EXPECT_EQ(properties.size(), returned ? 2u : 1u);
                                EXPECT_EQ(properties.get(otherCase).expired(), !returned);
                                EXPECT_EQ(properties.value("FIRST").asInteger(), 1);
                            });
    EXPECT_GT(failures, 3u);
}

TEST(AllocationFailure, ReplacesAPropertyWholeOrNotAtAll)
{
    ZyProperty const before(longName, 1);
    ZyProperty const after(otherCase, longText);
    ZyProperties properties(before);
    unsigned const failures =
        failEveryAllocation([&] { properties.add(after); },
                            [&](bool returned) {
                                ZyProperty const & held = properties.getReference(longName);
                                EXPECT_TRUE(held.name().equal(returned ? otherCase : longName,
                                                              ZyComparableString::CaseSensitive));
                                EXPECT_TRUE(held == (returned ? after : before));
                            });
    EXPECT_GT(failures, 0u);
}

TEST(AllocationFailure, CopiesASetWholeOrNotAtAll)
{
    ZyProperties const from{ZyProperty(longName, 1), ZyProperty("b", 2)};
    ZyProperties to{ZyProperty("old", 3)};
    unsigned const failures = failEveryAllocation([&] { to = from; },
                                                  [&](bool returned) {
                                                      EXPECT_EQ(to.size(), returned ? 2u : 1u);
                                                      EXPECT_EQ(to.get("old").expired(), returned);
                                                  });
    EXPECT_GT(failures, 0u);
}

TEST(AllocationFailure, LeavesTheStoredValue)
{
    ZyUUID const id("of a test with failing allocations");
    ZyGlobal::Set(1, id);
    ZyString const text(longText);
    unsigned const failures = failEveryAllocation([&] { ZyGlobal::Set(text, id); },
                                                  [&](bool returned) {
                                                      if (returned) {
                                                          EXPECT_TRUE(ZyGlobal::GetString(id) == longText);
                                                      } else {
                                                          EXPECT_EQ(ZyGlobal::GetInt(id), 1);
                                                      }
                                                  });
    EXPECT_GT(failures, 3u);
    ZyGlobal::Destroy(id);
}

TEST(AllocationFailure, LosesNothingWhenASmallValueIsMade)
{
    EXPECT_GT(failEveryAllocation([] { ZyUUID const id; }, [](bool) {}), 0u);
    EXPECT_GT(failEveryAllocation([] { ZyDateTime::Now().toString(); }, [](bool) {}), 0u);
    EXPECT_GT(failEveryAllocation([] { ZyTimeDuration const span(ZyTimeDuration::Hours{1}); }, [](bool) {}),
              0u);
    EXPECT_GT(failEveryAllocation([] { ZyErrorLogger const log; }, [](bool) {}), 0u);
}
