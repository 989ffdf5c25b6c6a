// SPDX-License-Identifier: BSD-3-Clause
// 100 MB of XML written through element writers: against Qt's writer, which is the one below ours, on a file
// of Qt's. Both start from standard strings and from names that stand ready.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include <QFile>
#include <QXmlStreamWriter>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr std::uint64_t xmlBytes = 100000000;
constexpr unsigned differentRecords = 20000;
constexpr unsigned groupSize = 100;

std::vector<Record> const & records()
{
    static std::vector<Record> const made = [] {
        Random random(3);
        std::vector<Record> result;
        for (unsigned i = 0; i < differentRecords; ++i) {
            result.push_back(makeRecord(random, i));
        }
        return result;
    }();
    return made;
}

/** The groups of records, over and over, that make the size; and what they are as text. */
struct Plan
{
    unsigned groups = 0;
    std::uint64_t bytes = 0;
};

Plan const & plan()
{
    static Plan const made = [] {
        Plan result;
        result.bytes =
            std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?><library version=\"1.0\"></library>\n")
                .size();
        std::string text;
        for (std::size_t at = 0; result.bytes < xmlBytes; ++result.groups) {
            text = "<group name=\"g" + std::to_string(result.groups) + "\"></group>";
            for (unsigned i = 0; i < groupSize; ++i) {
                appendRecord(text, records()[at++ % differentRecords], false);
            }
            result.bytes += text.size();
        }
        return result;
    }();
    return made;
}

/** Every writer is held to the same size. */
void checkFile(std::string const & path)
{
    check(std::filesystem::file_size(path) == plan().bytes, "text is missing");
}

/** The names of elements and attributes. */
struct Names
{
    ZyString const library{"library"}, version{"version"}, group{"group"}, record{"record"}, id{"id"},
        name{"name"}, kind{"kind"}, owner{"owner"}, title{"title"}, point{"point"}, x{"x"}, y{"y"},
        tags{"tags"}, tag{"tag"}, note{"note"};
};

void writeOurs(ZyXMLElementWriter & group, Names const & names, Record const & record)
{
    std::unique_ptr<ZyXMLElementWriter> const element = group.createElement(names.record);
    element->writeAttribute(names.id, record.id);
    element->writeAttribute(names.name, record.name);
    element->writeAttribute(names.kind, record.kind);
    element->writeAttribute(names.owner, record.owner);
    element->createElement(names.title)->writeText(record.title);
    {
        std::unique_ptr<ZyXMLElementWriter> const point = element->createElement(names.point);
        point->writeAttribute(names.x, record.x);
        point->writeAttribute(names.y, record.y);
    }
    {
        std::unique_ptr<ZyXMLElementWriter> const tags = element->createElement(names.tags);
        for (std::string const & tag : record.tags) {
            tags->createElement(names.tag)->writeText(tag);
        }
    }
    element->createElement(names.note)->writeText(record.note);
}

void writeOurs(std::string const & path)
{
    Names const names;
    ZyXMLStreamWriter writer{ZyFilePath(path.c_str())};
    writer.startDocument();
    {
        std::unique_ptr<ZyXMLElementWriter> const library = writer.createElement(names.library);
        library->writeAttribute(names.version, "1.0");
        std::size_t at = 0;
        for (unsigned g = 0; g < plan().groups; ++g) {
            std::unique_ptr<ZyXMLElementWriter> const group = library->createElement(names.group);
            group->writeAttribute(names.name, "g" + std::to_string(g));
            for (unsigned i = 0; i < groupSize; ++i) {
                writeOurs(*group, names, records()[at++ % differentRecords]);
            }
        }
    }
    writer.finishDocument();
}

QString text(std::string const & text)
{
    return QString::fromUtf8(text.data(), int(text.size()));
}

void writeQt(QXmlStreamWriter & writer, Record const & record)
{
    writer.writeStartElement(QStringLiteral("record"));
    writer.writeAttribute(QStringLiteral("id"), text(record.id));
    writer.writeAttribute(QStringLiteral("name"), text(record.name));
    writer.writeAttribute(QStringLiteral("kind"), text(record.kind));
    writer.writeAttribute(QStringLiteral("owner"), text(record.owner));
    writer.writeTextElement(QStringLiteral("title"), text(record.title));
    writer.writeEmptyElement(QStringLiteral("point"));
    writer.writeAttribute(QStringLiteral("x"), text(record.x));
    writer.writeAttribute(QStringLiteral("y"), text(record.y));
    writer.writeStartElement(QStringLiteral("tags"));
    for (std::string const & tag : record.tags) {
        writer.writeTextElement(QStringLiteral("tag"), text(tag));
    }
    writer.writeEndElement();
    writer.writeTextElement(QStringLiteral("note"), text(record.note));
    writer.writeEndElement();
}

void writeQt(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::WriteOnly);
    QXmlStreamWriter writer(&file);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("library"));
    writer.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
    std::size_t at = 0;
    for (unsigned g = 0; g < plan().groups; ++g) {
        writer.writeStartElement(QStringLiteral("group"));
        writer.writeAttribute(QStringLiteral("name"), QStringLiteral("g") + QString::number(g));
        for (unsigned i = 0; i < groupSize; ++i) {
            writeQt(writer, records()[at++ % differentRecords]);
        }
        writer.writeEndElement();
    }
    writer.writeEndDocument();
}

} // namespace

void registerBenchmarks()
{
    static_cast<void>(plan());
    std::string const ours = dataFile("xml-out-ours.xml");
    std::string const qt = dataFile("xml-out-qt.xml");
    addJob(
        "xml-out/ours", [ours] { writeOurs(ours); }, [] {}, [ours] { checkFile(ours); });
    addJob(
        "xml-out/QXmlStreamWriter", [qt] { writeQt(qt); }, [] {}, [qt] { checkFile(qt); });
}

} // namespace bench
