// SPDX-License-Identifier: BSD-3-Clause
// The whole job: runs, result files, reports, pictures.
#pragma once

#include "Options.h"

#include <QString>

/** The user has interrupted the program; what there is has been written. */
struct Interrupted
{
    QString message;
};

/**
 * Solves all runs of the plan and leaves the results in the directory that the options name.
 * \throws Interrupted, AnalysisError, ZyException
 */
void doWork(Circuit const & circuit, Plan const & plan, Options const & options);
