// SPDX-License-Identifier: BSD-3-Clause
// The abstract view of one XML element that is being written.
#pragma once

#include <ZyExport.h>

#include <memory>

class ZyString;

/**
 * One element of an XML document under way, whatever the document is made of.
 *
 * Code that turns a value into XML sees this class only. Attributes come first, then either one text or child
 * elements; a child is finished before the next call on its parent:
 *
 * \code
 * std::unique_ptr<ZyXMLElementWriter> limit = limits.createElement("Limit");
 * limit->writeAttribute("unit", "V");
 * limit->writeText("5");
 * limit.reset(); // writes the end tag
 * \endcode
 *
 * Names are not checked for being legal XML names. Texts are UTF-8, end at a NUL, and are escaped here.
 * \threads one thread at a time, together with the document and all its elements
 */
class ZYCORE_EXPORT ZyXMLElementWriter
{
public:
    ZyXMLElementWriter(ZyXMLElementWriter const &) = delete;
    ZyXMLElementWriter & operator=(ZyXMLElementWriter const &) = delete;
    virtual ~ZyXMLElementWriter();

    /** Opens a child element in a namespace: the name comes first. Destroying the result finishes the child.
     */
    virtual std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & name,
                                                              ZyString const & namespaceUri) = 0;
    /** Opens a child element. Destroying the result finishes the child. */
    virtual std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & name) = 0;
    /** Writes an attribute in a namespace: the namespace comes last. */
    virtual void writeAttribute(ZyString const & name, ZyString const & value,
                                ZyString const & namespaceUri) = 0;
    /** Writes an attribute. */
    virtual void writeAttribute(ZyString const & name, ZyString const & value) = 0;
    /** Writes a number exactly, as the Base64 text of its bytes, through writeAttribute. */
    virtual void writeAttributeBase64(ZyString const & name, double const & value,
                                      ZyString const & namespaceUri) = 0;
    /** Writes a number exactly, as the Base64 text of its bytes, through writeAttribute. */
    virtual void writeAttributeBase64(ZyString const & name, double const & value) = 0;
    /** Writes the text of the element. */
    virtual void writeText(ZyString const & text) = 0;
    /** Writes a number exactly, as the Base64 text of its bytes, through writeText. */
    virtual void writeTextBase64(double const & value) = 0;

protected:
    ZyXMLElementWriter();
};
