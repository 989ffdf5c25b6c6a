// SPDX-License-Identifier: BSD-3-Clause
// Elements of a stream: what works while they are active, open and closed, and the walk over their children.
#include <ZyXMLStreamElementReader.h>

#include "ReaderSlots.h"
#include "ThrowsMessage.h"

#include <ZyBase64Converter.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
using Element = std::shared_ptr<ZyXMLStreamElementReader>;
using Children = ZyXMLElementReader::Children;
using StreamChildren = ZyXMLStreamElementReader::StreamChildren;
using StreamImplementation = StreamChildren::StreamImplementation;

static_assert(sizeof(ZyXMLStreamElementReader) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(sizeof(StreamChildren) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(sizeof(StreamImplementation) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyXMLElementReader, ZyXMLStreamElementReader>);
static_assert(std::is_base_of_v<Children, StreamChildren>);
static_assert(std::is_base_of_v<Children::Iterator::Implementation, StreamImplementation>);
static_assert(std::is_copy_constructible_v<ZyXMLStreamElementReader>);
static_assert(
    std::is_same_v<decltype(std::declval<ZyXMLStreamElementReader &>().children()), StreamChildren &>);

/** A reader over a text of its own, and its first element. */
struct Document
{
    explicit Document(std::string const & text)
        : device(ZyString(text)), reader(std::make_unique<ZyXMLStreamReader>(device)),
          root(reader->nextElement())
    {}

    ZyStringDevice device;
    std::unique_ptr<ZyXMLStreamReader> reader;
    Element root;
};

std::string namesOf(Children & children)
{
    std::string names;
    for (auto const & child : children) {
        names += child->name().toStdString() + " ";
    }
    return names;
}
} // namespace

#if ZY_SLOTS_VISIBLE
TEST(ZyXMLStreamElementReader, HasItsOperationsInTheToldOrder)
{
    expectReaderSlots<ZyXMLStreamElementReader>();
    EXPECT_EQ(virtualSlot(&ZyXMLStreamElementReader::children), 3u);
    EXPECT_EQ(virtualSlot(&StreamChildren::begin), 2u);
    EXPECT_EQ(virtualSlot(&StreamChildren::end), 3u);
    EXPECT_EQ(virtualSlot(&StreamImplementation::currentChild), 2u);
    EXPECT_EQ(virtualSlot(&StreamImplementation::nextChild), 3u);
}
#endif

TEST(ZyXMLStreamElementReader, NeedsAStreamReader)
{
    EXPECT_ZY_THROW(ZyXMLStreamElementReader(nullptr), ZyNullPointerException, "Invalid parent");
}

TEST(ZyXMLStreamElementReader, KnowsItsNameAndAttributes)
{
    Document document("<p:Limit xmlns:p='u' unit='V' p:Value='5'/>");
    EXPECT_EQ(document.root->name().toStdString(), "Limit");
    EXPECT_TRUE(document.root->hasAttribute("UNIT"));
    EXPECT_FALSE(document.root->hasAttribute("p:Value"));
    EXPECT_EQ(document.root->readAttribute("value").toStdString(), "5");
    EXPECT_EQ(document.root->attributes().size(), 2u);
    EXPECT_EQ(&document.root->attributes(), &document.root->attributes());
    EXPECT_ZY_THROW(document.root->readAttribute("Missing"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: Missing");
}

TEST(ZyXMLStreamElementReader, KeepsNameAndAttributesWhenClosed)
{
    Document document("<a x='1'><b y='2'/></a>");
    Element const b = document.reader->nextElement();
    while (document.reader->next() != ZyXMLStreamReader::EndDocument) {
    }
    EXPECT_EQ(document.root->readAttribute("x").toStdString(), "1");
    EXPECT_EQ(b->name().toStdString(), "b");
    EXPECT_EQ(b->attributes().size(), 1u);
    EXPECT_EQ(b->readAttribute("y").toStdString(), "2");
}

TEST(ZyXMLStreamElementReader, KeepsNameAndAttributesWhenTheReaderIsGone)
{
    Document document("<a x='1'><b y='2'/></a>");
    Element const b = document.reader->nextElement();
    document.reader.reset();
    EXPECT_EQ(document.root->readAttribute("x").toStdString(), "1");
    EXPECT_EQ(b->readAttribute("y").toStdString(), "2");
    EXPECT_ZY_THROW(b->readText(), ZyInvalidXMLOperation, "Attempted to read text from non-active element");
    EXPECT_ZY_THROW(b->nextChild(), ZyInvalidXMLOperation, "NextChild on closed element called");
    EXPECT_ZY_THROW(b->children(), ZyNullXMLStreamElementException, "Null XML stream element");
}

TEST(ZyXMLStreamElementReader, TrimsItsText)
{
    Document document("<a>\n  some text\t</a>");
    EXPECT_EQ(document.root->readText().toStdString(), "some text");
}

TEST(ZyXMLStreamElementReader, Deliberate_blank_run_is_the_text)
{
    Document document("<a>  <b/>x</a>");
    EXPECT_EQ(document.root->readText().toStdString(), "");
    Document section("<a>\n <![CDATA[x]]></a>");
    EXPECT_EQ(section.root->readText().toStdString(), "");
}

TEST(ZyXMLStreamElementReader, IsClosedByReadingATextThatIsNotThere)
{
    Document document("<a></a>");
    EXPECT_EQ(document.root->readText().toStdString(), "");
    EXPECT_FALSE(document.reader->isValid(document.root));
    EXPECT_ZY_THROW(document.root->readText(), ZyInvalidXMLOperation,
                    "Attempted to read text from non-active element");
}

TEST(ZyXMLStreamElementReader, ReadsNoTextWhileAChildIsOpen)
{
    Document document("<a><b/>x</a>");
    document.reader->nextElement();
    EXPECT_ZY_THROW(document.root->readText(), ZyInvalidXMLOperation,
                    "Attempted to read text from non-active element");
    document.reader->next();
    EXPECT_EQ(document.root->readText().toStdString(), "x");
}

TEST(ZyXMLStreamElementReader, ReadsNumbersExactly)
{
    double const third = 1.0 / 3.0;
    std::string const text = ZyString::Base64(third).toStdString();
    Document document("<a x='" + text + "' y='abc'>\n" + text + "\n</a>");
    EXPECT_EQ(document.root->readAttributeBase64("X"), third);
    EXPECT_ZY_THROW(document.root->readAttributeBase64("y"), ZyInvalidParameterException,
                    "Invalid string length");
    EXPECT_ZY_THROW(document.root->readAttributeBase64("z"), ZyUnknownXMLAttributeException,
                    "Unknown attribute: z");
    EXPECT_EQ(document.root->readTextBase64(), third);
}

TEST(ZyXMLStreamElementReader, RefusesAnEmptyTextAsNumber)
{
    Document document("<a></a>");
    EXPECT_ZY_THROW(document.root->readTextBase64(), ZyInvalidParameterException, "Invalid string length");
}

TEST(ZyXMLStreamElementReader, Deliberate_element_copy_reads_the_token)
{
    Document document("<a x='1'><b y='2'>t</b></a>");
    document.reader->nextElement();
    ZyXMLStreamElementReader copy(*document.root);
    EXPECT_EQ(copy.name().toStdString(), "b");
    EXPECT_EQ(copy.readAttribute("y").toStdString(), "2");
    EXPECT_FALSE(document.reader->isValid(&copy));
    EXPECT_ZY_THROW(copy.readText(), ZyInvalidXMLOperation, "Attempted to read text from non-active element");
    EXPECT_ZY_THROW(copy.nextChild(), ZyInvalidXMLOperation, "NextChild on closed element called");
    EXPECT_ZY_THROW(copy.children(), ZyNullXMLStreamElementException, "Null XML stream element");
    document.reader->next();
    EXPECT_EQ(ZyXMLStreamElementReader(*document.root).name().toStdString(), "");
}

TEST(ZyXMLStreamElementReader, GivesItsChildrenOneByOne)
{
    Document document("<a>t<b/>t<c>u</c></a>");
    EXPECT_EQ(document.root->nextChild()->name().toStdString(), "b");
    Element const c = document.root->nextChild();
    EXPECT_EQ(c->readText().toStdString(), "u");
    EXPECT_EQ(document.root->nextChild(), nullptr);
    EXPECT_FALSE(document.reader->isValid(document.root));
    EXPECT_ZY_THROW(document.root->nextChild(), ZyInvalidXMLOperation, "NextChild on closed element called");
}

TEST(ZyXMLStreamElementReader, GivesNoChildWhenItClosesWhileAnotherIsSkipped)
{
    Document document("<a><b/></a>");
    document.reader->nextElement();
    document.reader->next();
    document.reader->next();
    EXPECT_ZY_THROW(document.root->nextChild(), ZyInvalidXMLOperation, "NextChild on closed element called");
}

TEST(ZyXMLStreamElementReader, TakesDamageInFrontOfAChildForTheEnd)
{
    Document document("<a><b/><");
    EXPECT_EQ(document.root->nextChild()->name().toStdString(), "b");
    EXPECT_EQ(document.root->nextChild(), nullptr);
    EXPECT_EQ(document.reader->tokenType(), ZyXMLStreamReader::Invalid);
}

TEST(ZyXMLStreamElementReader, ThrowsWhenDamageIsMetWhileAChildIsSkipped)
{
    Document document("<a><b><c></b></a>");
    Element const b = document.root->nextChild();
    EXPECT_ZY_THROW(document.root->nextChild(), ZyInvalidXMLException,
                    "Invalid XML: Opening and ending tag mismatch.");
}

TEST(ZyXMLStreamChildren, AreWalkedOver)
{
    Document document("<a><b><c/></b><d/>text<e>x</e></a>");
    EXPECT_EQ(namesOf(document.root->children()), "b d e ");
    EXPECT_FALSE(document.reader->isValid(document.root));
}

TEST(ZyXMLStreamChildren, EndAtOnceWhenThereAreNone)
{
    Document document("<a/>");
    Children & children = document.root->children();
    Children::Iterator const begin = children.begin();
    EXPECT_FALSE(begin != children.end());
    EXPECT_EQ(*begin, nullptr);
}

TEST(ZyXMLStreamChildren, AreWalkedOverAtEveryLevel)
{
    Document document("<a><b><c/><d/></b><e><f/></e></a>");
    std::string names;
    for (auto const & child : static_cast<Children &>(document.root->children())) {
        names += child->name().toStdString() + "( " + namesOf(child->children()) + ")";
    }
    EXPECT_EQ(names, "b( c d )e( f )");
}

TEST(ZyXMLStreamChildren, BeginOnce)
{
    Document document("<a><b/></a>");
    Element const b = document.root->nextChild();
    Children & children = b->children();
    EXPECT_FALSE(children.begin() != children.end());
    EXPECT_ZY_THROW(children.begin(), ZyInvalidUseException,
                    "Begin called multiple times on a single use iterator");
    EXPECT_ZY_THROW(b->children().begin(), ZyInvalidUseException,
                    "Begin called multiple times on a single use iterator");
}

TEST(ZyXMLStreamChildren, AreTheSameObjectAlsoWhenTheElementIsClosed)
{
    Document document("<a/>");
    Children & children = document.root->children();
    document.reader->next();
    EXPECT_EQ(&document.root->children(), &children);
    EXPECT_ZY_THROW(children.begin(), ZyInvalidXMLOperation, "NextChild on closed element called");
    EXPECT_EQ(*children.end(), nullptr);
}

TEST(ZyXMLStreamChildren, CannotBeFirstAskedForWhenTheElementIsClosed)
{
    Document document("<a/>");
    document.reader->next();
    EXPECT_ZY_THROW(document.root->children(), ZyNullXMLStreamElementException, "Null XML stream element");
}

TEST(ZyXMLStreamChildren, LeaveAChildReadableExceptForItsText)
{
    Document document("<a><b x='1'>t</b><c/></a>");
    Children::Iterator child = document.root->children().begin();
    std::shared_ptr<ZyXMLElementReader> const b = *child;
    ++child;
    EXPECT_EQ((*child)->name().toStdString(), "c");
    EXPECT_EQ(b->name().toStdString(), "b");
    EXPECT_EQ(b->readAttribute("x").toStdString(), "1");
    EXPECT_ZY_THROW(b->readText(), ZyInvalidXMLOperation, "Attempted to read text from non-active element");
}

TEST(ZyXMLStreamChildren, AdvanceWithAllCopiesOfTheirIterator)
{
    Document document("<a><b/><c/></a>");
    Children::Iterator const original = document.root->children().begin();
    Children::Iterator copy(original);
    ++copy;
    EXPECT_EQ((*original)->name().toStdString(), "c");
    EXPECT_FALSE(original != copy);
}

TEST(ZyXMLStreamChildren, CannotBeAdvancedBehindTheirEnd)
{
    Document document("<a><b/></a>");
    Children::Iterator child = document.root->children().begin();
    ++child;
    EXPECT_FALSE(child != document.root->children().end());
    EXPECT_ZY_THROW(++child, ZyInvalidXMLOperation, "NextChild on closed element called");
}

TEST(ZyXMLStreamChildren, KeepTheirElementWhileAnIteratorLives)
{
    Document document("<a><b/><c/></a>");
    std::weak_ptr<ZyXMLStreamElementReader> const watch = document.root;
    auto child = std::make_unique<Children::Iterator>(document.root->children().begin());
    document.root.reset();
    document.reader.reset();
    EXPECT_FALSE(watch.expired());
    EXPECT_ZY_THROW(++*child, ZyInvalidXMLOperation, "NextChild on closed element called");
    child.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(ZyXMLStreamChildren, NeedAParentToGoOn)
{
    StreamImplementation implementation(nullptr, nullptr);
    EXPECT_EQ(implementation.currentChild(), nullptr);
    EXPECT_ZY_THROW(implementation.nextChild(), ZyInvalidUseException, "No parent object in iterator");
}

TEST(ZyXMLStreamChildren, AreClosedWithoutAnElement)
{
    StreamChildren children(nullptr);
    EXPECT_ZY_THROW(children.begin(), ZyInvalidXMLOperation, "NextChild on closed element called");
    EXPECT_EQ(*children.end(), nullptr);
}

TEST(ZyXMLStreamChildren, DoNotKeepTheirElementAlive)
{
    std::string text = "<a>";
    for (int i = 0; i < 1000; ++i) {
        text += "<b><c/></b>";
    }
    Document document(text + "</a>");
    std::vector<std::weak_ptr<ZyXMLElementReader>> all{document.root};
    for (auto const & b : static_cast<Children &>(document.root->children())) {
        all.push_back(b);
        for (auto const & c : b->children()) {
            all.push_back(c);
        }
    }
    EXPECT_EQ(all.size(), 2001u);
    document.root.reset();
    std::size_t alive = 0;
    for (auto const & element : all) {
        alive += element.expired() ? 0 : 1;
    }
    EXPECT_EQ(alive, 0u);
}
