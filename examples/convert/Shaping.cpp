// SPDX-License-Identifier: BSD-3-Clause
// Headings, sorting, grouping.

#include "Shaping.h"

#include "Cell.h"
#include "TableError.h"

#include <ZyDeque.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

/** Finds columns by what users call them. */
class Columns
{
public:
    Columns(ZyVariantTable const & table, Options const & options) : m_table(table), m_options(options) {}

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
            if (exactText(m_table.at(m_options.headingRows - 1, column)) == ZyString(name)) {
                return column;
            }
        }
        throw TableError::Line(
            m_options.input, std::max(m_options.headingRows, 1U),
            QStringLiteral("there is no column \"%1\"; there are %2").arg(name, choices()));
    }

private:
    QString choices() const
    {
        QString const numbers = QStringLiteral("the numbers 1 to %1").arg(m_table.numberColumns());
        return m_options.headingRows == 0 ? numbers + QStringLiteral(" and, without --header, no headings")
                                          : numbers + QStringLiteral(" and the headings of this line");
    }

    ZyVariantTable const & m_table;
    Options const & m_options;
};

} // namespace

ShapedTable::ShapedTable(Input const & input, Options const & options)
    : m_table(input.table),
      m_stored(input.asStored && !options.sortBy && !options.groupBy ? &*input.asStored : nullptr),
      m_headings(options.headingRows), m_order(input.table.numberRows())
{
    ZyVariantTable const & table = input.table;
    if (m_headings > table.numberRows()) {
        throw TableError::Line(
            options.input, table.numberRows(),
            QStringLiteral("the text ends with this line, but %1 heading rows were asked for")
                .arg(m_headings));
    }
    std::iota(m_order.begin(), m_order.end(), 0U);
    Columns const columns(table, options);
    if (options.groupBy) {
        m_groupColumn = columns.find(*options.groupBy);
    }
    if (options.sortBy) {
        sort(columns.find(*options.sortBy));
    }
}

void ShapedTable::sort(unsigned int column)
{
    std::stable_sort(m_order.begin() + m_headings, m_order.end(),
                     [this, column](unsigned int a, unsigned int b) {
                         return isLess(m_table.at(a, column), m_table.at(b, column));
                     });
}

unsigned int ShapedTable::groupEnd(unsigned int first) const
{
    unsigned int last = first + 1;
    while (m_groupColumn && first >= m_headings && last < numberRows() &&
           isSame(value(first, *m_groupColumn), value(last, *m_groupColumn))) {
        ++last;
    }
    return last;
}

ZyDataTable ShapedTable::group(unsigned int first, unsigned int last) const
{
    ZyDeque<ZySharedPtr<ZyDataTableItem>> items;
    for (unsigned int column = 0; column < numberColumns(); ++column) {
        ZyDeque<ZyVariant> values;
        unsigned int const end = m_groupColumn == column ? first + 1 : last;
        for (unsigned int row = first; row < end; ++row) {
            values.add(value(row, column));
        }
        items.add(ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem(std::move(values))));
    }
    ZyDataTable result;
    result.addRow(std::move(items), first < m_headings ? ZyDataTable::Header : ZyDataTable::Data);
    return result;
}

void ShapedTable::forEachGroup(std::function<void(ZyDataTable const &, unsigned int)> const & visit) const
{
    if (m_stored != nullptr) {
        forEachStored(*m_stored, visit);
        return;
    }
    for (unsigned int first = 0, last = 0; first < numberRows(); first = last) {
        last = groupEnd(first);
        visit(group(first, last), first);
    }
}

void ShapedTable::forEachStored(ZyDataTable const & stored,
                                std::function<void(ZyDataTable const &, unsigned int)> const & visit) const
{
    unsigned int first = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : stored.rows().std_deque()) {
        ZyDataTable one;
        one.addRow(ZyDataTableRow(*row));
        visit(one, first);
        first += one.numberSpreadsheetRows();
    }
}
