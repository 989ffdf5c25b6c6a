// SPDX-License-Identifier: BSD-3-Clause
// Element writers into documents in memory.
#include <ZyXMLDomElementWriter.h>

#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyXMLDomElementWriter) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyXMLElementWriter, ZyXMLDomElementWriter>);
static_assert(!std::is_copy_constructible_v<ZyXMLDomElementWriter>);

class ZyXMLDomElementWriters : public testing::Test
{
protected:
    std::string printed() const { return document.toString().toStdString(); }

    ZyXMLDomDocument document;
    std::unique_ptr<ZyXMLElementWriter> writer = [this] {
        document.setContent("<r/>");
        return std::make_unique<ZyXMLDomElementWriter>(document.root());
    }();
};
} // namespace

TEST(ZyXMLDomElementWriter, NeedsAnElement)
{
    EXPECT_ZY_THROW(ZyXMLDomElementWriter(ZyXMLDomElement()), ZyNullDomElementException, "Null dom element");
}

TEST_F(ZyXMLDomElementWriters, WriteAttributesTextAndChildren)
{
    writer->writeAttribute("x", "1");
    writer->createElement("a")->writeText("t");
    std::unique_ptr<ZyXMLElementWriter> b = writer->createElement("b");
    b->writeAttribute("p:y", "2", "urn:p");
    b->createElement("c");
    EXPECT_EQ(printed(), "<r x=\"1\">\n <a>t</a>\n <b p:y=\"2\" xmlns:p=\"urn:p\">\n  <c/>\n </b>\n</r>\n");
}

TEST_F(ZyXMLDomElementWriters, CloseNothing)
{
    std::unique_ptr<ZyXMLElementWriter> a = writer->createElement("a");
    std::unique_ptr<ZyXMLElementWriter> b = writer->createElement("b");
    a->createElement("c");
    a->writeAttribute("x", "1");
    b.reset();
    a->writeAttribute("x", "2");
    writer->writeAttribute("y", "3");
    writer.reset();
    a->createElement("d");
    EXPECT_EQ(printed(), "<r y=\"3\">\n <a x=\"2\">\n  <c/>\n  <d/>\n </a>\n <b/>\n</r>\n");
}

// Code that has the name first, as a stream wants it, names its element after the namespace.
TEST_F(ZyXMLDomElementWriters, Deliberate_dom_create_element_reversed)
{
    writer->createElement("urn:p", "p:a");
    EXPECT_EQ(printed(), "<r>\n <p:a xmlns:p=\"urn:p\"/>\n</r>\n");
    ZyXMLDomElement const swapped = [this] {
        writer->createElement("First", "http://host.example/types/");
        return document.root().children().back();
    }();
    EXPECT_EQ(swapped.name().toStdString(), "//host.example/types/");
    EXPECT_EQ(printed(),
              "<r>\n <p:a xmlns:p=\"urn:p\"/>\n <http://host.example/types/ xmlns:http=\"First\"/>\n</r>\n");
    ZyXMLDomDocument back;
    back.setContent(document.toString());
    EXPECT_EQ(back.root().name().toStdString(), "DefaultRoot") << "the text is no XML any more";
}

TEST_F(ZyXMLDomElementWriters, ReplaceTheFirstTextOnly)
{
    writer->writeText("a");
    EXPECT_EQ(printed(), "<r>a</r>\n");
    writer->writeText("b");
    EXPECT_EQ(printed(), "<r>b</r>\n");
}

TEST_F(ZyXMLDomElementWriters, WriteNumbersExactly)
{
    writer->writeAttributeBase64("x", 1.0);
    writer->writeAttributeBase64("p:y", -0.0, "urn:p");
    writer->writeTextBase64(0.1);
    EXPECT_EQ(printed(), "<r p:y=\"AAAAAAAAAIA=\" x=\"AAAAAAAA8D8=\" xmlns:p=\"urn:p\">mpmZmZmZuT8=</r>\n");
}

TEST_F(ZyXMLDomElementWriters, RefuseNamesWithWhiteSpace)
{
    EXPECT_ZY_THROW(writer->writeAttribute("b c", "1"), ZyInvalidXMLOperation, "b c");
    EXPECT_ZY_THROW(writer->writeAttribute("b c", "1", "urn:p"), ZyInvalidXMLOperation, "b c");
    EXPECT_ZY_THROW(writer->writeAttributeBase64("b c", 1.0), ZyInvalidXMLOperation, "b c");
    EXPECT_ZY_THROW(writer->writeAttributeBase64("b c", 1.0, "urn:p"), ZyInvalidXMLOperation, "b c");
    EXPECT_EQ(printed(), "<r/>\n");
}

TEST_F(ZyXMLDomElementWriters, WriteAttributesInANamespaceThatAStreamReads)
{
    writer->writeAttribute("x", "1", "urn:p");
    ZyStringDevice device(document.toString());
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElement()->readAttribute("x").toStdString(), "1");
}

TEST_F(ZyXMLDomElementWriters, RefuseToNestBeyond512Levels)
{
    std::unique_ptr<ZyXMLElementWriter> element = std::move(writer);
    for (int depth = 1; depth < 512; ++depth) {
        element = element->createElement("a");
    }
    EXPECT_ZY_THROW(element->createElement("b"), ZyInvalidXMLException,
                    "Invalid XML: b is nested deeper than 512 levels");
}

TEST_F(ZyXMLDomElementWriters, OutliveTheirDocument)
{
    auto owner = std::make_unique<ZyXMLDomDocument>();
    ZyXMLDomElementWriter inner(owner->root());
    owner.reset();
    EXPECT_NO_THROW(inner.createElement("a")->writeText("t"));
}
