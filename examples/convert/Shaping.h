// SPDX-License-Identifier: BSD-3-Clause
// From the table as it was read to the rows as they are to be written.
#pragma once

#include "Options.h"
#include "TableReading.h"

#include <ZyDataTable.h>
#include <ZyVariantTable.h>

#include <functional>
#include <optional>
#include <vector>

/**
 * The rows of a table in the order and the groups that the options ask for: headings first, as they are, then
 * the rest, sorted and after that grouped.
 *
 * The library's rich table, which knows tall cells, is made for one group at a time: a cell of it takes many
 * times the memory of one in the plain table.
 */
class ShapedTable
{
public:
    /**
     * \param input outlives this object
     * \throws TableError there are fewer rows than heading rows, or a column that is not there
     */
    ShapedTable(Input const & input, Options const & options);

    unsigned int numberRows() const { return m_table.numberRows(); }
    unsigned int numberColumns() const { return m_table.numberColumns(); }
    /** A cell by its row in the new order. */
    ZyVariant const & value(unsigned int row, unsigned int column) const
    {
        return m_table.at(m_order[row], column);
    }
    /**
     * Calls \a visit for each group from top to bottom, with a table of one row and the sheet's row where it
     * begins.
     *
     * In a group the grouping column has one value in a tall cell, and each other cell the values of all its
     * rows. A row that belongs to no group is a group of its own. A rich table that is neither sorted nor
     * grouped keeps the rows it was stored with.
     */
    void
    forEachGroup(std::function<void(ZyDataTable const & group, unsigned int firstRow)> const & visit) const;

private:
    void sort(unsigned int column);
    unsigned int groupEnd(unsigned int first) const;
    ZyDataTable group(unsigned int first, unsigned int last) const;

    void
    forEachStored(ZyDataTable const & stored,
                  std::function<void(ZyDataTable const & group, unsigned int firstRow)> const & visit) const;

    ZyVariantTable const & m_table;
    ZyDataTable const * m_stored; ///< what to write instead of groups of the table; null: nothing
    unsigned int m_headings;
    std::optional<unsigned int> m_groupColumn;
    std::vector<unsigned int> m_order; ///< rows of the table from top to bottom
};
