// SPDX-License-Identifier: BSD-3-Clause
// Looks at the input before anything is read from it: what reader it needs, and whether it is a table at all.
#pragma once

#include <QString>

class QFile;

/** A largest number and where it stands. */
struct Extreme
{
    unsigned long long value = 0;
    unsigned long long line = 1;
};

/** What one pass over the bytes of a file tells. Lines count from 1. */
struct TextFacts
{
    unsigned long long bytes = 0;
    unsigned long long lines = 0;
    bool byteOrderMark = false;
    bool quotedFields = false;   ///< a field begins with a double quote: quotes guard commas
    bool emptyLastField = false; ///< the last field of a line, or a whole line, is blank
    Extreme fields;              ///< most fields in a line
    Extreme fieldLength;         ///< longest field, in characters as spreadsheets count them (UTF-16)
};

/** Opens the input for reading. \throws TableError there is no such file, or none that can be read */
void openInput(QFile & file, QString const & name);

/**
 * Reads a file once and looks at every byte; needs no memory to speak of.
 *
 * \throws TableError the file cannot be read, is empty, is no UTF-8 text, holds control characters, or has quoted
 * fields that are not well-formed
 */
TextFacts checkText(QString const & file);

/** \throws TableError the table is larger than memory may hold, or than a sheet, where one is to be written */
void checkSize(QString const & file, TextFacts const & facts, bool forSheet);
