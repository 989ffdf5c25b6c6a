// SPDX-License-Identifier: BSD-3-Clause
// Splitting, decimal numbers, engineering notation.
#include <keelbase/Keelbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace
{

using testing::ElementsAre;

YVector<YString> pieces(char const * text, char separator)
{
    YVector<YString> result = {"left over"};
    int const count = sp_ScanLine(text, separator, result);
    EXPECT_EQ(count, result.size());
    return result;
}

struct Engineering
{
    double value;
    char const * text;
};

class SpConvertRealToJSEng : public testing::TestWithParam<Engineering>
{};

std::string ofTen(double value)
{
    return sp_ConvertRealToJSEng(value, 10, true).c_str();
}

} // namespace

TEST(SpScanLine, SplitsAtEachSeparator)
{
    EXPECT_THAT(pieces("a/b/c", '/'), ElementsAre(YString("a"), YString("b"), YString("c")));
    EXPECT_THAT(pieces("a:b", '/'), ElementsAre(YString("a:b")));
}

TEST(SpScanLine, KeepsEmptyPiecesAndBlanks)
{
    EXPECT_THAT(pieces("", '/'), ElementsAre(YString("")));
    EXPECT_THAT(pieces("a:", ':'), ElementsAre(YString("a"), YString("")));
    EXPECT_THAT(pieces("::", ':'), ElementsAre(YString(""), YString(""), YString("")));
    EXPECT_THAT(pieces(" a : \"b:c\" ", ':'), ElementsAre(YString(" a "), YString(" \"b"), YString("c\" ")));
}

TEST(SpAtoi64, ReadsDecimalNumbers)
{
    EXPECT_EQ(sp_atoi64("0"), 0);
    EXPECT_EQ(sp_atoi64(" -1234567890123x"), -1234567890123);
    EXPECT_EQ(sp_atoi64("+9007199254740993"), 9007199254740993);
    EXPECT_EQ(sp_atoi64("0x10"), 0);
    EXPECT_EQ(sp_atoi64("010"), 10);
}

TEST(SpAtoi64, IsZeroWithoutDigits)
{
    EXPECT_EQ(sp_atoi64(""), 0);
    EXPECT_EQ(sp_atoi64(nullptr), 0);
    EXPECT_EQ(sp_atoi64("seed"), 0);
}

TEST(SpAtoi64, StopsAtTheEndsOfItsRange)
{
    EXPECT_EQ(sp_atoi64("9223372036854775808"), std::numeric_limits<kb_int64>::max());
    EXPECT_EQ(sp_atoi64("-99999999999999999999"), std::numeric_limits<kb_int64>::min());
}

TEST_P(SpConvertRealToJSEng, GivesTheText)
{
    EXPECT_EQ(ofTen(GetParam().value), GetParam().text);
    EXPECT_STREQ(sp_ConvertRealToJSEng(GetParam().value, 10, false).c_str(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, SpConvertRealToJSEng,
    testing::Values(Engineering{0, "0"}, Engineering{-0.0, "0"}, Engineering{1, "1"}, Engineering{-1, "-1"},
                    Engineering{999, "999"}, Engineering{1000, "1e3"}, Engineering{4.7e-9, "4.7e-9"},
                    Engineering{0.001, "1e-3"}, Engineering{0.001234567890123, "1.23456789e-3"},
                    Engineering{123456.7890123, "123.456789e3"}, Engineering{999.99999999999, "1e3"},
                    Engineering{999.9999999996, "1e3"}, Engineering{-2.5e-12, "-2.5e-12"},
                    Engineering{1e15, "1e15"}, Engineering{1.7976931348623157e+308, "179.7693135e306"},
                    Engineering{5e-324, "4.940656458e-324"}, Engineering{0.1, "100e-3"},
                    Engineering{1.0 / 3, "333.3333333e-3"}, Engineering{1e-7, "100e-9"},
                    Engineering{22050, "22.05e3"}, Engineering{99999999995, "100e9"},
                    Engineering{1500, "1.5e3"}, Engineering{12345.678, "12.345678e3"},
                    Engineering{4.7e-12, "4.7e-12"}, Engineering{INFINITY, "Infinity"},
                    Engineering{-INFINITY, "-Infinity"}, Engineering{NAN, "NaN"}));

TEST(SpConvertRealToJSEngDigits, FillsUpToThePointWithZeros)
{
    EXPECT_STREQ(sp_ConvertRealToJSEng(123456, 1, true).c_str(), "100e3");
    EXPECT_STREQ(sp_ConvertRealToJSEng(12345, 2, true).c_str(), "12e3");
    EXPECT_STREQ(sp_ConvertRealToJSEng(96, 1, true).c_str(), "100");
}

TEST(SpConvertRealToJSEngDigits, TakesNoFewerThanOneAndNoMoreThanSeventeen)
{
    EXPECT_STREQ(sp_ConvertRealToJSEng(1.5, 0, true).c_str(), "2");
    EXPECT_STREQ(sp_ConvertRealToJSEng(0.1, 400, true).c_str(), "100.00000000000001e-3");
}

TEST(SpConvertRealToJSEngDigits, KeepsTenDigitsOfAnyNumber)
{
    std::mt19937_64 engine(1);
    for (int i = 0; i < 100000; ++i) {
        auto const bits = engine();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) {
            continue;
        }
        std::string const text = ofTen(value);
        ASSERT_NEAR(std::strtod(text.c_str(), nullptr) / value, 1, 6e-10) << text;
        double const mantissa = std::fabs(std::strtod(text.substr(0, text.find('e')).c_str(), nullptr));
        ASSERT_GE(mantissa, 1) << text;
        ASSERT_LT(mantissa, 1000) << text;
        auto const e = text.find('e');
        ASSERT_TRUE(e == std::string::npos || std::stoi(text.substr(e + 1)) % 3 == 0) << text;
    }
}
