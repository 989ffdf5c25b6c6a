// SPDX-License-Identifier: BSD-3-Clause
// One run alone, shown to the last digit.
#pragma once

#include "Options.h"

/**
 * Computes run `options.only` and prints its values and figures. With a directory its circuit is written
 * there, as a document of its own.
 * \throws AnalysisError there is no such run, or its circuit cannot be computed
 */
void showRun(Circuit const & circuit, Plan const & plan, Options const & options);
