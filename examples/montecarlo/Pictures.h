// SPDX-License-Identifier: BSD-3-Clause
// The pictures: histograms of the figures, and the response with the envelope of all runs.
#pragma once

#include "Analysis.h"
#include "Statistics.h"

/** Paints one histogram for each merit function. \throws AnalysisError the file cannot be written */
void paintHistograms(QString const & file, Circuit const & circuit, std::vector<Spread> const & spreads,
                     unsigned int runs);

/** Paints the nominal response over the envelope of all runs. \throws AnalysisError the file cannot be written */
void paintResponse(QString const & file, Circuit const & circuit, std::vector<double> const & nominal,
                   Envelope const & envelope, unsigned int runs);
