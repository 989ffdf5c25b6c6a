// SPDX-License-Identifier: BSD-3-Clause
// The two readers of comma-separated text.
// Both gather the text first and make the cells when they know how many there will be, each in its final
// place: a cell costs what it must hold and is never moved. The text goes block by block as its cells come.
#include <ZyVariantTable.h>

#include <ZyFileException.h>
#include <ZyIODevice.h>

#include "Core/ZyNumberText_p.h"
#include "Core/ZyString_p.h"
#include "Core/ZyVariant_p.h"
#include "Platform/NativePath.h"
#include "Tables/ZyCSV_p.h"
#include "Tables/ZyVariantTable_p.h"

#include <deque>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace
{
/** Lines of text, in blocks that never move. */
class LineStore
{
public:
    void add(std::string_view line)
    {
        if (m_blocks.empty() || m_blocks.back().text.capacity() - m_blocks.back().text.size() < line.size()) {
            m_blocks.emplace_back();
            m_blocks.back().text.reserve(std::max(blockSize, line.size()));
        }
        m_blocks.back().text += line;
        m_blocks.back().ends.push_back(m_blocks.back().text.size());
        ++m_size;
    }
    std::size_t size() const { return m_size; }
    /** Calls use(line) for each line in order, and forgets the lines as it goes. */
    template <class F>
    void consume(F && use)
    {
        for (; !m_blocks.empty(); m_blocks.pop_front()) {
            std::string_view const text = m_blocks.front().text;
            std::size_t start = 0;
            for (std::size_t const end : m_blocks.front().ends) {
                use(text.substr(start, end - start));
                start = end;
            }
        }
        m_size = 0;
    }

private:
    /** Small enough for the memory of a block that goes to become that of cells. */
    static constexpr std::size_t blockSize = 1 << 15;

    struct Block
    {
        std::string text;
        std::vector<std::size_t> ends;
    };

    std::deque<Block> m_blocks;
    std::size_t m_size = 0;
};

/** Makes cells of fields. */
class CellMaker
{
public:
    CellMaker(bool isTyped, ZyCSV::WhiteSpace const & white) : m_isTyped(isTyped), m_white(white) {}

    /** Adds the cell of a field: the number that \a text is, where that is asked for, or else the string \a
     * kept. */
    void add(std::vector<ZyVariant> & cells, std::string_view text, std::string_view kept) const
    {
        if (!m_isTyped || !addNumber(cells, text)) {
            cells.emplace_back(ZyVariantAccess::text(std::string(kept)));
        }
    }

private:
    /** As ZyString::isInteger, toInt, isDouble and toDouble would have it. \return whether it is a number */
    bool addNumber(std::vector<ZyVariant> & cells, std::string_view text) const
    {
        std::string_view const trimmed = m_white.trimmed(text);
        // The tests skip the white space of the locale, the conversions that of the C locale. Where nothing
        // is to be skipped they agree.
        bool const isFlush = trimmed.data() == text.data();
        int integer = 0;
        if (ZyNumberText::isInteger(trimmed, integer) && (isFlush || ZyNumberText::toInt(text) == integer)) {
            cells.emplace_back(integer);
            return true;
        }
        double number = 0;
        if (ZyNumberText::isDouble(trimmed, number)) {
            cells.emplace_back(isFlush ? number : ZyNumberText::toDouble(text));
            return true;
        }
        return false;
    }

    bool m_isTyped;
    ZyCSV::WhiteSpace const & m_white;
};

/**
 * Makes the matrix of all lines.
 * \param addCells addCells(cells, line) adds the cells of a line, at most \a columns
 * \param padding stands where a line has fewer
 */
template <class F>
ZyMatrix<ZyVariant> makeMatrix(LineStore & lines, std::size_t columns, ZyVariant const & padding,
                               F const & addCells)
{
    constexpr std::size_t limit = std::numeric_limits<unsigned int>::max();
    std::size_t const rows = lines.size();
    if (rows > limit || columns > limit || (columns > 0 && rows > limit / columns)) {
        ZyThrow::LengthError("ZyVariantTable: rows times columns");
    }
    std::vector<ZyVariant> cells;
    cells.reserve(rows * columns);
    std::size_t rowEnd = 0;
    lines.consume([&](std::string_view line) {
        addCells(cells, line);
        for (rowEnd += columns; cells.size() < rowEnd;) {
            cells.push_back(padding);
        }
    });
    return ZyMatrix<ZyVariant>(static_cast<unsigned int>(rows), static_cast<unsigned int>(columns),
                               std::move(cells));
}

/** Opens a file for reading; a directory, which some systems let one open, is no file. */
void openFile(std::ifstream & file, ZyString const & path)
{
    if (ZyTextAccess::view(path).find('\0') == std::string_view::npos) {
        std::filesystem::path const native =
            NativePath::standard(ZyFilePath::CreateUnchecked(ZyString(path)));
        std::error_code ignored;
        if (!std::filesystem::is_directory(native, ignored)) {
            file.open(native);
        }
    }
    if (!file.is_open()) {
        throw ZyCannotOpenFileException(path);
    }
}
} // namespace

ZyVariantTable::ZyVariantTable(ZyString const & path, bool typed) : m_d(new Private)
{
    std::ifstream file;
    openFile(file, path);
    LineStore lines;
    std::size_t columns = 0;
    for (std::string line; std::getline(file, line);) {
        columns = std::max(columns, ZyCSV::countCommas(line) + 1);
        lines.add(line);
    }
    if (file.bad()) {
        throw ZyIOException("Error occurred on reading from file");
    }
    ZyCSV::WhiteSpace const white;
    CellMaker const maker(typed, white);
    d()->cells =
        makeMatrix(lines, columns, ZyString(), [&](std::vector<ZyVariant> & cells, std::string_view line) {
            ZyCSV::forEachToken(
                line, [&](std::string_view token) { maker.add(cells, token, white.trimmed(token)); });
        });
}

ZyVariantTable ZyVariantTable::LoadCSV(ZyIODevice & device, bool typed)
{
    if (!device.open(ZyIODevice::Read)) {
        throw ZyIODevice::CannotOpenException();
    }
    ZyCSV::WhiteSpace const white;
    LineStore lines;
    std::size_t columns = 0;
    while (!device.atEnd()) {
        ZyString const line = device.readLine(0);
        columns = std::max(columns, ZyCSV::countFields(ZyTextAccess::view(line), white));
        lines.add(ZyTextAccess::view(line));
    }
    ZyVariantTable table;
    CellMaker const maker(typed, white);
    table.d()->cells =
        makeMatrix(lines, columns, typed, [&](std::vector<ZyVariant> & cells, std::string_view line) {
            ZyCSV::forEachField(line, white, [&](std::string_view field) { maker.add(cells, field, field); });
        });
    return table;
}
