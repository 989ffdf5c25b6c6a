// SPDX-License-Identifier: BSD-3-Clause
// Element writers of the stream: who may write when, and what happens to those left behind.
#include <ZyXMLStreamElementWriter.h>

#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <ZyException.h>
#include <ZyStringDevice.h>
#include <ZyXMLStreamWriter.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyXMLElementWriter) == sizeof(void *), "virtual table pointer only");
static_assert(sizeof(ZyXMLStreamElementWriter) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_abstract_v<ZyXMLElementWriter> && std::has_virtual_destructor_v<ZyXMLElementWriter>);
static_assert(std::is_base_of_v<ZyXMLElementWriter, ZyXMLStreamElementWriter>);
static_assert(!std::is_copy_constructible_v<ZyXMLStreamElementWriter>);
static_assert(!std::is_move_constructible_v<ZyXMLStreamElementWriter>);

class ZyXMLStreamElementWriters : public testing::Test
{
protected:
    std::string finished()
    {
        writer->finishDocument();
        return device.content().toStdString();
    }

    ZyStringDevice device;
    std::unique_ptr<ZyXMLStreamWriter> writer = std::make_unique<ZyXMLStreamWriter>(device);
};
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLElementWriter, HasItsOperationsInTheToldOrder)
{
    using W = ZyXMLElementWriter;
    using S = ZyString const &;
    using Element = std::unique_ptr<ZyXMLElementWriter>;
    EXPECT_EQ(virtualSlot(static_cast<Element (W::*)(S, S)>(&W::createElement)), 2u);
    EXPECT_EQ(virtualSlot(static_cast<Element (W::*)(S)>(&W::createElement)), 3u);
    EXPECT_EQ(virtualSlot(static_cast<void (W::*)(S, S, S)>(&W::writeAttribute)), 4u);
    EXPECT_EQ(virtualSlot(static_cast<void (W::*)(S, S)>(&W::writeAttribute)), 5u);
    EXPECT_EQ(virtualSlot(static_cast<void (W::*)(S, double const &, S)>(&W::writeAttributeBase64)), 6u);
    EXPECT_EQ(virtualSlot(static_cast<void (W::*)(S, double const &)>(&W::writeAttributeBase64)), 7u);
    EXPECT_EQ(virtualSlot(&W::writeText), 8u);
    EXPECT_EQ(virtualSlot(&W::writeTextBase64), 9u);
}
#endif

TEST_F(ZyXMLStreamElementWriters, NeedAParent)
{
    EXPECT_ZY_THROW(ZyXMLStreamElementWriter(nullptr), ZyNullPointerException, "Invalid parent");
}

TEST_F(ZyXMLStreamElementWriters, WriteAttributesTextAndChildren)
{
    {
        std::unique_ptr<ZyXMLElementWriter> root = writer->createElement("root");
        root->writeAttribute("x", "1");
        root->createElement("a")->writeText("text");
        auto b = root->createElement("b", "urn:q");
        b->writeAttribute("y", "2", "urn:q");
    }
    EXPECT_EQ(finished(), "<root x=\"1\"><a>text</a><n1:b xmlns:n1=\"urn:q\" n1:y=\"2\"/></root>\n");
}

TEST_F(ZyXMLStreamElementWriters, CloseTheirElementWhenDestroyed)
{
    auto a = writer->createElement("a");
    a->createElement("b");
    a->createElement("c");
    a.reset();
    EXPECT_EQ(finished(), "<a><b/><c/></a>\n");
}

TEST_F(ZyXMLStreamElementWriters, CloseInnerElementsWithTheirOwn)
{
    auto root = writer->createElement("root");
    auto a = root->createElement("a");
    auto b = a->createElement("b");
    a.reset();
    EXPECT_ZY_THROW(b->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    b.reset();
    root->createElement("c");
    EXPECT_EQ(finished(), "<root><a><b/></a><c/></root>\n");
}

TEST_F(ZyXMLStreamElementWriters, RefuseToStartASiblingWhileAChildIsOpen)
{
    auto a = writer->createElement("a");
    auto b = a->createElement("b");
    EXPECT_ZY_THROW(a->createElement("c"), ZyInvalidXMLOperation, "Invalid attempt to start element");
    EXPECT_ZY_THROW(a->createElement("c", "urn:q"), ZyInvalidXMLOperation,
                    "Invalid attempt to start element");
    EXPECT_ZY_THROW(a->writeAttribute("x", "1"), ZyInvalidXMLOperation, "Invalid attempt to write attribute");
    EXPECT_ZY_THROW(a->writeAttribute("x", "1", "urn:q"), ZyInvalidXMLOperation,
                    "Invalid attempt to write attribute");
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    EXPECT_EQ(finished(), "<a><b/></a>\n");
}

TEST_F(ZyXMLStreamElementWriters, RefuseWhileAnElementWithoutAWriterIsOpen)
{
    auto a = writer->createElement("a");
    writer->startElement("b");
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    writer->finishElement();
    a->createElement("c");
    a.reset();
    EXPECT_EQ(finished(), "<a><b/><c/></a>\n");
}

TEST_F(ZyXMLStreamElementWriters, RefuseAnAttributeBehindAChildByTheStateOfTheStream)
{
    auto a = writer->createElement("a");
    a->createElement("b");
    EXPECT_ZY_THROW(a->writeAttribute("x", "1"), ZyInvalidXMLOperation, "Illegal attribute write");
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Illegal write text call");
}

TEST_F(ZyXMLStreamElementWriters, RefuseTheSameAttributeWithoutRegardToCase)
{
    auto a = writer->createElement("a");
    a->writeAttribute("x", "1");
    EXPECT_ZY_THROW(a->writeAttribute("X", "2"), ZyInvalidXMLAttributeName, "Invalid attribute name: X");
    EXPECT_ZY_THROW(a->writeAttribute("x", "2", "urn:q"), ZyInvalidXMLAttributeName,
                    "Invalid attribute name: x");
    EXPECT_ZY_THROW(a->writeAttributeBase64("X", 2.0), ZyInvalidXMLAttributeName,
                    "Invalid attribute name: X");
    a->writeAttribute("y", "3");
    EXPECT_EQ(finished(), "<a x=\"1\" y=\"3\"/>\n");
}

TEST_F(ZyXMLStreamElementWriters, ForgetARefusedAttribute)
{
    auto a = writer->createElement("a");
    EXPECT_ZY_THROW(a->writeAttribute("b c", "1"), ZyInvalidXMLAttributeName, "Invalid attribute name: b c");
    EXPECT_ZY_THROW(a->writeAttribute("b c", "1"), ZyInvalidXMLAttributeName, "Invalid attribute name: b c");
    EXPECT_EQ(finished(), "<a/>\n");
}

TEST_F(ZyXMLStreamElementWriters, KeepAttributesOfDifferentElementsApart)
{
    auto a = writer->createElement("a");
    a->writeAttribute("x", "1");
    auto b = a->createElement("b");
    b->writeAttribute("x", "2");
    EXPECT_EQ(finished(), "<a x=\"1\"><b x=\"2\"/></a>\n");
}

TEST_F(ZyXMLStreamElementWriters, WriteNumbersExactly)
{
    auto a = writer->createElement("a");
    a->writeAttributeBase64("x", 1.0);
    a->writeAttributeBase64("y", -0.0, "");
    a->writeTextBase64(0.1);
    EXPECT_EQ(finished(), "<a x=\"AAAAAAAA8D8=\" y=\"AAAAAAAAAIA=\">mpmZmZmZuT8=</a>\n");
}

TEST_F(ZyXMLStreamElementWriters, PassNumbersThroughTheSameChecks)
{
    auto a = writer->createElement("a");
    a->writeTextBase64(1.0);
    EXPECT_ZY_THROW(a->writeTextBase64(1.0), ZyInvalidXMLOperation, "Illegal write text call");
    EXPECT_ZY_THROW(a->writeAttributeBase64("x", 1.0), ZyInvalidXMLOperation, "Illegal attribute write");
    EXPECT_ZY_THROW(a->writeAttributeBase64("x", 1.0, "urn:q"), ZyInvalidXMLOperation,
                    "Illegal attribute write");
}

TEST_F(ZyXMLStreamElementWriters, FailAndGoWithoutEffectAfterTheDocument)
{
    auto a = writer->createElement("a");
    writer->finishDocument();
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    EXPECT_ZY_THROW(a->createElement("x"), ZyInvalidXMLOperation, "Invalid attempt to start element");
    EXPECT_ZY_THROW(a->writeAttribute("x", "1"), ZyInvalidXMLOperation, "Invalid attempt to write attribute");
    a.reset();
    EXPECT_EQ(device.content().toStdString(), "<a/>\n");
}

TEST_F(ZyXMLStreamElementWriters, MayOutliveTheirStreamWriter)
{
    auto a = writer->createElement("a");
    auto b = writer->createElement("b");
    writer.reset();
    EXPECT_ZY_THROW(b->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    EXPECT_ZY_THROW(a->createElement("x"), ZyInvalidXMLOperation, "Invalid attempt to start element");
    a.reset();
    b.reset();
    EXPECT_EQ(device.content().toStdString(), "<a><b");
}

TEST_F(ZyXMLStreamElementWriters, AreDisabledWhenTheStreamWriterClosesTheirElement)
{
    auto a = writer->createElement("a");
    auto b = writer->createElement("b");
    writer->finishElement();
    EXPECT_ZY_THROW(b->writeAttribute("x", "1"), ZyInvalidXMLOperation, "Invalid attempt to write attribute");
    b.reset();
    EXPECT_TRUE(writer->isCurrent(a.get()));
    EXPECT_EQ(finished(), "<a><b/></a>\n");
}

// The right side of an assignment runs while the old sibling lives.
TEST_F(ZyXMLStreamElementWriters, RefuseASiblingByAssignment)
{
    auto a = writer->createElement("a");
    auto child = a->createElement("b");
    EXPECT_ZY_THROW(child = a->createElement("c"), ZyInvalidXMLOperation, "Invalid attempt to start element");
    child.reset();
    child = a->createElement("c");
    EXPECT_EQ(finished(), "<a><b/><c/></a>\n");
}
