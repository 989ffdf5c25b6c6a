// SPDX-License-Identifier: BSD-3-Clause
// Files that are there whole, or told not to be.
#pragma once

#include "AnalysisError.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>

/** \throws AnalysisError the file cannot be written; an older one is as it was */
inline void saveFile(QString const & file, QByteArray const & content)
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size() || !target.flush() ||
        !target.commit()) {
        throw AnalysisError::At(file, QStringLiteral("cannot be written (%1)").arg(target.errorString()));
    }
}

/** For files written without a look at the disk. \throws AnalysisError the file does not end with \a end */
inline void checkEnd(QString const & file, QByteArray const & end)
{
    QFile written(file);
    bool isWhole =
        written.open(QIODevice::ReadOnly) && written.seek(qMax(0LL, written.size() - 2LL * end.size()));
    isWhole =
        isWhole && written.readAll().replace("\r\n", "\n").endsWith(end); // lines end as the system wants it
    if (!isWhole) {
        throw AnalysisError::At(file, QStringLiteral("not all of it could be written; is the disk full?"));
    }
}
