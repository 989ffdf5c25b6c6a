// SPDX-License-Identifier: BSD-3-Clause
// The figures that are computed from the values of all runs: deltas and normalised sensitivities.
#include "Misc/XMLReport_p.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int referenceCase = 1;
constexpr double tolerance = 1e-7;

/** How far a quotient lies from the first one; relative, unless that is 0. */
double difference(double quotient, double first)
{
    return first == 0 ? std::fabs(quotient) : std::fabs(quotient - first) / std::fabs(first);
}

/** The single quotient on which all parameters of a run agree. */
void setNorm(XMLReportInfo const & run, int index, XMLReportSensValue & result)
{
    bool error = false;
    double const first = run.getNormalisedSensitivity(0, index, &error);
    bool isAmbiguous = false;
    for (int parameter = 1; parameter < run.parameters.size() && !isAmbiguous; ++parameter) {
        isAmbiguous = difference(run.getNormalisedSensitivity(parameter, index, &error), first) > tolerance;
    }
    result.status = error         ? XMLReportSensValue::DivisionByZero
                    : isAmbiguous ? XMLReportSensValue::Ambiguous
                                  : XMLReportSensValue::Valid;
    result.norm = result.status == XMLReportSensValue::Valid ? first : 0.0;
}

/** All values, when every run has at least as many as the reference run. */
long long countAfter(YHashTable<XMLReportInfo> const & table, int columns)
{
    long long count = 0;
    table.forEach([&](int, XMLReportInfo const & run) { count += std::max(run.sensValues.size(), columns); });
    return count;
}
} // namespace

double XMLReportInfo::getNormalisedSensitivity(int parameter, int sensValue, bool * error) const
{
    XMLReportParameter const & moved = parameters[parameter];
    XMLReportSensValue const & result = sensValues[sensValue];
    *error = moved.usedValue == moved.nominal || result.value == 0;
    return *error ? 0.0 : result.delta / result.value * moved.nominal / (moved.usedValue - moved.nominal);
}

void XMLReportInfo::buildNormalisedSensitivity()
{
    for (int i = 0; i < sensValues.size(); ++i) {
        if (caseNumber == referenceCase) {
            sensValues[i].norm = 0.0;
            sensValues[i].status = XMLReportSensValue::Valid;
        } else {
            setNorm(*this, i, sensValues[i]);
        }
    }
}

bool XMLReport::computeDeltas(YHashTable<XMLReportInfo> & table)
{
    XMLReportInfo const * const reference = table.find(referenceCase);
    int const columns = reference ? reference->sensValues.size() : 0;
    if (countAfter(table, columns) > maxRecords) {
        return false;
    }
    for (int i = 0; i < columns; ++i) {
        double const value = reference->sensValues[i].value;
        table.forEach(
            [&](int, XMLReportInfo & run) { run.sensValues[i].delta = run.sensValues[i].value - value; });
    }
    table.forEach([](int, XMLReportInfo & run) { run.buildNormalisedSensitivity(); });
    return true;
}
