// SPDX-License-Identifier: BSD-3-Clause
// Sorting the rows of a data table.
// A copy of the order is sorted and assigned back when all went well, so that a comparison that throws leaves
// the table whole; and by a stable sort, which keeps to the array whatever a host's comparison answers.
#include <ZyDataTable.h>

#include "Tables/ZyDataTable_p.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace
{

/** What is sorted in place of a row: its value, and where the row stands. */
struct SortKey
{
    ZyVariant const * value;
    std::size_t row;
};

/** The cells of a range in one column, each with at most one value. */
std::vector<ZyDataTableItem const *> Cells(ZyDataTable const & table, unsigned int column, unsigned int start,
                                           unsigned int count)
{
    if (column >= table.numberColumns()) {
        throw ZyInvalidCallException("Column number outside of the range of columns");
    }
    std::vector<ZyDataTableItem const *> cells;
    cells.reserve(std::min(count, table.numberRows()));
    std::uint64_t const end = static_cast<std::uint64_t>(start) + count;
    for (std::uint64_t row = start; row < end; ++row) {
        ZyDataTableRow const & current = ZyDataTableRows::At(table.rows(), static_cast<unsigned int>(row));
        ZyDataTableItem const & cell = ZyDataTableRows::ItemAt(current, column);
        if (cell.numberValues() > 1) {
            throw ZyInvalidCallException("Cannot sort on column that has multiple values per cell");
        }
        cells.push_back(&cell);
    }
    return cells;
}

/** Their keys; a cell without a value throws. */
std::vector<SortKey> Keys(std::vector<ZyDataTableItem const *> const & cells, std::size_t start)
{
    std::vector<SortKey> keys;
    keys.reserve(cells.size());
    for (ZyDataTableItem const * cell : cells) {
        keys.push_back({&cell->value(), start + keys.size()});
    }
    return keys;
}

/** Puts the rows into the order of the keys, the first of them to \a start. */
void Reorder(std::deque<ZySharedPtr<ZyDataTableRow>> & rows, std::size_t start,
             std::vector<SortKey> const & keys)
{
    std::vector<ZySharedPtr<ZyDataTableRow>> sorted;
    sorted.reserve(keys.size()); // the last thing that may throw
    for (SortKey const & key : keys) {
        sorted.push_back(std::move(rows[key.row]));
    }
    for (std::size_t index = 0; index < sorted.size(); ++index) {
        rows[start + index] = std::move(sorted[index]);
    }
}

template <class F>
void Sort(ZyDataTable const & table, std::deque<ZySharedPtr<ZyDataTableRow>> & rows, unsigned int column,
          unsigned int start, unsigned int count, F const & lessThan)
{
    std::vector<ZyDataTableItem const *> const cells = Cells(table, column, start, count);
    if (cells.size() < 2) {
        return;
    }
    std::vector<SortKey> keys = Keys(cells, start);
    std::stable_sort(keys.begin(), keys.end(),
                     [&](SortKey const & a, SortKey const & b) { return lessThan(*a.value, *b.value); });
    Reorder(rows, start, keys);
}

} // namespace

void ZyDataTable::sort(unsigned int column)
{
    sort(column, 0, numberRows());
}

void ZyDataTable::sort(unsigned int column, unsigned int start, unsigned int count)
{
    Sort(*this, d()->rows.std_deque(), column, start, count,
         [](ZyVariant const & a, ZyVariant const & b) { return a.compare(b) < 0; });
}

void ZyDataTable::sort(unsigned int column, LessThan lessThan)
{
    sort(column, 0, numberRows(), std::move(lessThan));
}

void ZyDataTable::sort(unsigned int column, unsigned int start, unsigned int count, LessThan lessThan)
{
    Sort(*this, d()->rows.std_deque(), column, start, count, lessThan);
}
