// SPDX-License-Identifier: BSD-3-Clause
// The file of the configuration: read whole, replaced whole, changed by one at a time.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace KbConfigFile
{

/** The content; empty for a file that does not exist; nothing when it cannot be read. */
std::optional<std::string> read(std::filesystem::path const & file);

/**
 * Replaces the content, or leaves it as it was. To be called with the lock held.
 *
 * \return false when a file cannot be made beside it, or it may not be written
 */
bool replace(std::filesystem::path const & file, std::string const & content);

/** The file itself where a link leads to it. */
std::filesystem::path target(std::filesystem::path const & file);

/**
 * The right to change a file, among all threads and processes; waits for it. It goes with a process that
 * ends. Held by a file of its own beside it, which stays.
 */
class Lock
{
public:
    explicit Lock(std::filesystem::path const & file);
    Lock(Lock const &) = delete;
    Lock & operator=(Lock const &) = delete;
    ~Lock();

    bool isHeld() const;

private:
#ifdef _WIN32
    void * m_handle;
#else
    int m_handle;
#endif
};

} // namespace KbConfigFile
