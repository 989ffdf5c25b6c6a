// SPDX-License-Identifier: BSD-3-Clause
// A window under the hands of a test.
#pragma once

#include "LogPanel.h"
#include "ScratchDirectory.h"
#include "TableView.h"
#include "Workbench.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

class QAction;
class QDialog;

/** A window, a folder of its own, and what a user does with hands and eyes. */
class WindowTest : public ::testing::Test
{
protected:
    WindowTest();
    ~WindowTest() override;

    // Hands.
    /** Gives the keyboard to a window. */
    void activate(QWidget * widget);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void select(int row, int column, int lastRow, int lastColumn);
    /** Types a text into a cell, and Enter. */
    void type(int row, int column, QString const & text);
    /** Opens a menu of the menu bar with the mouse and clicks the entry whose text begins so. */
    void choose(QString const & menu, QString const & entry);
    /** Does something to the dialog that \a trigger opens. \return whether there was one */
    bool inDialog(std::function<void()> const & trigger, std::function<void(QDialog *)> const & answer);
    /** Types the name of a file into the file dialog that \a trigger opens, and Enter. */
    bool nameFile(std::function<void()> const & trigger, std::string const & file);
    /** Lets events happen until something holds. \return whether it does after half a minute */
    bool waitUntil(std::function<bool()> const & holds);

    // Eyes.
    std::string cell(int row, int column) const;
    /** All cells: "|" between them, a line feed behind a row; headings end with "#". */
    std::string cells() const;
    std::string status() const;
    std::string log() const;
    bool logHas(std::string const & text) const;
    std::string undoText() const;
    std::string redoText() const;
    std::string title() const;
    QAction * action(QString const & menu, QString const & entry) const;
    /** Takes a picture of the window, if pictures are wanted. */
    void picture(QString const & name);

    Workbench & window() { return *m_window; }
    TableView & view() const;
    bool open(std::string const & file);
    /** Opens a window in place of the one before. */
    void openWindow();
    /** Closes the window for good. */
    void dropWindow() { m_window.reset(); }

    ScratchDirectory scratch;
    ScratchDirectory home; ///< where settings are

private:
    std::unique_ptr<Workbench> m_window;
};
