// SPDX-License-Identifier: BSD-3-Clause
// Comparing, searching and trimming without regard to case, fast for the classic locale and right for every
// other. The inner loops have fixed lengths and no branches, so that the compiler turns them into vector
// code.
#pragma once

#include <QtAlgorithms>
#include <QtEndian>

#include <cstddef>
#include <cstdint>
#include <locale>
#include <string_view>

namespace ZyCaseFold
{
/** Bytes as they stand. */
struct None
{
    static constexpr bool vectorised = true;
    unsigned char operator()(char c) const { return static_cast<unsigned char>(c); }
    static std::uint64_t word(std::uint64_t bytes) { return bytes; }
    static bool sameWord(std::uint64_t a, std::uint64_t b) { return a == b; }
};

/** What the classic locale's tolower does. */
struct Classic
{
    static constexpr bool vectorised = true;
    unsigned char operator()(char c) const
    {
        auto const u = static_cast<unsigned char>(c);
        return static_cast<unsigned char>(u + (static_cast<unsigned char>(u - 'A') < 26 ? 32 : 0));
    }
    /** Whether no other character folds to the same. */
    static bool isAlone(char c) { return static_cast<unsigned char>((c | 32) - 'a') >= 26; }
    /** Eight bytes at once: the top bit of each tells whether it is a capital, and becomes the bit that folds
     * it. */
    static std::uint64_t word(std::uint64_t bytes)
    {
        constexpr std::uint64_t each = 0x0101010101010101u;
        std::uint64_t const low = bytes & (each * 0x7F);
        std::uint64_t const fromA = low + each * (0x80 - 'A');
        std::uint64_t const beyondZ = low + each * (0x7F - 'Z');
        return bytes | ((fromA & ~beyondZ & ~bytes & (each * 0x80)) >> 2);
    }
    /** Whether eight bytes fold to the same: they differ in nothing but the bit of the case, and that in
     * letters. */
    static bool sameWord(std::uint64_t a, std::uint64_t b)
    {
        constexpr std::uint64_t each = 0x0101010101010101u;
        std::uint64_t const difference = a ^ b;
        if ((difference & ~(each * 0x20)) != 0) {
            return false;
        }
        std::uint64_t const low = (a | (each * 0x20)) & (each * 0x7F);
        std::uint64_t const fromA = low + each * (0x80 - 'a');
        std::uint64_t const beyondZ = low + each * (0x7F - 'z');
        return ((difference << 2) & ~(fromA & ~beyondZ & ~a)) == 0;
    }
};

/** The tolower of any locale, also of a facet that a host has made. */
class Facet
{
public:
    static constexpr bool vectorised = false;
    explicit Facet(std::locale const & locale) : m_facet(&std::use_facet<std::ctype<char>>(locale)) {}
    unsigned char operator()(char c) const { return static_cast<unsigned char>(m_facet->tolower(c)); }

private:
    std::ctype<char> const * m_facet;
};

/** Whether a locale folds and classifies as the classic one; asking the library for that one each time costs
 * more. */
inline bool isClassic(std::locale const & locale)
{
    static std::locale const & classic = std::locale::classic();
    return locale == classic;
}

/** Calls \a work with the fold of a locale. */
template <class Work>
auto withFold(std::locale const & locale, Work && work)
{
    if (isClassic(locale)) {
        return work(Classic());
    }
    return work(Facet(locale));
}

inline int difference(unsigned char a, unsigned char b)
{
    return static_cast<int>(static_cast<signed char>(a)) - static_cast<int>(static_cast<signed char>(b));
}

template <std::size_t N, class Fold>
bool blocksDiffer(char const * a, char const * b, Fold const & fold)
{
    unsigned char any = 0;
    for (std::size_t i = 0; i < N; ++i) {
        any = static_cast<unsigned char>(any | (fold(a[i]) ^ fold(b[i])));
    }
    return any != 0;
}

/** Eight characters folded, the first in the lowest byte on every machine. */
template <class Fold>
std::uint64_t foldedWord(char const * from)
{
    return Fold::word(qFromLittleEndian<quint64>(from));
}

/**
 * The first position below \a size from \a from on at which the folded characters differ; \a size when none
 * does. What stands in front of \a from is known to be equal.
 */
template <class Fold>
std::size_t mismatch(char const * a, char const * b, std::size_t from, std::size_t size, Fold const & fold)
{
    std::size_t i = from;
    if constexpr (Fold::vectorised) {
        while (i + 32 <= size && !blocksDiffer<32>(a + i, b + i, fold)) {
            i += 32;
        }
        // The last word may reach back over characters that have been compared already.
        for (; i < size && size >= 8; i += 8) {
            i = i + 8 <= size ? i : size - 8;
            std::uint64_t const difference = foldedWord<Fold>(a + i) ^ foldedWord<Fold>(b + i);
            if (difference != 0) {
                return i + qCountTrailingZeroBits(quint64(difference)) / 8;
            }
        }
    }
    while (i < size && fold(a[i]) == fold(b[i])) {
        ++i;
    }
    return i;
}

/** Orders two texts: the difference at the first position at which they differ, then their sizes. */
template <class Fold>
int compare(std::string_view a, std::string_view b, std::size_t from, Fold const & fold)
{
    std::size_t const size = a.size() < b.size() ? a.size() : b.size();
    std::size_t const i = mismatch(a.data(), b.data(), from, size, fold);
    if (i < size) {
        return difference(fold(a[i]), fold(b[i]));
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

/** A text without the white space at its ends. */
inline std::string_view trimmed(std::string_view text, std::locale const & locale)
{
    char const * begin = text.data();
    char const * end = begin + text.size();
    auto const trim = [&](auto const & isSpace) {
        while (begin != end && isSpace(*begin)) {
            ++begin;
        }
        while (begin != end && isSpace(end[-1])) {
            --end;
        }
    };
    if (isClassic(locale)) {
        trim([](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
    } else {
        auto const & facet = std::use_facet<std::ctype<char>>(locale);
        trim([&](char c) { return facet.is(std::ctype_base::space, c); });
    }
    return std::string_view(begin, static_cast<std::size_t>(end - begin));
}

/** Whether two texts of one size that is 8 to 64 are equal; the last word may reach back. */
template <class Fold>
bool sameWords(char const * a, char const * b, std::size_t size)
{
    auto const same = [&](std::size_t i) {
        return Fold::sameWord(qFromLittleEndian<quint64>(a + i), qFromLittleEndian<quint64>(b + i));
    };
    std::size_t i = 0;
    while (i + 8 < size && same(i)) {
        i += 8;
    }
    return i + 8 >= size && same(size - 8);
}

template <class Fold>
bool equal(std::string_view a, std::string_view b, Fold const & fold)
{
    if (a.size() != b.size()) {
        return false;
    }
    if constexpr (Fold::vectorised) {
        if (a.size() >= 8 && a.size() <= 64) {
            return sameWords<Fold>(a.data(), b.data(), a.size());
        }
    }
    return mismatch(a.data(), b.data(), 0, a.size(), fold) == a.size();
}

/** Whether one of N places may begin an occurrence, told by its first and last character. */
template <std::size_t N, class Fold>
bool anyCandidate(char const * firsts, char const * lasts, unsigned char first, unsigned char last,
                  Fold const & fold)
{
    unsigned char any = 0;
    for (std::size_t i = 0; i < N; ++i) {
        auto const differs = static_cast<unsigned char>((fold(firsts[i]) ^ first) | (fold(lasts[i]) ^ last));
        any = static_cast<unsigned char>(any | (differs == 0 ? 1 : 0));
    }
    return any != 0;
}

/** The first place in [from, to) at which \a isAt says so; \a to when there is none. */
template <class IsAt>
std::size_t firstPlace(std::size_t from, std::size_t to, IsAt const & isAt)
{
    std::size_t i = from;
    while (i < to && !isAt(i)) {
        ++i;
    }
    return i;
}

/** The first occurrence of \a part at or behind \a from; npos when there is none. \a part is not empty. */
template <class Fold>
std::size_t find(std::string_view text, std::string_view part, std::size_t from, Fold const & fold)
{
    if (part.size() > text.size()) {
        return std::string_view::npos;
    }
    std::size_t const places = text.size() - part.size() + 1;
    unsigned char const first = fold(part.front());
    unsigned char const last = fold(part.back());
    char const * const firsts = text.data();
    char const * const lasts = firsts + part.size() - 1;
    auto const hit = [&](std::size_t i) {
        return fold(firsts[i]) == first && fold(lasts[i]) == last &&
               mismatch(firsts + i, part.data(), 0, part.size(), fold) == part.size();
    };
    std::size_t i = from;
    if constexpr (Fold::vectorised) {
        if (part.size() == 1 && Fold::isAlone(part.front())) {
            return text.find(part.front(), from);
        }
        for (; i + 32 <= places; i += 32) {
            if (!anyCandidate<32>(firsts + i, lasts + i, first, last, fold)) {
                continue;
            }
            std::size_t const found = firstPlace(i, i + 32, hit);
            if (found < i + 32) {
                return found;
            }
        }
    }
    i = firstPlace(i, places, hit);
    return i < places ? i : std::string_view::npos;
}

/** As they stand, characters are found quickest by the first of them. */
inline std::size_t find(std::string_view text, std::string_view part, std::size_t from, None const &)
{
    return text.find(part, from);
}
} // namespace ZyCaseFold
