// SPDX-License-Identifier: BSD-3-Clause
// The XML stream reader: the input up to its first NUL is a document, which is read token by token, once in
// large and once in small pieces; what follows are calls on the reader and its elements, in any order.
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>
#include <ZyXMLStreamReader.h>

#include "Fuzz.h"
#include "ShortReads.h"

#include <memory>
#include <vector>

namespace
{
using Element = std::shared_ptr<ZyXMLStreamElementReader>;

std::string textOf(ZyXMLAttributeSet const & attributes)
{
    std::string text;
    for (ZyXMLAttribute const & attribute : attributes) {
        text += " " + attribute.name().toStdString() + "=" + attribute.value().toStdString();
    }
    return text;
}

std::string tokenText(ZyXMLStreamReader & reader, ZyXMLStreamReader::TokenType token)
{
    std::string text = std::to_string(token) + " " + reader.elementName().toStdString();
    if (token == ZyXMLStreamReader::StartElement) {
        Element const element = reader.currentElement();
        Fuzz::require(element->name() == reader.elementName(), "the element has the name of its tag");
        Fuzz::require(reader.isActive(element.get()) && reader.isValid(element),
                      "the newest element is active");
        text += textOf(element->attributes());
    } else if (token == ZyXMLStreamReader::Characters) {
        text += reader.readText().toStdString();
    }
    return text;
}

/** All tokens and the failure that ends them. */
std::vector<std::string> tokensOf(ZyIODevice & device)
{
    std::vector<std::string> tokens;
    std::weak_ptr<ZyXMLStreamElementReader> last;
    {
        ZyXMLStreamReader reader(device);
        std::string const failure = Fuzz::failureOf([&] {
            for (auto token = reader.next(); token != ZyXMLStreamReader::EndDocument; token = reader.next()) {
                tokens.push_back(tokenText(reader, token));
                if (token == ZyXMLStreamReader::StartElement) {
                    last = reader.currentElement();
                }
            }
        });
        // Qt lets control characters into names, attributes do not.
        bool const ofAttribute =
            Fuzz::startsWith(failure, "ZyInvalidXMLAttributeName: Invalid attribute name: ");
        bool const ofMarkup = Fuzz::startsWith(failure, "ZyInvalidXMLException: Invalid XML: ");
        Fuzz::require(failure.empty() || ofAttribute || ofMarkup, "two classes of failure");
        Fuzz::require(ofMarkup == !reader.errorString().isEmpty(),
                      "an error text with a failure of markup only");
        tokens.push_back(failure);
    }
    Fuzz::require(last.expired(), "no element outlives its reader");
    return tokens;
}

bool isBeginOf(std::vector<std::string> const & a, std::vector<std::string> const & b)
{
    return a.size() <= b.size() && std::equal(a.begin(), a.end() - 1, b.begin());
}

// With another encoding than that of its first bytes Qt decodes the piece anew that it has at that moment.
bool tellsEncoding(std::string const & document)
{
    return document.find("encoding") != std::string::npos &&
           document.find("encoding=\"UTF-8\"") == std::string::npos;
}

// Bytes that are no text are found in a whole piece at once, before what stands in front of them is parsed.
bool haveOneOrigin(std::vector<std::string> const & whole, std::vector<std::string> const & pieces)
{
    constexpr std::string_view wrongBytes =
        "ZyInvalidXMLException: Invalid XML: Encountered incorrectly encoded content.";
    return whole == pieces ||
           (whole.back() == wrongBytes && !pieces.back().empty() && isBeginOf(whole, pieces));
}

void print(std::vector<std::string> const & tokens)
{
    for (std::string const & token : tokens) {
        std::fprintf(stderr, "[%s]\n", token.c_str());
    }
    std::fprintf(stderr, "---\n");
}

void readTokens(std::string const & document, std::string_view script)
{
    ZyStringDevice whole{ZyString(document)};
    std::vector<std::string> const tokens = tokensOf(whole);
    ShortReads pieces(document, script);
    std::vector<std::string> const others = tokensOf(pieces);
    bool const same = tellsEncoding(document) || haveOneOrigin(tokens, others);
    if (!same) {
        print(tokens);
        print(others);
    }
    Fuzz::require(same, "the pieces in which a document comes make no difference");
}

// Qt takes U+FEFF for a byte order mark also where a later piece begins with it and only ASCII came before.
std::string withoutInnerMarks(std::string document)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    for (auto at = document.find(mark, 1); at != std::string::npos; at = document.find(mark, 1)) {
        document.erase(at, mark.size());
    }
    return document;
}

/** Calls on one reader, its elements and their children. */
class Walk
{
public:
    explicit Walk(ZyIODevice & device) : m_reader(device) {}

    void call(unsigned char what, Fuzz::Input & script)
    {
        std::string const failure =
            Fuzz::failureOf([&] { what < 128 ? onReader(what % 10) : onElement(what % 10, script); });
        bool const isTold =
            failure.empty() || Fuzz::startsWith(failure, "ZyInvalidXMLException: Invalid XML: ") ||
            Fuzz::startsWith(failure, "ZyInvalidXMLOperation: ") ||
            Fuzz::startsWith(failure, "ZyNullXMLStreamElementException: Null XML stream element") ||
            Fuzz::startsWith(failure, "ZyInvalidUseException: ") ||
            Fuzz::startsWith(failure, "ZyXMLException: ") ||
            Fuzz::startsWith(failure, "ZyInvalidParameterException: Invalid string length") ||
            Fuzz::startsWith(failure, "ZyUnknownXMLAttributeException: Unknown attribute: ") ||
            Fuzz::startsWith(failure, "ZyInvalidXMLAttributeName: Invalid attribute name: ");
        Fuzz::require(isTold, "a failure that is told");
    }

private:
    void keep(Element const & element)
    {
        if (element && m_kept.size() < 64) {
            m_kept.push_back(element);
        }
    }

    void onReader(int what)
    {
        switch (what) {
        case 0:
            m_reader.next();
            break;
        case 1:
            keep(m_reader.nextElement());
            break;
        case 2:
            keep(m_reader.nextElementInElement());
            break;
        case 3:
            keep(m_reader.scan("b"));
            break;
        case 4:
            keep(m_reader.currentElement());
            break;
        case 5:
            m_reader.readText();
            break;
        case 6:
            Fuzz::require(Fuzz::startsWith(m_reader.toString().toStdString(), "<"), "an element as text");
            break;
        case 7:
            textOf(*m_reader.attributes());
            break;
        case 8:
            m_reader.restart();
            break;
        default:
            m_reader.errorString();
            m_reader.elementName();
        }
    }

    void onElement(int what, Fuzz::Input & script)
    {
        if (m_kept.empty()) {
            return;
        }
        Element const element = m_kept[script.byte() % m_kept.size()];
        Fuzz::require(!m_reader.isActive(element.get()) || m_reader.isValid(element),
                      "active elements are open");
        switch (what) {
        case 0:
            keep(element->nextChild());
            break;
        case 1:
            element->readText();
            break;
        case 2:
            element->readTextBase64();
            break;
        case 3:
            for (ZyXMLAttribute const & attribute : element->attributes()) {
                Fuzz::require(element->readAttribute(attribute.name()) == attribute.value(),
                              "each attribute by its name");
                element->readAttributeBase64(attribute.name());
            }
            break;
        case 4:
            m_places.push_back(element->children().begin());
            break;
        case 5:
            m_places.push_back(element->children().end());
            break;
        case 6:
            advance(script.byte());
            break;
        case 7:
            for (auto const & child : element->children()) {
                Fuzz::require(!child->name().isEmpty(), "a child has a name");
            }
            break;
        case 8:
            keep(m_reader.getSharedPointer(element.get()));
            break;
        default:
            m_kept.erase(m_kept.begin());
        }
    }

    void advance(unsigned char which)
    {
        if (!m_places.empty()) {
            auto & place = m_places[which % m_places.size()];
            ++place;
            static_cast<void>(*place);
        }
    }

    ZyXMLStreamReader m_reader;
    std::vector<Element> m_kept;
    std::vector<ZyXMLElementReader::Children::Iterator> m_places;
};

void walk(std::string const & document, std::string_view script)
{
    ZyStringDevice device{ZyString(document)};
    Walk calls(device);
    Fuzz::Input rest(reinterpret_cast<std::uint8_t const *>(script.data()), script.size());
    while (!rest.isEmpty()) {
        calls.call(rest.byte(), rest);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string_view const input = Fuzz::Input(data, size).rest();
    std::size_t const end = std::min(input.find('\0'), input.size());
    std::string const document(input.substr(0, end));
    std::string_view const script = input.substr(end);
    readTokens(withoutInnerMarks(document), script);
    walk(document, script);
    ZyStringDevice all{ZyString(std::string(input))};
    static_cast<void>(tokensOf(all));
    return 0;
}
