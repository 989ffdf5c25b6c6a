// SPDX-License-Identifier: BSD-3-Clause
// What the user is told at the end.
#pragma once

#include "Options.h"
#include "TextCheck.h"

#include <ZyVariantTable.h>

/** Prints what was read and written to the standard output. */
void printSummary(Options const & options, TextFacts const & facts, ZyVariantTable const & table,
                  double seconds);
