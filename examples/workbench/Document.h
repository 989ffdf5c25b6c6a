// SPDX-License-Identifier: BSD-3-Clause
// The table that is open: what can be done with it, and undone.
#pragma once

#include "History.h"
#include "TableModel.h"

#include <ZyVariantTable.h>

#include <QObject>
#include <QRect>

/**
 * A table, its file and its history. Rows and columns count from 0; an area is of columns by rows.
 *
 * What throws has changed nothing.
 */
class Document : public QObject
{
    Q_OBJECT

public:
    explicit Document(QObject * parent = nullptr);

    TableModel & model() { return m_model; }
    History const & history() const { return m_history; }
    /** Empty for a table without a file. */
    QString const & file() const { return m_file; }
    /** Whether save() can write the form of the file. */
    bool canSave() const;

    /** An empty table without a file. */
    void reset();
    /** \throws TableError it cannot be read */
    void open(QString const & file);
    /** Takes the lines of a text file as a table without a file. \throws TableError it cannot be read */
    void openLines(QString const & file);
    /** Saves, and from now on belongs to \a file. \throws TableError it cannot be saved */
    void save(QString const & file);

    void edit(int row, int column, QString const & text);
    void insertRows(int at, int count);
    void removeRows(int at, int count);
    /** Sorts the rows below the headings. \throws ZyException a cell of the column stacks values */
    void sort(int column, bool ascending);
    void clear(QRect const & area);
    /** Puts cells into a table, which becomes larger where they do not fit. */
    void paste(int row, int column, ZyVariantTable const & cells);
    /** Makes headings of rows, or plain rows when they are headings. */
    void toggleHeadings(int at, int count);
    /** Does something and records it. */
    void perform(ZyUniquePtr<Gesture> gesture);
    void undo();
    void redo();

Q_SIGNALS:
    /** The table, its file or its history is another one. */
    void changed();

private:
    void take(ZyDataTable const & table, QString const & file);

    TableModel m_model;
    History m_history;
    QString m_file;
};
