// SPDX-License-Identifier: BSD-3-Clause
// What the zip tests share: a directory of their own, archives made by other means, and files as bytes.
#pragma once

#include <ZyFilePath.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

/** A fixture with an empty directory that goes with the test. */
class ZipTest : public testing::Test
{
public:
    using Entries = std::vector<std::pair<std::string, std::string>>;

    ZipTest();
    ZipTest(ZipTest const &) = delete;
    ZipTest & operator=(ZipTest const &) = delete;
    ~ZipTest() override;

    std::filesystem::path const & directory() const { return m_directory; }
    /** A path below the directory; a final slash is kept. */
    ZyFilePath path(std::string const & name) const;
    std::string text(std::string const & name) const;
    void setText(std::string const & name, std::string const & bytes) const;
    bool exists(std::string const & name) const;
    /** The files below a directory by their relative names with slashes, sorted. */
    std::vector<std::string> files(std::string const & name) const;

    /** An archive written by the zip library itself, with names and contents as they are given. */
    void makeArchive(std::string const & name, Entries const & entries) const;
    /** What another implementation, Python's, prints when it runs a script with the path of the archive. */
    std::string python(std::string const & script, std::string const & archive) const;

private:
    std::filesystem::path m_directory;
};

/** Replaces the only occurrence of a piece of bytes by another of the same size. */
std::string patched(std::string bytes, std::string const & from, std::string const & to);
