// SPDX-License-Identifier: BSD-3-Clause
// One element of a document that is written as a stream.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLElementWriter.h>

#include <memory>

class ZyXMLStreamWriter;

/**
 * An open element of a ZyXMLStreamWriter. Made by ZyXMLStreamWriter::createElement or by another element
 * writer.
 *
 * Only the innermost open element can be written to: while a child's writer lives, every operation of its
 * parent is refused. Destroying the writer closes the element, and with it any inner elements that are still
 * open. When the stream writer has closed the element by other means, or is gone, every operation fails and
 * destruction does nothing.
 *
 * A device that fails while the element is destroyed does not end the process: the next call on the stream
 * writer, at the latest ZyXMLStreamWriter::finishDocument, throws that failure.
 */
class ZYCORE_EXPORT ZyXMLStreamElementWriter : public ZyXMLElementWriter
{
public:
    /**
     * For ZyXMLStreamWriter, which has opened the element.
     * \throws ZyNullPointerException \a writer is null: "Invalid parent"
     */
    explicit ZyXMLStreamElementWriter(ZyXMLStreamWriter * writer);
    ~ZyXMLStreamElementWriter() override;

    /** \throws ZyInvalidXMLOperation this is not the innermost open element: "Invalid attempt to start element" */
    std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & name,
                                                      ZyString const & namespaceUri) override;
    /** \throws ZyInvalidXMLOperation this is not the innermost open element: "Invalid attempt to start element" */
    std::unique_ptr<ZyXMLElementWriter> createElement(ZyString const & name) override;
    /**
     * Writes an attribute. Names of one element are told apart without regard to case.
     *
     * \throws ZyInvalidXMLOperation this is not the innermost open element: "Invalid attempt to write attribute"; text
     *         or a child has been written: "Illegal attribute write"
     * \throws ZyInvalidXMLAttributeName the element has that attribute, or the name holds white space:
     *         "Invalid attribute name: " and the name
     */
    void writeAttribute(ZyString const & name, ZyString const & value,
                        ZyString const & namespaceUri) override;
    /** As the form with a namespace. */
    void writeAttribute(ZyString const & name, ZyString const & value) override;
    void writeAttributeBase64(ZyString const & name, double const & value,
                              ZyString const & namespaceUri) override;
    void writeAttributeBase64(ZyString const & name, double const & value) override;
    /**
     * Writes the text, once, behind the attributes and before any child.
     *
     * \throws ZyInvalidXMLOperation this is not the innermost open element: "Invalid attempt to write text"; text or a
     *         child has been written: "Illegal write text call"
     */
    void writeText(ZyString const & text) override;
    void writeTextBase64(double const & value) override;

    /** Cuts the element loose from its stream writer. Called by the stream writer only. */
    void disable();

private:
    bool isActive() const;
    void checkActive(char const * refusal) const;
    void checkAttribute(ZyString const & name) const;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
