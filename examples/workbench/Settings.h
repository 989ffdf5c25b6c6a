// SPDX-License-Identifier: BSD-3-Clause
// What the program remembers from one run to the next.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/**
 * Recent files and the window, kept in the configuration that the program has chosen. What cannot be read is
 * as if it had never been written; what cannot be written is forgotten.
 */
class Settings
{
public:
    /** Keeps the configuration in a file, whose folder is made. */
    static void UseFile(QString const & file);

    /** The newest first. */
    static QStringList RecentFiles();
    /** Puts a file in front. */
    static void NoteRecentFile(QString const & file);

    /** Where the window was, as it has told. */
    static QByteArray Geometry();
    /** How its panels stood, as it has told. */
    static QByteArray Panels();
    static void SaveWindow(QByteArray const & geometry, QByteArray const & panels);
};
