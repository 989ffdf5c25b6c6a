// SPDX-License-Identifier: BSD-3-Clause
// Reading an XML document as a stream from a device.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyXMLAttributeSet.h>
#include <ZyXMLStreamElementReader.h>

#include <memory>

class ZyFilePath;
class ZyIODevice;
class ZyString;

/**
 * Reads one XML document of any size from a device, token by token.
 *
 * \code
 * ZyXMLStreamReader reader(ZyFilePath("limits.xml"));
 * while (auto limit = reader.scan("Limit")) {
 *     use(limit->readAttribute("unit"), limit->readText());
 * }
 * \endcode
 *
 * Constructing the reader opens the device for reading; the result of that is not looked at: a device that is
 * open already is read from where it stands, and one that cannot be read fails at the first read. Only the
 * open elements are kept, one small object each.
 *
 * Devices are for text: a NUL byte ends what is seen of the piece it stands in, so documents in UTF-16 or
 * UTF-32 cannot be read. A failure of the device is thrown by the operation that meets it; the next one tries
 * to go on.
 *
 * What foreign documents may do: nothing is ever fetched, external entities vanish; nested entities are
 * limited by the parser. Internal entities are expanded, which may make a text far longer than the document:
 * whoever does not want that stops at a DTD token.
 *
 * \threads one thread at a time, together with all its elements
 */
class ZYCORE_EXPORT ZyXMLStreamReader : public ZyPrivateObject
{
public:
    /** What has been read last. */
    enum TokenType : int {
        NoToken = 0,         ///< nothing read yet
        Invalid = 1,         ///< parse error
        StartDocument = 2,   ///< the XML declaration, or the start of a document without one
        EndDocument = 3,     ///< end of the document
        StartElement = 4,    ///< a start tag
        EndElement = 5,      ///< an end tag
        Characters = 6,      ///< text
        Comment = 7,         ///< a comment
        DTD = 8,             ///< a document type declaration
        EntityReference = 9, ///< an entity reference that cannot be resolved
        Other = 11           ///< anything else, such as a processing instruction
    };

    /** Reads from \a device, on loan for the life of the reader and not closed by it. */
    explicit ZyXMLStreamReader(ZyIODevice & device);
    /**
     * Reads from a shared device.
     * \throws ZyNullPointerException \a device is null; empty message
     */
    explicit ZyXMLStreamReader(ZySharedPtr<ZyIODevice> device);
    /** Reads a file. \throws ZyFileNotFoundException, ZyCannotOpenFileException the file cannot be opened */
    explicit ZyXMLStreamReader(ZyFilePath const & file);
    /**
     * Validates a file against a schema, and then reads it from the start.
     * \throws ZyInvalidXMLSchemaException the schema cannot be used
     * \throws ZyInvalidXMLException the document is not valid
     */
    ZyXMLStreamReader(ZyFilePath const & file, ZyFilePath const & schema);
    ZyXMLStreamReader(ZyXMLStreamReader const &) = delete;
    ZyXMLStreamReader & operator=(ZyXMLStreamReader const &) = delete;
    /** Closes all elements; their names and attributes stay readable. */
    ~ZyXMLStreamReader() override;

    /**
     * Reads one token. A start tag opens an element, an end tag closes the innermost one.
     * \throws ZyInvalidXMLException the document is malformed, or ended before: "Invalid XML: " and the parser's words
     */
    TokenType next();
    /** The current token, without reading. */
    TokenType tokenType() const;

    /**
     * Reads on to the next start tag anywhere in the document; null at the end of the document.
     *
     * \deliberate{ten-million-tokens} Null, too, after 10,000,000 tokens that are no start tags: a runaway read ends
     * without raising anything.
     *
     * \throws ZyInvalidXMLException as next()
     */
    std::shared_ptr<ZyXMLStreamElementReader> nextElement();
    /**
     * Reads on to the next start tag inside the innermost element; null at the end tag of that element, which
     * closes it.
     *
     * \deliberate{error-ends-children} Null, too, when the document is malformed or cut off there: the caller sees the end
     * of the children. tokenType() and errorString() tell.
     */
    std::shared_ptr<ZyXMLStreamElementReader> nextElementInElement();
    /**
     * Reads on to the next start tag of that local name, compared without regard to case; null when there is
     * none. Elements passed over are open until their end tags have been read.
     * \throws ZyInvalidXMLException as next()
     */
    std::shared_ptr<ZyXMLStreamElementReader> scan(ZyString const & name);

    /** The active element. \throws ZyNullXMLStreamElementException none is open: "Null XML stream element" */
    std::shared_ptr<ZyXMLStreamElementReader> currentElement() const;
    /** The owner of an open element. \throws ZyNullXMLStreamElementException it is not open: "Null XML stream element" */
    std::shared_ptr<ZyXMLStreamElementReader>
    getSharedPointer(ZyXMLStreamElementReader const * element) const;
    /** Whether \a element, which may be null, is the innermost open one. */
    bool isActive(ZyXMLStreamElementReader const * element) const;
    /** Whether \a element, which may be null, is open. */
    bool isValid(ZyXMLStreamElementReader const * element) const;
    /** Whether \a element, which may be null, is open. */
    bool isValid(std::shared_ptr<ZyXMLStreamElementReader> const & element) const;

    /**
     * The attributes of the current token, in the order of the document, under their local names; a new set
     * with every call, empty unless the token is a start tag.
     *
     * \deliberate{prefixes-are-dropped} Attributes that differ only in prefix or in case become one, with the later value.
     */
    ZyXMLAttributeSetPtr attributes() const;
    /** The local name of the current start or end tag; empty for other tokens. */
    ZyString elementName() const;
    /**
     * The first run of text directly inside the active element, as it stands; children in front of it are
     * skipped. Without any, the element is read to its end, and the result is empty.
     * \throws ZyInvalidXMLOperation no element is open: "ReadText called outside of element"
     * \throws ZyInvalidXMLException as next()
     */
    ZyString readText();
    /**
     * The current element as text, to be read as a document of its own; the next one when the reader stands
     * in front of an element or behind one. Afterwards the reader stands at the end tag. The start tag is
     * made new, from local names and values; the rest is copied from the device, which has to know
     * seek_read().
     *
     * \deliberate{fragment-is-cut-by-characters} Positions of characters serve as positions of bytes, values are not
     * escaped again, and an empty element has no end tag: the result is exact for single-byte text without a
     * byte order mark, without prefixes, and with an end tag.
     *
     * \throws ZyXMLException the token is none of those: the parser's words, which may be none
     * \throws ZyInvalidXMLException the document is malformed or ends inside the element
     */
    ZyString toString();
    /** What the parser has to say about the last failure; empty without one. */
    ZyString errorString() const;

    /** Begins again at the start of the device; open elements are closed. */
    void restart();

private:
    friend class ZyXMLStreamAccess;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
