// SPDX-License-Identifier: BSD-3-Clause
// The writers, each followed by a look at what has arrived on the disk.

#include "Writing.h"

#include "Cell.h"
#include "ConvertError.h"
#include "CountedFile.h"
#include "DataTableFile.h"
#include "PendingFile.h"
#include "Terminal.h"
#include "WholePackage.h"

#include <ZyCSVWriter.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZyXMLSpreadsheetWriter.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace
{

/** Reports the rows of one output, and lets an interruption through. */
class RowCounter
{
public:
    explicit RowCounter(ProgressBar & progress) : m_progress(progress) {}
    /** \return whether \a row is another one than in the last call */
    bool enter(unsigned int row)
    {
        if (m_started && row == m_row) {
            return false;
        }
        m_started = true;
        m_row = row;
        Interruption::check();
        m_progress.advance(row);
        return true;
    }

private:
    ProgressBar & m_progress;
    bool m_started = false;
    unsigned int m_row = 0;
};

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

template <class Rows>
void fillSheet(Rows && rows, ShapedTable const & table, ProgressBar & progress)
{
    RowCounter counter(progress);
    table.forEachGroup([&](ZyDataTable const & group, unsigned int firstRow) {
        group.forEachItemSpreadsheet([&](ZyVariant const & value, unsigned int row, unsigned int column,
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
void fillPackage(ZyOOXMLWriter & package, ShapedTable const & table, Options const & options,
                 ProgressBar & progress)
{
    try {
        ZySharedPtr<ZyOOXMLWriterSpreadsheet> const sheet = package.addSheet(ZyString(options.sheet));
        fillSheet(WorkbookRows(*sheet), table, progress);
        package.close();
    } catch (...) {
        try {
            package.close();
        } catch (ZyException const &) { // the first failure is the one to tell
        }
        throw;
    }
}

void writeWorkbook(PendingFile const & file, ShapedTable const & table, Options const & options,
                   ProgressBar & progress)
{
    {
        ZyOOXMLWriter package(file.path(), ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
        fillPackage(package, table, options, progress);
    }
    if (!isWholeWorkbook(file.path(), 1, Interruption::check)) {
        throw file.incomplete();
    }
}

void writeXmlSheet(PendingFile const & file, ShapedTable const & table, ProgressBar & progress)
{
    CountedFile device(file.path());
    {
        ZyXMLSpreadsheetWriter sheet(device);
        fillSheet(XmlSheetRows(sheet), table, progress);
        sheet.finish();
    }
    device.close();
    file.checkSize(device.written());
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

// There are no tall cells in text: each row has all of its values.
void writeCsv(PendingFile const & file, ShapedTable const & table, ProgressBar & progress)
{
    CountedFile device(file.path());
    ZyCSVWriter writer(device);
    RowCounter counter(progress);
    for (unsigned int row = 0; row < table.numberRows(); ++row) {
        counter.enter(row);
        for (unsigned int column = 0; column < table.numberColumns(); ++column) {
            ZyString const text = csvText(table.value(row, column));
            // A line of one empty field would be a blank line, which readers skip.
            writer.addValue(table.numberColumns() == 1 && text.isEmpty() ? ZyString("\"\"") : text);
        }
        writer.endLine();
    }
    device.close();
    file.checkSize(device.written());
}

ZyDataTable wholeTable(ShapedTable const & table, ProgressBar & progress)
{
    RowCounter counter(progress);
    ZyDataTable whole;
    table.forEachGroup([&](ZyDataTable const & group, unsigned int firstRow) {
        counter.enter(firstRow);
        for (ZySharedPtr<ZyDataTableRow> const & row : group.rows().std_deque()) {
            whole.addRow(ZyDataTableRow(*row));
        }
    });
    return whole;
}

// Readers of the form drop blanks at the ends of a text, so that the file is read again before it counts.
void writeTableFile(PendingFile const & file, ShapedTable const & table, ProgressBar & progress)
{
    ZyDataTable const whole = wholeTable(table, progress);
    file.checkSize(writeDataTable(file.path(), whole));
    QString const place = firstDifference(whole, readDataTable(file.temporary()));
    if (!place.isEmpty()) {
        throw ConvertError::File(
            file.target(),
            QStringLiteral("%1: a text with blanks at its ends would not come back as it is").arg(place));
    }
}

void write(PendingFile const & file, ShapedTable const & table, Options const & options,
           ProgressBar & progress)
{
    switch (outputKind(file.target())) {
    case OutputKind::Workbook:
        writeWorkbook(file, table, options, progress);
        break;
    case OutputKind::XmlSheet:
        writeXmlSheet(file, table, progress);
        break;
    case OutputKind::DataTable:
        writeTableFile(file, table, progress);
        break;
    case OutputKind::Csv:
        writeCsv(file, table, progress);
        break;
    }
}

// Says which output it was that failed.
void writeNamed(PendingFile const & file, ShapedTable const & table, Options const & options,
                ProgressBar & progress)
{
    try {
        write(file, table, options, progress);
    } catch (ConvertError const &) {
        throw;
    } catch (ZyUserCancelledException const &) {
        throw;
    } catch (ZyException const & failure) {
        throw ConvertError::File(file.target(),
                                 QStringLiteral("cannot be written: %1").arg(failure.message().toQString()));
    }
}

} // namespace

void writeOutputs(ShapedTable const & table, Options const & options, ProgressBar & progress)
{
    Interruption const interruption;
    std::vector<std::unique_ptr<PendingFile>> files;
    for (QString const & output : options.outputs) {
        files.push_back(std::make_unique<PendingFile>(output));
    }
    for (auto const & file : files) {
        progress.begin(file->target(), table.numberRows());
        writeNamed(*file, table, options, progress);
    }
    for (auto const & file : files) {
        file->commit();
    }
}
