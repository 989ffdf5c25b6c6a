// SPDX-License-Identifier: BSD-3-Clause
// Writing beside, then renaming over.

#include "PendingFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <filesystem>
#include <system_error>

namespace
{

std::filesystem::path standardPath(QString const & file)
{
    return std::filesystem::u8path(file.toStdString());
}

void checkTarget(QString const & target, QFileInfo const & place)
{
    if (place.isDir()) {
        throw TableError::File(target, QStringLiteral("is a directory"));
    }
    if (place.exists() && !place.isFile()) {
        throw TableError::File(target, QStringLiteral("is no regular file"));
    }
    if (!QFileInfo(place.absolutePath()).isDir()) {
        throw TableError::File(target, QStringLiteral("its directory does not exist"));
    }
    if (place.exists() && !place.isWritable()) {
        throw TableError::File(target, QStringLiteral("is write-protected"));
    }
}

} // namespace

PendingFile::PendingFile(QString const & target) : m_target(target)
{
    QFileInfo const named(target);
    QFileInfo const place(named.isSymLink() ? named.symLinkTarget() : target);
    checkTarget(target, place);
    m_place = place.absoluteFilePath();
    m_temporary = QStringLiteral("%1/.%2-%3.tmp")
                      .arg(place.absolutePath(), QCoreApplication::applicationName(),
                           QUuid::createUuid().toString(QUuid::WithoutBraces));
}

PendingFile::~PendingFile()
{
    if (!m_done) {
        QFile::remove(m_temporary);
    }
}

ZyFilePath PendingFile::path() const
{
    return ZyFilePath(ZyString(m_temporary));
}

TableError PendingFile::incomplete() const
{
    return TableError::File(m_target, QStringLiteral("not all of it could be written; is the disk full?"));
}

void PendingFile::checkSize(unsigned long long written) const
{
    if (static_cast<unsigned long long>(QFileInfo(m_temporary).size()) != written) {
        throw incomplete();
    }
}

void PendingFile::commit()
{
    if (QFile::exists(m_place)) {
        QFile::setPermissions(m_temporary, QFile::permissions(m_place));
    }
    std::error_code failure;
    std::filesystem::rename(standardPath(m_temporary), standardPath(m_place), failure);
    if (failure) {
        throw TableError::File(
            m_target,
            QStringLiteral("cannot be put into place: %1").arg(QString::fromStdString(failure.message())));
    }
    m_done = true;
}
