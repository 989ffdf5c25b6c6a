// SPDX-License-Identifier: BSD-3-Clause
// Reading an XML document in memory through the abstract element reader.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLElementReader.h>

#include <memory>

class ZyXMLDomElement;

/**
 * Lets a ZyXMLDomElement be read as an element of a stream is.
 *
 * Name and attributes are those at the construction; text and single attributes are read from the element as
 * it is. Children may be walked any number of times, nothing is ever closed, and no element is active.
 *
 * What differs from a stream: names have their prefixes, declarations of namespaces are attributes,
 * hasAttribute() and readAttribute() regard case, and the text is all that stands below, joined.
 *
 * \threads one thread at a time, together with the document
 */
class ZYCORE_EXPORT ZyXMLDomElementReader : public ZyXMLElementReader
{
public:
    /** The children of an element as they were when they were first asked for. */
    class ZYCORE_EXPORT DomChildren : public Children
    {
    public:
        class DomImplementation;

        /** The children that \a element has now. */
        explicit DomChildren(ZyXMLDomElement const & element);
        ~DomChildren() override;

        /** The first child. May be called any number of times; each gives a walk of its own. */
        Iterator begin() override;
        /** Behind the last child. */
        Iterator end() override;

    private:
        class ZYCORE_PRIVATE Private;
        ZyPrivatePtr<Private> & d() { return m_d; }
        ZyPrivatePtr<Private> const & d() const { return m_d; }

        ZyPrivatePtr<Private> m_d;
    };

    /** Reads \a element, whose name and attributes are taken as they are now; it may be null. */
    explicit ZyXMLDomElementReader(ZyXMLDomElement const & element);
    /** Copies name and attributes as \a other has them, and shares its children. */
    ZyXMLDomElementReader(ZyXMLDomElementReader const & other);
    ZyXMLDomElementReader & operator=(ZyXMLDomElementReader const & other);
    ~ZyXMLDomElementReader() override;

    /** The element. */
    ZyXMLDomElement const & element() const;

    ZyXMLAttributeSet const & attributes() const override;
    /** The children, taken at the first call. */
    DomChildren & children() override;
    bool hasAttribute(ZyString const & name) const override;
    ZyString const & name() const override;
    /** \throws ZyUnknownXMLAttributeException "Unknown attribute: " and the name */
    ZyString readAttribute(ZyString const & name) const override;
    double readAttributeBase64(ZyString const & name) const override;
    ZyString readText() const override;
    /** The number of the text; 0.0 for a null element. */
    double readTextBase64() const override;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/** A place among the children of one element. It shares them, and may outlive their reader. */
class ZYCORE_EXPORT ZyXMLDomElementReader::DomChildren::DomImplementation : public Iterator::Implementation
{
public:
    ~DomImplementation() override;

    /** A new reader at each call; null behind the last child. */
    std::shared_ptr<ZyXMLElementReader> currentChild() const override;
    std::shared_ptr<ZyXMLElementReader> nextChild() override;

private:
    friend class DomChildren;

    class ZYCORE_PRIVATE Private;
    ZYCORE_PRIVATE explicit DomImplementation(Private * state);
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
