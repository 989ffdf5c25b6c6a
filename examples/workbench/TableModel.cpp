// SPDX-License-Identifier: BSD-3-Clause
// Texts, fonts and colours of cells; steps with the signals that views want.

#include "TableModel.h"

#include "Cell.h"

#include <ZyException.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <iterator>
#include <utility>

namespace
{

bool isHeading(ZyDataTableRow const & row)
{
    return row.type != ZyDataTable::Data;
}

bool isNumber(ZyDataTableItem const * cell)
{
    if (!cell || cell->numberValues() == 0) {
        return false;
    }
    CellKind const kind = kindOf(cell->values().std_deque().front());
    return kind == CellKind::Integer || kind == CellKind::Decimal;
}

} // namespace

int TableModel::rowCount(QModelIndex const & parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int TableModel::columnCount(QModelIndex const & parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant TableModel::data(QModelIndex const & index, int role) const
{
    return index.isValid() ? look(*row(index.row()), index.column(), role) : QVariant();
}

QVariant TableModel::look(ZyDataTableRow const & row, int column, int role) const
{
    ZyDataTableItem const * const cell = cellAt(row, column);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return textOf(cell, QStringLiteral("\n"));
    case Qt::TextAlignmentRole:
        return int((isNumber(cell) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::FontRole:
        if (isHeading(row)) {
            QFont font = QGuiApplication::font();
            font.setBold(true);
            return font;
        }
        return QVariant();
    case Qt::BackgroundRole:
        return isHeading(row) ? QGuiApplication::palette().brush(QPalette::AlternateBase) : QVariant();
    default:
        return QVariant();
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole) {
        return QVariant();
    }
    return orientation == Qt::Horizontal ? columnName(section) : QString::number(section + 1);
}

// A line editor would make one value of stacked ones.
Qt::ItemFlags TableModel::flags(QModelIndex const & index) const
{
    Qt::ItemFlags const flags = QAbstractTableModel::flags(index);
    ZyDataTableItem const * const cell =
        index.isValid() ? cellAt(*row(index.row()), index.column()) : nullptr;
    return cell && cell->numberValues() > 1 ? flags : flags | Qt::ItemIsEditable;
}

bool TableModel::setData(QModelIndex const & index, QVariant const & value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || value.toString() == data(index, role).toString()) {
        return false;
    }
    Q_EMIT editRequested(index.row(), index.column(), value.toString());
    return true;
}

RowPtr const & TableModel::row(int at) const
{
    checkRange(at, 1);
    return m_rows[std::size_t(at)];
}

void TableModel::checkRange(int at, int count) const
{
    int const rows = int(m_rows.size());
    if (at < 0 || count < 0 || at > rows - count) {
        throw ZyIndexOutOfBoundsException(unsigned(at), unsigned(rows));
    }
}

RowPtr TableModel::exchangeRow(int at, RowPtr const & row)
{
    checkRange(at, 1);
    RowPtr former = std::exchange(m_rows[std::size_t(at)], row);
    countWidth(*row, 1);
    countWidth(*former, -1);
    announceWidth();
    if (m_columns > 0) {
        Q_EMIT dataChanged(index(at, 0), index(at, m_columns - 1));
    }
    return former;
}

void TableModel::putRows(int at, Rows const & rows)
{
    checkRange(at, 0);
    if (rows.empty()) {
        return;
    }
    beginInsertRows(QModelIndex(), at, at + int(rows.size()) - 1);
    m_rows.insert(m_rows.begin() + at, rows.begin(), rows.end());
    endInsertRows();
    for (RowPtr const & row : rows) {
        countWidth(*row, 1);
    }
    announceWidth();
}

Rows TableModel::takeRows(int at, int count)
{
    checkRange(at, count);
    if (count == 0) {
        return {};
    }
    auto const first = m_rows.begin() + at;
    Rows taken(first, first + count);
    beginRemoveRows(QModelIndex(), at, at + count - 1);
    m_rows.erase(first, first + count);
    endRemoveRows();
    for (RowPtr const & row : taken) {
        countWidth(*row, -1);
    }
    announceWidth();
    return taken;
}

Rows TableModel::exchangeAll(Rows rows)
{
    beginResetModel();
    std::swap(m_rows, rows);
    m_widths.clear();
    for (RowPtr const & row : m_rows) {
        countWidth(*row, 1);
    }
    m_columns = m_widths.empty() ? 0 : m_widths.rbegin()->first;
    endResetModel();
    return rows;
}

void TableModel::countWidth(ZyDataTableRow const & row, int change)
{
    auto const entry = m_widths.try_emplace(widthOf(row), 0).first;
    entry->second += change;
    if (entry->second == 0) {
        m_widths.erase(entry);
    }
}

void TableModel::announceWidth()
{
    int const columns = m_widths.empty() ? 0 : m_widths.rbegin()->first;
    if (columns > m_columns) {
        beginInsertColumns(QModelIndex(), m_columns, columns - 1);
        m_columns = columns;
        endInsertColumns();
    } else if (columns < m_columns) {
        beginRemoveColumns(QModelIndex(), columns, m_columns - 1);
        m_columns = columns;
        endRemoveColumns();
    }
}
