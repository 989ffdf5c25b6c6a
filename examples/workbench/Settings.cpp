// SPDX-License-Identifier: BSD-3-Clause
// Sections and keys of the configuration.

#include "Settings.h"

#include <ZyApplicationProperties.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyString.h>

#include <keelbase/KbHost.h>

#include <QDir>
#include <QFileInfo>

namespace
{

constexpr char const * recentSection = "RecentFiles";
constexpr char const * windowSection = "Window";
constexpr int mostRecentFiles = 8;

QByteArray bytesOf(char const * key)
{
    try {
        return QByteArray::fromBase64(QByteArray(ZyApplicationProperties::Read(windowSection, key).c_str()));
    } catch (ZyNotFoundException const &) {
        return QByteArray();
    }
}

void write(char const * key, QByteArray const & bytes)
{
    ZyApplicationProperties::Write(windowSection, key, ZyString(bytes.toBase64().constData()));
}

} // namespace

void Settings::UseFile(QString const & file)
{
    QDir().mkpath(QFileInfo(file).path());
    kb::UseConfigFile(file.toUtf8().constData());
}

QStringList Settings::RecentFiles()
{
    QStringList files;
    try {
        ZyDeque<ZyString> const keys = ZyApplicationProperties::PropertyNames(recentSection);
        for (ZyString const & key : keys.std_deque()) {
            QString const file = ZyApplicationProperties::Read(recentSection, key).toQString();
            if (!file.isEmpty()) {
                files << file;
            }
        }
    } catch (ZyNotFoundException const &) { // nothing has been opened so far
    }
    return files;
}

void Settings::NoteRecentFile(QString const & file)
{
    QStringList files = RecentFiles();
    files.removeAll(file);
    files.prepend(file);
    for (int i = 0; i < mostRecentFiles; ++i) {
        ZyApplicationProperties::Write(recentSection, ZyString(QString::number(i + 1)),
                                       ZyString(files.value(i)));
    }
}

QByteArray Settings::Geometry()
{
    return bytesOf("Geometry");
}

QByteArray Settings::Panels()
{
    return bytesOf("Panels");
}

void Settings::SaveWindow(QByteArray const & geometry, QByteArray const & panels)
{
    write("Geometry", geometry);
    write("Panels", panels);
}
