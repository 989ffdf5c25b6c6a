// SPDX-License-Identifier: BSD-3-Clause
// Writing into an XML document in memory through the abstract element writer.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLElementWriter.h>

#include <memory>

class ZyXMLDomElement;

/**
 * Lets a ZyXMLDomElement be written as an element of a stream is.
 *
 * Unlike in a stream, nothing is ever closed: an element takes attributes, text and children at any time,
 * also while the writers of its children live, and a repeated attribute replaces the earlier one.
 *
 * \threads one thread at a time, together with the document
 */
class ZYCORE_EXPORT ZyXMLDomElementWriter : public ZyXMLElementWriter
{
public:
    /** \throws ZyNullDomElementException \a element is null: "Null dom element" */
    explicit ZyXMLDomElementWriter(ZyXMLDomElement const & element);
    ~ZyXMLDomElementWriter() override;

    /**
     * Appends a child element in a namespace.
     *
     * \deliberate{dom-create-element-reversed} The arguments go to ZyXMLDomElement::addElement as they come, so
     * here the first is the namespace and the second the name, the reverse of ZyXMLStreamElementWriter: code
     * that calls `createElement("First", uri)` makes an element named after the URI, in the namespace
     * "First".
     *
     * \throws ZyInvalidXMLException as ZyXMLDomElement::addElement
     */
    std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & namespaceUri,
                                                      ZyString const & name) override;
    /** Appends a child element. \throws ZyInvalidXMLException as ZyXMLDomElement::addElement */
    std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & name) override;
    /** Sets an attribute. \throws ZyInvalidXMLOperation the name holds white space: the name alone */
    void writeAttribute(ZyString const & name, ZyString const & value,
                        ZyString const & namespaceUri) override;
    /** Sets an attribute. \throws ZyInvalidXMLOperation the name holds white space: the name alone */
    void writeAttribute(ZyString const & name, ZyString const & value) override;
    void writeAttributeBase64(ZyString const & name, double const & value,
                              ZyString const & namespaceUri) override;
    void writeAttributeBase64(ZyString const & name, double const & value) override;
    /** As ZyXMLDomElement::setText. */
    void writeText(ZyString const & text) override;
    void writeTextBase64(double const & value) override;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
