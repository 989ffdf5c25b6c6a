// SPDX-License-Identifier: BSD-3-Clause
// The tagged value: the cell of every table, the value of every property.
#pragma once

#include <ZyException.h>
#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyPair.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>

#include <type_traits>

struct ZYCORE_PRIVATE ZyVariantAccess;

/**
 * One value of eight kinds, or nothing.
 *
 * Nothing is converted between kinds: a value read as the wrong kind is an error, and the only bridge between
 * the kinds is toString().
 *
 * \code
 * ZyVariant const value("abc");
 * value.type() == ZyVariant::String;
 * value == ZyVariant("ABC");            // true: text compares without regard to case
 * ZyVariant(1) == ZyVariant(1.0);       // false: another kind
 * \endcode
 *
 * A value class: copies are deep. A variant that was moved from by construction is Null; one that was moved
 * from by assignment keeps its type, and its value is valid, but not specified. Both may be assigned and
 * read.
 */
class ZYCORE_EXPORT ZyVariant
{
public:
    /** The kinds. Their numbers order values of different kinds. */
    enum Type : int {
        Null = 0,         ///< nothing
        Boolean = 1,      ///< bool
        FilePath = 2,     ///< ZyFilePath
        FilePathPair = 3, ///< ZyPair<ZyFilePath, ZyFilePath>
        Integer = 4,      ///< int
        Double = 5,       ///< double
        Size = 6,         ///< unsigned int
        String = 7,       ///< ZyString
        StringPair = 8    ///< ZyPair<ZyString, ZyString>
    };

    /** Of type Null. */
    ZyVariant();
    ZyVariant(bool value);
    ZyVariant(int value);
    ZyVariant(unsigned int value);
    ZyVariant(double const & value);
    /** Text up to the first NUL; the empty text for a null pointer. */
    ZyVariant(char const * value);
    ZyVariant(ZyString const & value);
    /** Takes the characters over; \a value is empty afterwards. */
    ZyVariant(ZyString && value);
    ZyVariant(ZyFilePath const & value);
    ZyVariant(ZyPair<ZyString, ZyString> const & value);
    ZyVariant(ZyPair<ZyFilePath, ZyFilePath> const & value);
    /** A pointer would become a Boolean. */
    template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_cv_t<T>, char>>>
    ZyVariant(T *) = delete;
    template <class T, class C>
    ZyVariant(T C::*) = delete;
    ZyVariant(ZyVariant const & other);
    /** Moves the value; \a other is Null afterwards. */
    ZyVariant(ZyVariant && other);
    /** Takes the place of another value, for the library's own tables: a host cannot make the argument. */
    explicit ZyVariant(ZyVariantAccess && value) noexcept;
    virtual ~ZyVariant();

    /** Becomes a copy; the argument may be a part of this value. */
    ZyVariant & operator=(ZyVariant const & other);
    /**
     * Moves the value.
     *
     * \deliberate{variant-move-keeps-the-type} \a other keeps its type, where construction by moving leaves it Null: only
     * the value is taken.
     */
    ZyVariant & operator=(ZyVariant && other);
    /**
     * From now on holds this value. One of the kind held already is assigned in place, any other replaces the
     * held one; the argument may be a part of this value.
     */
    void set(bool value);
    void set(int value);
    void set(unsigned int value);
    void set(double const & value);
    void set(char const * value);
    void set(ZyString const & value);
    void set(ZyString && value);
    void set(ZyFilePath const & value);
    void set(ZyPair<ZyString, ZyString> const & value);
    void set(ZyPair<ZyFilePath, ZyFilePath> const & value);
    template <class T, class = std::enable_if_t<!std::is_same_v<std::remove_cv_t<T>, char>>>
    void set(T *) = delete;
    template <class T, class C>
    void set(T C::*) = delete;
    /** The same as assigning. */
    void set(ZyVariant const & other);
    /** Moves the value; \a other keeps its type. */
    void set(ZyVariant && other);
    /** Exchanges two values without moving either. */
    void swap(ZyVariant & other) noexcept;

    /** What is held. */
    Type type() const { return m_type; }
    /** The value held. \throws ZyBadVariantAccessException "Bad variant access [requested = Boolean] [actual = ...]" */
    bool asBoolean() const;
    /** The value held. \throws ZyBadVariantAccessException the same with "Integer" */
    int asInteger() const;
    /** The value held. \throws ZyBadVariantAccessException the same with "Size" */
    unsigned int asSize() const;
    /** The value held, valid until this changes. \throws ZyBadVariantAccessException the same with "Double" */
    double const & asDouble() const;
    /** The value held, valid until this changes. \throws ZyBadVariantAccessException the same with "String" */
    ZyString const & asString() const;
    /** The value held, valid until this changes. \throws ZyBadVariantAccessException the same with "FilePath" */
    ZyFilePath const & asFilePath() const;
    /** The value held, valid until this changes. \throws ZyBadVariantAccessException the same with "StringPair" */
    ZyPair<ZyString, ZyString> const & asStringPair() const;
    /** The value held, valid until this changes. \throws ZyBadVariantAccessException the same with "FilePathPair" */
    ZyPair<ZyFilePath, ZyFilePath> const & asFilePathPair() const;

    /**
     * Orders two values: by type first, then by value. Never throws.
     *
     * Doubles that ZyMaths::Double::Equal calls equal are equal; text and paths compare without regard to
     * case; pairs by their first members, then by their second ones.
     *
     * \deliberate{variant-order-is-tolerant} This is no strict weak order: tolerant equality is not transitive, and NaN
     * and infinities are not equal to themselves. Sort with algorithms that bear that, such as
     * std::stable_sort.
     *
     * \return the difference of the types when they differ; otherwise -1, 0 or 1
     */
    int compare(ZyVariant const & other) const;
    bool operator==(ZyVariant const & other) const { return compare(other) == 0; }
    bool operator!=(ZyVariant const & other) const { return compare(other) != 0; }

    /** The value as text: "null", "true", decimal numbers, "%g" for doubles, pairs as "[first,second]". Never
     * throws but for lack of memory. */
    ZyString toString() const;

    /** The name of a type, as its enumerator is written; "Unknown" for any other number. */
    static char const * TypeString(Type type);
    /** The type of a name, compared without regard to case; Null for any other text. */
    static Type StringType(ZyString name);

private:
    friend struct ZyVariantAccess;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    template <class T>
    void assign(Type type, T && value);
    template <class T>
    T const & get(Type requested) const;

    ZyPrivatePtr<Private> m_d;
    Type m_type;
};

inline void swap(ZyVariant & a, ZyVariant & b) noexcept
{
    a.swap(b);
}

/** A variant was read as a kind that it does not hold. */
class ZYCORE_EXPORT ZyBadVariantAccessException : public ZyException
{
public:
    /** "Bad variant access [requested = " \a requested "] [actual = " \a actual "]", each by its name. */
    ZyBadVariantAccessException(ZyVariant::Type requested, ZyVariant::Type actual);

    char const * name() const override;
};
