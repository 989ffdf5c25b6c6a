// SPDX-License-Identifier: BSD-3-Clause
// What the user asks for.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/** The program's arguments, checked as far as that goes without reading anything. */
struct Options
{
    QString input;
    QStringList outputs;
    bool typed = true;              ///< numbers become numbers
    unsigned int headingRows = 0;   ///< how many rows from the first on are headings
    QString sheet;                  ///< name of the sheet in a workbook
    std::optional<QString> sortBy;  ///< column, a number from 1 or a heading
    std::optional<QString> groupBy; ///< column, a number from 1 or a heading
    bool quiet = false;
};

/** The kinds of file that can be written. */
enum class OutputKind { Workbook, XmlSheet, DataTable, Csv };

/** The kind that the extension of a file name tells. \throws UsageError it tells none */
OutputKind outputKind(QString const & file);

/** Whether any output is a sheet, which has limits that text does not have. */
bool writesSheet(Options const & options);

/**
 * Reads the arguments, the program's own name first.
 * \return nothing when help or the version was asked for and has been printed
 * \throws UsageError the arguments make no sense
 */
std::optional<Options> parseOptions(QStringList const & arguments);
