// SPDX-License-Identifier: BSD-3-Clause
// The command line and what can be told to be wrong with it.

#include "Options.h"

#include "AnalysisError.h"
#include "CircuitDocument.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <thread>

namespace
{

constexpr unsigned int mostThreads = 1024;
constexpr unsigned int mostShards = 1000;

struct Switches
{
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Shows this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Shows the version.")};
    QCommandLineOption schema{QStringLiteral("schema"),
                              QStringLiteral("Prints the schema of circuit documents.")};
    QCommandLineOption mode{QStringLiteral("mode"),
                            QStringLiteral("montecarlo (the default), worstcase or sensitivity."),
                            QStringLiteral("MODE"), QStringLiteral("montecarlo")};
    QCommandLineOption runs{QStringLiteral("runs"),
                            QStringLiteral("How many runs, with the nominal one, which is case 1."),
                            QStringLiteral("N")};
    QCommandLineOption threads{QStringLiteral("threads"),
                               QStringLiteral("How many runs at a time; one a processor when not told."),
                               QStringLiteral("N")};
    QCommandLineOption seed{QStringLiteral("seed"), QStringLiteral("What all random values come from."),
                            QStringLiteral("S"), QStringLiteral("1")};
    QCommandLineOption out{QStringLiteral("out"), QStringLiteral("Where the results go; made if need be."),
                           QStringLiteral("DIR")};
    QCommandLineOption shards{
        QStringLiteral("shards"),
        QStringLiteral("Writes the runs as K part files too, and a master file that lists them."),
        QStringLiteral("K")};
    QCommandLineOption stream{QStringLiteral("stream"),
                              QStringLiteral("Writes a file while the runs go on, too.")};
    QCommandLineOption only{
        QStringLiteral("only"),
        QStringLiteral("Computes one run and shows its figures; with --out its circuit becomes a document."),
        QStringLiteral("CASE")};
    QCommandLineOption timing{QStringLiteral("timing"), QStringLiteral("Tells where the time has gone.")};
    QCommandLineOption quiet{QStringLiteral("quiet"), QStringLiteral("Shows neither progress nor summary.")};
};

void describe(QCommandLineParser & parser, Switches const & switches)
{
    parser.setApplicationDescription(QStringLiteral(
        "Computes many runs of a circuit with changed values: a result file, an HTML report, a "
        "workbook and pictures."));
    parser.addOptions({switches.help, switches.version, switches.schema, switches.mode, switches.runs,
                       switches.threads, switches.seed, switches.out, switches.shards, switches.stream,
                       switches.only, switches.timing, switches.quiet});
    parser.addPositionalArgument(QStringLiteral("CIRCUIT.xml"), QStringLiteral("The circuit."));
}

Mode modeNamed(QString const & name)
{
    for (Mode const mode : {Mode::MonteCarlo, Mode::WorstCase, Mode::Sensitivity}) {
        if (name == nameOf(mode)) {
            return mode;
        }
    }
    throw AnalysisError::Usage(
        QStringLiteral("--mode takes montecarlo, worstcase or sensitivity, not \"%1\"").arg(name));
}

unsigned int number(QCommandLineParser const & parser, QCommandLineOption const & option, unsigned int most,
                    unsigned int otherwise)
{
    if (!parser.isSet(option)) {
        return otherwise;
    }
    QString const text = parser.value(option);
    bool isNumber = false;
    unsigned int const value = text.toUInt(&isNumber);
    if (!isNumber || value < 1 || value > most) {
        throw AnalysisError::Usage(QStringLiteral("--%1 takes a number from 1 to %2, not \"%3\"")
                                       .arg(option.names().constFirst())
                                       .arg(most)
                                       .arg(text));
    }
    return value;
}

std::uint64_t seedFrom(QString const & text)
{
    bool isNumber = false;
    std::uint64_t const seed = text.toULongLong(&isNumber);
    if (!isNumber) {
        throw AnalysisError::Usage(
            QStringLiteral("--seed takes a whole number from 0 to 18446744073709551615, not \"%1\"")
                .arg(text));
    }
    return seed;
}

Options takeOptions(QCommandLineParser const & parser, Switches const & switches)
{
    QStringList const files = parser.positionalArguments();
    if (files.size() != 1) {
        throw AnalysisError::Usage(QStringLiteral("one circuit is needed; see --help"));
    }
    Options options;
    options.circuit = files.constFirst();
    options.mode = modeNamed(parser.value(switches.mode));
    options.runs = number(parser, switches.runs, mostRuns, 0);
    options.threads = number(parser, switches.threads, mostThreads,
                             std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads));
    options.seed = seedFrom(parser.value(switches.seed));
    if (parser.isSet(switches.out)) {
        options.directory = parser.value(switches.out);
    }
    options.shards = number(parser, switches.shards, mostShards, 0);
    options.only = number(parser, switches.only, mostRuns, 0);
    options.streams = parser.isSet(switches.stream);
    options.timing = parser.isSet(switches.timing);
    options.quiet = parser.isSet(switches.quiet);
    if (options.only != 0 && (options.shards != 0 || options.streams)) {
        throw AnalysisError::Usage(
            QStringLiteral("--only shows one run; --shards and --stream write them all"));
    }
    return options;
}

} // namespace

QString nameOf(Mode mode)
{
    switch (mode) {
    case Mode::MonteCarlo:
        return QStringLiteral("montecarlo");
    case Mode::WorstCase:
        return QStringLiteral("worstcase");
    case Mode::Sensitivity:
        return QStringLiteral("sensitivity");
    }
    return {};
}

std::optional<Options> parseOptions(QStringList const & arguments)
{
    QCommandLineParser parser;
    Switches const switches;
    describe(parser, switches);
    if (!parser.parse(arguments)) {
        throw AnalysisError::Usage(parser.errorText());
    }
    if (parser.isSet(switches.help)) {
        std::fputs(parser.helpText().toUtf8().constData(), stdout);
        return std::nullopt;
    }
    if (parser.isSet(switches.version)) {
        std::puts("zyanalyse " ZYANALYSE_VERSION);
        return std::nullopt;
    }
    if (parser.isSet(switches.schema)) {
        std::fputs(circuitSchema().toUtf8().constData(), stdout);
        return std::nullopt;
    }
    return takeOptions(parser, switches);
}
