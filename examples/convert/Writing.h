// SPDX-License-Identifier: BSD-3-Clause
// From the table to the files.
#pragma once

#include "Options.h"
#include "Shaping.h"

class ProgressBar;

/**
 * Writes all outputs that the options name, and puts them into place when every one of them is complete.
 *
 * \throws TableError an output cannot be written; what the user had before is as it was
 * \throws ZyUserCancelledException the user interrupted the program; the same
 */
void writeOutputs(ShapedTable const & table, Options const & options, ProgressBar & progress);
