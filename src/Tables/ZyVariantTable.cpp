// SPDX-License-Identifier: BSD-3-Clause
// The plain table: its cells, comparison and conversions. Reading text has a source of its own.
#include <ZyVariantTable.h>

#include "Tables/ZyVariantTable_p.h"

#include <utility>
#include <vector>

namespace
{
/** References to \a count cells, beginning at \a first and \a step cells apart. */
template <class R, class Cells>
ZyVector<R> references(Cells & cells, std::size_t first, unsigned int count, std::size_t step)
{
    ZyVector<R> result;
    result.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        result.add(R(cells.std_vector()[first + index * step]));
    }
    return result;
}

template <class R, class Cells>
ZyVector<R> rowReferences(Cells & cells, unsigned int row)
{
    if (row >= cells.rows()) {
        throw ZyIndexOutOfBoundsException(row, cells.rows());
    }
    return references<R>(cells, static_cast<std::size_t>(cells.columns()) * row, cells.columns(), 1);
}

template <class R, class Cells>
ZyVector<R> columnReferences(Cells & cells, unsigned int column)
{
    if (column >= cells.columns()) {
        throw ZyIndexOutOfBoundsException(column, cells.columns());
    }
    return references<R>(cells, column, cells.rows(), cells.columns());
}

template <class Cells, class F>
void visitAll(Cells & cells, F const & visit)
{
    auto cell = cells.std_vector().begin();
    for (unsigned int row = 0; row < cells.rows(); ++row) {
        for (unsigned int column = 0; column < cells.columns(); ++column) {
            visit(row, column, *cell++);
        }
    }
}

/** -1, 1 or 0 as \a a is less than, more than or as much as \a b. */
template <class N>
int order(N a, N b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

/**
 * Converts each cell by convert(cell, result), which answers whether the cell was of a kind that it knows. Of
 * one that it does not know the rule says what becomes.
 */
template <class T, class F>
ZyMatrix<T> converted(ZyMatrix<ZyVariant> const & cells, ZyVariantTable::ErrorRule rule,
                      ZyVariant::Type expected, F const & convert)
{
    ZyMatrix<T> result(cells.rows(), cells.columns(), T());
    auto target = result.std_vector().begin();
    for (ZyVariant const & cell : cells.std_vector()) {
        if (!convert(cell, *target)) {
            if (rule == ZyVariantTable::ThrowOnError) {
                throw ZyBadVariantAccessException(expected, cell.type());
            }
            if (rule == ZyVariantTable::UseDefault) {
                *target = T();
            }
        }
        ++target;
    }
    return result;
}
} // namespace

ZyVariantTable::ZyVariantTable() : m_d(new Private) {}

ZyVariantTable::ZyVariantTable(unsigned int rows, unsigned int columns)
    : ZyVariantTable(rows, columns, ZyVariant())
{}

ZyVariantTable::ZyVariantTable(unsigned int rows, unsigned int columns, ZyVariant const & fill)
    : m_d(new Private)
{
    d()->cells = ZyMatrix<ZyVariant>(rows, columns, fill);
}

ZyVariantTable::ZyVariantTable(ZyVariantTable const & other) : m_d(new Private(*other.d())) {}

ZyVariantTable::ZyVariantTable(ZyVariantTable && other) noexcept : m_d(std::move(other.m_d)) {}

ZyVariantTable::~ZyVariantTable() = default;

ZyVariantTable & ZyVariantTable::operator=(ZyVariantTable const & other)
{
    if (this != &other) {
        ZyMatrix<ZyVariant> cells(other.d()->cells); // when memory runs out here, this table keeps its own
        if (!m_d) {
            m_d.reset(new Private);
        }
        d()->cells = std::move(cells);
    }
    return *this;
}

ZyVariantTable & ZyVariantTable::operator=(ZyVariantTable && other)
{
    if (this != &other) {
        m_d.swap(other.m_d);
        other.m_d.reset(new Private); // also when this table was moved from, and so had none to give
    }
    return *this;
}

unsigned int ZyVariantTable::numberRows() const
{
    return d()->cells.rows();
}

unsigned int ZyVariantTable::numberColumns() const
{
    return d()->cells.columns();
}

ZyVariant & ZyVariantTable::at(unsigned int row, unsigned int column)
{
    return d()->cells.at(row, column);
}

ZyVariant const & ZyVariantTable::at(unsigned int row, unsigned int column) const
{
    return d()->cells.at(row, column);
}

ZyVector<ZyRef<ZyVariant>> ZyVariantTable::row(unsigned int row)
{
    return rowReferences<ZyRef<ZyVariant>>(d()->cells, row);
}

ZyVector<ZyCRef<ZyVariant>> ZyVariantTable::row(unsigned int row) const
{
    return rowReferences<ZyCRef<ZyVariant>>(d()->cells, row);
}

ZyVector<ZyRef<ZyVariant>> ZyVariantTable::column(unsigned int column)
{
    return columnReferences<ZyRef<ZyVariant>>(d()->cells, column);
}

ZyVector<ZyCRef<ZyVariant>> ZyVariantTable::column(unsigned int column) const
{
    return columnReferences<ZyCRef<ZyVariant>>(d()->cells, column);
}

void ZyVariantTable::forEach(std::function<void(unsigned int, unsigned int, ZyVariant &)> visit)
{
    visitAll(d()->cells, visit);
}

void ZyVariantTable::forEach(std::function<void(unsigned int, unsigned int, ZyVariant const &)> visit) const
{
    ZyMatrix<ZyVariant> const & cells = d()->cells;
    visitAll(cells, visit);
}

int ZyVariantTable::compare(ZyVariantTable const & other) const
{
    ZyMatrix<ZyVariant> const & own = d()->cells;
    ZyMatrix<ZyVariant> const & others = other.d()->cells;
    if (int const bySize = order(own.std_vector().size(), others.std_vector().size())) {
        return bySize;
    }
    if (int const byColumns = order(own.columns(), others.columns())) {
        return byColumns;
    }
    if (int const byRows = order(own.rows(), others.rows())) {
        return byRows;
    }
    return own.std_vector() == others.std_vector() ? 0 : 1;
}

ZyMatrix<double> ZyVariantTable::toDoubleTable(ErrorRule rule) const
{
    return converted<double>(d()->cells, rule, ZyVariant::Double,
                             [](ZyVariant const & cell, double & result) {
                                 switch (cell.type()) {
                                 case ZyVariant::Integer:
                                     result = cell.asInteger();
                                     return true;
                                 case ZyVariant::Double:
                                     result = cell.asDouble();
                                     return true;
                                 default:
                                     return false;
                                 }
                             });
}

ZyMatrix<int> ZyVariantTable::toIntegerTable(ErrorRule rule) const
{
    return converted<int>(d()->cells, rule, ZyVariant::Integer, [](ZyVariant const & cell, int & result) {
        if (cell.type() != ZyVariant::Integer) {
            return false;
        }
        result = cell.asInteger();
        return true;
    });
}

ZyMatrix<ZyString> ZyVariantTable::toStringTable(ErrorRule rule) const
{
    return converted<ZyString>(d()->cells, rule, ZyVariant::String,
                               [](ZyVariant const & cell, ZyString & result) {
                                   switch (cell.type()) {
                                   case ZyVariant::Boolean:
                                   case ZyVariant::Integer:
                                   case ZyVariant::Double:
                                   case ZyVariant::String:
                                       result = cell.toString();
                                       return true;
                                   default:
                                       return false;
                                   }
                               });
}

ZyString ZyVariantTable::toString() const
{
    ZyMatrix<ZyVariant> const & cells = d()->cells;
    ZyString text;
    auto cell = cells.std_vector().begin();
    for (unsigned int row = 0; row < cells.rows(); ++row) {
        for (unsigned int column = 0; column < cells.columns(); ++column) {
            text.append((cell++)->toString()).append("\t");
        }
        text.append("\n");
    }
    return text;
}
