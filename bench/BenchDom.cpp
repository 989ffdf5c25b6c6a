// SPDX-License-Identifier: BSD-3-Clause
// Loading and saving a result file of 20 MB as a document in memory, against QDomDocument. The environment
// variable ZYCORE_BENCH_RUNS sets another number of runs; each makes 2 KB.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLDomDocument.h>

#include <QByteArray>
#include <QDomDocument>
#include <QFile>
#include <QSaveFile>
#include <QString>
#include <QTextStream>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace bench
{

namespace
{

constexpr char const * reals[] = {"nom", "usedvalue", "tol", "value"};

/** The result file in both forms, made once. */
struct Input
{
    Input()
    {
        char const * const runs = std::getenv("ZYCORE_BENCH_RUNS");
        plain = resultFile(runs ? static_cast<unsigned>(std::atoi(runs)) : 10000);
        compressed = plain + ".compressed";
        if (!std::filesystem::exists(compressed)) {
            QFile file(QString::fromStdString(plain));
            check(file.open(QIODevice::ReadOnly), "no input");
            QFile packed(QString::fromStdString(compressed));
            check(packed.open(QIODevice::WriteOnly), "no place for the packed input");
            packed.write(qCompress(file.readAll(), -1));
        }
    }

    std::string plain;
    std::string compressed;
};

Input const & input()
{
    static Input const instance;
    return instance;
}

QDomDocument qtLoad(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    check(file.open(QIODevice::ReadOnly), "cannot open");
    QDomDocument document;
    if (!document.setContent(&file)) {
        file.seek(0);
        check(document.setContent(qUncompress(file.readAll())), "no document");
    }
    return document;
}

void qtSave(QDomDocument const & document, std::string const & path, ZyXMLDomDocument::SaveType type)
{
    QSaveFile file(QString::fromStdString(path));
    check(file.open(QIODevice::WriteOnly), "cannot save");
    if (type == ZyXMLDomDocument::Compressed) {
        file.write(qCompress(document.toByteArray(-1).replace('\n', ""), -1));
    } else {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        stream << document.toString(type == ZyXMLDomDocument::Indented ? 1 : -1);
    }
    check(file.commit(), "cannot save");
}

ZyXMLDomDocument load(std::string const & path)
{
    return ZyXMLDomDocument(ZyFilePath(path));
}

void registerLoad(std::string const & kind, std::function<std::string()> const & path)
{
    std::string const family = "dom-load/" + kind + "/";
    auto const prepare = [] { input(); };
    addJob(
        family + "ours", [path] { check(!load(path()).root().isNull(), "no root"); }, prepare);
    addJob(
        family + "QDomDocument", [path] { check(!qtLoad(path()).documentElement().isNull(), "no root"); },
        prepare);
}

void registerSave(std::string const & kind, ZyXMLDomDocument::SaveType type)
{
    std::string const family = "dom-save/" + kind + "/";
    std::string const target = dataFile("saved.xml");
    auto const ours = std::make_shared<std::unique_ptr<ZyXMLDomDocument>>();
    auto const theirs = std::make_shared<QDomDocument>();
    auto const verify = [target] {
        check(std::filesystem::file_size(target) > 100000, "the file is too small");
    };
    addJob(
        family + "ours", [=] { (*ours)->save(ZyFilePath(target), type); },
        [=] { *ours = std::make_unique<ZyXMLDomDocument>(load(input().plain)); }, verify);
    addJob(
        family + "QDomDocument", [=] { qtSave(*theirs, target, type); },
        [=] {
            ours->reset();
            *theirs = qtLoad(input().plain);
        },
        verify);
}

double visit(ZyXMLDomElement const & element)
{
    double sum = 0;
    for (char const * name : reals) {
        ZyString const text = element.attribute(name, "");
        sum += text.size() == 12 ? element.attributeBase64(name) : 0;
    }
    for (ZyXMLDomElement const & child : element.children()) {
        sum += visit(child);
    }
    return sum;
}

double visit(QDomElement const & element)
{
    double sum = 0;
    for (char const * name : reals) {
        QByteArray const text = element.attribute(QString::fromLatin1(name)).toLatin1();
        double value = 0;
        if (text.size() == 12) {
            QByteArray const bytes = QByteArray::fromBase64(text);
            std::memcpy(&value, bytes.constData(), sizeof(value));
        }
        sum += value;
    }
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        sum += visit(child);
    }
    return sum;
}

void registerVisit()
{
    std::string const target = dataFile("visited.xml");
    auto const prepare = [] { input(); };
    addJob(
        "dom-visit/plain/ours",
        [=] {
            ZyXMLDomDocument document = load(input().plain);
            check(visit(document.root()) > 0, "no reals");
            document.save(ZyFilePath(target), ZyXMLDomDocument::Indented);
        },
        prepare);
    addJob(
        "dom-visit/plain/QDomDocument",
        [=] {
            QDomDocument const document = qtLoad(input().plain);
            check(visit(document.documentElement()) > 0, "no reals");
            qtSave(document, target, ZyXMLDomDocument::Indented);
        },
        prepare);
}

} // namespace

void registerBenchmarks()
{
    registerLoad("plain", [] { return input().plain; });
    registerLoad("compressed", [] { return input().compressed; });
    registerSave("plain", ZyXMLDomDocument::Indented);
    registerSave("compressed", ZyXMLDomDocument::Compressed);
    registerVisit();
}

} // namespace bench
