// SPDX-License-Identifier: BSD-3-Clause
// A read-only text and a line editor.

#include "LogPanel.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QVBoxLayout>

namespace
{

constexpr int mostLines = 10000;

} // namespace

LogPanel::LogPanel(QWidget * parent)
    : QWidget(parent), m_log(new QPlainTextEdit(this)), m_command(new QLineEdit(this))
{
    m_log->setObjectName(QStringLiteral("log"));
    m_log->setReadOnly(true);
    m_log->setMaximumBlockCount(mostLines);
    m_log->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_command->setObjectName(QStringLiteral("command"));
    m_command->setPlaceholderText(QStringLiteral("Command: open \"FILE\", print TEXT, fault"));
    m_command->setFont(m_log->font());
    auto * const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_log);
    layout->addWidget(m_command);
    connect(m_command, &QLineEdit::returnPressed, this, &LogPanel::enter);
}

void LogPanel::append(QString const & text)
{
    QTextCursor cursor(m_log->document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(text);
    m_log->moveCursor(QTextCursor::End);
}

void LogPanel::appendLine(QString const & line)
{
    QTextCursor cursor(m_log->document());
    cursor.movePosition(QTextCursor::End);
    append((cursor.atBlockStart() ? QString() : QStringLiteral("\n")) + line + u'\n');
}

void LogPanel::enter()
{
    QString const command = m_command->text().trimmed();
    m_command->clear();
    if (!command.isEmpty()) {
        appendLine(QStringLiteral("> ") + command);
        Q_EMIT commandEntered(command);
    }
}
