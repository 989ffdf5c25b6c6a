// SPDX-License-Identifier: BSD-3-Clause
// A zip archive, read or written entry by entry.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZyFilePath.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyString.h>

class ZyZipFile;

/** The handles of the zip library behind an archive, for calls that this class does not make. */
struct ZyZipArchive_Internal
{
    void * zip = nullptr;   ///< the writer's handle (zipFile), set in Write mode until the archive closes
    void * unzip = nullptr; ///< the reader's handle (unzFile), set in Read mode until the archive closes
};

/**
 * One open zip archive, for reading or for writing.
 *
 * Entry names are stored as ZyFilePath holds them, with backslashes, and looked up in that form: an archive
 * of this library reads back everywhere the library runs, but common zip and spreadsheet programs outside of
 * Windows do not see folders in such names, and an entry "a/b.txt" of another program is not found.
 * EntryNames::Portable, the opt-in for archives that are exchanged, stores forward slashes and finds an entry
 * under either spelling.
 *
 * \code
 * ZyZipArchive archive("out.zip", ZyZipArchive::Write);
 * archive.open("notes/today.txt", ZyZipArchive::DefaultLevel).lock()->write("It works.");
 * archive.close();
 * \endcode
 *
 * The archive is sequential: at most one entry is open, the active one, and opening the next ends it. Names
 * are bytes, and only the portable form marks those that are UTF-8 as such. What the plain form of the format
 * holds is the limit for writing: entries of 4,294,967,294 bytes that begin below 4 GiB, and names of 65,535
 * bytes, of which those up to 255 bytes can be opened again; for reading without paths(), 65,534 entries.
 *
 * \deliberate{backslash-entry-names} Names are stored with backslashes unless asked otherwise: packages and archives
 * of the suite are compared and looked up in that form.
 * \deliberate{zero-entry-date} Every entry carries the zero date of the zip library (1980-01-00), so that the same
 * content gives the same bytes.
 *
 * Only closing writes the directory of an archive under write, and its result is not looked at: on a full
 * disk the last buffered bytes can be lost without an exception. Who needs certainty opens the result for
 * reading.
 *
 * \threads one thread at a time, the entries included
 */
class ZYCORE_EXPORT ZyZipArchive
{
public:
    /** What an archive is opened for. */
    enum Mode : int { Read = 0, Write = 1 };
    /**
     * The deflate level of an entry; any other value is as DefaultLevel.
     *
     * \deliberate{store-is-deflate} The method is deflate for all of them, also where nothing is compressed.
     */
    enum Compression : int {
        Store = 0,       ///< level 0
        Fastest = 1,     ///< level 1
        Best = 2,        ///< level 9
        DefaultLevel = 3 ///< the level that zlib takes by default
    };
    /** How entry names are spelt in the archive. */
    enum EntryNames : int {
        Native = 0,  ///< with backslashes, written and looked up
        Portable = 1 ///< written with forward slashes, found with either
    };

    /**
     * Opens an archive. In Write mode an existing file is truncated at once.
     *
     * \throws ZyFileNotFoundException Read mode, and there is no such file
     * \throws ZyInvalidPathException the file cannot be opened or created, or is no archive; an archive without any
     * entry counts as none
     * \throws ZyInvalidParameterException another mode: "Unknown mode for zip/unzip"
     */
    ZyZipArchive(ZyFilePath const & path, Mode mode, EntryNames names = Native);
    ZyZipArchive(ZyZipArchive const &) = delete;
    ZyZipArchive & operator=(ZyZipArchive const &) = delete;
    /** As close(). */
    virtual ~ZyZipArchive();

    /**
     * Makes an entry the active one, ending the one before: created in Write mode, looked up in Read mode.
     *
     * The archive keeps the only owner: the result expires when the next entry is opened or the archive
     * closes. \a compression has no meaning in Read mode. A name that is there twice gives the first one. One
     * lookup is linear in the entries; after paths() it takes constant time.
     *
     * \deliberate{any-open-error-is-zip-failure} For writing all codes of the zip library are told as one, "Zip failure".
     *
     * \throws ZyInvalidParameterException "Cannot open zip archive file: " errorMessage " in " path; for writing the
     * middle is always "Zip failure"
     */
    ZyWeakPtr<ZyZipFile> open(ZyFilePath const & path, Compression compression);
    /**
     * The names of all entries in the archive's order, normalised as paths are. Ends the active entry. Empty
     * when the first record of the directory is damaged, short when a later one is; then no entry can be
     * opened any more.
     *
     * \throws ZyInvalidCallException in Write mode: "Zip paths cannot be returned in write mode"
     */
    ZyDeque<ZyFilePath> paths() const;
    /** Ends the active entry and closes the archive, for good; repeating it is harmless. */
    void close();
    /**
     * The words for a result of the zip library, by the archive's mode.
     *
     * \deliberate{unzip-faliure} Any other code while reading is "Unzip faliure": hosts compare the text.
     */
    ZyString errorMessage(int code) const;
    /** What the archive was opened for. */
    Mode mode() const;
    /** The handles; those of a closed archive are null. */
    ZyZipArchive_Internal & internal() const;

private:
    friend class ZyZipFile;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
