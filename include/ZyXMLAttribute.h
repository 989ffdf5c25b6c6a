// SPDX-License-Identifier: BSD-3-Clause
// One attribute of an XML element.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class ZyString;

/**
 * A name and a value, both UTF-8 text.
 *
 * The name holds no white space; only a default-constructed attribute has an empty one without being asked
 * for it. Everything is a string here: numbers are made of values by the element readers.
 *
 * A value class: copies are deep, a moved-from attribute reads as a default-constructed one.
 */
class ZYCORE_EXPORT ZyXMLAttribute : public ZyPrivateObject
{
public:
    /** Empty name and empty value. */
    ZyXMLAttribute();
    /** \throws ZyInvalidXMLAttributeName the name holds white space: "Invalid attribute name: " and the name */
    ZyXMLAttribute(ZyString const & name, ZyString const & value);
    ZyXMLAttribute(ZyXMLAttribute const & other);
    ZyXMLAttribute(ZyXMLAttribute && other) noexcept;
    ZyXMLAttribute & operator=(ZyXMLAttribute const & other);
    ZyXMLAttribute & operator=(ZyXMLAttribute && other) noexcept;
    ~ZyXMLAttribute() override;

    /** The name, valid until it is set or the attribute goes. */
    ZyString const & name() const;
    /** The value, valid until it is set or the attribute goes. */
    ZyString const & value() const;
    /** \throws ZyInvalidXMLAttributeName the name holds white space, and nothing has changed: "Invalid attribute name: "
     * and the name */
    void setName(ZyString const & name);
    /** Any text is allowed. */
    void setValue(ZyString const & value);

    /**
     * Same name and same value.
     *
     * \deliberate{attribute-values-ignore-case} Values, too, are compared without regard to case, as strings are everywhere.
     */
    bool operator==(ZyXMLAttribute const & other) const;

private:
    friend class ZyXMLAttributeReading;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    Private & state();

    ZyPrivatePtr<Private> m_d;
};
