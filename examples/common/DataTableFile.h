// SPDX-License-Identifier: BSD-3-Clause
// The file form of a rich table: the XML that the library gives a ZyDataTable, below one element of our own.
#pragma once

#include "TextCheck.h"

#include <ZyDataTable.h>
#include <ZyFilePath.h>

#include <QString>

class ZyIODevice;

/** Whether a name ends with ".zyt.xml", in capitals or not. */
bool isDataTableFile(QString const & file);

/**
 * Looks at a file of this form before the library reads it: the library passes over elements that it does not
 * know, and tells of damage without a line.
 *
 * \return its size and extremes; a row of stacked values counts as many lines as it will have
 * \throws TableError the file cannot be read, is no XML, or not of this form
 */
TextFacts checkDataTable(QString const & file);

/** Reads a file that checkDataTable has passed. */
ZyDataTable readDataTable(QString const & file);

/** Reads what writeDataTable() has written. */
ZyDataTable readDataTable(ZyIODevice & device);

/** Writes a table in this form. */
void writeDataTable(ZyIODevice & device, ZyDataTable const & table);

/** Writes a table in this form. \return the number of bytes */
unsigned long long writeDataTable(ZyFilePath const & file, ZyDataTable const & table);

/**
 * The first place where two tables differ, as words to be shown; empty when they are the same to the last
 * letter and digit.
 */
QString firstDifference(ZyDataTable const & a, ZyDataTable const & b);
