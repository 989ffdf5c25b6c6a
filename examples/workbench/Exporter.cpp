// SPDX-License-Identifier: BSD-3-Clause
// One background run an export. Events come on a thread of the run and are handed over: nothing here touches
// a window from there.

#include "Exporter.h"

#include "PendingFile.h"
#include "SheetWriting.h"
#include "WholePackage.h"

#include <ZyAsyncThread.h>
#include <ZyConditionVariable.h>
#include <ZyException.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <utility>

/** What an export needs, kept alive by its thread. */
struct Exporter::Job
{
    Job(quint64 count, ZyDataTable const & shown, QString name)
        : number(count), table(shown), rows(std::max(1U, shown.numberSpreadsheetRows())),
          file(std::move(name))
    {}

    quint64 number;
    ZyDataTable table;
    unsigned int rows;
    QString file;
    std::function<void(int)> report; ///< of percents
    std::atomic<bool> stopped{false};
    ZyConditionVariable<bool> ended;
    ZySharedPtr<ZyAsyncThread::Callback> subscription;

    void write();

private:
    void onRow(unsigned int row);

    int m_percent = -1;
};

void Exporter::Job::write()
{
    PendingFile pending(file);
    auto const listener = [this](unsigned int row) { onRow(row); };
    if (file.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive)) {
        writeWorkbook(pending.path(), "Sheet1", onePiece(table), listener);
        if (!isWholeWorkbook(pending.path(), 1, [] {})) {
            throw pending.incomplete();
        }
    } else {
        pending.checkSize(writeXmlSheet(pending.path(), onePiece(table), listener));
    }
    pending.commit();
}

void Exporter::Job::onRow(unsigned int row)
{
    if (stopped) {
        throw ZyUserCancelledException();
    }
    int const percent = int(100ULL * row / rows);
    if (percent != m_percent) {
        m_percent = percent;
        report(percent);
    }
}

Exporter::Exporter(QObject * parent) : QObject(parent)
{
    connect(this, &Exporter::runEnded, this, &Exporter::finish, Qt::QueuedConnection);
}

Exporter::~Exporter()
{
    stop();
    for (auto const & [number, job] : m_jobs) {
        job->ended.wait([](bool const & ended) { return ended; });
        job->subscription.reset();
    }
}

void Exporter::stop()
{
    for (auto const & [number, job] : m_jobs) {
        job->stopped = true;
    }
}

void Exporter::start(ZyDataTable const & table, QString const & file)
{
    JobPtr const job = std::make_shared<Job>(++m_last, table, file);
    job->report = [this, file](int percent) { Q_EMIT progressed(file, percent); };
    ZySharedPtr<ZyAsyncThread> const thread = ZyAsyncThread::Create([job] { job->write(); });
    job->subscription = thread->createCallback(
        [this, job](ZyAsyncThread::Status const & status, ZySharedPtr<ZyAsyncThread> const & run) {
            if (status == ZyAsyncThread::Finished || status == ZyAsyncThread::Failed) {
                tellEnd(*job, status == ZyAsyncThread::Failed ? run->error().toQString() : QString());
            }
        });
    m_jobs.emplace(job->number, job);
    try {
        thread->run();
    } catch (std::exception const & failure) { // no thread is left: there will be no event
        tellEnd(*job, QString::fromUtf8(failure.what()));
    }
}

// The destructor waits for the last line: until then this object is there.
void Exporter::tellEnd(Job & job, QString const & failure)
{
    Q_EMIT runEnded(job.number, failure);
    job.ended.set(true);
}

void Exporter::finish(quint64 number, QString const & failure)
{
    JobPtr const job = m_jobs.at(number);
    job->subscription.reset(); // which holds the job
    m_jobs.erase(number);
    Q_EMIT ended(job->file, failure);
}
