// SPDX-License-Identifier: BSD-3-Clause
// XML loaded by rules: a million small records into structs, against loops written by hand and a property
// tree; and a large document under few and many rules, against a loop that hands out strings.
#include "Measure.h"
#include "peers/Limits.h"
#include "peers/Workload.h"

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLElementReader.h>
#include <ZyXMLLoader.h>
#include <ZyXMLStreamReader.h>

#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>

#ifdef ZYBENCH_BOOST
#include <boost/property_tree/ptree.hpp>
#include <boost/property_tree/xml_parser.hpp>
#endif

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// ---- the records as a host binds them

template <>
struct ZyXMLObject<bench::Limit, void>
{
    static ZySharedPtr<ZyXMLLambdaDefinition<bench::Limit>> LoadRule();
};

ZySharedPtr<ZyXMLLambdaDefinition<bench::Limit>> ZyXMLObject<bench::Limit>::LoadRule()
{
    using bench::Limit;
    static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> const definition = [] {
        ZySharedPtr<ZyXMLLambdaDefinition<Limit>> made(new ZyXMLLambdaDefinition<Limit>);
        made->setup = [](ZyXMLRule & rule) {
            auto const limit = rule.remember("val", ZySharedPtr<Limit>(new Limit));
            rule.addChildRule("Name", [limit](ZyXMLRule &, ZyXMLElementReader & element) {
                limit->name = std::move(element.readText().toStdString());
            });
            rule.addChildRule<int>("Value", [limit](ZyUniquePtr<int> value) { limit->value = *value; });
            rule.addChildRule<double>("Level", [limit](ZyUniquePtr<double> level) { limit->level = *level; });
        };
        made->start = [](ZyXMLRule & rule, ZyXMLElementReader & element) {
            static ZyString const id("id");
            auto const limit = rule.recall<Limit>("val");
            *limit = Limit();
            limit->id = element.readAttribute(id).toInt();
        };
        made->finish = [](ZyXMLRule & rule) {
            return ZyUniquePtr<Limit>(new Limit(std::move(*rule.recall<Limit>("val"))));
        };
        return made;
    }();
    return definition;
}

namespace bench
{

namespace
{

// ---- a million records into structs

constexpr unsigned limitCount = 1000000;

std::uint64_t wantedSum()
{
    static std::uint64_t const sum = limitsChecksum(limitCount);
    return sum;
}

void checkLimits(std::vector<Limit> const & limits)
{
    check(limits.size() == limitCount && checksum(limits) == wantedSum(),
          "the records are not what was written");
}

void loadByRules(std::string const & path)
{
    std::vector<Limit> limits;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<Limit>("Limits/Limit",
                       [&](ZyUniquePtr<Limit> limit) { limits.push_back(std::move(*limit)); });
    ZyXMLStreamReader reader{ZyFilePath(path)};
    loader->load(reader);
    checkLimits(limits);
}

void readByHand(QXmlStreamReader & xml, Limit & limit)
{
    limit.id = xml.attributes().value(QLatin1String("id")).toInt();
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("Name")) {
            limit.name = xml.readElementText().toStdString();
        } else if (xml.name() == QLatin1String("Value")) {
            limit.value = xml.readElementText().toInt();
        } else if (xml.name() == QLatin1String("Level")) {
            QByteArray const text = xml.readElementText().toLatin1();
            limit.level = realOfBase64(text.constData(), std::size_t(text.size()));
        } else {
            xml.skipCurrentElement();
        }
    }
}

void loadByHand(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    std::vector<Limit> limits;
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        Limit limit;
        readByHand(xml, limit);
        limits.push_back(std::move(limit));
    }
    checkLimits(limits);
}

#ifdef ZYBENCH_BOOST
void loadPropertyTree(std::string const & path)
{
    boost::property_tree::ptree tree;
    boost::property_tree::read_xml(path, tree);
    std::vector<Limit> limits;
    for (auto const & node : tree.get_child("Limits")) {
        Limit limit;
        limit.id = node.second.get<int>("<xmlattr>.id");
        limit.name = node.second.get<std::string>("Name");
        limit.value = node.second.get<int>("Value");
        std::string const level = node.second.get<std::string>("Level");
        limit.level = realOfBase64(level.data(), level.size());
        limits.push_back(std::move(limit));
    }
    checkLimits(limits);
}
#endif

void registerLimits()
{
    std::string const path = limitsFile(limitCount);
    wantedSum(); // so that no job pays for it
    addJob("xml-load/limits/ours", [path] { loadByRules(path); });
    addJob("xml-load/limits/QXmlStreamReader", [path] { loadByHand(path); });
#ifdef ZYBENCH_BOOST
    addJob("xml-load/limits/property_tree", [path] { loadPropertyTree(path); });
#endif
}

// ---- a large document under few and many rules

constexpr std::uint64_t recordsBytes = 100000000;

/** What a reader has seen; the same for every reader that hands out everything. */
struct Totals
{
    std::uint64_t elements = 0;
    std::uint64_t characters = 0;
};

/** Rules of one element each that read one thing, and others that no element answers to. */
void loadUnderRules(std::string const & path, int rules)
{
    Totals totals;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyString>("library/group/record/title", [&](ZyUniquePtr<ZyString> title) {
        ++totals.elements;
        totals.characters += title->size();
    });
    for (int i = 1; i < rules; ++i) {
        loader->add<ZyString>(ZyXMLPath{"library", "group", "record", "quantity" + ZyString(i)}, {});
    }
    ZyXMLStreamReader reader{ZyFilePath(path)};
    loader->load(reader);
    check(totals.elements > 200000, "elements are missing");
}

/** A rule for every element, which asks for all attributes and all texts. */
void loadEverything(std::string const & path)
{
    Totals totals;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const plain(new ZyXMLLambdaDefinition<int>);
    plain->start = [&totals](ZyXMLRule &, ZyXMLElementReader & element) {
        ++totals.elements;
        totals.characters += element.name().size();
        for (ZyXMLAttribute const & attribute : element.attributes()) {
            totals.characters += attribute.name().size() + attribute.value().size();
        }
    };
    ZySharedPtr<ZyXMLLambdaDefinition<int>> const leaf(new ZyXMLLambdaDefinition<int>);
    leaf->start = [plain, &totals](ZyXMLRule & rule, ZyXMLElementReader & element) {
        plain->start(rule, element);
        totals.characters += element.readText().size();
    };
    std::string const record = "library/group/record";
    for (std::string const & name : {std::string("library"), std::string("library/group"), record,
                                     record + "/point", record + "/tags"}) {
        loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>(ZyString(name), plain)));
    }
    for (char const * name : {"/title", "/tags/tag", "/note"}) {
        loader->add(ZyUniquePtr<ZyXMLRule>(new ZyXMLLambdaRule<int>(ZyString(record + name), leaf)));
    }
    ZyXMLStreamReader reader{ZyFilePath(path)};
    loader->load(reader);
    check(totals.elements > 1000000, "elements are missing");
}

std::string own(QStringRef const & text)
{
    QByteArray const bytes = text.toUtf8();
    return std::string(bytes.constData(), std::size_t(bytes.size()));
}

void addStartTag(QXmlStreamReader const & xml, Totals & totals)
{
    ++totals.elements;
    std::string const name = own(xml.name());
    totals.characters += name.size();
    QXmlStreamAttributes const attributes = xml.attributes();
    std::vector<std::pair<std::string, std::string>> kept;
    for (QXmlStreamAttribute const & attribute : attributes) {
        kept.emplace_back(own(attribute.name()), own(attribute.value()));
        totals.characters += kept.back().first.size() + kept.back().second.size();
    }
    benchmark::DoNotOptimize(kept.data());
}

void readStrings(std::string const & path)
{
    QFile file(QString::fromStdString(path));
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&file);
    Totals totals;
    while (!xml.atEnd()) {
        QXmlStreamReader::TokenType const token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            addStartTag(xml, totals);
        } else if (token == QXmlStreamReader::Characters && !xml.isWhitespace()) {
            totals.characters += own(xml.text()).size();
        }
    }
    check(totals.elements > 1000000, "elements are missing");
}

void registerRecords()
{
    std::string const path = recordsFile(recordsBytes);
    for (int const rules : {1, 21, 61}) {
        addJob("xml-rules/records/ours-" + std::to_string(rules),
               [path, rules] { loadUnderRules(path, rules); });
    }
    addJob("xml-rules/records/ours-all", [path] { loadEverything(path); });
    addJob("xml-rules/records/QXmlStreamReader", [path] { readStrings(path); });
}

} // namespace

void registerBenchmarks()
{
    registerLimits();
    registerRecords();
}

} // namespace bench
