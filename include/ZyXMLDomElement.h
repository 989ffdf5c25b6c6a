// SPDX-License-Identifier: BSD-3-Clause
// One element of an XML document in memory.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLAttributeSet.h>

#include <list>

class QDomDocument;
class QDomElement;
class ZyString;
class ZyXMLAttribute;

/**
 * A handle on one element of a ZyXMLDomDocument. Copies refer to one element, and each keeps the document
 * alive.
 *
 * Names of elements and attributes are those of the document, with their prefixes, and declarations of
 * namespaces are attributes; but what was made here in a namespace goes by its name without the prefix until
 * the document is saved and loaded. A null element has no name, no text, no attributes and no children; to
 * change one throws ZyNullDomElementException, "Null dom element".
 *
 * Names are not checked for being legal XML names.
 *
 * \threads one thread at a time, together with the document
 */
class ZYCORE_EXPORT ZyXMLDomElement : public ZyPrivateObject
{
public:
    /** A null element. */
    ZyXMLDomElement();
    /** Refers to the element of \a other. */
    ZyXMLDomElement(ZyXMLDomElement const & other);
    /** Refers to the element of \a other from now on. */
    ZyXMLDomElement & operator=(ZyXMLDomElement const & other);
    ~ZyXMLDomElement() override;

    /** Whether this refers to no element. */
    bool isNull() const;
    /** The name, with its prefix. */
    ZyString name() const;
    /** Renames the element. */
    void setName(ZyString const & name);
    /** All text of the element and of the elements below it, joined. */
    ZyString text() const;
    /**
     * Puts a text behind everything else in the element.
     *
     * \deliberate{set-text-removes-one-text} When the element or anything below it has text, the first text
     * node of its own is removed before, and only that one: the others of an element with mixed content stay.
     */
    void setText(ZyString const & text);

    /** The value of an attribute. \throws ZyUnknownXMLAttributeException "Unknown attribute: " and the name */
    ZyString attribute(ZyString const & name) const;
    /** The value of an attribute, or \a defaultValue when there is none of that name. */
    ZyString attribute(ZyString const & name, ZyString const & defaultValue) const;
    /**
     * The number of an attribute that was written as the Base64 text of its bytes.
     * \throws ZyUnknownXMLAttributeException "Unknown attribute: " and the name
     * \throws ZyInvalidParameterException the value is no such text: "Invalid string length"
     */
    double attributeBase64(ZyString const & name) const;
    /** The same, or \a defaultValue when there is no attribute of that name. */
    double attributeBase64(ZyString const & name, double const & defaultValue) const;
    /** A new set of the attributes, in the order of their names. It tells names apart without regard to case.
     */
    ZyXMLAttributeSetPtr attributes() const;
    /**
     * Whether there is an attribute of that name.
     * \deliberate{dom-attributes-have-case} Case counts, unlike in a ZyXMLAttributeSet: Qt keeps the names here.
     */
    bool hasAttribute(ZyString const & name) const;
    /**
     * Sets an attribute.
     *
     * \deliberate{dom-refuses-blanks-by-operation} A name with white space is refused by another class, with
     * other words, than the stream writer's.
     *
     * \throws ZyInvalidXMLOperation the name holds white space: the name alone
     */
    void setAttribute(ZyString const & name, ZyString const & value);
    /**
     * Sets an attribute in a namespace. It is found again under its name without the prefix. A name without
     * a prefix gets one, n1 or the next that is free, for an attribute without a prefix is in no namespace;
     * an empty \a namespaceUri equals none.
     *
     * \throws ZyInvalidXMLOperation the name holds white space: the name alone
     */
    void setAttribute(ZyString const & name, ZyString const & value, ZyString const & namespaceUri);
    /** The same with the name and the value of an attribute, in no namespace. */
    void setAttribute(ZyXMLAttribute const & attribute);
    /** Sets an attribute to a number exactly, as the Base64 text of its bytes, through setAttribute. */
    void setAttributeBase64(ZyString const & name, double const & value);
    /** The same in a namespace. */
    void setAttributeBase64(ZyString const & name, double const & value, ZyString const & namespaceUri);

    /**
     * Appends a new child element.
     * \throws ZyInvalidXMLException this is at level 512: "Invalid XML: " \a name " is nested deeper than 512 levels"
     */
    ZyXMLDomElement addElement(ZyString const & name);
    /** The same in a namespace, which comes first. */
    ZyXMLDomElement addElement(ZyString const & namespaceUri, ZyString const & name);
    /** The child elements, in order. */
    std::list<ZyXMLDomElement> children() const;
    /** The child elements of a name, compared without regard to case. */
    std::list<ZyXMLDomElement> children(ZyString const & name) const;
    /** A copy that stands in no document tree: of the element with its attributes, when \a deep of all below
     * it too. */
    ZyXMLDomElement clone(bool deep) const;

private:
    friend class ZyXMLDomDocument;

    ZYCORE_PRIVATE ZyXMLDomElement(QDomElement const & element, QDomDocument const & document);
    ZYCORE_PRIVATE void checkChange() const;
    ZYCORE_PRIVATE void checkAttribute(ZyString const & name) const;
    ZYCORE_PRIVATE void checkChild(ZyString const & name) const;
    ZYCORE_PRIVATE ZyXMLDomElement appended(QDomElement const & child);

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
