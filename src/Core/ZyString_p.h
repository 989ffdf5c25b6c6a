// SPDX-License-Identifier: BSD-3-Clause
// The state of the string classes, and the road to their characters for our own hot code.
#pragma once

#include <ZyString.h>
#include <ZyStringView.h>

#include <locale>
#include <string>
#include <string_view>
#include <typeinfo>

class ZyString::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(std::string && characters) : text(std::move(characters)) {}
    explicit Private(std::string_view characters) : text(characters) {}
    Private(std::string && characters, std::locale const & place) : text(std::move(characters)), locale(place)
    {}

    std::string text;
    std::locale locale; ///< the global locale of the construction
};

class ZyStringView::Private : public ZyPrivateObject
{
public:
    Private() = default;
    explicit Private(std::string_view characters) : text(characters) {}

    std::string_view text;
};

/**
 * The type of case-sensitive strings, which keep the primitives of ZyString. Defined with that class: the
 * comparison stands below it and must not know its header.
 */
extern std::type_info const * const zyCaseSensitiveStringType;

/** Characters without a virtual call for each of them. */
struct ZyTextAccess
{
    static std::string_view view(ZyString const & text) { return text.d()->text; }
    static std::string_view view(ZyStringView const & text)
    {
        return text.d() ? text.d()->text : std::string_view();
    }
    static std::locale const & locale(ZyString const & text) { return text.d()->locale; }
    static ZyStringView slice(std::string_view characters)
    {
        ZyStringView result;
        set(result, characters);
        return result;
    }
    /** Lets a view that has not been moved from point at other characters. */
    static void set(ZyStringView & view, std::string_view characters) { view.d()->text = characters; }
    static void set(ZyString & text, std::string_view characters) { text.d()->text = characters; }
    /**
     * Gives the characters of a text that is exactly of one of our own classes. A host's class may have
     * replaced the primitives, and is asked through them.
     */
    static bool characters(ZyComparableString const & text, std::string_view & result);
};

/** The C text of a literal or an argument; empty for a null pointer. */
inline std::string_view zyCText(char const * text)
{
    return text ? std::string_view(text) : std::string_view();
}
