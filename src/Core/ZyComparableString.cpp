// SPDX-License-Identifier: BSD-3-Clause
// Comparison of everything that is text: through plain characters for our own classes, through the two
// primitives for a host's.
#include <ZyComparableString.h>

#include "Core/ZyCaseFold_p.h"
#include "Core/ZyString_p.h"

#include <algorithm>
#include <locale>
#include <string>
#include <string_view>

bool ZyTextAccess::characters(ZyComparableString const & text, std::string_view & result)
{
    // Addresses of the type information suffice: a class that is not recognised goes the slower way to the
    // same result.
    std::type_info const * const type = &typeid(text);
    if (type == &typeid(ZyString) || type == zyCaseSensitiveStringType) {
        result = view(static_cast<ZyString const &>(text));
        return true;
    }
    if (type == &typeid(ZyStringView)) {
        result = view(static_cast<ZyStringView const &>(text));
        return true;
    }
    return false;
}

namespace
{
using Comparison = ZyComparableString::Comparison;

/** The global locale is only asked for at the first byte that differs: taking it costs more than a short
 * comparison. */
int compareCharacters(std::string_view a, std::string_view b, Comparison comparison)
{
    std::size_t const size = std::min(a.size(), b.size());
    std::size_t const i = ZyCaseFold::mismatch(a.data(), b.data(), 0, size, ZyCaseFold::None());
    if (i == size || comparison == Comparison::CaseSensitive) {
        return ZyCaseFold::compare(a, b, i, ZyCaseFold::None());
    }
    return ZyCaseFold::withFold(std::locale(),
                                [&](auto const & fold) { return ZyCaseFold::compare(a, b, i, fold); });
}

/** The order without regard to case; our own classes need no virtual call for it. */
int order(ZyComparableString const & a, ZyComparableString const & b)
{
    std::string_view first;
    std::string_view second;
    if (ZyTextAccess::characters(a, first) && ZyTextAccess::characters(b, second)) {
        return compareCharacters(first, second, Comparison::CaseInsensitive);
    }
    return a.compare(b, Comparison::CaseInsensitive);
}

/** The characters of any text; \a copy holds those of a host's class. */
std::string_view charactersOf(ZyComparableString const & text, std::string & copy)
{
    std::string_view result;
    if (!ZyTextAccess::characters(text, result)) {
        for (unsigned int i = 0, size = text.size(); i < size; ++i) {
            copy += text[i];
        }
        result = copy;
    }
    return result;
}
} // namespace

ZyComparableString::~ZyComparableString() = default;

int ZyComparableString::compare(ZyComparableString const & other, Comparison comparison) const
{
    std::string_view mine;
    std::string_view theirs;
    if (ZyTextAccess::characters(*this, mine) && ZyTextAccess::characters(other, theirs)) {
        return compareCharacters(mine, theirs, comparison);
    }
    std::string copy;
    std::string otherCopy;
    return compareCharacters(charactersOf(*this, copy), charactersOf(other, otherCopy), comparison);
}

bool ZyComparableString::operator==(char const * other) const
{
    std::string_view mine;
    if (ZyTextAccess::characters(*this, mine)) {
        std::string_view const theirs = zyCText(other);
        return mine.size() == theirs.size() && compareCharacters(mine, theirs, CaseInsensitive) == 0;
    }
    return compare(ZyString(other), CaseInsensitive) == 0;
}

bool ZyComparableString::operator==(ZyComparableString const & other) const
{
    std::string_view mine;
    std::string_view theirs;
    if (ZyTextAccess::characters(*this, mine) && ZyTextAccess::characters(other, theirs)) {
        return mine.size() == theirs.size() && compareCharacters(mine, theirs, CaseInsensitive) == 0;
    }
    return compare(other, CaseInsensitive) == 0;
}

bool ZyComparableString::operator!=(char const * other) const
{
    return !(ZyComparableString::operator==(other));
}

bool ZyComparableString::operator!=(ZyComparableString const & other) const
{
    return !(ZyComparableString::operator==(other));
}

bool ZyComparableString::operator<(ZyComparableString const & other) const
{
    return order(*this, other) < 0;
}

bool ZyComparableString::operator<=(ZyComparableString const & other) const
{
    return order(*this, other) < 1;
}

bool ZyComparableString::operator>(ZyComparableString const & other) const
{
    return order(*this, other) > 0;
}

bool ZyComparableString::operator>=(ZyComparableString const & other) const
{
    return order(*this, other) >= 0;
}

bool ZyComparableString::isDouble() const
{
    std::string copy;
    return ZyString(std::string(charactersOf(*this, copy))).isDouble();
}

bool ZyComparableString::isInteger() const
{
    std::string copy;
    return ZyString(std::string(charactersOf(*this, copy))).isInteger();
}

bool operator==(char const * a, ZyComparableString const & b)
{
    return b == a;
}

bool operator!=(char const * a, ZyComparableString const & b)
{
    return b != a;
}

bool operator<(char const * a, ZyComparableString const & b)
{
    return static_cast<ZyComparableString const &>(ZyString(a)) < b;
}

bool operator<=(char const * a, ZyComparableString const & b)
{
    return static_cast<ZyComparableString const &>(ZyString(a)) <= b;
}

bool operator>(char const * a, ZyComparableString const & b)
{
    return static_cast<ZyComparableString const &>(ZyString(a)) > b;
}

bool operator>=(char const * a, ZyComparableString const & b)
{
    return static_cast<ZyComparableString const &>(ZyString(a)) >= b;
}

bool operator<(ZyComparableString const & a, char const * b)
{
    return a < static_cast<ZyComparableString const &>(ZyString(b));
}

bool operator<=(ZyComparableString const & a, char const * b)
{
    return a <= static_cast<ZyComparableString const &>(ZyString(b));
}

bool operator>(ZyComparableString const & a, char const * b)
{
    return a > static_cast<ZyComparableString const &>(ZyString(b));
}

bool operator>=(ZyComparableString const & a, char const * b)
{
    return a >= static_cast<ZyComparableString const &>(ZyString(b));
}
