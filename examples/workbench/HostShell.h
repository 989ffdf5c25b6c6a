// SPDX-License-Identifier: BSD-3-Clause
// The host's side of the library's command shell.
#pragma once

#include <keelbase/KbShell.h>

#include <QObject>
#include <QString>

#include <memory>
#include <string>

/** Hands texts over to the thread of the window. Its own life does not depend on the window's. */
class LogRelay : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void printed(QString const & text);
};

/**
 * While it lives, it is what the library finds under "widgets_GetShellInterface", and takes what is printed.
 *
 * Commands come on any thread. They ask for things: what touches the window happens later, in its thread and
 * outside of the fence that the library puts around a command. One shell at a time.
 */
class HostShell : public QObject, private ShellInterface
{
    Q_OBJECT

public:
    explicit HostShell(QObject * parent = nullptr);
    ~HostShell() override;

    /** How many files commands have asked to open so far. \threads the one that has run the command */
    static unsigned int filesAskedFor();

Q_SIGNALS:
    /** Something has been printed. Connect it with Qt::QueuedConnection. */
    void printed(QString const & text);
    /** A command asks to open a file. Connect it with Qt::QueuedConnection. */
    void openRequested(QString const & file);

private:
    int execute(char const * command, void * context, CommandOptions & options) override;
    void currentHandler(MessageHandlerRef & holder) override;
    void open(std::string const & argument);

    static ShellInterface * Interface();

    std::shared_ptr<LogRelay> m_relay;
};
