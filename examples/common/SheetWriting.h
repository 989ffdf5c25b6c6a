// SPDX-License-Identifier: BSD-3-Clause
// From tables to sheets and to comma-separated text, row by row.
#pragma once

#include <ZyDataTable.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyVariant.h>

#include <functional>

class ZyIODevice;

/** Takes a piece of a table and the row of the sheet where it begins. */
using PieceVisitor = std::function<void(ZyDataTable const & piece, unsigned int firstRow)>;

/** Hands a table out from top to bottom, in one piece or in several. */
using TablePieces = std::function<void(PieceVisitor const & visit)>;

/** Hears of each row before it is written; what it throws ends the writing. */
using RowListener = std::function<void(unsigned int row)>;

/** The pieces of a table that is one piece. \param table outlives the result */
TablePieces onePiece(ZyDataTable const & table);

/**
 * Writes a workbook of one sheet. A full disk can pass unseen: look at the package afterwards.
 * \throws ZyException it cannot be written
 */
void writeWorkbook(ZyFilePath const & file, ZyString const & sheet, TablePieces const & pieces,
                   RowListener const & onRow);

/** Writes a sheet as a single XML file. \return the number of bytes \throws ZyException it cannot be written */
unsigned long long writeXmlSheet(ZyFilePath const & file, TablePieces const & pieces,
                                 RowListener const & onRow);

/** Gives the value of a cell. */
using CellReader = std::function<ZyVariant const &(unsigned int row, unsigned int column)>;

/** Writes comma-separated text, every digit of numbers included. \throws ZyException it cannot be written */
void writeCsv(ZyIODevice & device, unsigned int rows, unsigned int columns, CellReader const & cell,
              RowListener const & onRow);
