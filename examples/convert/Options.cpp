// SPDX-License-Identifier: BSD-3-Clause
// The command line and what can be told to be wrong with it.

#include "Options.h"

#include "DataTableFile.h"
#include "UsageError.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace
{

struct Switches
{
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("Shows this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               QStringLiteral("Shows the version.")};
    QCommandLineOption text{QStringLiteral("text"),
                            QStringLiteral("Keeps every field as text. Without it numbers become numbers.")};
    QCommandLineOption header{QStringLiteral("header"), QStringLiteral("The first N rows are headings."),
                              QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption sheet{QStringLiteral("sheet"), QStringLiteral("Name of the sheet in a workbook."),
                             QStringLiteral("NAME"), QStringLiteral("Sheet1")};
    QCommandLineOption sort{
        QStringLiteral("sort"),
        QStringLiteral("Sorts the rows by COLUMN: a number from 1, or the text of a heading."),
        QStringLiteral("COLUMN")};
    QCommandLineOption group{
        QStringLiteral("group"),
        QStringLiteral(
            "Makes one tall cell of equal neighbours in COLUMN. Follows --sort when both are given."),
        QStringLiteral("COLUMN")};
    QCommandLineOption quiet{QStringLiteral("quiet"), QStringLiteral("Shows neither progress nor summary.")};
};

void describe(QCommandLineParser & parser, Switches const & switches)
{
    parser.setApplicationDescription(QStringLiteral(
        "Converts comma-separated text into tables: .xlsx (workbook), .xml (SpreadsheetML 2003), .zyt.xml "
        "(rich table, which can be read as well), .csv."));
    parser.addOptions({switches.help, switches.version, switches.text, switches.header, switches.sheet,
                       switches.sort, switches.group, switches.quiet});
    parser.addPositionalArgument(QStringLiteral("INPUT"),
                                 QStringLiteral("The text to read, or a .zyt.xml file."));
    parser.addPositionalArgument(QStringLiteral("OUTPUT..."),
                                 QStringLiteral("The files to write; the extension tells the kind."),
                                 QStringLiteral("OUTPUT..."));
}

unsigned int headingRows(QString const & text)
{
    bool isNumber = false;
    unsigned int const rows = text.toUInt(&isNumber);
    if (!isNumber) {
        throw UsageError(QStringLiteral("--header takes a number of rows, not \"%1\"").arg(text));
    }
    return rows;
}

// What spreadsheet programs accept. The name is also that of a part of the package, which rules out some
// more.
void checkSheetName(QString const & name)
{
    QString const forbidden = QStringLiteral(":\\/?*[]<>\"|");
    for (QChar const character : name) {
        if (forbidden.contains(character) || character.category() == QChar::Other_Control) {
            throw UsageError(
                QStringLiteral("the sheet name \"%1\" has a character that is not allowed there").arg(name));
        }
    }
    bool const edges = name.trimmed() != name || name.startsWith(u'\'') || name.endsWith(u'\'');
    if (name.isEmpty() || name.size() > 31 || edges) {
        throw UsageError(QStringLiteral("a sheet name has 1 to 31 characters, and no blank or apostrophe at "
                                        "either end"));
    }
}

QString realPath(QString const & file)
{
    QString const canonical = QFileInfo(file).canonicalFilePath();
    return canonical.isEmpty() ? QFileInfo(file).absoluteFilePath() : canonical;
}

void checkOutputs(Options const & options)
{
    QStringList seen(realPath(options.input));
    for (QString const & output : options.outputs) {
        outputKind(output);
        if (seen.contains(realPath(output))) {
            throw UsageError(QStringLiteral("the file \"%1\" is named twice").arg(output));
        }
        seen.append(realPath(output));
    }
}

std::optional<QString> column(QCommandLineParser const & parser, QCommandLineOption const & option)
{
    return parser.isSet(option) ? std::optional<QString>(parser.value(option)) : std::nullopt;
}

Options takeOptions(QCommandLineParser const & parser, Switches const & switches)
{
    QStringList files = parser.positionalArguments();
    if (files.size() < 2) {
        throw UsageError(QStringLiteral("an input and at least one output are needed; see --help"));
    }
    Options options;
    options.input = files.takeFirst();
    if (isDataTableFile(options.input) && (parser.isSet(switches.header) || parser.isSet(switches.text))) {
        throw UsageError(
            QStringLiteral("--header and --text are for text; a .zyt.xml file tells these things itself"));
    }
    options.outputs = files;
    options.typed = !parser.isSet(switches.text);
    options.headingRows = headingRows(parser.value(switches.header));
    options.sheet = parser.value(switches.sheet);
    options.sortBy = column(parser, switches.sort);
    options.groupBy = column(parser, switches.group);
    options.quiet = parser.isSet(switches.quiet);
    checkSheetName(options.sheet);
    checkOutputs(options);
    return options;
}

} // namespace

OutputKind outputKind(QString const & file)
{
    if (isDataTableFile(file)) {
        return OutputKind::DataTable;
    }
    QString const extension = QFileInfo(file).suffix().toLower();
    if (extension == QStringLiteral("xlsx")) {
        return OutputKind::Workbook;
    }
    if (extension == QStringLiteral("xml")) {
        return OutputKind::XmlSheet;
    }
    if (extension == QStringLiteral("csv")) {
        return OutputKind::Csv;
    }
    throw UsageError(
        QStringLiteral("the kind of \"%1\" is not known: name it .xlsx, .xml, .zyt.xml or .csv").arg(file));
}

bool writesSheet(Options const & options)
{
    return std::any_of(options.outputs.begin(), options.outputs.end(), [](QString const & output) {
        OutputKind const kind = outputKind(output);
        return kind == OutputKind::Workbook || kind == OutputKind::XmlSheet;
    });
}

std::optional<Options> parseOptions(QStringList const & arguments)
{
    QCommandLineParser parser;
    Switches const switches;
    describe(parser, switches);
    if (!parser.parse(arguments)) {
        throw UsageError(parser.errorText());
    }
    if (parser.isSet(switches.help)) {
        std::fputs(parser.helpText().toUtf8().constData(), stdout);
        return std::nullopt;
    }
    if (parser.isSet(switches.version)) {
        std::puts("zyconvert " ZYCONVERT_VERSION);
        return std::nullopt;
    }
    return takeOptions(parser, switches);
}
