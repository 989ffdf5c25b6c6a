// SPDX-License-Identifier: BSD-3-Clause
// What the sources of the data table share: its state, and what a row knows about itself.
#pragma once

#include <ZyDataTable.h>
#include <ZyException.h>
#include <ZyString.h>

#include <algorithm>

class ZyDataTable::Private : public ZyPrivateObject
{
public:
    ZyDeque<ZySharedPtr<ZyDataTableRow>> rows;
    unsigned int numberColumns = 0; ///< the widest row that was ever added; shrinks through clear() only
};

/** Rows are plain data to hosts; these are the questions that the table asks them. Null items throw. */
namespace ZyDataTableRows
{

/**
 * The row at an index.
 * \throws ZyIndexOutOfBoundsException "Index out of bounds [index,n]", where n is the number of rows and not, as the
 *         container itself would have it, the last valid index
 */
ZyDataTableRow const & At(ZyDeque<ZySharedPtr<ZyDataTableRow>> const & rows, unsigned int index);
/** The sum of the column spans, at most what 32 bits can say. */
unsigned int NumberColumns(ZyDataTableRow const & row);
/** The largest number of values of any item; 0 without items. */
unsigned int Height(ZyDataTableRow const & row);
/** One item for all that holds the empty string: what stands where a row has none. Lives to the end of the
 * process. */
ZyDataTableItem const & Blank();
/** The first item that covers the column, or the blank one. */
ZyDataTableItem const & ItemAt(ZyDataTableRow const & row, unsigned int column);

/** Calls visit(item, column, columnSpan) for each item, and then for the blank one in each column that is
 * left of \a columns. */
template <class F>
void Walk(ZyDataTableRow const & row, unsigned int columns, F const & visit)
{
    if (NumberColumns(row) > columns) {
        throw ZyInvalidCallException("Data table row given invalid number of columns to iterate over");
    }
    unsigned int column = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        unsigned int const columnSpan = item->columnSpan();
        visit(*item, column, columnSpan);
        column += std::min(columnSpan, columns - column);
    }
    for (; column < columns; ++column) {
        visit(Blank(), column, 1u);
    }
}

} // namespace ZyDataTableRows
