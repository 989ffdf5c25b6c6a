// SPDX-License-Identifier: BSD-3-Clause
// The clipboard of the desktop.
#pragma once

#include <ZyExport.h>
#include <ZyString.h>

template <class T>
class ZyDeque;

/**
 * The clipboard of the desktop: text, and data of named types.
 *
 * \code
 * ZyClipboard::WriteText(ZyDeque<ZyClipboard::Item>{{"text/plain", "a\tb"}, {"text/html", "<b>a</b> b"}});
 * ZyClipboard::ReadText("text/html");   // <b>a</b> b
 * \endcode
 *
 * Every operation throws ZyNoClipboardException "No clipboard available" where there is no QGuiApplication.
 * Types are MIME types; upper and lower case of one differ.
 *
 * What is written replaces all that was there. Other programs ask for it while this one handles its events;
 * on some desktops it is gone when this program ends.
 *
 * \threads the thread of the user interface
 */
class ZYCORE_EXPORT ZyClipboard
{
public:
    /** Data under a type. */
    struct Item
    {
        /** Whether type and data are equal, byte for byte. */
        bool operator==(Item const & other) const
        {
            return mimeType.equal(other.mimeType, ZyComparableString::CaseSensitive) &&
                   data.equal(other.data, ZyComparableString::CaseSensitive);
        }

        ZyString mimeType; ///< the type, "text/html"
        ZyString data;     ///< the bytes, up to the first NUL
    };

    /** The text; empty when there is none. */
    static ZyString ReadText();
    /**
     * The bytes under a type as they are, NUL included; nothing is decoded.
     * \throws ZyInvalidMimeDataException "No MIME data of given type available: " and \a mimeType
     */
    static ZyString ReadText(ZyString const & mimeType);
    /** Offers a text: UTF-8, up to the first NUL. */
    static void WriteText(ZyString const & text);
    /**
     * Offers data under one type.
     *
     * \deliberate{clipboard-data-first} The data comes before its type, in an Item the type before its data.
     * \deliberate{clipboard-data-ends-at-nul} Data ends at its first NUL here, where reading gives all bytes of what
     * another program has put there.
     */
    static void WriteText(ZyString const & data, ZyString const & mimeType);
    /**
     * Offers data under several types at once; of two items of one type the later one counts. No items empty
     * the clipboard.
     */
    static void WriteText(ZyDeque<Item> const & items);
};
