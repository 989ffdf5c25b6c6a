// SPDX-License-Identifier: BSD-3-Clause
// A whole XML document in memory.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLDomElement.h>

class ZyFilePath;
class ZyString;

/**
 * An XML document held in memory, loaded from a file and saved to one whole or not at all.
 *
 * \code
 * ZyXMLDomDocument document(ZyFilePath("limits.xml"));
 * for (ZyXMLDomElement limit : document.root().children("Limit")) {
 *     limit.setAttribute("unit", "V");
 * }
 * document.save(ZyFilePath("limits.xml"), ZyXMLDomDocument::Indented);
 * \endcode
 *
 * Copies share one document. The parser is lenient: undeclared entities and prefixes, repeated attributes
 * (the last counts) and control characters (dropped) are accepted; text of white space only is dropped.
 * Entities of the document itself are expanded, nothing else is ever fetched.
 *
 * Foreign input is bounded: elements may be nested 512 deep, the root being the first; entities may expand to
 * 16 MiB of text or 1,000,000 elements more than stand in the document; a compressed file may unpack to
 * 256 MiB.
 *
 * Saved and printed start tags have their attributes in the order of their names, but in result files in the
 * order of that format; so the same content gives the same bytes in every process.
 *
 * \threads a document belongs to one thread, with all its copies and elements
 */
class ZYCORE_EXPORT ZyXMLDomDocument : public ZyPrivateObject
{
public:
    /** The form of a saved file. */
    enum SaveType : int {
        Indented = 0, ///< text, one blank a level
        Compact = 1,  ///< text without added white space
        /**
         * Text without added white space, compressed by zlib behind its size as four bytes, most significant
         * first.
         * \deliberate{compressed-has-no-line-feeds} All line feeds are taken out, those inside texts too; the
         * ones in attributes are written as `&#xa;` and stay.
         */
        Compressed = 2
    };

    /** A document that holds `<?xml version="1.0" encoding="UTF-8"?>` and no element. */
    ZyXMLDomDocument();
    /**
     * Loads a file, plain or compressed: the reader need not know which.
     *
     * \throws ZyFileNotFoundException there is no such file: "File not found: " and the path
     * \throws ZyFileException it cannot be opened or read: the system's words, with the path in path1()
     * \throws ZyInvalidXMLException it is no XML: "Invalid XML: " and the path; or beyond the bounds of the class:
     *         "Invalid XML: " the path " is nested deeper than 512 levels", or " expands beyond bounds"
     */
    explicit ZyXMLDomDocument(ZyFilePath const & file);
    /**
     * Validates a plain file against a schema, then loads it.
     * \throws ZyInvalidXMLSchemaException, ZyInvalidXMLException, ZyFileNotFoundException as
     *         ZyXMLValidator::isValid does
     * \throws ZyFileException as the form without a schema
     */
    ZyXMLDomDocument(ZyFilePath const & file, ZyFilePath const & schema);
    /** Shares the document of \a other. */
    ZyXMLDomDocument(ZyXMLDomDocument const & other);
    /** Shares the document of \a other from now on. */
    ZyXMLDomDocument & operator=(ZyXMLDomDocument const & other);
    ~ZyXMLDomDocument() override;

    /**
     * The root element.
     *
     * \deliberate{asking-makes-a-root} Where there is none, one named "DefaultRoot" is made, so that every document has one
     * to be filled.
     */
    ZyXMLDomElement root();
    /**
     * Replaces the whole document, its declaration too, by a text.
     *
     * \deliberate{bad-text-empties-the-document} Text that is no XML leaves the document empty, and nothing
     * tells.
     *
     * \throws ZyInvalidXMLException the text is beyond the bounds of the class: "Invalid XML: text is nested deeper than 512
     *         levels", "Invalid XML: text expands beyond bounds"; the document is empty then
     */
    void setContent(ZyString const & text);
    /** The document as text, indented by one blank a level. */
    ZyString toString() const;
    /**
     * Saves the document, in the encoding that its declaration names. A save that fails leaves an earlier
     * file untouched.
     *
     * \throws ZyFileException the file cannot be written: the system's words, with the path in path1()
     */
    void save(ZyFilePath const & file, SaveType type) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
