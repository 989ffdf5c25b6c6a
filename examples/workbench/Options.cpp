// SPDX-License-Identifier: BSD-3-Clause
// The command line.

#include "Options.h"

#include <QCommandLineParser>
#include <QStandardPaths>

#include <cstdio>

namespace
{

QString defaultConfig()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/zyworkbench/settings");
}

std::optional<Options> finish(int & status, int value)
{
    status = value;
    return std::nullopt;
}

} // namespace

std::optional<Options> parseOptions(QStringList const & arguments, int & status)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows and edits tables: .csv, .zyt.xml (rich table), .msw (results; read only)."));
    QCommandLineOption const help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    QCommandLineOption const version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Shows the version."));
    QCommandLineOption const config(QStringLiteral("config"), QStringLiteral("Keeps settings in FILE."),
                                    QStringLiteral("FILE"), defaultConfig());
    parser.addOptions({help, version, config});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The table to open."),
                                 QStringLiteral("[FILE]"));
    bool const isUnderstood = parser.parse(arguments) && parser.positionalArguments().size() <= 1;
    if (!isUnderstood) {
        QString const reason = parser.errorText().isEmpty() ? QStringLiteral("one file at most; see --help")
                                                            : parser.errorText();
        std::fprintf(stderr, "zyworkbench: %s\n", reason.toUtf8().constData());
        return finish(status, 1);
    }
    if (parser.isSet(help)) {
        std::fputs(parser.helpText().toUtf8().constData(), stdout);
        return finish(status, 0);
    }
    if (parser.isSet(version)) {
        std::puts("zyworkbench " ZYWORKBENCH_VERSION);
        return finish(status, 0);
    }
    return Options{parser.positionalArguments().value(0), parser.value(config)};
}
