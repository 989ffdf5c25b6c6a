// SPDX-License-Identifier: BSD-3-Clause
// One worksheet: where the next cell goes, which squares merges cover, and the markup of a cell. Cells are
// made as bytes and take the fast road of the stream writer, since a sheet may have millions of them.
#include <ZyOOXMLWriterSpreadsheet.h>

#include "Core/ZyNumberText_p.h"
#include "Office/ZyCellText_p.h"
#include "Office/ZyOOXMLNames_p.h"
#include "XML/ZyXMLStreamWriter_p.h"

#include <ZyException.h>
#include <ZyUniquePtr.h>
#include <ZyVariant.h>
#include <ZyXMLStreamElementWriter.h>

#include <algorithm>
#include <array>
#include <deque>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace
{
/** Seven letters name the last column, ten digits the last row. */
constexpr std::size_t referenceRoom = ZyNumberText::room + 8;

/** Writes the letters of a column and returns their end: bijective base 26, most significant first. */
char * writeLetters(char * to, unsigned int column)
{
    std::array<char, 8> reversed;
    std::size_t count = 0;
    for (; column > 0; column = (column - 1) / 26) {
        reversed[count++] = static_cast<char>('A' + (column - 1) % 26);
    }
    return std::reverse_copy(reversed.begin(), reversed.begin() + static_cast<std::ptrdiff_t>(count), to);
}

char * writeReference(char * to, unsigned int row, unsigned int column)
{
    return ZyNumberText::write(writeLetters(to, column), row);
}

void appendReference(std::string & markup, unsigned int row, unsigned int column)
{
    std::array<char, referenceRoom> text;
    markup.append(text.data(), writeReference(text.data(), row, column));
}

/** The rest of a `c` element behind its reference. */
void appendValue(std::string & markup, ZyVariant const & value)
{
    switch (value.type()) {
    case ZyVariant::Null:
        markup += "/>";
        break;
    case ZyVariant::Boolean:
        markup += value.asBoolean() ? " t=\"b\"><v>1</v></c>" : " t=\"b\"><v>0</v></c>";
        break;
    case ZyVariant::Integer:
    case ZyVariant::Double:
        markup += "><v>";
        ZyCellText::append(markup, value);
        markup += "</v></c>";
        break;
    default:
        markup += " t=\"inlineStr\"><is><t>";
        ZyCellText::append(markup, value);
        markup += "</t></is></c>";
        break;
    }
}

/** A range of cells; sums may wrap, as the references of such a range do. */
struct Merge
{
    unsigned int row;
    unsigned int column;
    unsigned int lastRow;
    unsigned int lastColumn;
};
} // namespace

class ZyOOXMLWriterSpreadsheet::Private : public ZyPrivateObject
{
public:
    /** Notes the merge of the cell at (row, column). */
    void merge(unsigned int columnSpan, unsigned int rowSpan);
    bool isCovered(unsigned int r, unsigned int c) const
    {
        return c < lastCovered.size() && lastCovered[c] >= r;
    }

    ZyUniquePtr<ZyXMLStreamElementWriter> worksheetElement;
    ZyUniquePtr<ZyXMLStreamElementWriter> sheetDataElement;
    ZyUniquePtr<ZyXMLStreamElementWriter> rowElement; ///< null between rows
    unsigned int row = 0;                             ///< counted from 1; 0 before the first row
    unsigned int column = 0; ///< of the last cell, counted from 1; 0 at a row's start
    /**
     * For each column the last row that a merge covers. That is enough: rows and columns only grow, so the
     * questions are about the square behind the current one and about the next row.
     */
    std::vector<unsigned int> lastCovered;
    std::deque<Merge> merges; ///< in the order of their creation
};

void ZyOOXMLWriterSpreadsheet::Private::merge(unsigned int columnSpan, unsigned int rowSpan)
{
    constexpr unsigned int limit = std::numeric_limits<unsigned int>::max();
    std::size_t const endColumn = static_cast<std::size_t>(column) + columnSpan;
    unsigned int const lastRow = rowSpan - 1 > limit - row ? limit : row + rowSpan - 1;
    if (lastCovered.size() < endColumn) {
        lastCovered.resize(endColumn);
    }
    merges.push_back({row, column, row + rowSpan - 1, column + columnSpan - 1});
    for (std::size_t c = column; c < endColumn; ++c) {
        lastCovered[c] = std::max(lastCovered[c], lastRow);
    }
}

ZyOOXMLWriterSpreadsheet::ZyOOXMLWriterSpreadsheet(ZyWeakPtr<ZyIODevice> device)
    : ZyOOXMLWriterDocument(std::move(device)), m_d(new Private)
{
    writer().startDocument();
    writer().writeDefaultNamespace(ZyOOXMLNames::spreadsheet);
    d()->worksheetElement.reset(writer().createElement("worksheet", ZyOOXMLNames::spreadsheet).release());
    d()->sheetDataElement.reset(writer().createElement("sheetData").release());
}

ZyOOXMLWriterSpreadsheet::ZyOOXMLWriterSpreadsheet(ZyOOXMLWriterSpreadsheet && other) noexcept = default;
ZyOOXMLWriterSpreadsheet::~ZyOOXMLWriterSpreadsheet() = default;

ZyOOXMLWriterSpreadsheet & ZyOOXMLWriterSpreadsheet::operator=(ZyOOXMLWriterSpreadsheet && other) noexcept
{
    d() = std::move(other.d()); // the elements end before the document that they belong to
    ZyOOXMLWriterDocument::operator=(std::move(other));
    return *this;
}

ZyString ZyOOXMLWriterSpreadsheet::NumberToLetterString(unsigned int column)
{
    std::array<char, 8> text;
    return std::string(text.data(), writeLetters(text.data(), column));
}

void ZyOOXMLWriterSpreadsheet::checkAlive() const
{
    if (!isAlive()) {
        throw ZyInvalidCallException("Spreadsheet cannot be written to as has been closed");
    }
}

void ZyOOXMLWriterSpreadsheet::startRow()
{
    checkAlive();
    endRow();
    ++d()->row;
    d()->column = 0;
    if (!d()->sheetDataElement) {
        throw ZyInvalidCallException("Cannot write row as no document");
    }
    d()->rowElement.reset(writer().createElement("row").release());
    fillCovered();
}

void ZyOOXMLWriterSpreadsheet::endRow()
{
    if (d()->rowElement) {
        fillCovered();
        auto const element = std::move(d()->rowElement);
        writer().finishElement(element.get());
    }
}

void ZyOOXMLWriterSpreadsheet::addCell(ZyVariant const & value, unsigned int columnSpan, unsigned int rowSpan)
{
    columnSpan = std::max(columnSpan, 1u);
    rowSpan = std::max(rowSpan, 1u);
    ++d()->column;
    if (!d()->rowElement) {
        startRow();
    }
    if (columnSpan > 1 || rowSpan > 1) {
        d()->merge(columnSpan, rowSpan);
    }
    appendValue(beginCell(), value);
    ZyXMLMarkup::End(writer());
    fillCovered();
}

/** Begins the cell of the current square: everything up to and including its reference. */
std::string & ZyOOXMLWriterSpreadsheet::beginCell()
{
    constexpr std::string_view start = "<c r=\"";
    std::array<char, start.size() + referenceRoom> head;
    char * end = std::copy(start.begin(), start.end(), head.data());
    end = writeReference(end, d()->row, d()->column);
    *end++ = '"';
    std::string & markup = ZyXMLMarkup::Begin(writer());
    markup.append(head.data(), end);
    return markup;
}

/** Steps over the squares that earlier merges cover; in a loop, since a merge may have a million columns. */
void ZyOOXMLWriterSpreadsheet::fillCovered()
{
    while (d()->isCovered(d()->row, d()->column + 1)) {
        ++d()->column;
        beginCell() += "/>";
        ZyXMLMarkup::End(writer());
    }
}

/**
 * \deliberate{rows-below-by-the-next-column} The rows that merges need below the last one are found by the square to the
 * right of the last cell: a merge there gets them, one that ends in the last column does not.
 */
void ZyOOXMLWriterSpreadsheet::onClose()
{
    checkAlive();
    static_cast<void>(*d()->sheetDataElement);
    endRow();
    while (d()->isCovered(d()->row + 1, d()->column + 1)) {
        startRow();
        endRow();
    }
    auto const sheetData = std::move(d()->sheetDataElement);
    writer().finishElement(sheetData.get());
    if (!d()->merges.empty()) {
        writeMerges();
    }
    auto const worksheet = std::move(d()->worksheetElement);
    writer().finishElement(worksheet.get());
}

void ZyOOXMLWriterSpreadsheet::writeMerges()
{
    std::string & markup = ZyXMLMarkup::Begin(writer());
    markup += "<mergeCells count=\"";
    ZyCellText::appendNumber(markup, static_cast<long long>(d()->merges.size()));
    markup += "\">";
    for (Merge const & merge : d()->merges) {
        markup += "<mergeCell ref=\"";
        appendReference(markup, merge.row, merge.column);
        markup += ':';
        appendReference(markup, merge.lastRow, merge.lastColumn);
        markup += "\"/>";
        ZyXMLMarkup::End(writer());
    }
    markup += "</mergeCells>";
    ZyXMLMarkup::End(writer());
}
