// SPDX-License-Identifier: BSD-3-Clause
// What reading a result file derives, against another computation of it: a script makes random files and
// computes deltas, sensitivities, statuses and labels from their definitions, with a reader of its own.
#include "Program.h"
#include "ScratchDirectory.h"

#include <XMLReport.h>

#include <cstdio>
#include <fstream>

namespace
{
constexpr int tables = 1000;

/** A text as hexadecimal bytes. */
std::string hexadecimal(YString const & text)
{
    std::string digits;
    for (char const * c = text.c_str(); *c; ++c) {
        char pair[3];
        std::snprintf(pair, sizeof(pair), "%02x", static_cast<unsigned char>(*c));
        digits += pair;
    }
    return digits.empty() ? "-" : digits;
}

void print(std::ostream & out, int caseNumber, XMLReportInfo const & run)
{
    out << "run " << caseNumber << ' ' << hexadecimal(run.description) << '\n';
    for (XMLReportSensValue const & record : run.sensValues) {
        char line[128];
        std::snprintf(line, sizeof(line), "%a %a %a %d\n", record.value, record.delta, record.norm,
                      record.status);
        out << line;
    }
}
} // namespace

TEST(XMLReportDerived, FiguresAndLabelsOfThousandRandomTablesAreThoseOfAnotherComputation)
{
    ScratchDirectory const folder;
    QString const path = QString::fromStdString(folder.path().string());
    Program::script("Misc/derived_figures.py", {QStringLiteral("make"), path, QString::number(tables)});
    std::ofstream results(folder / "results.txt", std::ios::binary);
    for (int i = 0; i < tables; ++i) {
        std::string const name = std::to_string(i) + ".msw";
        YHashTable<XMLReportInfo> runs;
        XMLReportHeader header;
        ASSERT_TRUE(sp_CompileSensReportData((folder / name).c_str(), &runs, &header)) << name;
        results << "table " << name << '\n';
        runs.forEach([&](int caseNumber, XMLReportInfo const & run) { print(results, caseNumber, run); });
    }
    results.close();
    EXPECT_EQ(Program::script("Misc/derived_figures.py",
                              {QStringLiteral("check"), path, path + QStringLiteral("/results.txt")}),
              "1000 tables, 0 differ\nall statuses, many labels\n");
}
