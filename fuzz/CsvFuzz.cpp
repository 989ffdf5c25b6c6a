// SPDX-License-Identifier: BSD-3-Clause
// Comma-separated text: the input as one line, beside a splitter that walks by index; as a whole file; and
// its fields written and read again.
#include <ZyCSVFile.h>
#include <ZyCSVWriter.h>
#include <ZyDeque.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>
#include <ZyVariantTable.h>

#include "Fuzz.h"

#include <vector>

namespace
{
using Fields = std::vector<std::string>;

bool isWhite(char c)
{
    return ZyString::IsWhiteSpace(c);
}

std::string trimmed(std::string_view text)
{
    while (!text.empty() && isWhite(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isWhite(text.back())) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

std::string fieldOf(std::string_view text)
{
    std::string field = trimmed(text);
    if (field.size() > 1 && field.front() == '"' && field.back() == '"') {
        field = field.substr(1, field.size() - 2);
    }
    return field;
}

// What ZyCSVFile::ExtractLine tells; false for a line that is refused.
bool split(std::string_view line, Fields & fields)
{
    bool isQuoted = false;
    std::size_t start = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        isQuoted = isQuoted != (line[at] == '"');
        if (line[at] == ',' && !isQuoted) {
            fields.push_back(fieldOf(line.substr(start, at - start)));
            start = at + 1;
        }
    }
    fields.push_back(fieldOf(line.substr(start)));
    return !trimmed(line.substr(start)).empty();
}

Fields extracted(std::string const & text)
{
    ZyString const line(text);
    Fields fields;
    ZyDeque<ZyStringView> const views = ZyCSVFile::ExtractLine(line);
    for (ZyStringView const & view : views.std_deque()) {
        fields.push_back(view.toString().toStdString());
    }
    return fields;
}

// A line whose fields are known, from the writer.
std::string written(Fields const & fields)
{
    ZyStringDevice device;
    ZyCSVWriter writer(device);
    for (std::string const & field : fields) {
        writer.addValue(ZyVariant(ZyString(field)));
    }
    writer.endLine();
    writer.endLine();
    return device.content().toStdString();
}

void splitLine(std::string const & line)
{
    Fields expected;
    bool const taken = split(line, expected);
    Fields fields;
    std::string const failure = Fuzz::failureOf([&] { fields = extracted(line); });
    if (!taken) {
        std::string const size = std::to_string(line.size());
        Fuzz::require(failure ==
                          "ZyIndexOutOfBoundsException: Index out of bounds [" + size + "," + size + "]",
                      "a last field that is empty is refused");
        return;
    }
    Fuzz::require(failure.empty(), "every other line is taken");
    Fuzz::require(fields == expected, "walking by index gives the same fields");
    Fields quoted;
    for (std::string const & field : fields) {
        if (field.find('"') != std::string::npos) {
            return; // there is no way to write it
        }
        quoted.push_back('"' + field + '"');
    }
    Fuzz::require(extracted(written(quoted)) == fields, "what is written in quotes is read again");
}

// A cell of a typed table holds what its text says; of the others, the text.
void checkCell(ZyVariant const & cell, std::string const & field, bool isTyped)
{
    ZyString const text(field);
    if (isTyped && text.isInteger()) {
        Fuzz::require(cell.type() == ZyVariant::Integer && cell.asInteger() == text.toInt(), "an integer");
    } else if (isTyped && text.isDouble()) {
        Fuzz::require(cell.type() == ZyVariant::Double, "a number");
    } else {
        Fuzz::require(cell.type() == ZyVariant::String && cell.toString().toStdString() == field, "a text");
    }
}

void checkRow(ZyVariantTable const & table, unsigned int row, Fields const & fields, bool isTyped)
{
    Fuzz::require(fields.size() <= table.numberColumns(), "no field is lost");
    for (unsigned int column = 0; column < table.numberColumns(); ++column) {
        ZyVariant const & cell = table.at(row, column);
        if (column < fields.size()) {
            checkCell(cell, fields[column], isTyped);
        } else {
            Fuzz::require(cell.type() == ZyVariant::Boolean && cell.asBoolean() == isTyped,
                          "padding is Boolean");
        }
    }
}

void loadFile(std::string const & text, bool isTyped)
{
    ZyStringDevice device{ZyString(text)};
    ZyVariantTable table;
    std::string const failure = Fuzz::failureOf([&] { table = ZyVariantTable::LoadCSV(device, isTyped); });
    Fuzz::require(failure.empty() ||
                      Fuzz::startsWith(failure, "ZyIndexOutOfBoundsException: Index out of bounds ["),
                  "one reason to refuse");
    Fuzz::Input lines(reinterpret_cast<std::uint8_t const *>(text.data()), text.size());
    bool taken = true;
    unsigned int row = 0;
    for (; !lines.isEmpty() && taken; ++row) {
        Fields fields;
        taken = split(lines.line(), fields);
        if (failure.empty()) {
            Fuzz::require(row < table.numberRows(), "a row a line");
            checkRow(table, row, fields, isTyped);
        }
    }
    Fuzz::require(taken == failure.empty(), "refused for one of its lines");
    Fuzz::require(!taken || row == table.numberRows(), "a line a row");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string const text(Fuzz::Input(data, size).rest());
    splitLine(text);
    loadFile(text, false);
    loadFile(text, true);
    return 0;
}
