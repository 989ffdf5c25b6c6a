// SPDX-License-Identifier: BSD-3-Clause
// Wide text from UTF-8, well formed and not.
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace
{

struct Case
{
    char const * name;
    char const * utf8;
    std::wstring wide;
};

void PrintTo(Case const & c, std::ostream * out)
{
    *out << c.name;
}

class UTFStringCases : public testing::TestWithParam<Case>
{};

} // namespace

TEST_P(UTFStringCases, Decode)
{
    EXPECT_EQ(std::wstring(UTFString(GetParam().utf8).getWide()), GetParam().wide);
}

INSTANTIATE_TEST_SUITE_P(
    WellFormed, UTFStringCases,
    testing::Values(Case{"Null", nullptr, L""}, Case{"Empty", "", L""}, Case{"Ascii", "ab~\x7F", L"ab~\x7F"},
                    Case{"TwoBytes", "\xC2\x80\xC3\xA9\xDF\xBF", L"\u0080\u00E9\u07FF"},
                    Case{"ThreeBytes", "\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBF", L"\u0800\u20AC\uFFFF"},
                    Case{"AroundTheSurrogates", "\xED\x9F\xBF\xEE\x80\x80", L"\uD7FF\uE000"},
                    Case{"FourBytes", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", L"\U00010000\U0010FFFF"}),
    testing::PrintToStringParamName());

INSTANTIATE_TEST_SUITE_P(
    Malformed, UTFStringCases,
    testing::Values(Case{"LoneContinuation", "a\x80z", L"a\uFFFDz"},
                    Case{"CutOffByTheEnd", "a\xE2\x82", L"a\uFFFD\uFFFD"},
                    Case{"CutOffByAnotherLetter", "\xC3(", L"\uFFFD("},
                    Case{"OverlongSlash", "\xC0\xAF", L"\uFFFD\uFFFD"},
                    Case{"OverlongThreeBytes", "\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},
                    Case{"OverlongFourBytes", "\xF0\x80\x80\xAF", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Case{"HalfASurrogatePair", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
                    Case{"BeyondTheLastCodePoint", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
                    Case{"NeverALead", "\xFE\xFF", L"\uFFFD\uFFFD"}),
    testing::PrintToStringParamName());
