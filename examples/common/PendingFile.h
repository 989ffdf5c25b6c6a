// SPDX-License-Identifier: BSD-3-Clause
// A file that appears whole or not at all.
#pragma once

#include "TableError.h"

#include <ZyFilePath.h>

#include <QString>

/**
 * The place where an output is written before it replaces the file the user named: beside it, under a name of
 * its own, and removed again unless everything went well.
 */
class PendingFile
{
public:
    /** \throws TableError nothing can be written there */
    explicit PendingFile(QString const & target);
    PendingFile(PendingFile const &) = delete;
    PendingFile & operator=(PendingFile const &) = delete;
    ~PendingFile();

    /** Where to write, for the library and for Qt. */
    ZyFilePath path() const;
    QString const & temporary() const { return m_temporary; }
    /** The name that the user gave. */
    QString const & target() const { return m_target; }
    /** What to throw when the disk holds less than was written. */
    TableError incomplete() const;
    /** \throws TableError what was written is not what stands on the disk */
    void checkSize(unsigned long long written) const;
    /**
     * Puts the file into its place, over an existing one, whose permissions it takes on.
     * \throws TableError that cannot be done; the existing file is as it was
     */
    void commit();

private:
    QString m_target;
    QString m_place; ///< the target, or what it links to
    QString m_temporary;
    bool m_done = false;
};
