// SPDX-License-Identifier: BSD-3-Clause
// The writers of the library, each fed in the order that it wants.

#include "SheetWriting.h"

#include "Cell.h"
#include "CountedFile.h"

#include <ZyCSVWriter.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyXMLSpreadsheetWriter.h>

#include <string>

namespace
{

/** The sheet of a workbook finds the place of each cell itself, beside tall cells too. */
class WorkbookRows
{
public:
    explicit WorkbookRows(ZyOOXMLWriterSpreadsheet & sheet) : m_sheet(sheet) {}
    void start() { m_sheet.startRow(); }
    void add(ZyVariant const & value, unsigned int, unsigned int columnSpan, unsigned int rowSpan)
    {
        m_sheet.addCell(kindOf(value) == CellKind::Empty ? ZyVariant() : value, columnSpan, rowSpan);
    }

private:
    ZyOOXMLWriterSpreadsheet & m_sheet;
};

/** In a single-file sheet a cell stands behind the one before it: squares below a tall cell are to be filled.
 */
class XmlSheetRows
{
public:
    explicit XmlSheetRows(ZyXMLSpreadsheetWriter & sheet) : m_sheet(sheet) {}
    void start()
    {
        m_sheet.startRow();
        m_next = 0;
    }
    void add(ZyVariant const & value, unsigned int column, unsigned int columnSpan, unsigned int rowSpan)
    {
        for (; m_next < column; ++m_next) {
            m_sheet.addCell(ZyString(), 1, 1);
        }
        m_sheet.addCell(value, columnSpan, rowSpan);
        m_next += columnSpan;
    }

private:
    ZyXMLSpreadsheetWriter & m_sheet;
    unsigned int m_next = 0;
};

/** Tells each row once. */
class RowCounter
{
public:
    explicit RowCounter(RowListener const & listener) : m_listener(listener) {}
    /** \return whether \a row is another one than in the last call */
    bool enter(unsigned int row)
    {
        if (m_started && row == m_row) {
            return false;
        }
        m_started = true;
        m_row = row;
        m_listener(row);
        return true;
    }

private:
    RowListener const & m_listener;
    bool m_started = false;
    unsigned int m_row = 0;
};

template <class Rows>
void fillSheet(Rows && rows, TablePieces const & pieces, RowListener const & onRow)
{
    RowCounter counter(onRow);
    pieces([&](ZyDataTable const & piece, unsigned int firstRow) {
        piece.forEachItemSpreadsheet([&](ZyVariant const & value, unsigned int row, unsigned int column,
                                         unsigned int columnSpan, unsigned int rowSpan,
                                         ZyDataTable::ItemType) {
            if (counter.enter(firstRow + row)) {
                rows.start();
            }
            rows.add(value, column, columnSpan, rowSpan);
        });
    });
}

// The destructor of a package closes it as well, and a failure there would end the process: after a failure
// it is closed here once more, with nobody left to be told.
void fillPackage(ZyOOXMLWriter & package, ZyString const & name, TablePieces const & pieces,
                 RowListener const & onRow)
{
    try {
        ZySharedPtr<ZyOOXMLWriterSpreadsheet> const sheet = package.addSheet(name);
        fillSheet(WorkbookRows(*sheet), pieces, onRow);
        package.close();
    } catch (...) {
        try {
            package.close();
        } catch (ZyException const &) { // the first failure is the one to tell
        }
        throw;
    }
}

// The library's writer puts a text as it is; quotes where they are needed are its caller's to add.
ZyString csvText(ZyVariant const & value)
{
    ZyString const text = exactText(value);
    std::string const & letters = text.toStdString();
    bool const special = letters.find_first_of(",\"\r\n") != std::string::npos;
    bool const blankEnds = !letters.empty() && (ZyString::IsWhiteSpace(letters.front()) ||
                                                ZyString::IsWhiteSpace(letters.back()));
    return special || blankEnds ? "\"" + text.replaced("\"", "\"\"", ZyComparableString::CaseSensitive) + "\""
                                : text;
}

} // namespace

TablePieces onePiece(ZyDataTable const & table)
{
    return [&table](PieceVisitor const & visit) { visit(table, 0); };
}

void writeWorkbook(ZyFilePath const & file, ZyString const & sheet, TablePieces const & pieces,
                   RowListener const & onRow)
{
    ZyOOXMLWriter package(file, ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
    fillPackage(package, sheet, pieces, onRow);
}

unsigned long long writeXmlSheet(ZyFilePath const & file, TablePieces const & pieces,
                                 RowListener const & onRow)
{
    CountedFile device(file);
    {
        ZyXMLSpreadsheetWriter sheet(device);
        fillSheet(XmlSheetRows(sheet), pieces, onRow);
        sheet.finish();
    }
    device.close();
    return device.written();
}

// There are no tall cells in text: each row has all of its values.
void writeCsv(ZyIODevice & device, unsigned int rows, unsigned int columns, CellReader const & cell,
              RowListener const & onRow)
{
    ZyCSVWriter writer(device);
    for (unsigned int row = 0; row < rows; ++row) {
        onRow(row);
        for (unsigned int column = 0; column < columns; ++column) {
            ZyString const text = csvText(cell(row, column));
            // A line of one empty field would be a blank line, which readers skip.
            writer.addValue(columns == 1 && text.isEmpty() ? ZyString("\"\"") : text);
        }
        writer.endLine();
    }
}
