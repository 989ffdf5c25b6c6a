// SPDX-License-Identifier: BSD-3-Clause
// Element readers over documents in memory, and where they agree with those of the stream.
#include <ZyXMLDomElementReader.h>

#include "ReaderSlots.h"
#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace
{
using Iterator = ZyXMLElementReader::Children::Iterator;

static_assert(sizeof(ZyXMLDomElementReader) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(sizeof(ZyXMLDomElementReader::DomChildren) == 2 * sizeof(void *));
static_assert(sizeof(ZyXMLDomElementReader::DomChildren::DomImplementation) == 2 * sizeof(void *));
static_assert(std::is_base_of_v<ZyXMLElementReader, ZyXMLDomElementReader>);
static_assert(std::is_base_of_v<ZyXMLElementReader::Children, ZyXMLDomElementReader::DomChildren>);
static_assert(
    std::is_base_of_v<Iterator::Implementation, ZyXMLDomElementReader::DomChildren::DomImplementation>);
static_assert(std::is_copy_constructible_v<ZyXMLDomElementReader> &&
              std::is_copy_assignable_v<ZyXMLDomElementReader>);

class ZyXMLDomElementReaders : public testing::Test
{
protected:
    ZyXMLDomElementReader readerOf(std::string const & text)
    {
        document.setContent(text);
        return ZyXMLDomElementReader(document.root());
    }

    ZyXMLDomDocument document;
};

std::string names(ZyXMLElementReader::Children & children)
{
    std::string result;
    Iterator const end = children.end();
    for (Iterator at = children.begin(); at != end; ++at) {
        result += (*at)->name().toStdString() + " ";
    }
    return result;
}

/** Elements, attributes and texts as any reader gives them; texts are read where there are no children. */
std::string told(ZyXMLElementReader & element)
{
    std::string result = "<" + element.name().toStdString();
    for (ZyXMLAttribute const & attribute : element.attributes()) {
        result += " " + attribute.name().toStdString() + "=" + attribute.value().toStdString();
    }
    result += ">";
    if (element.hasAttribute("leaf")) {
        return result + element.readText().toStdString();
    }
    Iterator const end = element.children().end();
    for (Iterator at = element.children().begin(); at != end; ++at) {
        result += told(**at);
    }
    return result + "</>";
}
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLDomElementReader, KeepsTheSlotsOfItsBase)
{
    expectReaderSlots<ZyXMLDomElementReader>();
}
#endif

TEST_F(ZyXMLDomElementReaders, GiveWhatTheElementHas)
{
    ZyXMLDomElementReader const reader = readerOf("<a x='1' y='mpmZmZmZuT8='> \n t <b>u</b> </a>");
    EXPECT_EQ(reader.name().toStdString(), "a");
    EXPECT_EQ(reader.element().name().toStdString(), "a");
    EXPECT_EQ(reader.attributes().size(), 2u);
    EXPECT_TRUE(reader.hasAttribute("x"));
    EXPECT_FALSE(reader.hasAttribute("X"));
    EXPECT_EQ(reader.readAttribute("x").toStdString(), "1");
    EXPECT_EQ(reader.readAttributeBase64("y"), 0.1);
    EXPECT_EQ(reader.readText().toStdString(), "t u");
    EXPECT_EQ(reader.readText().toStdString(), "t u");
    EXPECT_ZY_THROW(reader.readAttribute("z"), ZyUnknownXMLAttributeException, "Unknown attribute: z");
    EXPECT_ZY_THROW(reader.readAttributeBase64("z"), ZyUnknownXMLAttributeException, "Unknown attribute: z");
    EXPECT_ZY_THROW(reader.readAttributeBase64("x"), ZyInvalidParameterException, "Invalid string length");
    EXPECT_ZY_THROW(reader.readTextBase64(), ZyInvalidParameterException, "Invalid string length");
}

TEST_F(ZyXMLDomElementReaders, ReadNumbersFromTexts)
{
    EXPECT_EQ(readerOf("<a>\n mpmZmZmZuT8=\t</a>").readTextBase64(), 0.1);
}

TEST(ZyXMLDomElementReader, ReadsZeroFromANullElement)
{
    ZyXMLDomElementReader reader{ZyXMLDomElement()};
    EXPECT_EQ(reader.readTextBase64(), 0.0);
    EXPECT_EQ(reader.readText().toStdString(), "");
    EXPECT_EQ(reader.name().toStdString(), "");
    EXPECT_EQ(reader.attributes().size(), 0u);
    EXPECT_EQ(names(reader.children()), "");
    EXPECT_ZY_THROW(reader.readAttribute("x"), ZyUnknownXMLAttributeException, "Unknown attribute: x");
}

TEST_F(ZyXMLDomElementReaders, KeepNameAndAttributesOfTheirConstruction)
{
    ZyXMLDomElementReader const reader = readerOf("<a x='1'/>");
    document.root().setName("b");
    document.root().setAttribute("y", "2");
    EXPECT_EQ(reader.name().toStdString(), "a");
    EXPECT_EQ(reader.attributes().size(), 1u);
    EXPECT_TRUE(reader.hasAttribute("y"));
    EXPECT_EQ(reader.readAttribute("y").toStdString(), "2");
    EXPECT_EQ(reader.element().name().toStdString(), "b");
}

TEST_F(ZyXMLDomElementReaders, WalkTheirChildrenTwiceWithoutNewOnes)
{
    ZyXMLDomElementReader reader = readerOf("<a><b/>t<c><d/></c><b/></a>");
    EXPECT_EQ(names(reader.children()), "b c b ");
    document.root().addElement("new");
    EXPECT_EQ(names(reader.children()), "b c b ");
    EXPECT_EQ(&reader.children(), &reader.children());
    EXPECT_EQ(names(ZyXMLDomElementReader(document.root()).children()), "b c b new ");
}

TEST_F(ZyXMLDomElementReaders, WalkInSeveralWalksAtATime)
{
    ZyXMLDomElementReader reader = readerOf("<a><b/><c/></a>");
    Iterator first = reader.children().begin();
    Iterator second = reader.children().begin();
    Iterator const copy = first;
    ++first;
    EXPECT_EQ((*first)->name().toStdString(), "c");
    EXPECT_EQ((*copy)->name().toStdString(), "c");
    EXPECT_EQ((*second)->name().toStdString(), "b");
}

// Each look at the current child makes a new reader, so two places are the same at the end only.
TEST_F(ZyXMLDomElementReaders, DifferUnlessBothAreAtTheEnd)
{
    ZyXMLDomElementReader reader = readerOf("<a><b/><c/></a>");
    Iterator at = reader.children().begin();
    EXPECT_TRUE(at != at);
    EXPECT_TRUE(at != reader.children().begin());
    EXPECT_TRUE(at != reader.children().end());
    EXPECT_FALSE(reader.children().end() != reader.children().end());
    ++at;
    ++at;
    EXPECT_FALSE(at != reader.children().end());
    EXPECT_EQ(*at, nullptr);
    ++at;
    EXPECT_FALSE(at != reader.children().end());
}

TEST_F(ZyXMLDomElementReaders, HaveNoChildrenToWalkInAnEmptyElement)
{
    ZyXMLDomElementReader reader = readerOf("<a>t</a>");
    EXPECT_FALSE(reader.children().begin() != reader.children().end());
}

TEST_F(ZyXMLDomElementReaders, LetIteratorsAndChildrenOutliveThem)
{
    auto reader = std::make_unique<ZyXMLDomElementReader>(readerOf("<a><b x='1'>t</b><c/></a>"));
    Iterator at = reader->children().begin();
    std::shared_ptr<ZyXMLElementReader> const child = *at;
    reader.reset();
    document = ZyXMLDomDocument();
    EXPECT_EQ(child->readText().toStdString(), "t");
    ++at;
    EXPECT_EQ((*at)->name().toStdString(), "c");
    EXPECT_EQ(child->readAttribute("x").toStdString(), "1");
}

TEST_F(ZyXMLDomElementReaders, ShareTheirChildrenWithCopies)
{
    ZyXMLDomElementReader reader = readerOf("<a x='1'><b/></a>");
    reader.children();
    ZyXMLDomElementReader copy = reader;
    ZyXMLDomElementReader assigned{ZyXMLDomElement()};
    assigned = reader;
    document.root().addElement("c");
    EXPECT_EQ(&copy.children(), &reader.children());
    EXPECT_EQ(names(assigned.children()), "b ");
    EXPECT_EQ(assigned.name().toStdString(), "a");
    EXPECT_EQ(copy.readAttribute("x").toStdString(), "1");
}

TEST_F(ZyXMLDomElementReaders, HaveNoActiveElement)
{
    ZyXMLDomElementReader reader = readerOf("<a>t<b>u</b></a>");
    Iterator at = reader.children().begin();
    std::shared_ptr<ZyXMLElementReader> const child = *at;
    EXPECT_EQ(reader.readText().toStdString(), "tu");
    ++at;
    EXPECT_EQ(child->readText().toStdString(), "u");
    EXPECT_EQ(names(child->children()), "");
}

TEST_F(ZyXMLDomElementReaders, AgreeWithStreamReaders)
{
    for (std::string const & text :
         {std::string("<Limits><Limit><Name leaf=''>a</Name><Value leaf='' unit='V'> 5 "
                      "</Value></Limit><Limit/></Limits>"),
          std::string("<a b='1' c='2'><d leaf='1'>\xc3\xa4 \xe2\x82\xac&lt;&amp;</d><!-- c --><e/><?p "
                      "i?><f><g/></f></a>"),
          std::string("<!DOCTYPE a [<!ENTITY e 'text'>]><a>t<b leaf=''>&e;&e;</b></a>"),
          std::string("<a><b leaf=''><![CDATA[<x>]]></b><c leaf=''>\n\n</c></a>"),
          std::string("<?xml version='1.0' encoding='UTF-8'?>\n<a x='&quot;&#10;&#x20ac;'/>\n")}) {
        ZyStringDevice device(text.c_str());
        ZyXMLStreamReader stream(device);
        ZyXMLDomElementReader dom = readerOf(text);
        EXPECT_EQ(told(*stream.nextElement()), told(dom)) << text;
    }
}

TEST_F(ZyXMLDomElementReaders, DifferFromStreamReadersWhereTold)
{
    std::string const text = "<p:a xmlns:p='urn:p' p:x='1'>t<b>u</b>v</p:a>";
    ZyStringDevice device(text.c_str());
    ZyXMLStreamReader stream(device);
    std::shared_ptr<ZyXMLElementReader> const streamed = stream.nextElement();
    ZyXMLDomElementReader dom = readerOf(text);
    EXPECT_EQ(streamed->name().toStdString(), "a");
    EXPECT_EQ(dom.name().toStdString(), "p:a");
    EXPECT_TRUE(streamed->hasAttribute("X"));
    EXPECT_FALSE(streamed->hasAttribute("p:x"));
    EXPECT_FALSE(dom.hasAttribute("P:X"));
    EXPECT_TRUE(dom.hasAttribute("p:x"));
    EXPECT_FALSE(streamed->hasAttribute("xmlns:p"));
    EXPECT_TRUE(dom.hasAttribute("xmlns:p"));
    EXPECT_EQ(streamed->readText().toStdString(), "t");
    EXPECT_EQ(dom.readText().toStdString(), "tuv");
}
