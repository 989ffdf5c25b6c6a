// SPDX-License-Identifier: BSD-3-Clause
// Tables of runs for the tests, and tables as text.
#pragma once

#include "ReportTables.h"

#include <XMLReport.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace MswTables
{
using ReportTables::parameter;
using ReportTables::table;
using ReportTables::value;

/** A run of a case. */
inline XMLReportInfo run(int caseNumber)
{
    XMLReportInfo result;
    result.caseNumber = caseNumber;
    return result;
}

/** A run of a case with a name and without anything else. */
inline XMLReportInfo named(int caseNumber, char const * name)
{
    XMLReportInfo result = run(caseNumber);
    result.name = name;
    result.hasName = true;
    return result;
}

/** A parameter with a tolerance. */
inline XMLReportParameter parameter(char const * name, double nominal, double usedValue, double tol)
{
    XMLReportParameter result = parameter(name, nominal, usedValue);
    result.tol = tol;
    result.hasTol = true;
    return result;
}

/** An analysis that has something of everything. */
inline YHashTable<XMLReportInfo> sampleTable()
{
    XMLReportInfo nominal = run(1);
    nominal.description = "nominal <run> & \"more\"";
    nominal.hasDescription = true;
    nominal.sensValues = {value(1), value(2)};
    XMLReportInfo second = named(2, "Refdes:R1/DevParam:res");
    second.seed = -1234567890123;
    second.hasSeed = true;
    second.description = "second";
    second.hasDescription = true;
    second.sensValues = {value(3)};
    second.parameters = {parameter("R1", 1000, 1012.5, 0.05), parameter("", 0, -0.0)};
    return table({nominal, run(102), second, run(-3)});
}

inline XMLReportHeader sampleHeader()
{
    XMLReportHeader result;
    result.meritFunctions = {{"Gain (dB)", "g"}, {"BW", ""}};
    result.numCores = 2;
    result.date = "21 November 2026";
    result.title = "Filter <A> & B";
    result.analysis = "Monte Carlo";
    result.group = "tests";
    return result;
}

/** A number as "%g". */
inline std::string text(double number)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%g", number);
    return buffer;
}

/** A run as one line: case, description, name, values, number of parameters. */
inline std::string text(XMLReportInfo const & run)
{
    std::string line = "case " + std::to_string(run.caseNumber) + " [" + run.description.c_str() + "] (" +
                       run.name.c_str() + ")";
    for (XMLReportSensValue const & one : run.sensValues) {
        line += " {value " + text(one.value) + " delta " + text(one.delta) + " norm " + text(one.norm) +
                " status " + std::to_string(one.status) + "}";
    }
    return line + " " + std::to_string(run.parameters.size()) + " parameter(s)";
}

/** The runs in the order of their cases. */
inline std::vector<std::string> text(YHashTable<XMLReportInfo> const & runs)
{
    std::vector<std::pair<int, std::string>> lines;
    runs.forEach([&](int key, XMLReportInfo const & one) { lines.emplace_back(key, text(one)); });
    std::sort(lines.begin(), lines.end());
    std::vector<std::string> result;
    for (auto const & line : lines) {
        result.push_back(line.second);
    }
    return result;
}

/** The columns of a header, divided by blanks. */
inline std::string columns(XMLReportHeader const & header)
{
    std::string result;
    for (XMLReportMeritFunction const & function : header.meritFunctions) {
        result += (result.empty() ? "" : " ") + std::string(function.value.c_str());
    }
    return result;
}
} // namespace MswTables
