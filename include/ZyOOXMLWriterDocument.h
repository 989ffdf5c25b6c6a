// SPDX-License-Identifier: BSD-3-Clause
// The base of what writes one XML part of an office package.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>

class ZyIODevice;
class ZyXMLStreamWriter;

/**
 * A writer of one XML document over a device, on one line, until it is closed.
 *
 * Copies share the device and the document. A moved-from writer may only be destroyed or assigned to.
 * \threads one thread at a time
 */
class ZYCORE_EXPORT ZyOOXMLWriterDocument
{
public:
    /**
     * Keeps the device alive until the document is closed, and opens it for writing unless it is open.
     * \throws ZyNullPointerException the device has gone; empty message
     */
    explicit ZyOOXMLWriterDocument(ZyWeakPtr<ZyIODevice> device);
    ZyOOXMLWriterDocument(ZyOOXMLWriterDocument const & other);
    ZyOOXMLWriterDocument(ZyOOXMLWriterDocument && other) noexcept;
    virtual ~ZyOOXMLWriterDocument();
    ZyOOXMLWriterDocument & operator=(ZyOOXMLWriterDocument const & other);
    ZyOOXMLWriterDocument & operator=(ZyOOXMLWriterDocument && other) noexcept;

    /** True until the document has been closed. */
    [[nodiscard]] bool isAlive() const;
    /**
     * Writes what is left, ends the document and closes and releases the device; nothing when that is done
     * already.
     * \throws what the device throws; the document is lost then
     */
    void close();

protected:
    /** Writes what is left of the document. */
    virtual void onClose() = 0;
    /** \throws ZyInvalidCallException the document is closed: "Document writer has no valid device" */
    ZyXMLStreamWriter & writer();

private:
    friend class ZyOOXMLWriter;
    bool hasReportedFailure() const;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
