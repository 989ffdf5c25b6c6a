// SPDX-License-Identifier: BSD-3-Clause
// Pages built in a folder of the test's own, as text.
#pragma once

#include "ReportTables.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

class ReportPages
{
public:
    using Table = YHashTable<XMLReportInfo>;

    std::string monteCarlo(Table const & table, XMLReportHeader const & header, std::string const & css = "")
    {
        return read(sp_BuildMonteCarloHTMLReport(path().c_str(), css.c_str(), table, header));
    }
    std::string worstCase(Table const & table, XMLReportHeader const & header, std::string const & css = "")
    {
        return read(sp_BuildWorstCaseHTMLReport(path().c_str(), css.c_str(), table, header));
    }
    std::string sensitivity(Table const & table, XMLReportHeader const & header, int column,
                            std::string const & css = "")
    {
        return read(sp_BuildHTMLSensitivityReport(path().c_str(), css.c_str(), table, header, column));
    }

    std::string path() const { return folder / "page.html"; }

    ScratchDirectory folder;

private:
    std::string read(bool built)
    {
        EXPECT_TRUE(built);
        std::ifstream page(folder.path() / "page.html"); // as a text, whose lines end as the system wants it
        return std::string(std::istreambuf_iterator<char>(page), std::istreambuf_iterator<char>());
    }
};

/** The part of a page from one text to another, which is left out. */
inline std::string part(std::string const & page, std::string const & from, std::string const & to)
{
    auto const begin = page.find(from);
    auto const end = begin == std::string::npos ? begin : page.find(to, begin);
    return end == std::string::npos ? "not found: " + from + " ... " + to : page.substr(begin, end - begin);
}
