// SPDX-License-Identifier: BSD-3-Clause
// The steps of a table as actions. The model outlives them.
#pragma once

#include "Rows.h"

#include <ZyAction.h>
#include <ZyUniquePtr.h>

class TableModel;

/** Puts a row into the place of another. */
ZyUniquePtr<ZyAction> exchangeRowAction(TableModel & model, int at, RowPtr row);
/** Puts rows in front of the row \a at. */
ZyUniquePtr<ZyAction> insertRowsAction(TableModel & model, int at, Rows rows);
/** Takes rows out. */
ZyUniquePtr<ZyAction> removeRowsAction(TableModel & model, int at, int count);
/** Puts all rows into another order. */
ZyUniquePtr<ZyAction> reorderAction(TableModel & model, Rows rows);
