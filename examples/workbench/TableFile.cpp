// SPDX-License-Identifier: BSD-3-Clause
// Reading by what all hosts share; saving through ZyFileWriter.

#include "TableFile.h"

#include "DataTableFile.h"
#include "ResultTable.h"
#include "SheetWriting.h"
#include "TableError.h"
#include "TableReading.h"
#include "TextCheck.h"

#include <ZyFile.h>
#include <ZyFileException.h>
#include <ZyFileWriter.h>
#include <ZyStringDevice.h>

#include <QFileInfo>

#include <algorithm>
#include <string>
#include <utility>

namespace
{

// Whatever the library throws, with the name of the file in front.
template <class Work>
auto naming(QString const & file, Work const & work)
{
    try {
        return work();
    } catch (TableError const &) {
        throw;
    } catch (ZyException const & failure) {
        throw TableError::File(file, failure.message().toQString());
    }
}

ZyDataTable withoutLineEnds(ZyIODevice & device)
{
    ZyDataTable table;
    while (!device.atEnd()) {
        std::string line = device.readLine(0).toStdString();
        line.erase(std::min(line.size(), line.find_last_not_of("\r\n") + 1));
        table.addRow(ZyDeque<ZyDataTableItem>{ZyVariant(ZyString(line))}, ZyDataTable::Data);
    }
    return table;
}

ZyString csvOf(Rows const & rows)
{
    ZyVariantTable const cells = flat(tableOf(rows));
    ZyStringDevice device;
    device.open(ZyIODevice::Write);
    auto const cell = [&cells](unsigned int row, unsigned int column) -> ZyVariant const & {
        return cells.at(row, column);
    };
    writeCsv(device, cells.numberRows(), cells.numberColumns(), cell, [](unsigned int) {});
    return device.content();
}

// Readers of this form drop blanks at the ends of a text, so that it is read again before it counts.
ZyString dataTableOf(QString const & file, Rows const & rows)
{
    ZyDataTable const table = tableOf(rows);
    ZyStringDevice device;
    writeDataTable(device, table);
    ZyStringDevice written(device.content());
    QString const place = firstDifference(table, readDataTable(written));
    if (!place.isEmpty()) {
        throw TableError::File(
            file,
            QStringLiteral("%1: a text with blanks at its ends would not come back as it is").arg(place));
    }
    return device.content();
}

ZyString contentOf(QString const & file, Rows const & rows)
{
    switch (formOf(file)) {
    case FileForm::Csv:
        return csvOf(rows);
    case FileForm::DataTable:
        return dataTableOf(file, rows);
    default:
        throw TableError::File(file, QStringLiteral("can be saved as .csv or .zyt.xml only"));
    }
}

} // namespace

FileForm formOf(QString const & file)
{
    if (isDataTableFile(file)) {
        return FileForm::DataTable;
    }
    QString const extension = QFileInfo(file).suffix().toLower();
    return extension == u"csv" ? FileForm::Csv : extension == u"msw" ? FileForm::Result : FileForm::Other;
}

ZyDataTable openTable(QString const & file)
{
    return naming(file, [&file] {
        switch (formOf(file)) {
        case FileForm::Result:
            return readResults(file);
        case FileForm::DataTable:
            return std::move(*readInput(file, {}).asStored);
        case FileForm::Csv:
            return ZyDataTable(readInput(file, {}).table);
        default:
            throw TableError::File(file, QStringLiteral("is no table; open a .csv, .zyt.xml or .msw file"));
        }
    });
}

ZyDataTable openText(QString const & file)
{
    return naming(file, [&file] {
        checkText(file);
        ZyFile device{ZyFilePath(ZyString(file))};
        device.open(ZyIODevice::Read);
        return withoutLineEnds(device);
    });
}

void saveTable(QString const & file, Rows const & rows)
{
    naming(file, [&] {
        ZyString const content = contentOf(file, rows);
        ZyFileWriter writer{ZyString(file)};
        writer.open();
        writer.write(content);
        writer.close();
    });
}
