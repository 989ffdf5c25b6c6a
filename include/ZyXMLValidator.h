// SPDX-License-Identifier: BSD-3-Clause
// Testing an XML file against an XML Schema.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class ZyString;

/**
 * Tests one XML file against an XML Schema.
 *
 * \code
 * if (!ZyXMLValidator("limits.xml").isValid("limits.xsd", false)) {
 *     ...
 * }
 * \endcode
 *
 * No connection is ever opened: a schema that the document, or the schema itself, names by an address in the
 * web counts as not reachable, and one that it names by another kind of address than of the web or of a file
 * makes it invalid. A schema that includes another by a relative path is refused, since it is read without an
 * address of its own.
 *
 * Documents nested deeper than 512 levels, or whose entities expand beyond 16 Mi characters, count as
 * invalid.
 *
 * A library may be built without validation, where Qt's XmlPatterns is not to be had
 * (ZYCORE_WITH_VALIDATION). Then isValid() always throws ZyXMLException "This library is built without
 * validation by XML Schema".
 *
 * \threads any thread, several at a time
 */
class ZYCORE_EXPORT ZyXMLValidator : public ZyPrivateObject
{
public:
    /** Keeps the path of the file to test. Nothing is read. */
    explicit ZyXMLValidator(ZyString const & file);
    ZyXMLValidator(ZyXMLValidator const & other);
    ZyXMLValidator & operator=(ZyXMLValidator const & other);
    ~ZyXMLValidator() override;

    /**
     * Tests the file against the schema in the file \a schema.
     *
     * \deliberate{reason-of-invalidity-is-lost} What the parser says of an invalid document reaches no one.
     *
     * \return true; false for each of the failures below, unless \a throwOnFailure is set
     * \throws ZyFileNotFoundException the schema or the file cannot be opened: "File not found: " and the path
     * \throws ZyInvalidXMLSchemaException the schema cannot be used: "Invalid XML schema: [" the path "] " and the last
     *         words of the parser, which are XHTML
     * \throws ZyInvalidXMLException the file does not satisfy the schema: "Invalid XML: " the file ", for schema: " and the
     *         path of the schema
     * \throws ZyXMLException the system has no thread left, in which the validation runs: "Cannot start a thread for the
     *         validation"
     */
    bool isValid(ZyString const & schema, bool throwOnFailure) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
