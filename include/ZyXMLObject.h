// SPDX-License-Identifier: BSD-3-Clause
// How a type is written as XML and read back: the template that hosts specialise, and the standard bindings.
// Types that stand on higher floors have their binding in their own header.
#pragma once

#include <ZyExport.h>
#include <ZyPoint.h>
#include <ZySharedPtr.h>

class ZyFilePath;
class ZyString;
class ZyTimeDuration;
class ZyTimePoint;
class ZyUUID;
class ZyVariant;
class ZyXMLElementWriter;
template <class T>
class ZyDeque;
template <class A, class B>
struct ZyPair;
template <class T>
struct ZyXMLLambdaDefinition;

/**
 * The XML form of T. There is no general one: each type has a specialisation with two static functions.
 *
 * \code
 * template <>
 * struct ZyXMLObject<Limit, void>
 * {
 *     // Puts a value into an element that the caller has opened and named.
 *     static void Write(ZyXMLElementWriter & element, Limit const & limit);
 *     // How such an element is read; the same pointer at every call.
 *     static ZySharedPtr<ZyXMLLambdaDefinition<Limit>> LoadRule();
 * };
 * \endcode
 *
 * Define `LoadRule` in a source file: the definition that it keeps is then one for the whole process.
 *
 * The second parameter is there for choosing specialisations and always void.
 *
 * The child elements that the standard bindings write lie in the namespace
 * "http://schemas.zycore.example/schemas/application/zytypes/"; on reading, namespaces play no part. An
 * element writer over a document tree takes name and namespace the other way round, so what writes child
 * elements (pairs, points, deques, variants, tables) cannot be read back from a document tree's file.
 *
 * \threads LoadRule may be called from any thread; what it gives is not changed any more
 */
template <class T, class = void>
struct ZyXMLObject;

/** Decimal text. Reading is that of ZyString::toInt: 0 without digits, clamped to 32 bits. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<int, void>
{
    static void Write(ZyXMLElementWriter & element, int const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<int>> LoadRule();          ///< reads such an element
};

/**
 * Base64 of the eight bytes, which keeps every bit.
 * \throws ZyInvalidParameterException from the rule: "Invalid string length"
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<double, void>
{
    static void Write(ZyXMLElementWriter & element, double const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<double>> LoadRule();          ///< reads such an element
};

/** The text; white space at its ends is lost in reading. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyString, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyString const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyString>> LoadRule(); ///< reads such an element
};

/** The stored text of the path. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyFilePath, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyFilePath const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyFilePath>> LoadRule(); ///< reads such an element
};

/** The text of the identifier. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyUUID, void>
{
    static void Write(ZyXMLElementWriter & element, ZyUUID const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyUUID>> LoadRule();          ///< reads such an element
};

/**
 * The nanoseconds, as decimal text.
 * \throws std::invalid_argument from the rule: there are no digits, "invalid stoll argument"
 * \throws std::out_of_range from the rule: the number does not fit, "stoll argument out of range"
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyTimeDuration, void>
{
    /** Puts \a value into \a element. */
    static void Write(ZyXMLElementWriter & element, ZyTimeDuration const & value);
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyTimeDuration>> LoadRule(); ///< reads such an element
};

/** The duration since the epoch of the clock, which is of use within one run of the system only. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyTimePoint, void>
{
    /** Puts \a value into \a element. */
    static void Write(ZyXMLElementWriter & element, ZyTimePoint const & value);
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyTimePoint>> LoadRule(); ///< reads such an element
};

/** Two children, "First" and "Second", each with the path as its text. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyPair<ZyFilePath, ZyFilePath>, void>
{
    using Value = ZyPair<ZyFilePath, ZyFilePath>;                         ///< what is bound
    static void Write(ZyXMLElementWriter & element, Value const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<Value>> LoadRule();          ///< reads such an element
};

/** Two children, "First" and "Second", each with its text. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyPair<ZyString, ZyString>, void>
{
    using Value = ZyPair<ZyString, ZyString>;                             ///< what is bound
    static void Write(ZyXMLElementWriter & element, Value const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<Value>> LoadRule();          ///< reads such an element
};

/**
 * Two children, "X" and "Y", each a decimal integer.
 *
 * \deliberate{point-carries-over} An element without one of the two keeps the coordinate of the element that the
 * same rule read before it: files of the suite leave out what does not change.
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyPoint, void>
{
    static void Write(ZyXMLElementWriter & element, ZyPoint const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyPoint>> LoadRule();          ///< reads such an element
};

/**
 * Two children, "X" and "Y", each Base64 of the eight bytes.
 *
 * \deliberate{real-point-carries-over} As with ZyPoint, a missing coordinate is that of the element that the same rule
 * read before.
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyPointD, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyPointD const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyPointD>> LoadRule(); ///< reads such an element
};

/** One child "Item" an entry, with decimal text. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyDeque<int>, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyDeque<int> const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyDeque<int>>> LoadRule(); ///< reads such an element
};

/** One child "Item" an entry, with Base64 of the eight bytes. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyDeque<double>, void>
{
    using Value = ZyDeque<double>;                                        ///< what is bound
    static void Write(ZyXMLElementWriter & element, Value const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<Value>> LoadRule();          ///< reads such an element
};

/** One child "Item" an entry, with the text. */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyDeque<ZyString>, void>
{
    using Value = ZyDeque<ZyString>;                                      ///< what is bound
    static void Write(ZyXMLElementWriter & element, Value const & value); ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<Value>> LoadRule();          ///< reads such an element
};

/**
 * One child, named after the kind of the value, in which the value stands as its own binding writes it:
 * "Boolean" ("true" or "false"), "Integer", "Double", "Size", "FilePath", "FilePathPair", "String" and
 * "StringPair". The empty variant writes no child, and an element without one reads as empty. Of several
 * children the last counts.
 *
 * \deliberate{all-but-true-is-false} A "Boolean" is true for the word "true", in any case, and false for every other text.
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyVariant, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyVariant const & value);                      ///< puts \a value into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyVariant>> LoadRule(); ///< reads such an element
};
