// SPDX-License-Identifier: BSD-3-Clause
// The loops over blocks, words and single characters against the plainest way of doing the same, at every
// length and place at which they hand over to each other.
#include "Core/ZyCaseFold_p.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <locale>
#include <string>

namespace
{
/** Letters of both cases, and the bytes beside them that a careless fold would take for letters. */
std::string text(std::size_t size)
{
    static constexpr char alphabet[] = "abcXYZ@[`{\xC1\xE1 019";
    std::string made;
    for (std::size_t i = 0; i < size; ++i) {
        made += alphabet[(i * 7 + i / 5) % (sizeof alphabet - 1)];
    }
    return made;
}

std::string otherCase(std::string made)
{
    for (char & c : made) {
        bool const letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        c = static_cast<char>(letter ? c ^ 32 : c);
    }
    return made;
}

std::size_t plainFind(std::string const & in, std::string const & part, std::size_t from)
{
    std::ctype<char> const & facet = std::use_facet<std::ctype<char>>(std::locale::classic());
    for (std::size_t i = from; i + part.size() <= in.size(); ++i) {
        std::size_t k = 0;
        while (k < part.size() && facet.tolower(in[i + k]) == facet.tolower(part[k])) {
            ++k;
        }
        if (k == part.size()) {
            return i;
        }
    }
    return std::string::npos;
}
} // namespace

TEST(ZyCaseFold, FoldsEveryByteOfAWordAsTheClassicLocaleDoes)
{
    std::ctype<char> const & facet = std::use_facet<std::ctype<char>>(std::locale::classic());
    for (int byte = 0; byte < 256; ++byte) {
        auto const c = static_cast<char>(byte);
        auto const folded = static_cast<unsigned char>(facet.tolower(c));
        EXPECT_EQ(ZyCaseFold::Classic()(c), folded) << byte;
        for (int place = 0; place < 8; ++place) {
            // Neighbours with all bits set must not carry into each other.
            std::uint64_t const around = ~(std::uint64_t(0xFF) << place * 8);
            std::uint64_t const word = around | std::uint64_t(static_cast<unsigned char>(c)) << place * 8;
            EXPECT_EQ(ZyCaseFold::Classic::word(word), around | std::uint64_t(folded) << place * 8) << byte;
        }
    }
}

TEST(ZyCaseFold, FindsADifferenceAtEveryPlaceOfEveryLength)
{
    for (std::size_t size = 0; size <= 80; ++size) {
        std::string const a = text(size);
        std::string const b = otherCase(a);
        EXPECT_EQ(ZyCaseFold::mismatch(a.data(), b.data(), 0, size, ZyCaseFold::Classic()), size);
        for (std::size_t place = 0; place < size; ++place) {
            std::string changed = b;
            changed[place] = '#';
            EXPECT_EQ(ZyCaseFold::mismatch(a.data(), changed.data(), 0, size, ZyCaseFold::Classic()), place);
            EXPECT_EQ(ZyCaseFold::mismatch(a.data(), changed.data(), place, size, ZyCaseFold::Classic()),
                      place);
        }
    }
}

TEST(ZyCaseFold, FindsEveryPartOfATextFromEveryPlace)
{
    std::string const in = text(90);
    for (std::size_t size = 1; size <= 40; size += size < 12 ? 1 : 9) {
        for (std::size_t start = 0; start + size <= in.size(); start += 3) {
            std::string const part = otherCase(in.substr(start, size));
            for (std::size_t from = 0; from <= in.size(); from += 11) {
                EXPECT_EQ(ZyCaseFold::find(in, part, from, ZyCaseFold::Classic()), plainFind(in, part, from));
                EXPECT_EQ(ZyCaseFold::find(in, part, from, ZyCaseFold::None()), in.find(part, from));
            }
        }
    }
    EXPECT_EQ(ZyCaseFold::find(in, "not there", 0, ZyCaseFold::Classic()), std::string::npos);
    EXPECT_EQ(ZyCaseFold::find("short", "longer than that", 0, ZyCaseFold::Classic()), std::string::npos);
}

TEST(ZyCaseFold, TellsEveryPairOfBytesInAWordAsTheFoldDoes)
{
    ZyCaseFold::Classic const fold;
    for (unsigned a = 0; a < 256; ++a) {
        for (unsigned b = 0; b < 256; ++b) {
            bool const same = fold(static_cast<char>(a)) == fold(static_cast<char>(b));
            for (unsigned place : {0u, 3u, 7u}) {
                // Neighbours that differ in case must not carry into each other.
                std::uint64_t const mask = ~(std::uint64_t(0xFF) << place * 8);
                std::uint64_t const wordA = (0x5A5A5A5A5A5A5A5Au & mask) | std::uint64_t(a) << place * 8;
                std::uint64_t const wordB = (0x7A7A7A7A7A7A7A7Au & mask) | std::uint64_t(b) << place * 8;
                ASSERT_EQ(ZyCaseFold::Classic::sameWord(wordA, wordB), same) << a << " " << b;
            }
            ASSERT_EQ(ZyCaseFold::None::sameWord(a, b), a == b);
        }
    }
}

TEST(ZyCaseFold, EqualLooksAtEveryPlaceOfEveryLength)
{
    ZyCaseFold::Classic const fold;
    for (std::size_t size = 0; size < 80; ++size) {
        std::string const made = text(size);
        std::string const other = otherCase(made);
        EXPECT_TRUE(ZyCaseFold::equal(made, other, fold)) << size;
        EXPECT_EQ(ZyCaseFold::equal(made, other, ZyCaseFold::None()), made == other) << size;
        EXPECT_TRUE(ZyCaseFold::equal(made, made, ZyCaseFold::None())) << size;
        EXPECT_FALSE(ZyCaseFold::equal(made + "x", other, fold)) << size;
        for (std::size_t place = 0; place < size; ++place) {
            std::string changed = other;
            changed[place] = static_cast<char>(changed[place] ^ 1);
            ASSERT_FALSE(ZyCaseFold::equal(made, changed, fold)) << size << " " << place;
            ASSERT_FALSE(ZyCaseFold::equal(made, changed, ZyCaseFold::None())) << size << " " << place;
        }
    }
}
