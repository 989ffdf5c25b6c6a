// SPDX-License-Identifier: BSD-3-Clause
// The place of an element in a document.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>

#include <initializer_list>

/**
 * The names of elements from the root down, joined by "/": what a rule or a builder is bound to.
 *
 * \code
 * ZyXMLPath const path{"Limits", "Limit"};
 * path.toString();                         // Limits/Limit
 * path.pushed("Name") == "Limits/Limit/Name"; // true
 * \endcode
 *
 * Local names only, as they are written: namespaces play no part, and case does. Texts are taken as they
 * stand; one with a "/" too many is the path of no element.
 *
 * A value class: copies are deep, a moved-from path is empty and usable.
 */
class ZYCORE_EXPORT ZyXMLPath : public ZyPrivateObject
{
public:
    /** The empty path, which is that of no element. */
    ZyXMLPath();
    /** A null pointer is the empty path. */
    ZyXMLPath(char const * path);
    ZyXMLPath(ZyString const & path);
    /** The names joined by "/"; none give the empty path. */
    ZyXMLPath(std::initializer_list<ZyString> names);
    ZyXMLPath(ZyXMLPath const & other);
    ZyXMLPath(ZyXMLPath && other);
    ~ZyXMLPath() override;

    ZyXMLPath & operator=(ZyXMLPath const & other);
    ZyXMLPath & operator=(ZyXMLPath && other);

    /** The text; valid as long as the path is unchanged. */
    ZyString const & toString() const;
    /** Goes one level down: appends "/" and \a name; an empty path becomes \a name. */
    ZyXMLPath & push(ZyString const & name);
    /** A copy that went one level down. */
    [[nodiscard]] ZyXMLPath pushed(ZyString const & name) const;

    /** Compare the bytes of the texts. */
    bool operator==(ZyXMLPath const & other) const;
    bool operator!=(ZyXMLPath const & other) const;
    /** The order of ZyCaseSensitiveString. */
    bool operator<(ZyXMLPath const & other) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
