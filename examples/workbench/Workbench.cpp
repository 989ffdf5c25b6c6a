// SPDX-License-Identifier: BSD-3-Clause
// What the window is made of, what it shows, and how it closes.

#include "Workbench.h"

#include "KindList.h"
#include "LogPanel.h"
#include "Settings.h"
#include "TableView.h"

#include <ZyException.h>

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QStatusBar>

#include <exception>

namespace
{

QDockWidget * dock(QMainWindow * window, QString const & name, QString const & title, QWidget * content)
{
    auto * const panel = new QDockWidget(title, window);
    panel->setObjectName(name);
    panel->setWidget(content);
    return panel;
}

} // namespace

Workbench::Workbench()
    : m_view(new TableView(m_document.model(), this)), m_log(new LogPanel(this)), m_size(new QLabel(this))
{
    setObjectName(QStringLiteral("workbench"));
    resize(1100, 720);
    setCentralWidget(m_view);
    statusBar()->addPermanentWidget(m_size);
    buildPanels();
    buildMenus();
    connectParts();
    restoreGeometry(Settings::Geometry());
    restoreState(Settings::Panels());
    m_view->fitColumns();
    m_view->goTo(0, 0);
    showState();
}

Workbench::~Workbench() = default;

void Workbench::connectParts()
{
    connect(&m_document, &Document::changed, this, &Workbench::showState);
    connect(&m_document.model(), &TableModel::editRequested, this,
            [this](int row, int column, QString const & text) {
                attempt([&](Document & document) { document.edit(row, column, text); });
            });
    connect(&m_exporter, &Exporter::ended, this, &Workbench::exportEnded);
    connect(&m_exporter, &Exporter::progressed, this, [this](QString const & file, int percent) {
        statusBar()->showMessage(
            QStringLiteral("Exporting %1: %2 %").arg(QFileInfo(file).fileName()).arg(percent));
    });
    connect(&m_shell, &HostShell::printed, m_log, &LogPanel::append);
    connect(&m_shell, &HostShell::openRequested, this, &Workbench::showLines);
    connect(m_log, &LogPanel::commandEntered, this, &Workbench::runCommand);
}

void Workbench::buildPanels()
{
    auto * const kinds = new KindList(this);
    connect(kinds, &KindList::chosen, this, [this](ZyFileType::Type type) { askToOpen(type); });
    QDockWidget * const side = dock(this, QStringLiteral("kindsDock"), QStringLiteral("File kinds"), kinds);
    QDockWidget * const below = dock(this, QStringLiteral("logDock"), QStringLiteral("Log"), m_log);
    addDockWidget(Qt::LeftDockWidgetArea, side);
    addDockWidget(Qt::BottomDockWidgetArea, below);
    resizeDocks({side}, {190}, Qt::Horizontal);
    resizeDocks({below}, {150}, Qt::Vertical);
}

bool Workbench::attempt(std::function<void(Document &)> const & work)
{
    try {
        work(m_document);
        return true;
    } catch (ZyException const & failure) {
        fail(failure.message().toQString());
    } catch (std::exception const & failure) {
        fail(QString::fromUtf8(failure.what()));
    }
    return false;
}

void Workbench::tell(QString const & text)
{
    statusBar()->setStyleSheet(QString());
    statusBar()->showMessage(text);
    m_log->appendLine(text);
}

void Workbench::fail(QString const & text)
{
    statusBar()->setStyleSheet(QStringLiteral("QStatusBar { color: #b00020 }"));
    statusBar()->showMessage(text);
    m_log->appendLine(text);
}

void Workbench::showState()
{
    History const & history = m_document.history();
    QString const file = m_document.file();
    m_undo->setEnabled(history.canUndo());
    m_undo->setText(QStringLiteral("&Undo ") + history.undoText());
    m_redo->setEnabled(history.canRedo());
    m_redo->setText(QStringLiteral("&Redo ") + history.redoText());
    m_size->setText(QStringLiteral("%1 rows × %2 columns")
                        .arg(m_document.model().rowCount())
                        .arg(m_document.model().columnCount()));
    setWindowTitle(QStringLiteral("%1[*] - zyworkbench")
                       .arg(file.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(file).fileName()));
    setWindowModified(history.isModified());
    m_view->fitCells();
}

// Whether the table may go: it is saved, or the user does not want to.
bool Workbench::mayDiscard()
{
    m_view->endTyping();
    if (!m_document.history().isModified()) {
        return true;
    }
    auto const answer = QMessageBox::question(
        this, QStringLiteral("Unsaved changes"), QStringLiteral("The table has been changed. Save it?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

// A window that goes takes its exports along: it stays until they are done, or until it is closed again.
void Workbench::closeEvent(QCloseEvent * event)
{
    if (!m_closeWhenExported && !mayDiscard()) {
        event->ignore();
        return;
    }
    if (!m_exporter.isBusy()) {
        Settings::SaveWindow(saveGeometry(), saveState());
        event->accept();
        return;
    }
    event->ignore();
    if (m_closeWhenExported) {
        m_exporter.stop();
    } else {
        m_closeWhenExported = true;
        tell(QStringLiteral(
            "The window closes when the export is done; close it again to give the export up."));
    }
}
