// SPDX-License-Identifier: BSD-3-Clause
// From runs to files, with an eye on the user.

#include "Work.h"

#include "AnalysisError.h"
#include "Pictures.h"
#include "ProcessorTime.h"
#include "Summary.h"
#include "Terminal.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <functional>
#include <optional>
#include <utility>

namespace
{

/** Where the files of this analysis go, without what tells them apart. */
QString stemOf(Options const & options)
{
    QString const directory = options.directory.value_or(QStringLiteral("."));
    if (!QDir().mkpath(directory)) {
        throw AnalysisError::At(directory, QStringLiteral("the directory cannot be made"));
    }
    QString const name = QFileInfo(options.circuit).completeBaseName() + u'-' + nameOf(options.mode);
    return options.directory ? QDir(directory).filePath(name) : name;
}

/**
 * Looks at the place of an output before anything is computed.
 * \throws AnalysisError there is something that must not be replaced by a file, such as a directory or a device
 */
void checkPlace(QString const & file)
{
    QFileInfo const place(file);
    if (place.isDir()) {
        throw AnalysisError::At(file, QStringLiteral("is a directory"));
    }
    if (place.exists() && !place.isFile()) {
        throw AnalysisError::At(file, QStringLiteral("is no regular file"));
    }
}

class Job
{
public:
    Job(Circuit const & circuit, Plan const & plan, Options const & options)
        : m_circuit(circuit), m_plan(plan), m_options(options), m_stem(stemOf(options)),
          m_header(headerOf(circuit, plan, options)), m_progress(!options.quiet && errorsGoToTerminal()),
          m_analysis(circuit, plan, options.threads)
    {}

    void run()
    {
        m_clock.start();
        checkPlaces();
        solve();
        record();
        report();
        m_progress.wipe();
        if (!m_options.quiet) {
            printSummary(m_circuit, m_plan, m_options, m_report, m_spreads, m_files);
        }
        if (!m_options.quiet || m_options.timing) {
            printTiming({double(m_clock.elapsed()) / 1000, m_analysis.solverSeconds(), processSeconds()},
                        m_options);
        }
    }

private:
    QString file(QString const & ending) const { return m_stem + ending; }
    Interrupted interrupted() const
    {
        return {QStringLiteral("interrupted; %1 holds %2 of %3 runs")
                    .arg(file(QStringLiteral(".msw")))
                    .arg(m_results.size())
                    .arg(m_plan.count())};
    }

    void checkPlaces() const;
    void solve();
    void record();
    void report();
    void make(QString const & ending, std::function<void(QString const &)> const & write);
    std::vector<double> nominalPowers() const;

    Circuit const & m_circuit;
    Plan const & m_plan;
    Options const & m_options;
    QString const m_stem;
    XMLReportHeader const m_header;
    Interruption const m_interruption;
    QElapsedTimer m_clock;
    ProgressBar m_progress;
    Analysis m_analysis;
    Results m_results;
    std::optional<LiveFile> m_live;
    Report m_report;
    std::vector<Spread> m_spreads;
    QStringList m_files; ///< as far as they are written
};

void Job::checkPlaces() const
{
    for (char const * const ending :
         {".msw", "-stream.msw", "-master.msw", ".html", ".xlsx", "-response.png", "-histogram.png"}) {
        checkPlace(file(QString::fromLatin1(ending)));
    }
    for (unsigned int shard = 1; shard <= m_options.shards; ++shard) {
        checkPlace(shardFile(m_stem, shard));
    }
}

void Job::solve()
{
    if (m_options.streams) {
        m_live.emplace(file(QStringLiteral("-stream.msw")), m_circuit, m_header);
    }
    m_progress.begin(nameOf(m_options.mode), m_plan.count(), QStringLiteral("runs"));
    m_analysis.solveAll([this] {
        if (Interruption::noticed()) {
            m_analysis.stop();
        }
        if (m_live) {
            m_live->update(m_analysis);
        }
        m_progress.advance(m_analysis.done());
    });
    m_results = m_analysis.results();
}

// The result file is the first to be written, and the one that an interruption leaves. Parts are merged by
// reading their master file; what is read back in either case is the source of all reports.
void Job::record()
{
    QString const whole = file(QStringLiteral(".msw"));
    if (m_live) {
        m_live->finish(m_results);
        m_files.append(file(QStringLiteral("-stream.msw")));
    }
    if (m_options.shards > 0) {
        QString const master = writeShards(m_stem, m_circuit, m_header, m_results, m_options.shards);
        m_files.append(master);
        Report merged;
        readMswFile(master, merged.table, merged.header);
        writeMswFile(whole, merged.table, merged.header);
    } else {
        writeMswFile(whole, tableOf(m_circuit, m_results), m_header);
    }
    m_files.append(whole);
    if (Interruption::noticed()) {
        throw interrupted();
    }
    readMswFile(whole, m_report.table, m_report.header);
}

void Job::make(QString const & ending, std::function<void(QString const &)> const & write)
{
    if (Interruption::noticed()) {
        throw interrupted();
    }
    QString const target = file(ending);
    m_progress.begin(target, 0);
    try {
        write(target);
    } catch (ZyUserCancelledException const &) {
        throw interrupted();
    }
    m_files.append(target);
}

void Job::report()
{
    bool const spreads = m_options.mode != Mode::Sensitivity && !m_circuit.merits.empty();
    for (std::size_t merit = 0; merit < m_circuit.merits.size(); ++merit) {
        m_spreads.push_back(spreadOf(m_results, merit));
    }
    make(QStringLiteral(".html"),
         [this](QString const & target) { writePage(target, m_report, m_options.mode, m_options.threads); });
    make(QStringLiteral(".xlsx"), [&](QString const & target) {
        writeWorkbook(target, m_report, spreads ? m_spreads : std::vector<Spread>());
    });
    make(QStringLiteral("-response.png"), [this](QString const & target) {
        paintResponse(target, m_circuit, nominalPowers(), m_analysis.envelope(), m_plan.count());
    });
    if (spreads) {
        make(QStringLiteral("-histogram.png"), [this](QString const & target) {
            paintHistograms(target, m_circuit, m_spreads, m_plan.count());
        });
    }
}

std::vector<double> Job::nominalPowers() const
{
    Network network(m_circuit);
    std::vector<double> const frequencies = frequenciesOf(m_circuit.sweep);
    Response response(network, frequencies);
    response.sweep();
    return response.powers();
}

} // namespace

void doWork(Circuit const & circuit, Plan const & plan, Options const & options)
{
    Job(circuit, plan, options).run();
}
