// SPDX-License-Identifier: BSD-3-Clause
// The plain table: a fixed grid of values, read from comma-separated text and turned into matrices of
// numbers. Tables with headings, spans and stacked values are in ZyDataTable.h.
#pragma once

#include <ZyExport.h>
#include <ZyMatrix.h>
#include <ZyPrivateObject.h>
#include <ZyRef.h>
#include <ZyString.h>
#include <ZyVariant.h>
#include <ZyVector.h>

#include <functional>

class ZyIODevice;

/**
 * A grid of rows by columns of ZyVariant cells, without headings and without merged cells.
 *
 * \code
 * ZyFile file("measured.csv");
 * ZyVariantTable const table = ZyVariantTable::LoadCSV(file, true);
 * ZyMatrix<double> const numbers = table.toDoubleTable(ZyVariantTable::UseDefault);
 * \endcode
 *
 * Indexes count from 0. Copies are deep.
 *
 * \threads no locks: a table may be read from several threads while nobody writes
 */
class ZYCORE_EXPORT ZyVariantTable
{
public:
    /** What a conversion does with a cell of a kind that it cannot convert. Any other value works as
     * KeepFill. */
    enum ErrorRule : int {
        UseDefault = 0,   ///< the result's cell is set to 0.0, 0 or the empty string
        ThrowOnError = 1, ///< ZyBadVariantAccessException(expected kind, actual kind) goes to the caller
        KeepFill = 2,     ///< the result's cell keeps the fill value, which is 0.0, 0 or the empty string too
    };

    /** No rows, no columns. */
    ZyVariantTable();
    /** All cells are `Null`. \throws std::length_error there would be more than 4,294,967,295 cells */
    ZyVariantTable(unsigned int rows, unsigned int columns);
    /** All cells are copies of \a fill. \throws std::length_error there would be more than 4,294,967,295 cells */
    ZyVariantTable(unsigned int rows, unsigned int columns, ZyVariant const & fill);
    /**
     * Reads a file of comma-separated text by the simple rule: every comma separates, quotes mean nothing.
     *
     * A line ends with a line feed; one at the end of the file adds no row. Cells are trimmed strings; with
     * \a typed those whose text is an integer (ZyString::isInteger) become integers, and of the others those
     * whose text is a number (ZyString::isDouble) doubles. Cells that a short line lacks are empty strings.
     *
     * \deliberate{csv-two-readers} This reader and LoadCSV differ on purpose, in quotes, in padding and in what they
     * refuse: hosts choose by it.
     *
     * \param path the file, in the spelling of ZyFilePath or of the system
     * \throws ZyCannotOpenFileException "Cannot open file: " and \a path, also for a directory
     * \throws ZyIOException "Error occurred on reading from file"
     * \throws std::length_error there would be more than 4,294,967,295 cells
     */
    ZyVariantTable(ZyString const & path, bool typed);
    ZyVariantTable(ZyVariantTable const & other);
    /** Takes the cells over. \a other may then only be destroyed or assigned to. */
    ZyVariantTable(ZyVariantTable && other) noexcept;
    virtual ~ZyVariantTable();

    ZyVariantTable & operator=(ZyVariantTable const & other);
    /** Takes the cells over and leaves \a other with no rows and no columns, ready for use. */
    ZyVariantTable & operator=(ZyVariantTable && other);

    /**
     * Reads comma-separated text from a device, each line split as ZyCSVFile::ExtractLine does.
     *
     * \deliberate{loaded-device-stays-open} The device is opened for reading and stays open, at its end or behind the line
     * that failed: who lent it closes it.
     *
     * Fields become strings; with \a typed those whose text is an integer (ZyString::isInteger) become
     * integers, and of the others those whose text is a number (ZyString::isDouble) doubles.
     *
     * \deliberate{csv-padding-is-boolean} Cells that a short line lacks are Booleans that hold \a typed, and no empty
     * strings: so a caller can tell a missing cell from a present one.
     *
     * \throws ZyIODevice::CannotOpenException the device does not open, with an empty message
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [n,n]": the last field of a line of n bytes is empty, as it
     *         is on a blank line and on one that ends in a comma; no table results
     * \throws what the device throws
     * \throws std::length_error there would be more than 4,294,967,295 cells
     */
    static ZyVariantTable LoadCSV(ZyIODevice & device, bool typed);

    /** The number of rows. */
    unsigned int numberRows() const;
    /** The number of columns. */
    unsigned int numberColumns() const;
    /**
     * A cell.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,rows]", or then "Index out of bounds [column,columns]"
     */
    ZyVariant & at(unsigned int row, unsigned int column);
    ZyVariant const & at(unsigned int row, unsigned int column) const;
    /** References to the cells of a row, left to right. \throws ZyIndexOutOfBoundsException "Index out of bounds [row,rows]" */
    ZyVector<ZyRef<ZyVariant>> row(unsigned int row);
    ZyVector<ZyCRef<ZyVariant>> row(unsigned int row) const;
    /**
     * References to the cells of a column, top to bottom.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [column,columns]"
     */
    ZyVector<ZyRef<ZyVariant>> column(unsigned int column);
    ZyVector<ZyCRef<ZyVariant>> column(unsigned int column) const;
    /** Calls \a visit with row, column and cell, row by row. \throws std::bad_function_call it is empty and there is a cell */
    void forEach(std::function<void(unsigned int, unsigned int, ZyVariant &)> visit);
    void forEach(std::function<void(unsigned int, unsigned int, ZyVariant const &)> visit) const;

    /**
     * Compares by number of cells, then by columns, then by rows: -1 when this table has fewer, 1 when it has
     * more. Tables of one shape give 0 when all cells are equal.
     *
     * \deliberate{table-compare-asymmetric} They give 1 when any cell differs, in both directions: a reliable test of
     * equality, and an order by shape only.
     */
    int compare(ZyVariantTable const & other) const;

    /** Numbers of the Integer and Double cells; \a rule says what becomes of the others. */
    ZyMatrix<double> toDoubleTable(ErrorRule rule) const;
    /** Numbers of the Integer cells; \a rule says what becomes of the others. */
    ZyMatrix<int> toIntegerTable(ErrorRule rule) const;
    /** Texts of the Boolean, Integer, Double and String cells; \a rule says what becomes of the others. */
    ZyMatrix<ZyString> toStringTable(ErrorRule rule) const;
    /** The text of each cell and a tab behind it; at the end of each row a line feed. */
    ZyString toString() const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
