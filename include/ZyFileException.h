// SPDX-License-Identifier: BSD-3-Clause
// The exceptions that carry paths.
#pragma once

#include <ZyException.h>
#include <ZyExport.h>
#include <ZyFilePath.h>

#include <filesystem>

class ZyFileDevice;

/** Base of the failures that have to do with files: a message and up to two paths. */
class ZYCORE_EXPORT ZyFileException : public ZyException
{
public:
    /** \a message is the whole message; both paths are null. */
    explicit ZyFileException(ZyString const & message);
    /** \a message is the whole message; the second path is null. */
    ZyFileException(ZyString const & message, ZyString const & path);
    /** \a message is the whole message. */
    ZyFileException(ZyString const & message, ZyFilePath const & path1, ZyFilePath const & path2);
    /** The words of the standard library, and its two paths. */
    explicit ZyFileException(std::filesystem::filesystem_error const & failure);
    ZyFileException(ZyFileException const & other);
    ZyFileException & operator=(ZyFileException const & other);
    ~ZyFileException() override;

    /** The path that the failure is about; null when none was given. */
    ZyFilePath const & path1() const;
    /** The second path of an operation on two; null otherwise. */
    ZyFilePath const & path2() const;

    char const * name() const override;

private:
    ZyFilePath m_path1;
    ZyFilePath m_path2;
};

/** Somebody else has locked a file. */
class ZYCORE_EXPORT ZyFileLockedException : public ZyFileException
{
public:
    /** "File already locked: " and \a path. */
    explicit ZyFileLockedException(ZyString const & path);

    char const * name() const override;
};

/** A file is not there. */
class ZYCORE_EXPORT ZyFileNotFoundException : public ZyFileException
{
public:
    /** "File not found: " and \a path. */
    explicit ZyFileNotFoundException(ZyString const & path);
    /** "File not found: " and \a path. */
    explicit ZyFileNotFoundException(ZyFilePath const & path);
    /** "File not found: " and \a path. */
    explicit ZyFileNotFoundException(char const * path);

    char const * name() const override;
};

/** A file could not be saved. */
class ZYCORE_EXPORT ZyFileSaveException : public ZyFileException
{
public:
    /** "Cannot save [" \a reason "]"; \a path is carried and not part of the message. */
    ZyFileSaveException(ZyString const & reason, ZyString const & path);

    char const * name() const override;
};

/** A path cannot be used for what was asked. */
class ZYCORE_EXPORT ZyInvalidPathException : public ZyFileException
{
public:
    /** "Invalid path: " and \a path. */
    explicit ZyInvalidPathException(ZyFilePath const & path);

    char const * name() const override;
};

/** A file cannot be opened. */
class ZYCORE_EXPORT ZyCannotOpenFileException : public ZyFileException
{
public:
    /** "Cannot open file: " and \a path. */
    explicit ZyCannotOpenFileException(ZyString const & path);
    /** "Cannot open file: " and \a path. */
    explicit ZyCannotOpenFileException(ZyFilePath const & path);
    /** "Cannot open file: " and \a path. */
    explicit ZyCannotOpenFileException(char const * path);
    /** "Cannot open file (" lastError() "): " path(): for callers whose call of open() returned false. */
    explicit ZyCannotOpenFileException(ZyFileDevice const & device);

    char const * name() const override;
};
