// SPDX-License-Identifier: BSD-3-Clause
// Gestures of the user become actions on rows.

#include "Document.h"

#include "Cell.h"
#include "TableActions.h"
#include "TableFile.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int newTableRows = 1;
constexpr int newTableColumns = 4;

ZyUniquePtr<Gesture> gesture(QString const & description)
{
    return ZyUniquePtr<Gesture>(new Gesture(ZyString(description)));
}

QString cellName(int row, int column)
{
    return columnName(column) + QString::number(row + 1);
}

QString rowWords(int at, int count)
{
    return count == 1 ? QStringLiteral("row %1").arg(at + 1) : QStringLiteral("%1 rows").arg(count);
}

int leadingHeadings(Rows const & rows)
{
    auto const isPlain = [](RowPtr const & row) { return row->type == ZyDataTable::Data; };
    return int(std::find_if(rows.begin(), rows.end(), isPlain) - rows.begin());
}

Rows sorted(Rows const & rows, int column, bool ascending)
{
    ZyDataTable table = tableOf(rows);
    auto const headings = unsigned(leadingHeadings(rows));
    table.sort(unsigned(column), headings, unsigned(rows.size()) - headings,
               [ascending](ZyVariant const & a, ZyVariant const & b) {
                   return ascending ? isLess(a, b) : isLess(b, a);
               });
    return rowsOf(table);
}

RowPtr withCells(RowPtr row, int column, ZyVariantTable const & cells, unsigned int from)
{
    for (unsigned int i = 0; i < cells.numberColumns(); ++i) {
        row = withValue(*row, column + int(i), cells.at(from, i));
    }
    return row;
}

RowPtr cleared(RowPtr row, QRect const & area)
{
    for (int column = area.left(); column <= std::min(area.right(), widthOf(*row) - 1); ++column) {
        row = withValue(*row, column, ZyVariant(ZyString()));
    }
    return row;
}

} // namespace

Document::Document(QObject * parent) : QObject(parent)
{
    reset();
}

bool Document::canSave() const
{
    FileForm const form = formOf(m_file);
    return form == FileForm::Csv || form == FileForm::DataTable;
}

void Document::take(ZyDataTable const & table, QString const & file)
{
    m_model.exchangeAll(rowsOf(table));
    m_history.clear();
    m_file = file;
    Q_EMIT changed();
}

void Document::reset()
{
    take(tableOf(Rows(newTableRows, blankRow(newTableColumns))), QString());
}

void Document::open(QString const & file)
{
    take(openTable(file), file);
}

void Document::openLines(QString const & file)
{
    take(openText(file), QString());
}

void Document::save(QString const & file)
{
    saveTable(file, m_model.table());
    m_file = file;
    m_history.markSaved();
    Q_EMIT changed();
}

void Document::edit(int row, int column, QString const & text)
{
    auto editing = gesture(QStringLiteral("Edit %1").arg(cellName(row, column)));
    editing->addStep(exchangeRowAction(m_model, row, withValue(*m_model.row(row), column, valueOf(text))));
    perform(std::move(editing));
}

void Document::insertRows(int at, int count)
{
    int const columns = std::max(m_model.columnCount(), 1);
    Rows rows;
    for (int i = 0; i < count; ++i) {
        rows.push_back(blankRow(columns));
    }
    auto insertion = gesture(QStringLiteral("Insert %1").arg(rowWords(at, count)));
    insertion->addStep(insertRowsAction(m_model, at, std::move(rows)));
    perform(std::move(insertion));
}

void Document::removeRows(int at, int count)
{
    auto removal = gesture(QStringLiteral("Delete %1").arg(rowWords(at, count)));
    removal->addStep(removeRowsAction(m_model, at, count));
    perform(std::move(removal));
}

void Document::sort(int column, bool ascending)
{
    QString const words =
        ascending ? QStringLiteral("Sort by column %1") : QStringLiteral("Sort by column %1, descending");
    auto sorting = gesture(words.arg(columnName(column)));
    sorting->addStep(reorderAction(m_model, sorted(m_model.table(), column, ascending)));
    perform(std::move(sorting));
}

void Document::clear(QRect const & area)
{
    long long const cells = 1LL * area.width() * area.height();
    auto clearing = gesture(cells == 1 ? QStringLiteral("Clear %1").arg(cellName(area.top(), area.left()))
                                       : QStringLiteral("Clear %1 cells").arg(cells));
    for (int row = area.top(); row <= area.bottom(); ++row) {
        clearing->addStep(exchangeRowAction(m_model, row, cleared(m_model.row(row), area)));
    }
    perform(std::move(clearing));
}

void Document::paste(int row, int column, ZyVariantTable const & cells)
{
    int const rows = int(cells.numberRows());
    auto pasting = gesture(QStringLiteral("Paste %1 × %2 cells").arg(rows).arg(cells.numberColumns()));
    int const missing = row + rows - m_model.rowCount();
    RowPtr const blank = blankRow(std::max(m_model.columnCount(), 1));
    if (missing > 0) {
        pasting->addStep(insertRowsAction(m_model, m_model.rowCount(), Rows(std::size_t(missing), blank)));
    }
    for (int i = 0; i < rows; ++i) {
        RowPtr const former = row + i < m_model.rowCount() ? m_model.row(row + i) : blank;
        pasting->addStep(exchangeRowAction(m_model, row + i, withCells(former, column, cells, unsigned(i))));
    }
    perform(std::move(pasting));
}

void Document::toggleHeadings(int at, int count)
{
    bool const isPlain = m_model.row(at)->type == ZyDataTable::Data;
    auto const type = isPlain ? ZyDataTable::Header : ZyDataTable::Data;
    auto marking = gesture((isPlain ? QStringLiteral("Make %1 a heading") : QStringLiteral("Make %1 plain"))
                               .arg(rowWords(at, count)));
    for (int row = at; row < at + count; ++row) {
        marking->addStep(exchangeRowAction(m_model, row, withType(*m_model.row(row), type)));
    }
    perform(std::move(marking));
}

void Document::perform(ZyUniquePtr<Gesture> gesture)
{
    m_history.perform(std::move(gesture));
    Q_EMIT changed();
}

void Document::undo()
{
    m_history.undo();
    Q_EMIT changed();
}

void Document::redo()
{
    m_history.redo();
    Q_EMIT changed();
}
