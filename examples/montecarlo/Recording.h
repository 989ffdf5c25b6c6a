// SPDX-License-Identifier: BSD-3-Clause
// The runs as msw files: whole, while they go on, and in parts.
#pragma once

#include "Analysis.h"
#include "Options.h"

#include <XMLReport.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include <QStringList>

#include <memory>

using Results = std::vector<RunResult const *>;
using RunTable = YHashTable<XMLReportInfo>;

/** Text for the support library. */
YString yString(QString const & text);
YString yString(ZyString const & text);

/** What the files say about the analysis; nothing of it depends on the number of threads or on the day. */
XMLReportHeader headerOf(Circuit const & circuit, Plan const & plan, Options const & options);

/** The records of these runs, put into the table one after the other: that decides their order in a file. */
RunTable tableOf(Circuit const & circuit, Results const & results);

/** Writes the table as one file. \throws AnalysisError it cannot be written */
void writeMswFile(QString const & file, RunTable const & table, XMLReportHeader const & header);

/** Reads a file and all that it appends. \throws AnalysisError it cannot be read */
void readMswFile(QString const & file, RunTable & table, XMLReportHeader & header);

/**
 * An msw file that is written piece by piece, in the order of the calls. Its parts may come in any order,
 * since readers take them so.
 */
class MswStream
{
public:
    /** \param circuit on loan \throws ZyException the file cannot be opened */
    MswStream(QString const & file, Circuit const & circuit);

    /** The first part of a file. */
    void header(XMLReportHeader const & header);
    /** Tells that the file is part \a core, from 1, of several; its readers take the header of the whole. */
    void headerOfPart(unsigned int core);
    /** One run with its parameters. Runs follow each other. */
    void step(Run const & run);
    /** The figures of these runs, for each merit function. */
    void figures(Results const & results);
    /** Names the files that belong to this one. */
    void append(QStringList const & files);
    /** Ends the document. \throws ZyException not all of it could be written */
    void finish();

private:
    void endSteps() { m_steps.reset(); }

    QString m_file;
    Circuit const & m_circuit;
    ZyXMLStreamWriter m_writer;
    std::unique_ptr<ZyXMLStreamElementWriter> m_root;
    std::unique_ptr<ZyXMLElementWriter> m_steps;
};

/** The name of part \a shard, from 1. */
QString shardFile(QString const & stem, unsigned int shard);

/**
 * Writes the runs in parts of about the same size, FILE-shard-1.msw and so on, and the master file
 * FILE-master.msw, which has the header, the figures and the list of parts.
 * \param stem path of the files without what is told above
 * \return the master file
 * \throws ZyException a file cannot be written
 */
QString writeShards(QString const & stem, Circuit const & circuit, XMLReportHeader const & header,
                    Results const & results, unsigned int shards);

/** Writes runs in the order of their numbers, each as soon as it and all before it are there. */
class LiveFile
{
public:
    LiveFile(QString const & file, Circuit const & circuit, XMLReportHeader const & header);

    /** Writes what has come since. */
    void update(Analysis const & analysis);
    /** Writes the runs that are left, and the figures of all. */
    void finish(Results const & results);

private:
    MswStream m_stream;
    unsigned int m_written = 0; ///< number of the last run written
};
