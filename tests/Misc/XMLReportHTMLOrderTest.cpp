// SPDX-License-Identifier: BSD-3-Clause
// The order in which the pages list the runs.
#include "PlainReport.h"
#include "ReportPages.h"
#include "ReportTables.h"

#include <climits>
#include <limits>
#include <set>

namespace
{
using namespace ReportTables;

class XMLReportHTMLOrder : public testing::Test
{
protected:
    using Cases = std::vector<int>;

    /** The case numbers of a sensitivity page, first row first. */
    Cases cases(YHashTable<XMLReportInfo> const & runs, int column)
    {
        // Two parameters or more put a span in front of the number, and their further rows begin with a name.
        std::string const page = pages.sensitivity(runs, header({"M"}), column);
        Cases found;
        for (auto at = page.find("\t\t<tr><td"); at != std::string::npos;
             at = page.find("\t\t<tr><td", at + 1)) {
            char * end = nullptr;
            auto const text = page.find('>', at + 8) + 1;
            long const number = std::strtol(page.c_str() + text, &end, 10);
            if (end != page.c_str() + text) {
                found.push_back(static_cast<int>(number));
            }
        }
        return found;
    }

    static Cases tableOrder(YHashTable<XMLReportInfo> const & runs)
    {
        Cases walked;
        runs.forEach([&](int caseNumber, XMLReportInfo const &) { walked.push_back(caseNumber); });
        return walked;
    }

    ReportPages pages;
};
} // namespace

TEST_F(XMLReportHTMLOrder, EverySortColumnOfTheWorkedExample)
{
    // n is 2: 0 and 1 are the run's, 2 to 7 the figures of two merit functions, 8 is taken as it is, 9 falls
    // back to 7.
    std::vector<std::pair<int, Cases>> const expected = {
        {-1, {1, 2, 3, 4, 5}}, {0, {1, 2, 3, 4, 5}}, {1, {3, 4, 5, 2, 1}}, {2, {3, 2, 4, 1, 5}},
        {3, {3, 5, 2, 4, 1}},  {4, {2, 1, 3, 4, 5}}, {5, {3, 1, 4, 5, 2}}, {6, {2, 5, 3, 1, 4}},
        {7, {3, 1, 2, 4, 5}},  {8, {1, 2, 3, 4, 5}}, {9, {3, 1, 2, 4, 5}}, {10, {3, 1, 2, 4, 5}}};
    for (auto const & [column, order] : expected) {
        EXPECT_EQ(cases(fiveRuns(), column), order) << column;
    }
}

TEST_F(XMLReportHTMLOrder, ColumnsFarOutsideAreAsTheNearestOnes)
{
    EXPECT_EQ(cases(fiveRuns(), INT_MAX), cases(fiveRuns(), 7));
    for (int const column : {-2, -3, -4, -100, INT_MIN}) {
        EXPECT_EQ(cases(fiveRuns(), column), (Cases{1, 2, 3, 4, 5})) << column;
    }
}

TEST_F(XMLReportHTMLOrder, Deliberate_sort_column_beyond_last)
{
    // Added in this order the table walks 203, 102, 1; norms ascending, so that a sort by them would turn it
    // round.
    auto const runs = table({run(1, "c", {value(1, 1, 1, 0)}), run(102, "b", {value(2, 2, 2, 0)}),
                             run(203, "a", {value(3, 3, 4, 0)})});
    ASSERT_EQ(tableOrder(runs), (Cases{203, 102, 1}));
    EXPECT_EQ(cases(runs, 4), (Cases{203, 102, 1}));
    auto const turned = table({run(1, "a", {value(3, 3, 3, 0)}), run(102, "b", {value(2, 2, 2, 0)}),
                               run(203, "c", {value(1, 1, 1, 0)})});
    EXPECT_EQ(cases(turned, 4), (Cases{1, 102, 203}));
    EXPECT_EQ(cases(turned, 5), tableOrder(turned));
    EXPECT_EQ(cases(turned, 6), (Cases{1, 102, 203}));
}

TEST_F(XMLReportHTMLOrder, WithoutAReferenceRunColumnsBeyondTheSecondMeanTheDescription)
{
    auto const runs = table({run(2, "b", {value(1)}), run(3, "C", {value(3)}), run(4, "a", {value(2)})});
    EXPECT_EQ(cases(runs, 2), (Cases{3, 4, 2})) << "the first column behind the last one is kept";
    for (int const column : {3, 4, 5, 100}) {
        EXPECT_EQ(cases(runs, column), (Cases{4, 2, 3})) << column;
    }
}

TEST_F(XMLReportHTMLOrder, Deliberate_report_sorts_by_magnitude)
{
    auto const runs = table({run(1, "", {value(11)}), run(2, "", {value(-12)}), run(-3, "", {value(13)}),
                             run(4, "", {value(-0.5)}), run(102, "", {value(-HUGE_VAL)})});
    EXPECT_EQ(cases(runs, 0), (Cases{1, 2, -3, 4, 102}));
    EXPECT_EQ(cases(runs, 2), (Cases{102, -3, 2, 1, 4}));
    std::string const log = pages.monteCarlo(runs, header({"M"}));
    EXPECT_LT(log.find("<h2>Run 2<"), log.find("<h2>Run -3<"));
    EXPECT_LT(log.find("<h2>Run -3<"), log.find("<h2>Run 4<"));
}

TEST_F(XMLReportHTMLOrder, DescriptionsGoByTheAlphabetWithoutCase)
{
    auto const runs =
        table({run(1, "b"), run(2, "B2"), run(3, "a"), run(4, ""), run(5, "A1"), run(6, "_"), run(7, "Z")});
    EXPECT_EQ(cases(runs, 1), (Cases{4, 6, 3, 5, 1, 2, 7}));
}

TEST_F(XMLReportHTMLOrder, EqualRunsKeepTheOrderOfTheTableInEveryColumn)
{
    YHashTable<XMLReportInfo> runs;
    for (int i = 1; i <= 500; ++i) {
        runs.add(i, run(i, i % 2 ? "same" : "SAME", {value(i % 2 ? 1 : -1, 2, i % 2 ? -3 : 3, 0)}));
    }
    for (int column = 1; column <= 7; ++column) {
        EXPECT_EQ(cases(runs, column), tableOrder(runs)) << column;
    }
}

TEST_F(XMLReportHTMLOrder, OppositeCaseNumbersKeepTheOrderOfTheTable)
{
    auto const runs = table({run(-5, ""), run(5, ""), run(1, ""), run(-1, "")});
    EXPECT_EQ(cases(runs, 0), (Cases{1, -1, 5, -5}));
    ASSERT_EQ(tableOrder(runs), (Cases{1, 5, -5, -1})) << "what the order of equals rests on";
}

TEST_F(XMLReportHTMLOrder, NotANumberNeitherLosesNorRepeatsARun)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (unsigned seed = 0; seed < 100; ++seed) {
        Random random(seed);
        YHashTable<XMLReportInfo> runs;
        std::set<int> added;
        for (int i = 1 + random.below(100); i > 0; --i) {
            runs.add(i, run(i, "", {value(random.below(3) == 0 ? nan : random.number())}));
            added.insert(i);
        }
        Cases const listed = cases(runs, 2);
        ASSERT_EQ(listed.size(), added.size()) << seed;
        ASSERT_EQ(std::set<int>(listed.begin(), listed.end()), added) << seed;
    }
    EXPECT_EQ(cases(table({run(1, "", {value(nan)}), run(2, "", {value(5)})}), 2), (Cases{1, 2}));
    EXPECT_EQ(cases(table({run(1, "", {value(5)}), run(2, "", {value(nan)})}), 2), (Cases{1, 2}));
}

TEST_F(XMLReportHTMLOrder, TenThousandRunsInRandomOrderAreSorted)
{
    Random random(7);
    YHashTable<XMLReportInfo> runs;
    for (int i = 1; i <= 10000; ++i) {
        runs.add(i, run(i, "", {value(random.number())}));
    }
    Cases expected;
    for (XMLReportInfo const * run : PlainReport::byColumn(runs, 2)) {
        expected.push_back(run->caseNumber);
    }
    EXPECT_EQ(cases(runs, 2), expected);
}
