// SPDX-License-Identifier: BSD-3-Clause
// Escaping of element text, compared with Qt's own writer.
#include "XML/ZyXMLText_p.h"

#include <QBuffer>
#include <QXmlStreamWriter>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace
{
std::string escaped(std::string const & text)
{
    std::string markup;
    ZyXMLText::appendEscaped(markup, text);
    return markup;
}

/** What Qt writes for a C text. */
std::string writtenByQt(std::string const & text)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QXmlStreamWriter xml(&buffer);
    xml.writeStartElement(QStringLiteral("t"));
    xml.writeCharacters(QString::fromUtf8(text.c_str()));
    std::string const written = bytes.toStdString();
    return written.substr(std::string("<t>").size());
}

/** A piece of text that a writer may stumble over. */
std::string randomPiece(std::mt19937 & random)
{
    static std::vector<std::string> const pieces = {"a",
                                                    "plain text",
                                                    " ",
                                                    "<",
                                                    "&",
                                                    "\"",
                                                    ">",
                                                    "'",
                                                    "\t",
                                                    "\r\n",
                                                    "\x01",
                                                    "\x0b",
                                                    "\x1f",
                                                    "\x7f",
                                                    "\xc3\xa9",
                                                    "\xe2\x82\xac",
                                                    "\xf0\x9f\x98\x80",
                                                    "\xef\xbb\xbf",
                                                    "\xef\xbf\xbe",
                                                    "\xef\xbf\xbf",
                                                    "\xef\xbf\xbd",
                                                    "\xc0\x80",
                                                    "\xed\xa0\x80",
                                                    "\xf4\x90\x80\x80",
                                                    "\xe2\x82",
                                                    "\xf0\x9f",
                                                    "\x80",
                                                    "\xff",
                                                    "\xc2\x85",
                                                    "\xe0\x80\x80",
                                                    "\xf0\x80\x80\x80",
                                                    "\xf8\x88\x80\x80\x80"};
    return pieces[random() % pieces.size()];
}

std::string randomBytes(std::mt19937 & random)
{
    std::string text;
    for (std::size_t left = random() % 12; left > 0; --left) {
        text += random() % 2 ? randomPiece(random) : std::string(1, static_cast<char>(random() % 256));
    }
    return text;
}
} // namespace

TEST(ZyXMLText, EscapesFourCharacters)
{
    EXPECT_EQ(escaped("x<&>\"'"), "x&lt;&amp;&gt;&quot;'");
}

TEST(ZyXMLText, KeepsTabAndLineEndsAndDropsOtherControlCharacters)
{
    EXPECT_EQ(escaped("a\tb\r\nc\x01\x0b\x0c\x1f\x7f"), "a\tb\r\nc\x7f");
}

TEST(ZyXMLText, EndsAtANul)
{
    EXPECT_EQ(escaped(std::string("ab\0cd", 5)), "ab");
    EXPECT_EQ(escaped(std::string("\0cd", 3)), "");
    EXPECT_EQ(escaped(std::string("a\xff\0b", 4)), "a\xef\xbf\xbd");
}

TEST(ZyXMLText, ReplacesEachBadByte)
{
    EXPECT_EQ(escaped("a\xff\x80z"), "a\xef\xbf\xbd\xef\xbf\xbdz");
}

TEST(ZyXMLText, DropsOneLeadingByteOrderMarkAndTheNoncharactersOfTheBasicPlane)
{
    EXPECT_EQ(escaped("\xef\xbb\xbf\xef\xbb\xbfx"), "\xef\xbb\xbfx");
    EXPECT_EQ(escaped("a\xef\xbf\xbe\xef\xbf\xbf"
                      "b"),
              "ab");
}

TEST(ZyXMLText, AppendsAndLeavesWhatStandsInFront)
{
    std::string markup = "<t>";
    ZyXMLText::appendEscaped(markup, "&");
    ZyXMLText::appendEscaped(markup, "");
    EXPECT_EQ(markup, "<t>&amp;");
}

TEST(ZyXMLText, GivesQtsBytesForEverySingleByteAndPair)
{
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            std::string const text = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(escaped(text), writtenByQt(text)) << first << ' ' << second;
        }
    }
}

TEST(ZyXMLText, GivesQtsBytesForRandomBytes)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 100000; ++round) {
        std::string const text = randomBytes(random);
        ASSERT_EQ(escaped(text), writtenByQt(text)) << "round " << round;
    }
}

TEST(ZyXMLTextPlain, IsPrintableAsciiWithoutMarkup)
{
    EXPECT_TRUE(ZyXMLText::isPlain(""));
    for (int byte = 0; byte < 256; ++byte) {
        char const c = static_cast<char>(byte);
        bool const isMarkup = c == '<' || c == '>' || c == '&' || c == '"';
        EXPECT_EQ(ZyXMLText::isPlain(std::string(1, c)), byte >= 0x20 && byte < 0x80 && !isMarkup) << byte;
        EXPECT_EQ(ZyXMLText::isPlain("ab" + std::string(1, c) + "cd"), ZyXMLText::isPlain(std::string(1, c)));
    }
}
