// SPDX-License-Identifier: BSD-3-Clause
// The file of the configuration, by the calls of the system.
#include "KbConfigFile_p.h"

#include <cstddef>

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace
{

fs::path beside(fs::path file, char const * ending)
{
    return file += ending;
}

} // namespace

fs::path KbConfigFile::target(fs::path const & file)
{
    std::error_code error;
    fs::path const result = fs::weakly_canonical(file, error);
    return error ? file : result;
}

#ifdef _WIN32

namespace
{

HANDLE opened(fs::path const & file, DWORD access, DWORD share, DWORD how)
{
    return CreateFileW(file.c_str(), access, share, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool readAll(HANDLE file, std::string & content)
{
    char buffer[65536];
    DWORD count = 0;
    bool isRead = false;
    while ((isRead = ReadFile(file, buffer, sizeof(buffer), &count, nullptr) != 0) && count > 0) {
        content.append(buffer, count);
    }
    return isRead;
}

bool writeAll(HANDLE file, std::string const & content)
{
    for (std::size_t done = 0; done < content.size();) {
        std::size_t const left = content.size() - done;
        DWORD const piece = static_cast<DWORD>(left < 65536 ? left : 65536);
        DWORD count = 0;
        if (WriteFile(file, content.data() + done, piece, &count, nullptr) == 0) {
            return false;
        }
        done += count;
    }
    return FlushFileBuffers(file) != 0;
}

} // namespace

std::optional<std::string> KbConfigFile::read(fs::path const & file)
{
    HANDLE const handle =
        opened(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (handle == INVALID_HANDLE_VALUE) {
        DWORD const error = GetLastError();
        bool const isMissing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return isMissing ? std::optional<std::string>(std::string()) : std::nullopt;
    }
    std::string content;
    bool const isRead = readAll(handle, content);
    CloseHandle(handle);
    return isRead ? std::optional<std::string>(content) : std::nullopt;
}

bool KbConfigFile::replace(fs::path const & file, std::string const & content)
{
    DWORD const attributes = GetFileAttributesW(file.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0) {
        return false;
    }
    fs::path const temporary = beside(file, ".new");
    HANDLE const handle = opened(temporary, GENERIC_WRITE, 0, CREATE_ALWAYS);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    bool const isWritten = writeAll(handle, content);
    CloseHandle(handle);
    if (isWritten && MoveFileExW(temporary.c_str(), file.c_str(),
                                 MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
        return true;
    }
    DeleteFileW(temporary.c_str());
    return false;
}

KbConfigFile::Lock::Lock(fs::path const & file)
    : m_handle(opened(beside(file, ".lock"), GENERIC_READ | GENERIC_WRITE,
                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_ALWAYS))
{
    OVERLAPPED from = {};
    if (isHeld() && LockFileEx(m_handle, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &from) == 0) {
        CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }
}

KbConfigFile::Lock::~Lock()
{
    if (isHeld()) {
        CloseHandle(m_handle); // and the lock goes with it
    }
}

bool KbConfigFile::Lock::isHeld() const
{
    return m_handle != INVALID_HANDLE_VALUE;
}

#else

namespace
{

/** The result of a call that a signal may interrupt. */
template <class Call>
auto untilDone(Call && call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

bool readAll(int file, std::string & content)
{
    char buffer[65536];
    ssize_t count = 0;
    while ((count = untilDone([&] { return ::read(file, buffer, sizeof(buffer)); })) > 0) {
        content.append(buffer, static_cast<std::size_t>(count));
    }
    return count == 0;
}

bool writeAll(int file, std::string const & content)
{
    for (std::size_t done = 0; done < content.size();) {
        ssize_t const count =
            untilDone([&] { return ::write(file, content.data() + done, content.size() - done); });
        if (count < 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return ::fsync(file) == 0;
}

/** What the new file takes from the one that it replaces. */
struct Former
{
    bool exists;
    struct stat status;
};

/** Nothing when the file may not be replaced. */
std::optional<Former> formerOf(fs::path const & file)
{
    Former former = {true, {}};
    if (::stat(file.c_str(), &former.status) != 0) {
        former.exists = false;
        return errno == ENOENT ? std::optional<Former>(former) : std::nullopt;
    }
    // A file without the right to write is read-only to the superuser too.
    bool const mayWrite = S_ISREG(former.status.st_mode) && (former.status.st_mode & 0222) != 0 &&
                          ::access(file.c_str(), W_OK) == 0;
    return mayWrite ? std::optional<Former>(former) : std::nullopt;
}

/** Gives a file the owner, where this process may do that, and the rights of another one. */
bool inherit(int file, Former const & former)
{
    int const isOwned = ::fchown(file, former.status.st_uid, former.status.st_gid);
    return (isOwned == 0 || errno == EPERM) && ::fchmod(file, former.status.st_mode & 07777) == 0;
}

bool writeNew(fs::path const & file, std::string const & content, Former const & former)
{
    ::unlink(file.c_str()); // of a writer that was killed
    int const handle =
        untilDone([&] { return ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); });
    if (handle < 0) {
        return false;
    }
    bool const isWritten = (!former.exists || inherit(handle, former)) && writeAll(handle, content);
    return ::close(handle) == 0 && isWritten;
}

} // namespace

std::optional<std::string> KbConfigFile::read(fs::path const & file)
{
    // A pipe would wait for somebody who writes.
    int const handle = untilDone([&] { return ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); });
    if (handle < 0) {
        return errno == ENOENT ? std::optional<std::string>(std::string()) : std::nullopt;
    }
    struct stat kind = {};
    std::string content;
    bool const isRead = ::fstat(handle, &kind) == 0 && S_ISREG(kind.st_mode) && readAll(handle, content);
    ::close(handle);
    return isRead ? std::optional<std::string>(content) : std::nullopt;
}

bool KbConfigFile::replace(fs::path const & file, std::string const & content)
{
    std::optional<Former> const former = formerOf(file);
    if (!former) {
        return false;
    }
    fs::path const temporary = beside(file, ".new");
    if (writeNew(temporary, content, *former) && ::rename(temporary.c_str(), file.c_str()) == 0) {
        return true;
    }
    ::unlink(temporary.c_str());
    return false;
}

KbConfigFile::Lock::Lock(fs::path const & file)
    : m_handle(untilDone([&] {
          return ::open(beside(file, ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
      }))
{
    if (m_handle >= 0 && untilDone([&] { return ::flock(m_handle, LOCK_EX); }) != 0) {
        ::close(m_handle);
        m_handle = -1;
    }
}

KbConfigFile::Lock::~Lock()
{
    if (isHeld()) {
        ::close(m_handle); // and the lock goes with it
    }
}

bool KbConfigFile::Lock::isHeld() const
{
    return m_handle >= 0;
}

#endif
