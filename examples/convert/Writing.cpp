// SPDX-License-Identifier: BSD-3-Clause
// The writers, each followed by a look at what has arrived on the disk.

#include "Writing.h"

#include "CountedFile.h"
#include "DataTableFile.h"
#include "PendingFile.h"
#include "SheetWriting.h"
#include "TableError.h"
#include "Terminal.h"
#include "WholePackage.h"

#include <memory>
#include <vector>

namespace
{

/** Reports the rows of one output, and lets an interruption through. */
RowListener reporter(ProgressBar & progress)
{
    return [&progress](unsigned int row) {
        Interruption::check();
        progress.advance(row);
    };
}

TablePieces groupsOf(ShapedTable const & table)
{
    return [&table](PieceVisitor const & visit) { table.forEachGroup(visit); };
}

void writeWorkbookFile(PendingFile const & file, ShapedTable const & table, Options const & options,
                       ProgressBar & progress)
{
    writeWorkbook(file.path(), ZyString(options.sheet), groupsOf(table), reporter(progress));
    if (!isWholeWorkbook(file.path(), 1, Interruption::check)) {
        throw file.incomplete();
    }
}

void writeXmlSheetFile(PendingFile const & file, ShapedTable const & table, ProgressBar & progress)
{
    file.checkSize(writeXmlSheet(file.path(), groupsOf(table), reporter(progress)));
}

void writeCsvFile(PendingFile const & file, ShapedTable const & table, ProgressBar & progress)
{
    CountedFile device(file.path());
    auto const cell = [&table](unsigned int row, unsigned int column) -> ZyVariant const & {
        return table.value(row, column);
    };
    writeCsv(device, table.numberRows(), table.numberColumns(), cell, reporter(progress));
    device.close();
    file.checkSize(device.written());
}

ZyDataTable wholeTable(ShapedTable const & table, ProgressBar & progress)
{
    RowListener const onRow = reporter(progress);
    ZyDataTable whole;
    table.forEachGroup([&](ZyDataTable const & group, unsigned int firstRow) {
        onRow(firstRow);
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
        throw TableError::File(
            file.target(),
            QStringLiteral("%1: a text with blanks at its ends would not come back as it is").arg(place));
    }
}

void write(PendingFile const & file, ShapedTable const & table, Options const & options,
           ProgressBar & progress)
{
    switch (outputKind(file.target())) {
    case OutputKind::Workbook:
        writeWorkbookFile(file, table, options, progress);
        break;
    case OutputKind::XmlSheet:
        writeXmlSheetFile(file, table, progress);
        break;
    case OutputKind::DataTable:
        writeTableFile(file, table, progress);
        break;
    case OutputKind::Csv:
        writeCsvFile(file, table, progress);
        break;
    }
}

// Says which output it was that failed.
void writeNamed(PendingFile const & file, ShapedTable const & table, Options const & options,
                ProgressBar & progress)
{
    try {
        write(file, table, options, progress);
    } catch (TableError const &) {
        throw;
    } catch (ZyUserCancelledException const &) {
        throw;
    } catch (ZyException const & failure) {
        throw TableError::File(file.target(),
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
