// SPDX-License-Identifier: BSD-3-Clause
// Runs are sorted through small records, which hold what a run is sorted by.
#include "Misc/XMLReportOrder_p.h"

#include <algorithm>
#include <cmath>

namespace
{
/** A run and what it is sorted by. */
struct Record
{
    bool descending = false;
    bool isText = false;
    double number = 0;
    YString const * text = nullptr;
    XMLReportInfo const * run = nullptr;
};
using Records = std::vector<Record>;

/**
 * Negative when \a a goes in front of \a b, 0 when they are equal, positive otherwise.
 *
 * \deliberate{report-sorts-by-magnitude} Numbers go by their magnitude: -12 stands between 11 and 13, a case -3 between
 * 2 and 4. In descending order equal records give -1 either way, and so does a NaN.
 */
int compare(Record const & a, Record const & b)
{
    bool greater = false;
    bool equal = false;
    if (a.isText && b.isText) {
        int const difference = a.text->compareNoCase(*b.text);
        greater = difference < 0;
        equal = difference == 0;
    } else {
        greater = std::fabs(b.number) > std::fabs(a.number);
        equal = std::fabs(b.number) == std::fabs(a.number);
    }
    if (greater != a.descending) {
        return -1;
    }
    return equal ? 0 : 1;
}

/**
 * Sorts by merging; equal records keep their order. Asks only whether a record of the left half may go in
 * front of one of the right half, so that the answers of compare() to equal records and NaN, which contradict
 * each other, do no harm: the standard sorts demand an order without contradictions, and qsort leaves equal
 * records as each system likes.
 *
 * \param spare room for as many records
 */
void sort(Record * first, Record * last, Record * spare)
{
    if (last - first < 2) {
        return;
    }
    Record * const middle = first + (last - first) / 2;
    sort(first, middle, spare);
    sort(middle, last, spare);
    Record const * left = first;
    Record const * right = middle;
    Record * end = spare;
    while (left != middle && right != last) {
        *end++ = compare(*left, *right) <= 0 ? *left++ : *right++;
    }
    end = std::copy(left, static_cast<Record const *>(middle), end);
    // What is left of the right half stands where it belongs.
    std::copy(spare, end, first);
}

/** Sorts the records that \a makeRecord makes of the runs. */
template <class MakeRecord>
XMLReportOrder::Runs sorted(YHashTable<XMLReportInfo> const & table, MakeRecord const & makeRecord)
{
    Records records;
    records.reserve(static_cast<std::size_t>(table.size()));
    table.forEach([&](int, XMLReportInfo const & run) { records.push_back(makeRecord(run)); });
    Records spare(records.size());
    sort(records.data(), records.data() + records.size(), spare.data());
    XMLReportOrder::Runs runs;
    runs.reserve(records.size());
    for (Record const & record : records) {
        runs.push_back(record.run);
    }
    return runs;
}

Record caseRecord(XMLReportInfo const & run)
{
    return {false, false, static_cast<double>(run.caseNumber), nullptr, &run};
}

Record textRecord(XMLReportInfo const & run)
{
    return {false, true, 0, &run.description, &run};
}

/** \param figure value, delta or norm, counted from the first merit function's value */
Record figureRecord(XMLReportInfo const & run, int figure)
{
    XMLReportSensValue const & record = run.sensValues[figure / 3];
    double const figures[] = {record.value, record.delta, record.norm};
    return {true, false, figures[figure % 3], nullptr, &run};
}

/** For the columns in front of the first one: all runs are equal. */
Record noRecord(XMLReportInfo const & run)
{
    return {true, false, 0, nullptr, &run};
}

/** The number of sensitivity values of the reference run. */
int referenceValues(YHashTable<XMLReportInfo> const & table)
{
    XMLReportInfo const * const reference = table.find(1);
    return reference ? reference->sensValues.size() : 0;
}
} // namespace

XMLReportOrder::Runs XMLReportOrder::byCase(YHashTable<XMLReportInfo> const & table)
{
    return sorted(table, caseRecord);
}

/**
 * \deliberate{sort-column-beyond-last} The first column behind the last one is taken as it is, and sorts by a value that
 * the reference run does not have; only those behind it fall back to the last one. Without a reference run
 * that is the description.
 */
XMLReportOrder::Runs XMLReportOrder::byColumn(YHashTable<XMLReportInfo> const & table, int column)
{
    int const columns = 3 * referenceValues(table);
    if (column > columns + 2) {
        column = columns + 1;
    }
    if (column == 0) {
        return sorted(table, caseRecord);
    }
    if (column == 1) {
        return sorted(table, textRecord);
    }
    if (column < 0) {
        return sorted(table, noRecord);
    }
    return sorted(table,
                  [figure = column - 2](XMLReportInfo const & run) { return figureRecord(run, figure); });
}
