// SPDX-License-Identifier: BSD-3-Clause
// Files as tables, and tables as files.
#pragma once

#include "Rows.h"

#include <QString>

/** What a file is to this program. */
enum class FileForm {
    Csv,       ///< comma-separated text
    DataTable, ///< rich table, ".zyt.xml"
    Result,    ///< msw file of a multi-run analysis: can be read only
    Other      ///< something else
};

/** The form that the name of a file tells. */
FileForm formOf(QString const & file);

/**
 * Reads a table of any form.
 * \throws TableError the file cannot be read or is no table of its form; the message names the file
 */
ZyDataTable openTable(QString const & file);

/** Reads a text as a table of one column, a line a row. \throws TableError it cannot be read, or is no text */
ZyDataTable openText(QString const & file);

/**
 * Saves a table whole or not at all: whatever goes wrong leaves an earlier file as it was.
 *
 * In comma-separated text a row of stacked values becomes as many rows, and headings are rows like others.
 * \throws TableError it cannot be saved; the message names the file
 */
void saveTable(QString const & file, Rows const & rows);
