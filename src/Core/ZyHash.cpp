// SPDX-License-Identifier: BSD-3-Clause
// Hashing of text without regard to case.
#include <ZyHash.h>

#include <Core/ZyCaseFold_p.h>
#include <Core/ZyString_p.h>

#include <cstdint>
#include <locale>

namespace
{
/** The hash of FNV-1a in 64 bits over folded characters. */
template <class Fold>
std::size_t foldedHash(std::string_view text, Fold const & fold)
{
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (char const character : text) {
        hash = (hash ^ fold(character)) * 0x100000001B3u;
    }
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

std::size_t hashOf(std::string_view text)
{
    return ZyCaseFold::withFold(std::locale(), [&](auto const & fold) { return foldedHash(text, fold); });
}
} // namespace

std::size_t ZyStringHash::operator()(ZyComparableString const & text) const
{
    std::string_view characters;
    if (ZyTextAccess::characters(text, characters)) {
        return hashOf(characters);
    }
    std::string copy; // of a host's class, through its primitives
    for (unsigned int i = 0, size = text.size(); i < size; ++i) {
        copy += text[i];
    }
    return hashOf(copy);
}

std::size_t ZyStringHash::operator()(char const * text) const
{
    return hashOf(zyCText(text));
}

bool ZyStringEqual::operator()(ZyComparableString const & a, ZyComparableString const & b) const
{
    return a.compare(b, ZyComparableString::CaseInsensitive) == 0;
}

bool ZyStringEqual::operator()(ZyComparableString const & a, char const * b) const
{
    return (*this)(a, ZyStringView(b));
}

bool ZyStringEqual::operator()(char const * a, ZyComparableString const & b) const
{
    return (*this)(ZyStringView(a), b);
}
