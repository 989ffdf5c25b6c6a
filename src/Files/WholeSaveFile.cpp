// SPDX-License-Identifier: BSD-3-Clause
// Safe saves: every byte is counted before the new file may take the place of the old.
#include "Files/WholeSaveFile_p.h"

#include <QFileInfo>

#include <utility>

WholeSaveFile::WholeSaveFile(QString const & file) : QSaveFile(file) {}

WholeSaveFile::~WholeSaveFile() = default;

/** What is no regular file, a device or a pipe, would be replaced by one. */
bool WholeSaveFile::open(OpenMode mode)
{
    QFileInfo const old(fileName());
    if (old.exists() && !old.isFile() && !old.isDir()) {
        setErrorString(QStringLiteral("Not a regular file"));
        return false;
    }
    return QSaveFile::open(mode);
}

/** A full disk takes what it can first and gives its reason at the next try. */
qint64 WholeSaveFile::writeData(char const * data, qint64 size)
{
    qint64 done = 0;
    while (done < size) {
        qint64 const count = QSaveFile::writeData(data + done, size - done);
        if (count <= 0) {
            giveUp();
            return -1;
        }
        done += count;
    }
    return done;
}

/** Giving up has words of its own; those of the failure are the ones to keep. */
void WholeSaveFile::giveUp()
{
    if (m_reason.isNull()) {
        flush(); // a piece cut short gives its reason at the next try
        m_reason = errorString();
    }
    cancelWriting();
    setErrorString(m_reason);
}

bool WholeSaveFile::finish()
{
    if (isOpen() && (!flush() || error() != QFileDevice::NoError)) {
        giveUp();
    }
    QString const reason = std::exchange(m_reason, QString());
    bool const done = commit();
    if (!done && !reason.isNull()) {
        setErrorString(reason);
    }
    return done;
}
