// SPDX-License-Identifier: BSD-3-Clause
// What is wrong with a file of a table: one line, ready to be shown.
#pragma once

#include <ZyException.h>

#include <QString>

/** Whatever keeps a host from reading or writing a file. The message names the file it is about. */
class TableError : public ZyException
{
public:
    /** \a file ": " \a reason. */
    static TableError File(QString const & file, QString const & reason) { return TableError(file, reason); }
    /** \a file ":" \a line ": " \a reason; lines count from 1. */
    static TableError Line(QString const & file, unsigned long long line, QString const & reason)
    {
        return TableError(file + u':' + QString::number(line), reason);
    }

    char const * name() const override { return "TableError"; }

protected:
    TableError(QStringView where, QString const & reason)
        : ZyException(ZyString(where.toString() + QStringLiteral(": ") + reason))
    {}
};
