// SPDX-License-Identifier: BSD-3-Clause
// Tests of the XML forms of properties.
#include <ZyProperties.h>
#include <ZyProperty.h>

#include "ThrowsMessage.h"
#include "XmlLoad.h"

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>
#include <ZyXMLDomElementWriter.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLLoader.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace
{
constexpr char const * uri = "http://schemas.zycore.example/schemas/application/zytypes/";

/** A set with a value of every kind. */
ZyProperties allKinds()
{
    ZyProperties properties;
    properties.add("Nothing", ZyVariant());
    properties.add("Boolean", true);
    properties.add("Integer", std::numeric_limits<int>::min());
    properties.add("Double", 0.1);
    properties.add("Size", std::numeric_limits<unsigned int>::max());
    properties.add("Path", ZyFilePath("a/b"));
    properties.add("Paths", ZyPair<ZyFilePath, ZyFilePath>(ZyFilePath("a"), ZyFilePath("b")));
    properties.add("Text", "<&> \xC3\xA4");
    properties.add("Texts", ZyPair<ZyString, ZyString>("one", "two"));
    return properties;
}

std::string namesOf(ZyProperties const & properties)
{
    std::string names;
    properties.forEach([&](ZyProperty const & property) { names += property.name().toStdString() + " "; });
    return names;
}

std::string inner(std::string const & document)
{
    return document.substr(3, document.rfind("</r>") - 3);
}

std::string property(std::string const & name, std::string const & value)
{
    return "<Property><Name>" + name + "</Name><Value>" + value + "</Value></Property>";
}
} // namespace

TEST(ZyXMLObjectOfProperty, HasAChildForTheNameAndOneForTheValue)
{
    std::string const types(uri);
    EXPECT_EQ(writtenValues<ZyProperty>({ZyProperty("Gain", 5)}),
              "<r><v><n1:Name xmlns:n1=\"" + types + "\">Gain</n1:Name><n2:Value xmlns:n2=\"" + types +
                  "\"><n2:Integer>5</n2:Integer></n2:Value></v></r>\n");
}

TEST(ZyXMLObjectOfProperty, ReadsBackEveryKind)
{
    allKinds().forEach([](ZyProperty const & written) {
        std::vector<ZyProperty> const read =
            loadValues<ZyProperty>(inner(writtenValues<ZyProperty>({written})));
        ASSERT_EQ(read.size(), 1u);
        EXPECT_EQ(read[0].name().toStdString(), written.name().toStdString());
        EXPECT_EQ(read[0].value().type(), written.value().type());
        EXPECT_TRUE(read[0] == written) << written.name();
    });
}

TEST(ZyXMLObjectOfProperty, EachElementBeginsEmpty)
{
    std::vector<ZyProperty> const read =
        loadValues<ZyProperty>("<v><Name>a</Name><Value><Integer>1</Integer></Value></v><v><Name>b</Name></v>"
                               "<v><Value><Integer>3</Integer></Value></v><v/>");
    ASSERT_EQ(read.size(), 4u);
    EXPECT_TRUE(read[0] == ZyProperty("a", 1));
    EXPECT_TRUE(read[1] == ZyProperty("b"));
    EXPECT_TRUE(read[2] == ZyProperty("", 3));
    EXPECT_TRUE(read[3] == ZyProperty());
}

TEST(ZyXMLObjectOfProperty, TheOrderOfTheChildrenPlaysNoPart)
{
    std::vector<ZyProperty> const read =
        loadValues<ZyProperty>("<v><Value><String>x</String></Value><Other/><Name> a </Name></v>");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_TRUE(read[0] == ZyProperty("a", "x"));
    EXPECT_EQ(read[0].name().toStdString(), "a") << "text is trimmed";
}

TEST(ZyXMLObjectOfProperty, HasOneDefinitionAndItsMemory)
{
    auto const definition = ZyXMLObject<ZyProperty>::LoadRule();
    EXPECT_EQ(definition.get(), ZyXMLObject<ZyProperty>::LoadRule().get());
    ZyXMLLambdaRule<ZyProperty> rule("v", definition);
    EXPECT_ZY_THROW(definition->finish(rule), ZyNotFoundException, "Item not found: val");
    EXPECT_ZY_THROW(definition->setup(rule), ZyNullPointerException,
                    "XML rule cannot add a child rule when it is not assigned to a parent loader");
    EXPECT_TRUE(rule.recall<ZyProperty>("val"));
}

TEST(ZyXMLObjectOfProperties, HasAChildForEachProperty)
{
    std::string const types(uri);
    EXPECT_EQ(writtenValues<ZyProperties>({ZyProperties{ZyProperty("b"), ZyProperty("a")}, ZyProperties()}),
              "<r><v><n1:Property xmlns:n1=\"" + types +
                  "\"><n1:Name>b</n1:Name><n1:Value/></n1:Property><n2:Property xmlns:n2=\"" + types +
                  "\"><n2:Name>a</n2:Name><n2:Value/></n2:Property></v><v/></r>\n");
}

TEST(ZyXMLObjectOfProperties, ReadsBackEveryKindInOrder)
{
    ZyProperties const written = allKinds();
    std::vector<ZyProperties> const read =
        loadValues<ZyProperties>(inner(writtenValues<ZyProperties>({written})));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_TRUE(read[0] == written);
    EXPECT_EQ(namesOf(read[0]), namesOf(written));
}

TEST(ZyXMLObjectOfProperties, ARepeatedNameKeepsTheFirstPlaceAndTheLastContent)
{
    std::vector<ZyProperties> const read = loadValues<ZyProperties>(
        "<v>" + property("a", "<Integer>1</Integer>") + property("b", "<Integer>2</Integer>") +
        property("A", "<String>three</String>") + "</v>");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(namesOf(read[0]), "A b ");
    EXPECT_EQ(read[0].value("a").asString().toStdString(), "three");
}

TEST(ZyXMLObjectOfProperties, EachElementBeginsEmptyAndSharesNothing)
{
    std::vector<ZyProperties> const read =
        loadValues<ZyProperties>("<v>" + property("a", "<Integer>1</Integer>") + "</v><v>" +
                                 property("a", "<Integer>2</Integer>") + "</v><v/>");
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].value("a").asInteger(), 1);
    EXPECT_EQ(read[1].value("a").asInteger(), 2);
    EXPECT_EQ(read[2].size(), 0u);
}

TEST(ZyXMLObjectOfProperties, LoadsTheSameDocumentTwice)
{
    std::vector<ZyProperties> read;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyProperties>("r", [&](ZyUniquePtr<ZyProperties> value) { read.push_back(*value); });
    std::string const document = "<r>" + property("a", "<Integer>1</Integer>") + "</r>";
    loadText(*loader, document);
    loadText(*loader, document);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_TRUE(read[0] == read[1]);
    read[0].get("a").lock()->setValue(9);
    EXPECT_EQ(read[1].value("a").asInteger(), 1);
}

TEST(ZyXMLObjectOfProperties, HasOneDefinitionAndItsMemory)
{
    auto const definition = ZyXMLObject<ZyProperties>::LoadRule();
    EXPECT_EQ(definition.get(), ZyXMLObject<ZyProperties>::LoadRule().get());
    ZyXMLLambdaRule<ZyProperties> rule("v", definition);
    EXPECT_ZY_THROW(definition->finish(rule), ZyNotFoundException, "Item not found: props");
    EXPECT_ZY_THROW(definition->setup(rule), ZyNullPointerException,
                    "No ZyXMLLoader object available when trying to add child rule");
    EXPECT_TRUE(rule.recall<ZyProperties>("props"));
}

TEST(ZyXMLObjectOfProperties, DoesNotComeBackFromADocumentInMemory)
{
    // Its element writer takes name and namespace of a child the other way round, see ZyXMLDomElementWriter.
    ZyXMLDomDocument document;
    document.setContent("<v/>");
    ZyXMLDomElementWriter writer(document.root());
    ZyXMLObject<ZyProperties>::Write(writer, ZyProperties(ZyProperty("a", 1)));
    std::vector<ZyProperties> read;
    ZySharedPtr<ZyXMLLoader> const loader = ZyXMLLoader::Create();
    loader->add<ZyProperties>("v", [&](ZyUniquePtr<ZyProperties> value) { read.push_back(*value); });
    try {
        loadText(*loader, document.toString().toStdString());
    } catch (ZyException const &) {
        read.clear();
    }
    for (ZyProperties const & properties : read) {
        EXPECT_EQ(properties.size(), 0u);
    }
}
