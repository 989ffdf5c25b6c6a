// SPDX-License-Identifier: BSD-3-Clause
// The stream reader on good documents: tokens, elements, text, fragments, beginning again. What damaged
// documents and devices do stands in ZyXMLStreamReaderDamageTest.cpp.
#include <ZyXMLStreamReader.h>

#include "ScratchDirectory.h"
#include "SourceDevice.h"
#include "ThrowsMessage.h"

#include <ZyFileDevice.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLStreamElementReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
using Token = ZyXMLStreamReader::TokenType;
using Element = std::shared_ptr<ZyXMLStreamElementReader>;

static_assert(sizeof(ZyXMLStreamReader) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLStreamReader>);
static_assert(!std::is_copy_constructible_v<ZyXMLStreamReader>);
static_assert(ZyXMLStreamReader::NoToken == 0 && ZyXMLStreamReader::Invalid == 1);
static_assert(ZyXMLStreamReader::StartDocument == 2 && ZyXMLStreamReader::EndDocument == 3);
static_assert(ZyXMLStreamReader::StartElement == 4 && ZyXMLStreamReader::EndElement == 5);
static_assert(ZyXMLStreamReader::Characters == 6 && ZyXMLStreamReader::Comment == 7);
static_assert(ZyXMLStreamReader::DTD == 8 && ZyXMLStreamReader::EntityReference == 9);
static_assert(ZyXMLStreamReader::Other == 11);

/** A reader over a text of its own. */
struct Document
{
    explicit Document(std::string const & text) : device(ZyString(text)), reader(device) {}

    ZyXMLStreamReader * operator->() { return &reader; }
    std::string name() { return reader.currentElement()->name().toStdString(); }
    /** Reads on to the next start tag; the name of that element, or "-". */
    std::string nextName()
    {
        Element const element = reader.nextElement();
        return element ? element->name().toStdString() : "-";
    }
    std::string restOfNames()
    {
        std::string names;
        while (Element const element = reader.nextElement()) {
            names += element->name().toStdString() + " ";
        }
        return names;
    }

    ZyStringDevice device;
    ZyXMLStreamReader reader;
};

std::vector<int> tokens(std::string const & text)
{
    Document document(text);
    std::vector<int> all{document->tokenType()};
    while (document->next() != ZyXMLStreamReader::EndDocument) {
        all.push_back(document->tokenType());
    }
    all.push_back(document->tokenType());
    return all;
}

std::string listed(ZyXMLAttributeSetPtr const & set)
{
    std::string text;
    for (ZyXMLAttribute const & attribute : set) {
        text += attribute.name().toStdString() + "=" + attribute.value().toStdString() + " ";
    }
    return text;
}
} // namespace

TEST(ZyXMLStreamReader, GivesEveryKindOfToken)
{
    EXPECT_EQ(tokens("<a/>"), (std::vector<int>{0, 2, 4, 5, 3}));
    EXPECT_EQ(tokens("<?xml version='1.0'?>\n<!DOCTYPE a>\n<a>x<!--c--><b/>y</a>\n"),
              (std::vector<int>{0, 2, 8, 4, 6, 7, 4, 5, 6, 5, 3}));
    EXPECT_EQ(tokens("<!DOCTYPE a SYSTEM 'nowhere.dtd'><a>&unknown;</a>"),
              (std::vector<int>{0, 2, 8, 4, 9, 5, 3}));
}

TEST(ZyXMLStreamReader, GivesElevenForAProcessingInstruction)
{
    EXPECT_EQ(tokens("<a><?target data?></a>"), (std::vector<int>{0, 2, 4, 11, 5, 3}));
}

TEST(ZyXMLStreamReader, SplitsTextAtSectionsAndComments)
{
    EXPECT_EQ(tokens("<a>p<![CDATA[q]]>s</a>"), (std::vector<int>{0, 2, 4, 6, 6, 6, 5, 3}));
    EXPECT_EQ(tokens("<a>x&amp;y&lt;z</a>"), (std::vector<int>{0, 2, 4, 6, 5, 3}));
}

TEST(ZyXMLStreamReader, OpensAndClosesTheOnlyElement)
{
    Document document("<a/>");
    Element const a = document->nextElement();
    EXPECT_EQ(a->name().toStdString(), "a");
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::StartElement);
    EXPECT_TRUE(document->isActive(a.get()));
    EXPECT_EQ(document->next(), ZyXMLStreamReader::EndElement);
    EXPECT_FALSE(document->isValid(a));
    EXPECT_ZY_THROW(document->currentElement(), ZyNullXMLStreamElementException, "Null XML stream element");
    EXPECT_EQ(document->next(), ZyXMLStreamReader::EndDocument);
}

TEST(ZyXMLStreamReader, GivesNullOnceAtTheEndAndThenFails)
{
    Document document("<a/>");
    EXPECT_EQ(document.nextName(), "a");
    EXPECT_EQ(document->nextElement(), nullptr);
    EXPECT_ZY_THROW(document->nextElement(), ZyInvalidXMLException,
                    "Invalid XML: Premature end of document.");
}

TEST(ZyXMLStreamReader, KnowsWhichElementsAreOpenAndWhichIsActive)
{
    Document document("<a><b/></a>");
    Element const a = document->nextElement();
    Element const b = document->nextElement();
    EXPECT_TRUE(document->isValid(a) && document->isValid(b));
    EXPECT_TRUE(document->isValid(a.get()) && document->isValid(b.get()));
    EXPECT_FALSE(document->isActive(a.get()));
    EXPECT_TRUE(document->isActive(b.get()));
    EXPECT_EQ(document->currentElement(), b);
    EXPECT_EQ(document->getSharedPointer(a.get()), a);
    EXPECT_EQ(document->getSharedPointer(b.get()), b);
    document->next();
    EXPECT_TRUE(document->isActive(a.get()));
    EXPECT_FALSE(document->isValid(b));
    EXPECT_ZY_THROW(document->getSharedPointer(b.get()), ZyNullXMLStreamElementException,
                    "Null XML stream element");
}

TEST(ZyXMLStreamReader, TakesNullForAnElementThatIsNotOpen)
{
    Document document("<a/>");
    EXPECT_FALSE(document->isActive(nullptr));
    EXPECT_FALSE(document->isValid(nullptr));
    document->nextElement();
    EXPECT_FALSE(document->isActive(nullptr));
    EXPECT_FALSE(document->isValid(static_cast<ZyXMLStreamElementReader const *>(nullptr)));
    EXPECT_FALSE(document->isValid(Element()));
    EXPECT_ZY_THROW(document->getSharedPointer(nullptr), ZyNullXMLStreamElementException,
                    "Null XML stream element");
}

TEST(ZyXMLStreamReader, HasNoCurrentElementOutsideOfElements)
{
    Document document("<a/>");
    EXPECT_ZY_THROW(document->currentElement(), ZyNullXMLStreamElementException, "Null XML stream element");
}

TEST(ZyXMLStreamReader, FindsElementsWithoutRegardToCase)
{
    Document document("<list><item n='1'/><Other/><item n='2'/></list>");
    EXPECT_EQ(document->scan("ITEM")->readAttribute("n").toStdString(), "1");
    EXPECT_EQ(document->scan("ITEM")->readAttribute("n").toStdString(), "2");
    EXPECT_EQ(document->scan("ITEM"), nullptr);
}

TEST(ZyXMLStreamReader, LeavesElementsOpenThatAScanPasses)
{
    Document document("<a><b><c/></b></a>");
    Element const c = document->scan("c");
    document->next();
    EXPECT_EQ(document.name(), "b");
    document->next();
    EXPECT_EQ(document.name(), "a");
}

TEST(ZyXMLStreamReader, ReadsTheElementsInsideAnElement)
{
    Document document("<a><b/>text<c/></a>");
    Element const a = document->nextElement();
    EXPECT_EQ(document->nextElementInElement()->name().toStdString(), "b");
    EXPECT_EQ(document->nextElementInElement(), nullptr); // the end of b
    EXPECT_EQ(document->nextElementInElement()->name().toStdString(), "c");
    EXPECT_EQ(document->nextElementInElement(), nullptr);
    EXPECT_TRUE(document->isActive(a.get()));
    EXPECT_EQ(document->nextElementInElement(), nullptr);
    EXPECT_FALSE(document->isValid(a));
    EXPECT_EQ(document->nextElementInElement(), nullptr); // nothing is open any more
    EXPECT_EQ(document->nextElementInElement(), nullptr);
}

TEST(ZyXMLStreamReader, StartsWithAnElementInNoElement)
{
    Document document("<a/>");
    EXPECT_EQ(document->nextElementInElement()->name().toStdString(), "a");
    EXPECT_TRUE(document->isActive(document->currentElement().get()));
}

TEST(ZyXMLStreamReader, Deliberate_prefixes_are_dropped)
{
    Document document("<p:a xmlns:p='u' xmlns:q='v' x='1' p:x='2' X='3' y='4' q:Y='5' z='6'/>");
    document->nextElement();
    EXPECT_EQ(document->elementName().toStdString(), "a");
    EXPECT_EQ(document.name(), "a");
    EXPECT_EQ(listed(document->attributes()), "x=3 y=5 z=6 ");
}

TEST(ZyXMLStreamReader, GivesANewSetOfAttributesWithEveryCall)
{
    Document document("<a x='1'>t</a>");
    document->nextElement();
    ZyXMLAttributeSetPtr const first = document->attributes();
    ZyXMLAttributeSetPtr const second = document->attributes();
    EXPECT_NE(first.get(), second.get());
    document->next();
    EXPECT_EQ(document->attributes()->size(), 0u);
    EXPECT_EQ(document->elementName().toStdString(), "");
    document->next();
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::EndElement);
    EXPECT_EQ(document->attributes()->size(), 0u);
    EXPECT_EQ(document->elementName().toStdString(), "a");
    EXPECT_EQ(listed(first), "x=1 ");
}

TEST(ZyXMLStreamReader, AddsAttributesThatTheTypeDeclares)
{
    Document document("<!DOCTYPE a [<!ATTLIST a x CDATA 'd' y CDATA 'e'>]><a y='1'/>");
    document->nextElement();
    EXPECT_EQ(listed(document->attributes()), "y=1 x=d ");
}

TEST(ZyXMLStreamReader, ReadsTextThatIsNotAscii)
{
    Document document("<\xc3\xa9 \xc3\xbc='\xe2\x82\xac'>\xf0\x9f\x98\x80 a\xc3\xa9</\xc3\xa9>");
    Element const element = document->nextElement();
    EXPECT_EQ(element->name().toStdString(), "\xc3\xa9");
    EXPECT_EQ(element->readAttribute("\xc3\xbc").toStdString(), "\xe2\x82\xac");
    EXPECT_EQ(document->readText().toStdString(), "\xf0\x9f\x98\x80 a\xc3\xa9");
}

TEST(ZyXMLStreamReader, ReadsTheWhiteSpaceInFrontOfAChildAsText)
{
    Document document("<a>  <b/>x</a>");
    document->nextElement();
    EXPECT_EQ(document->readText().toStdString(), "  ");
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::Characters);
    EXPECT_EQ(document->readText().toStdString(), "  "); // the reader stays on the token
}

TEST(ZyXMLStreamReader, ReadsThroughChildrenInFrontOfText)
{
    Document document("<a><b>x<c/></b>y</a>");
    Element const a = document->nextElement();
    EXPECT_EQ(document->readText().toStdString(), "y");
    EXPECT_TRUE(document->isActive(a.get()));
}

TEST(ZyXMLStreamReader, ClosesAnElementThatHasNoTextOfItsOwn)
{
    Document document("<a><b>x</b></a>");
    Element const a = document->nextElement();
    EXPECT_EQ(document->readText().toStdString(), "");
    EXPECT_FALSE(document->isValid(a));
}

TEST(ZyXMLStreamReader, ReadsTheFirstRunOfTextOnly)
{
    Document document("<r><a>x<!--c-->y</a><b>1<![CDATA[2]]></b><c>&lt;&#65;&gt;</c></r>");
    document->scan("a");
    EXPECT_EQ(document->readText().toStdString(), "x");
    document->scan("b");
    EXPECT_EQ(document->readText().toStdString(), "1");
    document->scan("c");
    EXPECT_EQ(document->readText().toStdString(), "<A>");
}

TEST(ZyXMLStreamReader, ReadsNoTextOutsideOfElements)
{
    Document document("<a/>");
    EXPECT_ZY_THROW(document->readText(), ZyInvalidXMLOperation, "ReadText called outside of element");
    document->nextElement();
    document->next();
    EXPECT_ZY_THROW(document->readText(), ZyInvalidXMLOperation, "ReadText called outside of element");
}

TEST(ZyXMLStreamReader, ReadsAHugeTextAsOne)
{
    std::string const text(500000, 'x');
    Document document("<a>" + text + "&amp;" + text + "</a>");
    document->nextElement();
    EXPECT_TRUE(document->readText().toStdString() == text + "&" + text);
}

TEST(ZyXMLStreamReader, GivesTheRootAsText)
{
    Document document("<?xml version='1.0'?>\n<a x='1'>t<b/></a>\n");
    EXPECT_EQ(document->toString().toStdString(), "<a x=\"1\">t<b/></a>");
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::EndElement);
    EXPECT_EQ(document->next(), ZyXMLStreamReader::EndDocument);
}

TEST(ZyXMLStreamReader, GoesOnBehindAFragment)
{
    Document document("<r><a>x</a><b/><c>y</c></r>");
    document->scan("a");
    EXPECT_EQ(document->toString().toStdString(), "<a>x</a>");
    EXPECT_EQ(document.name(), "r");
    EXPECT_EQ(document.nextName(), "b");
    EXPECT_EQ(document.nextName(), "c");
    EXPECT_EQ(document->readText().toStdString(), "y");
    EXPECT_EQ(document.restOfNames(), "");
}

TEST(ZyXMLStreamReader, GivesTheNextElementAsTextBehindAnElement)
{
    Document document("<r><a/><b>x</b></r>");
    document->scan("a");
    document->next();
    EXPECT_EQ(document->toString().toStdString(), "<b>x</b>");
    EXPECT_EQ(document->next(), ZyXMLStreamReader::EndElement);
    EXPECT_ZY_THROW(document->toString(), ZyXMLException, "");
}

TEST(ZyXMLStreamReader, GivesFragmentsFromALargeFile)
{
    ScratchDirectory const scratch;
    std::string text = "<r>";
    for (int i = 0; i < 3000; ++i) {
        text += "<e n='" + std::to_string(i) + "'><v>" + std::to_string(i * 7) + "</v></e>\n";
    }
    ZyXMLStreamReader reader{ZyFilePath(scratch.write("a.xml", text + "</r>").c_str())};
    for (int i = 0; i < 3000; ++i) {
        Element const element = reader.scan("e");
        ASSERT_TRUE(element);
        if (i % 3 == 0) {
            ASSERT_EQ(reader.toString().toStdString(),
                      "<e n=\"" + std::to_string(i) + "\"><v>" + std::to_string(i * 7) + "</v></e>");
        }
    }
    EXPECT_EQ(reader.scan("e"), nullptr);
}

TEST(ZyXMLStreamReader, GivesALongFragmentWhole)
{
    std::string const text(40000, 'x');
    Document document("<r><a>" + text + "</a><b/></r>");
    document->scan("a");
    EXPECT_TRUE(document->toString().toStdString() == "<a>" + text + "</a>");
    EXPECT_EQ(document.nextName(), "b");
}

TEST(ZyXMLStreamReader, Deliberate_fragment_is_cut_by_characters)
{
    auto const fragment = [](char const * text) {
        Document document(text);
        document->scan("a");
        return document->toString().toStdString();
    };
    EXPECT_EQ(fragment("<r><a/></r>"), "<a>");
    EXPECT_EQ(fragment("<r xmlns:p='u'><p:a p:q='1'>x</p:a></r>"), "<a q=\"1\">x</p:a>");
    EXPECT_EQ(fragment("<r><a q='x &amp; \"y'>z</a></r>"), "<a q=\"x & \"y\">z</a>");
    EXPECT_EQ(fragment("<r>\xc3\xa9<a>x</a></r>"), "<a>>x</a");
    EXPECT_EQ(fragment("\xef\xbb\xbf<r><a>x</a></r>"), "<a><a>x<");
}

TEST(ZyXMLStreamReader, GivesNoTextOfAWrongToken)
{
    Document document("<a>t<!--c--></a>");
    document->nextElement();
    document->next();
    EXPECT_ZY_THROW(document->toString(), ZyXMLException, "");
    document->next();
    EXPECT_ZY_THROW(document->toString(), ZyXMLException, "");
    document->next();
    document->next();
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::EndDocument);
    EXPECT_ZY_THROW(document->toString(), ZyXMLException, "");
}

TEST(ZyXMLStreamReader, BeginsAgain)
{
    Document document("<a><b/></a>");
    Element const a = document->nextElement();
    Element const b = document->nextElement();
    document->restart();
    EXPECT_EQ(document->tokenType(), ZyXMLStreamReader::NoToken);
    EXPECT_FALSE(document->isValid(a) || document->isValid(b));
    EXPECT_EQ(document.restOfNames(), "a b ");
    document->restart();
    EXPECT_EQ(document.restOfNames(), "a b ");
}

TEST(ZyXMLStreamReader, BeginsAgainInALargeFile)
{
    ScratchDirectory const scratch;
    std::string text = "<r>";
    for (int i = 0; i < 20000; ++i) {
        text += "<e/>";
    }
    ZyXMLStreamReader reader{ZyFilePath(scratch.write("a.xml", text + "</r>").c_str())};
    for (int round = 0; round < 2; ++round) {
        int elements = 0;
        while (reader.nextElement()) {
            ++elements;
        }
        EXPECT_EQ(elements, 20001);
        reader.restart();
    }
}

TEST(ZyXMLStreamReader, LeavesABorrowedDeviceOpen)
{
    ZyStringDevice device("<a/>");
    {
        ZyXMLStreamReader reader(device);
        EXPECT_EQ(device.mode(), ZyIODevice::Read);
        reader.nextElement();
    }
    EXPECT_EQ(device.mode(), ZyIODevice::Read);
}

TEST(ZyXMLStreamReader, ReadsAnOpenDeviceFromWhereItStands)
{
    ZyStringDevice device("head <a/>");
    device.open(ZyIODevice::Read);
    device.read(5);
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "a");
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
}

TEST(ZyXMLStreamReader, SharesADevice)
{
    ZySharedPtr<ZyIODevice> device(new ZyStringDevice("<a/>"));
    {
        ZyXMLStreamReader reader(device);
        EXPECT_EQ(device.use_count(), 2);
        device.reset();
        EXPECT_EQ(reader.nextElement()->name().toStdString(), "a");
    }
}

TEST(ZyXMLStreamReader, NeedsASharedDevice)
{
    EXPECT_ZY_THROW(ZyXMLStreamReader(ZySharedPtr<ZyIODevice>()), ZyNullPointerException, "");
}

TEST(ZyXMLStreamReader, ReadsAFile)
{
    ScratchDirectory const scratch;
    ZyXMLStreamReader reader{ZyFilePath(scratch.write("a.xml", "<a>x</a>").c_str())};
    reader.nextElement();
    EXPECT_EQ(reader.readText().toStdString(), "x");
}

TEST(ZyXMLStreamReader, FailsAtOnceWhenAFileIsMissing)
{
    ScratchDirectory const scratch;
    ZyFilePath const path((scratch / "missing.xml").c_str());
    EXPECT_THROW(ZyXMLStreamReader{path}, ZyFileNotFoundException);
}

TEST(ZyXMLStreamReader, FailsAtTheFirstReadWhenADeviceIsOpenForWriting)
{
    ZyStringDevice device("<a/>");
    device.open(ZyIODevice::Append);
    ZyXMLStreamReader reader(device);
    EXPECT_ZY_THROW(reader.next(), ZyIOInvalidReadException, "");
    EXPECT_ZY_THROW(reader.nextElementInElement(), ZyIOInvalidReadException, "");
}

TEST(ZyXMLStreamReader, ReadsPiecesOfAnySize)
{
    for (std::size_t size : {1u, 2u, 3u, 4u, 7u, 100u}) {
        SourceDevice device("<a x='1'>text<b/>\xc3\xa9</a>");
        device.largestPiece = size;
        ZyXMLStreamReader reader(device);
        EXPECT_EQ(reader.nextElement()->readAttribute("x").toStdString(), "1");
        EXPECT_EQ(reader.readText().toStdString(), "text");
        EXPECT_EQ(reader.nextElement()->name().toStdString(), "b");
        reader.next();
        EXPECT_EQ(reader.readText().toStdString(), "\xc3\xa9");
    }
}

TEST(ZyXMLStreamReader, AsksForModestPieces)
{
    SourceDevice device("<root>", "<b/>", 20000, "</root>");
    ZyXMLStreamReader reader(device);
    while (reader.nextElement()) {
    }
    EXPECT_EQ(device.largestRequest, 16383u);
}

TEST(ZyXMLStreamReader, Deliberate_ten_million_tokens)
{
    constexpr std::size_t most = 10000000;
    SourceDevice device("<root>", "<?p?>", most + 1, "<b/></root>");
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "root");
    EXPECT_EQ(reader.nextElement(), nullptr); // after one instruction more than allowed
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Other);
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "b");
}

TEST(ZyXMLStreamReader, FindsAnElementBehindTenMillionTokens)
{
    SourceDevice device("<root>", "<?p?>", 10000000, "<b/></root>");
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "root");
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "b");
}
