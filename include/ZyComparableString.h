// SPDX-License-Identifier: BSD-3-Clause
// One set of comparisons for everything that is text.
#pragma once

#include <ZyExport.h>

#include <type_traits>

/**
 * Abstract base of the string classes: comparison, written over the two primitives `operator[]` and `size`.
 *
 * All operators ignore case; a class that respects it replaces them (ZyCaseSensitiveString). The left side of
 * a comparison decides. A null `char const *` counts as the empty text.
 */
class ZYCORE_EXPORT ZyComparableString
{
public:
    /** Only the value 1 selects the comparison of bytes; any other value behaves as 0. */
    enum Comparison : int {
        CaseInsensitive = 0, ///< characters are equal when their tolower in the locale are equal
        CaseSensitive = 1    ///< bytes are compared as they stand
    };

    ZyComparableString() {}
    ZyComparableString(ZyComparableString const &) {}
    ZyComparableString & operator=(ZyComparableString const &) { return *this; }
    virtual ~ZyComparableString();

    /**
     * Orders two texts: negative, zero or positive.
     *
     * The characters, folded by the global locale of the moment or as bytes, are compared as signed 8-bit
     * numbers; of two texts that agree as far as both go the shorter is the lesser. Only the sign of the
     * result has a meaning.
     *
     * \deliberate{signed-bytes-order} Bytes from 128 on sort before ASCII: sorted files of the suite rest on it.
     *
     * \deliberate{comparison-takes-the-locale-of-the-moment} The locale is the global one of the moment, and not that
     * of a ZyString, which equal() and lessThan() take: two strings of different locales compare alike from
     * either side.
     */
    virtual int compare(ZyComparableString const & other, Comparison comparison) const;
    virtual bool operator==(char const * other) const;
    virtual bool operator==(ZyComparableString const & other) const;
    virtual bool operator!=(char const * other) const;
    virtual bool operator!=(ZyComparableString const & other) const;
    virtual bool operator<(ZyComparableString const & other) const;
    virtual bool operator<=(ZyComparableString const & other) const;
    virtual bool operator>(ZyComparableString const & other) const;
    virtual bool operator>=(ZyComparableString const & other) const;
    /** True when the whole text, blanks at its ends apart, is a number to strtod in the C locale. */
    virtual bool isDouble() const;
    /** True when the text, blanks at its ends apart, is the canonical decimal text of a 32-bit integer. */
    virtual bool isInteger() const;
    /** The character at a zero-based position, unchecked. */
    virtual char const & operator[](unsigned int position) const = 0;
    /** The number of bytes. */
    virtual unsigned int size() const = 0;
};

// The operators below only forward to the ones above. They stand outside of the class because a derived class
// would hide them, and literals on either side would then be compared as pointers.

template <class A, class B>
using ZyBothComparable = std::enable_if_t<std::is_convertible_v<A const *, ZyComparableString const *> &&
                                          std::is_convertible_v<B const *, ZyComparableString const *>>;

// An exact match for every pair of string classes: without it a newer language standard may turn a comparison
// round, and the wrong side would decide about case.
template <class A, class B, class = ZyBothComparable<A, B>>
bool operator==(A const & a, B const & b)
{
    return static_cast<ZyComparableString const &>(a).operator==(static_cast<ZyComparableString const &>(b));
}
template <class A, class B, class = ZyBothComparable<A, B>>
bool operator!=(A const & a, B const & b)
{
    return static_cast<ZyComparableString const &>(a).operator!=(static_cast<ZyComparableString const &>(b));
}

ZYCORE_EXPORT bool operator==(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator!=(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator<(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator<=(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator>(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator>=(char const * a, ZyComparableString const & b);
ZYCORE_EXPORT bool operator<(ZyComparableString const & a, char const * b);
ZYCORE_EXPORT bool operator<=(ZyComparableString const & a, char const * b);
ZYCORE_EXPORT bool operator>(ZyComparableString const & a, char const * b);
ZYCORE_EXPORT bool operator>=(ZyComparableString const & a, char const * b);
