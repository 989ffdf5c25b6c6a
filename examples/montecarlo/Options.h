// SPDX-License-Identifier: BSD-3-Clause
// What the user asks for.
#pragma once

#include "Plan.h"

#include <QString>
#include <QStringList>

#include <optional>

/** The program's arguments, checked as far as that goes without reading anything. */
struct Options
{
    QString circuit;
    Mode mode = Mode::MonteCarlo;
    unsigned int runs = 0; ///< 0: as many as the mode has
    unsigned int threads = 1;
    std::uint64_t seed = 1;
    std::optional<QString> directory; ///< where the results go; the present one when not told
    unsigned int shards = 0;          ///< 0: no shards
    unsigned int only = 0;            ///< the one run to be computed and shown; 0: all, into files
    bool streams = false;
    bool timing = false;
    bool quiet = false;
};

/** The word for a mode, on the command line and in the names of files. */
QString nameOf(Mode mode);

/**
 * Reads the arguments, the program's own name first.
 * \return nothing when something was asked for that has been printed: help, version, schema
 * \throws AnalysisError the arguments make no sense
 */
std::optional<Options> parseOptions(QStringList const & arguments);
