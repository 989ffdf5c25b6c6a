// SPDX-License-Identifier: BSD-3-Clause
// What is made of a result file for people: a page and a workbook.
#pragma once

#include "Recording.h"
#include "Statistics.h"

/** A result file as it has been read back: with labels, deltas and norms. */
struct Report
{
    RunTable table;
    XMLReportHeader header;
};

/**
 * Writes the HTML page that belongs to the mode.
 * \param cores to be named in the page
 * \throws AnalysisError it cannot be written, or not all of it
 */
void writePage(QString const & file, Report const & report, Mode mode, unsigned int cores);

/**
 * Writes a workbook: a sheet of the runs, and one of the histograms' bins for the figures that spread.
 * \throws ZyException it cannot be written
 */
void writeWorkbook(QString const & file, Report const & report, std::vector<Spread> const & spreads);
