// SPDX-License-Identifier: BSD-3-Clause
// Opening, saving, exporting.

#include "FileDialogs.h"
#include "Settings.h"
#include "TableFile.h"
#include "TableView.h"
#include "Workbench.h"

#include <ZyCommandShell.h>
#include <ZyFilePath.h>
#include <ZyFileSystem.h>

#include <QDir>
#include <QFileInfo>
#include <QMenu>

bool Workbench::openFile(QString const & file)
{
    if (formOf(file) == FileForm::Other && QFileInfo(file).isFile()) {
        return askHost(file);
    }
    if (!mayDiscard() || !attempt([&file](Document & document) { document.open(file); })) {
        return false;
    }
    noteFile(file);
    return true;
}

// The library knows what a host does with its kinds of file, and sends this program the command for it.
bool Workbench::askHost(QString const & file)
{
    unsigned int const before = HostShell::FilesAskedFor();
    ZyFileSystem::OpenFile(ZyFilePath(ZyString(file)));
    if (HostShell::FilesAskedFor() == before) {
        fail(QStringLiteral("%1: is nothing that can be opened here").arg(file));
        return false;
    }
    return true;
}

// What a command asks for: a table as a table, and any other file line by line.
void Workbench::showLines(QString const & path)
{
    QString const file = QString(path).replace(u'\\', u'/');
    if (formOf(file) != FileForm::Other) {
        openFile(file);
    } else if (mayDiscard() && attempt([&file](Document & document) { document.openLines(file); })) {
        noteFile(file);
    }
}

void Workbench::noteFile(QString const & file)
{
    m_view->fitColumns();
    m_view->goTo(0, 0);
    Settings::NoteRecentFile(QFileInfo(file).absoluteFilePath());
    fillRecentFiles();
    tell(QStringLiteral("Opened %1").arg(file));
}

void Workbench::fillRecentFiles()
{
    m_recent->clear();
    for (QString const & file : Settings::RecentFiles()) {
        command(m_recent, QString(file).replace(u'&', QStringLiteral("&&")), QKeySequence(),
                [this, file] { openFile(file); });
    }
    m_recent->setEnabled(!m_recent->isEmpty());
}

void Workbench::runCommand(QString const & command)
{
    ZyCommandShell::RunCommand(ZyString(command), true);
}

void Workbench::newTable()
{
    if (mayDiscard()) {
        m_document.reset();
        m_view->goTo(0, 0);
    }
}

void Workbench::askToOpen(ZyFileType const & kind)
{
    QString const file = askForFileToOpen(this, QFileInfo(suggestion(QString())).path(), kind);
    if (!file.isEmpty()) {
        openFile(file);
    }
}

bool Workbench::save()
{
    if (!m_document.canSave()) {
        return saveAs();
    }
    QString const file = m_document.file();
    bool const saved = attempt([&file](Document & document) { document.save(file); });
    if (saved) {
        tell(QStringLiteral("Saved %1").arg(file));
    }
    return saved;
}

bool Workbench::saveAs()
{
    bool const isRich = formOf(m_document.file()) == FileForm::DataTable;
    QString const file =
        askForFileToSave(this, suggestion(isRich ? QStringLiteral(".zyt.xml") : QStringLiteral(".csv")));
    bool const saved = !file.isEmpty() && attempt([&file](Document & document) { document.save(file); });
    if (saved) {
        Settings::NoteRecentFile(QFileInfo(file).absoluteFilePath());
        fillRecentFiles();
        tell(QStringLiteral("Saved %1").arg(file));
    }
    return saved;
}

// The cells of the copy never change: editing puts others into their places.
void Workbench::exportTo(QString const & file)
{
    if (!file.isEmpty()) {
        attempt([this, &file](Document & document) {
            m_exporter.start(tableOf(document.model().table()), file);
            tell(QStringLiteral("Exporting %1").arg(file));
        });
    }
}

void Workbench::exportEnded(QString const & file, QString const & failure)
{
    if (failure.isEmpty()) {
        tell(QStringLiteral("Exported %1").arg(file));
    } else {
        fail(QStringLiteral("Not exported: ") + failure);
    }
    if (m_closeWhenExported && !m_exporter.isBusy()) {
        m_closeWhenExported = false; // the user may have gone on: ask again
        close();
    }
}

// The name of the file with another extension, or the folder where a user begins.
QString Workbench::suggestion(QString const & extension) const
{
    if (m_document.file().isEmpty()) {
        return QDir::homePath();
    }
    QFileInfo const info(m_document.file());
    return info.path() + u'/' + info.baseName() + extension;
}
