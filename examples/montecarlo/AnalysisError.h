// SPDX-License-Identifier: BSD-3-Clause
// The failures of this program: one line each, ready to be shown.
#pragma once

#include <ZyException.h>

#include <QString>

/** Whatever keeps the program from doing what it was asked. */
class AnalysisError : public ZyException
{
public:
    explicit AnalysisError(QString const & message) : ZyException(ZyString(message)) {}
    /** "zyanalyse: " and \a reason: what was asked cannot be done. */
    static AnalysisError Usage(QString const & reason)
    {
        return AnalysisError(QStringLiteral("zyanalyse: ") + reason);
    }
    /** \a where ": " \a reason; a component, a merit function or a file. */
    static AnalysisError At(ZyString const & where, QString const & reason)
    {
        return AnalysisError(where.toQString() + QStringLiteral(": ") + reason);
    }
    static AnalysisError At(QString const & where, QString const & reason)
    {
        return AnalysisError(where + QStringLiteral(": ") + reason);
    }

    char const * name() const override { return "AnalysisError"; }
};
