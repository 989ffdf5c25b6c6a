// SPDX-License-Identifier: BSD-3-Clause
// Values of all kinds when memory ends.
#include "AllocationFault.h"

#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyVector.h>

#include <utility>

namespace
{
constexpr char longText[] =
    "a text that is longer than what a string keeps in itself, and has a comma, and another";
constexpr char otherText[] =
    "another text that is longer than what a string keeps in itself, for good measure";

/** Values of all kinds. */
ZyVector<ZyVariant> variants()
{
    ZyVector<ZyVariant> made;
    made.add(ZyVariant());
    made.add(ZyVariant(true));
    made.add(ZyVariant(5));
    made.add(ZyVariant(5u));
    made.add(ZyVariant(0.5));
    made.add(ZyVariant(ZyString(longText)));
    made.add(ZyVariant(ZyFilePath(otherText)));
    made.add(ZyVariant(ZyPair<ZyString, ZyString>{ZyString(longText), ZyString(otherText)}));
    made.add(ZyVariant(ZyPair<ZyFilePath, ZyFilePath>{ZyFilePath(longText), ZyFilePath(otherText)}));
    return made;
}
} // namespace

TEST(AllocationFailure, LeavesAVariantThatCanBeReadAndSet)
{
    ZyVector<ZyVariant> const values = variants();
    for (ZyVariant const & from : values.std_vector()) {
        for (ZyVariant const & to : values.std_vector()) {
            ZyVariant variant(from);
            failEveryAllocation([&] { variant.set(to); },
                                [&](bool returned) {
                                    EXPECT_TRUE(!returned || variant == to);
                                    // Whatever it holds now, tag and value fit together.
                                    EXPECT_EQ(ZyVariant(variant).toString().toStdString(),
                                              variant.toString().toStdString());
                                    variant.set(from);
                                    EXPECT_TRUE(variant == from);
                                });
        }
    }
}

TEST(AllocationFailure, LosesNothingWhenAVariantIsMade)
{
    ZyVector<ZyVariant> const values = variants();
    for (ZyVariant const & value : values.std_vector()) {
        EXPECT_GT(failEveryAllocation([&] { ZyVariant const copy(value); }, [](bool) {}), 0u);
        ZyVariant source(value);
        failEveryAllocation([&] { ZyVariant const moved(std::move(source)); },
                            [&](bool) { source.set(value); });
        failEveryAllocation([&] { value.toString(); }, [](bool) {});
        EXPECT_EQ(failEveryAllocation([&] { value.compare(value); }, [](bool) {}), 0u);
    }
}
