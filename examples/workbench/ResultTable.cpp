// SPDX-License-Identifier: BSD-3-Clause
// Runs become rows, merit functions and parameters columns.

#include "ResultTable.h"

#include "TableError.h"
#include "TextCheck.h"

#include <XMLReport.h>
#include <ZyString.h>

#include <QFile>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Items = ZyDeque<ZyDataTableItem>;

/** The runs of a file, and the columns that they need. */
struct Results
{
    YHashTable<XMLReportInfo> runs;
    XMLReportHeader header;
    std::vector<XMLReportInfo const *> byCase;
    std::vector<std::string> parameters; ///< in the order in which they are first changed
    bool hasSeeds = false;
};

void noteParameters(Results & results, XMLReportInfo const & run)
{
    for (XMLReportParameter const & parameter : run.parameters) {
        std::string const name = parameter.name.c_str();
        if (std::find(results.parameters.begin(), results.parameters.end(), name) ==
            results.parameters.end()) {
            results.parameters.push_back(name);
        }
    }
}

void arrange(Results & results)
{
    std::as_const(results.runs).forEach([&results](int, XMLReportInfo const & run) {
        results.byCase.push_back(&run);
    });
    std::sort(results.byCase.begin(), results.byCase.end(),
              [](auto const * a, auto const * b) { return a->caseNumber < b->caseNumber; });
    for (XMLReportInfo const * const run : results.byCase) {
        noteParameters(results, *run);
        results.hasSeeds = results.hasSeeds || run->hasSeed;
    }
}

Items headingOf(Results const & results)
{
    Items items{ZyVariant("Case"), ZyVariant("Run")};
    if (results.hasSeeds) {
        items.add(ZyVariant("Seed"));
    }
    for (XMLReportMeritFunction const & merit : results.header.meritFunctions) {
        items.add(ZyVariant(merit.value.c_str()));
    }
    for (std::string const & name : results.parameters) {
        items.add(ZyVariant(ZyString(name)));
    }
    return items;
}

ZyVariant usedValue(XMLReportInfo const & run, std::string const & name)
{
    for (XMLReportParameter const & parameter : run.parameters) {
        if (name == parameter.name.c_str()) {
            return ZyVariant(parameter.usedValue);
        }
    }
    return ZyVariant(ZyString());
}

Items rowOf(Results const & results, XMLReportInfo const & run)
{
    Items items{ZyVariant(run.caseNumber), ZyVariant(run.description.c_str())};
    if (results.hasSeeds) {
        items.add(run.hasSeed ? ZyVariant(ZyString(std::to_string(run.seed))) : ZyVariant(ZyString()));
    }
    for (int i = 0; i < results.header.meritFunctions.size(); ++i) {
        items.add(ZyVariant(run.sensValues[i].value));
    }
    for (std::string const & name : results.parameters) {
        items.add(usedValue(run, name));
    }
    return items;
}

} // namespace

ZyDataTable readResults(QString const & file)
{
    QFile look(file);
    openInput(look, file);
    Results results;
    if (!sp_CompileSensReportData(YString(file.toUtf8().constData()), &results.runs, &results.header)) {
        throw TableError::File(file, QStringLiteral("is no result file that can be read"));
    }
    arrange(results);
    ZyDataTable table;
    table.addRow(headingOf(results), ZyDataTable::Header);
    for (XMLReportInfo const * const run : results.byCase) {
        table.addRow(rowOf(results, *run), ZyDataTable::Data);
    }
    return table;
}
