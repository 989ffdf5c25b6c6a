// SPDX-License-Identifier: BSD-3-Clause
// zylimits: shows, changes and writes a document of named limits.

#include "Limit.h"
#include "ThroughDom.h"
#include "ThroughRules.h"

#include <ZyException.h>
#include <ZyXMLValidator.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <exception>

namespace
{

struct Setting
{
    ZyString name;
    int value = 0;
};

struct Options
{
    QString input;
    QString output; ///< empty: nothing is written
    QString schema; ///< empty: the input is not checked
    std::vector<Setting> settings;
    bool dom = false;
    bool compressed = false;
};

struct UsageError
{
    QString reason;
};

Setting parseSetting(QString const & text)
{
    int const place = text.lastIndexOf(u'=');
    bool isNumber = false;
    int const value = text.mid(place + 1).toInt(&isNumber);
    if (place < 1 || !isNumber) {
        throw UsageError{QStringLiteral("--set takes NAME=VALUE, not \"%1\"").arg(text)};
    }
    return {ZyString(text.left(place)), value};
}

Options parseOptions(QCoreApplication const & application)
{
    QCommandLineParser parser;
    QCommandLineOption const schema(QStringLiteral("schema"),
                                    QStringLiteral("Checks the input against an XML Schema first."),
                                    QStringLiteral("FILE"));
    QCommandLineOption const set(QStringLiteral("set"),
                                 QStringLiteral("Changes a limit, or adds one; can be given many times."),
                                 QStringLiteral("NAME=VALUE"));
    QCommandLineOption const dom(
        QStringLiteral("dom"), QStringLiteral("Holds the document in memory and keeps what else is in it."));
    QCommandLineOption const compress(QStringLiteral("compress"),
                                      QStringLiteral("Writes a compressed file; with --dom."));
    parser.setApplicationDescription(QStringLiteral("Shows, changes and writes a document of named limits."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({schema, set, dom, compress});
    parser.addPositionalArgument(QStringLiteral("INPUT"), QStringLiteral("The document to read."));
    parser.addPositionalArgument(QStringLiteral("OUTPUT"),
                                 QStringLiteral("The document to write; may be the input."),
                                 QStringLiteral("[OUTPUT]"));
    parser.process(application);

    QStringList const files = parser.positionalArguments();
    if (files.isEmpty() || files.size() > 2) {
        throw UsageError{QStringLiteral("one input and at most one output are needed; see --help")};
    }
    if (parser.isSet(compress) && !parser.isSet(dom)) {
        throw UsageError{QStringLiteral("--compress goes with --dom")};
    }
    Options options;
    options.input = files[0];
    options.output = files.value(1);
    options.schema = parser.value(schema);
    for (QString const & text : parser.values(set)) {
        options.settings.push_back(parseSetting(text));
    }
    options.dom = parser.isSet(dom);
    options.compressed = parser.isSet(compress);
    return options;
}

ZyFilePath pathOf(QString const & file)
{
    return ZyFilePath(ZyString(file));
}

void print(Limits const & limits)
{
    for (Limit const & limit : limits) {
        std::printf("%-24s %8d mV\n", limit.name.c_str(), limit.value);
    }
}

void throughRules(Options const & options)
{
    Limits limits = options.schema.isEmpty() ? readByRules(pathOf(options.input))
                                             : readByRules(pathOf(options.input), pathOf(options.schema));
    for (Setting const & setting : options.settings) {
        setLimit(limits, setting.name, setting.value);
    }
    if (!options.output.isEmpty()) {
        writeAsStream(options.output, limits);
    }
    print(limits);
}

void throughDom(Options const & options)
{
    ZyXMLDomDocument document = options.schema.isEmpty()
                                    ? ZyXMLDomDocument(pathOf(options.input))
                                    : ZyXMLDomDocument(pathOf(options.input), pathOf(options.schema));
    for (Setting const & setting : options.settings) {
        setLimit(document, setting.name, setting.value);
    }
    if (!options.output.isEmpty()) {
        document.save(pathOf(options.output),
                      options.compressed ? ZyXMLDomDocument::Compressed : ZyXMLDomDocument::Indented);
    }
    print(limitsOf(document));
}

int fail(QString const & reason)
{
    std::fprintf(stderr, "zylimits: %s\n", reason.toUtf8().constData());
    return 1;
}

} // namespace

int main(int argc, char ** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zylimits"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZYLIMITS_VERSION));
    try {
        Options const options = parseOptions(application);
        options.dom ? throughDom(options) : throughRules(options);
        return 0;
    } catch (UsageError const & error) {
        return fail(error.reason);
    } catch (ZyException const & error) {
        return fail(error.message().toQString());
    } catch (std::exception const & error) {
        return fail(QString::fromUtf8(error.what()));
    }
}
