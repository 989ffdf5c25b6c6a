// SPDX-License-Identifier: BSD-3-Clause
// From the table as it was read to the table as it is to be written.
#pragma once

#include "Options.h"

#include <ZyDataTable.h>
#include <ZyVariantTable.h>

/**
 * Marks the heading rows, then sorts, then groups, as the options ask.
 *
 * In a group the grouping column has one value in a tall cell, and each other cell the values of all its
 * rows.
 *
 * \throws ConvertError there are fewer rows than heading rows, or a column that is not there
 */
ZyDataTable shapeTable(ZyVariantTable const & table, Options const & options);
