// SPDX-License-Identifier: BSD-3-Clause
// The name of an icon, as a value.
#pragma once

#include <ZyExport.h>
#include <ZyString.h>

class QIcon;

/**
 * The name of an icon: a file, or a resource such as ":/GraphIcon.png". The image is not touched until icon()
 * asks for it, so that tables of icons can be made where there is no desktop.
 *
 * \code
 * ZyIcon const open(":/open.png");   // no image is loaded
 * action.setIcon(open);              // here it is, once for the whole process
 * \endcode
 *
 * \threads a value: safe where nobody writes; icon() belongs to the thread of the user interface
 */
class ZYCORE_EXPORT ZyIcon
{
public:
    /** The empty name, which leads to no image. */
    ZyIcon();
    /** \a name is what QIcon takes: a file name, in the system's spelling, or a resource path; UTF-8. */
    ZyIcon(ZyString const & name);
    ZyIcon(ZyString && name);
    ZyIcon(ZyIcon const & other);
    virtual ~ZyIcon();

    ZyIcon & operator=(ZyIcon const & other);

    /** The name as it was given. */
    ZyString const & name() const;
    /**
     * Whether the names are equal.
     *
     * \deliberate{icon-names-without-case} Names are compared as all text is, without regard to case, also where two
     * files differ in nothing else: the first one that was asked for stands for both.
     */
    bool operator==(ZyIcon const & other) const;
    /** Whether the names differ. */
    bool operator!=(ZyIcon const & other) const { return !(*this == other); }

    /** As ZyIconManager::Get() of the name; valid until the library is unloaded. */
    QIcon const & icon() const;
    /** The same as icon(). */
    operator QIcon const &() const;

private:
    ZyString m_name;
};
