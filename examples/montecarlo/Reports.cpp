// SPDX-License-Identifier: BSD-3-Clause
// The HTML page and the workbook.

#include "Reports.h"

#include "AnalysisError.h"
#include "SavedFile.h"
#include "Terminal.h"
#include "WholePackage.h"

#include <ZyDataTable.h>
#include <ZyFilePath.h>
#include <ZyHistogram.h>
#include <ZyOOXMLWriter.h>

#include <algorithm>
#include <cmath>

namespace
{

YString escaped(YString const & text)
{
    return yString(QString::fromUtf8(text.c_str()).toHtmlEscaped());
}

/** The header as a page wants it: pages take texts as they are. */
XMLReportHeader headerForPage(XMLReportHeader header, unsigned int cores)
{
    header.numCores = int(cores);
    header.title = escaped(header.title);
    header.date = escaped(header.date);
    header.analysis = escaped(header.analysis);
    for (XMLReportMeritFunction & merit : header.meritFunctions) {
        merit.value = escaped(merit.value);
    }
    return header;
}

bool build(QString const & file, Report const & report, XMLReportHeader const & header, Mode mode)
{
    YString const path = yString(file);
    switch (mode) {
    case Mode::MonteCarlo:
        return sp_BuildMonteCarloHTMLReport(path, {}, report.table, header);
    case Mode::WorstCase:
        return sp_BuildWorstCaseHTMLReport(path, {}, report.table, header);
    case Mode::Sensitivity:
        return sp_BuildHTMLSensitivityReport(path, {}, report.table, header, 0);
    }
    return false;
}

ZyVariant figure(double value)
{
    return std::isfinite(value) ? ZyVariant(value) : ZyVariant("none");
}

ZyDeque<ZyDataTableItem> runHeadings(XMLReportHeader const & header)
{
    ZyDeque<ZyDataTableItem> row{ZyVariant("Case"), ZyVariant("Run"), ZyVariant("Component"),
                                 ZyVariant("Nominal"), ZyVariant("Value")};
    for (XMLReportMeritFunction const & merit : header.meritFunctions) {
        row.add(ZyVariant(merit.value.c_str()));
    }
    return row;
}

// The parameters of a run stand below each other, everything else beside them in tall cells.
ZyDeque<ZyDataTableItem> runRow(XMLReportInfo const & run, int merits)
{
    ZyDeque<ZyVariant> names;
    ZyDeque<ZyVariant> nominals;
    ZyDeque<ZyVariant> values;
    for (XMLReportParameter const & parameter : run.parameters) {
        names.add(ZyVariant(parameter.name.c_str()));
        nominals.add(figure(parameter.nominal));
        values.add(figure(parameter.usedValue));
    }
    if (run.parameters.isEmpty()) {
        names = nominals = values = ZyDeque<ZyVariant>{ZyVariant("")};
    }
    ZyDeque<ZyDataTableItem> row{ZyVariant(run.caseNumber), ZyVariant(run.description.c_str()),
                                 ZyDataTableItem(std::move(names)), ZyDataTableItem(std::move(nominals)),
                                 ZyDataTableItem(std::move(values))};
    for (int merit = 0; merit < merits; ++merit) {
        row.add(figure(run.sensValues[merit].value));
    }
    return row;
}

ZyDataTable runSheet(Report const & report)
{
    ZyDataTable sheet;
    sheet.addRow(runHeadings(report.header), ZyDataTable::Header);
    int last = 0;
    report.table.forEach([&last](int number, XMLReportInfo const &) { last = std::max(last, number); });
    for (int number = 1; number <= last; ++number) {
        if (XMLReportInfo const * const run = report.table.find(number)) {
            sheet.addRow(runRow(*run, report.header.meritFunctions.size()), ZyDataTable::Data);
        }
    }
    return sheet;
}

ZyDeque<ZyDataTableItem> histogramRow(ZyString const & name, ZyHistogram const & histogram)
{
    ZyDeque<ZyVariant> from;
    ZyDeque<ZyVariant> to;
    ZyDeque<ZyVariant> runs;
    ZyDeque<ZyVariant> shares;
    unsigned int const all = histogram.sumFrequency();
    for (ZyHistogram::Bin const & bin : histogram) {
        from.add(ZyVariant(bin.minimum()));
        to.add(ZyVariant(bin.maximum()));
        runs.add(ZyVariant(int(bin.frequency())));
        shares.add(ZyVariant(double(bin.frequency()) / double(all)));
    }
    return {ZyVariant(name), ZyDataTableItem(std::move(from)), ZyDataTableItem(std::move(to)),
            ZyDataTableItem(std::move(runs)), ZyDataTableItem(std::move(shares))};
}

ZyDataTable histogramSheet(Report const & report, std::vector<Spread> const & spreads)
{
    ZyDataTable sheet;
    sheet.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("Figure"), ZyVariant("From"), ZyVariant("To"),
                                          ZyVariant("Runs"), ZyVariant("Share")},
                 ZyDataTable::Header);
    for (std::size_t i = 0; i < spreads.size(); ++i) {
        ZyHistogram const histogram(spreads[i].values, binsFor(spreads[i].values.size()));
        if (histogram.numberBins() > 0) {
            sheet.addRow(histogramRow(report.header.meritFunctions[int(i)].value.c_str(), histogram),
                         ZyDataTable::Data);
        }
    }
    return sheet;
}

} // namespace

void writePage(QString const & file, Report const & report, Mode mode, unsigned int cores)
{
    if (!build(file, report, headerForPage(report.header, cores), mode)) {
        throw AnalysisError::At(file, QStringLiteral("cannot be written"));
    }
    checkEnd(file, QByteArrayLiteral("</html>\n"));
}

void writeWorkbook(QString const & file, Report const & report, std::vector<Spread> const & spreads)
{
    ZyFilePath const path{ZyString(file)};
    {
        ZyOOXMLWriter workbook(path, ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
        runSheet(report).writeOOXML(workbook, "Runs");
        if (!spreads.empty()) {
            histogramSheet(report, spreads).writeOOXML(workbook, "Histogram");
        }
        workbook.close();
    }
    if (!isWholeWorkbook(path, spreads.empty() ? 1 : 2, Interruption::check)) {
        throw AnalysisError::At(file, QStringLiteral("not all of it could be written; is the disk full?"));
    }
}
