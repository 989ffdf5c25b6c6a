// SPDX-License-Identifier: BSD-3-Clause
// Rows made from rows.

#include "Rows.h"

#include "Cell.h"

#include <cmath>
#include <optional>

namespace
{

/** A cell of a row, and where it stands. */
struct Place
{
    std::size_t item;
    int column;
};

std::optional<Place> placeOf(ZyDataTableRow const & row, int column)
{
    auto const & items = row.items.std_deque();
    int first = 0;
    for (std::size_t item = 0; item < items.size(); ++item) {
        int const next = first + int(items[item]->columnSpan());
        if (column < next) {
            return Place{item, first};
        }
        first = next;
    }
    return std::nullopt;
}

} // namespace

Rows rowsOf(ZyDataTable const & table)
{
    auto const & rows = table.rows().std_deque();
    return {rows.begin(), rows.end()};
}

ZyDataTable tableOf(Rows const & rows)
{
    ZyDataTable table;
    for (RowPtr const & row : rows) {
        table.addRow(ZyDataTableRow(*row));
    }
    return table;
}

int widthOf(ZyDataTableRow const & row)
{
    int width = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        width += int(item->columnSpan());
    }
    return width;
}

ZyDataTableItem const * cellAt(ZyDataTableRow const & row, int column)
{
    auto const place = placeOf(row, column);
    return place ? row.items.std_deque()[place->item].get() : nullptr;
}

int firstColumnOf(ZyDataTableRow const & row, int column)
{
    auto const place = placeOf(row, column);
    return place ? place->column : column;
}

QString textOf(ZyDataTableItem const * cell, QString const & separator)
{
    QString text;
    if (cell) {
        auto const & values = cell->values().std_deque();
        for (std::size_t i = 0; i < values.size(); ++i) {
            text += (i == 0 ? QString() : separator) + exactText(values[i]).toQString();
        }
    }
    return text;
}

RowPtr blankRow(int columns)
{
    RowPtr row(new ZyDataTableRow);
    for (int column = 0; column < columns; ++column) {
        row->items.std_deque().emplace_back(new ZyDataTableItem);
    }
    return row;
}

RowPtr withValue(ZyDataTableRow const & row, int column, ZyVariant const & value)
{
    RowPtr result(new ZyDataTableRow(row));
    auto & items = result->items.std_deque();
    for (int width = widthOf(row); width <= column; ++width) {
        items.emplace_back(new ZyDataTableItem);
    }
    auto & item = items[placeOf(*result, column)->item];
    item.reset(new ZyDataTableItem(value, item->columnSpan()));
    return result;
}

RowPtr withType(ZyDataTableRow const & row, ZyDataTable::ItemType type)
{
    return RowPtr(new ZyDataTableRow(row.items, type));
}

ZyVariant valueOf(QString const & text)
{
    ZyString const letters(text);
    if (letters.isInteger()) {
        return ZyVariant(letters.toInt());
    }
    if (letters.isDouble() && std::isfinite(letters.toDouble())) {
        return ZyVariant(letters.toDouble());
    }
    return ZyVariant(letters);
}

QString columnName(int column)
{
    QString name;
    for (int rest = column; rest >= 0; rest = rest / 26 - 1) {
        name.prepend(QChar(u'A' + rest % 26));
    }
    return name;
}
