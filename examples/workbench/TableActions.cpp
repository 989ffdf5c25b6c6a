// SPDX-License-Identifier: BSD-3-Clause
// Each action holds what is not in the table at the moment.

#include "TableActions.h"

#include "TableModel.h"

#include <utility>

namespace
{

class ExchangeRow : public ZyAction
{
public:
    ExchangeRow(TableModel & model, int at, RowPtr row) : m_model(model), m_at(at), m_row(std::move(row)) {}

    void performAction() override { m_row = m_model.exchangeRow(m_at, m_row); }
    void performUndo() override { m_row = m_model.exchangeRow(m_at, m_row); }

private:
    TableModel & m_model;
    int m_at;
    RowPtr m_row;
};

class InsertRows : public ZyAction
{
public:
    InsertRows(TableModel & model, int at, Rows rows) : m_model(model), m_at(at), m_rows(std::move(rows)) {}

    void performAction() override { m_model.putRows(m_at, m_rows); }
    void performUndo() override { m_model.takeRows(m_at, int(m_rows.size())); }

private:
    TableModel & m_model;
    int m_at;
    Rows m_rows;
};

class RemoveRows : public ZyAction
{
public:
    RemoveRows(TableModel & model, int at, int count) : m_model(model), m_at(at), m_count(count) {}

    void performAction() override { m_rows = m_model.takeRows(m_at, m_count); }
    void performUndo() override { m_model.putRows(m_at, m_rows); }

private:
    TableModel & m_model;
    int m_at;
    int m_count;
    Rows m_rows;
};

class Reorder : public ZyAction
{
public:
    Reorder(TableModel & model, Rows rows) : m_model(model), m_rows(std::move(rows)) {}

    void performAction() override { m_rows = m_model.exchangeAll(std::move(m_rows)); }
    void performUndo() override { m_rows = m_model.exchangeAll(std::move(m_rows)); }

private:
    TableModel & m_model;
    Rows m_rows;
};

} // namespace

ZyUniquePtr<ZyAction> exchangeRowAction(TableModel & model, int at, RowPtr row)
{
    return ZyUniquePtr<ZyAction>(new ExchangeRow(model, at, std::move(row)));
}

ZyUniquePtr<ZyAction> insertRowsAction(TableModel & model, int at, Rows rows)
{
    return ZyUniquePtr<ZyAction>(new InsertRows(model, at, std::move(rows)));
}

ZyUniquePtr<ZyAction> removeRowsAction(TableModel & model, int at, int count)
{
    return ZyUniquePtr<ZyAction>(new RemoveRows(model, at, count));
}

ZyUniquePtr<ZyAction> reorderAction(TableModel & model, Rows rows)
{
    return ZyUniquePtr<ZyAction>(new Reorder(model, std::move(rows)));
}
