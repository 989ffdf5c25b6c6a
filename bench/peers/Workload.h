// SPDX-License-Identifier: BSD-3-Clause
// The fixed inputs of all benchmarks. Everything derives from one integer generator with constant seeds, so
// that the same bytes come out on every machine and in every run; no distribution of the standard library is
// used.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench
{

/** SplitMix64: small, quick, and the same everywhere. */
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t next();
    /** A number from 0 to \a limit - 1. */
    std::uint32_t below(std::uint32_t limit);
    /** A number from 0 to 1, 1 excluded, with all 53 bits. */
    double unit();
    /** 4 to 11 lower-case letters. */
    std::string word();
    /** \a size letters of either case. */
    std::string name(std::size_t size);

private:
    std::uint64_t m_state;
};

enum class CellKind : unsigned char { Integer, Double, Text };

/** A cell as a caller of any spreadsheet library has it at hand. */
struct Cell
{
    CellKind kind = CellKind::Integer;
    int integer = 0;
    double real = 0;
    std::string text;
};

/** Columns alternate number and text, the numbers integer and double; one text in 64 has characters to
 * escape. */
struct Table
{
    unsigned rows = 0;
    unsigned columns = 0;
    std::vector<Cell> cells; // row by row

    Cell const & at(unsigned row, unsigned column) const
    {
        return cells[std::size_t(row) * columns + column];
    }
};

/** The cell of column \a column, counted from 0, from the next numbers of \a random. */
Cell makeCell(Random & random, unsigned column);
Table makeTable(unsigned rows, unsigned columns, std::uint64_t seed = 1);

/** Appends a line of ten fields: integers, doubles, words; no quotes, no blanks, no empty fields, line feed
 * at the end. */
void appendCsvLine(Random & random, std::string & out);
/** A record of the library that the benchmarks of XML read and write. */
struct Record
{
    std::string id, name, kind, owner; // attributes
    std::string title;                 // text without markup
    std::string x, y;                  // attributes of the point
    std::vector<std::string> tags;     // 1 to 3 short texts
    std::string note;                  // text; one in 4 holds & and <
};

Record makeRecord(Random & random, unsigned index);
/** Appends a record as XML, with line breaks and blanks between the tags when \a indented. */
void appendRecord(std::string & out, Record const & record, bool indented);

/** Appends an indented record of XML text. */
void appendXmlRecord(Random & random, std::string & out);
/** The 12 characters of the Base64 form of the eight bytes of \a value. */
std::string base64(double value);

/** Makes the file of CSV lines unless it is there. \return its path */
std::string csvFile(std::uint64_t bytes);

/** Makes a result file of runs of a simulation, about 2 KB a run: Base64 doubles in attributes, indented.
 * Unless it is there. \return its path */
std::string resultFile(unsigned runs);

/** Makes the indented library of records, in groups of 100, unless it is there. \return its path */
std::string recordsFile(std::uint64_t bytes);

/** Makes the tree of small text files (200 to 8,199 bytes, 100 to a directory) unless it is there. \return
 * its root */
std::string smallTree(unsigned files);
/** Makes the tree of mixed files (2 KiB to 8 MiB: CSV, XML, Base64, random) unless it is there. \return its
 * root */
std::string mixedTree(std::uint64_t bytes);

} // namespace bench
