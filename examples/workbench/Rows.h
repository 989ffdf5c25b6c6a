// SPDX-License-Identifier: BSD-3-Clause
// The rows of a table as this program holds them.
#pragma once

#include <ZyDataTable.h>
#include <ZySharedPtr.h>

#include <QString>

#include <vector>

/**
 * A row that is never changed: whoever edits puts another row into its place. So the history gets a former
 * table back exactly, and a thread may read a table while the user goes on editing.
 */
using RowPtr = ZySharedPtr<ZyDataTableRow>;
using Rows = std::vector<RowPtr>;

/** The rows of a table, top to bottom; shared with it. */
Rows rowsOf(ZyDataTable const & table);
/** A table of these rows, which shares their cells. */
ZyDataTable tableOf(Rows const & rows);

/** How many columns the row covers. */
int widthOf(ZyDataTableRow const & row);
/** The cell that covers a column; null beyond the end of the row. */
ZyDataTableItem const * cellAt(ZyDataTableRow const & row, int column);
/** The first column that the cell at \a column covers. */
int firstColumnOf(ZyDataTableRow const & row, int column);
/** The text of a cell, every digit of a number; stacked values are separated by \a separator. */
QString textOf(ZyDataTableItem const * cell, QString const & separator);

/** A plain row of empty cells. */
RowPtr blankRow(int columns);
/** The row with another value in a cell, which keeps its width; a short row becomes long enough. */
RowPtr withValue(ZyDataTableRow const & row, int column, ZyVariant const & value);
/** The row as a heading, or as a plain row. */
RowPtr withType(ZyDataTableRow const & row, ZyDataTable::ItemType type);

/** What a user means by a text: an integer, a finite number, or the text as it is. */
ZyVariant valueOf(QString const & text);
/** What spreadsheets call a column: "A" to "Z", "AA" and so on. \param column counts from 0 */
QString columnName(int column);
