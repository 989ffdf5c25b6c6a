// SPDX-License-Identifier: BSD-3-Clause
// Other programs that read what we have written.
#pragma once

#include "TestData.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <string>

namespace Program
{
/** Where a program is; empty when the machine has none. */
inline QString find(QString const & name)
{
    return QStandardPaths::findExecutable(name);
}

/** The Python of the system, which has the packages of the system. */
inline QString python()
{
    QString const system = QStringLiteral("/usr/bin/python3");
    return QFileInfo(system).isExecutable() ? system : find(QStringLiteral("python3"));
}

/** What a program prints; a failure of the program fails the test. */
inline std::string run(QString const & program, QStringList const & arguments)
{
    QProcess process;
    process.start(program, arguments);
    bool const ended = process.waitForFinished(110000);
    EXPECT_TRUE(ended) << program.toStdString() << ": " << process.errorString().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput().toStdString();
}

/** The path of a file in tests/data. */
inline QString data(char const * file)
{
    return QString::fromStdString(TestData::path(file));
}

/** What one of our scripts in tests/data prints. */
inline std::string script(char const * file, QStringList const & arguments)
{
    return run(python(), QStringList(data(file)) + arguments);
}
} // namespace Program
