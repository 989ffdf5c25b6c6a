// SPDX-License-Identifier: BSD-3-Clause
// The rich table: cells that span columns and stack values, rows and heading rows, and the table of them.
// Plain grids of single values are in ZyVariantTable.h.
#pragma once

#include <ZyDeque.h>
#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>
#include <ZyUniquePtr.h>
#include <ZyVariant.h>
#include <ZyXMLObject.h>

#include <functional>
#include <utility>

class ZyDataTableRow;
class ZyFilePath;
class ZyOOXMLWriter;
class ZyString;
class ZyVariantTable;

/**
 * One cell of a ZyDataTable: its values, top to bottom, and the number of table columns that it covers.
 *
 * Copies are deep. A moved-from item holds no values and may be used like any other.
 */
class ZYCORE_EXPORT ZyDataTableItem
{
public:
    /** One value, the empty string; span 1. */
    ZyDataTableItem();
    /** One value, span 1. */
    ZyDataTableItem(ZyVariant const & value);
    ZyDataTableItem(ZyVariant && value);
    /** One value that covers \a columnSpan columns. */
    ZyDataTableItem(ZyVariant const & value, unsigned int columnSpan);
    ZyDataTableItem(ZyVariant && value, unsigned int columnSpan);
    /** Any number of values, none included; span 1. */
    ZyDataTableItem(ZyDeque<ZyVariant> const & values);
    ZyDataTableItem(ZyDeque<ZyVariant> && values);
    /** Any number of values that cover \a columnSpan columns. */
    ZyDataTableItem(ZyDeque<ZyVariant> const & values, unsigned int columnSpan);
    ZyDataTableItem(ZyDeque<ZyVariant> && values, unsigned int columnSpan);
    ZyDataTableItem(ZyDataTableItem const & other);
    ZyDataTableItem(ZyDataTableItem && other);
    ~ZyDataTableItem();

    ZyDataTableItem & operator=(ZyDataTableItem const & other);
    ZyDataTableItem & operator=(ZyDataTableItem && other);

    /** How many columns of the table the cell covers. */
    unsigned int columnSpan() const;
    /** How many values the cell stacks. */
    unsigned int numberValues() const;
    /**
     * The only value.
     * \throws ZyInvalidCallException there is not exactly one: "Cannot get value from data table, number of items equals: "
     *         directly followed by how many there are
     */
    ZyVariant const & value() const;
    /** All values, top to bottom. */
    ZyDeque<ZyVariant> const & values() const;
    /** From now on the cell holds this one value. The span stays. */
    void set(ZyVariant const & value);
    void set(ZyVariant && value);
    /** From now on the cell holds these values. The span stays. */
    void set(ZyDeque<ZyVariant> && values);
    /** Calls \a visit with each value, top to bottom. \throws std::bad_function_call it is empty and there is a value */
    void forEachValue(std::function<void(ZyVariant const &)> visit) const;

    /** Same span and equal values in the same order. */
    bool operator==(ZyDataTableItem const & other) const;
    bool operator!=(ZyDataTableItem const & other) const;

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/**
 * Rows of cells, where a cell may cover several columns and hold several values, and a row may be a heading.
 * Made for output: it is what becomes a worksheet.
 *
 * \code
 * ZyDataTable table;
 * table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("Name"), ZyVariant("Values")}, ZyDataTable::Header);
 * table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant("a"), ZyDeque<ZyVariant>{1, 2, 3}}, ZyDataTable::Data);
 * table.writeOOXML(ZyFilePath("values.xlsx"));
 * \endcode
 *
 * Rows and columns count from 0. Rows may be shorter than the table; nothing pads them in storage.
 *
 * A copy shares the row and item objects with its source: adding, clearing and sorting do not disturb the
 * other, but a change of an item reached through rows() shows in both.
 *
 * \threads one thread at a time, for a table and all that share its rows
 */
class ZYCORE_EXPORT ZyDataTable
{
public:
    /** What a row is. */
    enum ItemType : int {
        Data = 0,      ///< a plain row
        Header = 1,    ///< a heading row
        SubHeader = 2, ///< a second kind of heading row
    };
    /** Whether the first value comes before the second; must not change the table. */
    using LessThan = std::function<bool(ZyVariant const &, ZyVariant const &)>;

    /** No rows and no columns. */
    ZyDataTable();
    /** A table that shares its rows with \a other. */
    ZyDataTable(ZyDataTable const & other);
    /**
     * A table that shares its rows with \a other.
     *
     * \deliberate{data-table-move-copies} Moving copies: the source stays as it was.
     */
    ZyDataTable(ZyDataTable && other);
    /** Each cell becomes an item of one value and span 1, each row a plain row. Shares nothing with \a table.
     */
    ZyDataTable(ZyVariantTable const & table);
    virtual ~ZyDataTable();

    ZyDataTable & operator=(ZyDataTable const &) = delete;
    /** Swaps the two tables. */
    ZyDataTable & operator=(ZyDataTable && other) noexcept;

    /**
     * Appends a row of these items, which may be none. The table becomes as wide as the row when it was
     * narrower.
     * \throws ZyNullPointerException an item is null, with an empty message; the table stays as it was
     */
    void addRow(ZyDeque<ZySharedPtr<ZyDataTableItem>> && items, ItemType type);
    /** The same with copies of the items. */
    void addRow(ZyDeque<ZyDataTableItem> const & items, ItemType type);
    /** The same with the items and the type of \a row. */
    void addRow(ZyDataTableRow && row);
    /** The same with \a row itself. \throws ZyNullPointerException it is null: "ZyUniquePtr dereferencing nullptr" */
    void addRow(ZyUniquePtr<ZyDataTableRow> row);
    /** Afterwards there are no rows and no columns. */
    void clear();

    /** The largest sum of column spans of any row added since the table was made or cleared. */
    unsigned int numberColumns() const;
    /** The number of rows. */
    unsigned int numberRows() const;
    /** The rows, top to bottom, on loan. */
    ZyDeque<ZySharedPtr<ZyDataTableRow>> const & rows() const;
    /**
     * True for both kinds of heading rows.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,n]" with n the number of rows
     */
    bool isHeader(unsigned int row) const;
    /**
     * The value of the item that covers the column, or the empty string when the row does not reach so far.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,n]" with n the number of rows
     * \throws ZyInvalidCallException as ZyDataTableItem::value
     */
    ZyVariant const & value(unsigned int row, unsigned int column) const;
    /**
     * The values of the item that covers the column, or one empty string when the row does not reach so far.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,n]" with n the number of rows
     */
    ZyDeque<ZyVariant> const & values(unsigned int row, unsigned int column) const;

    /**
     * Sorts rows by their values in one column, ascending as ZyVariant::compare or as \a lessThan says. The
     * forms with a range sort the \a count rows from \a start on, those without it all rows.
     *
     * \deliberate{headings-sort-with-the-others} Heading rows get no special care: who wants them to stay on top sorts the
     * range below them.
     *
     * Either all rows of the range are sorted, or, when anything is thrown, none has moved: \a lessThan may
     * throw. Rows of equal values may change their order. Where a comparison is no strict weak order, as with
     * doubles that are equal within their tolerance, or NaN, the order is some order.
     *
     * \throws ZyInvalidCallException "Column number outside of the range of columns"
     * \throws ZyInvalidCallException "Cannot sort on column that has multiple values per cell", within the range
     * \throws ZyInvalidCallException as ZyDataTableItem::value, when a cell of a range of two rows or more has no value
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,n]" with n the number of rows, when the range passes
     *         the end and row is the first of its rows that is not there
     */
    void sort(unsigned int column);
    void sort(unsigned int column, unsigned int start, unsigned int count);
    void sort(unsigned int column, LessThan lessThan);
    void sort(unsigned int column, unsigned int start, unsigned int count, LessThan lessThan);

    /** Calls \a visit with item, row and column for every cell, and with blank cells where a row is short. */
    void
    forEach(std::function<void(ZyDataTableItem const &, unsigned int row, unsigned int column)> visit) const;
    /**
     * Calls \a visit for every cell of a row, and with blank cells of span 1 where the row is short.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,n]" with n the number of rows
     */
    void
    forEachItem(unsigned int row,
                std::function<void(ZyDataTableItem const &, unsigned int column, unsigned int columnSpan)>
                    visit) const;
    /**
     * Calls \a visit for every value in the order in which a worksheet takes cells: by spreadsheet row, then
     * by column.
     *
     * A row whose items hold at most one value takes one spreadsheet row. A row in which an item stacks
     * several takes as many as the tallest item has values: there each value of an item stands one
     * spreadsheet row below the one before, and its row span is the height divided by the number of the
     * item's values, without remainder. So an item of one value becomes one tall cell.
     *
     * \deliberate{stacked-values-plain-offsets} Where the number of values is neither 1 nor the height, the ranges of an
     * item overlap: offsets are plain indexes, not multiples of the span. Keep to 1 or the height in tables
     * for spreadsheets.
     *
     * \throws ZyInvalidCallException as ZyDataTableItem::value, when an item without values stands in a row of height 1
     * \throws ZyInvalidCallException "Data table row given invalid number of columns to iterate over", in all three walks:
     *         an item was changed so that its row is wider than the table
     */
    void
    forEachItemSpreadsheet(std::function<void(ZyVariant const & value, unsigned int row, unsigned int column,
                                              unsigned int columnSpan, unsigned int rowSpan, ItemType type)>
                               visit) const;
    /** How many spreadsheet rows the table takes: the sum of the heights of its rows. A row without items has
     * height 0. */
    unsigned int numberSpreadsheetRows() const;

    /**
     * Writes a workbook of one sheet, "sheet1".
     *
     * The names inside the package are stored with backslashes; for programs that refuse such packages make
     * the writer yourself, with ZyZipArchive::Portable, and use the other form.
     *
     * \throws what the package writer throws, also when the disk is full
     */
    void writeOOXML(ZyFilePath const & path) const;
    /**
     * Adds a sheet to a workbook. The sheet closes with the next one or with the writer.
     *
     * \deliberate{headings-look-like-any-row} Heading rows have no mark in the sheet: the package has no styles.
     *
     * \throws what ZyOOXMLWriter::addSheet, the sheet and forEachItemSpreadsheet throw
     */
    void writeOOXML(ZyOOXMLWriter & writer, ZyString const & sheetName) const;

    /** Same widths, and rows of the same types, widths and items. */
    bool operator==(ZyDataTable const & other) const;
    bool operator!=(ZyDataTable const & other) const;

private:
    friend struct ZyXMLObject<ZyDataTable, void>;

    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }
    void append(ZySharedPtr<ZyDataTableRow> const & row);

    ZyPrivatePtr<Private> m_d;
};

/** One row of a ZyDataTable: plain data. */
class ZYCORE_EXPORT ZyDataTableRow
{
public:
    ZyDataTableRow() = default;
    ZyDataTableRow(ZyDeque<ZySharedPtr<ZyDataTableItem>> rowItems, ZyDataTable::ItemType rowType)
        : items(std::move(rowItems)), type(rowType)
    {}
    ZyDataTableRow(ZyDataTableRow const &) = default;
    ZyDataTableRow(ZyDataTableRow &&) = default;
    virtual ~ZyDataTableRow() = default;
    ZyDataTableRow & operator=(ZyDataTableRow const &) = default;
    ZyDataTableRow & operator=(ZyDataTableRow &&) = default;

    ZyDeque<ZySharedPtr<ZyDataTableItem>> items;    ///< left to right
    ZyDataTable::ItemType type = ZyDataTable::Data; ///< what the row is
};

/**
 * One child "Rows"; in it a "Row" for each row, with header="1" for both kinds of heading rows; in it an
 * "Item" for each item, with hspan for a column span above 1; in it a "Value" for each value, as
 * ZyXMLObject<ZyVariant> writes it. Reading takes the number in "header" as the type as it stands.
 *
 * \deliberate{sub-header-becomes-header} A SubHeader row comes back as a Header row: the form has one kind of them.
 *
 * \deliberate{table-width-stays} The width is not written. A table is read as wide as its widest row, or as the
 * widest table that the same rule has read before: elements of one path hold tables of one shape.
 */
template <>
struct ZYCORE_EXPORT ZyXMLObject<ZyDataTable, void>
{
    static void Write(ZyXMLElementWriter & element,
                      ZyDataTable const & table);                      ///< puts \a table into \a element
    static ZySharedPtr<ZyXMLLambdaDefinition<ZyDataTable>> LoadRule(); ///< reads such an element

private:
    ZYCORE_PRIVATE static void ClearRows(ZyDataTable & table);
};
