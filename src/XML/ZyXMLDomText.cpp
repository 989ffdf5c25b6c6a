// SPDX-License-Identifier: BSD-3-Clause
// Documents in memory as text. QDomDocument writes the text; then the attributes change places within their
// tags. So no second opinion on how a document is written can arise.
#include "XML/ZyXMLDomText_p.h"

#include "XML/ZyXMLAttributeOrder_p.h"

#include <QRegularExpression>
#include <QString>
#include <QTextCodec>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace
{
constexpr std::size_t npos = std::string_view::npos;

/** Goes through the start tags of markup that QDomDocument has written, from front to back. */
class AttributeSorter
{
public:
    AttributeSorter(QByteArray & markup, ZyXMLAttributeOrder::Format const * format)
        : m_begin(markup.data()), m_text(m_begin, static_cast<std::size_t>(markup.size())), m_format(format)
    {}

    void run()
    {
        for (m_at = m_text.find('<'); m_at != npos; m_at = m_text.find('<', m_at)) {
            takeMarkup();
        }
    }

private:
    /** An attribute with the blank in front of it, and its name. */
    struct Attribute
    {
        std::string_view whole;
        std::string_view name;
        unsigned rank; ///< goes before the name
    };

    /** From a "<" on to behind what it begins. */
    void takeMarkup()
    {
        std::string_view const rest = m_text.substr(m_at);
        if (startsWith(rest, "<!--")) {
            skipTo("-->", 4);
        } else if (startsWith(rest, "<![CDATA[")) {
            skipTo("]]>", 9);
        } else if (startsWith(rest, "<!DOCTYPE")) {
            skipDocumentType();
        } else if (startsWith(rest, "<?")) {
            skipTo("?>", 2);
        } else {
            takeTag();
        }
    }

    static bool startsWith(std::string_view text, std::string_view part)
    {
        return text.substr(0, part.size()) == part;
    }

    void skipTo(std::string_view end, std::size_t from)
    {
        std::size_t const at = m_text.find(end, m_at + from);
        m_at = at == npos ? m_text.size() : at + end.size();
    }

    /** The declarations inside stand in brackets; quoted text may hold any of it. */
    void skipDocumentType()
    {
        int brackets = 0;
        for (; m_at < m_text.size(); ++m_at) {
            char const character = m_text[m_at];
            if (character == '"' || character == '\'') {
                m_at = std::min(m_text.find(character, m_at + 1), m_text.size() - 1);
            } else if (character == '[' || character == ']') {
                brackets += character == '[' ? 1 : -1;
            } else if (character == '>' && brackets == 0) {
                return;
            }
        }
    }

    void takeTag()
    {
        m_attributes.clear();
        std::size_t const first = m_text.find_first_of(" />", m_at);
        ++m_at;
        ZyXMLAttributeOrder::Element const * const element = elementOf(m_text.substr(m_at, first - m_at));
        std::size_t next = first;
        while (next != npos && m_text[next] == ' ') {
            std::size_t const equals = m_text.find("=\"", next);
            std::size_t const close = equals == npos ? npos : m_text.find('"', equals + 2);
            if (close == npos) {
                return;
            }
            std::string_view const name = m_text.substr(next + 1, equals - next - 1);
            m_attributes.push_back({m_text.substr(next, close + 1 - next), name, rankOf(element, name)});
            next = close + 1;
        }
        if (next == npos || next == m_text.size() || (m_text[next] != '/' && m_text[next] != '>')) {
            return; // no tag as QDomDocument writes it, such as one with an illegal name
        }
        m_at = next;
        sort(first);
    }

    /** What the format says of an element; null when it says nothing. */
    ZyXMLAttributeOrder::Element const * elementOf(std::string_view name) const
    {
        if (m_format) {
            for (ZyXMLAttributeOrder::Element const & element : *m_format) {
                if (element.name == name) {
                    return &element;
                }
            }
        }
        return nullptr;
    }

    static unsigned rankOf(ZyXMLAttributeOrder::Element const * element, std::string_view attribute)
    {
        return element ? ZyXMLAttributeOrder::rank(*element, attribute) : 0;
    }

    void sort(std::size_t first)
    {
        auto const inOrder = [](Attribute const & a, Attribute const & b) {
            return a.rank != b.rank ? a.rank < b.rank : a.name < b.name;
        };
        if (std::is_sorted(m_attributes.begin(), m_attributes.end(), inOrder)) {
            return;
        }
        std::stable_sort(m_attributes.begin(), m_attributes.end(), inOrder);
        m_sorted.clear();
        for (Attribute const & attribute : m_attributes) {
            m_sorted += attribute.whole;
        }
        std::memcpy(m_begin + first, m_sorted.data(), m_sorted.size());
    }

    char * m_begin;
    std::string_view m_text;
    ZyXMLAttributeOrder::Format const * m_format; ///< null: all attributes by their names
    std::size_t m_at = 0;
    std::vector<Attribute> m_attributes; ///< of the tag at hand; kept for their memory
    std::string m_sorted;
};

QTextCodec * codecOf(QDomDocument const & document)
{
    QDomNode const declaration = document.firstChild();
    if (!declaration.isProcessingInstruction() || declaration.nodeName() != QLatin1String("xml")) {
        return nullptr;
    }
    static QRegularExpression const encoding(QStringLiteral("encoding\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')"));
    QRegularExpressionMatch const match = encoding.match(declaration.nodeValue());
    return QTextCodec::codecForName((match.captured(1) + match.captured(2)).toLatin1());
}
} // namespace

QByteArray ZyXMLDomText::of(QDomDocument const & document, int indent)
{
    QByteArray markup = document.toByteArray(indent);
    std::string const space = document.documentElement().attribute(QStringLiteral("xmlns")).toStdString();
    AttributeSorter(markup, ZyXMLAttributeOrder::formatOf(space)).run();
    return markup;
}

/** What the encoding lacks has become references to characters already, when QDomDocument wrote the text. */
QByteArray ZyXMLDomText::encoded(QByteArray const & text, QDomDocument const & document)
{
    constexpr int utf8 = 106;
    QTextCodec const * const codec = codecOf(document);
    return codec && codec->mibEnum() != utf8 ? codec->fromUnicode(QString::fromUtf8(text)) : text;
}
