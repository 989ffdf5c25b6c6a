// SPDX-License-Identifier: BSD-3-Clause
// Tables of runs for the tests of the reports, in the words of the reports.
#pragma once

#include <XMLReport.h>

#include <initializer_list>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace ReportTables
{
/** Two lines a call do not say more than one: all that the pages show of a run. */
inline XMLReportInfo run(int caseNumber, char const * description,
                         std::initializer_list<XMLReportSensValue> values = {},
                         std::initializer_list<XMLReportParameter> parameters = {})
{
    XMLReportInfo made;
    made.caseNumber = caseNumber;
    made.description = description;
    made.sensValues = values;
    made.parameters = parameters;
    return made;
}

inline XMLReportSensValue value(double value, double delta = 0, double norm = 0, int status = 3)
{
    XMLReportSensValue made;
    made.value = value;
    made.delta = delta;
    made.norm = norm;
    made.status = status;
    return made;
}

inline XMLReportParameter parameter(char const * name, double nominal, double used)
{
    XMLReportParameter made;
    made.name = name;
    made.nominal = nominal;
    made.usedValue = used;
    return made;
}

/** A table of runs, added in the order in which they stand. */
inline YHashTable<XMLReportInfo> table(std::vector<XMLReportInfo> const & runs)
{
    YHashTable<XMLReportInfo> made;
    for (XMLReportInfo const & run : runs) {
        made.add(run.caseNumber, run);
    }
    return made;
}

/** A header with merit functions of these texts. */
inline XMLReportHeader header(std::initializer_list<char const *> meritFunctions)
{
    XMLReportHeader made;
    for (char const * text : meritFunctions) {
        made.meritFunctions[made.meritFunctions.size()].value = text;
    }
    return made;
}

/** Four runs, added in an order that is not that of their cases; two merit functions. */
inline YHashTable<XMLReportInfo> fourRuns()
{
    auto runs =
        table({run(102, "", {value(19.875)}, {parameter("C1.c", 1e-9, 9.9e-10)}),
               run(2, "Ref: R1", {value(20.25), value(1234567)},
                   {parameter("R1.resistance", 1000, 1012.5), parameter("C1.c", 1e-9, 1.01e-9)}),
               run(1, "Run=1", {value(20.5), value(1e6)}), run(-3, "negative", {value(-0.0), value(1e-5)})});
    runs.find(1)->seed = 1;
    runs.find(2)->seed = -1234567890123;
    runs.find(102)->seed = 9007199254740993;
    return runs;
}

inline XMLReportHeader monteCarloHeader()
{
    XMLReportHeader made = header({"Gain (dB)", "BW"});
    made.meritFunctions[0].name = "g";
    made.date = "21 November 2026 10:15";
    made.analysis = "Monte Carlo, 4 runs";
    made.title = "Filter <A> & B";
    made.numCores = 2;
    return made;
}

/** Five runs with every status and 0 to 2 parameters; for the merit functions "Gain" and "BW". */
inline YHashTable<XMLReportInfo> fiveRuns()
{
    return table({run(1, "Run=1", {value(10, 0, 0, 0), value(5, 0, 0, 0)}),
                  run(2, "Ref: R1", {value(10.1, 0.1, 0.99009900990099009, 0), value(0, -5, 0, 1)},
                      {parameter("R1", 1000, 1010)}),
                  run(3, "Lot: A", {value(-12, -22, 0, 2), value(5.5, 0.5, 2.5, 0)},
                      {parameter("R2", 100, 101), parameter("R3", 200, 203)}),
                  run(4, "Lot: B", {value(10.1, 0.1, 0, 3), value(5, 0, 0, 1)},
                      {parameter("R2", 100, 99), parameter("R3", 200, 197)}),
                  run(5, "ref: r0", {value(3, -7, 0, 3), value(4, -1, 0, 2)}, {parameter("R4", 1, 2)})});
}

/** Random tables; the same for the same seed on every machine. */
class Random
{
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    int below(int limit) { return static_cast<int>(m_engine() % static_cast<unsigned>(limit)); }

    /** A number of everyday size, or one that is awkward to print; never a NaN. */
    double number()
    {
        static double const awkward[] = {0,      -0.0,     1e6,      999999.5, 1e-5,
                                         0.0001, 123456.5, 5e-324,   1.5e308,  -1234567,
                                         100000, 1e100,    -2.5e-10, 1.0 / 3,  HUGE_VAL};
        if (below(3) == 0) {
            return awkward[below(15)];
        }
        return (static_cast<double>(m_engine()) - 2e9) / 1e6;
    }

    std::string text(char const * prefix)
    {
        return below(8) == 0 ? std::string() : prefix + std::to_string(below(50));
    }

    XMLReportInfo run(int caseNumber, int merits)
    {
        XMLReportInfo made;
        made.caseNumber = caseNumber;
        made.description = text(below(2) == 0 ? "Ref: R" : "rEF: r");
        made.seed = static_cast<long long>(m_engine()) * below(1000) - 5000;
        for (int i = below(merits + 2); i > 0; --i) {
            made.sensValues.add(value(number(), number(), number(), below(6) - 1));
        }
        for (int i = below(6); i > 0; --i) {
            made.parameters.add(parameter(text("R").c_str(), number(), number()));
        }
        return made;
    }

    YHashTable<XMLReportInfo> table(int runs, int merits)
    {
        YHashTable<XMLReportInfo> made;
        for (int i = 0; i < runs; ++i) {
            int const caseNumber = below(10) == 0 ? below(1000) - 500 : i + 1;
            made.add(caseNumber, run(caseNumber, merits));
        }
        return made;
    }

private:
    std::mt19937 m_engine;
};
} // namespace ReportTables
