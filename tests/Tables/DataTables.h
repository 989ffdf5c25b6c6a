// SPDX-License-Identifier: BSD-3-Clause
// Short spellings for the data tables of the tests.
#pragma once

#include <ZyDataTable.h>
#include <ZyString.h>

#include <string>
#include <utility>
#include <vector>

using Values = ZyDeque<ZyVariant>;
using Items = ZyDeque<ZyDataTableItem>;
using SharedItems = ZyDeque<ZySharedPtr<ZyDataTableItem>>;

/** A table of plain rows. */
inline ZyDataTable tableOf(std::vector<Items> const & rows)
{
    ZyDataTable table;
    for (Items const & row : rows) {
        table.addRow(row, ZyDataTable::Data);
    }
    return table;
}

/** The texts of one column, row by row, each with a blank behind it. */
inline std::string columnOf(ZyDataTable const & table, unsigned int column)
{
    std::string texts;
    for (unsigned int row = 0; row < table.numberRows(); ++row) {
        texts += table.value(row, column).toString().toStdString() + " ";
    }
    return texts;
}
