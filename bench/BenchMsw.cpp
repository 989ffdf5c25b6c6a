// SPDX-License-Identifier: BSD-3-Clause
// Result files of 10,000 runs with 10 parameters and 10 merit functions: writing, and reading with everything
// that is computed, against QDomDocument by hand for the same document. A quarter of the runs shows whether
// the time is linear in their number. The environment variable ZYCORE_BENCH_RUNS sets another number.
#include "Measure.h"

#include <XMLReport.h>

#include <QByteArray>
#include <QDomDocument>
#include <QFile>
#include <QSaveFile>
#include <QString>
#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr int columns = 10;
constexpr int parameters = 10;

int wantedRuns()
{
    char const * const runs = std::getenv("ZYCORE_BENCH_RUNS");
    return runs ? std::atoi(runs) : 10000;
}

/** Numbers that take all their bits, the same in every process. */
double real(unsigned seed)
{
    return 1.0 + static_cast<double>(seed * 2654435761u) / 4294967296.0;
}

XMLReportInfo makeRun(int caseNumber)
{
    XMLReportInfo run;
    run.caseNumber = caseNumber;
    run.name = "Refdes:R" + YString(caseNumber) + "/DevParam:res/PDF:gauss";
    run.hasName = true;
    run.seed = caseNumber * 1000003LL;
    run.hasSeed = true;
    auto const base = static_cast<unsigned>(caseNumber) * 64;
    for (int i = 0; i < columns; ++i) {
        run.sensValues[i].value = real(base + static_cast<unsigned>(i));
    }
    for (int i = 0; i < parameters; ++i) {
        XMLReportParameter & parameter = run.parameters[i];
        parameter.name = "R" + YString(i) + ".res";
        parameter.nominal = 1000;
        parameter.usedValue = 1000 * real(base + 32 + static_cast<unsigned>(i));
        parameter.tol = 0.1;
        parameter.hasTol = true;
    }
    return run;
}

/** An analysis in memory, made once a size. */
struct Analysis
{
    explicit Analysis(int runs) : path(dataFile("msw-" + std::to_string(runs) + ".msw"))
    {
        for (int i = 1; i <= runs; ++i) {
            table.add(i, makeRun(i));
        }
        header.title = "bench";
        header.analysis = "monte carlo";
        for (int i = 0; i < columns; ++i) {
            header.meritFunctions.add({"Merit" + YString(i), ""});
        }
    }

    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    std::string path; ///< a file of it
};

QString base64(double value)
{
    return QString::fromLatin1(
        QByteArray::fromRawData(reinterpret_cast<char const *>(&value), sizeof value).toBase64());
}

QDomElement qtChild(QDomDocument & document, QDomElement & parent, QString const & name)
{
    QDomElement child = document.createElement(name);
    parent.appendChild(child);
    return child;
}

QString qt(YString const & text)
{
    return QString::fromUtf8(text.c_str());
}

void qtWriteStep(QDomDocument & document, QDomElement step, XMLReportInfo const & run)
{
    step.setAttribute(QStringLiteral("name"), qt(run.name));
    step.setAttribute(QStringLiteral("case"), run.caseNumber);
    step.setAttribute(QStringLiteral("seed"), run.seed);
    for (XMLReportParameter const & parameter : run.parameters) {
        QDomElement element = qtChild(document, step, QStringLiteral("parameter"));
        element.setAttribute(QStringLiteral("name"), qt(parameter.name));
        element.setAttribute(QStringLiteral("nom"), base64(parameter.nominal));
        element.setAttribute(QStringLiteral("usedvalue"), base64(parameter.usedValue));
        element.setAttribute(QStringLiteral("tol"), base64(parameter.tol));
    }
}

void qtWrite(Analysis const & analysis)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement root = document.createElement(QStringLiteral("msw"));
    document.appendChild(root);
    qtChild(document, root, QStringLiteral("header"))
        .setAttribute(QStringLiteral("title"), qt(analysis.header.title));
    for (int i = 0; i < columns; ++i) {
        QDomElement function = qtChild(document, root, QStringLiteral("meritfunction"));
        function.setAttribute(QStringLiteral("value"), qt(analysis.header.meritFunctions[i].value));
        analysis.table.forEach([&](int, XMLReportInfo const & run) {
            QDomElement value = qtChild(document, function, QStringLiteral("sensval"));
            value.setAttribute(QStringLiteral("case"), run.caseNumber);
            value.setAttribute(QStringLiteral("value"), base64(run.sensValues[i].value));
        });
    }
    QDomElement steps = qtChild(document, root, QStringLiteral("steps"));
    analysis.table.forEach([&](int, XMLReportInfo const & run) {
        qtWriteStep(document, qtChild(document, steps, QStringLiteral("step")), run);
    });
    QSaveFile file(QString::fromStdString(analysis.path));
    check(file.open(QIODevice::WriteOnly), "cannot save");
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    stream << document.toString(1);
    stream.flush();
    check(file.commit(), "cannot save");
}

double qtReal(QDomElement const & element, QString const & name)
{
    QByteArray const bytes = QByteArray::fromBase64(element.attribute(name).toLatin1());
    double value = 0;
    check(bytes.size() == sizeof value, "no number");
    std::memcpy(&value, bytes.constData(), sizeof value);
    return value;
}

/** What a program that knows its file by heart would read it into: runs by their numbers. */
struct QtRun
{
    QString name;
    qint64 seed = 0;
    std::vector<double> values;
    std::vector<double> deltas;
    std::vector<XMLReportParameter> parameters;
};

void qtReadFunction(QDomElement const & function, std::vector<QtRun> & runs)
{
    for (QDomElement value = function.firstChildElement(); !value.isNull();
         value = value.nextSiblingElement()) {
        std::size_t const index = value.attribute(QStringLiteral("case")).toUInt();
        runs.resize(std::max(runs.size(), index + 1));
        runs[index].values.push_back(qtReal(value, QStringLiteral("value")));
    }
}

void qtReadSteps(QDomElement const & steps, std::vector<QtRun> & runs)
{
    for (QDomElement step = steps.firstChildElement(); !step.isNull(); step = step.nextSiblingElement()) {
        QtRun & run = runs.at(step.attribute(QStringLiteral("case")).toUInt());
        run.name = step.attribute(QStringLiteral("name"));
        run.seed = step.attribute(QStringLiteral("seed")).toLongLong();
        for (QDomElement one = step.firstChildElement(); !one.isNull(); one = one.nextSiblingElement()) {
            XMLReportParameter parameter;
            parameter.name = one.attribute(QStringLiteral("name")).toUtf8().constData();
            parameter.nominal = qtReal(one, QStringLiteral("nom"));
            parameter.usedValue = qtReal(one, QStringLiteral("usedvalue"));
            parameter.tol = qtReal(one, QStringLiteral("tol"));
            run.parameters.push_back(parameter);
        }
    }
}

void qtRead(Analysis const & analysis)
{
    QFile file(QString::fromStdString(analysis.path));
    check(file.open(QIODevice::ReadOnly), "cannot open");
    QDomDocument document;
    check(document.setContent(&file), "no document");
    std::vector<QtRun> runs;
    QDomElement child = document.documentElement().firstChildElement();
    for (; !child.isNull(); child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String("meritfunction")) {
            qtReadFunction(child, runs);
        } else if (child.tagName() == QLatin1String("steps")) {
            qtReadSteps(child, runs);
        }
    }
    for (QtRun & run : runs) {
        for (std::size_t i = 0; i < run.values.size(); ++i) {
            run.deltas.push_back(run.values[i] - runs.at(1).values.at(i));
        }
    }
    check(runs.size() == static_cast<std::size_t>(analysis.table.size()) + 1, "runs are missing");
}

void oursRead(Analysis const & analysis)
{
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    check(sp_CompileSensReportData(analysis.path, &table, &header), "cannot read");
    check(table.size() == analysis.table.size(), "runs are missing");
}

void oursWrite(Analysis const & analysis)
{
    check(sp_WriteMswFile(analysis.path, analysis.table, analysis.header), "cannot write");
}

void registerSize(std::string const & label, int runs)
{
    auto const analysis = std::make_shared<std::unique_ptr<Analysis>>();
    auto const prepare = [=] {
        if (!*analysis) {
            *analysis = std::make_unique<Analysis>(runs);
            oursWrite(**analysis);
        }
    };
    addJob(
        "msw-write/" + label + "/ours", [=] { oursWrite(**analysis); }, prepare);
    addJob(
        "msw-write/" + label + "/QDomDocument", [=] { qtWrite(**analysis); }, prepare);
    addJob(
        "msw-read/" + label + "/ours", [=] { oursRead(**analysis); }, prepare);
    addJob(
        "msw-read/" + label + "/QDomDocument", [=] { qtRead(**analysis); }, prepare);
}

} // namespace

void registerBenchmarks()
{
    int const runs = wantedRuns();
    registerSize("10000", runs);
    registerSize("2500", runs / 4);
}

} // namespace bench
