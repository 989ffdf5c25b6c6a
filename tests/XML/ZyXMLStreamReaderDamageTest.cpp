// SPDX-License-Identifier: BSD-3-Clause
// What the stream reader makes of documents that are malformed, cut off, hostile or huge, and of devices that
// fail.
#include <ZyXMLStreamReader.h>

#include "ScratchDirectory.h"
#include "SourceDevice.h"
#include "ThrowsMessage.h"

#include <ZyFileDevice.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLStreamElementReader.h>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace
{
using Element = std::shared_ptr<ZyXMLStreamElementReader>;

/** Reads to the end; the number of start tags. */
unsigned readAll(ZyXMLStreamReader & reader)
{
    unsigned elements = 0;
    while (reader.next() != ZyXMLStreamReader::EndDocument) {
        elements += reader.tokenType() == ZyXMLStreamReader::StartElement ? 1 : 0;
    }
    return elements;
}

unsigned readAll(std::string const & text)
{
    ZyStringDevice device{ZyString(text)};
    ZyXMLStreamReader reader(device);
    return readAll(reader);
}

struct Malformed
{
    char const * name;
    char const * text;
    char const * words; ///< behind "Invalid XML: "
};

std::ostream & operator<<(std::ostream & stream, Malformed const & document)
{
    return stream << document.name;
}

class ZyXMLStreamReaderMalformed : public testing::TestWithParam<Malformed>
{};

constexpr char bomb[] = "<!DOCTYPE a [<!ENTITY a '0123456789012345678901234567890123456789'>"
                        "<!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
                        "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>"
                        "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'>"
                        "<!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;'>"
                        "]><a>&e;</a>";

Malformed const malformed[] = {
    {"Empty", "", "Premature end of document."},
    {"Cut", "<a>", "Premature end of document."},
    {"CutInATag", "<a x='1'", "Premature end of document."},
    {"Mismatch", "<a></b>", "Opening and ending tag mismatch."},
    {"CaseMismatch", "<a></A>", "Opening and ending tag mismatch."},
    {"TwoRoots", "<a/><b/>", "Extra content at end of document."},
    {"TextBehindTheRoot", "<a/>x", "Extra content at end of document."},
    {"NoTag", "hello", "Start tag expected."},
    {"LateDeclaration", " <?xml version='1.0'?><a/>", "XML declaration not at start of document."},
    {"TwiceTheAttribute", "<a x='1' x='2'/>", "Attribute 'x' redefined."},
    {"UnknownEntity", "<a>&foo;</a>", "Entity 'foo' not declared."},
    {"UnknownPrefix", "<p:a/>", "Namespace prefix 'p' not declared"},
    {"Version", "<?xml version='2.0'?><a/>", "Unsupported XML version."},
    {"Encoding", "<?xml version='1.0' encoding='foo'?><a/>", "Encoding foo is unsupported"},
    {"BadBytes", "<a>\xff</a>", "Encountered incorrectly encoded content."},
    {"OverlongBytes", "<a>\xc0\xaf</a>", "Encountered incorrectly encoded content."},
    {"SurrogateBytes", "<a>\xed\xa0\x80</a>", "Encountered incorrectly encoded content."},
    {"SectionEnd", "<a>]]></a>", "Sequence ']]>' not allowed in content."},
    {"ExternalInAnAttribute", "<!DOCTYPE a [<!ENTITY foo SYSTEM 'x'>]><a b='&foo;'/>",
     "Reference to external entity 'foo' in attribute value."},
    {"SelfReference", "<!DOCTYPE a [<!ENTITY foo '&foo;'>]><a>&foo;</a>",
     "Self-referencing entity detected."},
    {"EntityBomb", bomb, "Entity expands to more characters than the entity expansion limit."},
};

/** A document with a bit of everything. */
constexpr char sample[] = "\xef\xbb\xbf<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<!DOCTYPE r [<!ENTITY e 'val<i/>ue'>]>\n"
                          "<!-- c --><?pi d?><r xmlns:p=\"urn:p\" p:a='1' b=\"&lt;&#x20ac;\">\r\n"
                          " <p:x>t&e;t</p:x><![CDATA[<raw>]]>\xc3\xa9\xf0\x9f\x98\x80<y/></r>\n<!-- end -->";

template <class Walk>
void expectTreeExceptionOrEnd(std::string const & text, Walk walk)
{
    ZyStringDevice device{ZyString(text)};
    ZyXMLStreamReader reader(device);
    try {
        walk(reader);
    } catch (ZyException const & e) {
        EXPECT_FALSE(e.message().isEmpty());
    }
}

void walkChildren(ZyXMLStreamReader & reader)
{
    Element const root = reader.nextElement();
    if (!root) {
        return;
    }
    auto child = root->children().begin();
    auto const end = root->children().end();
    for (; child != end; ++child) {
        static_cast<void>((*child)->attributes().size());
        static_cast<void>((*child)->readText());
    }
}
} // namespace

TEST_P(ZyXMLStreamReaderMalformed, ThrowsWithTheWordsOfTheParser)
{
    std::string const text = GetParam().text;
    std::string const words = GetParam().words;
    ZyStringDevice device{ZyString(text)};
    ZyXMLStreamReader reader(device);
    EXPECT_ZY_THROW(readAll(reader), ZyInvalidXMLException, "Invalid XML: " + words);
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Invalid);
    EXPECT_EQ(reader.errorString().toStdString(), words);
}

INSTANTIATE_TEST_SUITE_P(, ZyXMLStreamReaderMalformed, testing::ValuesIn(malformed),
                         [](auto const & test) { return test.param.name; });

TEST(ZyXMLStreamReaderDamage, FailsOnAnEmptyDevice)
{
    ZyStringDevice device;
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.errorString().toStdString(), "");
    EXPECT_ZY_THROW(reader.next(), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
    ZyStringDevice other;
    ZyXMLStreamReader elements(other);
    EXPECT_ZY_THROW(elements.nextElement(), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, SurvivesElementsAskedForInAnEmptyDocument)
{
    ZyStringDevice device;
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElementInElement(), nullptr);
    EXPECT_EQ(reader.nextElementInElement(), nullptr);
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Invalid);
    EXPECT_EQ(reader.errorString().toStdString(), "Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, Deliberate_error_ends_children)
{
    ZyStringDevice device("<a><b></b>");
    ZyXMLStreamReader reader(device);
    Element const a = reader.nextElement();
    EXPECT_EQ(reader.nextElementInElement()->name().toStdString(), "b");
    EXPECT_EQ(reader.nextElementInElement(), nullptr);
    EXPECT_TRUE(reader.isActive(a.get()));
    EXPECT_EQ(reader.nextElementInElement(), nullptr);
    EXPECT_FALSE(reader.isValid(a));
    EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::Invalid);
    EXPECT_EQ(reader.errorString().toStdString(), "Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, BeginsAgainAfterAnError)
{
    ZyStringDevice device("<a><b></a>");
    ZyXMLStreamReader reader(device);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(reader.nextElement()->name().toStdString(), "a");
        EXPECT_EQ(reader.nextElement()->name().toStdString(), "b");
        EXPECT_ZY_THROW(reader.next(), ZyInvalidXMLException,
                        "Invalid XML: Opening and ending tag mismatch.");
        reader.restart();
        EXPECT_EQ(reader.errorString().toStdString(), "");
        EXPECT_ZY_THROW(reader.currentElement(), ZyNullXMLStreamElementException, "Null XML stream element");
    }
}

TEST(ZyXMLStreamReaderDamage, FailsWhenTheDocumentEndsInsideAFragment)
{
    ZyStringDevice device("<a><b>x");
    ZyXMLStreamReader reader(device);
    reader.scan("b");
    EXPECT_ZY_THROW(reader.toString(), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, FailsWhenTheDocumentEndsInsideAText)
{
    ZyStringDevice device("<a>x");
    ZyXMLStreamReader reader(device);
    Element const a = reader.nextElement();
    EXPECT_ZY_THROW(a->readText(), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, EndsOrThrowsWhereverADocumentIsCutOff)
{
    std::string const text = sample;
    EXPECT_EQ(readAll(text), 4u);
    for (std::size_t size = 0; size < text.size(); ++size) {
        std::string const cut = text.substr(0, size);
        expectTreeExceptionOrEnd(cut, [](ZyXMLStreamReader & reader) { readAll(reader); });
        expectTreeExceptionOrEnd(cut, [](ZyXMLStreamReader & reader) { reader.scan("nowhere"); });
        expectTreeExceptionOrEnd(cut, [](ZyXMLStreamReader & reader) { reader.toString(); });
        expectTreeExceptionOrEnd(cut, walkChildren);
    }
}

TEST(ZyXMLStreamReaderDamage, EndsOrThrowsWhateverByteIsChanged)
{
    for (std::size_t at = 0; at < sizeof(sample) - 1; ++at) {
        for (char const byte : {'\0', '<', '>', '&', '"', '\xff', '\xc3', ' '}) {
            std::string changed = sample;
            changed[at] = byte;
            expectTreeExceptionOrEnd(changed, [](ZyXMLStreamReader & reader) { readAll(reader); });
        }
    }
}

TEST(ZyXMLStreamReaderDamage, FetchesNoExternalEntity)
{
    ScratchDirectory const scratch;
    std::string const secret = scratch.write("secret.txt", "secret");
    std::string const doctype = "<!DOCTYPE a [<!ENTITY f SYSTEM 'file://" + secret + "'>]>";
    ZyStringDevice device{ZyString(doctype + "<a>p&f;q</a>")};
    ZyXMLStreamReader reader(device);
    reader.nextElement();
    EXPECT_EQ(reader.readText().toStdString(), "pq");
}

TEST(ZyXMLStreamReaderDamage, BoundsWhatNestedEntitiesMakeOfADocument)
{
    EXPECT_ZY_THROW(readAll(bomb), ZyInvalidXMLException,
                    "Invalid XML: Entity expands to more characters than the entity expansion limit.");
}

TEST(ZyXMLStreamReaderDamage, Deliberate_bridge_cuts_at_nul)
{
    std::string const nul("<a>x\0y</a>", 10);
    EXPECT_ZY_THROW(readAll(nul), ZyInvalidXMLException, "Invalid XML: Unexpected ''.");
}

TEST(ZyXMLStreamReaderDamage, LosesWhatStandsBehindANulInAPieceOfAFile)
{
    ScratchDirectory const scratch;
    std::string text = "<a>" + std::string(36387, 'x') + "</a>";
    text[16383 - 8 + 4] = '\0';
    ZyXMLStreamReader reader{ZyFilePath(scratch.write("a.xml", text).c_str())};
    reader.nextElement();
    EXPECT_EQ(reader.readText().size(), 36387u - 4u);
}

TEST(ZyXMLStreamReaderDamage, ReadsNoUtf16)
{
    std::string const plain = "<?xml version='1.0' encoding='UTF-16'?><a>text</a>";
    std::string little = "\xff\xfe";
    std::string big = "\xfe\xff";
    for (char const c : plain) {
        little += std::string({c, '\0'});
        big += std::string({'\0', c});
    }
    ScratchDirectory const scratch;
    for (std::string const & text : {little, big}) {
        EXPECT_THROW(readAll(text), ZyInvalidXMLException);
        ZyXMLStreamReader reader{ZyFilePath(scratch.write("a.xml", text).c_str())};
        EXPECT_THROW(readAll(reader), ZyInvalidXMLException);
    }
}

TEST(ZyXMLStreamReaderDamage, ReadsEncodingsOfOneByteAndAByteOrderMark)
{
    ZyStringDevice latin("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xe9</a>");
    ZyXMLStreamReader reader(latin);
    reader.nextElement();
    EXPECT_EQ(reader.readText().toStdString(), "\xc3\xa9");
    ZyStringDevice marked("\xef\xbb\xbf<a>\xc3\xa9</a>");
    ZyXMLStreamReader other(marked);
    other.nextElement();
    EXPECT_EQ(other.readText().toStdString(), "\xc3\xa9");
}

TEST(ZyXMLStreamReaderDamage, ThrowsTheFailureOfADeviceAndCanGoOn)
{
    SourceDevice device("<root>", "<b/>", 10000, "<c/></root>");
    device.good = 1;
    ZyXMLStreamReader reader(device);
    EXPECT_EQ(reader.nextElement()->name().toStdString(), "root");
    EXPECT_ZY_THROW(readAll(reader), ZyIOException, "the line is dead");
    EXPECT_EQ(readAll(reader), 10001u);
}

TEST(ZyXMLStreamReaderDamage, LosesNothingWhenADeviceFailsBetweenSinglePieces)
{
    for (std::size_t good = 0; good < 12; ++good) {
        SourceDevice device("\xef\xbb\xbf<a>\xc3\xa9</a>");
        device.largestPiece = 1;
        device.good = good;
        ZyXMLStreamReader reader(device);
        EXPECT_ZY_THROW(readAll(reader), ZyIOException, "the line is dead");
        readAll(reader);
        EXPECT_EQ(reader.tokenType(), ZyXMLStreamReader::EndDocument) << good;
    }
}

TEST(ZyXMLStreamReaderDamage, ThrowsTheFailureOfADeviceToEveryKindOfCall)
{
    auto const failing = [] {
        ZySharedPtr<SourceDevice> device(new SourceDevice("<root>"));
        device->good = 1;
        device->failures = 100;
        auto reader = std::make_unique<ZyXMLStreamReader>(ZySharedPtr<ZyIODevice>(device));
        reader->nextElement();
        return reader;
    };
    EXPECT_ZY_THROW(failing()->next(), ZyIOException, "the line is dead");
    EXPECT_ZY_THROW(failing()->nextElement(), ZyIOException, "the line is dead");
    EXPECT_ZY_THROW(failing()->nextElementInElement(), ZyIOException, "the line is dead");
    EXPECT_ZY_THROW(failing()->scan("x"), ZyIOException, "the line is dead");
    EXPECT_ZY_THROW(failing()->readText(), ZyIOException, "the line is dead");
    EXPECT_ZY_THROW(failing()->toString(), ZyIOException, "the line is dead");
}

TEST(ZyXMLStreamReaderDamage, TellsWhenADeviceCannotGoBack)
{
    SourceDevice device("<a><b>x</b></a>");
    ZyXMLStreamReader reader(device);
    reader.scan("b");
    EXPECT_ZY_THROW(reader.toString(), ZyIOException, "cannot be restarted");
    EXPECT_ZY_THROW(reader.restart(), ZyIOException, "cannot be restarted");
}

TEST(ZyXMLStreamReaderDamage, GoesAMillionElementsDeep)
{
    constexpr unsigned depth = 1000000;
    SourceDevice device("", "<a>", depth, "");
    ZyXMLStreamReader reader(device);
    std::weak_ptr<ZyXMLStreamElementReader> outermost;
    for (unsigned i = 0; i < depth; ++i) {
        Element const element = reader.nextElement();
        ASSERT_TRUE(element);
        if (i == 0) {
            outermost = element;
        }
    }
    EXPECT_TRUE(reader.isValid(outermost.lock()));
    EXPECT_ZY_THROW(reader.next(), ZyInvalidXMLException, "Invalid XML: Premature end of document.");
}

TEST(ZyXMLStreamReaderDamage, ReadsSixteenThousandAttributes)
{
    constexpr unsigned count = 16000;
    std::string text = "<a";
    for (unsigned i = 0; i < count; ++i) {
        text += " n" + std::to_string(i) + "='" + std::to_string(i) + "'";
    }
    text += " N7='last'/>";
    ZyStringDevice device{ZyString(text)};
    ZyXMLStreamReader reader(device);
    ZyXMLAttributeSet const & attributes = reader.nextElement()->attributes();
    ASSERT_EQ(attributes.size(), count);
    EXPECT_EQ(attributes.begin()[7].name().toStdString(), "n7");
    EXPECT_EQ(attributes.begin()[7].value().toStdString(), "last");
    for (unsigned i = 8; i < count; ++i) {
        ASSERT_EQ(attributes.begin()[i].value().toStdString(), std::to_string(i));
    }
}
