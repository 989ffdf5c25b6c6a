// SPDX-License-Identifier: BSD-3-Clause
// One element of an XML document that is read as a stream.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLElementReader.h>

#include <memory>

class ZyString;
class ZyXMLAttributeSet;
class ZyXMLStreamReader;

/**
 * One element of a stream, made by a ZyXMLStreamReader when it has read the start tag.
 *
 * The element is *open* until its end tag has been read, and *active* while it is the innermost open one.
 * Name and attributes are kept and can be read at any time, also when the stream reader is gone. Text is read
 * from the active element only, children from an open one; whatever a caller leaves unread of a child is
 * skipped when the next one is fetched.
 *
 * \threads one thread at a time, together with the stream reader and all its elements
 */
class ZYCORE_EXPORT ZyXMLStreamElementReader : public ZyXMLElementReader
{
public:
    /**
     * The children of an element of a stream: they pass once.
     *
     * Children that are kept do not keep their element alive; iterators do.
     */
    class ZYCORE_EXPORT StreamChildren : public Children
    {
    public:
        class StreamImplementation;

        /** The children of \a element, which is observed only. Iteration has not begun. */
        explicit StreamChildren(std::shared_ptr<ZyXMLStreamElementReader> const & element);
        ~StreamChildren() override;

        /**
         * Fetches the first child.
         * \throws ZyInvalidUseException not the first call: "Begin called multiple times on a single use iterator"
         * \throws ZyInvalidXMLOperation the element is closed: "NextChild on closed element called"
         */
        Iterator begin() override;
        /** Behind the last child; may be called any number of times. */
        Iterator end() override;

    private:
        std::shared_ptr<ZyXMLStreamElementReader> nextChild();

        class ZYCORE_PRIVATE Private;
        ZyPrivatePtr<Private> & d() { return m_d; }
        ZyPrivatePtr<Private> const & d() const { return m_d; }

        ZyPrivatePtr<Private> m_d;
    };

    /**
     * Takes name and attributes of the current token of \a reader. Only stream readers make elements that are
     * open; one that anyone else makes counts as closed.
     * \throws ZyNullPointerException \a reader is null: "Invalid parent"
     */
    explicit ZyXMLStreamElementReader(ZyXMLStreamReader * reader);
    /**
     * A new, closed element over the same stream reader.
     *
     * \deliberate{element-copy-reads-the-token} Name and attributes come from the token at which the stream reader stands
     * now, not from \a other. The stream reader has to live.
     */
    ZyXMLStreamElementReader(ZyXMLStreamElementReader const & other);
    ~ZyXMLStreamElementReader() override;

    ZyXMLAttributeSet const & attributes() const override;
    /**
     * \throws ZyNullXMLStreamElementException the first call comes when the element has closed already: "Null XML stream
     *         element"
     */
    StreamChildren & children() override;
    bool hasAttribute(ZyString const & name) const override;
    /** The local name, without a prefix. */
    ZyString const & name() const override;
    /** \throws ZyUnknownXMLAttributeException there is none: "Unknown attribute: " and the name */
    ZyString readAttribute(ZyString const & name) const override;
    double readAttributeBase64(ZyString const & name) const override;
    /**
     * The first run of text directly inside the element, trimmed; children in front of it are skipped.
     * Without any the element is read to its end, and closed.
     *
     * \deliberate{blank-run-is-the-text} White space between children is such a run: the result may be empty although
     * text follows.
     *
     * \throws ZyInvalidXMLOperation the element is not active: "Attempted to read text from non-active element"
     * \throws ZyInvalidXMLException the document is malformed: "Invalid XML: " and the parser's words
     */
    ZyString readText() const override;
    double readTextBase64() const override;

    /**
     * The next child element, or null behind the last one, which closes this element. A malformed document
     * looks like the last child, unless the damage is met while what is left of another child is skipped.
     * \throws ZyInvalidXMLOperation the element is closed: "NextChild on closed element called"
     * \throws ZyInvalidXMLException the document is malformed: "Invalid XML: " and the parser's words
     */
    std::shared_ptr<ZyXMLStreamElementReader> nextChild() const;

private:
    friend class ZyXMLStreamAccess;

    std::shared_ptr<ZyXMLStreamElementReader> self() const;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/** A place among the children of an element of a stream. */
class ZYCORE_EXPORT ZyXMLStreamElementReader::StreamChildren::StreamImplementation
    : public ZyXMLElementReader::Children::Iterator::Implementation
{
public:
    /** A place at \a child, null for the end; keeps the element of \a children alive. */
    StreamImplementation(std::shared_ptr<ZyXMLStreamElementReader> child, StreamChildren * children);
    ~StreamImplementation() override;

    std::shared_ptr<ZyXMLElementReader> currentChild() const override;
    /**
     * \throws ZyInvalidUseException there are no children to go on in: "No parent object in iterator"
     * \throws ZyInvalidXMLOperation the element is closed: "NextChild on closed element called"
     */
    std::shared_ptr<ZyXMLElementReader> nextChild() override;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
