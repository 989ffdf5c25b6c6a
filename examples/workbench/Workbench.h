// SPDX-License-Identifier: BSD-3-Clause
// The window.
#pragma once

#include "Document.h"
#include "Exporter.h"
#include "HostShell.h"

#include <ZyFileType.h>

#include <QMainWindow>

#include <functional>

class LogPanel;
class QLabel;
class QMenu;
class TableView;

/**
 * The main window: a table, the kinds of file at its side, a log below it.
 *
 * What fails is told in the status bar and in the log, and has changed nothing.
 */
class Workbench : public QMainWindow
{
    Q_OBJECT

public:
    Workbench();
    ~Workbench() override;

    /** Opens a file: a table here, any other kind through the host's commands. \return whether it is open */
    bool openFile(QString const & file);
    /** Begins to export the table; the kind is told by the name. \param file empty: nothing happens */
    void exportTo(QString const & file);
    /** Does something with the document; what it throws is shown. \return whether nothing was thrown */
    bool attempt(std::function<void(Document &)> const & work);
    /** Shows what has gone well. */
    void tell(QString const & text);
    /** Shows what has failed. */
    void fail(QString const & text);

protected:
    void closeEvent(QCloseEvent * event) override;

private:
    // Workbench.cpp
    void buildPanels();
    void connectParts();
    void showState();
    bool mayDiscard();

    // WorkbenchMenus.cpp
    QAction * command(QMenu * menu, QString const & text, QKeySequence const & keys,
                      std::function<void()> const & work);
    void buildMenus();
    void buildFileMenu();
    void buildEditMenu();
    void buildTableMenu();
    void buildViewMenu();
    void buildDeveloperMenu();
    void buildToolBar();

    // WorkbenchFiles.cpp
    void newTable();
    void askToOpen(ZyFileType const & kind);
    bool save();
    bool saveAs();
    void exportEnded(QString const & file, QString const & failure);
    QString suggestion(QString const & extension) const;

    bool askHost(QString const & file);
    void showLines(QString const & file);
    void noteFile(QString const & file);
    void fillRecentFiles();
    void runCommand(QString const & command);

    // WorkbenchEditing.cpp
    void onArea(std::function<void(Document &, QRect const &)> const & work);
    void insertRow(int offset);
    void sort(bool ascending);
    void copy();
    void paste();

    Document m_document;
    Exporter m_exporter;
    HostShell m_shell;
    TableView * m_view;
    LogPanel * m_log;
    QLabel * m_size;
    QAction * m_undo = nullptr;
    QAction * m_redo = nullptr;
    QMenu * m_recent = nullptr;
    QList<QAction *> m_toolBarActions;
    bool m_closeWhenExported = false;
};
