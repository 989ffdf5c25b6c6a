// SPDX-License-Identifier: BSD-3-Clause
// Sorting a table of 100,000 rows: against Qt's item model and std::sort over rows of cells of which each has
// its own heap block. The tables are made before the clock starts.
#include "Measure.h"
#include "peers/CellOrder.h"
#include "peers/Workload.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyVariant.h>

#ifdef ZYBENCH_QTGUI
#include <QStandardItemModel>
#endif

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned rows = 100000;
constexpr unsigned columns = 3;
constexpr unsigned mixedColumn = 1; // 40 % doubles, 30 % integers, 30 % texts
constexpr unsigned realColumn = 2;

Cell mixedCell(Random & random)
{
    Cell cell;
    unsigned const kind = random.below(10);
    if (kind < 4) {
        cell.kind = CellKind::Double;
        cell.real = random.unit() * 1000.0;
    } else if (kind < 7) {
        cell.integer = int(random.below(1000000));
    } else {
        cell.kind = CellKind::Text;
        cell.text = (random.below(2) != 0 ? "node_" : "NODE_") + random.word();
    }
    return cell;
}

std::vector<std::array<Cell, columns>> const & cellRows()
{
    static std::vector<std::array<Cell, columns>> const made = [] {
        Random random(20);
        std::vector<std::array<Cell, columns>> result(rows);
        for (auto & row : result) {
            row[0].kind = CellKind::Text;
            row[0].text = random.word();
            row[mixedColumn] = mixedCell(random);
            row[realColumn].kind = CellKind::Double;
            row[realColumn].real = random.unit();
        }
        return result;
    }();
    return made;
}

ZyVariant toVariant(Cell const & cell)
{
    switch (cell.kind) {
    case CellKind::Integer:
        return ZyVariant(cell.integer);
    case CellKind::Double:
        return ZyVariant(cell.real);
    case CellKind::Text:
        break;
    }
    return ZyVariant(cell.text.c_str());
}

ZyDataTable & ourTable()
{
    static ZyDataTable made;
    if (made.numberRows() == 0) {
        for (auto const & row : cellRows()) {
            ZyDeque<ZyDataTableItem> items;
            for (Cell const & cell : row) {
                items.add(ZyDataTableItem(toVariant(cell)));
            }
            made.addRow(items, ZyDataTable::Data);
        }
    }
    return made;
}

using HeapRow = std::vector<HeapCell>;

HeapCell toHeapCell(Cell const & cell)
{
    switch (cell.kind) {
    case CellKind::Integer:
        return HeapCell(cell.integer);
    case CellKind::Double:
        return HeapCell(cell.real);
    case CellKind::Text:
        break;
    }
    return HeapCell(std::string_view(cell.text));
}

std::vector<std::shared_ptr<HeapRow>> & heapTable()
{
    static std::vector<std::shared_ptr<HeapRow>> made;
    if (made.empty()) {
        for (auto const & row : cellRows()) {
            made.push_back(std::make_shared<HeapRow>());
            for (Cell const & cell : row) {
                made.back()->push_back(toHeapCell(cell));
            }
        }
    }
    return made;
}

#ifdef ZYBENCH_QTGUI
QVariant toQt(Cell const & cell)
{
    switch (cell.kind) {
    case CellKind::Integer:
        return QVariant(cell.integer);
    case CellKind::Double:
        return QVariant(cell.real);
    case CellKind::Text:
        break;
    }
    return QVariant(QString::fromStdString(cell.text));
}

QStandardItemModel & qtTable()
{
    static QStandardItemModel made;
    if (made.rowCount() == 0) {
        for (auto const & row : cellRows()) {
            QList<QStandardItem *> items;
            for (Cell const & cell : row) {
                items.append(new QStandardItem); // the model owns it
                items.back()->setData(toQt(cell), Qt::DisplayRole);
            }
            made.appendRow(items);
        }
    }
    return made;
}
#endif

void registerSort(std::string const & family, unsigned column)
{
    addJob(family + "ours", [column] {
        ourTable().sort(column);
        check(ourTable().value(0, column).compare(ourTable().value(rows - 1, column)) < 0, "not sorted");
    });
    addJob(family + "heap-cells", [column] {
        auto less = [column](std::shared_ptr<HeapRow> const & a, std::shared_ptr<HeapRow> const & b) {
            return compareCells((*a)[column], (*b)[column]) < 0;
        };
        std::sort(heapTable().begin(), heapTable().end(), less);
        check(less(heapTable().front(), heapTable().back()), "not sorted");
    });
#ifdef ZYBENCH_QTGUI
    addJob(family + "QStandardItemModel", [column] { qtTable().sort(int(column)); });
#endif
}

} // namespace

void registerBenchmarks()
{
    ourTable();
    heapTable();
#ifdef ZYBENCH_QTGUI
    qtTable();
#endif
    registerSort("sort/mixed/", mixedColumn);
    registerSort("sort/double/", realColumn);
}

} // namespace bench
