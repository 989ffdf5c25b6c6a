// SPDX-License-Identifier: BSD-3-Clause
// The view of a table.
#pragma once

#include <QRect>
#include <QTableView>

class TableModel;

/** A table view that shows wide cells wide and tall ones tall. */
class TableView : public QTableView
{
    Q_OBJECT

public:
    explicit TableView(TableModel & model, QWidget * parent = nullptr);

    /** What is selected, columns by rows; empty when nothing is. */
    QRect area() const;
    /** Moves to a cell, as near as there is one. */
    void goTo(int row, int column);
    /** Ends typing in a cell, and what was typed counts. */
    void endTyping();
    /** To be called when another table is shown. */
    void fitColumns();
    /** To be called when the table has changed. */
    void fitCells();

private:
    void fitRow(int row);

    TableModel & m_model;
};
