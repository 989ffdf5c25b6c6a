// SPDX-License-Identifier: BSD-3-Clause
// The HTML pages of 10,000 runs with 10 merit functions and 14 parameters each: against formatted output call
// for call, which is what the pages are told in, and against other ways to write the same bytes.
#include "Measure.h"
#include "peers/Workload.h"

#include <XMLReport.h>

#include <QFile>
#include <QTextStream>

#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace bench
{

namespace
{

constexpr int runCount = 10000;
constexpr int meritCount = 10;
constexpr int parameterCount = 14;

using Table = YHashTable<XMLReportInfo>;

XMLReportInfo makeRun(Random & random, int caseNumber)
{
    XMLReportInfo run;
    run.caseNumber = caseNumber;
    run.description = ("Ref: R" + std::to_string(caseNumber) + ".res (gauss)").c_str();
    for (int i = 0; i < meritCount; ++i) {
        XMLReportSensValue & record = run.sensValues[i];
        record.value = (random.unit() - 0.5) * 1000;
        record.delta = (random.unit() - 0.5) * 10;
        record.norm = random.unit();
        record.status = i % 4 == 3 ? 1 : 0;
    }
    for (int i = 0; i < parameterCount; ++i) {
        XMLReportParameter & parameter = run.parameters[i];
        parameter.name = ("R" + std::to_string(i) + ":res").c_str();
        parameter.nominal = 1000 + i;
        parameter.usedValue = 1000 * (0.9 + 0.2 * random.unit());
    }
    return run;
}

Table const & table()
{
    static Table const made = [] {
        Random random(15);
        Table runs;
        for (int i = 1; i <= runCount; ++i) {
            runs.add(i, makeRun(random, i));
        }
        return runs;
    }();
    return made;
}

XMLReportHeader const & header()
{
    static XMLReportHeader const made = [] {
        XMLReportHeader result;
        result.title = "benchmark";
        for (int i = 0; i < meritCount; ++i) {
            result.meritFunctions[i].value = ("Merit" + std::to_string(i)).c_str();
        }
        return result;
    }();
    return made;
}

/** The runs in the order of the pages. The peers need not sort. */
std::vector<XMLReportInfo const *> const & runs()
{
    static std::vector<XMLReportInfo const *> const made = [] {
        std::vector<XMLReportInfo const *> result;
        for (int i = 1; i <= runCount; ++i) {
            result.push_back(table().find(i));
        }
        return result;
    }();
    return made;
}

/** Every writer takes its style from here. */
std::string const & styleFile()
{
    static std::string const path = [] {
        std::string const made = dataFile("html-style.css");
        std::ofstream(made, std::ios::binary) << "td { width: 200px; }\n";
        return made;
    }();
    return path;
}

constexpr char style[] = "<style>\ntd { width: 200px; }\n</style>\n";

std::string contentOf(std::string const & path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void buildLog(std::string const & path)
{
    check(sp_BuildMonteCarloHTMLReport(path.c_str(), styleFile().c_str(), table(), header()), "no page");
}

void buildSensitivity(std::string const & path)
{
    check(sp_BuildHTMLSensitivityReport(path.c_str(), styleFile().c_str(), table(), header(), 0), "no page");
}

// ---- formatted output

void printLogFrame(std::FILE * file)
{
    std::fprintf(file, "<html>\n\t<head>\n\t\t<title>Monte Carlo Log</title>\n");
    std::fprintf(file, "%s", style);
    std::fprintf(file, "\t</head>\n\t<h1>Monte Carlo Log</h1>\n\t<table class=\"headertable\">\n");
    std::fprintf(file, "\t\t<tr><td>Date:</td><td>%s</td></tr>\n", header().date.c_str());
    std::fprintf(file, "\t\t<tr><td>Analysis card:</td><td>%s</td></tr>\n", header().analysis.c_str());
    std::fprintf(file, "\t\t<tr><td>Title:</td><td>%s</td></tr>\n", header().title.c_str());
    std::fprintf(file, "\t\t<tr><td>Num Cores:</td><td>%d</td></tr>\n\t</table>\n", header().numCores);
    std::fprintf(file, "\t<h2>Results</h2>\n\t<table class=\"datatable\">\n");
    std::fprintf(file, "\t\t<tr><th>Run #</th><th>Description</th>");
    for (int i = 0; i < meritCount; ++i) {
        std::fprintf(file, "<th>%s</th>", header().meritFunctions[i].value.c_str());
    }
    std::fprintf(file, "</tr>\n");
}

void printLog(std::string const & path)
{
    std::FILE * const file = std::fopen(path.c_str(), "w");
    printLogFrame(file);
    for (XMLReportInfo const * run : runs()) {
        std::fprintf(file, "\t\t<tr><td>%d</td><td>%s</td>", run->caseNumber, run->description.c_str());
        for (int i = 0; i < meritCount; ++i) {
            std::fprintf(file, "<td>%g</td>", run->sensValues[i].value);
        }
        std::fprintf(file, "</tr>\n");
    }
    std::fprintf(file, "\t</table>\n");
    for (XMLReportInfo const * run : runs()) {
        std::fprintf(file, "\t<h2>Run %d</h2>\n\t<table class=\"datatable\">\n", run->caseNumber);
        std::fprintf(file, "\t\t<tr><th>Reference</th><th>Nominal</th><th>Value</th></tr>\n");
        for (XMLReportParameter const & parameter : run->parameters) {
            std::fprintf(file, "\t\t<tr><td>%s</td><td>%g</td><td>%g</td></tr>\n", parameter.name.c_str(),
                         parameter.nominal, parameter.usedValue);
        }
        std::fprintf(file, "\t</table>\n");
    }
    std::fprintf(file, "</html>\n");
    std::fclose(file);
}

void printSensitivityFrame(std::FILE * file)
{
    std::fprintf(file, "<html>\n\t<head>\n\t\t<title>Sensitivity Analysis Report</title>\n");
    std::fprintf(file, "%s", style);
    std::fprintf(file, "\t</head>\n\t<table  class=\"datatable\">\n\t\t<tr><th colspan=\"2\">Run ID</th>");
    std::fprintf(file, "<th colspan=\"%d\">Results</th><th colspan=\"3\">Perturbation</th></tr>\n",
                 3 * meritCount);
    std::fprintf(file, "\t\t<tr><th>Case #</th><th>Reference</th>");
    for (int i = 0; i < meritCount; ++i) {
        std::fprintf(file, "<th>%s</th><th>Delta</th><th>Norm</th>",
                     header().meritFunctions[i].value.c_str());
    }
    std::fprintf(file, "<th>Lot item</th><th>Nominal</th><th>Value</th></tr>\n");
}

void printFigures(std::FILE * file, XMLReportInfo const & run)
{
    std::fprintf(file, "<td rowspan=\"%d\">%d</td><td rowspan=\"%d\">%s</td>", parameterCount, run.caseNumber,
                 parameterCount, run.description.c_str());
    for (XMLReportSensValue const & record : run.sensValues) {
        std::fprintf(file, "<td rowspan=\"%d\">%g</td><td rowspan=\"%d\">%g</td>", parameterCount,
                     record.value, parameterCount, record.delta);
        if (record.status == 0) {
            std::fprintf(file, "<td rowspan=\"%d\">%g</td>", parameterCount, record.norm);
        } else {
            std::fprintf(file, "<td rowspan=\"%d\">!DIV0</td>", parameterCount);
        }
    }
}

void printSensitivity(std::string const & path)
{
    std::FILE * const file = std::fopen(path.c_str(), "w");
    printSensitivityFrame(file);
    for (XMLReportInfo const * run : runs()) {
        for (int i = 0; i < parameterCount; ++i) {
            std::fprintf(file, "\t\t<tr>");
            if (i == 0) {
                printFigures(file, *run);
            }
            XMLReportParameter const & parameter = run->parameters[i];
            std::fprintf(file, "<td>%s</td><td>%g</td><td>%g</td>", parameter.name.c_str(), parameter.nominal,
                         parameter.usedValue);
            std::fprintf(file, "</tr>\n");
        }
    }
    std::fprintf(file, "\t</table>\n</html>\n");
    std::fclose(file);
}

// ---- other ways; Out has operator<< for char const *, int and double

template <class Out>
void writeLogFrame(Out & out)
{
    out << "<html>\n\t<head>\n\t\t<title>Monte Carlo Log</title>\n" << style << "\t</head>\n";
    out << "\t<h1>Monte Carlo Log</h1>\n\t<table class=\"headertable\">\n";
    out << "\t\t<tr><td>Date:</td><td>" << header().date.c_str() << "</td></tr>\n";
    out << "\t\t<tr><td>Analysis card:</td><td>" << header().analysis.c_str() << "</td></tr>\n";
    out << "\t\t<tr><td>Title:</td><td>" << header().title.c_str() << "</td></tr>\n";
    out << "\t\t<tr><td>Num Cores:</td><td>" << header().numCores << "</td></tr>\n\t</table>\n";
    out << "\t<h2>Results</h2>\n\t<table class=\"datatable\">\n\t\t<tr><th>Run #</th><th>Description</th>";
    for (int i = 0; i < meritCount; ++i) {
        out << "<th>" << header().meritFunctions[i].value.c_str() << "</th>";
    }
    out << "</tr>\n";
}

template <class Out>
void writeLog(Out & out)
{
    writeLogFrame(out);
    for (XMLReportInfo const * run : runs()) {
        out << "\t\t<tr><td>" << run->caseNumber << "</td><td>" << run->description.c_str() << "</td>";
        for (int i = 0; i < meritCount; ++i) {
            out << "<td>" << run->sensValues[i].value << "</td>";
        }
        out << "</tr>\n";
    }
    out << "\t</table>\n";
    for (XMLReportInfo const * run : runs()) {
        out << "\t<h2>Run " << run->caseNumber << "</h2>\n\t<table class=\"datatable\">\n"
            << "\t\t<tr><th>Reference</th><th>Nominal</th><th>Value</th></tr>\n";
        for (XMLReportParameter const & parameter : run->parameters) {
            out << "\t\t<tr><td>" << parameter.name.c_str() << "</td><td>" << parameter.nominal << "</td><td>"
                << parameter.usedValue << "</td></tr>\n";
        }
        out << "\t</table>\n";
    }
    out << "</html>\n";
}

/** All in one text, numbers by std::to_chars. */
struct Collected
{
    std::string text;

    Collected & operator<<(char const * more)
    {
        text += more;
        return *this;
    }
    template <class... Format>
    Collected & number(Format... format)
    {
        char digits[32];
        text.append(digits, std::to_chars(digits, digits + 32, format...).ptr);
        return *this;
    }
    Collected & operator<<(int value) { return number(value); }
    Collected & operator<<(double value) { return number(value, std::chars_format::general, 6); }
};

void collectLog(std::string const & path)
{
    Collected out;
    writeLog(out);
    std::FILE * const file = std::fopen(path.c_str(), "wb");
    std::fwrite(out.text.data(), 1, out.text.size(), file);
    std::fclose(file);
}

void streamLog(std::string const & path)
{
    std::ofstream out(path, std::ios::binary);
    writeLog(out);
}

void streamLogQt(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::WriteOnly);
    QTextStream out(&file);
    out.setCodec("UTF-8");
    writeLog(out);
}

// ----

using Write = void (*)(std::string const & path);

/** Every writer is held to the bytes of formatted output. */
void registerPage(std::string const & family, Write reference,
                  std::vector<std::pair<char const *, Write>> const & ways)
{
    std::string const expected = dataFile(family + ".html");
    for (auto const & [name, write] : ways) {
        std::string const path = dataFile(family + "-" + name + ".html");
        addJob(
            family + "/" + name, [path, write = write] { write(path); },
            [expected, reference] { reference(expected); },
            [path, expected] { check(contentOf(path) == contentOf(expected), "the page differs"); });
    }
}

} // namespace

void registerBenchmarks()
{
    static_cast<void>(runs());
    static_cast<void>(header());
    static_cast<void>(styleFile());
    registerPage("html-log", printLog,
                 {{"ours", buildLog},
                  {"fprintf", printLog},
                  {"to_chars", collectLog},
                  {"ofstream", streamLog},
                  {"QTextStream", streamLogQt}});
    registerPage("html-sensitivity", printSensitivity,
                 {{"ours", buildSensitivity}, {"fprintf", printSensitivity}});
}

} // namespace bench
