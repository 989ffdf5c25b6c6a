// SPDX-License-Identifier: BSD-3-Clause
// Hashing for the standard library's and Qt's containers. Costs nothing where it is not included.
#pragma once

#include <ZyCaseSensitiveString.h>
#include <ZyComparableString.h>
#include <ZyExport.h>
#include <ZyUUID.h>
#include <ZyXMLPath.h>

#include <QHash>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

/**
 * Hashes text without regard to case, for containers whose key equality is ZyStringEqual.
 *
 * \code
 * std::unordered_map<ZyString, int, ZyStringHash, ZyStringEqual> ports;
 * \endcode
 *
 * Texts that ZyString's `==` calls equal have equal hashes. Both follow the global locale of the moment: a
 * container that outlives a change of it must be rehashed. This is why text without regard to case has no
 * `std::hash`: who wants it names it.
 */
struct ZYCORE_EXPORT ZyStringHash
{
    using is_transparent = void; ///< any kind of text may be looked up

    /** The hash of a text. */
    std::size_t operator()(ZyComparableString const & text) const;
    /** The characters up to the first NUL; none for a null pointer. */
    std::size_t operator()(char const * text) const;
};

/** Whether two texts are equal without regard to case, also where their own class says otherwise. */
struct ZYCORE_EXPORT ZyStringEqual
{
    using is_transparent = void; ///< any kind of text may be looked up

    /** Whether two texts are equal. */
    bool operator()(ZyComparableString const & a, ZyComparableString const & b) const;
    /** The same with C text; a null pointer is the empty text. */
    bool operator()(ZyComparableString const & a, char const * b) const;
    /** The same with C text; a null pointer is the empty text. */
    bool operator()(char const * a, ZyComparableString const & b) const;
};

namespace std
{
/** Hashes the bytes, as the class compares them. */
template <>
struct hash<ZyCaseSensitiveString>
{
    /** The hash of a text. */
    size_t operator()(ZyCaseSensitiveString const & text) const
    {
        return hash<string_view>()(text.toStdString());
    }
};

/** Hashes the bytes, as the class compares them. */
template <>
struct hash<ZyXMLPath>
{
    /** The hash of a path. */
    size_t operator()(ZyXMLPath const & path) const
    {
        return hash<string_view>()(path.toString().toStdString());
    }
};

/** Hashes the bytes of an identifier's text. */
template <>
struct hash<ZyUUID>
{
    /** The hash of an identifier. */
    size_t operator()(ZyUUID const & id) const { return hash<string_view>()(id.toString().toStdString()); }
};
} // namespace std

/** Hashes the bytes, for Qt's containers of case-sensitive text and what derives from it. */
template <class T, class = std::enable_if_t<std::is_base_of_v<ZyCaseSensitiveString, T>>>
uint qHash(T const & text)
{
    return qHashBits(text.toStdString().data(), text.toStdString().size());
}

/** Hashes the bytes, for Qt's containers. */
inline uint qHash(ZyXMLPath const & path)
{
    std::string const & text = path.toString().toStdString();
    return qHashBits(text.data(), text.size());
}

/** Hashes the bytes of an identifier's text, for Qt's containers. */
inline uint qHash(ZyUUID const & id)
{
    std::string const & text = id.toString().toStdString();
    return qHashBits(text.data(), text.size());
}
