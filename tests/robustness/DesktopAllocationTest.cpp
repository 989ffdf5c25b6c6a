// SPDX-License-Identifier: BSD-3-Clause
// Kinds of file, icons and settings when memory ends.
#include "AllocationFault.h"

#include <ZyApplicationProperties.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyFileType.h>
#include <ZyIconManager.h>
#include <ZyProperties.h>
#include <ZyString.h>

#include <keelbase/KbHost.h>

namespace
{
constexpr char longName[] = "a name that is longer than what a string keeps in itself";
constexpr char longText[] = "a text that is longer than what a string keeps in itself";

bool hasSetting(ZyString const & value)
{
    try {
        return ZyApplicationProperties::Read(longName, longName) == value;
    } catch (ZyNotFoundException const &) {
        return false;
    }
}
} // namespace

TEST(AllocationFailure, MakesTheTableOfKindsWholeOrNotAtAll)
{
    ZyFilePath const path("a.csv");
    unsigned const failures = failEveryAllocation(
        [&] {
            if (ZyFileType::ToType(path) != ZyFileType::CSV ||
                ZyFileType(ZyFileType::Model).filter().isEmpty()) {
                ADD_FAILURE() << "the table is not whole";
            }
        },
        [&](bool returned) {
            if (returned) {
                EXPECT_EQ(ZyFileType(ZyFileType::Zip).extensions().size(), 2u);
            }
        });
    EXPECT_GT(failures, 0u);
}

TEST(AllocationFailure, KeepsAnIconOrNothing)
{
    unsigned const before = ZyIconManager::NumberIcons();
    ZyString const name(longName);
    unsigned const failures = failEveryAllocation(
        [&] { ZyIconManager::Get(name); },
        [&](bool returned) { EXPECT_EQ(ZyIconManager::NumberIcons(), before + (returned ? 1 : 0)); });
    EXPECT_GT(failures, 3u);
}

TEST(AllocationFailure, StoresASettingWholeOrNotAtAll)
{
    kb::UseMemoryConfig();
    kb::ClearConfig();
    ZyString const name(longName);
    ZyString const text(longText);
    unsigned const failures =
        failEveryAllocation([&] { ZyApplicationProperties::Write(name, name, text); },
                            [&](bool returned) { EXPECT_EQ(hasSetting(text), returned); });
    EXPECT_GT(failures, 3u);
    EXPECT_EQ(ZyApplicationProperties::ReadAll(name).size(), 1u);
    kb::ClearConfig();
}

TEST(AllocationFailure, ReadsASectionOrThrows)
{
    kb::UseMemoryConfig();
    kb::ClearConfig();
    ZyString const name(longName);
    ZyApplicationProperties::Write(name, name, longText);
    ZyProperties read;
    unsigned const failures =
        failEveryAllocation([&] { read = ZyApplicationProperties::ReadAll(name); },
                            [&](bool returned) { EXPECT_EQ(read.size(), returned ? 1u : 0u); });
    EXPECT_GT(failures, 3u);
    kb::ClearConfig();
}
