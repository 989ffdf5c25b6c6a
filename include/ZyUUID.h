// SPDX-License-Identifier: BSD-3-Clause
// An identifier.
#pragma once

#include <ZyCaseSensitiveString.h>
#include <ZyExport.h>
#include <ZyString.h>

#include <type_traits>

class YString;

/**
 * An identifier, kept as text that is never parsed or checked: any text may serve.
 *
 * \code
 * ZyUUID const fresh;                       // a new, unique one
 * ZyUUID const known("limits of the editor");
 * known == ZyString("Limits of the editor");   // false: an identity respects case
 * \endcode
 *
 * A value class. Identifiers compare with case, whatever text stands beside them and on which side. A
 * moved-from identifier has an empty text.
 */
class ZYCORE_EXPORT ZyUUID
{
public:
    /** A new, globally unique identifier: 36 characters, lower case, with four hyphens. \threads any */
    ZyUUID();
    /** This very text. */
    ZyUUID(ZyString const & text);
    /** This very text. */
    ZyUUID(YString const & text);
    /** This very text; a null pointer is the empty one. */
    ZyUUID(char const * text);
    ZyUUID(ZyUUID const & other);
    ZyUUID(ZyUUID && other);
    virtual ~ZyUUID();

    ZyUUID & operator=(ZyUUID const & other);
    ZyUUID & operator=(ZyUUID && other);

    bool operator==(ZyUUID const & other) const;
    bool operator==(ZyString const & text) const;
    bool operator==(YString const & text) const;
    bool operator==(char const * text) const;
    bool operator!=(ZyUUID const & other) const;
    bool operator!=(ZyString const & text) const;
    bool operator!=(YString const & text) const;
    bool operator!=(char const * text) const;
    /** The order of the bytes. */
    bool operator<(ZyUUID const & other) const;

    /** The text, valid until the identifier changes. */
    ZyString const & toString() const;
    /** The same as toString(). */
    operator ZyString const &() const;
    /** The text up to the first NUL. */
    operator YString() const;

private:
    ZyCaseSensitiveString m_text;
};

/** Well-formed for text beside an identifier; neither is converted to get there. */
template <class Text, class Id>
using ZyTextBesideUUID =
    std::enable_if_t<std::is_base_of_v<ZyUUID, Id> && std::is_base_of_v<ZyComparableString, Text>, int>;

// An identity stays one when the sides are turned round, as a newer language standard may do by itself.

/** Equality with case, also where the text stands on the left. */
template <class Text, class Id, ZyTextBesideUUID<Text, Id> = 0>
bool operator==(Text const & text, Id const & id)
{
    return id.operator==(text);
}
template <class Text, class Id, ZyTextBesideUUID<Text, Id> = 0>
bool operator!=(Text const & text, Id const & id)
{
    return id.operator!=(text);
}
