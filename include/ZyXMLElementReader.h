// SPDX-License-Identifier: BSD-3-Clause
// The abstract view of one XML element that is being read, of its children and of the walk over them.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

#include <iterator>
#include <memory>

class ZyString;
class ZyXMLAttributeSet;

/**
 * One element of an XML document, whatever the document is read from.
 *
 * Code that turns XML into a value sees this class only. What it gets is either an element of a stream
 * (ZyXMLStreamElementReader), which passes once, in the order of the document, or one of a document that is
 * held in memory (ZyXMLDomElementReader), which may be walked in any order and any number of times. Code for
 * both reads each element once, from front to back:
 *
 * \code
 * ZyString const unit = limit.readAttribute("unit");
 * for (auto const & child : limit.children()) {
 *     if (child->name() == "Value") {
 *         use(child->readText());
 *     }
 * }
 * \endcode
 *
 * \threads one thread at a time, together with the document and all its elements
 */
class ZYCORE_EXPORT ZyXMLElementReader
{
public:
    class Children;

    ZyXMLElementReader(ZyXMLElementReader const &) = delete;
    ZyXMLElementReader & operator=(ZyXMLElementReader const &) = delete;
    // The virtual operations from here on have the order that hosts have been built against.
    virtual ~ZyXMLElementReader();

    /** The attributes; on loan, valid while this object lives. */
    virtual ZyXMLAttributeSet const & attributes() const = 0;
    /** The child elements, to be walked over; on loan, valid while this object lives. */
    virtual Children & children() = 0;
    /** Whether there is an attribute of that name. */
    virtual bool hasAttribute(ZyString const & name) const = 0;
    /** The name of the element. */
    virtual ZyString const & name() const = 0;
    /** The value of an attribute. \throws ZyUnknownXMLAttributeException where there must be one */
    virtual ZyString readAttribute(ZyString const & name) const = 0;
    /**
     * The number of an attribute that was written as the Base64 text of its bytes.
     * \throws ZyInvalidParameterException the text is no such number: "Invalid string length"
     */
    virtual double readAttributeBase64(ZyString const & name) const = 0;
    /** The text of the element, without white space at its ends. */
    virtual ZyString readText() const = 0;
    /**
     * The number of a text that was written as the Base64 text of its bytes, through readText.
     * \throws ZyInvalidParameterException the text is no such number: "Invalid string length"
     */
    virtual double readTextBase64() const = 0;

protected:
    ZyXMLElementReader();
};

/** The child elements of one element, as a range. */
class ZYCORE_EXPORT ZyXMLElementReader::Children
{
public:
    class Iterator;

    Children(Children const &) = delete;
    Children & operator=(Children const &) = delete;
    virtual ~Children();

    /** The first child, or the end when there is none. */
    virtual Iterator begin() = 0;
    /** Behind the last child. */
    virtual Iterator end() = 0;

protected:
    Children();
};

/**
 * A place in a walk over children: an input iterator.
 *
 * \deliberate{iterator-copies-share-position} Copies share one position: to advance one of them advances all. A stream
 * has one place only.
 *
 * Both comparison and dereference ask for the current child, which a document in memory makes anew each time:
 * a loop that cares compares once and keeps the pointer.
 */
class ZYCORE_EXPORT ZyXMLElementReader::Children::Iterator
{
public:
    class Implementation;

    using iterator_category = std::input_iterator_tag;
    using value_type = std::shared_ptr<ZyXMLElementReader>;
    using difference_type = int;
    using pointer = value_type const *;
    using reference = value_type;

    /** \throws ZyNullPointerException \a implementation is null; empty message */
    explicit Iterator(std::shared_ptr<Implementation> implementation);
    /** Shares the position of \a other. */
    Iterator(Iterator const & other);
    /** Shares the position of \a other from now on. */
    Iterator & operator=(Iterator const & other);
    virtual ~Iterator();

    /** Whether the current children are different objects; two ends have none and are equal. */
    bool operator!=(Iterator const & other) const;
    /** The current child; null at the end. */
    value_type operator*() const;
    /** Goes on to the next child. */
    Iterator & operator++();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/** What an iterator does, for one kind of document. */
class ZYCORE_EXPORT ZyXMLElementReader::Children::Iterator::Implementation
{
public:
    Implementation(Implementation const &) = delete;
    Implementation & operator=(Implementation const &) = delete;
    virtual ~Implementation();

    /** The child at this place; null behind the last one. */
    virtual std::shared_ptr<ZyXMLElementReader> currentChild() const = 0;
    /** Goes on and gives the child there; null behind the last one. */
    virtual std::shared_ptr<ZyXMLElementReader> nextChild() = 0;

protected:
    Implementation();
};
