// SPDX-License-Identifier: BSD-3-Clause
// The layout rules of a worksheet, written down step by step without a thought for speed: what the real
// writer is compared with. Values are ready markup.
#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

class ReferenceSheet
{
public:
    void startRow()
    {
        endRow();
        ++m_row;
        m_column = 0;
        m_inRow = true;
        m_rowIsEmpty = true;
        m_text += "<row";
        if (isOccupied(m_row, 1)) {
            addCell("", 1, 1);
        }
    }

    void endRow()
    {
        if (!m_inRow) {
            return;
        }
        if (isOccupied(m_row, m_column + 1)) {
            addCell("", 1, 1);
        }
        m_text += m_rowIsEmpty ? "/>" : "</row>";
        m_inRow = false;
    }

    /** An empty \a value is an empty cell. */
    void addCell(std::string const & value, unsigned int columnSpan, unsigned int rowSpan)
    {
        columnSpan = std::max(columnSpan, 1u);
        rowSpan = std::max(rowSpan, 1u);
        ++m_column;
        if (!m_inRow) {
            startRow();
        }
        std::string const near = reference(m_row, m_column);
        if (columnSpan > 1 || rowSpan > 1) {
            m_merges.push_back(near + ":" + reference(m_row + rowSpan - 1, m_column + columnSpan - 1));
            occupy(columnSpan, rowSpan);
        }
        m_text += std::exchange(m_rowIsEmpty, false) ? ">" : "";
        m_text += "<c r=\"" + near + "\"" + (value.empty() ? "/>" : value + "</c>");
        if (isOccupied(m_row, m_column + 1)) {
            addCell("", 1, 1);
        }
    }

    std::string close()
    {
        endRow();
        while (isOccupied(m_row + 1, m_column + 1)) {
            startRow();
            endRow();
        }
        std::string text = m_text.empty() ? "<sheetData/>" : "<sheetData>" + m_text + "</sheetData>";
        if (!m_merges.empty()) {
            text += "<mergeCells count=\"" + std::to_string(m_merges.size()) + "\">";
            for (std::string const & merge : m_merges) {
                text += "<mergeCell ref=\"" + merge + "\"/>";
            }
            text += "</mergeCells>";
        }
        return text;
    }

    static std::string letters(unsigned int column)
    {
        std::string text;
        while (column > 0) {
            unsigned int const rest = column - 1;
            text.insert(text.begin(), static_cast<char>('A' + rest % 26));
            column = rest / 26;
        }
        return text;
    }

private:
    static std::string reference(unsigned int row, unsigned int column)
    {
        return letters(column) + std::to_string(row);
    }

    bool isOccupied(unsigned int row, unsigned int column) const
    {
        return m_occupied.count({row, column}) != 0;
    }

    void occupy(unsigned int columnSpan, unsigned int rowSpan)
    {
        for (unsigned int r = 0; r < rowSpan; ++r) {
            for (unsigned int c = 0; c < columnSpan; ++c) {
                if (r > 0 || c > 0 || (columnSpan > 1 && rowSpan > 1)) {
                    m_occupied.insert({m_row + r, m_column + c});
                }
            }
        }
    }

    std::string m_text;
    std::vector<std::string> m_merges;
    std::set<std::pair<unsigned int, unsigned int>> m_occupied;
    unsigned int m_row = 0;
    unsigned int m_column = 0;
    bool m_inRow = false;
    bool m_rowIsEmpty = true;
};
