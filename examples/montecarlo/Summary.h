// SPDX-License-Identifier: BSD-3-Clause
// What the user is told at the end.
#pragma once

#include "Options.h"
#include "Reports.h"

#include <QStringList>

/** Where the time has gone, in seconds. */
struct Timing
{
    double elapsed = 0;
    double solver = 0;  ///< processor time of solving, all threads together
    double process = 0; ///< processor time of the process
};

/** Prints what was analysed, what came out and which files there are. */
void printSummary(Circuit const & circuit, Plan const & plan, Options const & options, Report const & report,
                  std::vector<Spread> const & spreads, QStringList const & files);

/** Prints one line about the time; with `options.timing` a second one about its parts. */
void printTiming(Timing const & timing, Options const & options);
