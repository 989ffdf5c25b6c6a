// SPDX-License-Identifier: BSD-3-Clause
// Tables and merged cells to a workbook on disk: against libxlsxwriter, which gets the same cells.
#include "Measure.h"
#include "peers/Workload.h"

#include <ZyDataTable.h>
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyOOXMLWriter.h>
#include <ZyOOXMLWriterSpreadsheet.h>
#include <ZySharedPtr.h>
#include <ZyStringDevice.h>
#include <ZyVariant.h>

#ifdef ZYBENCH_XLSXWRITER
#include <xlsxwriter.h>
#endif

#define ZLIB_CONST // its input stays as it is
#include <zlib.h>

#include <algorithm>
#include <string>

namespace bench
{

namespace
{

constexpr unsigned tableRows = 100000;
constexpr unsigned tableColumns = 20;

Table const & table()
{
    static Table const made = makeTable(tableRows, tableColumns);
    return made;
}

ZyVariant toVariant(Cell const & cell)
{
    switch (cell.kind) {
    case CellKind::Integer:
        return ZyVariant(cell.integer);
    case CellKind::Double:
        return ZyVariant(cell.real);
    case CellKind::Text:
        break;
    }
    return ZyVariant(cell.text.c_str());
}

void add(ZyOOXMLWriterSpreadsheet & sheet, Cell const & cell, unsigned columnSpan = 1, unsigned rowSpan = 1)
{
    sheet.addCell(toVariant(cell), columnSpan, rowSpan);
}

ZyDataTable const & dataTable()
{
    static ZyDataTable const made = [] {
        ZyDataTable result;
        for (unsigned row = 0; row < tableRows; ++row) {
            ZyDeque<ZyDataTableItem> items;
            for (unsigned column = 0; column < tableColumns; ++column) {
                items.add(ZyDataTableItem(toVariant(table().at(row, column))));
            }
            result.addRow(items, ZyDataTable::Data);
        }
        return result;
    }();
    return made;
}

void writeTable(ZyOOXMLWriterSpreadsheet & sheet)
{
    for (unsigned row = 0; row < tableRows; ++row) {
        sheet.startRow();
        for (unsigned column = 0; column < tableColumns; ++column) {
            add(sheet, table().at(row, column));
        }
    }
}

/** Makes a package with one sheet and lets \a write fill it. */
template <class Write>
void writePackage(std::string const & path, Write write)
{
    ZyOOXMLWriter writer(ZyFilePath(path.c_str()), ZyOOXMLWriter::Spreadsheet);
    write(*writer.addSheet("sheet1"));
}

/** The worksheet part alone, as text. */
std::string worksheetText()
{
    ZySharedPtr<ZyIODevice> const device(new ZyStringDevice);
    ZyOOXMLWriterSpreadsheet sheet{ZyWeakPtr<ZyIODevice>(device)};
    writeTable(sheet);
    sheet.close();
    return static_cast<ZyStringDevice &>(*device).content().toStdString();
}

#ifdef ZYBENCH_XLSXWRITER
void put(lxw_worksheet * sheet, unsigned row, unsigned column, Cell const & cell)
{
    if (cell.kind == CellKind::Text) {
        worksheet_write_string(sheet, row, lxw_col_t(column), cell.text.c_str(), nullptr);
    } else {
        double const number = cell.kind == CellKind::Integer ? cell.integer : cell.real;
        worksheet_write_number(sheet, row, lxw_col_t(column), number, nullptr);
    }
}

template <class Write>
void writePeerPackage(std::string const & path, bool constantMemory, Write write)
{
    lxw_workbook_options options{};
    options.constant_memory = constantMemory ? LXW_TRUE : LXW_FALSE;
    lxw_workbook * const book = workbook_new_opt(path.c_str(), &options);
    write(workbook_add_worksheet(book, "sheet1"));
    check(workbook_close(book) == LXW_NO_ERROR, "workbook_close");
}
#endif

/** zlib's deflate of \a text, and the checksum that a zip needs: nothing can be quicker than that. */
void deflateAlone(std::string const & text)
{
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    std::string out(1 << 16, 0);
    uLong sum = 0;
    stream.next_in = reinterpret_cast<Bytef const *>(text.data());
    stream.avail_in = uInt(text.size());
    sum = crc32(sum, stream.next_in, stream.avail_in);
    do {
        stream.next_out = reinterpret_cast<Bytef *>(out.data());
        stream.avail_out = uInt(out.size());
    } while (deflate(&stream, Z_FINISH) == Z_OK);
    deflateEnd(&stream);
    check(sum != 0, "sum");
}

void registerTable()
{
    std::string const path = dataFile("table.xlsx");
    addJob("xlsx-table/ours-data-table", [path] { dataTable().writeOOXML(ZyFilePath(path.c_str())); });
    addJob("xlsx-table/ours-sheet", [path] { writePackage(path, writeTable); });
    addJob("xlsx-table/ours-worksheet-alone", [] { check(worksheetText().size() > 80000000, "size"); });
    static std::string const text = worksheetText();
    addJob("xlsx-table/zlib", [] { deflateAlone(text); });
#ifdef ZYBENCH_XLSXWRITER
    addJob("xlsx-table/libxlsxwriter", [path] {
        writePeerPackage(path, true, [](lxw_worksheet * sheet) {
            for (unsigned row = 0; row < tableRows; ++row) {
                for (unsigned column = 0; column < tableColumns; ++column) {
                    put(sheet, row, column, table().at(row, column));
                }
            }
        });
    });
#endif
}

/** Cells made on the way, so that nothing but the writer takes memory. */
void registerMemory(unsigned rows)
{
    std::string const path = dataFile("memory.xlsx");
    std::string const family = "xlsx-memory/" + std::to_string(rows) + "/";
    addJob(family + "ours", [path, rows] {
        writePackage(path, [rows](ZyOOXMLWriterSpreadsheet & sheet) {
            Random random(1);
            for (unsigned row = 0; row < rows; ++row) {
                sheet.startRow();
                for (unsigned column = 0; column < tableColumns; ++column) {
                    add(sheet, makeCell(random, column));
                }
            }
        });
    });
#ifdef ZYBENCH_XLSXWRITER
    addJob(family + "libxlsxwriter", [path, rows] {
        writePeerPackage(path, true, [rows](lxw_worksheet * sheet) {
            Random random(1);
            for (unsigned row = 0; row < rows; ++row) {
                for (unsigned column = 0; column < tableColumns; ++column) {
                    put(sheet, row, column, makeCell(random, column));
                }
            }
        });
    });
#endif
}

/**
 * Rows in pairs: the first has a text over two rows, a text over three columns and six plain cells, the
 * second nine plain cells beside the covered square. So there are as many merged ranges as rows.
 */
void writeMerges(ZyOOXMLWriterSpreadsheet & sheet, Table const & cells)
{
    for (unsigned row = 0; row < cells.rows; ++row) {
        sheet.startRow();
        bool const first = row % 2 == 0;
        if (first) {
            add(sheet, cells.at(row, 1), 1, 2);
            add(sheet, cells.at(row, 3), 3, 1);
        }
        for (unsigned column = first ? 4 : 1; column < cells.columns; ++column) {
            add(sheet, cells.at(row, column));
        }
    }
}

#ifdef ZYBENCH_XLSXWRITER
void putMerges(lxw_worksheet * sheet, Table const & cells)
{
    for (unsigned row = 0; row < cells.rows; ++row) {
        bool const first = row % 2 == 0;
        if (first) {
            worksheet_merge_range(sheet, row, 0, row + 1, 0, cells.at(row, 1).text.c_str(), nullptr);
            worksheet_merge_range(sheet, row, 1, row, 3, cells.at(row, 3).text.c_str(), nullptr);
        }
        for (unsigned column = first ? 4 : 1; column < cells.columns; ++column) {
            put(sheet, row, column, cells.at(row, column));
        }
    }
}
#endif

void registerMerges(unsigned merges)
{
    auto const & cells =
        *new Table(makeTable(merges, 10, 12)); // lives as long as the program, as the registry does
    std::string const path = dataFile("merges.xlsx");
    std::string const family = "xlsx-merges/" + std::to_string(merges) + "/";
    addJob(family + "ours", [path, &cells] {
        writePackage(path, [&cells](ZyOOXMLWriterSpreadsheet & sheet) { writeMerges(sheet, cells); });
    });
#ifdef ZYBENCH_XLSXWRITER
    addJob(family + "libxlsxwriter", [path, &cells] {
        writePeerPackage(path, false, [&cells](lxw_worksheet * sheet) { putMerges(sheet, cells); });
    });
#endif
}

/** One range of a million squares, and rows that have to step over it. */
void registerHugeMerge(std::string const & name, unsigned columnSpan, unsigned rowSpan)
{
    std::string const path = dataFile("huge.xlsx");
    addJob("xlsx-huge-merge/" + name + "/ours", [path, columnSpan, rowSpan] {
        writePackage(path, [columnSpan, rowSpan](ZyOOXMLWriterSpreadsheet & sheet) {
            sheet.startRow();
            sheet.addCell(ZyVariant("x"), columnSpan, rowSpan);
            for (int row = 0; row < 1000; ++row) {
                sheet.startRow();
                sheet.addCell(ZyVariant(row), 1, 1);
            }
        });
    });
}

} // namespace

void registerBenchmarks()
{
    dataTable();
    registerTable();
    registerMemory(10000);
    registerMemory(200000);
    registerMerges(20000);
    registerMerges(40000);
    registerMerges(80000);
    registerHugeMerge("columns", 1000000, 1);
    registerHugeMerge("rows", 1, 1000000);
}

} // namespace bench
