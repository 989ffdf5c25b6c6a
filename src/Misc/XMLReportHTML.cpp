// SPDX-License-Identifier: BSD-3-Clause
// The three pages: the logs of a Monte Carlo and of a worst-case analysis, and the sensitivity report. Tabs,
// line feeds and the missing body element are part of the format.
#include <XMLReport.h>

#include "Misc/XMLReportOrder_p.h"
#include "Misc/XMLReportPage_p.h"

#include <string>
#include <string_view>

namespace
{
using Runs = XMLReportOrder::Runs;

/** Writes what all pages begin with. */
void writeHead(XMLReportPage & page, char const * title, YString const & cssPath)
{
    page.write("<html>\n\t<head>\n\t\t<title>", title, "</title>\n");
    page.writeStyle(cssPath);
    page.write("\t</head>\n");
}

// ---- the logs

void writeHeaderTable(XMLReportPage & page, XMLReportHeader const & header)
{
    page.write("\t<table class=\"headertable\">\n");
    page.write("\t\t<tr><td>Date:</td><td>", header.date, "</td></tr>\n");
    page.write("\t\t<tr><td>Analysis card:</td><td>", header.analysis, "</td></tr>\n");
    page.write("\t\t<tr><td>Title:</td><td>", header.title, "</td></tr>\n");
    page.write("\t\t<tr><td>Num Cores:</td><td>", header.numCores, "</td></tr>\n");
    page.write("\t</table>\n");
}

void writeResults(XMLReportPage & page, Runs const & runs, XMLReportHeader const & header)
{
    page.write(
        "\t<h2>Results</h2>\n\t<table class=\"datatable\">\n\t\t<tr><th>Run #</th><th>Description</th>");
    int const merits = header.meritFunctions.size();
    for (int i = 0; i < merits; ++i) {
        page.write("<th>", header.meritFunctions[i].value, "</th>");
    }
    page.write("</tr>\n");
    for (XMLReportInfo const * run : runs) {
        page.write("\t\t<tr><td>", run->caseNumber, "</td><td>", run->description, "</td>");
        for (int i = 0; i < merits; ++i) {
            page.write("<td>", run->sensValues[i].value, "</td>");
        }
        page.write("</tr>\n");
    }
    page.write("\t</table>\n");
}

void writeSeeds(XMLReportPage & page, Runs const & runs)
{
    page.write(
        "\t<h2>Seed Table</h2>\n\t<table class=\"datatable\">\n\t\t<tr><th>Run #</th><th>Seed</th></tr>\n");
    for (XMLReportInfo const * run : runs) {
        page.write("\t\t<tr><td>", run->caseNumber, "</td><td>", run->seed, "</td></tr>\n");
    }
    page.write("\t</table>\n");
}

/** Writes the cells of a perturbed parameter. */
void writePerturbation(XMLReportPage & page, XMLReportParameter const & parameter)
{
    page.write("<td>", parameter.name, "</td><td>", parameter.nominal, "</td><td>", parameter.usedValue,
               "</td>");
}

void writeParameters(XMLReportPage & page, XMLReportInfo const & run)
{
    page.write("\t<h2>Run ", run.caseNumber,
               "</h2>\n\t<table class=\"datatable\">\n"
               "\t\t<tr><th>Reference</th><th>Nominal</th><th>Value</th></tr>\n");
    for (XMLReportParameter const & parameter : run.parameters) {
        page.write("\t\t<tr>");
        writePerturbation(page, parameter);
        page.write("</tr>\n");
    }
    page.write("\t</table>\n");
}

/**
 * Writes the log of a Monte Carlo analysis, or of a worst-case analysis.
 *
 * \deliberate{worst-case-without-results} Without a merit function a Monte Carlo log lists the seeds instead; a
 * worst-case log, whose runs have none, has no such table.
 */
bool buildLog(YString const & path, YString const & cssPath, YHashTable<XMLReportInfo> const & table,
              XMLReportHeader const & header, bool monteCarlo)
{
    XMLReportPage page(path);
    if (!page.isOpen()) {
        return false;
    }
    char const * const title = monteCarlo ? "Monte Carlo Log" : "Worst Case Log";
    Runs const runs = XMLReportOrder::byCase(table);
    writeHead(page, title, cssPath);
    page.write("\t<h1>", title, "</h1>\n");
    writeHeaderTable(page, header);
    if (!header.meritFunctions.isEmpty()) {
        writeResults(page, runs, header);
    } else if (monteCarlo) {
        writeSeeds(page, runs);
    }
    for (XMLReportInfo const * run : runs) {
        writeParameters(page, *run);
    }
    page.write("</html>\n");
    return true;
}

// ---- the sensitivity page

/**
 * Writes the two heading rows.
 *
 * \deliberate{results-span-of-zero} Without a merit function there are no result columns, and their common heading
 * stays, with a span of 0.
 */
void writeHeadings(XMLReportPage & page, XMLReportHeader const & header)
{
    int const merits = header.meritFunctions.size();
    page.write("\t\t<tr><th colspan=\"2\">Run ID</th><th colspan=\"", 3 * merits,
               "\">Results</th>"
               "<th colspan=\"3\">Perturbation</th></tr>\n\t\t<tr><th>Case #</th><th>Reference</th>");
    for (int i = 0; i < merits; ++i) {
        page.write("<th>", header.meritFunctions[i].value, "</th><th>Delta</th><th>Norm</th>");
    }
    page.write("<th>Lot item</th><th>Nominal</th><th>Value</th></tr>\n");
}

/**
 * Writes value, delta and norm of one merit function.
 *
 * \deliberate{norm-cell-missing} A norm that was not computed has no cell at all, not even an empty one, so that the
 * cells behind it move to the left.
 */
void writeFigures(XMLReportPage & page, std::string_view cell, XMLReportSensValue const & record)
{
    page.write(cell, record.value, "</td>", cell, record.delta, "</td>");
    switch (record.status) {
    case XMLReportSensValue::Valid:
        page.write(cell, record.norm, "</td>");
        break;
    case XMLReportSensValue::DivisionByZero:
        page.write(cell, "!DIV0</td>");
        break;
    case XMLReportSensValue::Ambiguous:
        page.write(cell, "*</td>");
        break;
    default:
        break;
    }
}

/** Writes the rows of a run: one for each parameter, and one for a run without. */
void writeRows(XMLReportPage & page, XMLReportInfo const & run, int merits)
{
    int const parameters = run.parameters.size();
    std::string const spanning = "<td rowspan=\"" + std::to_string(parameters) + "\">";
    std::string_view const cell = parameters < 2 ? std::string_view("<td>") : spanning;
    page.write("\t\t<tr>", cell, run.caseNumber, "</td>", cell, run.description, "</td>");
    for (int i = 0; i < merits; ++i) {
        writeFigures(page, cell, run.sensValues[i]);
    }
    writePerturbation(page, run.parameters[0]); // the default one of a run without
    page.write("</tr>\n");
    for (int i = 1; i < parameters; ++i) {
        page.write("\t\t<tr>");
        writePerturbation(page, run.parameters[i]);
        page.write("</tr>\n");
    }
}
} // namespace

bool sp_BuildMonteCarloHTMLReport(YString const & path, YString const & cssPath,
                                  YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header)
{
    return buildLog(path, cssPath, table, header, true);
}

bool sp_BuildWorstCaseHTMLReport(YString const & path, YString const & cssPath,
                                 YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header)
{
    return buildLog(path, cssPath, table, header, false);
}

/** \deliberate{two-blanks-in-table} The table's tag has two blanks in front of its class. */
bool sp_BuildHTMLSensitivityReport(YString const & path, YString const & cssPath,
                                   YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header,
                                   int sortColumn)
{
    XMLReportPage page(path);
    if (!page.isOpen()) {
        return false;
    }
    writeHead(page, "Sensitivity Analysis Report", cssPath);
    page.write("\t<table  class=\"datatable\">\n");
    writeHeadings(page, header);
    for (XMLReportInfo const * run : XMLReportOrder::byColumn(table, sortColumn)) {
        writeRows(page, *run, header.meritFunctions.size());
    }
    page.write("\t</table>\n</html>\n");
    return true;
}
