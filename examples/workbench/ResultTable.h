// SPDX-License-Identifier: BSD-3-Clause
// The result file of a multi-run analysis as a table.
#pragma once

#include <ZyDataTable.h>

#include <QString>

/**
 * A heading, and a row for each run by case number: its label, its seed, the value of each merit function,
 * and the used value of each parameter that is changed in any run.
 * \throws TableError the file cannot be read
 */
ZyDataTable readResults(QString const & file);
