// SPDX-License-Identifier: BSD-3-Clause
// The table as Qt's views see it, and the few steps by which it changes.
#pragma once

#include "Rows.h"

#include <QAbstractTableModel>

#include <map>

/** A table for a view. Whoever changes it undoes a step by the same or the opposite step. */
class TableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(QModelIndex const & parent = QModelIndex()) const override;
    int columnCount(QModelIndex const & parent = QModelIndex()) const override;
    QVariant data(QModelIndex const & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(QModelIndex const & index) const override;
    /** Changes nothing itself but asks for it by editRequested(); the text that is there asks for nothing. */
    bool setData(QModelIndex const & index, QVariant const & value, int role = Qt::EditRole) override;

    Rows const & table() const { return m_rows; }
    /** A row, from 0 on. \throws ZyIndexOutOfBoundsException there is no such row */
    RowPtr const & row(int at) const;

    /** Puts a row into the place of another. \return the other */
    RowPtr exchangeRow(int at, RowPtr const & row);
    /** Puts rows in front of the row \a at, or behind the last one. */
    void putRows(int at, Rows const & rows);
    /** Takes rows out. \return them */
    Rows takeRows(int at, int count);
    /** Puts a table into the place of another. \return the other */
    Rows exchangeAll(Rows rows);

Q_SIGNALS:
    /** The user wants a cell to have this text. */
    void editRequested(int row, int column, QString const & text);

private:
    void checkRange(int at, int count) const;
    QVariant look(ZyDataTableRow const & row, int column, int role) const;
    void countWidth(ZyDataTableRow const & row, int change);
    void announceWidth();

    Rows m_rows;
    std::map<int, int> m_widths; ///< how many rows have a width
    int m_columns = 0;           ///< as the views know it
};
