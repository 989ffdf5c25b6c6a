// SPDX-License-Identifier: BSD-3-Clause
// The records of an analysis: what they are at first, and the normalised sensitivity.
#include <XMLReport.h>

#include "MswTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace
{
using MswTables::parameter;

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

static_assert(std::is_same_v<decltype(XMLReportInfo::seed), kb_int64>);
static_assert(std::is_same_v<decltype(XMLReportInfo::caseNumber), int>);
static_assert(XMLReportSensValue::Valid == 0 && XMLReportSensValue::DivisionByZero == 1 &&
              XMLReportSensValue::Ambiguous == 2 && XMLReportSensValue::NotComputed == 3);

XMLReportSensValue record(double value, double delta)
{
    XMLReportSensValue result;
    result.value = value;
    result.delta = delta;
    return result;
}

/** The parameters of a run as pairs of nominal and used value, and what comes of them. */
struct Sensitivity
{
    char const * label;
    int caseNumber;
    double value;
    double delta;
    std::vector<std::pair<double, double>> parameters;
    int status;
    double norm;
};

std::ostream & operator<<(std::ostream & out, Sensitivity const & one)
{
    return out << one.label;
}

class XMLReportSensitivity : public testing::TestWithParam<Sensitivity>
{};

XMLReportInfo runOf(Sensitivity const & one)
{
    XMLReportInfo run = MswTables::run(one.caseNumber);
    run.sensValues.add(record(one.value, one.delta));
    for (auto const & [nominal, used] : one.parameters) {
        run.parameters.add(parameter("p", nominal, used));
    }
    return run;
}

constexpr double quotient = 0.99009900990099009;
} // namespace

TEST(XMLReportSensValue, IsAllZeroAndNotComputedAtFirst)
{
    XMLReportSensValue const value;
    EXPECT_EQ(value.value, 0.0);
    EXPECT_EQ(value.delta, 0.0);
    EXPECT_EQ(value.norm, 0.0);
    EXPECT_EQ(value.status, 3);
}

TEST(XMLReportParameter, IsAllZeroWithoutToleranceAtFirst)
{
    XMLReportParameter const one;
    EXPECT_TRUE(one.name.isEmpty());
    EXPECT_EQ(one.nominal, 0.0);
    EXPECT_EQ(one.tol, 0.0);
    EXPECT_EQ(one.usedValue, 0.0);
    EXPECT_FALSE(one.hasTol);
}

TEST(XMLReportMeritFunction, HoldsTheValueBeforeTheName)
{
    XMLReportMeritFunction const function = {"Gain (dB)", "g"};
    EXPECT_EQ(function.value, "Gain (dB)");
    EXPECT_EQ(function.name, "g");
}

TEST(XMLReportHeader, IsEmptyAtFirst)
{
    XMLReportHeader const header;
    EXPECT_TRUE(header.meritFunctions.isEmpty());
    EXPECT_EQ(header.numCores, 0);
    EXPECT_TRUE(header.date.isEmpty() && header.title.isEmpty() && header.analysis.isEmpty() &&
                header.group.isEmpty());
}

TEST(XMLReportInfo, IsEmptyAtFirst)
{
    XMLReportInfo const run;
    EXPECT_FALSE(run.hasName || run.hasDescription || run.hasSeed);
    EXPECT_EQ(run.caseNumber, 0);
    EXPECT_EQ(run.seed, 0);
    EXPECT_TRUE(run.sensValues.isEmpty() && run.parameters.isEmpty());
}

TEST(XMLReportInfo, ReadsMissingRecordsAsDefaultOnesAndGrowsWhenWritten)
{
    XMLReportInfo run;
    EXPECT_EQ(std::as_const(run).sensValues[7].status, 3);
    EXPECT_EQ(std::as_const(run).parameters[7].usedValue, 0.0);
    EXPECT_EQ(&std::as_const(run).sensValues[0], &std::as_const(run).sensValues[7]);
    EXPECT_TRUE(run.sensValues.isEmpty());
    run.sensValues[2].value = 1;
    run.parameters[1].hasTol = true;
    ASSERT_EQ(run.sensValues.size(), 3);
    EXPECT_EQ(run.sensValues[0].status, 3);
    ASSERT_EQ(run.parameters.size(), 2);
    EXPECT_FALSE(run.parameters[0].hasTol);
}

TEST_P(XMLReportSensitivity, IsAsTold)
{
    XMLReportInfo run = runOf(GetParam());
    run.buildNormalisedSensitivity();
    ASSERT_EQ(run.sensValues.size(), 1);
    EXPECT_EQ(run.sensValues[0].status, GetParam().status);
    if (std::isnan(GetParam().norm)) {
        EXPECT_TRUE(std::isnan(run.sensValues[0].norm));
    } else {
        EXPECT_EQ(run.sensValues[0].norm, GetParam().norm);
    }
    EXPECT_EQ(run.parameters.size(), static_cast<int>(GetParam().parameters.size()))
        << "reading has grown it";
}

// The value 5.05 and its delta as they come from 5.05 - 5 in the program that made these figures.
INSTANTIATE_TEST_SUITE_P(
    Examples, XMLReportSensitivity,
    testing::Values(
        Sensitivity{"one parameter", 2, 5.05, 0.05, {{1000, 1010}}, 0, quotient},
        Sensitivity{"used equals nominal", 2, 5, 0.5, {{1000, 1000}}, 1, 0},
        Sensitivity{"value 0", 2, 0, -5, {{1000, 1010}}, 1, 0},
        Sensitivity{"two that agree", 2, 5.05, 0.05, {{1000, 1010}, {2e-9, 2.02e-9}}, 0, quotient},
        Sensitivity{"two that disagree", 2, 5.05, 0.05, {{1000, 1010}, {1000, 1020}}, 2, 0},
        Sensitivity{"first cannot, second can", 2, 5.05, 0.05, {{10, 10}, {1000, 1010}}, 2, 0},
        Sensitivity{"first can, second cannot", 2, 5.05, 0.05, {{1000, 1010}, {10, 10}}, 1, 0},
        Sensitivity{
            "second disagrees, third cannot", 2, 5.05, 0.05, {{1000, 1010}, {1000, 1020}, {10, 10}}, 2, 0},
        Sensitivity{"case 1", 1, 5, 0, {{1000, 1010}, {1000, 1020}}, 0, 0},
        Sensitivity{"case 1 with a value of 0", 1, 0, 0, {}, 0, 0},
        Sensitivity{"no parameter", 2, 5.05, 0.05, {}, 1, 0},
        Sensitivity{"delta 0, two parameters", 2, 5, 0, {{1000, 1010}, {5, 6}}, 0, 0},
        Sensitivity{"within the tolerance", 2, 5.05, 0.05, {{1000, 1010}, {1000, 1010.0000005}}, 0, quotient},
        Sensitivity{"beyond the tolerance", 2, 5.05, 0.05, {{1000, 1010}, {1000, 1010.00001}}, 2, 0},
        Sensitivity{"nominal 0", 2, 5.05, 0.05, {{0, 1}}, 0, 0},
        Sensitivity{"value NaN", 2, noNumber, noNumber, {{1000, 1010}}, 0, noNumber},
        Sensitivity{"first cannot, second gives 0", 2, 5.05, 0.05, {{10, 10}, {0, 1}}, 0, 0}));

INSTANTIATE_TEST_SUITE_P(
    NoNumbers, XMLReportSensitivity,
    testing::Values(
        Sensitivity{"nominal NaN", 2, 5.05, 0.05, {{noNumber, 1010}}, 0, noNumber},
        Sensitivity{"used and nominal NaN", 2, 5.05, 0.05, {{noNumber, noNumber}}, 0, noNumber},
        Sensitivity{"used infinite", 2, 5.05, 0.05, {{1000, infinity}}, 0, 0},
        Sensitivity{"both infinite", 2, 5.05, 0.05, {{infinity, infinity}}, 1, 0},
        Sensitivity{"infinities of both signs", 2, 5.05, 0.05, {{infinity, -infinity}}, 0, noNumber},
        Sensitivity{"value infinite", 2, infinity, infinity, {{1000, 1010}}, 0, noNumber},
        Sensitivity{
            "second NaN does not disagree", 2, 5.05, 0.05, {{1000, 1010}, {1000, noNumber}}, 0, quotient},
        Sensitivity{
            "first NaN does not disagree", 2, 5.05, 0.05, {{1000, noNumber}, {1000, 1010}}, 0, noNumber},
        Sensitivity{"nominal of both zeros", 2, 5.05, 0.05, {{0.0, -0.0}}, 1, 0},
        Sensitivity{"value -0", 2, -0.0, 0.05, {{1000, 1010}}, 1, 0}));

TEST(XMLReportInfo, LeavesARunWithoutValuesAlone)
{
    XMLReportInfo run = MswTables::run(2);
    run.buildNormalisedSensitivity();
    EXPECT_TRUE(run.sensValues.isEmpty());
    EXPECT_TRUE(run.parameters.isEmpty());
}

TEST(XMLReportInfo, TellsWhetherThereIsAQuotient)
{
    XMLReportInfo run = MswTables::run(2);
    run.sensValues.add(record(5.05, 0.05));
    run.parameters = {parameter("a", 1000, 1010), parameter("b", 5, 5)};
    XMLReportInfo const & fixed = run;
    bool error = true;
    EXPECT_EQ(fixed.getNormalisedSensitivity(0, 0, &error), quotient);
    EXPECT_FALSE(error);
    EXPECT_EQ(fixed.getNormalisedSensitivity(1, 0, &error), 0.0);
    EXPECT_TRUE(error);
}

TEST(XMLReportInfo, HasNoQuotientOfMissingRecords)
{
    XMLReportInfo run = MswTables::run(2);
    run.sensValues.add(record(5.05, 0.05));
    run.parameters.add(parameter("a", 1000, 1010));
    XMLReportInfo const & fixed = run;
    for (auto const & [index, value] :
         {std::pair(1, 0), std::pair(0, 1), std::pair(-1, 0), std::pair(0, -1)}) {
        bool error = false;
        EXPECT_EQ(fixed.getNormalisedSensitivity(index, value, &error), 0.0);
        EXPECT_TRUE(error) << index << " " << value;
    }
}

TEST(XMLReportInfo, Deliberate_norm_by_own_value)
{
    XMLReportInfo run = MswTables::run(2);
    run.sensValues.add(record(10, 5)); // the reference run has 5
    run.parameters.add(parameter("a", 100, 200));
    bool error = true;
    EXPECT_EQ(std::as_const(run).getNormalisedSensitivity(0, 0, &error), 0.5);
}

TEST(XMLReportInfo, Deliberate_last_parameter_decides_the_error)
{
    XMLReportInfo run = MswTables::run(2);
    run.sensValues.add(record(5.05, 0.05));
    run.parameters = {parameter("fixed", 10, 10), parameter("moved", 1000, 1010)};
    run.buildNormalisedSensitivity();
    EXPECT_EQ(run.sensValues[0].status, XMLReportSensValue::Ambiguous);
    run.parameters = {parameter("moved", 1000, 1010), parameter("fixed", 10, 10)};
    run.buildNormalisedSensitivity();
    EXPECT_EQ(run.sensValues[0].status, XMLReportSensValue::DivisionByZero);
}

TEST(XMLReportInfo, ForgetsWhatWasComputedBefore)
{
    XMLReportInfo run = MswTables::run(2);
    run.sensValues.add(record(0, 1));
    run.sensValues[0].norm = 7;
    run.sensValues[0].status = 0;
    run.buildNormalisedSensitivity();
    EXPECT_EQ(run.sensValues[0].norm, 0.0);
    EXPECT_EQ(run.sensValues[0].status, 1);
}
