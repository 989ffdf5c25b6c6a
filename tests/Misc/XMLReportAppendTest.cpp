// SPDX-License-Identifier: BSD-3-Clause
// Adding a merit function to a result file.
#include <XMLReport.h>

#include "MswTables.h"
#include "ScratchDirectory.h"
#include "TestData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace
{
using testing::ElementsAre;

/** A fresh copy of a file with a merit function A and three runs, the third of which lacks its value. */
class XMLReportAppendMeritData : public testing::Test
{
protected:
    XMLReportAppendMeritData()
    {
        std::ifstream file(TestData::path("Misc/append/data.msw"), std::ios::binary);
        before = std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        path = directory.write("data.msw", before);
    }

    bool append(YVector<double> const & values, YVector<int> const & cases) const
    {
        return sp_AppendMeritData(path, "B", "b", values, cases);
    }
    std::string content() const { return directory.read("data.msw"); }
    std::vector<std::string> compiled() const
    {
        YHashTable<XMLReportInfo> table;
        XMLReportHeader header;
        EXPECT_TRUE(sp_CompileSensReportData(path, &table, &header));
        EXPECT_EQ(MswTables::columns(header), "A B");
        EXPECT_EQ(header.title, "t");
        return MswTables::text(table);
    }

    ScratchDirectory directory;
    std::string before;
    std::string path;
};
} // namespace

TEST_F(XMLReportAppendMeritData, WritesTheFileAnewWithOneColumnMore)
{
    EXPECT_TRUE(append({5, 6}, {1, 2}));
    std::string const text = content();
    std::size_t const body = text.find("\n <header");
    ASSERT_NE(body, std::string::npos);
    EXPECT_EQ(text.substr(body + 1),
              " <header analysis=\"unknown\" date=\"unknown\" title=\"t\" group=\"unknown\"/>\n"
              " <meritfunction value=\"A\" name=\"\">\n"
              "  <sensval case=\"1\" value=\"AAAAAAAA8D8=\"/>\n"
              "  <sensval case=\"2\" value=\"AAAAAAAAAEA=\"/>\n"
              "  <sensval case=\"3\" value=\"AAAAAAAAAAA=\"/>\n"
              " </meritfunction>\n"
              " <meritfunction value=\"B\" name=\"b\">\n"
              "  <sensval case=\"1\" value=\"AAAAAAAAFEA=\"/>\n"
              "  <sensval case=\"2\" value=\"AAAAAAAAGEA=\"/>\n"
              "  <sensval case=\"3\" value=\"AAAAAAAAAAA=\"/>\n"
              " </meritfunction>\n"
              " <steps>\n"
              "  <step case=\"1\"/>\n"
              "  <step name=\"Refdes:R1\" case=\"2\"/>\n"
              "  <step case=\"3\"/>\n"
              " </steps>\n"
              "</msw>\n");
}

TEST_F(XMLReportAppendMeritData, TakesARunThatIsLeftOutAsZero)
{
    EXPECT_TRUE(append({7}, {2}));
    EXPECT_THAT(
        compiled(),
        ElementsAre(
            "case 1 [Run=1] () {value 1 delta 0 norm 0 status 0} {value 0 delta 0 norm 0 status 0} 0 "
            "parameter(s)",
            "case 2 [Ref: R1] (Refdes:R1) {value 2 delta 1 norm 0 status 1} {value 7 delta 7 norm 0 "
            "status 1} 0 parameter(s)",
            "case 3 [Run=3] () {value 0 delta -1 norm 0 status 1} {value 0 delta 0 norm 0 status 1} 0 "
            "parameter(s)"));
}

TEST_F(XMLReportAppendMeritData, TakesNoCasesAtAll)
{
    EXPECT_TRUE(append({}, {}));
    EXPECT_EQ(compiled().size(), 3u);
}

TEST_F(XMLReportAppendMeritData, LeavesTheFileUntouchedWhenTheSizesDiffer)
{
    EXPECT_FALSE(append({5}, {1, 2}));
    EXPECT_FALSE(append({5, 6}, {1}));
    EXPECT_EQ(content(), before);
}

TEST_F(XMLReportAppendMeritData, LeavesTheFileUntouchedWhenACaseIsMissing)
{
    EXPECT_FALSE(append({5, 6}, {1, 9}));
    EXPECT_EQ(content(), before);
}

TEST_F(XMLReportAppendMeritData, LeavesTheFileUntouchedWhenARunLacksAValue)
{
    EXPECT_FALSE(append({5}, {3}));
    EXPECT_EQ(content(), before);
}

TEST_F(XMLReportAppendMeritData, LeavesTheFileUntouchedWhenACaseComesTwice)
{
    EXPECT_FALSE(append({5, 5}, {1, 1}));
    EXPECT_EQ(content(), before);
}

TEST_F(XMLReportAppendMeritData, LeavesABrokenFileUntouched)
{
    for (char const * broken : {"", "<msw", "<msw version='2.0'/>", "<msw><steps><step/></steps></msw>"}) {
        directory.write("data.msw", broken);
        EXPECT_FALSE(append({}, {}));
        EXPECT_EQ(content(), broken);
    }
}

TEST_F(XMLReportAppendMeritData, MakesNoFileWhereThereIsNone)
{
    EXPECT_FALSE(sp_AppendMeritData(directory / "none.msw", "B", "b", {}, {}));
    EXPECT_FALSE(directory.has("none.msw"));
}

TEST_F(XMLReportAppendMeritData, MergesWhatTheFileAppends)
{
    directory.write("part.msw", "<msw><steps><step case='4' name='Refdes:R4'/></steps></msw>");
    directory.write("data.msw",
                    "<msw><append><file path='" + directory.path().string() + "/part.msw'/></append></msw>");
    EXPECT_TRUE(append({2}, {4}));
    std::string const text = content();
    EXPECT_EQ(text.find("append"), std::string::npos) << text;
    EXPECT_NE(text.find("<sensval case=\"4\" value=\"AAAAAAAAAEA=\"/>"), std::string::npos) << text;
    EXPECT_NE(text.find("<step name=\"Refdes:R4\" case=\"4\"/>"), std::string::npos) << text;
}

TEST_F(XMLReportAppendMeritData, Deliberate_append_merit_data_loses_descriptions)
{
    ASSERT_NE(before.find("description=\"nominal run\""), std::string::npos);
    EXPECT_TRUE(append({}, {}));
    EXPECT_EQ(content().find("description"), std::string::npos);
    EXPECT_NE(content().find("group=\"unknown\""), std::string::npos);
}
