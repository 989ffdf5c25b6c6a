// SPDX-License-Identifier: BSD-3-Clause
// The file of every safe save: the new content takes the place of the old whole or not at all.
#pragma once

#include <QSaveFile>
#include <QString>

/**
 * A QSaveFile takes the place of the old file even when the new one is cut short: to it a write that stops
 * half-way and the flush of the last piece are no failures. Here they are. Whoever writes, through whatever
 * interface of the device, ends by finish() and never by commit().
 */
class WholeSaveFile : public QSaveFile
{
public:
    explicit WholeSaveFile(QString const & file);
    ~WholeSaveFile() override;

    /** As QSaveFile; fails besides when the path names a device, a pipe or a socket. */
    bool open(OpenMode mode) override;

    /**
     * Puts the new content in place.
     * \return false when anything has failed since open(): the old file stays, errorString() is the first
     * reason
     */
    bool finish();

protected:
    /** Writes all of it or fails. */
    qint64 writeData(char const * data, qint64 size) override;

private:
    void giveUp();

    QString m_reason; ///< of the first failure; null without one
};
