// SPDX-License-Identifier: BSD-3-Clause
// Reading of result files: what goes where, files in files, and what ends the reading.
#include <XMLReport.h>

#include "MswTables.h"
#include "ScratchDirectory.h"
#include "TestData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

/** What a file is read into. */
struct Result
{
    explicit Result(std::string const & path)
    {
        isGood = sp_CompileSensReportData(path, &table, &header);
        lines = MswTables::text(table);
        columns = MswTables::columns(header);
    }

    bool isGood;
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    std::vector<std::string> lines;
    std::string columns;
};

/** Reads a text as a file. */
Result read(std::string const & content)
{
    ScratchDirectory const directory;
    return Result(directory.write("a.msw", content));
}

/** The same of what stands in the root element. */
Result readInside(std::string const & content)
{
    return read("<msw>" + content + "</msw>");
}

/** Reads with a directory of files as the working directory, as paths in files are relative to that. */
class XMLReportAppend : public testing::Test
{
protected:
    XMLReportAppend() : m_before(std::filesystem::current_path())
    {
        std::filesystem::current_path(TestData::path("Misc/append"));
    }
    ~XMLReportAppend() override { std::filesystem::current_path(m_before); }

private:
    std::filesystem::path m_before;
};

std::string const one = "AAAAAAAA8D8=";
std::string const two = "AAAAAAAAAEA=";
} // namespace

TEST(XMLReportRead, BringsBackWhatWasWritten)
{
    ScratchDirectory const directory;
    ASSERT_TRUE(sp_WriteMswFile(directory / "a.msw", MswTables::sampleTable(), MswTables::sampleHeader()));
    Result const result(directory / "a.msw");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.columns, "Gain (dB) BW");
    EXPECT_EQ(result.header.meritFunctions[0].name, "g");
    EXPECT_EQ(result.header.numCores, 2);
    EXPECT_EQ(result.header.date, "21 November 2026");
    EXPECT_EQ(result.header.title, "Filter <A> & B");
    EXPECT_EQ(result.header.analysis, "Monte Carlo");
    EXPECT_EQ(result.header.group, "tests");
    XMLReportInfo const & second = *result.table.find(2);
    EXPECT_TRUE(second.hasName && second.hasSeed);
    EXPECT_EQ(second.seed, -1234567890123);
    ASSERT_EQ(second.parameters.size(), 2);
    EXPECT_EQ(second.parameters[0].name, "R1");
    EXPECT_EQ(second.parameters[0].nominal, 1000);
    EXPECT_EQ(second.parameters[0].usedValue, 1012.5);
    EXPECT_EQ(second.parameters[0].tol, 0.05);
    EXPECT_TRUE(second.parameters[0].hasTol);
    EXPECT_FALSE(second.parameters[1].hasTol);
    EXPECT_TRUE(std::signbit(second.parameters[1].usedValue));
    EXPECT_THAT(
        result.lines,
        ElementsAre(
            "case -3 [Run=-3] () {value 0 delta -1 norm 0 status 1} {value 0 delta -2 norm 0 status 1} 0 "
            "parameter(s)",
            "case 1 [nominal <run> & \"more\"] () {value 1 delta 0 norm 0 status 0} {value 2 delta 0 norm 0 "
            "status 0} 0 parameter(s)",
            "case 2 [Ref: R1] (Refdes:R1/DevParam:res) {value 3 delta 2 norm 0 status 1} {value 0 delta -2 "
            "norm 0 status 1} 2 parameter(s)",
            "case 102 [Run=102] () {value 0 delta -1 norm 0 status 1} {value 0 delta -2 norm 0 status 1} 0 "
            "parameter(s)"));
}

TEST(XMLReportRead, Deliberate_read_descriptions_are_not_marked)
{
    Result const result = readInside("<steps><step case='1' description='d'/></steps>");
    EXPECT_EQ(result.table.find(1)->description, "d");
    EXPECT_FALSE(result.table.find(1)->hasDescription);
}

// Texts are kept up to a zero byte, so such a name could not be written again.
TEST(XMLReportRead, TextThatBeginsWithAZeroByteIsNone)
{
    std::string const text("\0\0x", 3);
    Result const result =
        readInside("<steps><step case='1' name='" + text + "' description='" + text + "'/></steps>");
    ASSERT_TRUE(result.isGood);
    EXPECT_FALSE(result.table.find(1)->hasName);
    EXPECT_EQ(result.table.find(1)->description, "Run=1");
}

TEST(XMLReportRead, AcceptsAFileWithoutAVersionAndRefusesAnother)
{
    EXPECT_TRUE(read("<msw><header title='t'/></msw>").isGood);
    EXPECT_TRUE(read("<msw version='1.0'><header title='t'/></msw>").isGood);
    Result const other = read("<msw version='1.00'><header title='t'/><steps><step case='1'/></steps></msw>");
    EXPECT_FALSE(other.isGood);
    EXPECT_TRUE(other.header.title.isEmpty());
    EXPECT_THAT(other.lines, IsEmpty());
}

TEST(XMLReportRead, TakesElementsInAnyOrderAndCaseAndIgnoresOthers)
{
    Result const result =
        readInside("<future><step case='9'/></future><STEPS><Step case='2' name='n'><x/>"
                   "<PARAMETER name='p' nom='" +
                   one + "' usedvalue='" + two +
                   "'/></Step><x/></STEPS>text<!-- --><MeritFunction value='A'><x/><SensVal "
                   "case='2' value='" +
                   one + "'/></MeritFunction><Header title='t'/>");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.header.title, "t");
    EXPECT_THAT(result.lines, ElementsAre("case 2 [n] (n) {value 1 delta 0 norm 0 status 0} 1 parameter(s)"));
}

TEST(XMLReportRead, DoesNotLookAtTheNameOfTheRoot)
{
    EXPECT_THAT(read("<other><steps><step case='1'/></steps></other>").lines,
                ElementsAre("case 1 [Run=1] () 0 parameter(s)"));
}

TEST(XMLReportRead, CallsMissingTextsOfTheHeaderUnknown)
{
    Result const result = readInside("<header/>");
    EXPECT_EQ(result.header.numCores, 0);
    EXPECT_EQ(result.header.date, "unknown");
    EXPECT_EQ(result.header.title, "unknown");
    EXPECT_EQ(result.header.analysis, "unknown");
    EXPECT_EQ(result.header.group, "unknown");
}

TEST(XMLReportRead, TakesTheHeaderOfCoreZeroOnlyAndTheLastOfThose)
{
    Result const result =
        readInside("<header title='a' coreid='0'/><header title='b'/><header title='c' coreid='1'/>"
                   "<header title='d' coreid='-1'/>");
    EXPECT_EQ(result.header.title, "b");
    EXPECT_EQ(readInside("<header title='a' coreid='none'/>").header.title, "a");
}

TEST(XMLReportRead, ClampsAbsurdNumbers)
{
    Result const result =
        readInside("<header numcores='99999999999'/><steps><step case='99999999999999' "
                   "seed='99999999999999999999'/><step case='-99999999999999'/><step case='x'/>"
                   "</steps>");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.header.numCores, std::numeric_limits<int>::max());
    EXPECT_THAT(result.lines, ElementsAre("case -2147483648 [Run=-2147483648] () 0 parameter(s)",
                                          "case 0 [Run=0] () 0 parameter(s)",
                                          "case 2147483647 [Run=2147483647] () 0 parameter(s)"));
    EXPECT_EQ(result.table.find(std::numeric_limits<int>::max())->seed, std::numeric_limits<kb_int64>::max());
}

TEST(XMLReportRead, MergesStepsOfOneCase)
{
    std::string const parameter = "<parameter name='p' nom='" + one + "' usedvalue='" + two + "'/>";
    Result const result =
        readInside("<steps><step case='2' name='a'>" + parameter + "</step><step case='2' name='b'>" +
                   parameter + "</step><step case='2' description='d'/></steps>");
    EXPECT_THAT(result.lines, ElementsAre("case 2 [d] (b) 2 parameter(s)"));
}

TEST(XMLReportRead, TakesTheLastValueOfOneCase)
{
    Result const result = readInside("<meritfunction><sensval case='2' value='" + one +
                                     "'/><sensval case='2' value='" + two + "'/></meritfunction>");
    EXPECT_THAT(result.lines, ElementsAre("case 2 [] () {value 2 delta 0 norm 0 status 1} 0 parameter(s)"));
}

TEST(XMLReportRead, GivesMissingValuesTheDeltaOfZero)
{
    Result const result = readInside("<meritfunction value='A'><sensval case='1' value='" + one +
                                     "'/></meritfunction>"
                                     "<meritfunction value='B'><sensval case='1' value='" +
                                     two +
                                     "'/></meritfunction>"
                                     "<meritfunction value='C'><sensval case='2' value='" +
                                     two +
                                     "'/></meritfunction>"
                                     "<steps><step case='3'/></steps>");
    EXPECT_THAT(
        result.lines,
        ElementsAre(
            "case 1 [] () {value 1 delta 0 norm 0 status 0} {value 2 delta 0 norm 0 status 0} 0 "
            "parameter(s)",
            "case 2 [] () {value 0 delta -1 norm 0 status 1} {value 0 delta -2 norm 0 status 1} {value "
            "2 delta 0 norm 0 status 1} 0 parameter(s)",
            "case 3 [Run=3] () {value 0 delta -1 norm 0 status 1} {value 0 delta -2 norm 0 status 1} 0 "
            "parameter(s)"));
}

TEST(XMLReportRead, NeverUsesReadableNumbers)
{
    Result const result =
        readInside("<meritfunction><sensval case='1' value='" + one + "' value_ascii='7'/></meritfunction>");
    EXPECT_EQ(result.table.find(1)->sensValues[0].value, 1.0);
}

TEST(XMLReportRead, AddsToWhatIsThere)
{
    ScratchDirectory const directory;
    std::string const path =
        directory.write("a.msw", "<msw><meritfunction value='A'><sensval case='1' value='" + one +
                                     "'/></meritfunction></msw>");
    YHashTable<XMLReportInfo> table = MswTables::table({MswTables::named(5, "Refdes:R5")});
    XMLReportHeader header;
    header.title = "before";
    header.meritFunctions = {{"first", ""}};
    EXPECT_TRUE(sp_CompileSensReportData(path, &table, &header));
    EXPECT_EQ(header.title, "before");
    EXPECT_EQ(MswTables::columns(header), "first A");
    EXPECT_THAT(
        MswTables::text(table),
        ElementsAre("case 1 [] () {value 0 delta 0 norm 0 status 0} {value 1 delta 0 norm 0 status 0} 0 "
                    "parameter(s)",
                    "case 5 [Ref: R5] (Refdes:R5) {value 0 delta 0 norm 0 status 1} {value 0 delta -1 norm 0 "
                    "status 1} 0 parameter(s)"));
}

TEST(XMLReportRead, SaysFalseWithoutAPlaceForTheResult)
{
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_FALSE(sp_CompileSensReportData("a.msw", nullptr, &header));
    EXPECT_FALSE(sp_CompileSensReportData("a.msw", &table, nullptr));
}

TEST_F(XMLReportAppend, StopsAfterFourLevelsBelowTheFirstFile)
{
    Result const result("f1.msw");
    EXPECT_FALSE(result.isGood);
    EXPECT_EQ(result.columns, "M1 M2 M3 M4 M5");
    EXPECT_THAT(
        result.lines,
        ElementsAre("case 1 [Ref: R1] (Refdes:R1) {value 1 delta 0 norm 0 status 0} 1 parameter(s)",
                    "case 2 [Ref: R2] (Refdes:R2) {value 0 delta -1 norm 0 status 1} {value 2 delta 0 norm 0 "
                    "status 0} 1 parameter(s)",
                    "case 3 [Ref: R3] (Refdes:R3) {value 0 delta -1 norm 0 status 1} {value 0 delta 0 norm 0 "
                    "status 1} {value 3 delta 0 norm 0 status 0} 1 parameter(s)",
                    "case 4 [Ref: R4] (Refdes:R4) {value 0 delta -1 norm 0 status 1} {value 0 delta 0 norm 0 "
                    "status 1} {value 0 delta 0 norm 0 status 1} {value 4 delta 0 norm 0 status 0} 1 "
                    "parameter(s)",
                    "case 5 [Ref: R5] (Refdes:R5) {value 0 delta -1 norm 0 status 1} {value 0 delta 0 norm 0 "
                    "status 1} {value 0 delta 0 norm 0 status 1} {value 0 delta 0 norm 0 status 1} {value 5 "
                    "delta 0 norm 0 status 0} 1 parameter(s)"));
}

TEST_F(XMLReportAppend, ReadsAChainOfFiveFilesWhole)
{
    Result const result("f2.msw");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.columns, "M2 M3 M4 M5 M6");
    ASSERT_EQ(result.lines.size(), 5u);
    EXPECT_EQ(result.lines[0],
              "case 2 [Ref: R2] (Refdes:R2) {value 2 delta 0 norm 0 status 0} 1 parameter(s)");
    EXPECT_EQ(result.lines[4],
              "case 6 [Ref: R6] (Refdes:R6) {value 0 delta 0 norm 0 status 1} {value 0 delta 0 norm "
              "0 status 1} {value 0 delta 0 norm 0 status 1} {value 0 delta 0 norm 0 status 1} "
              "{value 6 delta 0 norm 0 status 0} 1 parameter(s)");
}

TEST_F(XMLReportAppend, ReadsAChainOfFourFilesWhole)
{
    Result const result("f3.msw");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.columns, "M3 M4 M5 M6");
    ASSERT_EQ(result.lines.size(), 4u);
    EXPECT_EQ(result.lines[0],
              "case 3 [Ref: R3] (Refdes:R3) {value 3 delta 0 norm 0 status 0} 1 parameter(s)");
    EXPECT_EQ(result.lines[3],
              "case 6 [Ref: R6] (Refdes:R6) {value 0 delta 0 norm 0 status 1} {value 0 delta 0 norm "
              "0 status 1} {value 0 delta 0 norm 0 status 1} {value 6 delta 0 norm 0 status 0} 1 "
              "parameter(s)");
}

TEST_F(XMLReportAppend, ReadsAFileThatAppendsItselfFiveTimes)
{
    Result const result("cycle.msw");
    EXPECT_FALSE(result.isGood);
    EXPECT_EQ(result.columns, "M1 M1 M1 M1 M1");
    EXPECT_THAT(
        result.lines,
        ElementsAre("case 1 [Ref: R1] (Refdes:R1) {value 1 delta 0 norm 0 status 0} {value 1 delta 0 norm 0 "
                    "status 0} {value 1 delta 0 norm 0 status 0} {value 1 delta 0 norm 0 status 0} {value 1 "
                    "delta 0 norm 0 status 0} 5 parameter(s)"));
}

TEST_F(XMLReportAppend, MakesAColumnOfEachMeritFunctionOfEachPart)
{
    Result const result("master.msw");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.columns, "Gain Gain");
    EXPECT_THAT(
        result.lines,
        ElementsAre("case 1 [] () {value 10 delta 0 norm 0 status 0} 0 parameter(s)",
                    "case 2 [] () {value 11 delta 1 norm 0 status 1} 0 parameter(s)",
                    "case 3 [] () {value 0 delta -10 norm 0 status 1} {value 12 delta 0 norm 0 status 1} 0 "
                    "parameter(s)"));
}

TEST_F(XMLReportAppend, ReadsADataFile)
{
    Result const result("data.msw");
    EXPECT_TRUE(result.isGood);
    EXPECT_EQ(result.columns, "A");
    EXPECT_THAT(result.lines,
                ElementsAre("case 1 [nominal run] () {value 1 delta 0 norm 0 status 0} 0 parameter(s)",
                            "case 2 [Ref: R1] (Refdes:R1) {value 2 delta 1 norm 0 status 1} 0 parameter(s)",
                            "case 3 [Run=3] () {value 0 delta -1 norm 0 status 1} 0 parameter(s)"));
}

TEST(XMLReportAppendFailure, KeepsTheFilesBehindFromBeingReadButNotTheRestOfTheMaster)
{
    ScratchDirectory const directory;
    std::string const file = "<file path='" + directory.path().string() + "/";
    directory.write("first.msw", "<msw><steps><step case='1'/></steps></msw>");
    directory.write("third.msw", "<msw><steps><step case='3'/></steps></msw>");
    Result const result(
        directory.write("master.msw", "<msw><append>" + file + "first.msw'/>" + file + "second.msw'/>" +
                                          file + "third.msw'/></append><append>" + file +
                                          "third.msw'/></append><steps><step case='9'/></steps></msw>"));
    EXPECT_FALSE(result.isGood);
    EXPECT_THAT(result.lines,
                ElementsAre("case 1 [Run=1] () 0 parameter(s)", "case 9 [Run=9] () 0 parameter(s)"));
}

TEST(XMLReportAppendFailure, OfAnotherVersionKeepsThatFileOut)
{
    ScratchDirectory const directory;
    std::string const other =
        directory.write("other.msw", "<msw version='2.0'><steps><step case='1'/></steps></msw>");
    Result const result(
        directory.write("master.msw", "<msw><append><file path='" + other + "'/></append></msw>"));
    EXPECT_FALSE(result.isGood);
    EXPECT_THAT(result.lines, IsEmpty());
}

TEST(XMLReportAppendFailure, OfWhatIsNoRegularFile)
{
    EXPECT_FALSE(readInside("<append><file path='/dev/zero'/></append>").isGood);
    EXPECT_FALSE(readInside("<append><file path='/tmp'/></append>").isGood);
    EXPECT_FALSE(readInside("<append><file path=''/></append>").isGood);
    EXPECT_FALSE(readInside("<append><file path='/no/such/file'/></append>").isGood);
    // A path that is none, or a device: the rest of the file is read all the same.
    for (char const * path : {"", "/dev/zero"}) {
        EXPECT_THAT(readInside("<append><file path='" + std::string(path) +
                               "'/></append><steps><step case='9'/></steps>")
                        .lines,
                    ElementsAre("case 9 [Run=9] () 0 parameter(s)"))
            << path;
    }
}

TEST(XMLReportAppendFailure, WithoutAPathEndsTheFile)
{
    Result const result = readInside("<append><file/></append><steps><step case='9'/></steps>");
    EXPECT_FALSE(result.isGood);
    EXPECT_THAT(result.lines, IsEmpty());
    EXPECT_TRUE(readInside("<append/><append><other/></append>").isGood);
}

TEST(XMLReportAppendFailure, StopsFilesThatNameEachOtherWithoutEnd)
{
    // Five levels of 40 names each would be more than 100 million files.
    ScratchDirectory const directory;
    for (int level = 1; level <= 5; ++level) {
        std::string content = "<msw>";
        for (int i = 0; i < 40 && level < 5; ++i) {
            content += "<append><file path='" + directory.path().string() + "/" + std::to_string(level + 1) +
                       ".msw'/></append>";
        }
        directory.write(std::to_string(level) + ".msw", content + "</msw>");
    }
    EXPECT_FALSE(Result(directory / "1.msw").isGood);
}

TEST(XMLReportLimits, EndAFileThatMakesValuesOutOfNothing)
{
    // The table holds nearly all that it may. The eleventh column then makes a run, and in it eleven values.
    ScratchDirectory const directory;
    std::string content = "<msw>";
    for (int i = 0; i < 10; ++i) {
        content += "<meritfunction/>";
    }
    std::string const path = directory.write("a.msw", content + "<meritfunction><sensval case='2' value='" +
                                                          one + "'/></meritfunction></msw>");
    for (int const room : {22, 23}) {
        YHashTable<XMLReportInfo> table = MswTables::table({MswTables::run(5)});
        table.find(5)->sensValues[(1 << 24) - 1 - room - 1].value = 1;
        XMLReportHeader header;
        EXPECT_EQ(sp_CompileSensReportData(path, &table, &header), room == 23);
        EXPECT_EQ(header.meritFunctions.size(), 11);
        EXPECT_EQ(table.find(2)->sensValues.size(), room == 23 ? 11 : 0);
    }
}

TEST(XMLReportLimits, KeepDeltasFromMakingValuesOutOfNothing)
{
    std::string content;
    for (int i = 0; i < 10000; ++i) {
        content += "<meritfunction><sensval case='1' value='" + one + "'/></meritfunction>";
    }
    content += "<steps>";
    for (int i = 2; i < 10002; ++i) {
        content += "<step case='" + std::to_string(i) + "'/>";
    }
    Result const result = readInside(content + "</steps>");
    EXPECT_FALSE(result.isGood);
    EXPECT_EQ(result.table.size(), 10001);
    EXPECT_EQ(result.table.find(2)->sensValues.size(), 0);
    EXPECT_EQ(result.table.find(1)->sensValues[0].status, 3);
}
