// SPDX-License-Identifier: BSD-3-Clause
// The walks over a data table: as it stands, and laid out for a worksheet.
#include <ZyDataTable.h>

#include "Tables/ZyDataTable_p.h"

#include <tuple>
#include <vector>

namespace
{

/** One value of a row of several spreadsheet rows, until the values of all its items are in order. */
struct ItemSorter
{
    ZyVariant const * value; ///< borrowed from its item
    unsigned int column;     ///< where the item starts
    unsigned int columnSpan;
    unsigned int rowOffset; ///< from the top of the row
    unsigned int rowSpan;
};

/** The values of a row, by their offset from its top and then by their column. */
std::vector<ItemSorter> SortedValues(ZyDataTableRow const & row, unsigned int columns, unsigned int height)
{
    std::vector<ItemSorter> values;
    ZyDataTableRows::Walk(
        row, columns, [&](ZyDataTableItem const & item, unsigned int column, unsigned int span) {
            unsigned int const count = item.numberValues();
            for (unsigned int index = 0; index < count; ++index) {
                values.push_back({&item.values().std_deque()[index], column, span, index, height / count});
            }
        });
    std::stable_sort(values.begin(), values.end(), [](ItemSorter const & a, ItemSorter const & b) {
        return std::tie(a.rowOffset, a.column) < std::tie(b.rowOffset, b.column);
    });
    return values;
}

/** The cells of one table row, which begins at \a spreadsheetRow. \return the height of the row */
template <class F>
unsigned int WalkSpreadsheet(ZyDataTableRow const & row, unsigned int columns, unsigned int spreadsheetRow,
                             F const & visit)
{
    unsigned int const height = ZyDataTableRows::Height(row);
    if (height == 1) {
        ZyDataTableRows::Walk(row, columns,
                              [&](ZyDataTableItem const & item, unsigned int column, unsigned int span) {
                                  visit(item.value(), spreadsheetRow, column, span, 1u, row.type);
                              });
    } else {
        for (ItemSorter const & cell : SortedValues(row, columns, height)) {
            visit(*cell.value, spreadsheetRow + cell.rowOffset, cell.column, cell.columnSpan, cell.rowSpan,
                  row.type);
        }
    }
    return height;
}

} // namespace

void ZyDataTable::forEach(
    std::function<void(ZyDataTableItem const &, unsigned int, unsigned int)> visit) const
{
    unsigned int index = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : d()->rows.std_deque()) {
        ZyDataTableRows::Walk(*row, numberColumns(),
                              [&](ZyDataTableItem const & item, unsigned int column, unsigned int) {
                                  visit(item, index, column);
                              });
        ++index;
    }
}

void ZyDataTable::forEachItem(
    unsigned int row, std::function<void(ZyDataTableItem const &, unsigned int, unsigned int)> visit) const
{
    ZyDataTableRows::Walk(ZyDataTableRows::At(d()->rows, row), numberColumns(), visit);
}

void ZyDataTable::forEachItemSpreadsheet(
    std::function<void(ZyVariant const &, unsigned int, unsigned int, unsigned int, unsigned int, ItemType)>
        visit) const
{
    unsigned int spreadsheetRow = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : d()->rows.std_deque()) {
        spreadsheetRow += WalkSpreadsheet(*row, numberColumns(), spreadsheetRow, visit);
    }
}

unsigned int ZyDataTable::numberSpreadsheetRows() const
{
    unsigned int rows = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : d()->rows.std_deque()) {
        rows += ZyDataTableRows::Height(*row);
    }
    return rows;
}
