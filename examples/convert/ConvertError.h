// SPDX-License-Identifier: BSD-3-Clause
// The failures of this program: one line each, ready to be shown.
#pragma once

#include <ZyException.h>

#include <QString>

/** Whatever keeps the program from doing what it was asked. The message names the file it is about. */
class ConvertError : public ZyException
{
public:
    /** "zyconvert: " and \a reason: what was asked cannot be done. */
    static ConvertError Usage(QString const & reason) { return ConvertError(u"zyconvert", reason); }
    /** \a file ": " \a reason. */
    static ConvertError File(QString const & file, QString const & reason)
    {
        return ConvertError(file, reason);
    }
    /** \a file ":" \a line ": " \a reason; lines count from 1. */
    static ConvertError Line(QString const & file, unsigned long long line, QString const & reason)
    {
        return ConvertError(file + u':' + QString::number(line), reason);
    }

    char const * name() const override { return "ConvertError"; }

private:
    ConvertError(QStringView where, QString const & reason)
        : ZyException(ZyString(where.toString() + QStringLiteral(": ") + reason))
    {}
};
