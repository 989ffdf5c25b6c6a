// SPDX-License-Identifier: BSD-3-Clause
// A dense two-dimensional table.
#pragma once

#include <ZyThrow.h>
#include <ZyVector.h>

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

/** Rows by columns of T, stored row after row: element (r, c) is item columns * r + c. */
template <class T>
class ZyMatrix
{
public:
    ZyMatrix() : m_data(), m_rows(0), m_columns(0) {}
    /** All elements equal \a fill. \throws std::length_error the product of the counts passes what an index can say */
    ZyMatrix(unsigned int rows, unsigned int columns, T const & fill = T())
        : m_data(checkedSize(rows, columns), fill), m_rows(rows), m_columns(columns)
    {}
    /** Takes the elements over, row after row. \throws std::length_error their number is not rows * columns */
    ZyMatrix(unsigned int rows, unsigned int columns, std::vector<T> && elements)
        : m_data(), m_rows(rows), m_columns(columns)
    {
        if (checkedSize(rows, columns) != elements.size()) {
            ZyThrow::LengthError("ZyMatrix: number of elements");
        }
        m_data.std_vector() = std::move(elements);
    }
    ZyMatrix(ZyMatrix const &) = default;
    /** Leaves \a other without rows and columns. */
    ZyMatrix(ZyMatrix && other)
        : m_data(std::move(other.m_data)), m_rows(std::exchange(other.m_rows, 0u)),
          m_columns(std::exchange(other.m_columns, 0u))
    {}
    virtual ~ZyMatrix() = default;

    ZyMatrix & operator=(ZyMatrix const &) = default;
    ZyMatrix & operator=(ZyMatrix && other)
    {
        ZyMatrix taken(std::move(other));
        m_data.std_vector().swap(taken.m_data.std_vector());
        m_rows = taken.m_rows;
        m_columns = taken.m_columns;
        return *this;
    }

    /**
     * The element at a zero-based row and column, checked.
     * \throws ZyIndexOutOfBoundsException "Index out of bounds [row,rows]", or then "Index out of bounds [column,columns]"
     */
    T & at(unsigned int row, unsigned int column) { return m_data.std_vector()[checked(row, column)]; }
    T const & at(unsigned int row, unsigned int column) const
    {
        return m_data.std_vector()[checked(row, column)];
    }
    /** The same as at(). */
    T & operator()(unsigned int row, unsigned int column) { return at(row, column); }
    T const & operator()(unsigned int row, unsigned int column) const { return at(row, column); }

    /** The number of rows. */
    unsigned int rows() const { return m_rows; }
    /** The number of columns. */
    unsigned int columns() const { return m_columns; }
    /** All elements, row after row: what hot code walks. */
    std::vector<T> & std_vector() { return m_data.std_vector(); }
    std::vector<T> const & std_vector() const { return m_data.std_vector(); }

private:
    static unsigned int checkedSize(unsigned int rows, unsigned int columns)
    {
        unsigned long long const size = static_cast<unsigned long long>(rows) * columns;
        if (size > std::numeric_limits<unsigned int>::max()) {
            ZyThrow::LengthError("ZyMatrix: rows times columns");
        }
        return static_cast<unsigned int>(size);
    }
    std::size_t checked(unsigned int row, unsigned int column) const
    {
        if (row >= m_rows) {
            ZyThrow::IndexOutOfBounds(row, m_rows);
        }
        if (column >= m_columns) {
            ZyThrow::IndexOutOfBounds(column, m_columns);
        }
        return static_cast<std::size_t>(m_columns) * row + column;
    }

    ZyVector<T> m_data;
    unsigned int m_rows;
    unsigned int m_columns;
};

template <class T>
bool operator==(ZyMatrix<T> const & a, ZyMatrix<T> const & b)
{
    return a.rows() == b.rows() && a.columns() == b.columns() && a.std_vector() == b.std_vector();
}
template <class T>
bool operator!=(ZyMatrix<T> const & a, ZyMatrix<T> const & b)
{
    return !(a == b);
}
