// SPDX-License-Identifier: BSD-3-Clause
// Looking into a string: equality and order under a chosen comparison, occurrences, characters.
#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"

#include <ZyException.h>
#include <ZyString.h>

#include <algorithm>
#include <string_view>

namespace
{
using Comparison = ZyComparableString::Comparison;

/** Calls \a work with the fold of a comparison in the string's own locale. */
template <class Work>
auto withFoldOf(ZyString const & text, Comparison comparison, Work && work)
{
    if (comparison == Comparison::CaseSensitive) {
        return work(ZyCaseFold::None());
    }
    return ZyCaseFold::withFold(ZyTextAccess::locale(text), work);
}

bool equalIn(ZyString const & owner, std::string_view a, std::string_view b, Comparison comparison)
{
    return a.size() == b.size() &&
           withFoldOf(owner, comparison, [&](auto const & fold) { return ZyCaseFold::equal(a, b, fold); });
}
} // namespace

bool ZyString::equal(ZyString const & other, Comparison comparison) const
{
    return equalIn(*this, d()->text, other.d()->text, comparison);
}

bool ZyString::equal(ZyStringView const & other, Comparison comparison) const
{
    return equalIn(*this, d()->text, ZyTextAccess::view(other), comparison);
}

bool ZyString::equal(char const * other, Comparison comparison) const
{
    return equalIn(*this, d()->text, zyCText(other), comparison);
}

bool ZyString::lessThan(ZyString const & other, Comparison comparison) const
{
    return withFoldOf(*this, comparison, [&](auto const & fold) {
        return ZyCaseFold::compare(d()->text, other.d()->text, 0, fold) < 0;
    });
}

bool ZyString::contains(ZyString const & part) const
{
    return contains(part, CaseInsensitive);
}

bool ZyString::contains(ZyString const & part, Comparison comparison) const
{
    std::string_view const text = d()->text;
    std::string_view wanted = part.d()->text;
    if (comparison == CaseSensitive) {
        wanted = zyCText(wanted.data());
        if (wanted.empty()) {
            return true;
        }
    } else if (wanted.empty()) {
        return !text.empty();
    }
    return withFoldOf(*this, comparison, [&](auto const & fold) {
        return ZyCaseFold::find(text, wanted, 0, fold) != std::string_view::npos;
    });
}

bool ZyString::startsWith(ZyString const & part) const
{
    return startsWith(part, CaseInsensitive);
}

bool ZyString::startsWith(ZyString const & part, Comparison comparison) const
{
    std::string_view const text = d()->text;
    std::string_view const wanted = part.d()->text;
    return wanted.size() <= text.size() && equalIn(*this, text.substr(0, wanted.size()), wanted, comparison);
}

bool ZyString::endsWith(ZyString const & part) const
{
    return endsWith(part, CaseInsensitive);
}

bool ZyString::endsWith(ZyString const & part, Comparison comparison) const
{
    std::string_view const text = d()->text;
    std::string_view const wanted = part.d()->text;
    return wanted.size() <= text.size() &&
           equalIn(*this, text.substr(text.size() - wanted.size()), wanted, comparison);
}

unsigned int ZyString::find(char character, unsigned int position) const
{
    std::size_t const found = d()->text.find(character, position);
    if (found == std::string::npos) {
        throw ZyNotFoundException("String::find");
    }
    return static_cast<unsigned int>(found);
}

unsigned int ZyString::findLastOf(char character) const
{
    std::size_t const found = d()->text.rfind(character);
    if (found == std::string::npos) {
        throw ZyNotFoundException("String::findLastOf");
    }
    return static_cast<unsigned int>(found);
}

bool ZyString::containsWhiteSpace() const
{
    std::locale const locale;
    auto const & facet = std::use_facet<std::ctype<char>>(locale);
    std::string const & text = d()->text;
    char const * const end = text.data() + text.size();
    return facet.scan_is(std::ctype_base::space, text.data(), end) != end;
}

bool ZyString::IsLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool ZyString::IsWhiteSpace(char character)
{
    std::locale const locale;
    return std::use_facet<std::ctype<char>>(locale).is(std::ctype_base::space, character);
}
