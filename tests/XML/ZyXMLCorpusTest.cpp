// SPDX-License-Identifier: BSD-3-Clause
// Real documents through the stream reader, compared with what an independent parser sees: elements,
// attributes and texts, in order. The environment variable ZYTEST_XML_CORPUS names another folder to be
// looked through.
#include <ZyXMLStreamReader.h>

#include "Program.h"

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLAttribute.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLDomDocument.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace
{
std::string escaped(std::string const & text)
{
    std::string result;
    for (char const character : text) {
        switch (character) {
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\t':
            result += "\\t";
            break;
        default:
            result += character;
        }
    }
    return result;
}

/** What our reader sees, in the lines of expat_events.py. */
class Events
{
public:
    explicit Events(std::string const & path) : m_text("F " + path + "\n")
    {
        try {
            ZyXMLStreamReader reader{ZyFilePath(path)};
            while (reader.next() != ZyXMLStreamReader::EndDocument) {
                take(reader);
            }
        } catch (ZyInvalidXMLException const &) {
            m_text += "X\n";
        }
    }

    std::string const & text() const { return m_text; }

private:
    void take(ZyXMLStreamReader & reader)
    {
        switch (reader.tokenType()) {
        case ZyXMLStreamReader::StartElement:
            flush();
            m_text += "S " + reader.elementName().toStdString() + "\n";
            for (ZyXMLAttribute const & attribute : reader.attributes()) {
                m_text += "A " + attribute.name().toStdString() + "=" +
                          escaped(attribute.value().toStdString()) + "\n";
            }
            break;
        case ZyXMLStreamReader::EndElement:
            flush();
            m_text += "E " + reader.elementName().toStdString() + "\n";
            break;
        case ZyXMLStreamReader::Characters:
            m_run += reader.readText().toStdString();
            break;
        default:
            break;
        }
    }

    void flush()
    {
        if (!m_run.empty()) {
            m_text += "T " + escaped(m_run) + "\n";
            m_run.clear();
        }
    }

    std::string m_text;
    std::string m_run; ///< text that is told in several pieces
};

std::vector<std::string> documents()
{
    char const * const other = std::getenv("ZYTEST_XML_CORPUS");
    std::string const folder = other ? other : Program::data("XML/corpus").toStdString();
    std::vector<std::string> result;
    for (auto const & entry : std::filesystem::recursive_directory_iterator(
             folder, std::filesystem::directory_options::skip_permission_denied)) {
        std::string const kind = entry.path().extension().string();
        if (entry.is_regular_file() &&
            (kind == ".xml" || kind == ".xsd" || kind == ".xsl" || kind == ".conf" || kind == ".svg") &&
            (!other || kind != ".conf")) {
            result.push_back(entry.path().string());
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

/** The first line that differs, with the one in front of it. */
std::string firstDifference(std::string const & a, std::string const & b)
{
    auto const at =
        static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
    std::size_t const line = a.rfind('\n', at == 0 ? 0 : at - 1);
    std::size_t const from = line == std::string::npos ? 0 : line;
    return "ours:" + a.substr(from, at - from + 80) +
           "\nexpat:" + b.substr(std::min(from, b.size()), at - from + 80);
}
} // namespace

TEST(ZyXMLCorpus, IsReadAsAnIndependentParserReadsIt)
{
    if (Program::python().isEmpty()) {
        GTEST_SKIP() << "no Python here";
    }
    std::vector<std::string> const all = documents();
    ASSERT_GE(all.size(), 10u);
    constexpr std::size_t portion = 50;
    for (std::size_t from = 0; from < all.size(); from += portion) {
        QStringList files;
        for (std::size_t i = from; i < std::min(from + portion, all.size()); ++i) {
            files += QString::fromStdString(all[i]);
        }
        std::string theirs = Program::script("XML/expat_events.py", files);
        for (QString const & file : files) {
            std::string const ours = Events(file.toStdString()).text();
            std::size_t const next = theirs.find("\nF ");
            std::string const expected = theirs.substr(0, next == std::string::npos ? next : next + 1);
            theirs.erase(0, expected.size());
            EXPECT_TRUE(ours == expected) << file.toStdString() << "\n" << firstDifference(ours, expected);
        }
    }
}

TEST(ZyXMLCorpus, SurvivesTheWayThroughADocumentInMemory)
{
    std::vector<std::string> const all = documents();
    for (std::string const & path : all) {
        try {
            ZyXMLDomDocument const document{ZyFilePath(path)};
            ZyXMLDomDocument back;
            back.setContent(document.toString());
            EXPECT_EQ(back.root().text().toStdString(),
                      ZyXMLDomDocument(document).root().text().toStdString())
                << path;
        } catch (ZyInvalidXMLException const & failure) {
            ADD_FAILURE() << failure.message().toStdString();
        }
    }
}
