// SPDX-License-Identifier: BSD-3-Clause
// From the file to a table, by the reader that fits.
#pragma once

#include "TextCheck.h"

#include <ZyDataTable.h>
#include <ZyVariantTable.h>

#include <QString>

#include <optional>

/** How to read a file. */
struct ReadingOptions
{
    bool typed = true;            ///< of text: numbers become numbers
    unsigned int headingRows = 0; ///< of text: how many rows from the first on are headings
    bool forSheet = false;        ///< what is more than a sheet holds is refused
};

/** What was read. */
struct Input
{
    TextFacts facts;
    ZyVariantTable table;                ///< one value a cell
    std::optional<ZyDataTable> asStored; ///< with its tall and wide cells, when the file has such
    unsigned int headingRows = 0;        ///< from the first on
};

/**
 * Reads a file: comma-separated text, or a rich table.
 *
 * Of text, cells are integers, doubles and texts; what a short row lacks is the empty text. Numbers are
 * finite: what only looks like one to a C library ("nan", "inf", "1e999") stays as it is written. Of a rich
 * table, a row of stacked values becomes as many rows; a cell of one value has it in all of them, and a wide
 * cell in its first column.
 * \throws TableError the file cannot be read, or is no table, or one that is too large
 */
Input readInput(QString const & file, ReadingOptions const & options);

/** One value a cell: what readInput() makes of a rich table. */
ZyVariantTable flat(ZyDataTable const & rich);
