// SPDX-License-Identifier: BSD-3-Clause
// The library has two readers of comma-separated text, and each has its files.
//
// The constructor of ZyVariantTable that takes a path splits at every comma. It is right for text without
// quoted fields, and does not mind rows of different lengths, blank lines and empty last fields.
//
// ZyVariantTable::LoadCSV takes a device and knows that quotes guard commas. It refuses lines whose last
// field is empty, so that such a file is mended on its way in: two quotes are an empty field that can be
// seen.

#include "TableReading.h"

#include "DataTableFile.h"
#include "TableError.h"

#include <ZyCSVFile.h>
#include <ZyStringDevice.h>

#include <QFile>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

namespace
{

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string contentOf(QString const & name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw TableError::File(name, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    }
    return file.readAll().toStdString();
}

bool endsEmpty(std::string_view line)
{
    std::size_t const last = line.find_last_not_of(" \t\r");
    return last == std::string_view::npos || line[last] == ',';
}

// Without the byte order mark, and with two quotes for each empty last field.
std::string mended(std::string_view text)
{
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        text.remove_prefix(byteOrderMark.size());
    }
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    while (!text.empty()) {
        std::string_view const line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        result.append(line);
        result.append(endsEmpty(line) ? "\"\"\n" : "\n");
    }
    return result;
}

ZyVariant typedCell(ZyString const & text, bool typed)
{
    if (typed && text.isInteger()) {
        return ZyVariant(text.toInt());
    }
    return typed && text.isDouble() ? ZyVariant(text.toDouble()) : ZyVariant(text);
}

ZyVariantTable readPlain(QString const & file, TextFacts const & facts, bool typed)
{
    ZyVariantTable table(ZyString(file), typed);
    if (facts.byteOrderMark) {
        // The mark is a part of the first field to the reader, which therefore took the field for text.
        ZyVariant & first = table.at(0, 0);
        first = typedCell(ZyString(first.asString().toStdString().substr(byteOrderMark.size())), typed);
    }
    return table;
}

// What stands between the outer quotes of a field is given as it is, while two quotes there mean one.
void unfold(ZyVariant & cell)
{
    if (cell.type() == ZyVariant::Boolean) {
        cell = ZyVariant(ZyString()); // the row was short
    } else if (cell.type() == ZyVariant::String) {
        cell = ZyVariant(cell.asString().replaced("\"\"", "\"", ZyComparableString::CaseSensitive));
    }
}

ZyVariantTable readQuoted(QString const & file, TextFacts const & facts, bool typed)
{
    ZyVariantTable table;
    if (facts.emptyLastField || facts.byteOrderMark) {
        ZyStringDevice device(ZyString(mended(contentOf(file))));
        table = ZyVariantTable::LoadCSV(device, typed);
    } else {
        ZyCSVFile device{ZyString(file)};
        table = ZyVariantTable::LoadCSV(device, typed);
    }
    table.forEach([](unsigned int, unsigned int, ZyVariant & cell) { unfold(cell); });
    return table;
}

ZyVariantTable read(QString const & file, TextFacts const & facts, bool typed)
{
    return facts.quotedFields ? readQuoted(file, facts, typed) : readPlain(file, facts, typed);
}

bool isOddNumber(ZyVariant const & cell)
{
    return cell.type() == ZyVariant::Double && !std::isfinite(cell.asDouble());
}

ZyVariantTable readText(QString const & file, TextFacts const & facts, bool typed)
{
    ZyVariantTable table = read(file, facts, typed);
    bool odd = false;
    std::as_const(table).forEach(
        [&odd](unsigned int, unsigned int, ZyVariant const & cell) { odd = odd || isOddNumber(cell); });
    if (odd) {
        // No spreadsheet knows such numbers, and "Nan" may be a name: read the letters once more.
        ZyVariantTable const texts = read(file, facts, false);
        table.forEach([&texts](unsigned int row, unsigned int column, ZyVariant & cell) {
            if (isOddNumber(cell)) {
                cell = texts.at(row, column);
            }
        });
    }
    return table;
}

unsigned int heightOf(ZyDataTableRow const & row)
{
    unsigned int height = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        height = std::max(height, item->numberValues());
    }
    return height;
}

void spread(ZyDataTableRow const & row, unsigned int first, unsigned int height, ZyVariantTable & table)
{
    unsigned int column = 0;
    for (ZySharedPtr<ZyDataTableItem> const & item : row.items.std_deque()) {
        auto const & values = item->values().std_deque();
        for (unsigned int line = 0; line < height; ++line) {
            if (values.size() == 1 || line < values.size()) {
                table.at(first + line, column) = values[values.size() == 1 ? 0 : line];
            }
        }
        column += item->columnSpan();
    }
}

unsigned int leadingHeadings(ZyDataTable const & rich)
{
    unsigned int rows = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : rich.rows().std_deque()) {
        if (row->type == ZyDataTable::Data) {
            break;
        }
        rows += heightOf(*row);
    }
    return rows;
}

Input readRich(QString const & file, ReadingOptions const & options)
{
    Input input;
    input.facts = checkDataTable(file);
    checkSize(file, input.facts, options.forSheet);
    try {
        input.asStored = readDataTable(file);
    } catch (ZyException const & failure) {
        throw TableError::File(file, failure.message().toQString());
    }
    input.table = flat(*input.asStored);
    input.headingRows = leadingHeadings(*input.asStored);
    return input;
}

Input readPlainInput(QString const & file, ReadingOptions const & options)
{
    Input input;
    input.facts = checkText(file);
    checkSize(file, input.facts, options.forSheet);
    input.table = readText(file, input.facts, options.typed);
    input.headingRows = options.headingRows;
    return input;
}

} // namespace

ZyVariantTable flat(ZyDataTable const & rich)
{
    ZyVariantTable table(rich.numberSpreadsheetRows(), rich.numberColumns(), ZyVariant(ZyString()));
    unsigned int first = 0;
    for (ZySharedPtr<ZyDataTableRow> const & row : rich.rows().std_deque()) {
        unsigned int const height = heightOf(*row);
        spread(*row, first, height, table);
        first += height;
    }
    return table;
}

Input readInput(QString const & file, ReadingOptions const & options)
{
    return isDataTableFile(file) ? readRich(file, options) : readPlainInput(file, options);
}
