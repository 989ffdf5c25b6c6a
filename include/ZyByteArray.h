// SPDX-License-Identifier: BSD-3-Clause
// A plain buffer of bytes.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

/**
 * Bytes in a buffer of their own, always followed by a NUL, so that they can be handed on as text.
 *
 * A value class: copies are deep. A negative length counts as 0.
 *
 * \throws std::bad_alloc from everything that allocates; the array is then unchanged
 */
class ZYCORE_EXPORT ZyByteArray
{
public:
    /** No bytes. */
    ZyByteArray();
    /** \a length bytes that are not set. */
    explicit ZyByteArray(int length);
    /** Copies \a length bytes; with a null pointer they are not set. */
    ZyByteArray(int length, char const * data);
    ZyByteArray(ZyByteArray const & other);
    virtual ~ZyByteArray();
    /** Takes a buffer of the other one's length and copies. */
    ZyByteArray & operator=(ZyByteArray const & other);

    /** \throws ZyIndexOutOfBoundsException "Index out of bounds [index,length]" */
    char & operator[](int index);
    char operator[](int index) const;
    /** The bytes and the NUL behind them, valid until the array is resized, assigned to or destroyed. Never
     * null. */
    char const * data() const;
    /** The number of bytes, without the NUL. */
    int length() const;
    /**
     * Sets the length.
     *
     * \deliberate{resize-discards} The old bytes do not survive, whatever the new length; the new ones are not set.
     */
    void resize(int length);

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
