// SPDX-License-Identifier: BSD-3-Clause
// From the file to a table, by the reader that fits.
#pragma once

#include "Options.h"
#include "TextCheck.h"

#include <ZyDataTable.h>
#include <ZyVariantTable.h>

#include <optional>

/** What was read. */
struct Input
{
    TextFacts facts;
    ZyVariantTable table;                ///< one value a cell
    std::optional<ZyDataTable> asStored; ///< with its tall and wide cells, when the file has such
    unsigned int headingRows = 0;        ///< from the first on
};

/**
 * Reads the file that the options name: comma-separated text, or a rich table.
 *
 * Of text, cells are integers, doubles and texts; what a short row lacks is the empty text. Numbers are
 * finite: what only looks like one to a C library ("nan", "inf", "1e999") stays as it is written. Of a rich
 * table, a row of stacked values becomes as many rows; a cell of one value has it in all of them, and a wide
 * cell in its first column.
 * \throws ConvertError the file cannot be read, or is no table, or one that is too large
 */
Input readInput(Options const & options);
