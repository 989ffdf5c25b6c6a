// SPDX-License-Identifier: BSD-3-Clause
// Menus and the tool bar.

#include "Workbench.h"

#include "FileDialogs.h"
#include "TableView.h"

#include <ZyCommandShell.h>
#include <ZyString.h>

#include <QDockWidget>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

QAction * Workbench::command(QMenu * menu, QString const & text, QKeySequence const & keys,
                             std::function<void()> const & work)
{
    QAction * const action = menu->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [this, work] {
        m_view->endTyping(); // a command is about the table with what has been typed
        work();
    });
    return action;
}

void Workbench::buildMenus()
{
    buildFileMenu();
    buildEditMenu();
    buildTableMenu();
    buildViewMenu();
    buildDeveloperMenu();
    buildToolBar();
}

void Workbench::buildFileMenu()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&File"));
    QAction * const fresh = command(menu, QStringLiteral("&New"), QKeySequence::New, [this] { newTable(); });
    QAction * const open = command(menu, QStringLiteral("&Open…"), QKeySequence::Open,
                                   [this] { askToOpen(ZyFileType::Undefined); });
    m_recent = menu->addMenu(QStringLiteral("Open &recent"));
    fillRecentFiles();
    QAction * const keep = command(menu, QStringLiteral("&Save"), QKeySequence::Save, [this] { save(); });
    command(menu, QStringLiteral("Save &as…"), QKeySequence(QStringLiteral("Ctrl+Shift+S")),
            [this] { saveAs(); });
    menu->addSeparator();
    command(menu, QStringLiteral("Export &workbook…"), QKeySequence(QStringLiteral("Ctrl+E")),
            [this] { exportTo(askForWorkbook(this, suggestion(QStringLiteral(".xlsx")))); });
    command(menu, QStringLiteral("Export &XML sheet…"), QKeySequence(QStringLiteral("Ctrl+Shift+E")),
            [this] { exportTo(askForXmlSheet(this, suggestion(QStringLiteral(".xml")))); });
    menu->addSeparator();
    command(menu, QStringLiteral("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), [this] { close(); });
    fresh->setIcon(style()->standardIcon(QStyle::SP_FileIcon));
    open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    keep->setIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    m_toolBarActions << fresh << open << keep;
}

void Workbench::buildEditMenu()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Edit"));
    m_undo = command(menu, QStringLiteral("&Undo"), QKeySequence::Undo,
                     [this] { attempt([](Document & document) { document.undo(); }); });
    m_redo = command(menu, QStringLiteral("&Redo"), QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                     [this] { attempt([](Document & document) { document.redo(); }); });
    menu->addSeparator();
    command(menu, QStringLiteral("&Copy"), QKeySequence::Copy, [this] { copy(); });
    command(menu, QStringLiteral("&Paste"), QKeySequence::Paste, [this] { paste(); });
    command(menu, QStringLiteral("C&lear"), QKeySequence::Delete,
            [this] { onArea([](Document & document, QRect const & area) { document.clear(area); }); });
    m_undo->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    m_redo->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    m_undo->setIconText(QStringLiteral("Undo"));
    m_redo->setIconText(QStringLiteral("Redo"));
    m_toolBarActions << nullptr << m_undo << m_redo;
}

void Workbench::buildTableMenu()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Table"));
    command(menu, QStringLiteral("Insert row &above"), QKeySequence(QStringLiteral("Ctrl+Shift+I")),
            [this] { insertRow(0); });
    command(menu, QStringLiteral("Insert row &below"), QKeySequence(QStringLiteral("Ctrl+I")),
            [this] { insertRow(1); });
    command(menu, QStringLiteral("&Delete rows"), QKeySequence(QStringLiteral("Ctrl+D")), [this] {
        onArea(
            [](Document & document, QRect const & area) { document.removeRows(area.top(), area.height()); });
    });
    command(menu, QStringLiteral("&Heading"), QKeySequence(QStringLiteral("Ctrl+H")), [this] {
        onArea([](Document & document, QRect const & area) {
            document.toggleHeadings(area.top(), area.height());
        });
    });
    menu->addSeparator();
    command(menu, QStringLiteral("&Sort by this column"), QKeySequence(QStringLiteral("Ctrl+L")),
            [this] { sort(true); });
    command(menu, QStringLiteral("Sort by this column, &descending"),
            QKeySequence(QStringLiteral("Ctrl+Shift+L")), [this] { sort(false); });
}

// A command that faults is told in the log, and the program goes on.
void Workbench::buildDeveloperMenu()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&Developer"));
    command(menu, QStringLiteral("Run a command that &faults"), QKeySequence(),
            [this] { runCommand(QStringLiteral("fault")); });
    command(menu, QStringLiteral("&Print a message"), QKeySequence(),
            [] { ZyCommandShell::PrintMessage("Printed by the library\n"); });
}

void Workbench::buildViewMenu()
{
    QMenu * const menu = menuBar()->addMenu(QStringLiteral("&View"));
    for (QDockWidget const * const panel : findChildren<QDockWidget *>()) {
        menu->addAction(panel->toggleViewAction());
    }
}

void Workbench::buildToolBar()
{
    QToolBar * const bar = addToolBar(QStringLiteral("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setIconSize(QSize(16, 16));
    for (QAction * const action : m_toolBarActions) {
        action ? bar->addAction(action) : static_cast<void>(bar->addSeparator());
    }
}
