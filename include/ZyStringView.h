// SPDX-License-Identifier: BSD-3-Clause
// A slice of characters that somebody else owns.
#pragma once

#include <ZyComparableString.h>
#include <ZyExport.h>
#include <ZyPrivateObject.h>

class QString;
class ZyString;

/**
 * A pointer to characters and a length; the result of every substring operation. Compares with every other
 * text.
 *
 * Valid as long as the string or array it was made from stays unchanged; the characters need not be
 * terminated. A view that was moved from may only be destroyed or assigned to.
 */
class ZYCORE_EXPORT ZyStringView : public ZyComparableString
{
public:
    /** A null pointer and the length 0. */
    ZyStringView();
    /** The characters up to the first NUL; none for a null pointer. */
    ZyStringView(char const * text);
    /** The whole string. */
    ZyStringView(ZyString const & text);
    /**
     * At most \a length characters from \a position on.
     * \throws ZyIndexOutOfBoundsException \a position is beyond the size: "Index out of bounds [position,size]"
     */
    ZyStringView(ZyString const & text, unsigned int position, unsigned int length);
    ZyStringView(ZyStringView const & other);
    ZyStringView(ZyStringView && other);
    ~ZyStringView() override;
    ZyStringView & operator=(ZyStringView const & other);
    /** Swaps the two views; the characters stay where they are. */
    ZyStringView & operator=(ZyStringView && other);

    char const & operator[](unsigned int position) const override;
    unsigned int size() const override;
    /**
     * The last position of the character, or 4294967295 when it is not there.
     *
     * \deliberate{view-tells-absence-by-a-number} ZyString::findLastOf throws instead: views serve code that takes paths
     * apart, where a missing character is nothing unusual.
     */
    unsigned int findLastOf(char character) const;
    /**
     * The characters from \a position on; none at the size.
     * \throws ZyIndexOutOfBoundsException \a position is beyond the size: "Index out of bounds [position,size]"
     */
    ZyStringView substring(unsigned int position) const;
    /** At most \a length characters from \a position on. \throws ZyIndexOutOfBoundsException the same */
    ZyStringView substring(unsigned int position, unsigned int length) const;
    /** As ZyString::toInt. */
    int toInt() const;
    /** A copy of exactly the viewed characters. */
    ZyString toString() const;
    /** The characters up to the first NUL, decoded as UTF-8. */
    QString toQString() const;

private:
    friend struct ZyTextAccess;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
