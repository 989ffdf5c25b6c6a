// SPDX-License-Identifier: BSD-3-Clause
// Bounds of foreign documents. A scan over the markup finds nearly every document harmless; the few that
// declare entities or are nested deeply go through the parser once before, with a handler that stops it.
#include "XML/ZyXMLDomGuard_p.h"

#include <ZyException.h>

#include <QHash>
#include <QStringRef>
#include <QXmlDefaultHandler>
#include <QXmlSimpleReader>

#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <string_view>

// The parser of QDomDocument is what is looked ahead with; it has no successor with the same opinions.
#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#elif defined(_MSC_VER)
#pragma warning(disable : 4996)
#endif

namespace
{
using ZyXMLDomGuard::maxDepth;
using ZyXMLDomGuard::maxExpansion;

/** Walks over the markup of a document whose ASCII characters are single bytes. */
class Scan
{
public:
    explicit Scan(std::string_view document) : m_rest(document) {}

    /** False when in doubt: a declaration inside the document, unknown markup, deep nesting. */
    bool isHarmless()
    {
        for (std::size_t open = m_rest.find('<'); open != npos; open = m_rest.find('<')) {
            m_rest.remove_prefix(open);
            if (!takeMarkup()) {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr std::size_t npos = std::string_view::npos;

    /** What begins with "<"; true, too, when the document ends in it. */
    bool takeMarkup()
    {
        switch (m_rest.size() > 1 ? m_rest[1] : '?') {
        case '/':
            return --m_depth >= 0 && takeTo(">", 2);
        case '?':
            return takeTo("?>", 2);
        case '!':
            return takeDeclaration();
        default:
            return takeTag() && m_depth <= maxDepth;
        }
    }

    bool takeDeclaration()
    {
        if (startsWith("<!--")) {
            return takeTo("-->", 4);
        }
        if (startsWith("<![CDATA[")) {
            return takeTo("]]>", 9);
        }
        // Only the short form, without declarations of its own.
        return startsWith("<!DOCTYPE") && takeQuotingTo('[') == '>';
    }

    bool takeTag()
    {
        char const * const tag = m_rest.data();
        if (takeQuotingTo('<') == '<') {
            return false;
        }
        // What is left begins behind the ">".
        if (m_rest.data() - tag < 2 || m_rest.data()[-2] != '/') {
            ++m_depth;
        }
        return true;
    }

    /** Goes behind the first ">" or \a stop outside quotes, and says which it was; NUL at the end. */
    char takeQuotingTo(char stop)
    {
        for (std::size_t i = 1; i < m_rest.size(); ++i) {
            char const character = m_rest[i];
            if (character == '>' || character == stop) {
                m_rest.remove_prefix(i + 1);
                return character;
            }
            if (character == '"' || character == '\'') {
                i = std::min(m_rest.find(character, i + 1), m_rest.size());
            }
        }
        m_rest.remove_prefix(m_rest.size());
        return '\0';
    }

    bool takeTo(std::string_view end, std::size_t from)
    {
        std::size_t const at = m_rest.find(end, from);
        m_rest.remove_prefix(at == npos ? m_rest.size() : at + end.size());
        return true;
    }

    bool startsWith(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }

    std::string_view m_rest;
    int m_depth = 0;
};

/** Whether an encoding, in lower case, has the ASCII characters as single bytes and nothing else in these. */
bool isAsciiEncoding(QByteArray const & name)
{
    return name == "utf-8" || name == "utf8" || name == "us-ascii" || name.startsWith("iso-8859-") ||
           name.startsWith("windows-125");
}

/** Whether the bytes can be scanned before they are decoded. */
bool hasAsciiMarkup(std::string_view document)
{
    constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
    constexpr std::string_view word = "encoding";
    if (document.substr(0, byteOrderMark.size()) == byteOrderMark) {
        document.remove_prefix(byteOrderMark.size());
    }
    if (document.substr(0, 2) != "<?") { // UTF-8, unless it looks like units of more than one byte
        return document.size() > 1 && document[0] > '\0' && document[1] != '\0';
    }
    document = document.substr(0, document.find("?>"));
    std::size_t const at = document.find(word);
    if (at == std::string_view::npos) {
        return true;
    }
    document.remove_prefix(at + word.size());
    std::size_t const open = document.find_first_of("\"'");
    if (open == std::string_view::npos || document.find(word) != std::string_view::npos) {
        return false;
    }
    document.remove_prefix(open);
    std::string_view const name = document.substr(1, document.find(document[0], 1) - 1);
    return isAsciiEncoding(QByteArray(name.data(), static_cast<int>(name.size())).toLower());
}

/** The declarations of element contents are read by recursion on their parentheses. */
bool hasDeepDeclaration(QString const & document)
{
    QLatin1String const declaration("<!ELEMENT");
    for (int at = document.indexOf(declaration); at != -1; at = document.indexOf(declaration, at)) {
        at += declaration.size();
        int depth = 0;
        for (; at < document.size() && document[at] != QLatin1Char('<'); ++at) {
            depth += document[at] == QLatin1Char('(') ? 1 : document[at] == QLatin1Char(')') ? -1 : 0;
            if (depth > maxDepth) {
                return true;
            }
        }
    }
    return false;
}

/** Lets the parser run over a document until it is clear that the tree would be too deep or too large. */
class Examination : public QXmlDefaultHandler
{
public:
    explicit Examination(QString const & document) : m_document(document) {}

    bool isTooDeep() const { return m_tooDeep; }
    bool isTooLarge() const { return m_tooLarge; }

    void run()
    {
        QXmlInputSource source;
        source.setData(m_document);
        QXmlSimpleReader reader;
        // As QDomDocument sets it.
        reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
        reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
        reader.setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"),
                          false);
        reader.setContentHandler(this);
        reader.setDeclHandler(this);
        reader.setErrorHandler(this);
        reader.parse(&source);
    }

    bool internalEntityDecl(QString const & name, QString const & value) override
    {
        if (!m_entities.contains(name)) {
            m_entities.insert(name, {value, unknownSize});
        }
        return true;
    }

    bool startElement(QString const &, QString const &, QString const &, QXmlAttributes const &) override
    {
        if (m_elements == 0) {
            m_tooLarge = sizeOfReferences(QStringRef(&m_document)) > maxExpansion;
        }
        ++m_elements;
        // An element that stands in the document takes four characters at least.
        m_tooLarge = m_tooLarge || m_elements > m_document.size() / 4 + 1000000;
        m_tooDeep = ++m_depth > maxDepth;
        return !m_tooDeep && !m_tooLarge;
    }

    bool endElement(QString const &, QString const &, QString const &) override
    {
        --m_depth;
        return true;
    }

private:
    struct Entity
    {
        QString value;
        long long size;
    };
    static constexpr long long unknownSize = -1;

    /** What all references of a text expand to. Each is looked at once, and cycles are the parser's to
     * refuse. */
    long long sizeOfReferences(QStringRef const & text)
    {
        long long size = 0;
        int open = -1;
        for (int at = 0; at < text.size() && size <= maxExpansion; ++at) {
            if (text.at(at) == QLatin1Char('&')) {
                open = at;
            } else if (open != -1 && text.at(at) == QLatin1Char(';')) {
                size += sizeOfEntity(text.mid(open + 1, at - open - 1).toString());
                open = -1;
            }
        }
        return size;
    }

    long long sizeOfEntity(QString const & name)
    {
        auto const entity = m_entities.find(name);
        if (entity == m_entities.end()) {
            return 0;
        }
        if (entity->size == unknownSize) {
            entity->size = 0;
            QString const value = entity->value;
            long long const size =
                value.size() + (++m_level < maxDepth ? sizeOfReferences(QStringRef(&value)) : 0);
            --m_level;
            m_entities[name].size = size;
            return size;
        }
        return entity->size;
    }

    QString m_document;
    QHash<QString, Entity> m_entities;
    int m_level = 0; ///< of entities in each other
    int m_depth = 0;
    int m_elements = 0;
    bool m_tooDeep = false;
    bool m_tooLarge = false;
};

void examine(QString const & document, ZyString const & what)
{
    if (hasDeepDeclaration(document)) {
        ZyXMLDomGuard::refuseDepth(what);
    }
    Examination examination(document);
    examination.run();
    if (examination.isTooDeep()) {
        ZyXMLDomGuard::refuseDepth(what);
    }
    if (examination.isTooLarge()) {
        throw ZyInvalidXMLException(what + " expands beyond bounds");
    }
}

std::string_view view(QByteArray const & bytes)
{
    return std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

/** The stream of zlib behind the four bytes of qCompress. */
class Inflation
{
public:
    explicit Inflation(std::string_view packed)
    {
        m_stream.next_in = const_cast<Bytef *>(reinterpret_cast<Bytef const *>(packed.data()));
        m_stream.avail_in = static_cast<uInt>(packed.size());
        m_ready = inflateInit(&m_stream) == Z_OK;
    }
    Inflation(Inflation const &) = delete;
    Inflation & operator=(Inflation const &) = delete;
    ~Inflation() { inflateEnd(&m_stream); }

    /** Fills \a result as far as the data go, letting it grow to the bound; false unless they end well. */
    bool run(QByteArray & result)
    {
        int status = m_ready ? Z_OK : Z_MEM_ERROR;
        while (status == Z_OK) {
            auto const used = static_cast<int>(m_stream.total_out);
            if (used == result.size()) {
                if (static_cast<std::size_t>(used) >= ZyXMLDomGuard::maxUnpacked) {
                    return false;
                }
                result.resize(static_cast<int>(
                    std::min(2 * static_cast<std::size_t>(used), ZyXMLDomGuard::maxUnpacked)));
            }
            m_stream.next_out = reinterpret_cast<Bytef *>(result.data() + used);
            m_stream.avail_out = static_cast<uInt>(result.size() - used);
            status = inflate(&m_stream, Z_NO_FLUSH);
        }
        result.resize(static_cast<int>(m_stream.total_out));
        return status == Z_STREAM_END;
    }

private:
    z_stream m_stream = {};
    bool m_ready;
};
} // namespace

void ZyXMLDomGuard::refuseDepth(ZyString const & what)
{
    throw ZyInvalidXMLException(what + " is nested deeper than 512 levels");
}

void ZyXMLDomGuard::check(QByteArray const & document, ZyString const & what)
{
    if (hasAsciiMarkup(view(document)) && Scan(view(document)).isHarmless()) {
        return;
    }
    QXmlInputSource source;
    source.setData(document);
    examine(source.data(), what);
}

void ZyXMLDomGuard::check(QString const & document, ZyString const & what)
{
    if (!Scan(view(document.toUtf8())).isHarmless()) {
        examine(document, what);
    }
}

/**
 * Four bytes give the size, as a hint only; the stream itself knows its end. Zlib packs a byte into no less
 * than a thousandth of one, so a size beyond that is not even tried. Whatever follows the stream is ignored.
 */
QByteArray ZyXMLDomGuard::unpacked(QByteArray const & packed)
{
    constexpr std::size_t head = 4;
    std::string_view const bytes = view(packed);
    if (bytes.size() <= head || (bytes[head] & 0x0f) != Z_DEFLATED) {
        return QByteArray();
    }
    std::size_t claimed = 0;
    for (std::size_t i = 0; i < head; ++i) {
        claimed = claimed << 8 | static_cast<unsigned char>(bytes[i]);
    }
    std::size_t const possible = std::min((bytes.size() - head) * 1032, maxUnpacked);
    QByteArray result(static_cast<int>(std::max<std::size_t>(std::min(claimed, possible), 64)),
                      Qt::Uninitialized);
    if (!Inflation(bytes.substr(head)).run(result)) {
        result.clear();
    }
    return result;
}
