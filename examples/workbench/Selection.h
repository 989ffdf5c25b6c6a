// SPDX-License-Identifier: BSD-3-Clause
// Cells on their way to the clipboard and back.
#pragma once

#include "Rows.h"

#include <ZyVariantTable.h>

#include <QRect>
#include <QString>

/** The cells of an area, in the forms in which other programs take them. */
struct CellTexts
{
    QString plain; ///< tabs between columns, a line feed behind each row
    QString csv;   ///< comma-separated text
    QString html;  ///< a page with a table
};

/** \param area columns by rows, all of which are there */
CellTexts textsOf(Rows const & rows, QRect const & area);

/** Puts all forms on the clipboard at once. \throws ZyNoClipboardException there is no clipboard */
void copyCells(CellTexts const & texts);

/** Cells of a plain text: a line a row, tabs between columns. Numbers become numbers; short rows are filled
 * up. */
ZyVariantTable cellsOf(QString const & plain);
