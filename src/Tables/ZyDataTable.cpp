// SPDX-License-Identifier: BSD-3-Clause
// The rich table: its rows, questions about them, and comparison. Sorting and output have sources of their
// own.
#include <ZyDataTable.h>

#include <ZyVariantTable.h>

#include "Tables/ZyDataTable_p.h"

#include <limits>

unsigned int ZyDataTableRows::NumberColumns(ZyDataTableRow const & row)
{
    unsigned int columns = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        columns += std::min(item->columnSpan(), std::numeric_limits<unsigned int>::max() - columns);
    }
    return columns;
}

unsigned int ZyDataTableRows::Height(ZyDataTableRow const & row)
{
    unsigned int height = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        height = std::max(height, item->numberValues());
    }
    return height;
}

ZyDataTableRow const & ZyDataTableRows::At(ZyDeque<ZySharedPtr<ZyDataTableRow>> const & rows,
                                           unsigned int index)
{
    if (index >= rows.size()) {
        throw ZyIndexOutOfBoundsException(index, rows.size());
    }
    return *rows.std_deque()[index];
}

ZyDataTableItem const & ZyDataTableRows::Blank()
{
    static ZyDataTableItem const blank;
    return blank;
}

ZyDataTableItem const & ZyDataTableRows::ItemAt(ZyDataTableRow const & row, unsigned int column)
{
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        unsigned int const columnSpan = item->columnSpan();
        if (column < columnSpan) {
            return *item;
        }
        column -= columnSpan;
    }
    return Blank();
}

ZyDataTable::ZyDataTable() : m_d(new Private) {}

ZyDataTable::ZyDataTable(ZyDataTable const & other) : m_d(new Private(*other.d())) {}

ZyDataTable::ZyDataTable(ZyDataTable && other) : m_d(new Private(*other.d())) {}

ZyDataTable::ZyDataTable(ZyVariantTable const & table) : m_d(new Private)
{
    d()->numberColumns = table.numberColumns();
    for (unsigned int row = 0; row < table.numberRows(); ++row) {
        ZyDeque<ZySharedPtr<ZyDataTableItem>> items;
        for (unsigned int column = 0; column < table.numberColumns(); ++column) {
            items.add(ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem(table.at(row, column))));
        }
        addRow(std::move(items), Data);
    }
}

ZyDataTable::~ZyDataTable() = default;

ZyDataTable & ZyDataTable::operator=(ZyDataTable && other) noexcept
{
    m_d.swap(other.m_d);
    return *this;
}

void ZyDataTable::addRow(ZyDeque<ZySharedPtr<ZyDataTableItem>> && items, ItemType type)
{
    append(ZySharedPtr<ZyDataTableRow>(new ZyDataTableRow(std::move(items), type)));
}

void ZyDataTable::addRow(ZyDeque<ZyDataTableItem> const & items, ItemType type)
{
    ZyDeque<ZySharedPtr<ZyDataTableItem>> copies;
    for (ZyDataTableItem const & item : items.std_deque()) {
        copies.add(ZySharedPtr<ZyDataTableItem>(new ZyDataTableItem(item)));
    }
    addRow(std::move(copies), type);
}

void ZyDataTable::addRow(ZyDataTableRow && row)
{
    addRow(std::move(row.items), row.type);
}

void ZyDataTable::addRow(ZyUniquePtr<ZyDataTableRow> row)
{
    static_cast<void>(*row); // refuses a null row
    append(ZySharedPtr<ZyDataTableRow>(std::move(row)));
}

void ZyDataTable::clear()
{
    d()->rows.clear();
    d()->numberColumns = 0;
}

unsigned int ZyDataTable::numberColumns() const
{
    return d()->numberColumns;
}

unsigned int ZyDataTable::numberRows() const
{
    return d()->rows.size();
}

ZyDeque<ZySharedPtr<ZyDataTableRow>> const & ZyDataTable::rows() const
{
    return d()->rows;
}

bool ZyDataTable::isHeader(unsigned int row) const
{
    ItemType const type = ZyDataTableRows::At(d()->rows, row).type;
    return type == Header || type == SubHeader;
}

ZyVariant const & ZyDataTable::value(unsigned int row, unsigned int column) const
{
    return ZyDataTableRows::ItemAt(ZyDataTableRows::At(d()->rows, row), column).value();
}

ZyDeque<ZyVariant> const & ZyDataTable::values(unsigned int row, unsigned int column) const
{
    return ZyDataTableRows::ItemAt(ZyDataTableRows::At(d()->rows, row), column).values();
}

bool ZyDataTable::operator==(ZyDataTable const & other) const
{
    auto const equalItems = [](ZySharedPtr<ZyDataTableItem> const & a,
                               ZySharedPtr<ZyDataTableItem> const & b) { return *a == *b; };
    auto const equalRows = [&](ZySharedPtr<ZyDataTableRow> const & a, ZySharedPtr<ZyDataTableRow> const & b) {
        // Rows of one width may differ in the number of items, which std::equal compares first.
        return ZyDataTableRows::NumberColumns(*a) == ZyDataTableRows::NumberColumns(*b) &&
               a->type == b->type &&
               std::equal(a->items.std_deque().begin(), a->items.std_deque().end(),
                          b->items.std_deque().begin(), b->items.std_deque().end(), equalItems);
    };
    std::deque<ZySharedPtr<ZyDataTableRow>> const & own = d()->rows.std_deque();
    std::deque<ZySharedPtr<ZyDataTableRow>> const & others = other.d()->rows.std_deque();
    return own.size() == others.size() && d()->numberColumns == other.d()->numberColumns &&
           std::equal(own.begin(), own.end(), others.begin(), others.end(), equalRows);
}

bool ZyDataTable::operator!=(ZyDataTable const & other) const
{
    return !(*this == other);
}

void ZyDataTable::append(ZySharedPtr<ZyDataTableRow> const & row)
{
    unsigned int const columns = ZyDataTableRows::NumberColumns(*row);
    d()->rows.add(row);
    d()->numberColumns = std::max(d()->numberColumns, columns);
}
