// SPDX-License-Identifier: BSD-3-Clause
// Spans, sizes and the selection.

#include "TableView.h"

#include "TableModel.h"

#include <QHeaderView>

#include <algorithm>

namespace
{

// Beyond this, looking at all rows after each change would take longer than a user waits.
constexpr int mostFittedRows = 10000;
constexpr int mostMeasuredRows = 100;
constexpr int widestColumn = 320;
constexpr int columnMargin = 12;

} // namespace

TableView::TableView(TableModel & model, QWidget * parent) : QTableView(parent), m_model(model)
{
    setObjectName(QStringLiteral("table"));
    setModel(&model);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setCornerButtonEnabled(true);
    setWordWrap(false);
    horizontalHeader()->setResizeContentsPrecision(mostMeasuredRows);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    connect(&model, &QAbstractItemModel::modelReset, this, &TableView::fitCells);
}

QRect TableView::area() const
{
    QRect area;
    for (QItemSelectionRange const & range : selectionModel()->selection()) {
        area |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    }
    return area;
}

void TableView::goTo(int row, int column)
{
    int const lastRow = m_model.rowCount() - 1;
    int const lastColumn = m_model.columnCount() - 1;
    if (lastRow >= 0 && lastColumn >= 0) {
        QModelIndex const index =
            m_model.index(std::clamp(row, 0, lastRow), std::clamp(column, 0, lastColumn));
        // Not setCurrentIndex(): with the control key of a shortcut down, that adds to the selection.
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    }
}

void TableView::endTyping()
{
    if (state() == QAbstractItemView::EditingState) {
        setFocus(); // the editor loses it, which ends typing
    }
}

void TableView::fitColumns()
{
    resizeColumnsToContents();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        setColumnWidth(column, std::min(columnWidth(column) + columnMargin, widestColumn));
    }
}

void TableView::fitCells()
{
    clearSpans();
    int const rows = m_model.rowCount();
    for (int row = 0; rows <= mostFittedRows && row < rows; ++row) {
        fitRow(row);
    }
}

void TableView::fitRow(int row)
{
    int column = 0;
    std::size_t height = 1;
    for (ZySharedPtr<ZyDataTableItem> const & item : m_model.row(row)->items.std_deque()) {
        int const span = int(item->columnSpan());
        if (span > 1) {
            setSpan(row, column, 1, span);
        }
        column += span;
        height = std::max(height, item->values().std_deque().size());
    }
    int const line = fontMetrics().lineSpacing();
    int const wanted = verticalHeader()->defaultSectionSize() + int(height - 1) * line;
    if (rowHeight(row) != wanted) {
        setRowHeight(row, wanted);
    }
}
