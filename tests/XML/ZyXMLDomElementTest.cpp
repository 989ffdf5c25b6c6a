// SPDX-License-Identifier: BSD-3-Clause
// Elements of documents in memory: names, texts, attributes, children, and what outlives what.
#include <ZyXMLDomElement.h>

#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLAttribute.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLDomDocument.h>

#include <gtest/gtest.h>

#include <limits>
#include <list>
#include <memory>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyXMLDomElement) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLDomElement>);
static_assert(std::is_copy_constructible_v<ZyXMLDomElement> && std::is_copy_assignable_v<ZyXMLDomElement>);

class ZyXMLDomElements : public testing::Test
{
protected:
    ZyXMLDomElement rootOf(std::string const & text)
    {
        document.setContent(text);
        return document.root();
    }
    /** The root as text, without the line feed behind it. */
    std::string printed() const
    {
        std::string const text = document.toString().toStdString();
        return text.empty() ? text : text.substr(0, text.size() - 1);
    }

    ZyXMLDomDocument document;
};

std::string names(std::list<ZyXMLDomElement> const & elements)
{
    std::string result;
    for (ZyXMLDomElement const & element : elements) {
        result += element.name().toStdString() + " ";
    }
    return result;
}
} // namespace

TEST(ZyXMLDomElement, IsNullByDefault)
{
    ZyXMLDomElement const element;
    EXPECT_TRUE(element.isNull());
    EXPECT_EQ(element.name().toStdString(), "");
    EXPECT_EQ(element.text().toStdString(), "");
    EXPECT_EQ(element.attributes()->size(), 0u);
    EXPECT_FALSE(element.hasAttribute("x"));
    EXPECT_EQ(element.attribute("x", "d").toStdString(), "d");
    EXPECT_EQ(element.attributeBase64("x", 1.5), 1.5);
    EXPECT_ZY_THROW(element.attribute("x"), ZyUnknownXMLAttributeException, "Unknown attribute: x");
    EXPECT_TRUE(element.children().empty());
    EXPECT_TRUE(element.children("x").empty());
    EXPECT_TRUE(element.clone(true).isNull());
}

TEST(ZyXMLDomElement, RefusesToChangeWhenNull)
{
    ZyXMLDomElement element;
    EXPECT_ZY_THROW(element.setName("x"), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.setText("x"), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.setAttribute("x", "1"), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.setAttribute("x", "1", "urn:x"), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.setAttribute(ZyXMLAttribute("x", "1")), ZyNullDomElementException,
                    "Null dom element");
    EXPECT_ZY_THROW(element.setAttributeBase64("x", 1.0), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.addElement("x"), ZyNullDomElementException, "Null dom element");
    EXPECT_ZY_THROW(element.addElement("urn:x", "x"), ZyNullDomElementException, "Null dom element");
}

TEST_F(ZyXMLDomElements, ReferToOneNodeInAllCopies)
{
    ZyXMLDomElement root = rootOf("<a/>");
    ZyXMLDomElement copy = root;
    ZyXMLDomElement assigned;
    assigned = root;
    copy.setName("b");
    assigned.setAttribute("x", "1");
    assigned = *&assigned;
    EXPECT_EQ(root.name().toStdString(), "b");
    EXPECT_EQ(root.attribute("x").toStdString(), "1");
    EXPECT_EQ(printed(), "<b x=\"1\"/>");
}

// Qt's documents in memory take what no document may hold.
TEST(ZyXMLDomElement, KeepsAttributesApartThatHoldAZeroByte)
{
    ScratchDirectory const scratch;
    scratch.write("zero.xml", std::string("<a x='1\0002' y='3'/>", 18));
    ZyXMLDomDocument document(ZyFilePath(scratch / "zero.xml"));
    ZyXMLAttributeSetPtr const attributes = document.root().attributes();
    EXPECT_EQ(attributes->size(), 2u);
    EXPECT_EQ(attributes->readAttribute("x").toStdString(), document.root().attribute("x").toStdString());
    EXPECT_EQ(attributes->readAttribute("y").toStdString(), "3");
}

TEST_F(ZyXMLDomElements, HaveAllTextBelowJoined)
{
    EXPECT_EQ(rootOf("<a>x<b>y<c>z</c></b><![CDATA[<]]>w</a>").text().toStdString(), "xyz<w");
    EXPECT_EQ(rootOf("<a/>").text().toStdString(), "");
    EXPECT_EQ(rootOf("<a>\xc3\xa4\xf0\x9f\x98\x80</a>").text().toStdString(), "\xc3\xa4\xf0\x9f\x98\x80");
}

TEST_F(ZyXMLDomElements, AppendATextWhereThereIsNone)
{
    ZyXMLDomElement root = rootOf("<a><b/></a>");
    root.setText("x<&>");
    EXPECT_EQ(printed(), "<a>\n <b/>x&lt;&amp;></a>");
}

TEST_F(ZyXMLDomElements, Deliberate_set_text_removes_one_text)
{
    ZyXMLDomElement root = rootOf("<a>x<b>y</b>z<c/>w</a>");
    root.setText("new");
    EXPECT_EQ(root.text().toStdString(), "yzwnew");
    root.setText("newer");
    EXPECT_EQ(root.text().toStdString(), "ywnewnewer");
}

TEST_F(ZyXMLDomElements, KeepTheTextOfTheirChildren)
{
    ZyXMLDomElement root = rootOf("<a><b>y</b></a>");
    root.setText("x");
    EXPECT_EQ(root.text().toStdString(), "yx");
}

TEST_F(ZyXMLDomElements, TakeACharacterSectionForATextNode)
{
    ZyXMLDomElement root = rootOf("<a><![CDATA[c]]>x</a>");
    root.setText("new");
    EXPECT_EQ(root.text().toStdString(), "xnew");
}

TEST_F(ZyXMLDomElements, ReplaceATextByAnEmptyOne)
{
    ZyXMLDomElement root = rootOf("<a>x</a>");
    root.setText("");
    EXPECT_EQ(root.text().toStdString(), "");
    EXPECT_EQ(printed(), "<a></a>");
    // The empty node is not seen as a text and stays in front of the next one.
    root.setText("y");
    EXPECT_EQ(printed(), "<a>y</a>");
    root.setText("z");
    EXPECT_EQ(root.text().toStdString(), "yz");
}

TEST_F(ZyXMLDomElements, GiveAttributesByName)
{
    ZyXMLDomElement const root = rootOf("<a x='1' y='&lt;&#10;'/>");
    EXPECT_EQ(root.attribute("x").toStdString(), "1");
    EXPECT_EQ(root.attribute("y").toStdString(), "<\n");
    EXPECT_EQ(root.attribute("x", "d").toStdString(), "1");
    EXPECT_EQ(root.attribute("z", "d").toStdString(), "d");
    EXPECT_ZY_THROW(root.attribute("z"), ZyUnknownXMLAttributeException, "Unknown attribute: z");
    EXPECT_ZY_THROW(root.attribute(""), ZyUnknownXMLAttributeException, "Unknown attribute: ");
}

TEST_F(ZyXMLDomElements, Deliberate_dom_attributes_have_case)
{
    ZyXMLDomElement const root = rootOf("<a x='1'/>");
    EXPECT_TRUE(root.hasAttribute("x"));
    EXPECT_FALSE(root.hasAttribute("X"));
    EXPECT_ZY_THROW(root.attribute("X"), ZyUnknownXMLAttributeException, "Unknown attribute: X");
    EXPECT_TRUE(root.attributes()->hasAttribute("X"));
}

TEST_F(ZyXMLDomElements, GiveAllAttributesInTheOrderOfTheirNames)
{
    ZyXMLAttributeSetPtr const set = rootOf("<a z='1' xmlns:p='urn:p' p:q='2' b='3' Z='4'/>").attributes();
    std::string all;
    for (ZyXMLAttribute const & attribute : set) {
        all += attribute.name().toStdString() + "=" + attribute.value().toStdString() + " ";
    }
    EXPECT_EQ(all, "Z=1 b=3 p:q=2 xmlns:p=urn:p ");
}

TEST_F(ZyXMLDomElements, GiveANewSetAtEachCall)
{
    ZyXMLDomElement root = rootOf("<a x='1'/>");
    ZyXMLAttributeSetPtr const before = root.attributes();
    root.setAttribute("y", "2");
    EXPECT_EQ(before->size(), 1u);
    EXPECT_EQ(root.attributes()->size(), 2u);
    EXPECT_NE(root.attributes().get(), root.attributes().get());
}

TEST_F(ZyXMLDomElements, SetAttributes)
{
    ZyXMLDomElement root = rootOf("<a/>");
    root.setAttribute("x", "1");
    root.setAttribute("x", "2\t\"<&>\n");
    root.setAttribute(ZyXMLAttribute("y", "3"));
    root.setAttribute("X", "");
    EXPECT_EQ(printed(), "<a X=\"\" x=\"2&#x9;&quot;&lt;&amp;>&#xa;\" y=\"3\"/>");
}

TEST_F(ZyXMLDomElements, SetAttributesInNamespaces)
{
    ZyXMLDomElement root = rootOf("<a/>");
    root.setAttribute("p:x", "1", "urn:p");
    EXPECT_EQ(printed(), "<a p:x=\"1\" xmlns:p=\"urn:p\"/>");
    EXPECT_TRUE(root.hasAttribute("x"));
    EXPECT_FALSE(root.hasAttribute("p:x"));
    EXPECT_EQ(root.attribute("x").toStdString(), "1");
}

TEST_F(ZyXMLDomElements, InventAPrefixForAnAttributeInANamespace)
{
    ZyXMLDomElement root = rootOf("<a/>");
    root.setAttribute("x", "1", "urn:p");
    root.setAttribute("y", "2", "urn:q");
    root.setAttribute("z", "3", "urn:p");
    root.setAttribute("w", "4", "");
    EXPECT_EQ(printed(),
              "<a n1:x=\"1\" n1:z=\"3\" n2:y=\"2\" w=\"4\" xmlns:n1=\"urn:p\" xmlns:n2=\"urn:q\"/>");
    for (char const * name : {"x", "y", "z", "w"}) {
        EXPECT_TRUE(root.hasAttribute(name)) << name;
    }
    root.setAttribute("x", "5", "urn:p");
    EXPECT_EQ(root.attribute("x").toStdString(), "5");
    ZyXMLDomElement other = rootOf("<a xmlns:n1='urn:other'/>");
    other.setAttribute("x", "1", "urn:p");
    EXPECT_EQ(printed(), "<a n2:x=\"1\" xmlns:n1=\"urn:other\" xmlns:n2=\"urn:p\"/>");
}

TEST_F(ZyXMLDomElements, Deliberate_dom_refuses_blanks_by_operation)
{
    ZyXMLDomElement root = rootOf("<a/>");
    for (std::string const name : {"b c", " b", "b\n", "\t"}) {
        EXPECT_ZY_THROW(root.setAttribute(name, "1"), ZyInvalidXMLOperation, name);
        EXPECT_ZY_THROW(root.setAttribute(name, "1", "urn:p"), ZyInvalidXMLOperation, name);
        EXPECT_ZY_THROW(root.setAttribute(name, "1", ""), ZyInvalidXMLOperation, name);
        EXPECT_ZY_THROW(root.setAttributeBase64(name, 1.0), ZyInvalidXMLOperation, name);
        EXPECT_ZY_THROW(root.setAttributeBase64(name, 1.0, "urn:p"), ZyInvalidXMLOperation, name);
    }
    EXPECT_EQ(printed(), "<a/>");
}

TEST_F(ZyXMLDomElements, KeepNumbersExactly)
{
    ZyXMLDomElement root = rootOf("<a bad='x'/>");
    root.setAttributeBase64("x", 0.1);
    root.setAttributeBase64("p:y", -0.0, "urn:p");
    EXPECT_EQ(root.attribute("x").toStdString(), "mpmZmZmZuT8=");
    EXPECT_EQ(root.attributeBase64("x"), 0.1);
    EXPECT_EQ(root.attributeBase64("x", 7.0), 0.1);
    EXPECT_EQ(root.attribute("y").toStdString(), "AAAAAAAAAIA=");
    EXPECT_EQ(root.attributeBase64("z", 7.0), 7.0);
    EXPECT_ZY_THROW(root.attributeBase64("z"), ZyUnknownXMLAttributeException, "Unknown attribute: z");
    EXPECT_ZY_THROW(root.attributeBase64("bad"), ZyInvalidParameterException, "Invalid string length");
    EXPECT_ZY_THROW(root.attributeBase64("bad", 7.0), ZyInvalidParameterException, "Invalid string length");
    root.setAttributeBase64("inf", -std::numeric_limits<double>::infinity());
    EXPECT_EQ(root.attributeBase64("inf"), -std::numeric_limits<double>::infinity());
}

TEST_F(ZyXMLDomElements, AppendChildren)
{
    ZyXMLDomElement root = rootOf("<a>x<b/></a>");
    ZyXMLDomElement child = root.addElement("c");
    child.addElement("d").setText("t");
    root.addElement("b");
    EXPECT_EQ(printed(), "<a>x<b/>\n <c>\n  <d>t</d>\n </c>\n <b/>\n</a>");
    EXPECT_EQ(names(root.children()), "b c b ");
    EXPECT_EQ(names(root.children("b")), "b b ");
}

TEST_F(ZyXMLDomElements, AppendChildrenInNamespacesThatComeFirst)
{
    ZyXMLDomElement root = rootOf("<a/>");
    EXPECT_EQ(root.addElement("urn:p", "p:b").name().toStdString(), "b");
    root.addElement("urn:q", "c");
    EXPECT_EQ(printed(), "<a>\n <p:b xmlns:p=\"urn:p\"/>\n <c xmlns=\"urn:q\"/>\n</a>");
    document.setContent(document.toString());
    EXPECT_EQ(names(document.root().children()), "p:b c ");
}

TEST_F(ZyXMLDomElements, GiveChildrenThatAreElements)
{
    ZyXMLDomElement const root = rootOf("<a>t<!-- --><b/><?p?><p:c/><![CDATA[x]]><B/></a>");
    EXPECT_EQ(names(root.children()), "b p:c B ");
    EXPECT_EQ(names(root.children("b")), "b B ");
    EXPECT_EQ(names(root.children("p:c")), "p:c ");
    EXPECT_TRUE(root.children("c").empty());
    EXPECT_TRUE(root.children("x").empty());
}

TEST_F(ZyXMLDomElements, GiveAListOfTheirOwn)
{
    ZyXMLDomElement root = rootOf("<a><b/></a>");
    std::list<ZyXMLDomElement> const before = root.children();
    root.addElement("c");
    EXPECT_EQ(names(before), "b ");
}

TEST_F(ZyXMLDomElements, AreClonedOutsideTheTree)
{
    ZyXMLDomElement root = rootOf("<a x='1'>t<b><c/></b></a>");
    ZyXMLDomElement deep = root.clone(true);
    ZyXMLDomElement shallow = root.clone(false);
    root.setAttribute("x", "2");
    EXPECT_EQ(deep.attribute("x").toStdString(), "1");
    EXPECT_EQ(names(deep.children()), "b ");
    EXPECT_EQ(deep.text().toStdString(), "t");
    EXPECT_EQ(shallow.attribute("x").toStdString(), "1");
    EXPECT_TRUE(shallow.children().empty());
    EXPECT_EQ(shallow.text().toStdString(), "");
    deep.addElement("new");
    shallow.setText("s");
    EXPECT_EQ(names(deep.children()), "b new ");
    EXPECT_EQ(printed(), "<a x=\"2\">t<b>\n  <c/>\n </b>\n</a>");
}

TEST_F(ZyXMLDomElements, OutliveTheirDocument)
{
    auto owner = std::make_unique<ZyXMLDomDocument>();
    owner->setContent("<a><b><c/></b></a>");
    ZyXMLDomElement inner = owner->root().children().front();
    owner.reset();
    inner.addElement("d").setText("t");
    inner.setAttribute("x", "1");
    EXPECT_EQ(names(inner.children()), "c d ");
    EXPECT_EQ(inner.text().toStdString(), "t");
}

TEST_F(ZyXMLDomElements, StayUsableWhenTheirDocumentGetsAnotherContent)
{
    ZyXMLDomElement root = rootOf("<a><b/></a>");
    ZyXMLDomElement inner = root.children().front();
    document.setContent("<other/>");
    root.addElement("c");
    inner.addElement("d").setText("t");
    EXPECT_EQ(names(inner.children()), "d ");
    EXPECT_EQ(printed(), "<other/>");
}

TEST_F(ZyXMLDomElements, NestUpTo512Levels)
{
    ZyXMLDomElement element = rootOf("<a/>");
    for (int depth = 1; depth < 512; ++depth) {
        element = element.addElement("b");
    }
    EXPECT_ZY_THROW(element.addElement("c"), ZyInvalidXMLException,
                    "Invalid XML: c is nested deeper than 512 levels");
    EXPECT_ZY_THROW(element.addElement("urn:x", "c"), ZyInvalidXMLException,
                    "Invalid XML: c is nested deeper than 512 levels");
    EXPECT_TRUE(element.children().empty());
    element.setText("t");
    EXPECT_EQ(document.root().text().toStdString(), "t");
    ZyXMLDomDocument back;
    EXPECT_NO_THROW(back.setContent(document.toString()));
    EXPECT_EQ(back.root().text().toStdString(), "t");
}

TEST_F(ZyXMLDomElements, TakeThousandsOfAttributes)
{
    std::string text = "<a";
    for (int i = 0; i < 16000; ++i) {
        text += " a" + std::to_string(i) + "='" + std::to_string(i) + "'";
    }
    ZyXMLDomElement root = rootOf(text + "/>");
    root.setAttribute("p:in", "namespace", "urn:p");
    ZyXMLAttributeSetPtr const set = root.attributes();
    EXPECT_EQ(set->size(), 16001u);
    for (int i = 0; i < 16000; i += 1999) {
        EXPECT_EQ(set->readAttribute(ZyString("A") + ZyString(i)).toStdString(), std::to_string(i));
    }
    EXPECT_EQ(set->readAttribute("in").toStdString(), "namespace");
    EXPECT_EQ(root.attributes()->size(), 16001u) << "looking took some away";
}
