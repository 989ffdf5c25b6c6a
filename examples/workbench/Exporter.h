// SPDX-License-Identifier: BSD-3-Clause
// Exports in the background.
#pragma once

#include <ZyDataTable.h>

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

/**
 * Writes workbooks (.xlsx) and XML sheets (any other name) while the user goes on working.
 *
 * Signals come in the thread of this object. A file appears whole or not at all. When the object goes, what
 * is under way is given up: it waits for the threads and not for the files.
 */
class Exporter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
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

private:
    struct Job;
    using JobPtr = std::shared_ptr<Job>;

    void post(JobPtr const & job, QString const & failure);
    void finish(JobPtr const & job, QString const & failure);

    std::vector<JobPtr> m_jobs;
};
