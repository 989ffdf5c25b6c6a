// SPDX-License-Identifier: BSD-3-Clause
// The files of the HTML pages: where they go, what cannot be opened, and the style sheet that they embed.
#include "PlainReport.h"
#include "ReportPages.h"
#include "ReportTables.h"
#include "Restricted.h"

#include <filesystem>

namespace
{
using namespace ReportTables;

class XMLReportHTMLFiles : public testing::Test
{
protected:
    std::string withStyle(std::string const & css)
    {
        return pages.sensitivity(fiveRuns(), header({"Gain"}), 0, css);
    }
    static std::string plain(std::string const & style)
    {
        return PlainReport::sensitivity(fiveRuns(), header({"Gain"}), 0, style);
    }
    /** Whether any of the three builds a page at a path. */
    static bool builds(std::string const & path)
    {
        bool const log = sp_BuildMonteCarloHTMLReport(path.c_str(), "", fourRuns(), monteCarloHeader());
        bool const worst = sp_BuildWorstCaseHTMLReport(path.c_str(), "", fourRuns(), monteCarloHeader());
        bool const sensitivity =
            sp_BuildHTMLSensitivityReport(path.c_str(), "", fiveRuns(), header({"Gain"}), 0);
        EXPECT_EQ(log, worst);
        EXPECT_EQ(log, sensitivity);
        return log;
    }

    ReportPages pages;
};
} // namespace

TEST_F(XMLReportHTMLFiles, StyleSheetIsEmbeddedByteForByte)
{
    for (std::string const & css :
         {std::string("td { color: red; }\n"), std::string("no line feed at the end"),
          std::string("\r\n\t\0 & </style> \xff", 17), std::string(4096, 'c'), std::string(4097, 'c'),
          std::string(300000, 'c') + "end"}) {
        std::string const path = pages.folder.write("style.css", css);
        EXPECT_TRUE(withStyle(path) == plain(css)) << css.size();
    }
}

TEST_F(XMLReportHTMLFiles, EveryPageEmbedsTheStyleSheet)
{
    std::string const path = pages.folder.write("style.css", "b{}");
    EXPECT_EQ(pages.monteCarlo(fourRuns(), monteCarloHeader(), path),
              PlainReport::log(fourRuns(), monteCarloHeader(), true, "b{}"));
    EXPECT_EQ(pages.worstCase(fourRuns(), monteCarloHeader(), path),
              PlainReport::log(fourRuns(), monteCarloHeader(), false, "b{}"));
}

TEST_F(XMLReportHTMLFiles, EmptyStyleSheetGivesAnEmptyStyle)
{
    EXPECT_EQ(part(withStyle(pages.folder.write("style.css", "")), "\t\t<title>", "\t<table"),
              "\t\t<title>Sensitivity Analysis Report</title>\n<style>\n</style>\n\t</head>\n");
}

TEST_F(XMLReportHTMLFiles, MissingStyleSheetGivesTheBuiltInStyle)
{
    EXPECT_EQ(withStyle(""), plain(""));
    EXPECT_EQ(withStyle(pages.folder / "missing.css"), plain(""));
    EXPECT_EQ(withStyle(pages.folder / "missing/style.css"), plain(""));
}

TEST_F(XMLReportHTMLFiles, DirectoryIsNoStyleSheet)
{
    EXPECT_EQ(withStyle(pages.folder.path().string()), plain(""));
    EXPECT_EQ(withStyle("/"), plain(""));
}

TEST_F(XMLReportHTMLFiles, StyleSheetThatMayNotBeReadGivesTheBuiltInStyle)
{
    std::string const css = pages.folder.write("style.css", "b{}");
    std::filesystem::permissions(css, std::filesystem::perms::none);
    std::filesystem::permissions(pages.folder.path(), std::filesystem::perms::all);
    auto const check = [&] {
        Restricted::dropRights();
        Restricted::exitWith([&] {
            return sp_BuildHTMLSensitivityReport(pages.path().c_str(), css.c_str(), fiveRuns(),
                                                 header({"Gain"}), 0);
        });
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(pages.folder.read("page.html"), plain(""));
}

TEST_F(XMLReportHTMLFiles, PageThatIsItsOwnStyleSheetIsEmptiedFirst)
{
    pages.folder.write("page.html", "b{}");
    EXPECT_EQ(part(withStyle(pages.path()), "<style>", "\t</head>"), "<style>\n</style>\n");
}

TEST_F(XMLReportHTMLFiles, OutputThatCannotBeOpenedGivesFalseAndNothingElse)
{
    EXPECT_FALSE(builds(pages.folder / "missing/page.html"));
    EXPECT_FALSE(builds(pages.folder.path().string()));
    EXPECT_FALSE(builds(""));
    EXPECT_FALSE(builds(pages.folder.write("file", "content") + "/page.html"));
    EXPECT_EQ(pages.folder.read("file"), "content");
    pages.folder.write("page.html", "");
    EXPECT_FALSE(builds(pages.folder / (std::string(300, 'n') + ".html")));
    auto const files = std::filesystem::directory_iterator(pages.folder.path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "the two that the test has made";
}

TEST_F(XMLReportHTMLFiles, FileThatMayNotBeWrittenStaysAsItIs)
{
    std::string const path = pages.folder.write("page.html", "content");
    std::filesystem::permissions(path,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
    std::filesystem::permissions(pages.folder.path(), std::filesystem::perms::all);
    auto const check = [&] {
        Restricted::dropRights();
        Restricted::exitWith([&] { return !builds(path); });
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(pages.folder.read("page.html"), "content");
}

TEST_F(XMLReportHTMLFiles, LongerFileIsReplacedAsAWhole)
{
    pages.folder.write("page.html", std::string(100000, 'x'));
    EXPECT_EQ(withStyle(""), plain(""));
}

TEST_F(XMLReportHTMLFiles, Deliberate_report_writes_unchecked)
{
    auto const check = [&] {
        Restricted::limitFileSize(100);
        Restricted::exitWith([&] { return builds(pages.path()); });
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(pages.folder.read("page.html"), plain("").substr(0, 100));
}

TEST_F(XMLReportHTMLFiles, PathsAreUtf8WithSlashesOfEitherKind)
{
    std::string const folder = "Gr\xc3\xb6\xc3\x9f"
                               "e";
    std::string const leaf = "\xe6\x97\xa5\xe6\x9c\xac \xf0\x9f\x98\x80.html";
    std::filesystem::create_directory(pages.folder.path() / folder);
    std::string const css = pages.folder.write(folder + "/\xc3\xa4.css", "b{}");
    std::string const path = (pages.folder / folder) + "\\" + leaf;
    std::string backslashes = css;
    std::replace(backslashes.begin(), backslashes.end(), '/', '\\');
    EXPECT_TRUE(
        sp_BuildHTMLSensitivityReport(path.c_str(), backslashes.c_str(), fiveRuns(), header({"Gain"}), 0));
    EXPECT_EQ(pages.folder.read(folder + "/" + leaf), plain("b{}"));
}

TEST_F(XMLReportHTMLFiles, TextKeepsItsBytesValidUtf8OrNot)
{
    std::string const texts = "<td>\xc3\xa4\xe6\x97\xa5\xf0\x9f\x98\x80</td>";
    auto const runs = table({run(1, "\xc3\xa4\xe6\x97\xa5\xf0\x9f\x98\x80"), run(2, "\xff\xc3(")});
    std::string const page = pages.monteCarlo(runs, header({"M"}));
    EXPECT_NE(page.find(texts), std::string::npos);
    EXPECT_NE(page.find("<td>\xff\xc3(</td>"), std::string::npos);
}

TEST_F(XMLReportHTMLFiles, AllFilesAreClosedWhenTheReportIsThere)
{
    auto const openFiles = [] {
        auto const files = std::filesystem::directory_iterator("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    std::string const css = pages.folder.write("style.css", "b{}");
    auto const before = openFiles();
    withStyle(css);
    pages.monteCarlo(fourRuns(), monteCarloHeader(), pages.folder.path().string());
    pages.worstCase(fourRuns(), monteCarloHeader());
    EXPECT_FALSE(builds(""));
    EXPECT_EQ(openFiles(), before);
}
