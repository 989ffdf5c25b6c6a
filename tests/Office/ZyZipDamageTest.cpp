// SPDX-License-Identifier: BSD-3-Clause
// Archives cut and altered in every place: exceptions of the tree or a result, but no crash, no end of
// waiting, and nothing outside of the target.
#include <ZyException.h>
#include <ZyZipArchive.h>
#include <ZyZipFile.h>
#include <ZyZipper.h>

#include "ZipSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace
{

class ZyZipDamage : public ZipTest
{
public:
    ZyZipDamage()
    {
        std::string words;
        for (int i = 0; i < 60; ++i) {
            words += "word" + std::to_string(i % 13);
        }
        m_entries = {{"one.txt", "first"}, {"sub\\two.txt", words}, {"three", ""}};
        makeArchive("whole.zip", m_entries);
        m_whole = text("whole.zip");
        std::filesystem::remove(directory() / "whole.zip");
    }

    std::string const & whole() const { return m_whole; }

    /** Reads and unpacks; returns whether both went through and nothing is missing or changed. */
    bool isIntact(std::string const & archive, ZyZipArchive::EntryNames form) const
    {
        return survives(archive, form) && m_intact;
    }

    /** Reads and unpacks; returns whether both went through. */
    bool survives(std::string const & archive, ZyZipArchive::EntryNames form) const
    {
        setText("x.zip", archive);
        bool const read = tries([&] { readAll(form); });
        bool const unpacked = tries([&] { ZyZipper::Unzip(path("x.zip"), path("out/"), form); });
        m_intact = unpacked && isWhole();
        std::filesystem::remove_all(directory() / "out");
        for (auto const & entry : std::filesystem::directory_iterator(directory())) {
            EXPECT_EQ(entry.path().filename(), "x.zip");
        }
        return read && unpacked;
    }

private:
    template <class Function>
    static bool tries(Function const & function)
    {
        try {
            function();
            return true;
        } catch (ZyException const & failure) {
            EXPECT_STRNE(failure.what(), "");
            return false;
        }
    }

    void readAll(ZyZipArchive::EntryNames form) const
    {
        ZyZipArchive archive(path("x.zip"), ZyZipArchive::Read, form);
        ZyDeque<ZyFilePath> const paths = archive.paths();
        for (ZyFilePath const & name : paths.std_deque()) {
            ZySharedPtr<ZyZipFile> const entry = archive.open(name, ZyZipArchive::DefaultLevel).lock();
            while (!entry->atEnd()) {
                entry->read(100);
            }
        }
    }

    bool isWhole() const
    {
        return files("out") == std::vector<std::string>{"one.txt", "sub/two.txt", "three"} &&
               text("out/one.txt") == m_entries[0].second && text("out/sub/two.txt") == m_entries[1].second &&
               text("out/three").empty();
    }

    Entries m_entries;
    std::string m_whole;
    bool mutable m_intact = false;
};

} // namespace

TEST_F(ZyZipDamage, IsNoneInTheWholeArchive)
{
    EXPECT_TRUE(isIntact(whole(), ZyZipArchive::Native));
    EXPECT_TRUE(isIntact(whole(), ZyZipArchive::Portable));
}

TEST_F(ZyZipDamage, OfTheLengthIsAnException)
{
    // Of the end record, whose last bytes are zero here, four can go unnoticed.
    for (std::size_t length = 0; length < whole().size() - 4; ++length) {
        EXPECT_FALSE(survives(whole().substr(0, length), ZyZipArchive::Native)) << length;
    }
    for (std::size_t length = whole().size() - 4; length < whole().size(); ++length) {
        EXPECT_TRUE(isIntact(whole().substr(0, length), ZyZipArchive::Native)) << length;
    }
}

TEST_F(ZyZipDamage, OfAMissingBeginningIsAnException)
{
    for (std::size_t cut = 1; cut < whole().find("PK\x01\x02"); ++cut) {
        EXPECT_FALSE(survives(whole().substr(cut), ZyZipArchive::Native)) << cut;
    }
}

TEST_F(ZyZipDamage, OfAnyByteIsBounded)
{
    for (std::size_t at = 0; at < whole().size(); ++at) {
        for (int const change : {0x01, 0xFF}) {
            std::string damaged = whole();
            damaged[at] = static_cast<char>(damaged[at] ^ change);
            survives(damaged, at % 2 == 0 ? ZyZipArchive::Native : ZyZipArchive::Portable);
        }
    }
}

TEST_F(ZyZipDamage, OfTheDataNeverPassesUnseen)
{
    std::size_t const begin = whole().find("PK\x03\x04", 1) + 30 + 11;
    std::size_t const end = whole().find("PK\x03\x04", begin);
    for (std::size_t at = begin; at < end; ++at) {
        std::string damaged = whole();
        damaged[at] = static_cast<char>(damaged[at] ^ 0xFF);
        // The last bits of a deflate stream may be padding.
        EXPECT_TRUE(!survives(damaged, ZyZipArchive::Native) || isIntact(damaged, ZyZipArchive::Native))
            << at;
    }
}

TEST_F(ZyZipDamage, OfRunsOfOnesAndZerosIsBounded)
{
    for (std::size_t at = 0; at < whole().size(); at += 2) {
        for (char const fill : {'\0', '\xff'}) {
            std::string damaged = whole();
            damaged.replace(at, std::min<std::size_t>(4, damaged.size() - at), 4, fill);
            survives(damaged, ZyZipArchive::Native);
        }
    }
}
