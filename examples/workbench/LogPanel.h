// SPDX-License-Identifier: BSD-3-Clause
// What the program and its commands have said, and a line for commands.
#pragma once

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

/** A log with a command line below. */
class LogPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LogPanel(QWidget * parent = nullptr);

    /** Puts a text at the end; it need not end its line. */
    void append(QString const & text);
    /** Puts a line of its own at the end. */
    void appendLine(QString const & line);

Q_SIGNALS:
    /** The user has entered a command. */
    void commandEntered(QString const & command);

private:
    void enter();

    QPlainTextEdit * m_log;
    QLineEdit * m_command;
};
