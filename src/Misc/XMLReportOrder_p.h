// SPDX-License-Identifier: BSD-3-Clause
// The order in which a report lists the runs of a table.
#pragma once

#include <XMLReport.h>

#include <vector>

namespace XMLReportOrder
{
/** Runs of a table, which must outlive them. */
using Runs = std::vector<XMLReportInfo const *>;

/** The runs in the order of their case numbers' magnitudes; equal ones as in the table. */
Runs byCase(YHashTable<XMLReportInfo> const & table);

/**
 * The runs in the order of a column of the sensitivity page: 0 the case number, 1 the description, then
 * value, delta and norm of each merit function, the greatest magnitude first. Equal ones as in the table.
 *
 * \param column any number: more than one beyond the reference run's last column it means that one, below 0
 * it leaves the order of the table
 */
Runs byColumn(YHashTable<XMLReportInfo> const & table, int column);
} // namespace XMLReportOrder
