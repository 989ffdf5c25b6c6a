// SPDX-License-Identifier: BSD-3-Clause
// One worksheet of a workbook, written row by row.
#pragma once

#include <ZyExport.h>
#include <ZyOOXMLWriterDocument.h>
#include <ZyPrivateObject.h>
#include <ZyString.h>

#include <string>

class ZyVariant;

/**
 * Writes a worksheet. The caller asks for rows and appends cells; the writer places them.
 *
 * \code
 * sheet->startRow();
 * sheet->addCell("Limits", 2, 1); // A1, merged with B1
 * sheet->addCell(5, 1, 1);        // C1
 * \endcode
 *
 * A cell may span columns and rows. The squares that such a merge covers are written as empty cells when
 * their turn comes, and the next cell lands on the first free square. Nothing checks that merges do not
 * collide.
 *
 * Cells stream out at once: memory grows with the number of merges and with the last column that a merge
 * covers, not with the number of cells or the size of a merge.
 *
 * \threads one thread at a time
 */
class ZYCORE_EXPORT ZyOOXMLWriterSpreadsheet : public ZyOOXMLWriterDocument
{
public:
    /** Begins the worksheet on a device. \throws what ZyOOXMLWriterDocument throws */
    explicit ZyOOXMLWriterSpreadsheet(ZyWeakPtr<ZyIODevice> device);
    ZyOOXMLWriterSpreadsheet(ZyOOXMLWriterSpreadsheet const &) = delete;
    ZyOOXMLWriterSpreadsheet(ZyOOXMLWriterSpreadsheet && other) noexcept;
    ~ZyOOXMLWriterSpreadsheet() override;
    ZyOOXMLWriterSpreadsheet & operator=(ZyOOXMLWriterSpreadsheet const &) = delete;
    ZyOOXMLWriterSpreadsheet & operator=(ZyOOXMLWriterSpreadsheet && other) noexcept;

    /** The letters of a column, counted from 1: 1 is "A", 27 "AA"; 0 gives the empty text. */
    [[nodiscard]] static ZyString NumberToLetterString(unsigned int column);

    /**
     * Ends the row under way, if any, and begins the next one.
     * \throws ZyInvalidCallException the sheet is closed: "Spreadsheet cannot be written to as has been closed"; closing
     *         it has failed half way: "Cannot write row as no document"
     */
    void startRow();
    /** Ends the row under way, if any. */
    void endRow();
    /**
     * Appends a cell. Null gives an empty cell, a Boolean a logical one, an Integer and a Double a number
     * with six significant digits, and every other kind the text of ZyVariant::toString.
     *
     * \param columnSpan columns that the cell covers; 0 counts as 1
     * \param rowSpan rows that the cell covers; 0 counts as 1
     *
     * \deliberate{first-cell-without-row} A cell that has to begin its row itself is counted before the row sets the column
     * back, and so stands in column 0: its reference has no letter. Call startRow() first.
     */
    void addCell(ZyVariant const & value, unsigned int columnSpan, unsigned int rowSpan);

protected:
    /**
     * \throws ZyInvalidCallException the sheet is closed: "Spreadsheet cannot be written to as has been closed"
     * \throws ZyNullPointerException closing it has failed half way before
     */
    void onClose() override;

private:
    void checkAlive() const;
    std::string & beginCell();
    void fillCovered();
    void writeMerges();

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
