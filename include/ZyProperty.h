// SPDX-License-Identifier: BSD-3-Clause
// A value with a name.
#pragma once

#include <ZyExport.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyXMLObject.h>

/**
 * A value with a name: the element of ZyProperties.
 *
 * \code
 * ZyProperty const gain("Gain", 2.5);
 * gain.equalName(ZyProperty("GAIN"));   // true: names are equal without regard to case
 * \endcode
 *
 * A value class: copies are deep. Of a moved-from property the name is empty and the value Null.
 */
class ZYCORE_EXPORT ZyProperty
{
public:
    /** No name and no value. */
    ZyProperty();
    ZyProperty(ZyProperty const & other);
    ZyProperty(ZyProperty && other);
    /** The value is Null. */
    explicit ZyProperty(ZyString const & name);
    ZyProperty(ZyString const & name, ZyVariant const & value);
    /** Takes both over. */
    ZyProperty(ZyString && name, ZyVariant && value);
    virtual ~ZyProperty();
    ZyProperty & operator=(ZyProperty const & other);

    /** The name as it was spelled last. */
    ZyString const & name() const { return m_name; }
    /** The value, on loan. */
    ZyVariant const & value() const { return m_value; }
    /** Gives the property another name; sets that hold it do not notice. */
    void setName(ZyString const & name);
    /** The same, taking \a name over. */
    void setName(ZyString && name);
    /** Gives the property another value. */
    void setValue(ZyVariant const & value);
    /** The same, taking \a value over. */
    void setValue(ZyVariant && value);

    /** Whether the names are equal, without regard to case. */
    bool equalName(ZyProperty const & other) const;
    /** Whether the values are equal, as ZyVariant compares them. */
    bool equalValue(ZyProperty const & other) const;
    /** Whether names and values are equal. */
    bool operator==(ZyProperty const & other) const;
    bool operator!=(ZyProperty const & other) const;

private:
    ZyString m_name;
    ZyVariant m_value;
};

/** Two children, "Name" with the name as its text and "Value" with the value as its own binding writes it. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyProperty, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyProperty const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyProperty>> LoadRule(); ///< reads such an element
};
