// SPDX-License-Identifier: BSD-3-Clause
// One area, three texts.

#include "Selection.h"

#include "Cell.h"
#include "SheetWriting.h"

#include <ZyClipboard.h>
#include <ZyStringDevice.h>

#include <QStringList>

#include <algorithm>

namespace
{

// A cell with several values becomes one text.
ZyVariantTable cellsIn(Rows const & rows, QRect const & area)
{
    ZyVariantTable cells(unsigned(area.height()), unsigned(area.width()), ZyVariant(ZyString()));
    cells.forEach([&](unsigned int row, unsigned int column, ZyVariant & value) {
        ZyDataTableRow const & source = *rows[std::size_t(area.top()) + row];
        int const place = area.left() + int(column);
        ZyDataTableItem const * const cell = cellAt(source, place);
        bool const isFirst = firstColumnOf(source, place) == place || column == 0;
        if (cell && isFirst) {
            value = cell->numberValues() == 1 ? cell->value() : ZyVariant(textOf(cell, QStringLiteral("; ")));
        }
    });
    return cells;
}

QString plainOf(ZyVariant const & value)
{
    QString text = exactText(value).toQString();
    return text.replace(u'\t', u' ').replace(u'\n', u' ');
}

QString plainOf(ZyVariantTable const & cells)
{
    QString text;
    cells.forEach([&](unsigned int, unsigned int column, ZyVariant const & value) {
        bool const isLast = column + 1 == cells.numberColumns();
        text += plainOf(value) + QChar(isLast ? u'\n' : u'\t');
    });
    return text;
}

QString csvOf(ZyVariantTable const & cells)
{
    ZyStringDevice device;
    device.open(ZyIODevice::Write);
    auto const cell = [&cells](unsigned int row, unsigned int column) -> ZyVariant const & {
        return cells.at(row, column);
    };
    writeCsv(device, cells.numberRows(), cells.numberColumns(), cell, [](unsigned int) {});
    return device.content().toQString();
}

QString htmlOf(ZyVariantTable const & cells, Rows const & rows, int top)
{
    QString html = QStringLiteral("<html><head><meta charset=\"utf-8\"></head><body><table>\n");
    for (unsigned int row = 0; row < cells.numberRows(); ++row) {
        bool const isHeading = rows[std::size_t(top) + row]->type != ZyDataTable::Data;
        QString const form = isHeading ? QStringLiteral("<th>%1</th>") : QStringLiteral("<td>%1</td>");
        html += QStringLiteral("<tr>");
        for (unsigned int column = 0; column < cells.numberColumns(); ++column) {
            html += form.arg(exactText(cells.at(row, column)).toQString().toHtmlEscaped());
        }
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</table></body></html>\n");
}

} // namespace

CellTexts textsOf(Rows const & rows, QRect const & area)
{
    ZyVariantTable const cells = cellsIn(rows, area);
    return {plainOf(cells), csvOf(cells), htmlOf(cells, rows, area.top())};
}

void copyCells(CellTexts const & texts)
{
    ZyClipboard::WriteText(ZyDeque<ZyClipboard::Item>{{"text/plain", ZyString(texts.plain)},
                                                      {"text/csv", ZyString(texts.csv)},
                                                      {"text/html", ZyString(texts.html)}});
}

ZyVariantTable cellsOf(QString const & plain)
{
    QString text = plain;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (text.endsWith(u'\n')) {
        text.chop(1);
    }
    QStringList const lines = text.split(u'\n');
    int columns = 1;
    for (QString const & line : lines) {
        columns = std::max(columns, 1 + line.count(u'\t'));
    }
    ZyVariantTable cells(unsigned(lines.size()), unsigned(columns), ZyVariant(ZyString()));
    for (int row = 0; row < lines.size(); ++row) {
        QStringList const fields = lines[row].split(u'\t');
        for (int column = 0; column < fields.size(); ++column) {
            cells.at(unsigned(row), unsigned(column)) = valueOf(fields[column]);
        }
    }
    return cells;
}
