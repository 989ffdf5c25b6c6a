// SPDX-License-Identifier: BSD-3-Clause
// 100 MB of XML read as a stream, with every name, attribute and text delivered: against Qt's reader, which
// is the parser of ours, on a file of Qt's and with standard strings made of what it finds.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>

#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace bench
{

namespace
{

constexpr std::uint64_t xmlBytes = 100000000;
constexpr std::uint64_t fewBytes = 10000000;
constexpr unsigned manyAttributes = 16000;

/** Every reader is held to the same result. */
struct Totals
{
    std::uint64_t elements = 0;
    std::uint64_t names = 0;
    std::uint64_t values = 0;
    std::uint64_t texts = 0;

    void checkElements() const
    {
        check(elements > 200000 && names > 3 * elements && values > elements && texts > elements,
              "elements are missing");
    }
};

bool isBlank(ZyString const & text)
{
    return text.toStdString().find_first_not_of(" \n") == std::string::npos;
}

Totals walkOurs(std::string const & path)
{
    ZyXMLStreamReader reader{ZyFilePath(path.c_str())};
    Totals totals;
    for (auto token = reader.next(); token != ZyXMLStreamReader::EndDocument; token = reader.next()) {
        if (token == ZyXMLStreamReader::StartElement) {
            std::shared_ptr<ZyXMLStreamElementReader> const element = reader.currentElement();
            ++totals.elements;
            totals.names += element->name().size();
            for (ZyXMLAttribute const & attribute : element->attributes()) {
                totals.names += attribute.name().size();
                totals.values += attribute.value().size();
            }
        } else if (token == ZyXMLStreamReader::Characters) {
            ZyString const text = reader.readText();
            totals.texts += isBlank(text) ? 0 : text.size();
        }
    }
    return totals;
}

std::string own(QStringRef const & text)
{
    QByteArray const bytes = text.toUtf8();
    return std::string(bytes.constData(), std::size_t(bytes.size()));
}

Totals walkQt(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&file);
    Totals totals;
    while (!reader.atEnd()) {
        QXmlStreamReader::TokenType const token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            ++totals.elements;
            totals.names += own(reader.name()).size();
            std::vector<std::pair<std::string, std::string>> kept;
            QXmlStreamAttributes const attributes = reader.attributes();
            for (QXmlStreamAttribute const & attribute : attributes) {
                kept.emplace_back(own(attribute.name()), own(attribute.value()));
                totals.names += kept.back().first.size();
                totals.values += kept.back().second.size();
            }
            benchmark::DoNotOptimize(kept.data());
        } else if (token == QXmlStreamReader::Characters && !reader.isWhitespace()) {
            totals.texts += own(reader.text()).size();
        }
    }
    return totals;
}

std::string attributesFile()
{
    std::string const path = dataFile("attributes.xml");
    std::ofstream out(path, std::ios::binary);
    out << "<a";
    for (unsigned i = 0; i < manyAttributes; ++i) {
        out << " name" << i << "=\"" << i << "\"";
    }
    out << "/>";
    return path;
}

void registerMany()
{
    std::string const path = attributesFile();
    addJob("xml-attributes/ours", [path] {
        ZyXMLStreamReader reader{ZyFilePath(path.c_str())};
        check(reader.nextElement()->attributes().size() == manyAttributes, "attributes are missing");
    });
    addJob("xml-attributes/QXmlStreamReader", [path] {
        QFile file(QString::fromStdString(path));
        file.open(QIODevice::ReadOnly);
        QXmlStreamReader reader(&file);
        reader.readNextStartElement();
        check(reader.attributes().size() == int(manyAttributes), "attributes are missing");
    });
}

} // namespace

void registerBenchmarks()
{
    std::string const path = recordsFile(xmlBytes);
    addJob("xml-in/ours", [path] { walkOurs(path).checkElements(); });
    addJob("xml-in/QXmlStreamReader", [path] { walkQt(path).checkElements(); });
    addJob("xml-in-memory/10/ours", [few = recordsFile(fewBytes)] { walkOurs(few).checkElements(); });
    addJob("xml-in-memory/100/ours", [path] { walkOurs(path).checkElements(); });
    registerMany();
}

} // namespace bench
