// SPDX-License-Identifier: BSD-3-Clause
// The pages as a browser takes them in: headless Chromium loads each of them and gives back the document that
// it has made of it, of which a script lists titles, rows and cells.
#include "PlainReport.h"
#include "Program.h"
#include "ReportPages.h"
#include "ReportTables.h"

#include <QProcessEnvironment>
#include <QUrl>

namespace
{
using namespace ReportTables;

class XMLReportHTMLBrowser : public testing::Test
{
protected:
    void SetUp() override
    {
        QString const usual = QStringLiteral("/usr/bin/chromium");
        m_browser = QFileInfo(usual).isExecutable() ? usual : Program::find(QStringLiteral("chromium"));
        if (m_browser.isEmpty()) {
            GTEST_SKIP() << "no Chromium on this machine";
        }
    }

    /** What the page that has been built last looks like. */
    std::string listing()
    {
        QString const dom = QString::fromStdString(pages.folder / "dom.html");
        call(m_browser, arguments(), QString(), dom);
        QString const listed = QString::fromStdString(pages.folder / "list.txt");
        call(Program::python(), {Program::data("Misc/list_page.py")}, dom, listed);
        return pages.folder.read("list.txt");
    }

    ReportPages pages;

private:
    /** A profile in the test's own folder, nothing in the background, and no sandbox, which root may not
     * have. */
    QStringList arguments() const
    {
        return {QStringLiteral("--headless"),
                QStringLiteral("--no-sandbox"),
                QStringLiteral("--disable-gpu"),
                QStringLiteral("--disable-dev-shm-usage"),
                QStringLiteral("--disable-extensions"),
                QStringLiteral("--disable-background-networking"),
                QStringLiteral("--disable-component-update"),
                QStringLiteral("--disable-crash-reporter"),
                QStringLiteral("--disable-sync"),
                QStringLiteral("--no-first-run"),
                QStringLiteral("--user-data-dir=") + QString::fromStdString(pages.folder / "profile"),
                QStringLiteral("--dump-dom"),
                QUrl::fromLocalFile(QString::fromStdString(pages.path())).toString(QUrl::FullyEncoded)};
    }

    /** Runs a program in an environment of its own, from a file and to a file. */
    void call(QString const & program, QStringList const & arguments, QString const & from,
              QString const & to)
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("HOME"), QString::fromStdString(pages.folder.path().string()));
        environment.insert(QStringLiteral("TMPDIR"), QString::fromStdString(pages.folder.path().string()));
        environment.insert(QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setStandardInputFile(from.isEmpty() ? QProcess::nullDevice() : from);
        process.setStandardOutputFile(to);
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(100000)) << process.errorString().toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    }

    QString m_browser;
};

std::string formatted(double number)
{
    char text[64];
    std::snprintf(text, sizeof(text), "%g", number);
    return text;
}

/** The rows of a run on the sensitivity page as they should be listed. */
std::string expectedRows(XMLReportInfo const & run, int merits)
{
    int const parameters = run.parameters.size();
    std::string const span = parameters < 2 ? "" : " [" + std::to_string(parameters) + "x1]";
    std::string text = std::to_string(run.caseNumber) + span + "|" + run.description.c_str() + span;
    for (int i = 0; i < merits; ++i) {
        XMLReportSensValue const & record = run.sensValues[i];
        char const * const noFigure = record.status == 1 ? "!DIV0" : "*";
        text += "|" + formatted(record.value) + span + "|" + formatted(record.delta) + span;
        if (record.status >= 0 && record.status <= 2) {
            text += "|" + (record.status == 0 ? formatted(record.norm) : noFigure) + span;
        }
    }
    for (int i = 0; i < std::max(parameters, 1); ++i) {
        XMLReportParameter const & parameter = run.parameters[i];
        text += (i == 0 ? "|" : "") + std::string(parameter.name.c_str()) + "|" +
                formatted(parameter.nominal) + "|" + formatted(parameter.usedValue) + "\n";
    }
    return text;
}
} // namespace

TEST_F(XMLReportHTMLBrowser, ShowsTheMonteCarloLog)
{
    XMLReportHeader header = monteCarloHeader();
    header.title = "Filter of the first order";
    pages.monteCarlo(fourRuns(), header);
    EXPECT_EQ(listing(), "title Monte Carlo Log\n"
                         "h1 Monte Carlo Log\n"
                         "table headertable\n"
                         "Date:|21 November 2026 10:15\n"
                         "Analysis card:|Monte Carlo, 4 runs\n"
                         "Title:|Filter of the first order\n"
                         "Num Cores:|2\n"
                         "h2 Results\n"
                         "table datatable\n"
                         "Run #|Description|Gain (dB)|BW\n"
                         "1|Run=1|20.5|1e+06\n"
                         "2|Ref: R1|20.25|1.23457e+06\n"
                         "-3|negative|-0|1e-05\n"
                         "102||19.875|0\n"
                         "h2 Run 1\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "h2 Run 2\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "R1.resistance|1000|1012.5\n"
                         "C1.c|1e-09|1.01e-09\n"
                         "h2 Run -3\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "h2 Run 102\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "C1.c|1e-09|9.9e-10\n");
}

TEST_F(XMLReportHTMLBrowser, ShowsTheSeedsOfAMonteCarloLog)
{
    pages.monteCarlo(table({run(1, "", {}, {parameter("R1", 1, 2)}), run(2, "")}), XMLReportHeader());
    EXPECT_EQ(listing(), "title Monte Carlo Log\n"
                         "h1 Monte Carlo Log\n"
                         "table headertable\n"
                         "Date:|\n"
                         "Analysis card:|\n"
                         "Title:|\n"
                         "Num Cores:|0\n"
                         "h2 Seed Table\n"
                         "table datatable\n"
                         "Run #|Seed\n"
                         "1|0\n"
                         "2|0\n"
                         "h2 Run 1\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "R1|1|2\n"
                         "h2 Run 2\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n");
}

TEST_F(XMLReportHTMLBrowser, ShowsTheWorstCaseLog)
{
    pages.worstCase(
        table({run(1, "Run=1", {value(5)}), run(2, "Lot: A", {value(5.25)}, {parameter("R1", 1000, 1050)})}),
        header({"Vout"}));
    EXPECT_EQ(listing(), "title Worst Case Log\n"
                         "h1 Worst Case Log\n"
                         "table headertable\n"
                         "Date:|\n"
                         "Analysis card:|\n"
                         "Title:|\n"
                         "Num Cores:|0\n"
                         "h2 Results\n"
                         "table datatable\n"
                         "Run #|Description|Vout\n"
                         "1|Run=1|5\n"
                         "2|Lot: A|5.25\n"
                         "h2 Run 1\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "h2 Run 2\n"
                         "table datatable\n"
                         "Reference|Nominal|Value\n"
                         "R1|1000|1050\n");
}

TEST_F(XMLReportHTMLBrowser, ShowsTheSensitivityPageOfFiftyRuns)
{
    int const merits = 3;
    auto const runs = Random(4).table(50, merits);
    XMLReportHeader const header = ReportTables::header({"Gain", "BW", "Q"});
    pages.sensitivity(runs, header, 2);
    std::string expected =
        "title Sensitivity Analysis Report\n"
        "table datatable\n"
        "Run ID [1x2]|Results [1x9]|Perturbation [1x3]\n"
        "Case #|Reference|Gain|Delta|Norm|BW|Delta|Norm|Q|Delta|Norm|Lot item|Nominal|Value\n";
    for (XMLReportInfo const * run : PlainReport::byColumn(runs, 2)) {
        expected += expectedRows(*run, merits);
    }
    EXPECT_EQ(listing(), expected);
}

TEST_F(XMLReportHTMLBrowser, MarkupInATextMayBringTheEncodingOfThePage)
{
    // Markup is not escaped, so that a name can bring the page's encoding with it; without it a browser
    // guesses.
    XMLReportHeader header = ReportTables::header({"M"});
    header.date = "<meta charset=\"utf-8\">";
    header.title = "Gr\xc3\xb6\xc3\x9f"
                   "e <b>in</b> \xe2\x84\xa6 &amp; more";
    pages.worstCase(table({run(1, "")}), header);
    EXPECT_NE(listing().find("Title:|Gr\xc3\xb6\xc3\x9f"
                             "e in \xe2\x84\xa6 & more\n"),
              std::string::npos);
}
