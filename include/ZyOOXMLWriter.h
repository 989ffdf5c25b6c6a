// SPDX-License-Identifier: BSD-3-Clause
// Writing a workbook: a package of worksheets.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyZipArchive.h>

class ZyFilePath;
class ZyOOXMLWriterSpreadsheet;
class ZyString;

/**
 * Writes an office package (xlsx) of inline cells: worksheets, and the four parts that make them a workbook.
 *
 * \deliberate{package-entry-names} By default the parts are stored under names with backslashes, which the home platform's
 * readers expect. Spreadsheet programs elsewhere refuse such a package: pass ZyZipArchive::Portable for one
 * that they open.
 *
 * \code
 * ZyOOXMLWriter workbook("out.xlsx", ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
 * ZySharedPtr<ZyOOXMLWriterSpreadsheet> sheet = workbook.addSheet("Limits");
 * sheet->startRow();
 * sheet->addCell("Gain", 1, 1);
 * sheet->addCell(20.5, 1, 1);
 * workbook.close();
 * \endcode
 *
 * One sheet is under way at a time and streams straight into the file.
 *
 * \deliberate{package-is-whole-when-the-writer-is-gone} The file is a valid package only after the writer has been
 * destroyed, and not yet after close(): then the archive writes its directory.
 *
 * \threads one thread at a time, together with the sheets
 */
class ZYCORE_EXPORT ZyOOXMLWriter
{
public:
    /** The kinds of package. */
    enum FileType : int {
        Spreadsheet = 0 ///< a workbook
    };

    /**
     * Creates the file, over an older one if there is one.
     * \param type Spreadsheet; close() refuses any other
     * \param names how entry names are spelt
     * \throws ZyInvalidPathException the file cannot be created
     */
    ZyOOXMLWriter(ZyFilePath const & path, FileType type,
                  ZyZipArchive::EntryNames names = ZyZipArchive::Native);
    ZyOOXMLWriter(ZyOOXMLWriter const &) = delete;
    ZyOOXMLWriter & operator=(ZyOOXMLWriter const &) = delete;
    /**
     * As close(), and completes the file.
     *
     * \deliberate{package-destructor-ends-process} A failure here ends the process, such as a writer without a
     * sheet. Who may end up without one calls close() first and catches. When a sheet could not be written
     * and a caller has been told so, the file is left incomplete instead.
     */
    virtual ~ZyOOXMLWriter();

    /**
     * Begins a sheet, after closing the one under way. Shared with the writer; once closed the sheet refuses
     * rows.
     *
     * \deliberate{sheet-behind-close-is-not-listed} Behind close() it still writes a sheet, which no list of the package
     * names: no program shows it.
     *
     * \param name of the sheet and of its entry; it is not checked, so keep to letters, digits and blanks
     * \throws ZyInvalidParameterException a sheet has that name, case aside: "Document with the given name already exists: "
     *         and the name; the sheet under way stays open
     */
    ZySharedPtr<ZyOOXMLWriterSpreadsheet> addSheet(ZyString const & name);
    /**
     * Closes the sheet under way and writes the parts that list the sheets.
     *
     * \deliberate{package-closes-once} Only the first call does anything, even when it fails: there is no second try.
     *
     * \throws ZyFileSaveException there is no sheet: "Cannot save [Cannot save document as not content provided]"; the kind
     *         is unknown: "Cannot save [Unknown document type]"
     */
    void close();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
