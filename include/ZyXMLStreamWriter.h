// SPDX-License-Identifier: BSD-3-Clause
// Writing an XML document as a stream to a device.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>

#include <memory>

class ZyFilePath;
class ZyIODevice;
class ZyString;
class ZyXMLMarkup;
class ZyXMLStreamElementWriter;

/**
 * Writes one XML document, in UTF-8, to a device.
 *
 * \code
 * ZyStringDevice device;
 * ZyXMLStreamWriter writer(device);
 * writer.startDocument();
 * {
 *     auto limits = writer.createElement("Limits");
 *     limits->createElement("Limit")->writeText("5");
 * } // end tags are written as the element writers go
 * writer.finishDocument();
 * \endcode
 *
 * Constructing the writer opens the device for writing; the result of that is not looked at, and a device
 * that is open already is used as it stands. A device that cannot be written makes the first write fail. What
 * is written behind that first piece is collected and reaches the device 64 KiB at a time, in finishDocument,
 * and when the writer goes: until then the device lags behind.
 *
 * When the device fails the document is lost. The operation that meets the failure throws it, and so does
 * every later one; nothing more reaches the device.
 *
 * \threads one thread at a time, together with all its element writers
 */
class ZYCORE_EXPORT ZyXMLStreamWriter : public ZyPrivateObject
{
public:
    /** Line breaks and indentation of the output. */
    struct AutoFormattingSettings
    {
        /** No formatting: everything on one line. */
        AutoFormattingSettings() : enabled(false), indent(-1) {}
        /** Formatting with one tab a level, or none. */
        explicit AutoFormattingSettings(bool on) : enabled(on), indent(-1) {}
        /** Formatting with \a width blanks a level; a negative number counts tabs. */
        AutoFormattingSettings(bool on, int width) : enabled(on), indent(width) {}

        bool enabled; ///< line breaks and indentation at all
        int indent;   ///< blanks a level; negative: tabs
    };

    /** Writes to \a device, on loan for the life of the writer. */
    explicit ZyXMLStreamWriter(ZyIODevice & device,
                               AutoFormattingSettings const & formatting = AutoFormattingSettings());
    /**
     * Writes to a shared device.
     * \throws ZyNullPointerException \a device is null; empty message
     */
    explicit ZyXMLStreamWriter(ZySharedPtr<ZyIODevice> device,
                               AutoFormattingSettings const & formatting = AutoFormattingSettings());
    /** Writes to a file. \throws ZyCannotOpenFileException the file cannot be opened */
    explicit ZyXMLStreamWriter(ZyFilePath const & path,
                               AutoFormattingSettings const & formatting = AutoFormattingSettings());
    ZyXMLStreamWriter(ZyXMLStreamWriter const &) = delete;
    ZyXMLStreamWriter & operator=(ZyXMLStreamWriter const &) = delete;
    /**
     * Closes the device, a borrowed one too; a device that fails at this moment fails in silence.
     *
     * \deliberate{abandoned-document-stays-cut-off} A document that has not been finished gets no end tags: a reader
     * sees that it is not whole.
     */
    ~ZyXMLStreamWriter() override;

    /** As startDocument("1.0"). */
    void startDocument();
    /**
     * Writes the XML declaration; optional.
     * \throws ZyInvalidXMLOperation something was written: "Attempting to create document when already created"
     */
    void startDocument(ZyString const & version);

    /**
     * Opens an element that finishElement() closes.
     *
     * \deliberate{elements-behind-the-end} Also behind finishDocument(), where it reaches no device: only attributes, texts
     * and declarations are refused in the wrong place.
     */
    void startElement(ZyString const & name);
    /** Opens an element and hands out its writer; destroying it closes the element. */
    std::unique_ptr<ZyXMLStreamElementWriter> createElement(ZyString const & name);
    /** The same in a namespace: the name comes first. An undeclared namespace gets a prefix. */
    std::unique_ptr<ZyXMLStreamElementWriter> createElement(ZyString const & name,
                                                            ZyString const & namespaceUri);

    /**
     * Writes an attribute of the start tag that is open.
     *
     * \throws ZyInvalidXMLAttributeName the name holds white space: "Invalid attribute name: " and the name
     * \throws ZyInvalidXMLOperation no start tag is open: "Illegal attribute write"
     */
    void writeAttribute(ZyString const & name, ZyString const & value);
    /** The same in a namespace: the namespace comes last. */
    void writeAttribute(ZyString const & name, ZyString const & value, ZyString const & namespaceUri);
    /** Declares the default namespace, on the open start tag or on the next one. */
    void writeDefaultNamespace(ZyString const & uri);
    /** Declares a namespace with its prefix, on the open start tag or on the next one. */
    void writeNamespace(ZyString const & uri, ZyString const & prefix);
    /**
     * Writes the text of the innermost element, escaped; control characters other than tab and line ends are
     * dropped, and bytes that are not UTF-8 become U+FFFD.
     * \throws ZyInvalidXMLOperation no start tag is open: "Illegal write text call"
     */
    void writeText(ZyString const & text);

    /** Closes the innermost element. */
    void finishElement();
    /** Closes every element down to and including that of \a element; one that is not open is ignored. */
    void finishElement(ZyXMLStreamElementWriter const * element);
    /**
     * Closes all elements, ends the document with a line feed and closes the device. A second call does
     * nothing. A failure of the device counts as the end, too: the device is closed, and the failure is
     * thrown.
     */
    void finishDocument();

    /** True for the writer of the innermost open element, and for null when none is open or it has no writer.
     */
    [[nodiscard]] bool isCurrent(ZyXMLStreamElementWriter const * element) const;

private:
    friend class ZyXMLMarkup;
    friend class ZyXMLStreamElementWriter;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
