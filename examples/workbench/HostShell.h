// SPDX-License-Identifier: BSD-3-Clause
// The host's side of the library's command shell.
#pragma once

#include <QObject>
#include <QString>

#include <memory>

/** Carries what commands ask for to the window, whose life it does not depend on. Signals come on any thread.
 */
class CommandRelay : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void printed(QString const & text);
    void openRequested(QString const & file);
};

/**
 * While it lives, the program is what the library finds under "widgets_GetShellInterface", and takes what is
 * printed. One at a time.
 *
 * Commands come on any thread. They only ask: what touches the window happens later, in its thread and
 * outside of the fence that the library puts around a command.
 */
class HostShell : public QObject
{
    Q_OBJECT

public:
    explicit HostShell(QObject * parent = nullptr);
    ~HostShell() override;

    /** How many files the commands of the calling thread have asked to open so far. */
    static unsigned int FilesAskedFor();

Q_SIGNALS:
    // Both in the thread of this object.
    void printed(QString const & text);
    void openRequested(QString const & file);

private:
    std::shared_ptr<CommandRelay> m_relay;
};
