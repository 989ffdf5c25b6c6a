// SPDX-License-Identifier: BSD-3-Clause
// What the library has made for itself on Windows: the calendar, numbers from text, flags of arithmetic,
// modules.
#include "Platform/ArithmeticFaults.h"
#include "Platform/CLocale.h"
#include "Platform/Calendar.h"
#include "Platform/Module.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <clocale>
#include <cmath>
#include <limits>
#include <string>

namespace
{
std::tm fieldsOf(int year, int month, int day)
{
    std::tm fields = {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    return fields;
}

double number(char const * text, std::string const & rest)
{
    char * end = nullptr;
    double const value = ZyPlatform::stringToDouble(text, &end);
    EXPECT_EQ(end, rest) << text;
    return value;
}
} // namespace

TEST(Calendar, KnowsKnownDays)
{
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(1970, 1, 1)), 0);
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(2000, 2, 29)), 951782400);
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(1900, 3, 1)), -2203891200);
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(10000, 1, 1)), 253402300800);
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(1, 1, 1)), -62135596800);
    EXPECT_EQ(ZyPlatform::utcToSeconds(fieldsOf(2021, 14, 31)),
              ZyPlatform::utcToSeconds(fieldsOf(2022, 3, 3)));
}

TEST(Calendar, ComesBackFromEveryDayOfFourCenturies)
{
    int weekDay = 4;
    for (std::int64_t day = 0; day < 146097; ++day, weekDay = (weekDay + 1) % 7) {
        std::tm fields = {};
        ASSERT_TRUE(ZyPlatform::secondsToUtc(day * 86400 + 3661, fields));
        ASSERT_EQ(ZyPlatform::utcToSeconds(fields), day * 86400 + 3661);
        ASSERT_EQ(fields.tm_wday, weekDay);
        ASSERT_EQ(fields.tm_hour * 10000 + fields.tm_min * 100 + fields.tm_sec, 10101);
    }
}

TEST(Calendar, RefusesMomentsWhoseYearDoesNotFit)
{
    std::tm fields = {};
    EXPECT_FALSE(ZyPlatform::secondsToUtc(std::numeric_limits<std::int64_t>::max(), fields));
    EXPECT_FALSE(ZyPlatform::secondsToLocal(std::numeric_limits<std::int64_t>::min(), fields));
}

TEST(NumbersFromText, AreReadInTheCLocaleInEverySpelling)
{
    std::setlocale(LC_ALL, "German_Germany.1252");
    EXPECT_EQ(number("1.5x", "x"), 1.5);
    EXPECT_EQ(number(" -0x1.8p3,", ","), -12.0);
    EXPECT_EQ(number("0x.8", ""), 0.5);
    EXPECT_EQ(number("0xg", "xg"), 0.0);
    EXPECT_EQ(number("-Infinity?", "?"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(number("nan(1)", "")));
    EXPECT_EQ(number("0x1p99999", ""), std::numeric_limits<double>::infinity());
    std::setlocale(LC_ALL, "C");
}

TEST(ArithmeticFaults, FollowFromResultsWhereTheLibraryIsSilent)
{
    ZyPlatform::ArithmeticFaults const faults;
    EXPECT_EQ(faults.raised() & FE_INVALID, 0);
    ZyPlatform::judged(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(faults.raised() & FE_INVALID, 0);
    ZyPlatform::judged(std::numeric_limits<double>::quiet_NaN(), -1.0);
    EXPECT_NE(faults.raised() & FE_INVALID, 0);
    ZyPlatform::judged(std::numeric_limits<double>::infinity(), 0.0, -1.0);
    EXPECT_NE(faults.raised() & FE_DIVBYZERO, 0);
}

TEST(Modules, TellTheProgramByTheNameOfItsFile)
{
    ZyPlatform::Module const module = ZyPlatform::moduleOf(reinterpret_cast<std::uintptr_t>(&fieldsOf));
    EXPECT_STREQ(module.file, "zytests_seam.exe");
    EXPECT_EQ(ZyPlatform::moduleOf(0).base, 0u);
}
