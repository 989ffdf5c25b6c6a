// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory: loading, printing and saving, the order of attributes, damaged and hostile files.
#include <ZyXMLDomDocument.h>

#include "Program.h"
#include "Restricted.h"
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyFileException.h>
#include <ZyFilePath.h>
#include <ZyString.h>

#include <QByteArray>
#include <QDomDocument>
#include <QString>

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace
{
static_assert(sizeof(ZyXMLDomDocument) == 2 * sizeof(void *), "virtual table pointer and state");
static_assert(std::is_base_of_v<ZyPrivateObject, ZyXMLDomDocument>);
static_assert(std::is_copy_constructible_v<ZyXMLDomDocument> && std::is_copy_assignable_v<ZyXMLDomDocument>);
static_assert(ZyXMLDomDocument::Indented == 0 && ZyXMLDomDocument::Compact == 1 &&
              ZyXMLDomDocument::Compressed == 2);
static_assert(std::is_same_v<std::underlying_type_t<ZyXMLDomDocument::SaveType>, int>);

constexpr char const * declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

ZyXMLDomDocument documentOf(std::string const & text)
{
    ZyXMLDomDocument document;
    document.setContent(text);
    return document;
}

std::string printed(ZyXMLDomDocument const & document)
{
    return document.toString().toStdString();
}

std::string times(int count, std::string const & text)
{
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

std::string nested(int depth)
{
    return times(depth, "<a>") + times(depth, "</a>");
}

class ZyXMLDomDocuments : public testing::Test
{
protected:
    std::string saved(ZyXMLDomDocument const & document, ZyXMLDomDocument::SaveType type)
    {
        document.save(path, type);
        return directory.read("a.xml");
    }
    ZyXMLDomDocument loaded(std::string const & content)
    {
        return ZyXMLDomDocument(ZyFilePath(directory.write("a.xml", content)));
    }

    ScratchDirectory directory;
    ZyFilePath path = ZyFilePath(directory / "a.xml");
};

/** What QDomDocument writes for a text; the same as ours as long as no tag has two attributes. */
QByteArray qtText(std::string const & text, int indent)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(QString::fromStdString(text))) << text;
    return document.toByteArray(indent);
}

/** No start tag has more than one attribute. */
std::vector<std::string> const plainDocuments = {
    "<a/>",
    "<a></a>",
    "<a>text</a>",
    "<a b='1'>text</a>",
    "<?xml version='1.0'?><a/>",
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><a/>",
    "<a>x<b/>y<c>z</c>w</a>",
    "<a><b><c><d x='1'/></c></b><e/></a>",
    "<a> <b/> </a>",
    "<a>&lt;&gt;&amp;&quot;&apos;]]&gt;</a>",
    "<a b='&lt;&gt;&amp;&quot;&apos;'/>",
    "<a b='&#9;&#10;&#13; x'/>",
    "<a>&#13;&#10;&#9;x</a>",
    "<a><![CDATA[<b c=\"1\" d=\"2\">]]></a>",
    "<a>x<![CDATA[>]]>y</a>",
    "<a><!-- <b z=\"1\" a=\"2\"> --></a>",
    "<!-- <b z=\"1\" a=\"2\"> --><a/><!-- after -->",
    "<?target <b z=\"1\" a=\"2\"> ?><a><?inner x?></a>",
    "<!DOCTYPE a><a/>",
    "<!DOCTYPE a SYSTEM 'a.dtd'><a/>",
    "<!DOCTYPE a PUBLIC 'public' 'a.dtd'><a/>",
    "<!DOCTYPE a [<!ENTITY e 'value'>]><a>&e;</a>",
    "<!DOCTYPE a [<!ENTITY e '<b z=\"1\" a=\"2\">x</b>'>]><a/>",
    "<!DOCTYPE a [<!ENTITY e \"it's > [ ] x\">]><a b='1'/>",
    "<!DOCTYPE a [<!ENTITY e SYSTEM 'e.xml'><!NOTATION n SYSTEM 'n'>]><a>&e;</a>",
    "<!DOCTYPE a [<!ELEMENT a (b)><!ATTLIST a x CDATA 'y'>]><a/>",
    "<a>&undeclared;</a>",
    "<p:a xmlns:p='urn:p'><p:b/></p:a>",
    "<a xmlns='urn:x'><b/></a>",
    "<a>\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80</a>",
    "<\xc3\xa4 \xc3\xb6='\xc3\xbc'/>",
    "<a>one\ntwo\n\nthree</a>",
    "<a b='x=\"y\" z'/>",
};
} // namespace

TEST(ZyXMLDomDocument, StartsWithTheDeclaration)
{
    EXPECT_EQ(printed(ZyXMLDomDocument()), declaration);
}

TEST(ZyXMLDomDocument, Deliberate_asking_makes_a_root)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    EXPECT_EQ(root.name().toStdString(), "DefaultRoot");
    root.setAttribute("x", "1");
    EXPECT_EQ(document.root().attribute("x").toStdString(), "1");
    EXPECT_EQ(printed(document), std::string(declaration) + "<DefaultRoot x=\"1\"/>\n");
}

TEST(ZyXMLDomDocument, GivesTheRootOfItsContent)
{
    ZyXMLDomDocument document = documentOf("<a><b/></a>");
    EXPECT_EQ(document.root().name().toStdString(), "a");
    EXPECT_EQ(printed(document), "<a>\n <b/>\n</a>\n");
}

TEST(ZyXMLDomDocument, SharesItsContentWithCopies)
{
    ZyXMLDomDocument document;
    ZyXMLDomDocument const copy = document;
    ZyXMLDomDocument assigned = documentOf("<other/>");
    assigned = document;
    document.root().addElement("a");
    EXPECT_EQ(printed(copy), printed(document));
    EXPECT_EQ(printed(assigned), printed(document));
    document.setContent("<b/>");
    EXPECT_EQ(printed(copy), "<b/>\n");
    assigned = *&assigned;
    EXPECT_EQ(printed(assigned), "<b/>\n");
}

TEST(ZyXMLDomDocument, ReplacesDeclarationAndAllByANewContent)
{
    ZyXMLDomDocument document;
    document.root();
    document.setContent("<a/>");
    EXPECT_EQ(printed(document), "<a/>\n");
}

TEST(ZyXMLDomDocument, Deliberate_bad_text_empties_the_document)
{
    for (char const * text : {"", "hello", "<a><b></a>", "<a/><b/>", "<a", "<a></b>", "<!DOCTYPE a><a>"}) {
        ZyXMLDomDocument document = documentOf("<!DOCTYPE old><old/>");
        EXPECT_NO_THROW(document.setContent(text)) << text;
        EXPECT_EQ(printed(document), "") << text;
        EXPECT_EQ(document.root().name().toStdString(), "DefaultRoot") << text;
        EXPECT_EQ(printed(document), "<DefaultRoot/>\n") << text;
    }
}

TEST(ZyXMLDomDocument, IsLenientWhereItsParserIs)
{
    EXPECT_EQ(printed(documentOf("<p:a x='1' x='2'>&foo;</p:a>")), "<p:a x=\"2\">\n&foo;</p:a>\n");
}

TEST(ZyXMLDomDocument, ReadsATextWhateverEncodingItsDeclarationNames)
{
    EXPECT_EQ(
        documentOf("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xc3\xa4</a>").root().text().toStdString(),
        "\xc3\xa4");
}

TEST(ZyXMLDomDocument, WritesWhatQtWritesWhenNoTagHasTwoAttributes)
{
    ScratchDirectory directory;
    for (std::string const & text : plainDocuments) {
        ZyXMLDomDocument const document = documentOf(text);
        EXPECT_EQ(printed(document), qtText(text, 1).toStdString());
        document.save(directory / "a.xml", ZyXMLDomDocument::Indented);
        EXPECT_EQ(directory.read("a.xml"), qtText(text, 1).toStdString());
        document.save(directory / "a.xml", ZyXMLDomDocument::Compact);
        EXPECT_EQ(directory.read("a.xml"), qtText(text, -1).toStdString());
        document.save(directory / "a.xml", ZyXMLDomDocument::Compressed);
        EXPECT_EQ(directory.read("a.xml"), qCompress(qtText(text, -1).replace('\n', ""), -1).toStdString());
    }
}

TEST(ZyXMLDomDocument, OrdersAttributesByName)
{
    EXPECT_EQ(
        printed(documentOf("<a z='1' y='&quot; b=&quot;' B='/>' x:y='' _='2' \xc3\xa4='3'><b d='1' c='2'/>"
                           "t<c e='1' f='2'>x</c></a>")),
        "<a B=\"/>\" _=\"2\" x:y=\"\" y=\"&quot; b=&quot;\" z=\"1\" \xc3\xa4=\"3\">\n <b c=\"2\" "
        "d=\"1\"/>t<c "
        "e=\"1\" f=\"2\">x</c>\n</a>\n");
}

TEST(ZyXMLDomDocument, OrdersAttributesOnlyInStartTags)
{
    std::string const inert =
        "<!--<b z=\"1\" a=\"2\">--><![CDATA[<b z=\"1\" a=\"2\">]]><?p <b z=\"1\" a=\"2\">?>";
    EXPECT_EQ(printed(documentOf("<!DOCTYPE a [<!ENTITY e SYSTEM '<b z=\"1\" a=\"2\">]>'>]><a z='1' a='2'>x" +
                                 inert + "</a>")),
              "<!DOCTYPE a [\n<!ENTITY e SYSTEM '<b z=\"1\" a=\"2\">]>'>\n]>\n<a a=\"2\" z=\"1\">x" + inert +
                  "\n</a>\n");
}

TEST(ZyXMLDomDocument, OrdersDeclarationsOfNamespacesLikeAttributes)
{
    EXPECT_EQ(printed(documentOf("<p:a z='1' xmlns:p='urn:p' p:b='2' xmlns='urn:x'/>")),
              "<p:a p:b=\"2\" xmlns=\"urn:x\" xmlns:p=\"urn:p\" z=\"1\"/>\n");
}

TEST(ZyXMLDomDocument, WritesTheSameBytesWhateverTheOrderOfCalls)
{
    ZyXMLDomDocument forwards;
    ZyXMLDomDocument backwards;
    for (int i = 100; i < 200; ++i) {
        forwards.root().setAttribute(ZyString("a") + ZyString(i), "x");
        backwards.root().setAttribute(ZyString("a") + ZyString(299 - i), "x");
    }
    EXPECT_EQ(printed(forwards), printed(backwards));
    EXPECT_NE(printed(forwards).find(" a100=\"x\" a101=\"x\" a102=\"x\""), std::string::npos);
}

// Names are not checked; what is no markup any more must at least not upset the order elsewhere.
TEST(ZyXMLDomDocument, LeavesTagsWithIllegalNamesAsTheyAre)
{
    ZyXMLDomDocument document;
    document.root().addElement("a b<\"c");
    document.root().addElement("");
    ZyXMLDomElement last = document.root().addElement("d");
    last.setAttribute("z", "1");
    last.setAttribute("=\"y", "2");
    EXPECT_NE(printed(document).find("<a b<\"c/>"), std::string::npos);
    EXPECT_EQ(printed(document).size(), document.toString().toStdString().size());
}

TEST_F(ZyXMLDomDocuments, LoadWhatTheySave)
{
    for (int type = 0; type < 3; ++type) {
        ZyXMLDomDocument const document = documentOf("<?xml version='1.0' encoding='UTF-8'?>"
                                                     "<a z='&#10;' y='2'><b>\xc3\xa4\xe2\x82\xac</b>x</a>");
        document.save(path, static_cast<ZyXMLDomDocument::SaveType>(type));
        EXPECT_EQ(printed(ZyXMLDomDocument(path)), printed(document)) << type;
    }
}

TEST_F(ZyXMLDomDocuments, HaveTheToldFormsOfFiles)
{
    ZyXMLDomDocument document;
    document.root().setAttribute("x", "1");
    document.root().addElement("a").setText("t");
    EXPECT_EQ(saved(document, ZyXMLDomDocument::Indented),
              std::string(declaration) + "<DefaultRoot x=\"1\">\n <a>t</a>\n</DefaultRoot>\n");
    EXPECT_EQ(saved(document, ZyXMLDomDocument::Compact),
              std::string(declaration) + "<DefaultRoot x=\"1\"><a>t</a></DefaultRoot>");
    std::string const compressed = saved(document, ZyXMLDomDocument::Compressed);
    std::string const text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><DefaultRoot x=\"1\"><a>t</a></DefaultRoot>";
    EXPECT_EQ(compressed.substr(0, 6), std::string("\0\0\0\x4f\x78\x9c", 6));
    EXPECT_EQ(qUncompress(QByteArray::fromStdString(compressed)).toStdString(), text);
}

TEST_F(ZyXMLDomDocuments, Deliberate_compressed_has_no_line_feeds)
{
    ZyXMLDomDocument const document = documentOf("<a x='1&#10;2'>line1\nline2</a>");
    document.save(path, ZyXMLDomDocument::Compressed);
    ZyXMLDomDocument back(path);
    EXPECT_EQ(back.root().text().toStdString(), "line1line2");
    EXPECT_EQ(back.root().attribute("x").toStdString(), "1\n2");
    document.save(path, ZyXMLDomDocument::Compact);
    EXPECT_EQ(ZyXMLDomDocument(path).root().text().toStdString(), "line1\nline2");
}

TEST_F(ZyXMLDomDocuments, AreReadByAnotherParser)
{
    QString const xmllint = Program::find(QStringLiteral("xmllint"));
    if (xmllint.isEmpty()) {
        GTEST_SKIP() << "no xmllint here";
    }
    for (std::string const encoding : {"UTF-8", "ISO-8859-1", "UTF-16", "windows-1252"}) {
        ZyXMLDomDocument const document =
            documentOf("<?xml version='1.0' encoding='" + encoding +
                       "'?><a z='\xc3\xa4' b='&lt;&amp;&quot;'>\xc3\xbc\xe2\x82\xac<b/>\nx<![CDATA[<]]></a>");
        for (auto type : {ZyXMLDomDocument::Indented, ZyXMLDomDocument::Compact}) {
            document.save(path, type);
            EXPECT_EQ(Program::run(xmllint, {QStringLiteral("--nonet"), QStringLiteral("--c14n"),
                                             QString::fromStdString(directory / "a.xml")}),
                      "<a b=\"&lt;&amp;&quot;\" z=\"\xc3\xa4\">\xc3\xbc\xe2\x82\xac<b></b>\nx&lt;</a>")
                << encoding;
        }
    }
}

TEST_F(ZyXMLDomDocuments, KeepTheEncodingOfTheirDeclaration)
{
    for (std::string const encoding : {"ISO-8859-1", "UTF-16", "UTF-16LE", "Shift_JIS", "no-such-encoding"}) {
        ZyXMLDomDocument const document =
            documentOf("<?xml version='1.0' encoding='" + encoding + "'?><a x='\xc3\xa4'>\xe2\x82\xac</a>");
        for (int type = 0; type < 3; ++type) {
            document.save(path, static_cast<ZyXMLDomDocument::SaveType>(type));
            ZyXMLDomDocument back(path);
            EXPECT_EQ(back.root().attribute("x").toStdString(), "\xc3\xa4") << encoding << type;
            EXPECT_EQ(back.root().text().toStdString(), "\xe2\x82\xac") << encoding << type;
        }
    }
    EXPECT_EQ(saved(documentOf("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xc3\xa4</a>"),
                    ZyXMLDomDocument::Compact),
              "<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xe4</a>");
}

TEST_F(ZyXMLDomDocuments, ReportAMissingFile)
{
    EXPECT_ZY_THROW(ZyXMLDomDocument(path), ZyFileNotFoundException,
                    "File not found: " + path.path().toStdString());
    EXPECT_ZY_THROW(ZyXMLDomDocument(ZyFilePath()), ZyFileNotFoundException, "File not found: ");
}

TEST_F(ZyXMLDomDocuments, ReportAFileThatCannotBeOpened)
{
    ZyFilePath const inside(directory.path().string());
    try {
        ZyXMLDomDocument document(inside);
        FAIL() << "a directory was loaded";
    } catch (ZyFileException const & failure) {
        EXPECT_TRUE(typeid(failure) == typeid(ZyFileException));
        EXPECT_EQ(failure.path1().path().toStdString(), inside.path().toStdString());
        EXPECT_FALSE(failure.message().isEmpty());
    }
}

TEST_F(ZyXMLDomDocuments, ReportAFileThatIsNotAllowed)
{
    directory.write("a.xml", "<a/>");
    std::filesystem::permissions(directory / "a.xml", std::filesystem::perms::none);
    std::filesystem::permissions(directory.path(), std::filesystem::perms::all);
    EXPECT_EXIT(
        {
            Restricted::dropRights();
            Restricted::exitWith([&] {
                try {
                    ZyXMLDomDocument document(path);
                } catch (ZyFileException const & failure) {
                    return failure.message().toStdString() == "Permission denied" && failure.path1() == path;
                }
                return false;
            });
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(ZyXMLDomDocuments, ReportAFileThatIsNoXml)
{
    std::string const words = "Invalid XML: " + path.path().toStdString();
    for (std::string const & content :
         {std::string(), std::string("hello"), std::string("<a"), std::string("<a><"),
          std::string("<a><b></a>"), std::string("\0\0\0\1x", 5), std::string(4, '\0'), std::string(5, '\0'),
          std::string("\x78\x9c\0\0\0\0", 6)}) {
        EXPECT_ZY_THROW(loaded(content), ZyInvalidXMLException, words);
    }
}

TEST_F(ZyXMLDomDocuments, RefuseEveryTruncationOfAPlainFile)
{
    std::string const whole = "<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE a [<!ENTITY e 'x'>]><!--c-->"
                              "<a b='1' c=\"&e;\"><?p i?>\xc3\xa4<d>&e;<![CDATA[<]]></d></a>";
    std::string const words = "Invalid XML: " + path.path().toStdString();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_ZY_THROW(loaded(whole.substr(0, size)), ZyInvalidXMLException, words);
    }
    EXPECT_EQ(loaded(whole).root().name().toStdString(), "a");
}

TEST_F(ZyXMLDomDocuments, RefuseEveryTruncationOfACompressedFile)
{
    std::string const whole =
        saved(documentOf("<a b='1'><c>text</c><c>text</c><c>other</c></a>"), ZyXMLDomDocument::Compressed);
    std::string const words = "Invalid XML: " + path.path().toStdString();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_ZY_THROW(loaded(whole.substr(0, size)), ZyInvalidXMLException, words);
    }
    EXPECT_EQ(loaded(whole + "rubbish").root().text().toStdString(), "texttextother");
}

// The first four bytes are a size that is only a hint. Of all others, only the bits that fill up the last
// byte in front of the checksum mean nothing.
TEST_F(ZyXMLDomDocuments, NoticeEveryDamagedBitOfACompressedFile)
{
    std::string const whole =
        saved(documentOf("<a b='1'><c>text</c><c>text</c><c>other</c></a>"), ZyXMLDomDocument::Compressed);
    std::string const words = "Invalid XML: " + path.path().toStdString();
    std::size_t const checksum = 8 * (whole.size() - 4);
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
        try {
            EXPECT_EQ(loaded(damaged).root().text().toStdString(), "texttextother") << bit;
            EXPECT_TRUE(bit < 32 || (bit >= checksum - 7 && bit < checksum)) << bit;
        } catch (ZyInvalidXMLException const & failure) {
            EXPECT_EQ(failure.message().toStdString(), words);
            EXPECT_GE(bit, 32u);
        }
    }
}

TEST_F(ZyXMLDomDocuments, RefuseACompressedFileThatUnpacksBeyondTheBound)
{
    std::string const packed = [] {
        QByteArray blanks(200 << 20, ' ');
        blanks.replace(0, 3, "<a>");
        blanks += QByteArray(57 << 20, ' ');
        return qCompress(blanks, 9).toStdString();
    }();
    EXPECT_LT(packed.size(), 1u << 20);
    EXPECT_ZY_THROW(loaded(packed), ZyInvalidXMLException, "Invalid XML: " + path.path().toStdString());
}

TEST_F(ZyXMLDomDocuments, TakeACompressedFileWhateverSizeItClaims)
{
    std::string whole =
        saved(documentOf("<a>" + times(5000, "<b c='1'/>") + "</a>"), ZyXMLDomDocument::Compressed);
    for (std::string const & size :
         {std::string("\0\0\0\0", 4), std::string("\0\0\0\1", 4), std::string("\x7f\xff\xff\xff", 4),
          std::string("\xff\xff\xff\xff", 4)}) {
        whole.replace(0, 4, size);
        EXPECT_EQ(loaded(whole).root().children().size(), 5000u);
    }
}

TEST_F(ZyXMLDomDocuments, NestUpTo512Levels)
{
    std::string const words =
        "Invalid XML: " + path.path().toStdString() + " is nested deeper than 512 levels";
    EXPECT_NO_THROW(loaded(nested(512)));
    EXPECT_ZY_THROW(loaded(nested(513)), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(loaded(nested(100000)), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(loaded(times(100000, "<a>")), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(loaded(qCompress(QByteArray::fromStdString(nested(100000))).toStdString()),
                    ZyInvalidXMLException, words);
    EXPECT_NO_THROW(documentOf(nested(512)));
    ZyXMLDomDocument document = documentOf("<a/>");
    EXPECT_ZY_THROW(document.setContent(nested(513)), ZyInvalidXMLException,
                    "Invalid XML: text is nested deeper than 512 levels");
    EXPECT_EQ(printed(document), "");
}

TEST_F(ZyXMLDomDocuments, SeeNestingBehindEverythingThatCouldHideIt)
{
    std::string const words =
        "Invalid XML: " + path.path().toStdString() + " is nested deeper than 512 levels";
    std::string const latin = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    for (std::string const & level :
         {std::string("<a><!--</a>-->"), std::string("<a><![CDATA[</a>]]>"), std::string("<a><?p </a>?>"),
          std::string("<a b='</a>'>"), std::string("<a b='/>' c=\"/>'\">"), std::string("<a\n>"),
          std::string("<a><b/>"), std::string("<a>'<b>\"</b>"), std::string("<a b='1' >")}) {
        // The parser refuses some of these earlier; none may reach the end of the stack.
        EXPECT_THROW(loaded(times(100000, level)), ZyInvalidXMLException) << level;
        EXPECT_THROW(loaded(latin + times(100000, level)), ZyInvalidXMLException) << level;
        EXPECT_THROW(loaded("<!DOCTYPE a [<!--]>-->]>" + times(100000, level)), ZyInvalidXMLException)
            << level;
    }
    std::string const entity = "<!DOCTYPE a [<!ENTITY e '" + times(500, "<a>") + "'>]><a>";
    EXPECT_ZY_THROW(loaded(entity + times(1000, "&e;")), ZyInvalidXMLException, words);
    QByteArray wide;
    for (char const character : nested(100000)) {
        wide.append(character).append('\0');
    }
    EXPECT_ZY_THROW(loaded("\xff\xfe" + wide.toStdString()), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(
        loaded("<?xml version='1.0' encoding='ISO-2022-JP'?><a>\x1b$B<!--\x1b(B" + times(100000, "<a>")),
        ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(
        loaded("<!DOCTYPE a [<!ELEMENT a " + times(100000, "(") + "b" + times(100000, ")") + ">]><a/>"),
        ZyInvalidXMLException, words);
}

TEST_F(ZyXMLDomDocuments, AreNotRefusedForWhatOnlyLooksDeep)
{
    std::string const inert = times(1000, "<a>");
    for (std::string const & content :
         {"<a><!--" + inert + "--></a>", "<a><![CDATA[" + inert + "]]></a>", "<?p " + inert + "?><a/>",
          "<a b=\"" + times(1000, "&lt;a>") + "\"/>", "<a>" + times(100000, "<b></b>") + "</a>",
          "<a>" + times(100000, "<b/>") + "</a>", "<!DOCTYPE a [<!ENTITY e '" + inert + "'>]><a/>",
          "<!DOCTYPE a [<!-- " + inert + "-->]><a>" + times(5000, "<b></b>") + "</a>",
          "<!DOCTYPE a SYSTEM \"" + times(1000, "[a>") + "\"><a/>"}) {
        EXPECT_NO_THROW(loaded(content)) << content.substr(0, 60);
    }
}

TEST_F(ZyXMLDomDocuments, BoundWhatEntitiesExpandTo)
{
    std::string const words = "Invalid XML: " + path.path().toStdString() + " expands beyond bounds";
    std::string const begin = "<!DOCTYPE a [<!ENTITY e '" + std::string(10000, 'x') + "'>]><a>";
    EXPECT_EQ(loaded(begin + times(1600, "&e;") + "</a>").root().text().size(), 16000000u);
    EXPECT_ZY_THROW(loaded(begin + times(20000, "&e;") + "</a>"), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(loaded(begin + "<b c='" + times(20000, "&e;") + "'/></a>"), ZyInvalidXMLException, words);
    EXPECT_ZY_THROW(
        loaded("<!DOCTYPE a [<!ENTITY e '" + times(1000, "<b/>") + "'>]><a>" + times(4000, "&e;") + "</a>"),
        ZyInvalidXMLException, words);
    // Hidden in a parameter entity, in words that are put together only when it is used.
    EXPECT_ZY_THROW(loaded("<!DOCTYPE a [<!ENTITY % p \"&#60;!ENTITY e '" + std::string(10000, 'x') +
                           "'>\">%p;]><a>" + times(20000, "&e;") + "</a>"),
                    ZyInvalidXMLException, words);
    ZyXMLDomDocument document;
    EXPECT_ZY_THROW(document.setContent(begin + times(20000, "&e;") + "</a>"), ZyInvalidXMLException,
                    "Invalid XML: text expands beyond bounds");
}

TEST_F(ZyXMLDomDocuments, SurviveNestedAndCircularEntities)
{
    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i) {
        bomb +=
            "<!ENTITY e" + std::to_string(i) + " '" + times(10, "&e" + std::to_string(i - 1) + ";") + "'>";
    }
    EXPECT_THROW(loaded(bomb + "]><a>&e11;</a>"), ZyInvalidXMLException);
    EXPECT_THROW(loaded("<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a>&e;</a>"),
                 ZyInvalidXMLException);
}

TEST_F(ZyXMLDomDocuments, ReportAPlaceThatCannotBeWritten)
{
    ZyXMLDomDocument const document = documentOf("<a/>");
    auto const expectFailure = [&](std::string const & place, std::string const & words) {
        ZyFilePath const target(place);
        try {
            document.save(target, ZyXMLDomDocument::Indented);
            ADD_FAILURE() << place << " was written";
        } catch (ZyFileException const & failure) {
            EXPECT_TRUE(typeid(failure) == typeid(ZyFileException));
            EXPECT_EQ(failure.message().toStdString(), words);
            EXPECT_EQ(failure.path1().path().toStdString(), target.path().toStdString());
        }
    };
    expectFailure(directory / "missing/a.xml", "No such file or directory");
    expectFailure(directory.path().string(), "Filename refers to a directory");
}

TEST_F(ZyXMLDomDocuments, LeaveTheOldFileWhenTheDiskIsFull)
{
    std::string const old = "<old/>";
    for (unsigned long size : {10ul, 5000ul, 16384ul, 20000ul, 60000ul}) {
        directory.write("a.xml", old);
        EXPECT_EXIT(
            {
                ZyXMLDomDocument const document = documentOf("<a>" + times(6000, "<b c='1'/>") + "</a>");
                Restricted::limitFileSize(size);
                Restricted::exitWith([&] {
                    try {
                        document.save(path, ZyXMLDomDocument::Compact);
                    } catch (ZyFileException const & failure) {
                        return failure.message().toStdString() == "File too large" && failure.path1() == path;
                    }
                    return false;
                });
            },
            testing::ExitedWithCode(0), "")
            << size;
        EXPECT_EQ(directory.read("a.xml"), old) << size;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 1) << size;
    }
}

TEST_F(ZyXMLDomDocuments, SaveOverTheFileTheyWereLoadedFrom)
{
    ZyXMLDomDocument document = loaded("<a/>");
    document.root().setText("x");
    EXPECT_EQ(saved(document, ZyXMLDomDocument::Compact), "<a>x</a>");
}

TEST_F(ZyXMLDomDocuments, TakePathsWithBackslashesAndOtherLetters)
{
    std::filesystem::create_directory(std::filesystem::u8path(directory / "sub \xc3\xa4"));
    ZyFilePath const place(directory.path().string() + "\\sub \xc3\xa4\\\xe2\x82\xac.xml");
    documentOf("<a/>").save(place, ZyXMLDomDocument::Compact);
    EXPECT_EQ(directory.read("sub \xc3\xa4/\xe2\x82\xac.xml"), "<a/>");
    EXPECT_EQ(ZyXMLDomDocument(place).root().name().toStdString(), "a");
}

TEST_F(ZyXMLDomDocuments, AreValidatedFirst)
{
    std::string const schema =
        directory.write("a.xsd", "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element "
                                 "name='a' type='xs:int'/></xs:schema>");
    directory.write("a.xml", "<a>5</a>");
    EXPECT_EQ(ZyXMLDomDocument(path, ZyFilePath(schema)).root().text().toStdString(), "5");
    directory.write("a.xml", "<a>x</a>");
    EXPECT_ZY_THROW(ZyXMLDomDocument(path, ZyFilePath(schema)), ZyInvalidXMLException,
                    "Invalid XML: " + path.path().toStdString() +
                        ", for schema: " + ZyFilePath(schema).path().toStdString());
    EXPECT_ZY_THROW(ZyXMLDomDocument(ZyFilePath(directory / "none.xml"), ZyFilePath(schema)),
                    ZyFileNotFoundException,
                    "File not found: " + ZyFilePath(directory / "none.xml").path().toStdString());
}
