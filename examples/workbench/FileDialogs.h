// SPDX-License-Identifier: BSD-3-Clause
// Questions for names of files.
#pragma once

#include <ZyFileType.h>

#include <QString>

class QWidget;

/**
 * Asks for a file to open. \a kind is what is shown first: all tables, or the files of one kind.
 * \return empty when the user has thought better of it
 */
QString askForFileToOpen(QWidget * parent, QString const & directory, ZyFileType const & kind);

/** Asks where to save a table. \param suggestion a file, or a directory \return empty: nowhere */
QString askForFileToSave(QWidget * parent, QString const & suggestion);

/** Asks where to put a workbook. \param suggestion a file, or a directory \return empty: nowhere */
QString askForWorkbook(QWidget * parent, QString const & suggestion);

/** Asks where to put an XML sheet. \param suggestion a file, or a directory \return empty: nowhere */
QString askForXmlSheet(QWidget * parent, QString const & suggestion);
