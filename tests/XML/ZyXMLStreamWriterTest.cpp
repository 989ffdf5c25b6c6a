// SPDX-License-Identifier: BSD-3-Clause
// The XML stream writer: its bytes, its states, its failures, and how it treats its device.
#include <ZyXMLStreamWriter.h>

#include "RecordingDevice.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyStringDevice.h>
#include <ZyXMLStreamElementWriter.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>

namespace
{
static_assert(sizeof(ZyXMLStreamWriter) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLStreamWriter>);
static_assert(!std::is_copy_constructible_v<ZyXMLStreamWriter> &&
              !std::is_copy_assignable_v<ZyXMLStreamWriter>);
static_assert(!std::is_move_constructible_v<ZyXMLStreamWriter>);
static_assert(!std::is_convertible_v<bool, ZyXMLStreamWriter::AutoFormattingSettings>);
static_assert(std::is_same_v<decltype(ZyXMLStreamWriter::AutoFormattingSettings::indent), int>);

using Settings = ZyXMLStreamWriter::AutoFormattingSettings;

/** What a finished document holds, without the line feed at its end. */
std::string written(std::function<void(ZyXMLStreamWriter &)> const & write,
                    Settings const & settings = Settings())
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device, settings);
    write(writer);
    writer.finishDocument();
    std::string text = device.content().toStdString();
    EXPECT_EQ(text.back(), '\n');
    text.pop_back();
    return text;
}
} // namespace

TEST(ZyXMLStreamWriterSettings, HaveTheToldDefaults)
{
    EXPECT_FALSE(Settings().enabled);
    EXPECT_EQ(Settings().indent, -1);
    EXPECT_TRUE(Settings(true).enabled);
    EXPECT_EQ(Settings(true).indent, -1);
    EXPECT_TRUE(Settings(true, 2).enabled);
    EXPECT_EQ(Settings(true, 2).indent, 2);
}

TEST(ZyXMLStreamWriter, WritesADeclarationWithVersionAndEncoding)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) { w.startDocument(); }),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) { w.startDocument("1.1"); }),
              "<?xml version=\"1.1\" encoding=\"UTF-8\"?>");
}

TEST(ZyXMLStreamWriter, NeedsNoDeclaration)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) { w.startElement("a"); }), "<a/>");
}

TEST(ZyXMLStreamWriter, EndsEveryDocumentWithALineFeed)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "\n");
}

TEST(ZyXMLStreamWriter, WritesElementsAttributesAndTexts)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("a");
                  w.writeAttribute("x", "1");
                  w.writeAttribute("y", "2");
                  w.startElement("b");
                  w.writeText("text");
                  w.finishElement();
                  w.startElement("c");
                  w.finishElement();
                  w.finishElement();
              }),
              "<a x=\"1\" y=\"2\"><b>text</b><c/></a>");
}

TEST(ZyXMLStreamWriter, ClosesTheStartTagForAnEmptyText)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("t");
                  w.writeText("");
              }),
              "<t></t>");
}

TEST(ZyXMLStreamWriter, EscapesTextsAndAttributes)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("t");
                  w.writeAttribute("x", "<>&\"'\t\r\n");
                  w.writeText("<>&\"'\t\r\n\x01\x0b");
              }),
              "<t x=\"&lt;&gt;&amp;&quot;'&#9;&#13;&#10;\">&lt;&gt;&amp;&quot;'\t\r\n</t>");
}

TEST(ZyXMLStreamWriter, EndsTextsNamesAndValuesAtANul)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement(std::string("t\0u", 3));
                  w.writeAttribute(std::string("x\0y", 3), std::string("1\0"
                                                                       "2",
                                                                       3));
                  w.writeText(std::string("ab\0cd", 5));
              }),
              "<t x=\"1\">ab</t>");
}

TEST(ZyXMLStreamWriter, ReplacesBytesThatAreNotUtf8)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("t");
                  w.writeText("\xff"
                              "a\xc3\xa9");
              }),
              "<t>\xef\xbf\xbd"
              "a\xc3\xa9</t>");
}

TEST(ZyXMLStreamWriter, FormatsWithTabsOrBlanks)
{
    auto const write = [](ZyXMLStreamWriter & w) {
        w.startDocument();
        w.startElement("a");
        w.startElement("b");
        w.writeText("x");
    };
    EXPECT_EQ(written(write), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a><b>x</b></a>");
    EXPECT_EQ(written(write, Settings(true)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\n\t<b>x</b>\n</a>");
    EXPECT_EQ(written(write, {true, 3}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\n   <b>x</b>\n</a>");
    EXPECT_EQ(written(write, Settings(false, 3)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a><b>x</b></a>");
}

TEST(ZyXMLStreamWriter, PutsTheDefaultNamespaceOnTheRootBeforeAndAfterTheDeclaration)
{
    std::string const expected =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root xmlns=\"urn:q\" a=\"1\"><inner/></root>";
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.writeDefaultNamespace("urn:q");
                  w.startDocument();
                  auto root = w.createElement("root", "urn:q");
                  root->writeAttribute("a", "1");
                  root->createElement("inner");
              }),
              expected);
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startDocument();
                  w.writeDefaultNamespace("urn:q");
                  auto root = w.createElement("root", "urn:q");
                  root->writeAttribute("a", "1");
                  root->createElement("inner", "urn:q");
              }),
              expected);
}

TEST(ZyXMLStreamWriter, TakesTheNameFirstAndTheNamespaceLast)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.writeNamespace("urn:q", "q");
                  auto root = w.createElement("root", "urn:q");
                  w.writeAttribute("a", "1", "urn:q");
                  w.writeAttribute("b", "2", "");
              }),
              "<q:root xmlns:q=\"urn:q\" q:a=\"1\" b=\"2\"/>");
}

TEST(ZyXMLStreamWriter, InventsPrefixesForUndeclaredNamespaces)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("root");
                  w.createElement("First", "urn:u");
                  w.createElement("Second", "urn:u");
              }),
              "<root><n1:First xmlns:n1=\"urn:u\"/><n2:Second xmlns:n2=\"urn:u\"/></root>");
}

// Names share the places of a small cache.
TEST(ZyXMLStreamWriter, KeepsManyNamesApart)
{
    std::string expected;
    std::string const text = written([&](ZyXMLStreamWriter & w) {
        w.startElement("root");
        expected += "<root>";
        for (int round = 0; round < 3; ++round) {
            for (int i = 0; i < 200; ++i) {
                std::string const name =
                    "n" + std::to_string(i) + std::string(static_cast<std::size_t>(i) / 2, 'x');
                w.startElement(name);
                w.writeAttribute(name, "v");
                w.finishElement();
                expected += "<" + name + " " + name + "=\"v\"/>";
            }
        }
        expected += "</root>";
    });
    EXPECT_EQ(text, expected);
}

TEST(ZyXMLStreamWriterText, IsRefusedTheSecondTime)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    writer.writeText("a");
    EXPECT_ZY_THROW(writer.writeText("a"), ZyInvalidXMLOperation, "Illegal write text call");
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "<a>a</a>\n");
}

TEST(ZyXMLStreamWriterText, IsRefusedBehindAChild)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    writer.startElement("b");
    writer.finishElement();
    EXPECT_ZY_THROW(writer.writeText("x"), ZyInvalidXMLOperation, "Illegal write text call");
}

TEST(ZyXMLStreamWriterAttribute, IsRefusedBehindText)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    writer.writeText("x");
    EXPECT_ZY_THROW(writer.writeAttribute("b", "1"), ZyInvalidXMLOperation, "Illegal attribute write");
    EXPECT_ZY_THROW(writer.writeAttribute("b", "1", "urn:q"), ZyInvalidXMLOperation,
                    "Illegal attribute write");
}

TEST(ZyXMLStreamWriterAttribute, RefusesWhiteSpaceInTheNameFirst)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    EXPECT_ZY_THROW(writer.writeAttribute("a b", "1"), ZyInvalidXMLAttributeName,
                    "Invalid attribute name: a b");
    EXPECT_ZY_THROW(writer.writeAttribute("a\tb", "1", "urn:q"), ZyInvalidXMLAttributeName,
                    "Invalid attribute name: a\tb");
    EXPECT_EQ(device.content().toStdString(), "");
    writer.startElement("t");
    EXPECT_ZY_THROW(writer.writeAttribute("a b", "1"), ZyInvalidXMLAttributeName,
                    "Invalid attribute name: a b");
    writer.writeAttribute("c", "2");
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "<t c=\"2\"/>\n");
}

TEST(ZyXMLStreamWriterAttribute, MayStandTwiceWhenNoElementWriterWatches)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.startElement("a");
                  w.writeAttribute("x", "1");
                  w.writeAttribute("x", "2");
              }),
              "<a x=\"1\" x=\"2\"/>");
}

TEST(ZyXMLStreamWriterState, RefusesADeclarationOnceSomethingIsWritten)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    auto element = writer.createElement("a");
    EXPECT_ZY_THROW(writer.startDocument(), ZyInvalidXMLOperation,
                    "Attempting to create document when already created");
}

TEST(ZyXMLStreamWriterState, RefusesASecondDeclaration)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startDocument();
    EXPECT_ZY_THROW(writer.startDocument("1.1"), ZyInvalidXMLOperation,
                    "Attempting to create document when already created");
}

/** How a writer comes into one of its states, and what that state allows. */
struct StateCase
{
    char const * name;
    std::function<void(ZyXMLStreamWriter &)> enter;
    bool declaration;
    bool attributeAndText;
};

class ZyXMLStreamWriterStates : public testing::TestWithParam<StateCase>
{
protected:
    bool allows(std::function<void(ZyXMLStreamWriter &)> const & operation)
    {
        ZyStringDevice device;
        ZyXMLStreamWriter writer(device);
        GetParam().enter(writer);
        try {
            operation(writer);
            return true;
        } catch (ZyInvalidXMLOperation const &) {
            return false;
        }
    }
};

TEST_P(ZyXMLStreamWriterStates, AllowWhatTheyShould)
{
    EXPECT_EQ(allows([](ZyXMLStreamWriter & w) { w.startDocument(); }), GetParam().declaration);
    EXPECT_EQ(allows([](ZyXMLStreamWriter & w) { w.writeAttribute("x", "1"); }), GetParam().attributeAndText);
    EXPECT_EQ(allows([](ZyXMLStreamWriter & w) { w.writeText("x"); }), GetParam().attributeAndText);
    EXPECT_TRUE(allows([](ZyXMLStreamWriter & w) { w.startElement("x"); }));
    EXPECT_TRUE(allows([](ZyXMLStreamWriter & w) { w.createElement("x"); }));
    EXPECT_TRUE(allows([](ZyXMLStreamWriter & w) { w.writeDefaultNamespace("urn:q"); }));
    EXPECT_TRUE(allows([](ZyXMLStreamWriter & w) { w.finishElement(); }));
    EXPECT_TRUE(allows([](ZyXMLStreamWriter & w) { w.finishDocument(); }));
}

INSTANTIATE_TEST_SUITE_P(
    All, ZyXMLStreamWriterStates,
    testing::Values(
        StateCase{"NothingWritten", [](ZyXMLStreamWriter &) {}, true, false},
        StateCase{"DeclarationWritten", [](ZyXMLStreamWriter & w) { w.startDocument(); }, false, false},
        StateCase{"StartTagOpen", [](ZyXMLStreamWriter & w) { w.startElement("a"); }, false, true},
        StateCase{"StartTagWithAttribute",
                  [](ZyXMLStreamWriter & w) {
                      w.startElement("a");
                      w.writeAttribute("y", "1");
                  },
                  false, true},
        StateCase{"BehindText",
                  [](ZyXMLStreamWriter & w) {
                      w.startElement("a");
                      w.writeText("x");
                  },
                  false, false},
        StateCase{"BehindAChild",
                  [](ZyXMLStreamWriter & w) {
                      w.startElement("a");
                      w.startElement("b");
                      w.finishElement();
                  },
                  false, false},
        StateCase{"NoElementOpen",
                  [](ZyXMLStreamWriter & w) {
                      w.startElement("a");
                      w.finishElement();
                  },
                  false, false},
        StateCase{"DocumentFinished", [](ZyXMLStreamWriter & w) { w.finishDocument(); }, false, false}),
    [](testing::TestParamInfo<StateCase> const & tested) { return tested.param.name; });

TEST(ZyXMLStreamWriterFinishElement, WritesThreeEndTagsForTwoOpenChildren)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    auto root = writer.createElement("root");
    auto e = writer.createElement("e");
    auto child = writer.createElement("f");
    writer.startElement("g");
    writer.finishElement(e.get());
    EXPECT_TRUE(writer.isCurrent(root.get()));
    writer.finishElement(e.get());
    EXPECT_TRUE(writer.isCurrent(root.get()));
    writer.startElement("h");
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "<root><e><f><g/></f></e><h/></root>\n");
}

TEST(ZyXMLStreamWriterFinishElement, IgnoresAnElementThatIsNotOpen)
{
    ZyStringDevice device;
    ZyStringDevice otherDevice;
    ZyXMLStreamWriter writer(device);
    ZyXMLStreamWriter other(otherDevice);
    auto foreign = other.createElement("x");
    auto element = writer.createElement("a");
    writer.finishElement(foreign.get());
    EXPECT_TRUE(writer.isCurrent(element.get()));
    EXPECT_TRUE(other.isCurrent(foreign.get()));
}

TEST(ZyXMLStreamWriterFinishElement, WithNullClosesDownToTheOutermostElementWithoutAWriter)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    auto root = writer.createElement("root");
    writer.startElement("a");
    auto inner = writer.createElement("b");
    writer.startElement("c");
    writer.finishElement(nullptr);
    EXPECT_TRUE(writer.isCurrent(root.get()));
    writer.finishElement(nullptr);
    EXPECT_TRUE(writer.isCurrent(root.get()));
}

TEST(ZyXMLStreamWriterFinishElement, DoesNothingHarmfulWhenNoneIsOpen)
{
    EXPECT_EQ(written([](ZyXMLStreamWriter & w) {
                  w.finishElement();
                  w.startElement("a");
                  w.finishElement();
                  w.finishElement();
              }),
              "<a/>");
}

TEST(ZyXMLStreamWriterFinishElement, ClosesTenThousandLevelsInLinearTime)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    auto root = writer.createElement("a");
    for (int level = 0; level < 10000; ++level) {
        writer.startElement("a");
    }
    writer.finishElement(root.get());
    EXPECT_TRUE(writer.isCurrent(nullptr));
    writer.finishDocument();
    EXPECT_EQ(device.content().size(), 10000u * 7 + 5);
}

TEST(ZyXMLStreamWriter, KnowsTheCurrentElement)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    EXPECT_TRUE(writer.isCurrent(nullptr));
    auto a = writer.createElement("a");
    EXPECT_TRUE(writer.isCurrent(a.get()));
    EXPECT_FALSE(writer.isCurrent(nullptr));
    auto b = writer.createElement("b");
    EXPECT_FALSE(writer.isCurrent(a.get()));
    writer.startElement("c");
    EXPECT_TRUE(writer.isCurrent(nullptr));
    EXPECT_FALSE(writer.isCurrent(b.get()));
}

TEST(ZyXMLStreamWriter, Deliberate_abandoned_document_stays_cut_off)
{
    ZyStringDevice device;
    std::unique_ptr<ZyXMLStreamElementWriter> a; // both outlive the document that is abandoned
    std::unique_ptr<ZyXMLStreamElementWriter> b;
    {
        ZyXMLStreamWriter writer(device);
        writer.startDocument();
        a = writer.createElement("a");
        b = writer.createElement("b");
        b->writeAttribute("x", "1");
    }
    EXPECT_EQ(device.content().toStdString(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a><b x=\"1\"");
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
}

TEST(ZyXMLStreamWriterFinishDocument, ClosesAllElementsAndTheDevice)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    auto a = writer.createElement("a");
    auto b = writer.createElement("b");
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "<a><b/></a>\n");
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
}

TEST(ZyXMLStreamWriterFinishDocument, DoesNothingTheSecondTime)
{
    RecordingDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    writer.finishDocument();
    EXPECT_EQ(device.closed, 1);
    device.open(ZyIODevice::Write);
    writer.finishDocument();
    EXPECT_EQ(device.text(), "<a/>\n");
    EXPECT_EQ(device.closed, 1);
}

TEST(ZyXMLStreamWriterFinishDocument, Deliberate_elements_behind_the_end)
{
    ZyStringDevice device;
    {
        ZyXMLStreamWriter writer(device);
        writer.startElement("a");
        writer.finishDocument();
        writer.startElement("b");
        std::unique_ptr<ZyXMLStreamElementWriter> const child = writer.createElement("c");
        child->writeText("text");
        EXPECT_TRUE(writer.isCurrent(child.get()));
    }
    EXPECT_EQ(device.content().toStdString(), "<a/>\n");
}

TEST(ZyXMLStreamWriterDevice, IsOpenedByTheConstructor)
{
    ZyStringDevice device;
    ZyXMLStreamWriter writer(device);
    EXPECT_EQ(device.mode(), ZyIODevice::Write);
}

TEST(ZyXMLStreamWriterDevice, IsUsedAsItStandsWhenOpen)
{
    ZyStringDevice device("old ");
    device.open(ZyIODevice::Append);
    ZyXMLStreamWriter writer(device);
    EXPECT_EQ(device.mode(), ZyIODevice::Append);
    EXPECT_EQ(device.lastError().toStdString(), "Device already open");
    writer.startElement("a");
    writer.finishDocument();
    EXPECT_EQ(device.content().toStdString(), "old <a/>\n");
}

TEST(ZyXMLStreamWriterDevice, OpenForReadingFailsAtTheFirstWriteAndAtEveryLaterOne)
{
    ZyStringDevice device("text");
    device.open(ZyIODevice::Read);
    ZyXMLStreamWriter writer(device);
    EXPECT_ZY_THROW(writer.startDocument(), ZyIOInvalidWriteException, "");
    EXPECT_ZY_THROW(writer.startElement("a"), ZyIOInvalidWriteException, "");
    EXPECT_ZY_THROW(writer.finishDocument(), ZyIOInvalidWriteException, "");
    EXPECT_EQ(device.content().toStdString(), "text");
    EXPECT_EQ(device.mode(), ZyIODevice::Closed);
}

TEST(ZyXMLStreamWriterDevice, MustNotBeNull)
{
    EXPECT_ZY_THROW(ZyXMLStreamWriter(ZySharedPtr<ZyIODevice>()), ZyNullPointerException, "");
}

TEST(ZyXMLStreamWriterDevice, IsSharedWhenGivenShared)
{
    ZyWeakPtr<ZyIODevice> watch;
    {
        ZySharedPtr<ZyIODevice> device(new ZyStringDevice);
        watch = device;
        ZyXMLStreamWriter writer(device);
        device.reset();
        EXPECT_FALSE(watch.expired());
        writer.startElement("a");
    }
    EXPECT_TRUE(watch.expired());
}

TEST(ZyXMLStreamWriterDevice, OfAMissingDirectoryCannotBeOpened)
{
    EXPECT_ZY_THROW(ZyXMLStreamWriter(ZyFilePath("no-such-directory/a.xml")), ZyCannotOpenFileException,
                    "Cannot open file: no-such-directory\\a.xml");
}

// The first piece goes straight through, so that a device that cannot be written fails at once.
TEST(ZyXMLStreamWriterDevice, SeesTheFirstPieceAtOnceAndTheRestInLargeOnes)
{
    RecordingDevice device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("root");
    ASSERT_EQ(device.pieces.size(), 1u);
    for (int i = 0; i < 20000; ++i) {
        writer.startElement("element");
        writer.finishElement();
    }
    writer.finishDocument();
    EXPECT_EQ(device.text().size(), 20000u * 10 + 14);
    EXPECT_EQ(device.pieces.size(), 5u);
    EXPECT_GE(device.pieces[1].size(), 65536u);
    EXPECT_LT(device.pieces[1].size(), 65536u + 16);
}

TEST(ZyXMLStreamWriterDevice, ThatAcceptsLessIsNotNoticed)
{
    class Short : public RecordingDevice
    {
    protected:
        unsigned int onWrite(ZyString const & text) override { return RecordingDevice::onWrite(text) - 1; }
    };
    Short device;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    writer.finishDocument();
    EXPECT_EQ(device.text(), "<a/>\n");
    EXPECT_EQ(device.lastError().toStdString(), "1 bytes were not written");
}

class ZyXMLStreamWriterFailure : public testing::Test
{
protected:
    RecordingDevice device;
    ZyString const large = std::string(100000, 'x');
};

TEST_F(ZyXMLStreamWriterFailure, IsThrownByTheOperationThatMeetsItAndByEveryLaterOne)
{
    device.good = 1;
    ZyXMLStreamWriter writer(device);
    writer.startElement("a");
    EXPECT_ZY_THROW(writer.writeText(large), ZyIOException, "no room left");
    EXPECT_ZY_THROW(writer.startElement("b"), ZyIOException, "no room left");
    EXPECT_ZY_THROW(writer.finishElement(), ZyIOException, "no room left");
    EXPECT_EQ(device.failures, 1);
}

TEST_F(ZyXMLStreamWriterFailure, OfTheLastPieceIsThrownByFinishDocumentWhichClosesTheDevice)
{
    device.good = 1;
    ZyXMLStreamWriter writer(device);
    auto a = writer.createElement("a");
    EXPECT_ZY_THROW(writer.finishDocument(), ZyIOException, "no room left");
    EXPECT_EQ(device.closed, 1);
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
    writer.finishDocument();
    EXPECT_EQ(device.failures, 1);
}

TEST_F(ZyXMLStreamWriterFailure, OfFinishElementLeavesTheElementDisabled)
{
    device.good = 1;
    ZyXMLStreamWriter writer(device);
    auto a = writer.createElement("a");
    EXPECT_THROW(writer.writeText(large), ZyIOException);
    EXPECT_ZY_THROW(writer.finishElement(a.get()), ZyIOException, "no room left");
    EXPECT_ZY_THROW(a->writeText("x"), ZyInvalidXMLOperation, "Invalid attempt to write text");
}

TEST_F(ZyXMLStreamWriterFailure, UnwindsThroughElementWriters)
{
    device.good = 1;
    ZyXMLStreamWriter writer(device);
    auto const write = [&] {
        auto a = writer.createElement("a");
        auto b = a->createElement("b");
        b->writeText(large);
    };
    EXPECT_ZY_THROW(write(), ZyIOException, "no room left");
    EXPECT_TRUE(writer.isCurrent(nullptr));
}

TEST_F(ZyXMLStreamWriterFailure, InADestroyedElementIsThrownByTheNextOperation)
{
    device.good = 1;
    ZyXMLStreamWriter writer(device);
    auto root = writer.createElement("root");
    auto child = root->createElement("child");
    child->writeText(std::string(65536 - 13, 'x')); // one byte short of what reaches the device
    EXPECT_EQ(device.failures, 0);
    child.reset();
    EXPECT_EQ(device.failures, 1);
    EXPECT_ZY_THROW(root->createElement("next"), ZyIOException, "no room left");
}

TEST_F(ZyXMLStreamWriterFailure, IsSilentWhenTheWriterGoes)
{
    device.good = 1;
    {
        ZyXMLStreamWriter writer(device);
        writer.startElement("a");
        writer.startElement("b");
    }
    EXPECT_EQ(device.failures, 1);
    EXPECT_EQ(device.closed, 1);
}

TEST(ZyXMLStreamWriterFile, HoldsTheDocument)
{
    ScratchDirectory directory;
    ZyXMLStreamWriter writer(ZyFilePath((directory / "a.xml").c_str()));
    writer.startElement("a");
    writer.finishDocument();
    EXPECT_EQ(directory.read("a.xml"), "<a/>\n");
}
