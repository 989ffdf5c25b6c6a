// SPDX-License-Identifier: BSD-3-Clause
// A directory of a test's own, gone with the test. Made by the standard library alone, so that what is tested
// does not prepare its own test.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

class ScratchDirectory
{
public:
    ScratchDirectory()
    {
        std::random_device random;
        for (int i = 0; i < 100; ++i) {
            m_path = std::filesystem::temp_directory_path() / ("zytest_" + std::to_string(random()));
            if (std::filesystem::create_directory(m_path)) {
                return;
            }
        }
        throw std::runtime_error("no scratch directory");
    }
    ScratchDirectory(ScratchDirectory const &) = delete;
    ScratchDirectory & operator=(ScratchDirectory const &) = delete;
    ~ScratchDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path const & path() const { return m_path; }

    /** The path of a name inside; both in UTF-8 where the system knows of characters. */
    std::string operator/(std::string const & name) const { return inside(name).u8string(); }

    /** Writes a file and gives its path. */
    std::string write(std::string const & name, std::string const & content) const
    {
        std::ofstream(inside(name), std::ios::binary) << content;
        return *this / name;
    }
    std::string read(std::string const & name) const
    {
        std::ifstream file(inside(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    bool has(std::string const & name) const { return std::filesystem::exists(inside(name)); }

private:
    std::filesystem::path inside(std::string const & name) const
    {
        return m_path / std::filesystem::u8path(name);
    }

    std::filesystem::path m_path;
};
