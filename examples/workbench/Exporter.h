// SPDX-License-Identifier: BSD-3-Clause
// Exports in the background.
#pragma once

#include <ZyDataTable.h>

#include <QObject>
#include <QString>

#include <map>
#include <memory>

/**
 * Writes workbooks (.xlsx) and XML sheets (any other name) while the user goes on working.
 *
 * Signals reach receivers in the thread of this object, where their connections are automatic. A file appears
 * whole or not at all. When the object goes, what is under way is given up: it waits for the threads and not
 * for the files.
 */
class Exporter : public QObject
{
    Q_OBJECT

public:
    explicit Exporter(QObject * parent = nullptr);
    ~Exporter() override;

    /** Begins an export. \param table a copy; its cells must not change any more */
    void start(ZyDataTable const & table, QString const & file);
    bool isBusy() const { return !m_jobs.empty(); }
    /** Gives up what is under way; each export still ends with its signal. */
    void stop();

Q_SIGNALS:
    void progressed(QString const & file, int percent);
    /** \param failure empty when all is well */
    void ended(QString const & file, QString const & failure);

    /** Of the thread of a run, for this object. */
    void runEnded(quint64 number, QString const & failure);

private:
    struct Job;
    using JobPtr = std::shared_ptr<Job>;

    void tellEnd(Job & job, QString const & failure);
    void finish(quint64 number, QString const & failure);

    std::map<quint64, JobPtr> m_jobs;
    quint64 m_last = 0;
};
