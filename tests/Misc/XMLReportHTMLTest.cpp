// SPDX-License-Identifier: BSD-3-Clause
// The three HTML pages, byte for byte. The pages in tests/data/Misc were made by a program of a few lines of
// formatted output, step by step as the format is told, not by the library.
#include "Environment.h"
#include "PlainReport.h"
#include "ReportPages.h"
#include "ReportTables.h"
#include "TestData.h"

#include <climits>
#include <clocale>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>

namespace
{
using namespace ReportTables;

std::string expectedPage(std::string const & name)
{
    std::ifstream file(TestData::path("Misc/" + name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string formatted(double number)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%g", number);
    return text;
}

class XMLReportHTML : public testing::Test
{
protected:
    ReportPages pages;
};
} // namespace

TEST_F(XMLReportHTML, MonteCarloLogListsTheResultsOfTheRunsInTheOrderOfTheirCases)
{
    EXPECT_EQ(pages.monteCarlo(fourRuns(), monteCarloHeader()), expectedPage("monte-carlo.html"));
}

TEST_F(XMLReportHTML, MonteCarloLogWithoutMeritFunctionListsTheSeeds)
{
    XMLReportHeader header = monteCarloHeader();
    header.meritFunctions.clear();
    EXPECT_EQ(pages.monteCarlo(fourRuns(), header), expectedPage("monte-carlo-seeds.html"));
}

TEST_F(XMLReportHTML, WorstCaseLogIsTheSamePageUnderAnotherTitle)
{
    XMLReportHeader header = ReportTables::header({"Vout"});
    header.analysis = "Worst case";
    header.title = "T";
    auto const runs =
        table({run(1, "Run=1", {value(5)}), run(2, "Lot: A", {value(5.25)}, {parameter("R1", 1000, 1050)})});
    EXPECT_EQ(pages.worstCase(runs, header), expectedPage("worst-case.html"));
}

TEST_F(XMLReportHTML, Deliberate_worst_case_without_results)
{
    XMLReportHeader const header;
    std::string const page = pages.worstCase(fourRuns(), header);
    EXPECT_EQ(page, PlainReport::log(fourRuns(), header, false));
    EXPECT_EQ(page.find("Results"), std::string::npos);
    EXPECT_EQ(page.find("Seed Table"), std::string::npos);
    EXPECT_NE(pages.monteCarlo(fourRuns(), header).find("\t<h2>Seed Table</h2>\n"), std::string::npos);
}

TEST_F(XMLReportHTML, SensitivityPageShowsEveryStatusAndSpansTheRowsOfARun)
{
    EXPECT_EQ(pages.sensitivity(fiveRuns(), header({"Gain", "BW"}), 2), expectedPage("sensitivity.html"));
}

TEST_F(XMLReportHTML, SensitivityPageTakesOneRowForNoAndOneParameterAndOneEachForMore)
{
    auto const runs = table({run(1, "none", {value(1, 2, 3, 0)}),
                             run(2, "one", {value(1, 2, 3, 1)}, {parameter("A", 1, 2)}),
                             run(3, "two", {value(1, 2, 3, 2)}, {parameter("A", 1, 2), parameter("B", 3, 4)}),
                             run(4, "five", {value(1, 2, 3, 0)},
                                 {parameter("A", 1, 2), parameter("B", 3, 4), parameter("C", 5, 6),
                                  parameter("D", 7, 8), parameter("E", 9, 10)}),
                             run(5, "five and no figures", {},
                                 {parameter("A", 1, 2), parameter("B", 3, 4), parameter("C", 5, 6),
                                  parameter("D", 7, 8), parameter("E", 9, 10)})});
    std::string const page = pages.sensitivity(runs, header({"M"}), 0);
    EXPECT_EQ(
        part(page, "\t\t<tr><td", "\t</table>"),
        "\t\t<tr><td>1</td><td>none</td><td>1</td><td>2</td><td>3</td><td></td><td>0</td><td>0</td></tr>\n"
        "\t\t<tr><td>2</td><td>one</td><td>1</td><td>2</td><td>!DIV0</td><td>A</td><td>1</td><td>2</td></"
        "tr>\n"
        "\t\t<tr><td rowspan=\"2\">3</td><td rowspan=\"2\">two</td><td rowspan=\"2\">1</td>"
        "<td rowspan=\"2\">2</td><td rowspan=\"2\">*</td><td>A</td><td>1</td><td>2</td></tr>\n"
        "\t\t<tr><td>B</td><td>3</td><td>4</td></tr>\n"
        "\t\t<tr><td rowspan=\"5\">4</td><td rowspan=\"5\">five</td><td rowspan=\"5\">1</td>"
        "<td rowspan=\"5\">2</td><td rowspan=\"5\">3</td><td>A</td><td>1</td><td>2</td></tr>\n"
        "\t\t<tr><td>B</td><td>3</td><td>4</td></tr>\n"
        "\t\t<tr><td>C</td><td>5</td><td>6</td></tr>\n"
        "\t\t<tr><td>D</td><td>7</td><td>8</td></tr>\n"
        "\t\t<tr><td>E</td><td>9</td><td>10</td></tr>\n"
        "\t\t<tr><td rowspan=\"5\">5</td><td rowspan=\"5\">five and no figures</td><td rowspan=\"5\">0</td>"
        "<td rowspan=\"5\">0</td><td>A</td><td>1</td><td>2</td></tr>\n"
        "\t\t<tr><td>B</td><td>3</td><td>4</td></tr>\n"
        "\t\t<tr><td>C</td><td>5</td><td>6</td></tr>\n"
        "\t\t<tr><td>D</td><td>7</td><td>8</td></tr>\n"
        "\t\t<tr><td>E</td><td>9</td><td>10</td></tr>\n");
}

TEST_F(XMLReportHTML, LogListsEachParameterOfARunInARowOfItsOwn)
{
    auto const runs = table({run(1, "", {}), run(2, "", {}, {parameter("A", 1, 2)}),
                             run(3, "", {}, {parameter("A", 1, 2), parameter("B", 3, 4)}),
                             run(4, "", {},
                                 {parameter("A", 1, 2), parameter("B", 3, 4), parameter("C", 5, 6),
                                  parameter("D", 7, 8), parameter("E", 9, 10)})});
    std::string const page = pages.worstCase(runs, XMLReportHeader());
    std::string const head = "\t<table class=\"datatable\">\n"
                             "\t\t<tr><th>Reference</th><th>Nominal</th><th>Value</th></tr>\n";
    EXPECT_EQ(
        part(page, "\t<h2>", "</html>"),
        "\t<h2>Run 1</h2>\n" + head + "\t</table>\n"                                                    //
            + "\t<h2>Run 2</h2>\n" + head + "\t\t<tr><td>A</td><td>1</td><td>2</td></tr>\n\t</table>\n" //
            + "\t<h2>Run 3</h2>\n" + head + "\t\t<tr><td>A</td><td>1</td><td>2</td></tr>\n" +
            "\t\t<tr><td>B</td><td>3</td><td>4</td></tr>\n\t</table>\n" //
            + "\t<h2>Run 4</h2>\n" + head + "\t\t<tr><td>A</td><td>1</td><td>2</td></tr>\n" +
            "\t\t<tr><td>B</td><td>3</td><td>4</td></tr>\n\t\t<tr><td>C</td><td>5</td><td>6</td></tr>\n" +
            "\t\t<tr><td>D</td><td>7</td><td>8</td></tr>\n" +
            "\t\t<tr><td>E</td><td>9</td><td>10</td></tr>\n\t</table>\n");
}

TEST_F(XMLReportHTML, Deliberate_norm_cell_missing)
{
    for (int const status : {3, 4, -1, INT_MAX, INT_MIN}) {
        auto const runs =
            table({run(1, "", {value(1, 2, 3, status), value(4, 5, 6, 0)}, {parameter("A", 7, 8)})});
        EXPECT_EQ(part(pages.sensitivity(runs, header({"M", "N"}), 0), "\t\t<tr><td", "\t</table>"),
                  "\t\t<tr><td>1</td><td></td><td>1</td><td>2</td>"
                  "<td>4</td><td>5</td><td>6</td><td>A</td><td>7</td><td>8</td></tr>\n")
            << status;
    }
}

TEST_F(XMLReportHTML, Deliberate_results_span_of_zero)
{
    std::string const page = pages.sensitivity(fiveRuns(), XMLReportHeader(), 0);
    EXPECT_EQ(
        part(page, "\t\t<tr><th", "\t\t<tr><td"),
        "\t\t<tr><th colspan=\"2\">Run ID</th><th colspan=\"0\">Results</th>"
        "<th colspan=\"3\">Perturbation</th></tr>\n"
        "\t\t<tr><th>Case #</th><th>Reference</th><th>Lot item</th><th>Nominal</th><th>Value</th></tr>\n");
    EXPECT_EQ(page, PlainReport::sensitivity(fiveRuns(), XMLReportHeader(), 0));
}

TEST_F(XMLReportHTML, Deliberate_two_blanks_in_table)
{
    EXPECT_NE(pages.sensitivity(fiveRuns(), XMLReportHeader(), 0)
                  .find("\t</head>\n\t<table  class=\"datatable\">\n"),
              std::string::npos);
}

TEST_F(XMLReportHTML, Deliberate_report_text_unescaped)
{
    XMLReportHeader header = ReportTables::header({"<i>M</i>"});
    header.date = "<b>&";
    header.analysis = "\"'";
    header.title = "</td>";
    auto const runs = table({run(1, "<u>&amp;</u>", {value(1, 2, 3, 0)}, {parameter("<s>&", 1, 2)})});
    std::string const log = pages.monteCarlo(runs, header);
    EXPECT_NE(log.find("<tr><td>Date:</td><td><b>&</td></tr>"), std::string::npos);
    EXPECT_NE(log.find("<tr><td>Analysis card:</td><td>\"'</td></tr>"), std::string::npos);
    EXPECT_NE(log.find("<tr><td>Title:</td><td></td></td></tr>"), std::string::npos);
    EXPECT_NE(log.find("<th><i>M</i></th>"), std::string::npos);
    EXPECT_NE(log.find("<td><u>&amp;</u></td>"), std::string::npos);
    EXPECT_NE(log.find("<td><s>&</td>"), std::string::npos);
    EXPECT_EQ(pages.sensitivity(runs, header, 0), PlainReport::sensitivity(runs, header, 0));
}

TEST_F(XMLReportHTML, EmptyTableAndHeaderGiveThePagesFrame)
{
    YHashTable<XMLReportInfo> const none;
    XMLReportHeader const header;
    EXPECT_EQ(
        part(pages.worstCase(none, header), "\t</head>", "</html>"),
        "\t</head>\n\t<h1>Worst Case Log</h1>\n\t<table class=\"headertable\">\n"
        "\t\t<tr><td>Date:</td><td></td></tr>\n\t\t<tr><td>Analysis card:</td><td></td></tr>\n"
        "\t\t<tr><td>Title:</td><td></td></tr>\n\t\t<tr><td>Num Cores:</td><td>0</td></tr>\n\t</table>\n");
    EXPECT_EQ(
        part(pages.monteCarlo(none, header), "\t<h2>", "</html>"),
        "\t<h2>Seed Table</h2>\n\t<table class=\"datatable\">\n\t\t<tr><th>Run #</th><th>Seed</th></tr>\n"
        "\t</table>\n");
    EXPECT_EQ(
        part(pages.sensitivity(none, header, 2), "\t</head>", "</html>"),
        "\t</head>\n\t<table  class=\"datatable\">\n"
        "\t\t<tr><th colspan=\"2\">Run ID</th><th colspan=\"0\">Results</th>"
        "<th colspan=\"3\">Perturbation</th></tr>\n"
        "\t\t<tr><th>Case #</th><th>Reference</th><th>Lot item</th><th>Nominal</th><th>Value</th></tr>\n"
        "\t</table>\n");
}

TEST_F(XMLReportHTML, RunThatIsShortOfValuesShowsZeros)
{
    auto const runs = table({run(1, "a", {value(7)}), run(2, "b")});
    EXPECT_EQ(part(pages.monteCarlo(runs, header({"M", "N"})), "\t\t<tr><td>1<", "\t</table>"),
              "\t\t<tr><td>1</td><td>a</td><td>7</td><td>0</td></tr>\n"
              "\t\t<tr><td>2</td><td>b</td><td>0</td><td>0</td></tr>\n");
}

TEST_F(XMLReportHTML, ValuesBeyondTheMeritFunctionsAreNotShown)
{
    auto const runs = table({run(1, "a", {value(7), value(8), value(9)})});
    EXPECT_EQ(part(pages.monteCarlo(runs, header({"M"})), "\t\t<tr><td>1<", "\t</table>"),
              "\t\t<tr><td>1</td><td>a</td><td>7</td></tr>\n");
}

TEST_F(XMLReportHTML, LeavesTheTableAsItIs)
{
    YHashTable<XMLReportInfo> runs = table({run(1, "a"), run(2, "b", {value(1)}, {parameter("A", 1, 2)})});
    pages.monteCarlo(runs, header({"M", "N"}));
    pages.sensitivity(runs, header({"M", "N"}), 5);
    EXPECT_EQ(runs.size(), 2);
    EXPECT_EQ(runs.find(1)->sensValues.size(), 0);
    EXPECT_EQ(runs.find(1)->parameters.size(), 0);
    EXPECT_EQ(runs.find(2)->sensValues.size(), 1);
    EXPECT_EQ(runs.find(2)->parameters.size(), 1);
}

TEST_F(XMLReportHTML, IntegersArePlainDecimalsToTheEndsOfTheirRanges)
{
    auto runs = table({run(1, ""), run(-2, ""), run(INT_MAX, ""), run(INT_MIN, "")});
    runs.find(1)->seed = std::numeric_limits<long long>::max();
    runs.find(-2)->seed = std::numeric_limits<long long>::min();
    runs.find(INT_MAX)->seed = -1;
    XMLReportHeader header;
    header.numCores = INT_MIN;
    std::string const page = pages.monteCarlo(runs, header);
    EXPECT_EQ(part(page, "\t\t<tr><td>1<", "\t</table>"),
              "\t\t<tr><td>1</td><td>9223372036854775807</td></tr>\n"
              "\t\t<tr><td>-2</td><td>-9223372036854775808</td></tr>\n"
              "\t\t<tr><td>2147483647</td><td>-1</td></tr>\n"
              "\t\t<tr><td>-2147483648</td><td>0</td></tr>\n");
    EXPECT_NE(page.find("<td>Num Cores:</td><td>-2147483648</td>"), std::string::npos);
    EXPECT_NE(page.find("\t<h2>Run -2147483648</h2>\n"), std::string::npos);
}

TEST_F(XMLReportHTML, RealNumbersHaveSixSignificantDigitsAsFormattedOutputGivesThem)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<std::pair<double, char const *>> const expected = {
        {0, "0"},
        {-0.0, "-0"},
        {1000000, "1e+06"},
        {999999, "999999"},
        {999999.5, "1e+06"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {1e100, "1e+100"},
        {1.0 / 3, "0.333333"},
        {-2.5e-10, "-2.5e-10"},
        {HUGE_VAL, "inf"},
        {-HUGE_VAL, "-inf"},
        {nan, "nan"},
        {-nan, "-nan"},
        {5e-324, "4.94066e-324"},
        {std::numeric_limits<double>::max(), "1.79769e+308"}};
    auto runs = table({run(1, "")});
    std::string cells;
    XMLReportHeader header;
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        runs.find(1)->sensValues.add(value(expected[static_cast<std::size_t>(i)].first));
        header.meritFunctions[i].value = "M";
        cells += std::string("<td>") + expected[static_cast<std::size_t>(i)].second + "</td>";
    }
    EXPECT_EQ(part(pages.worstCase(runs, header), "<td>0</td><td>-0</td>", "</tr>"), cells);
}

TEST_F(XMLReportHTML, RealNumbersOfAllBitsAreAsFormattedOutputGivesThem)
{
    std::mt19937_64 engine(9);
    auto runs = table({run(1, "x")});
    std::string cells = "<td>x</td>";
    XMLReportHeader header;
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t const bits = engine();
        double number = 0;
        std::memcpy(&number, &bits, sizeof(number));
        runs.find(1)->sensValues.add(value(number));
        header.meritFunctions[i].value = "M";
        cells += "<td>" + formatted(number) + "</td>";
    }
    EXPECT_EQ(part(pages.worstCase(runs, header), "<td>x</td>", "</tr>"), cells);
}

TEST_F(XMLReportHTML, DecimalPointStaysAPointUnderEveryLocale)
{
    std::string const former = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, Environment::germanLocale)) {
        GTEST_SKIP() << "no German locale on this machine";
    }
    std::string const page = pages.monteCarlo(fourRuns(), monteCarloHeader());
    std::setlocale(LC_ALL, former.c_str());
    EXPECT_EQ(page, expectedPage("monte-carlo.html"));
}

TEST_F(XMLReportHTML, RandomTablesGiveThePagesThatFormattedOutputGives)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        int const merits = random.below(5);
        auto const runs = random.table(random.below(40), merits);
        XMLReportHeader header;
        header.date = random.text("date ").c_str();
        header.title = random.text("title ").c_str();
        header.numCores = random.below(9) - 2;
        for (int i = 0; i < merits; ++i) {
            header.meritFunctions[i].value = random.text("M").c_str();
        }
        XMLReportInfo const * const reference = runs.find(1);
        int const column = random.below((reference ? 3 * reference->sensValues.size() : 0) + 2);
        ASSERT_EQ(pages.monteCarlo(runs, header), PlainReport::log(runs, header, true));
        ASSERT_EQ(pages.worstCase(runs, header), PlainReport::log(runs, header, false));
        ASSERT_EQ(pages.sensitivity(runs, header, column), PlainReport::sensitivity(runs, header, column));
    }
}

TEST_F(XMLReportHTML, TextOfAnySizeAndNumbersAtAnyPlacePassTheBlocksOfTheOutput)
{
    for (std::size_t size : {0u, 100u, 65536u, 131072u, 300000u}) {
        for (std::size_t more = 0; more < 70; more += 3) {
            std::string const text(size + more, 'x');
            auto const runs = table({run(1, text.c_str(), {value(-1.23456e-100), value(2.5)},
                                         {parameter("A", -1.23456e-200, 1.0 / 3), parameter("B", 1, 2)})});
            ASSERT_TRUE(pages.monteCarlo(runs, header({"M", "N"})) ==
                        PlainReport::log(runs, header({"M", "N"}), true))
                << text.size();
        }
    }
}

TEST_F(XMLReportHTML, NumbersThatFallOnTheEndOfABlockStayWhole)
{
    // Each page of these is longer by a byte than the one before; a block ends in each of the numbers in
    // turn.
    XMLReportHeader const head = header({"M"});
    std::string const frame = PlainReport::log(table({run(1, "", {value(1.0 / 3)})}), head, true);
    std::size_t const number = frame.find("0.333333");
    for (std::size_t size = 65536 - number - 40; size < 65536 - number + 10; ++size) {
        auto const runs = table({run(1, std::string(size, 'y').c_str(), {value(1.0 / 3)})});
        ASSERT_TRUE(pages.monteCarlo(runs, head) == PlainReport::log(runs, head, true)) << size;
    }
}
