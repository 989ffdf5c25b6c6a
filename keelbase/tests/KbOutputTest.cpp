// SPDX-License-Identifier: BSD-3-Clause
// Where formatted output goes, and what the formatter makes of every directive and every kind of argument.
#include <keelbase/KbHost.h>
#include <keelbase/Keelbase.h>

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace
{
template <class... Arguments>
std::string printed(char const * format, Arguments... arguments)
{
    kb::OutputCapture const output;
    zy_printf(format, arguments...);
    return output.text();
}

/** What the C library makes of an honest format. */
template <class Number>
std::string expected(std::string const & format, Number number)
{
    std::array<char, 2048> text;
    int const size = std::snprintf(text.data(), text.size(), format.c_str(), number);
    return {text.data(), static_cast<std::size_t>(size)};
}
} // namespace

TEST(OutputCapture, KeepsTextAndFormats)
{
    kb::OutputCapture output;
    zy_printf("%s\n", "text");
    zy_printf("100%");
    EXPECT_EQ(output.text(), "text\n100%");
    EXPECT_EQ(output.formats(), (std::vector<std::string>{"%s\n", "100%"}));
    output.clear();
    EXPECT_EQ(output.text(), "");
    EXPECT_TRUE(output.formats().empty());
}

TEST(OutputCapture, Nests)
{
    kb::OutputCapture const outer;
    zy_printf("a");
    {
        kb::OutputCapture const inner;
        zy_printf("b");
        EXPECT_EQ(inner.text(), "b");
    }
    zy_printf("c");
    EXPECT_EQ(outer.text(), "ac");
}

TEST(OutputCapture, GivesTheOutputBackToTheReceiverOfTheHost)
{
    std::string received;
    kb::SetOutput([&](char const *, char const * text, std::size_t size) { received.append(text, size); });
    {
        kb::OutputCapture const capture;
        zy_printf("kept");
    }
    zy_printf("received");
    kb::SetOutput({});
    EXPECT_EQ(received, "received");
}

TEST(OutputCapture, KeepsTheOutputOfAllThreads)
{
    kb::OutputCapture const output;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int k = 0; k < 500; ++k) {
                zy_printf("%d", 1);
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(output.text(), std::string(2000, '1'));
}

TEST(SetOutput, GivesTheReceiverFormatTextAndSize)
{
    kb::OutputCapture const before; // what was in force comes back
    std::string all;
    kb::SetOutput([&](char const * format, char const * text, std::size_t size) {
        all += std::string(format) + "|" + text + "|" + std::to_string(size);
    });
    zy_printf("%d items", 12);
    kb::SetOutput({});
    EXPECT_EQ(all, "%d items|12 items|8");
}

TEST(SetOutput, MayPrintItself)
{
    std::string all;
    int depth = 0;
    kb::SetOutput([&](char const *, char const * text, std::size_t) {
        all += text;
        if (depth++ == 0) {
            zy_printf("inner");
        }
    });
    zy_printf("outer ");
    kb::SetOutput({});
    EXPECT_EQ(all, "outer inner");
}

TEST(SetOutput, DropsWhatTheReceiverThrows)
{
    kb::SetOutput([](char const *, char const *, std::size_t) { throw std::runtime_error("full"); });
    EXPECT_NO_THROW(zy_printf("text"));
    kb::SetOutput([](char const *, char const *, std::size_t) { throw 1; });
    EXPECT_NO_THROW(zy_printf("text"));
    kb::SetOutput({});
}

TEST(Printf, GoesToTheStandardOutputAtOnce)
{
    testing::internal::CaptureStdout();
    zy_printf("%s %d%c", "all of", 1, '\n');
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "all of 1\n");
}

TEST(Printf, PrintsNothingForNoFormat)
{
    kb::OutputCapture const output;
    zy_printf(nullptr);
    EXPECT_TRUE(output.formats().empty());
    zy_printf("");
    EXPECT_EQ(output.text(), "");
    EXPECT_EQ(output.formats().size(), 1u);
}

TEST(Printf, CopiesWhatIsNoDirective)
{
    EXPECT_EQ(printed("100%"), "100%");
    EXPECT_EQ(printed("100%%"), "100%");
    EXPECT_EQ(printed("%%%%"), "%%");
    EXPECT_EQ(printed("50%!"), "50%!");
    EXPECT_EQ(printed("%-08.3ll"), "%-08.3ll");
    EXPECT_EQ(printed("%y%d", 3), "%y3");
    EXPECT_EQ(printed("%1$s", "text"), "%1$s");
    EXPECT_EQ(printed("%*", 7), "%*");
    EXPECT_EQ(printed("%."), "%.");
    EXPECT_EQ(printed("% %d", 3), "% 3");
    EXPECT_EQ(printed("%I"), "%I");
    EXPECT_EQ(printed("%S%C%m", "x"), "%S%C%m");
    EXPECT_EQ(printed("\xFF%\x80"), "\xFF%\x80");
}

TEST(Printf, HasNothingForTheFifthDirective)
{
    EXPECT_EQ(printed("%s%s%s%s%s%s"), "(null)(null)(null)(null)(null)(null)");
    EXPECT_EQ(printed("%d%d%d%d%d", 1, 2, 3, 4), "12340");
    EXPECT_EQ(printed("%d%d%d%d%g %s", 1, 2, 3, 4), "12340 (null)");
}

TEST(Printf, WritesNothingThroughAnArgument)
{
    std::string const text = "text";
    EXPECT_EQ(printed("%n%s", text.c_str(), "second"), "second");
    EXPECT_EQ(printed("%p%hhn%s", 1, 2, "third"), "third");
    EXPECT_EQ(printed("%20n|"), "|");
}

TEST(Printf, CutsWidthAndPrecision)
{
    EXPECT_EQ(printed("%99999999d", 1), std::string(511, ' ') + "1");
    EXPECT_EQ(printed("%99999999999999999999999s", "x"), std::string(511, ' ') + "x");
    EXPECT_EQ(printed("%.99999999d", 1), std::string(511, '0') + "1");
    EXPECT_EQ(printed("%.513s", std::string(600, 'x').c_str()), std::string(512, 'x'));
    EXPECT_EQ(printed("%*d", INT_MAX, 1), std::string(511, ' ') + "1");
    EXPECT_EQ(printed("%*d", INT_MIN, 1), "1" + std::string(511, ' '));
    EXPECT_EQ(printed("%.*f", INT_MAX, 0.0), "0." + std::string(512, '0'));
}

TEST(Printf, TakesWidthAndPrecisionFromArguments)
{
    EXPECT_EQ(printed("%*d|", 5, 42), "   42|");
    EXPECT_EQ(printed("%*d|", -5, 42), "42   |");
    EXPECT_EQ(printed("%.*s|", 2, "text"), "te|");
    EXPECT_EQ(printed("%.*s|", -1, "text"), "text|");
    EXPECT_EQ(printed("%*.*f|", 8, 2, 3.14159), "    3.14|");
    EXPECT_EQ(printed("%*s|", "no number", "text"), "text|");
    EXPECT_EQ(printed("%*s|", 6.9, "text"), "  text|");
}

TEST(Printf, PrintsTextOfEveryLength)
{
    for (std::size_t size : {0u, 1u, 999u, 2046u, 2047u, 2048u, 2049u, 100000u}) {
        std::string const text(size, 'x');
        EXPECT_EQ(printed("%s\n", text.c_str()), text + "\n");
        EXPECT_EQ(printed((text + "%d").c_str(), 7), text + "7");
    }
}

TEST(Printf, PadsText)
{
    EXPECT_EQ(printed("%6s|%-6s|%06s|%.2s|", "abc", "abc", "abc", "abc"), "   abc|abc   |   abc|ab|");
    EXPECT_EQ(printed("%.3s|%8.1s|", nullptr, "abc"), "(nu|       a|");
}

TEST(Printf, PrintsEveryKindOfArgumentForEveryDirective)
{
    EXPECT_EQ(printed("%s %s %s %s", "text", -5, 2.5, kb_int64{1} << 40), "text -5 2.5 1099511627776");
    EXPECT_EQ(printed("%d %d %d %i", 7, 2.9, -2.9, "text"), "7 2 -2 0");
    EXPECT_EQ(printed("%u %o %x %X", 7, 8, 255, 255), "7 10 ff FF");
    EXPECT_EQ(printed("%u %u %x %o", 7.9, "text", 255.9, nullptr), "7 0 ff 0");
    EXPECT_EQ(printed("%c%c%c", 65, 66.5, 'C'), "ABC");
    EXPECT_EQ(printed("%c", "text"), std::string(1, '\0'));
    EXPECT_EQ(printed("%3c|%-3c|", 'a', 'b'), "  a|b  |");
    EXPECT_EQ(printed("%g %g %g %f", 2.5, 2, "text", nullptr), "2.5 2 0 0.000000");
    EXPECT_EQ(printed("%n%p%n%d", 1, 2.0, "text", 4), "4");
}

TEST(Printf, KeepsTheBitsOfIntegers)
{
    EXPECT_EQ(printed("%x %u %o", -1, -1, -1), "ffffffff 4294967295 37777777777");
    EXPECT_EQ(printed("%x %u", INT_MIN, INT_MIN), "80000000 2147483648");
    EXPECT_EQ(printed("%x", kb_int64{INT_MIN} - 1), "ffffffff7fffffff");
    EXPECT_EQ(printed("%d %u", LLONG_MIN, LLONG_MAX), "-9223372036854775808 9223372036854775807");
    EXPECT_EQ(printed("%u", 4294967295u), "4294967295");
}

TEST(Printf, ClampsRealNumbersThatAreNoIntegers)
{
    double const infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(printed("%d %d", infinity, -infinity), "9223372036854775807 -9223372036854775808");
    EXPECT_EQ(printed("%d %d", 1e300, -1e300), "9223372036854775807 -9223372036854775808");
    EXPECT_EQ(printed("%d", std::numeric_limits<double>::quiet_NaN()), "0");
    EXPECT_EQ(printed("%d", 9223372036854775807.0), "9223372036854775807");
}

TEST(Printf, IgnoresLengths)
{
    for (char const * length : {"h", "hh", "l", "ll", "L", "q", "j", "z", "t", "I32", "I64"}) {
        EXPECT_EQ(printed((std::string("%") + length + "d").c_str(), kb_int64{1} << 40), "1099511627776");
        EXPECT_EQ(printed((std::string("%5") + length + "s").c_str(), "abc"), "  abc");
        EXPECT_EQ(printed((std::string("%.1") + length + "f").c_str(), 0.25), "0.2");
    }
}

TEST(Printf, AgreesWithTheLibraryOnHonestDirectives)
{
    for (char const * flags : {"", "-", "+", " ", "#", "0", "-+", "+0", " 0", "#0", "-#", "-+ #0"}) {
        for (char const * size : {"", "1", "12", "40", ".0", ".1", ".7", "15.4", "3.20", "512.512"}) {
            std::string const head = std::string("%") + flags + size;
            for (kb_int64 number : {0LL, 1LL, -1LL, 42LL, -2147483648LL, LLONG_MAX, LLONG_MIN}) {
                for (char const conversion : {'d', 'i'}) {
                    EXPECT_EQ(printed((head + conversion).c_str(), number),
                              expected(head + "ll" + conversion, number))
                        << head;
                }
            }
            for (kb_int64 number : {0LL, 1LL, 42LL, LLONG_MAX}) {
                for (char const conversion : {'u', 'o', 'x', 'X'}) {
                    EXPECT_EQ(printed((head + conversion).c_str(), number),
                              expected(head + "ll" + conversion, number))
                        << head;
                }
            }
            for (double number : std::initializer_list<double>{0.0, -0.0, 1.0, -2.5, 1e-7, 123456.789, 1e300,
                                                               DBL_MAX, DBL_MIN, INFINITY}) {
                for (char const conversion : {'e', 'f', 'g', 'a', 'E', 'F', 'G', 'A'}) {
                    EXPECT_EQ(printed((head + conversion).c_str(), number),
                              expected(head + conversion, number))
                        << head;
                }
            }
        }
    }
}

TEST(Printf, PrintsAPointInEveryLocale)
{
    std::string const before = std::setlocale(LC_NUMERIC, nullptr);
    for (char const * locale :
         {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "ps_AF.UTF-8", "German_Germany.1252"}) {
        if (std::setlocale(LC_NUMERIC, locale) != nullptr) {
            EXPECT_EQ(printed("%.2f %g %s|%8.1f|", 1.5, 2.25, 3.5, 4.5), "1.50 2.25 3.5|     4.5|") << locale;
        }
    }
    std::setlocale(LC_NUMERIC, before.c_str());
}

TEST(Printf, SurvivesTwoMillionFormats)
{
    std::mt19937 random(20);
    constexpr char alphabet[] = "%%%%%%dsxgcnpif*.-+ #0123456789hlLqjztI64I32uoXeEGaAy$!\\\n\xC3";
    std::string format;
    std::size_t total = 0;
    kb::SetOutput([&](char const *, char const *, std::size_t size) { total += size; });
    for (int i = 0; i < 2'000'000; ++i) {
        format.clear();
        for (auto size = random() % 12; size-- > 0;) {
            format += alphabet[random() % (sizeof alphabet - 1)];
        }
        std::array<PrintfArg, 4> const kinds = {PrintfArg("text"), PrintfArg(static_cast<int>(random())),
                                                PrintfArg(static_cast<int>(random()) / 1e3), PrintfArg()};
        zy_printf(format.c_str(), kinds[random() % 4], kinds[random() % 4], kinds[random() % 4],
                  kinds[random() % 4]);
    }
    kb::SetOutput({});
    EXPECT_GT(total, 2'000'000u);
}
