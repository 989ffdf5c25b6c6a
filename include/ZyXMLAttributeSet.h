// SPDX-License-Identifier: BSD-3-Clause
// The attributes of one XML element, and the handle through which they are shared.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyXMLAttribute.h>

#include <memory>
#include <vector>

class ZyString;

/**
 * The attributes of one element, in the order in which their names came first.
 *
 * \deliberate{attribute-names-ignore-case} Names are compared without regard to case: `<a x="1" X="2"/>` has one
 * attribute here, named "x", with the value "2".
 *
 * \code
 * ZyXMLAttributeSet set;
 * set.addAttribute("Id", "1");
 * set.addAttribute("ID", "2");
 * set.readAttribute("id");          // "2"
 * set.readAttribute("unit", "V");   // "V"
 * \endcode
 *
 * An element has few attributes, so a search walks through them; there is no index. A value class: copies are
 * deep. A set that another one was constructed from by a move may be assigned to, copied and destroyed.
 */
class ZYCORE_EXPORT ZyXMLAttributeSet : public ZyPrivateObject
{
public:
    /** Walks over the attributes in order. */
    using iterator = std::vector<ZyXMLAttribute>::iterator;
    /** Walks over the attributes in order. */
    using const_iterator = std::vector<ZyXMLAttribute>::const_iterator;

    /** No attributes. */
    ZyXMLAttributeSet();
    ZyXMLAttributeSet(ZyXMLAttributeSet const & other);
    ZyXMLAttributeSet(ZyXMLAttributeSet && other) noexcept;
    ZyXMLAttributeSet & operator=(ZyXMLAttributeSet const & other);
    /** Leaves \a other empty. */
    ZyXMLAttributeSet & operator=(ZyXMLAttributeSet && other) noexcept;
    ~ZyXMLAttributeSet() override;

    /**
     * Gives the attribute of that name a new value, or appends a new attribute. An attribute that is there
     * keeps its place and its spelling.
     * \throws ZyInvalidXMLAttributeName a new name holds white space: "Invalid attribute name: " and the name
     */
    void addAttribute(ZyString const & name, ZyString const & value);
    /** The same with the name and the value of an attribute. */
    void addAttribute(ZyXMLAttribute const & attribute);
    /** Removes an attribute; the others keep their order. Nothing happens when there is none of that name. */
    void removeAttribute(ZyString const & name);
    /** Whether there is an attribute of that name. */
    bool hasAttribute(ZyString const & name) const;
    /** \throws ZyUnknownXMLAttributeException there is none: "Unknown attribute: " and the name */
    ZyXMLAttribute const & get(ZyString const & name) const;
    /** The value. \throws ZyUnknownXMLAttributeException there is none: "Unknown attribute: " and the name */
    ZyString readAttribute(ZyString const & name) const;
    /** The value, or \a defaultValue when there is none of that name. */
    ZyString readAttribute(ZyString const & name, ZyString const & defaultValue) const;
    /** The number of attributes. */
    unsigned int size() const;

    /** The attributes in order; whoever renames one through an iterator keeps the names different. */
    iterator begin();
    /** The end of the attributes. */
    iterator end();
    /** The attributes in order. */
    const_iterator begin() const;
    /** The end of the attributes. */
    const_iterator end() const;

private:
    friend class ZyXMLAttributeReading;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    Private & state();
    ZyXMLAttribute * find(ZyString const & name) const;

    ZyPrivatePtr<Private> m_d;
};

/**
 * A shared handle of a set: copies of the handle show the same attributes, and the last one takes the set
 * with it.
 *
 * Handles may be copied and dropped from several threads at once; the set itself has no protection.
 */
class ZYCORE_EXPORT ZyXMLAttributeSetPtr : public std::shared_ptr<ZyXMLAttributeSet>
{
public:
    /** No set. */
    ZyXMLAttributeSetPtr();
    /** Takes over a set that was made by `new`. */
    explicit ZyXMLAttributeSetPtr(ZyXMLAttributeSet * set);
    /** Shares a set. */
    explicit ZyXMLAttributeSetPtr(std::shared_ptr<ZyXMLAttributeSet> set);
    ZyXMLAttributeSetPtr(ZyXMLAttributeSetPtr const & other);
    ZyXMLAttributeSetPtr(ZyXMLAttributeSetPtr && other) noexcept;
    ZyXMLAttributeSetPtr & operator=(ZyXMLAttributeSetPtr const & other);
    ZyXMLAttributeSetPtr & operator=(ZyXMLAttributeSetPtr && other) noexcept;
    virtual ~ZyXMLAttributeSetPtr();

    /** The set. \throws ZyNullPointerException there is none; empty message. So do all operations below. */
    ZyXMLAttributeSet * operator->();
    ZyXMLAttributeSet const * operator->() const;
    /** The set. */
    ZyXMLAttributeSet & operator*();
    ZyXMLAttributeSet const & operator*() const;

    /** The attributes of the set in order. */
    ZyXMLAttributeSet::iterator begin();
    /** The end of the attributes. */
    ZyXMLAttributeSet::iterator end();
    /** The attributes of the set in order. */
    ZyXMLAttributeSet::const_iterator begin() const;
    /** The end of the attributes. */
    ZyXMLAttributeSet::const_iterator end() const;
};
