// SPDX-License-Identifier: BSD-3-Clause
// Tables, the calls that the spreadsheet walk makes of them, and the sheet that comes of the calls.
#pragma once

#include "DataTables.h"

#include <functional>
#include <string>
#include <vector>

struct LayoutExample
{
    std::string name;
    std::function<ZyDataTable()> table;
    std::string
        calls; ///< (value row column columns-by-rows), '' for the empty string; empty when the walk throws
    std::string sheet; ///< the rows and merges, numbers as bare text and texts too
};

inline std::vector<LayoutExample> layoutExamples()
{
    return {
        {"OneValueBesideThree",
         [] {
             return tableOf({{ZyVariant("x"), Values{1, 2, 3}}});
         },
         "(x r0 c0 1x3) (1 r0 c1 1x1) (2 r1 c1 1x1) (3 r2 c1 1x1) ",
         R"(<row><c r="A1"><v>x</v></c><c r="B1"><v>1</v></c></row><row><c r="A2"/><c r="B2"><v>2</v></c></row>)"
         R"(<row><c r="A3"/><c r="B3"><v>3</v></c></row><mergeCells count="1"><mergeCell ref="A1:A3"/></mergeCells>)"},
        {"FourBesideTwo",
         [] {
             return tableOf({{Values{"a", "b"}, Values{1, 2, 3, 4}}});
         },
         "(a r0 c0 1x2) (1 r0 c1 1x1) (b r1 c0 1x2) (2 r1 c1 1x1) (3 r2 c1 1x1) (4 r3 c1 1x1) ",
         R"(<row><c r="A1"><v>a</v></c><c r="B1"><v>1</v></c></row>)"
         R"(<row><c r="A2"/><c r="B2"><v>b</v></c><c r="C2"><v>2</v></c></row>)"
         R"(<row><c r="A3"><v>3</v></c><c r="B3"/></row><row><c r="A4"><v>4</v></c></row>)"
         R"(<mergeCells count="2"><mergeCell ref="A1:A2"/><mergeCell ref="B2:B3"/></mergeCells>)"},
        {"ThreeBesideTwo",
         [] {
             return tableOf({{Values{"a", "b"}, Values{1, 2, 3}}});
         },
         "(a r0 c0 1x1) (1 r0 c1 1x1) (b r1 c0 1x1) (2 r1 c1 1x1) (3 r2 c1 1x1) ",
         R"(<row><c r="A1"><v>a</v></c><c r="B1"><v>1</v></c></row>)"
         R"(<row><c r="A2"><v>b</v></c><c r="B2"><v>2</v></c></row><row><c r="A3"><v>3</v></c></row>)"},
        {"TwoInTheLastColumnBesideThree",
         [] {
             return tableOf({{Values{1, 2, 3}, Values{"a", "b"}}});
         },
         "(1 r0 c0 1x1) (a r0 c1 1x1) (2 r1 c0 1x1) (b r1 c1 1x1) (3 r2 c0 1x1) ",
         R"(<row><c r="A1"><v>1</v></c><c r="B1"><v>a</v></c></row>)"
         R"(<row><c r="A2"><v>2</v></c><c r="B2"><v>b</v></c></row><row><c r="A3"><v>3</v></c></row>)"},
        {"ARowWithoutItemsThenARowOfTwo",
         [] {
             return tableOf({Items(), {ZyVariant(1), ZyVariant(2)}});
         },
         "('' r0 c0 1x0) ('' r0 c1 1x0) (1 r0 c0 1x1) (2 r0 c1 1x1) ",
         R"(<row><c r="A1"><v>''</v></c><c r="B1"><v>''</v></c><c r="C1"><v>1</v></c><c r="D1"><v>2</v></c></row>)"},
        {"MergeInTheLastColumnAtTheEnd",
         [] {
             return tableOf({{Values{1, 2, 3}, ZyVariant("x")}});
         },
         "(1 r0 c0 1x1) (x r0 c1 1x3) (2 r1 c0 1x1) (3 r2 c0 1x1) ",
         R"(<row><c r="A1"><v>1</v></c><c r="B1"><v>x</v></c></row><row><c r="A2"><v>2</v></c><c r="B2"/></row>)"
         R"(<row><c r="A3"><v>3</v></c><c r="B3"/></row><mergeCells count="1"><mergeCell ref="B1:B3"/></mergeCells>)"},
        {"ItemWithoutValuesInATallRow",
         [] {
             return tableOf({{Values{}, Values{1, 2}}});
         },
         "(1 r0 c1 1x1) (2 r1 c1 1x1) ",
         R"(<row><c r="A1"><v>1</v></c></row><row><c r="A2"><v>2</v></c></row>)"},
        {"ItemWithoutValuesInARowOfHeightOne",
         [] {
             return tableOf({{Values{}, ZyVariant(1)}});
         },
         "", ""},
    };
}
