// SPDX-License-Identifier: BSD-3-Clause
// Sorting the rows of a data table.
// A copy of the order is sorted and assigned back when all went well, so that a comparison that throws leaves
// the table whole; and by a stable sort, which keeps to the array whatever a host's comparison answers.
#include <ZyDataTable.h>

#include <ZyMaths.h>

#include "Tables/ZyDataTable_p.h"

#include <array>
#include <cstdint>
#include <deque>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace
{

/** What is sorted in place of a row: its value, and where the row stands. */
struct SortKey
{
    ZyVariant const * value;
    std::size_t row;
};

/**
 * A key with so much of its value beside it that most comparisons need not visit the value, which is far away
 * in memory.
 */
struct AscendingKey
{
    ZyVariant const * value;
    std::size_t row;
    ZyVariant::Type type;
    double number;       ///< of a double
    std::uint64_t image; ///< orders the other kinds where it differs; equal where there is no more to know
};

/** Makes keys that compare as ZyVariant::compare does. */
class KeyMaker
{
public:
    /** Texts are compared as the global locale folds them. */
    KeyMaker()
    {
        std::locale const locale;
        auto const & facet = std::use_facet<std::ctype<char>>(locale);
        for (std::size_t i = 0; i < m_folded.size(); ++i) {
            auto const folded =
                static_cast<unsigned char>(facet.tolower(static_cast<char>(static_cast<unsigned char>(i))));
            m_folded[i] =
                static_cast<unsigned char>(folded ^ 0x80u); // characters are compared as signed numbers
        }
    }

    AscendingKey operator()(SortKey const & key) const
    {
        ZyVariant const & value = *key.value;
        ZyVariant::Type const type = value.type();
        switch (type) {
        case ZyVariant::Boolean:
            return {&value, key.row, type, 0, value.asBoolean() ? 1u : 0u};
        case ZyVariant::Integer:
            return {&value, key.row, type, 0, static_cast<std::uint32_t>(value.asInteger()) ^ 0x80000000u};
        case ZyVariant::Size:
            return {&value, key.row, type, 0, value.asSize()};
        case ZyVariant::Double:
            return {&value, key.row, type, value.asDouble(), 0};
        case ZyVariant::String:
            return {&value, key.row, type, 0, front(value.asString().toStdString())};
        default:
            return {&value, key.row, type, 0, 0};
        }
    }

private:
    /** The first eight characters. Nothing is less than any character, so a text that ends sooner comes
     * first. */
    std::uint64_t front(std::string const & text) const
    {
        std::uint64_t image = 0;
        for (std::size_t i = 0; i < 8; ++i) {
            image = image << 8 | (i < text.size() ? m_folded[static_cast<unsigned char>(text[i])] : 0u);
        }
        return image;
    }

    std::array<unsigned char, 256> m_folded;
};

bool isLess(AscendingKey const & a, AscendingKey const & b)
{
    if (a.type != b.type) {
        return a.type < b.type;
    }
    switch (a.type) {
    case ZyVariant::Null:
    case ZyVariant::Boolean:
    case ZyVariant::Integer:
    case ZyVariant::Size:
        return a.image < b.image;
    case ZyVariant::Double:
        return a.number < b.number && !ZyMaths::Double::Equal(a.number, b.number);
    default:
        return a.image != b.image ? a.image < b.image : a.value->compare(*b.value) < 0;
    }
}

/** The cells of a range in one column, each with at most one value. */
std::vector<ZyDataTableItem const *> cellsOf(ZyDataTable const & table, unsigned int column,
                                             unsigned int start, unsigned int count)
{
    if (column >= table.numberColumns()) {
        throw ZyInvalidCallException("Column number outside of the range of columns");
    }
    std::vector<ZyDataTableItem const *> cells;
    cells.reserve(std::min(count, table.numberRows()));
    std::uint64_t const end = static_cast<std::uint64_t>(start) + count;
    for (std::uint64_t row = start; row < end; ++row) {
        ZyDataTableRow const & current = ZyDataTableRows::At(table.rows(), static_cast<unsigned int>(row));
        ZyDataTableItem const & cell = ZyDataTableRows::ItemAt(current, column);
        if (cell.numberValues() > 1) {
            throw ZyInvalidCallException("Cannot sort on column that has multiple values per cell");
        }
        cells.push_back(&cell);
    }
    return cells;
}

/** The keys of a range. Where there is something to compare, a cell without a value throws; else there are no
 * keys. */
std::vector<SortKey> keysOf(ZyDataTable const & table, unsigned int column, unsigned int start,
                            unsigned int count)
{
    std::vector<ZyDataTableItem const *> const cells = cellsOf(table, column, start, count);
    std::vector<SortKey> keys;
    if (cells.size() > 1) {
        keys.reserve(cells.size());
        for (ZyDataTableItem const * cell : cells) {
            keys.push_back({&cell->value(), start + keys.size()});
        }
    }
    return keys;
}

/** Puts the rows into the order of the keys, the first of them to \a start. */
template <class K>
void reorder(std::deque<ZySharedPtr<ZyDataTableRow>> & rows, std::size_t start, std::vector<K> const & keys)
{
    std::vector<ZySharedPtr<ZyDataTableRow>> sorted;
    sorted.reserve(keys.size()); // the last thing that may throw
    for (K const & key : keys) {
        sorted.push_back(std::move(rows[key.row]));
    }
    for (std::size_t index = 0; index < sorted.size(); ++index) {
        rows[start + index] = std::move(sorted[index]);
    }
}
} // namespace

void ZyDataTable::sort(unsigned int column)
{
    sort(column, 0, numberRows());
}

void ZyDataTable::sort(unsigned int column, unsigned int start, unsigned int count)
{
    std::vector<SortKey> const plainKeys = keysOf(*this, column, start, count);
    std::vector<AscendingKey> keys;
    keys.reserve(plainKeys.size());
    KeyMaker const makeKey;
    for (SortKey const & key : plainKeys) {
        keys.push_back(makeKey(key));
    }
    std::stable_sort(keys.begin(), keys.end(), isLess);
    reorder(d()->rows.std_deque(), start, keys);
}

void ZyDataTable::sort(unsigned int column, LessThan lessThan)
{
    sort(column, 0, numberRows(), std::move(lessThan));
}

void ZyDataTable::sort(unsigned int column, unsigned int start, unsigned int count, LessThan lessThan)
{
    std::vector<SortKey> keys = keysOf(*this, column, start, count);
    std::stable_sort(keys.begin(), keys.end(),
                     [&](SortKey const & a, SortKey const & b) { return lessThan(*a.value, *b.value); });
    reorder(d()->rows.std_deque(), start, keys);
}
