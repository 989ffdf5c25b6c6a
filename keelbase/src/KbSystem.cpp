// SPDX-License-Identifier: BSD-3-Clause
// Names for temporary files.
#include <keelbase/KbHost.h>
#include <keelbase/KbSystem.h>

#include <filesystem>
#include <mutex>
#include <random>
#include <string>
#include <system_error>

namespace
{

namespace fs = std::filesystem;

struct TempDirectory
{
    std::mutex mutex;
    std::string chosen; // UTF-8; empty: the system's
};

TempDirectory & tempDirectory()
{
    static TempDirectory directory;
    return directory;
}

fs::path currentTempDirectory()
{
    auto & directory = tempDirectory();
    std::lock_guard<std::mutex> const lock(directory.mutex);
    if (!directory.chosen.empty()) {
        return fs::u8path(directory.chosen);
    }
    std::error_code failure;
    auto const path = fs::temp_directory_path(failure);
    return failure ? fs::path("/tmp") : path;
}

// From the system's own random source and not from a seeded engine: in a directory that others can write to,
// a name that can be guessed can be taken.
std::string randomDigits()
{
    std::random_device source;
    std::string digits;
    for (unsigned word = 0; word < 2; ++word) {
        auto bits = source();
        for (unsigned digit = 0; digit < 8; ++digit, bits >>= 4) {
            digits += "0123456789abcdef"[bits & 0xF];
        }
    }
    return digits;
}

bool isTaken(fs::path const & path)
{
    std::error_code failure;
    return fs::exists(fs::symlink_status(path, failure)); // a dangling link is taken too
}

} // namespace

void kb::SetTempDirectory(char const * path)
{
    auto & directory = tempDirectory();
    std::lock_guard<std::mutex> const lock(directory.mutex);
    directory.chosen = path ? path : "";
}

YString sp_GetTempFile()
{
    auto const directory = currentTempDirectory();
    fs::path path;
    do {
        path = directory / ("zy_" + randomDigits() + ".tmp");
    } while (isTaken(path));
    return path.generic_u8string();
}
