// SPDX-License-Identifier: BSD-3-Clause
// The messages of the failures that carry paths.
#include <ZyFileException.h>

ZyFileException::ZyFileException(ZyString const & message) : ZyException(message) {}

ZyFileException::ZyFileException(ZyString const & message, ZyString const & path)
    : ZyException(message), m_path1(path)
{}

ZyFileException::ZyFileException(ZyString const & message, ZyFilePath const & path1, ZyFilePath const & path2)
    : ZyException(message), m_path1(path1), m_path2(path2)
{}

ZyFileException::ZyFileException(std::filesystem::filesystem_error const & failure)
    : ZyException(failure.what()), m_path1(failure.path1()), m_path2(failure.path2())
{}

ZyFileException::ZyFileException(ZyFileException const & other) = default;

ZyFileException & ZyFileException::operator=(ZyFileException const & other) = default;

ZyFileException::~ZyFileException() = default;

ZyFilePath const & ZyFileException::path1() const
{
    return m_path1;
}

ZyFilePath const & ZyFileException::path2() const
{
    return m_path2;
}

char const * ZyFileException::name() const
{
    return "ZyFileException";
}

ZyFileLockedException::ZyFileLockedException(ZyString const & path)
    : ZyFileException("File already locked: " + path, path)
{}

char const * ZyFileLockedException::name() const
{
    return "ZyFileLockedException";
}

ZyFileNotFoundException::ZyFileNotFoundException(ZyString const & path)
    : ZyFileException("File not found: " + path, path)
{}

ZyFileNotFoundException::ZyFileNotFoundException(ZyFilePath const & path)
    : ZyFileException("File not found: " + path.path(), path, ZyFilePath())
{}

ZyFileNotFoundException::ZyFileNotFoundException(char const * path) : ZyFileNotFoundException(ZyString(path))
{}

char const * ZyFileNotFoundException::name() const
{
    return "ZyFileNotFoundException";
}

ZyFileSaveException::ZyFileSaveException(ZyString const & reason, ZyString const & path)
    : ZyFileException("Cannot save [" + reason + "]", path)
{}

char const * ZyFileSaveException::name() const
{
    return "ZyFileSaveException";
}

ZyInvalidPathException::ZyInvalidPathException(ZyFilePath const & path)
    : ZyFileException("Invalid path: " + path.path(), path, ZyFilePath())
{}

char const * ZyInvalidPathException::name() const
{
    return "ZyInvalidPathException";
}

ZyCannotOpenFileException::ZyCannotOpenFileException(ZyString const & path)
    : ZyFileException("Cannot open file: " + path, path)
{}

ZyCannotOpenFileException::ZyCannotOpenFileException(ZyFilePath const & path)
    : ZyFileException("Cannot open file: " + path.path(), path, ZyFilePath())
{}

ZyCannotOpenFileException::ZyCannotOpenFileException(char const * path)
    : ZyCannotOpenFileException(ZyString(path))
{}

char const * ZyCannotOpenFileException::name() const
{
    return "ZyCannotOpenFileException";
}
