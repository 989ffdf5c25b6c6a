// SPDX-License-Identifier: BSD-3-Clause
// A set of named values.
#pragma once

#include <ZyExport.h>
#include <ZyIterator.h>
#include <ZyPrivateObject.h>
#include <ZyProperty.h>
#include <ZySharedPtr.h>
#include <ZyXMLObject.h>

#include <functional>
#include <initializer_list>

/**
 * Named values in the order in which their names came; a name is there once, whatever its case.
 *
 * \code
 * ZyProperties settings{ZyProperty("Gain", 2.5), ZyProperty("Unit", "dB")};
 * settings.add("GAIN", 3.0);          // replaces: the name is spelled "GAIN" from now on
 * settings.value("gain").asDouble();  // 3
 * \endcode
 *
 * \deliberate{properties-share} Copies are shallow: a set and its copy share their properties, so that a value which is
 * replaced in one of them is replaced in both. New names and clear() concern one set only. To part a set from
 * another one, add its properties one by one to a new set.
 *
 * Lookups walk the set from the front, which is quickest for the few names that a set has; the names may be
 * changed from outside, through the pointers that the set hands out.
 *
 * \threads as the standard containers; two sets that share properties count as one
 */
class ZYCORE_EXPORT ZyProperties
{
public:
    ZyProperties();
    /** A set of one. */
    explicit ZyProperties(ZyProperty const & property);
    /** Shares the properties of the other set. */
    ZyProperties(ZyProperties const & other);
    /** Adds each in turn, so a later one replaces an earlier one of the same name. */
    ZyProperties(std::initializer_list<ZyProperty> const & properties);
    ZyProperties(std::initializer_list<ZyProperty> && properties);
    virtual ~ZyProperties();
    /** Shares the properties of the other set, and lets go of its own. */
    ZyProperties & operator=(ZyProperties const & other);

    /**
     * Adds a copy of a property at the end. One of the same name, without regard to case, is overwritten
     * where it stands.
     *
     * \deliberate{last-spelling-stays} The spelling of the name is overwritten, too: a set shows it as it was last written.
     *
     * \return the property in the set
     */
    ZyWeakPtr<ZyProperty> add(ZyProperty const & property);
    ZyWeakPtr<ZyProperty> add(ZyString const & name, ZyVariant const & value);
    /** The same as add(). */
    ZyProperties & operator<<(ZyProperty const & property);
    /** Removes all properties; other sets keep theirs. */
    void clear();

    /** The property of a name, without regard to case; empty when there is none. */
    ZyWeakPtr<ZyProperty> get(ZyString const & name) const;
    /** The property of a name. \throws ZyNotFoundException "Item not found: " and the name */
    ZyProperty const & getReference(ZyString const & name) const;
    /** The value of a name. \throws ZyNotFoundException "Item not found: " and the name */
    ZyVariant const & value(ZyString const & name) const;
    /** The number of properties. */
    unsigned int size() const;

    /** The properties themselves, in order. Adding ends the validity of iterators, not that of pointers. */
    ZyIterator<ZyProperty> begin();
    ZyIterator<ZyProperty const> begin() const;
    /** The end of the properties. */
    ZyIterator<ZyProperty> end();
    /** The end of the properties. */
    ZyIterator<ZyProperty const> end() const;
    /** Visits the properties in order; \a visit may add properties, which are visited too. */
    void forEach(std::function<void(ZyProperty &)> const & visit);
    void forEach(std::function<void(ZyProperty const &)> const & visit) const;

    /** Whether both hold the same names, without regard to case, with the same values, in any order. */
    bool operator==(ZyProperties const & other) const;
    bool operator!=(ZyProperties const & other) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/**
 * One child "Property" a property, in order. Reading adds them in turn, so a repeated name keeps the place of
 * the first and the content of the last.
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyProperties, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyProperties const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyProperties>> LoadRule(); ///< reads such an element
};
