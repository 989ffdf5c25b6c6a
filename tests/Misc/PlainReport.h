// SPDX-License-Identifier: BSD-3-Clause
// The reports once more, written down call for call with formatted output, as slow and as plain as can be:
// what the pages are compared with.
#pragma once

#include <XMLReport.h>

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <strings.h>
#include <vector>

namespace PlainReport
{
using Runs = std::vector<XMLReportInfo const *>;

class Page
{
public:
    __attribute__((format(printf, 2, 3))) void print(char const * format, ...)
    {
        std::va_list arguments;
        va_start(arguments, format);
        int const size = std::vsnprintf(nullptr, 0, format, arguments);
        va_end(arguments);
        std::string text(static_cast<std::size_t>(size) + 1, '\0');
        va_start(arguments, format);
        std::vsnprintf(text.data(), text.size(), format, arguments);
        va_end(arguments);
        m_text.append(text, 0, text.size() - 1);
    }
    /** An empty \a css stands for the built-in style. */
    void style(std::string const & css)
    {
        m_text += !css.empty()
                      ? "<style>\n" + css + "</style>\n"
                      : "\t\t<style>\n"
                        "\t\t\th1, h2, p { font-family: 'Open Sans',sans-serif; }\n"
                        "\t\t\th2 { margin-left: 40px;}\n"
                        "\t\t\t.datatable { margin-left: 80px; font-family: 'Open Sans',sans-serif;}\n"
                        "\t\t\t.datatable th { text-align: left;background-color: #4CAF50;color: white;}\n"
                        "\t\t\t.datatable td { width: 200px;}\n"
                        "\t\t\t.headertable { width: 100%; margin-left: 40px; font-family: 'Open "
                        "Sans',sans-serif;}\n"
                        "\t\t\t.headertable td { width: auto;}\n"
                        "\t\t</style>\n";
    }
    std::string const & text() const { return m_text; }

private:
    std::string m_text;
};

/** Sorts stably by "goes in front of". */
template <class Before>
Runs sorted(YHashTable<XMLReportInfo> const & table, Before before)
{
    Runs runs;
    table.forEach([&](int, XMLReportInfo const & run) { runs.push_back(&run); });
    std::stable_sort(runs.begin(), runs.end(),
                     [&](XMLReportInfo const * a, XMLReportInfo const * b) { return before(*a, *b); });
    return runs;
}

inline double magnitude(int number)
{
    return std::fabs(static_cast<double>(number));
}

inline Runs byCase(YHashTable<XMLReportInfo> const & table)
{
    return sorted(table, [](XMLReportInfo const & a, XMLReportInfo const & b) {
        return magnitude(a.caseNumber) < magnitude(b.caseNumber);
    });
}

/** For the columns from 0 to the last one but one; no NaN. */
inline Runs byColumn(YHashTable<XMLReportInfo> const & table, int column)
{
    if (column == 0) {
        return byCase(table);
    }
    if (column == 1) {
        return sorted(table, [](XMLReportInfo const & a, XMLReportInfo const & b) {
            return strcasecmp(a.description.c_str(), b.description.c_str()) < 0;
        });
    }
    auto const key = [column](XMLReportInfo const & run) {
        XMLReportSensValue const & record = run.sensValues[(column - 2) / 3];
        int const part = (column - 2) % 3;
        return std::fabs(part == 0 ? record.value : part == 1 ? record.delta : record.norm);
    };
    return sorted(table, [&](XMLReportInfo const & a, XMLReportInfo const & b) { return key(a) > key(b); });
}

inline std::string log(YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header,
                       bool monteCarlo, std::string const & css = "")
{
    char const * const title = monteCarlo ? "Monte Carlo Log" : "Worst Case Log";
    Runs const runs = byCase(table);
    Page page;
    page.print("<html>\n\t<head>\n\t\t<title>%s</title>\n", title);
    page.style(css);
    page.print("\t</head>\n\t<h1>%s</h1>\n\t<table class=\"headertable\">\n", title);
    page.print("\t\t<tr><td>Date:</td><td>%s</td></tr>\n", header.date.c_str());
    page.print("\t\t<tr><td>Analysis card:</td><td>%s</td></tr>\n", header.analysis.c_str());
    page.print("\t\t<tr><td>Title:</td><td>%s</td></tr>\n", header.title.c_str());
    page.print("\t\t<tr><td>Num Cores:</td><td>%d</td></tr>\n\t</table>\n", header.numCores);
    if (header.meritFunctions.size() > 0) {
        page.print("\t<h2>Results</h2>\n\t<table class=\"datatable\">\n");
        page.print("\t\t<tr><th>Run #</th><th>Description</th>");
        for (auto const & merit : header.meritFunctions) {
            page.print("<th>%s</th>", merit.value.c_str());
        }
        page.print("</tr>\n");
        for (auto const * run : runs) {
            page.print("\t\t<tr><td>%d</td><td>%s</td>", run->caseNumber, run->description.c_str());
            for (int i = 0; i < header.meritFunctions.size(); ++i) {
                page.print("<td>%g</td>", run->sensValues[i].value);
            }
            page.print("</tr>\n");
        }
        page.print("\t</table>\n");
    } else if (monteCarlo) {
        page.print("\t<h2>Seed Table</h2>\n\t<table class=\"datatable\">\n\t\t<tr><th>Run "
                   "#</th><th>Seed</th></tr>\n");
        for (auto const * run : runs) {
            page.print("\t\t<tr><td>%d</td><td>%lld</td></tr>\n", run->caseNumber,
                       static_cast<long long>(run->seed));
        }
        page.print("\t</table>\n");
    }
    for (auto const * run : runs) {
        page.print("\t<h2>Run %d</h2>\n\t<table class=\"datatable\">\n", run->caseNumber);
        page.print("\t\t<tr><th>Reference</th><th>Nominal</th><th>Value</th></tr>\n");
        for (auto const & parameter : run->parameters) {
            page.print("\t\t<tr><td>%s</td><td>%g</td><td>%g</td></tr>\n", parameter.name.c_str(),
                       parameter.nominal, parameter.usedValue);
        }
        page.print("\t</table>\n");
    }
    page.print("</html>\n");
    return page.text();
}

/** The first row of a run, up to the parameter. */
inline void figures(Page & page, XMLReportInfo const & run, int merits)
{
    int const span = run.parameters.size();
    bool const plain = span < 2;
    plain ? page.print("<td>%d</td><td>%s</td>", run.caseNumber, run.description.c_str())
          : page.print("<td rowspan=\"%d\">%d</td><td rowspan=\"%d\">%s</td>", span, run.caseNumber, span,
                       run.description.c_str());
    for (int i = 0; i < merits; ++i) {
        XMLReportSensValue const & record = run.sensValues[i];
        plain ? page.print("<td>%g</td><td>%g</td>", record.value, record.delta)
              : page.print("<td rowspan=\"%d\">%g</td><td rowspan=\"%d\">%g</td>", span, record.value, span,
                           record.delta);
        if (record.status == 0) {
            plain ? page.print("<td>%g</td>", record.norm)
                  : page.print("<td rowspan=\"%d\">%g</td>", span, record.norm);
        } else if (record.status == 1) {
            plain ? page.print("<td>!DIV0</td>") : page.print("<td rowspan=\"%d\">!DIV0</td>", span);
        } else if (record.status == 2) {
            plain ? page.print("<td>*</td>") : page.print("<td rowspan=\"%d\">*</td>", span);
        }
    }
}

inline std::string sensitivity(YHashTable<XMLReportInfo> const & table, XMLReportHeader const & header,
                               int column, std::string const & css = "")
{
    int const merits = header.meritFunctions.size();
    Page page;
    page.print("<html>\n\t<head>\n\t\t<title>Sensitivity Analysis Report</title>\n");
    page.style(css);
    page.print("\t</head>\n\t<table  class=\"datatable\">\n\t\t<tr><th colspan=\"2\">Run ID</th>");
    page.print("<th colspan=\"%d\">Results</th><th colspan=\"3\">Perturbation</th></tr>\n", 3 * merits);
    page.print("\t\t<tr><th>Case #</th><th>Reference</th>");
    for (auto const & merit : header.meritFunctions) {
        page.print("<th>%s</th><th>Delta</th><th>Norm</th>", merit.value.c_str());
    }
    page.print("<th>Lot item</th><th>Nominal</th><th>Value</th></tr>\n");
    for (auto const * run : byColumn(table, column)) {
        int const rows = std::max(run->parameters.size(), 1);
        for (int row = 0; row < rows; ++row) {
            page.print("\t\t<tr>");
            if (row == 0) {
                figures(page, *run, merits);
            }
            XMLReportParameter const & parameter = run->parameters[row];
            page.print("<td>%s</td><td>%g</td><td>%g</td></tr>\n", parameter.name.c_str(), parameter.nominal,
                       parameter.usedValue);
        }
    }
    page.print("\t</table>\n</html>\n");
    return page.text();
}
} // namespace PlainReport
