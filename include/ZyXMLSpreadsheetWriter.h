// SPDX-License-Identifier: BSD-3-Clause
// Writing a spreadsheet as a single XML file.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

class ZyIODevice;
class ZyVariant;

/**
 * Writes one worksheet, named Sheet1, in the XML spreadsheet format of Office 2003 (SpreadsheetML 2003).
 *
 * \code
 * ZyFile device("limits.xml");
 * ZyXMLSpreadsheetWriter sheet(device);
 * sheet.startRow();
 * sheet.addCell("Gain", 1, 1);
 * sheet.addCell(20.5, 1, 1);
 * sheet.finish();
 * \endcode
 *
 * Merges stand on their cells as column and row counts; no position is kept, so the caller leaves out the
 * squares that a merge from an earlier row covers, and readers place the cells that follow.
 *
 * \threads one thread at a time
 */
class ZYCORE_EXPORT ZyXMLSpreadsheetWriter
{
public:
    /**
     * Begins the document on a device, on loan for the life of the writer: a closed one is opened for
     * writing, an open one is used as it stands.
     * \throws ZyInvalidCallException "Device is in read mode, cannot write to it"; the device is left alone
     */
    explicit ZyXMLSpreadsheetWriter(ZyIODevice & device);
    ZyXMLSpreadsheetWriter(ZyXMLSpreadsheetWriter const &) = delete;
    ZyXMLSpreadsheetWriter & operator=(ZyXMLSpreadsheetWriter const &) = delete;
    /**
     * As finish(). A device that fails here ends the process, unless a caller has been told that failure:
     * call finish() to hear of it.
     */
    virtual ~ZyXMLSpreadsheetWriter();

    /**
     * Ends the row under way, if any, and begins the next one.
     * \throws ZyNullPointerException after finish(): "ZyUniquePtr dereferencing nullptr"
     */
    void startRow();
    /** Ends the row under way, if any. */
    void endRow();
    /**
     * Appends a cell, in a row of its own when none is open. An Integer and a Double give a number with six
     * significant digits, every other kind the text of ZyVariant::toString.
     *
     * \deliberate{single-file-booleans-are-text} So a Boolean and a Null are texts, "true" and "null", where the sheet of
     * a package has a logical and an empty cell.
     *
     * \param columnSpan columns that the cell covers; 0 counts as 1
     * \param rowSpan rows that the cell covers; 0 counts as 1
     */
    void addCell(ZyVariant const & value, unsigned int columnSpan, unsigned int rowSpan);
    /** Completes the document and closes the device; a second call does nothing. */
    void finish();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
