// SPDX-License-Identifier: BSD-3-Clause
// Headings, sorting, grouping.

#include "Shaping.h"

#include "Cell.h"
#include "ConvertError.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>

#include <utility>

namespace
{

using Items = ZyDeque<ZySharedPtr<ZyDataTableItem>>;

ZySharedPtr<ZyDataTableItem> sharedItem(ZyDataTableItem && item)
{
    return ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem(std::move(item)));
}

ZyDataTable dataTable(ZyVariantTable const & table, unsigned int headingRows)
{
    ZyDataTable result;
    for (unsigned int row = 0; row < table.numberRows(); ++row) {
        Items items;
        for (unsigned int column = 0; column < table.numberColumns(); ++column) {
            items.add(sharedItem(ZyDataTableItem(table.at(row, column))));
        }
        result.addRow(std::move(items), row < headingRows ? ZyDataTable::Header : ZyDataTable::Data);
    }
    return result;
}

/** Finds columns by what users call them. */
class Columns
{
public:
    Columns(ZyDataTable const & table, Options const & options) : m_table(table), m_options(options) {}

    /** A number from 1, or else the text of the last heading row. */
    unsigned int find(QString const & name) const
    {
        bool isNumber = false;
        unsigned int const number = name.toUInt(&isNumber);
        if (isNumber && number >= 1 && number <= m_table.numberColumns()) {
            return number - 1;
        }
        for (unsigned int column = 0; m_options.headingRows > 0 && column < m_table.numberColumns();
             ++column) {
            if (heading(column) == ZyString(name)) {
                return column;
            }
        }
        throw ConvertError::Line(
            m_options.input, m_options.headingRows == 0 ? 1 : m_options.headingRows,
            QStringLiteral("there is no column \"%1\"; there are %2").arg(name, choices()));
    }

private:
    ZyString heading(unsigned int column) const
    {
        return exactText(m_table.value(m_options.headingRows - 1, column));
    }

    QString choices() const
    {
        QString result = QStringLiteral("the numbers 1 to %1").arg(m_table.numberColumns());
        return m_options.headingRows == 0 ? result + QStringLiteral(" and, without --header, no headings")
                                          : result + QStringLiteral(" and the headings of this line");
    }

    ZyDataTable const & m_table;
    Options const & m_options;
};

// The values of one column in the rows from first up to, not including, last.
ZyDataTableItem stacked(ZyDataTable const & table, unsigned int column, unsigned int first, unsigned int last)
{
    ZyDeque<ZyVariant> values;
    for (unsigned int row = first; row < last; ++row) {
        values.add(table.value(row, column));
    }
    return ZyDataTableItem(std::move(values));
}

void addGroup(ZyDataTable & result, ZyDataTable const & table, unsigned int key, unsigned int first,
              unsigned int last)
{
    Items items;
    for (unsigned int column = 0; column < table.numberColumns(); ++column) {
        items.add(sharedItem(column == key ? ZyDataTableItem(table.value(first, column))
                                           : stacked(table, column, first, last)));
    }
    result.addRow(std::move(items), table.rows().at(first)->type);
}

ZyDataTable grouped(ZyDataTable const & table, unsigned int key)
{
    ZyDataTable result;
    for (unsigned int first = 0, last = 0; first < table.numberRows(); first = last) {
        last = first + 1;
        while (!table.isHeader(first) && last < table.numberRows() &&
               isSame(table.value(first, key), table.value(last, key))) {
            ++last;
        }
        addGroup(result, table, key, first, last);
    }
    return result;
}

} // namespace

ZyDataTable shapeTable(ZyVariantTable const & table, Options const & options)
{
    unsigned int const headings = options.headingRows;
    if (headings > table.numberRows()) {
        throw ConvertError::Line(
            options.input, table.numberRows(),
            QStringLiteral("the text ends with this line, but %1 heading rows were asked for").arg(headings));
    }
    ZyDataTable result = dataTable(table, headings);
    Columns const columns(result, options);
    // Both are looked up before anything moves.
    unsigned int const sortColumn = options.sortBy ? columns.find(*options.sortBy) : 0;
    unsigned int const groupColumn = options.groupBy ? columns.find(*options.groupBy) : 0;
    if (options.sortBy) {
        result.sort(sortColumn, headings, result.numberRows() - headings, isLess);
    }
    return options.groupBy ? grouped(result, groupColumn) : std::move(result);
}
