// SPDX-License-Identifier: BSD-3-Clause
// The icons of the process, each loaded once.
#pragma once

#include <ZyExport.h>
#include <ZyFileType.h>
#include <ZyPrivateObject.h>

class QIcon;
class ZyIcon;
class ZyString;

/**
 * The icons of the process: an image is loaded when its name is asked for the first time, and kept.
 *
 * \code
 * item.setIcon(ZyIconManager::Get(ZyFileType(path)));
 * \endcode
 *
 * A name that leads to no image gives a null icon, and is kept as well: the file is not looked for again.
 * Before there is a QGuiApplication images cannot be loaded; every name gives a null icon then, and the same
 * object has its image at the first call after the application was made.
 *
 * Names are found without regard to case. Looking one up takes a comparison for each icon that is there.
 *
 * \threads the thread of the user interface
 */
class ZYCORE_EXPORT ZyIconManager
{
public:
    ZyIconManager(ZyIconManager const &) = delete;
    ZyIconManager & operator=(ZyIconManager const &) = delete;
    virtual ~ZyIconManager();

    /**
     * The icon of a name, which is what QIcon takes: a file name or a resource path, UTF-8. A path does not
     * choose between this form and that of a file's kind by itself: say Get(path.toString()) or
     * Get(ZyFileType(path)).
     *
     * \return a reference that stays valid until the library is unloaded
     */
    static QIcon const & Get(ZyString const & name);
    /** By its name. */
    static QIcon const & Get(ZyIcon const & icon);
    /** The icon of a kind of file. */
    static QIcon const & Get(ZyFileType const & type);
    /** The same. */
    static QIcon const & Get(ZyFileType::Type type);
    /** How many names have been asked for. */
    static unsigned int NumberIcons();

private:
    ZyIconManager();

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    ZYCORE_PRIVATE static ZyIconManager & Get();

    ZyPrivatePtr<Private> m_d;
};
