// SPDX-License-Identifier: BSD-3-Clause
// Result files that are cut off, missing or wrong in a place: the answer is false, and what was read stays.
#include <XMLReport.h>

#include "MswTables.h"
#include "ScratchDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

std::string sampleFile()
{
    ScratchDirectory const directory;
    EXPECT_TRUE(sp_WriteMswFile(directory / "a.msw", MswTables::sampleTable(), MswTables::sampleHeader()));
    return directory.read("a.msw");
}

bool compile(std::string const & path, YHashTable<XMLReportInfo> & table, XMLReportHeader & header)
{
    return sp_CompileSensReportData(path, &table, &header);
}

/** A step or a value with one bad attribute. */
struct Bad
{
    char const * label;
    char const * content;
    std::vector<std::string> lines; ///< what stays
    int columns;
};

std::ostream & operator<<(std::ostream & out, Bad const & bad)
{
    return out << bad.label;
}

class XMLReportBadAttribute : public testing::TestWithParam<Bad>
{};

std::string const before = "<steps><step case='1'/></steps>";
std::string const behind = "<steps><step case='9'/></steps>";
std::string const firstRun = "case 1 [Run=1] () 0 parameter(s)";
} // namespace

TEST(XMLReportDamage, SaysFalseForAFileThatIsCutOffAnywhere)
{
    std::string const whole = sampleFile();
    std::size_t const end = whole.rfind('>'); // what follows is a line feed
    ScratchDirectory const directory;
    for (std::size_t size = 0; size <= end; ++size) {
        std::string const path = directory.write("a.msw", whole.substr(0, size));
        YHashTable<XMLReportInfo> table;
        XMLReportHeader header;
        ASSERT_FALSE(compile(path, table, header)) << "cut to " << size;
        ASSERT_TRUE(table.isEmpty()) << "cut to " << size;
        ASSERT_TRUE(header.meritFunctions.isEmpty() && header.title.isEmpty()) << "cut to " << size;
    }
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_TRUE(compile(directory.write("a.msw", whole.substr(0, end + 1)), table, header));
    EXPECT_EQ(table.size(), 4);
}

TEST(XMLReportDamage, SurvivesEveryChangedByte)
{
    std::string const whole = sampleFile();
    ScratchDirectory const directory;
    std::mt19937 random(7);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] = static_cast<char>(random());
        YHashTable<XMLReportInfo> table;
        XMLReportHeader header;
        compile(directory.write("a.msw", changed), table, header);
        ASSERT_LE(table.size(), 12) << at;
    }
}

TEST(XMLReportDamage, SaysFalseForWhatIsNoFile)
{
    ScratchDirectory const directory;
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_FALSE(compile(directory / "missing.msw", table, header));
    EXPECT_FALSE(compile(directory.path().string(), table, header));
    EXPECT_FALSE(compile("", table, header));
    EXPECT_FALSE(compile(directory.write("a.msw", "no XML"), table, header));
    EXPECT_TRUE(table.isEmpty());
}

TEST(XMLReportDamage, ComputesFromWhatIsThereEvenWhenTheFileCannotBeRead)
{
    YHashTable<XMLReportInfo> table = MswTables::table({MswTables::named(2, "Refdes:R1")});
    table.find(2)->sensValues.add(MswTables::value(1));
    XMLReportHeader header;
    EXPECT_FALSE(compile("/no/such/file.msw", table, header));
    EXPECT_THAT(MswTables::text(table),
                ElementsAre("case 2 [Ref: R1] (Refdes:R1) {value 1 delta 0 norm 0 status 1} 0 parameter(s)"));
}

TEST_P(XMLReportBadAttribute, EndsTheFileAndLeavesWhatWasRead)
{
    ScratchDirectory const directory;
    std::string const path =
        directory.write("a.msw", "<msw>" + before + GetParam().content + behind + "</msw>");
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_FALSE(compile(path, table, header));
    EXPECT_EQ(MswTables::text(table), GetParam().lines);
    EXPECT_EQ(header.meritFunctions.size(), GetParam().columns);
}

INSTANTIATE_TEST_SUITE_P(
    Places, XMLReportBadAttribute,
    testing::Values(
        Bad{"value without case",
            "<meritfunction><sensval value='AAAAAAAA8D8='/></meritfunction>",
            {firstRun},
            1},
        Bad{"value without value", "<meritfunction><sensval case='2'/></meritfunction>", {firstRun}, 1},
        Bad{"value too short",
            "<meritfunction><sensval case='2' value='AAA'/></meritfunction>",
            {firstRun},
            1},
        Bad{"value empty", "<meritfunction><sensval case='2' value=''/></meritfunction>", {firstRun}, 1},
        Bad{"value too long by one",
            "<meritfunction><sensval case='2' value='AAAAAAAA8D8=A'/></meritfunction>",
            {firstRun},
            1},
        Bad{"step without case", "<steps><step name='n'/></steps>", {firstRun}, 0},
        Bad{"parameter without nominal",
            "<steps><step case='2'><parameter name='p' usedvalue='AAAAAAAA8D8='/></step></steps>",
            {firstRun, "case 2 [Run=2] () 0 parameter(s)"},
            0},
        Bad{"parameter without used value",
            "<steps><step case='2'><parameter name='p' nom='AAAAAAAA8D8='/></step></steps>",
            {firstRun, "case 2 [Run=2] () 0 parameter(s)"},
            0},
        Bad{"parameter with a bad tolerance",
            "<steps><step case='2'><parameter nom='AAAAAAAA8D8=' usedvalue='AAAAAAAA8D8=' "
            "tol='AAAAA'/></step></steps>",
            {firstRun, "case 2 [Run=2] () 0 parameter(s)"},
            0}));

TEST(XMLReportDamage, DecodesWhatBase64ThereIs)
{
    // Four characters are three bytes of the number, the rest of which is 0; no character of the alphabet
    // counts as padding.
    ScratchDirectory const directory;
    std::string const path = directory.write(
        "a.msw",
        "<msw><meritfunction><sensval case='2' value='AAAA'/><sensval case='3' value='AAAAAAAA8D8=AAAA'/>"
        "</meritfunction></msw>");
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_TRUE(compile(path, table, header));
    EXPECT_EQ(table.find(2)->sensValues[0].value, 0.0);
    EXPECT_EQ(table.find(3)->sensValues[0].value, 1.0);
}

TEST(XMLReportDamage, ComputesAsToldWithInfinityAndNotANumberInEveryPlace)
{
    // Infinity and NaN as values, nominals, used values and tolerances, in the reference run as well.
    double const numbers[] = {std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(), 0.0, 1.0};
    ScratchDirectory const directory;
    for (double const reference : numbers) {
        for (double const number : numbers) {
            for (double const nominal : numbers) {
                YHashTable<XMLReportInfo> runs = MswTables::table({MswTables::run(1), MswTables::run(2)});
                runs.find(1)->sensValues.add(MswTables::value(reference));
                runs.find(2)->sensValues.add(MswTables::value(number));
                runs.find(2)->parameters = {MswTables::parameter("p", nominal, number, reference)};
                XMLReportHeader header;
                header.meritFunctions = {{"A", ""}};
                ASSERT_TRUE(sp_WriteMswFile(directory / "a.msw", runs, header));
                YHashTable<XMLReportInfo> read;
                XMLReportHeader readHeader;
                ASSERT_TRUE(compile(directory / "a.msw", read, readHeader));
                EXPECT_EQ(read.find(1)->sensValues[0].status, 0);
                EXPECT_EQ(read.find(1)->sensValues[0].norm, 0.0);
                bool const cannot = number == nominal || number == 0;
                EXPECT_EQ(read.find(2)->sensValues[0].status, cannot ? 1 : 0);
                double const delta = number - reference;
                double const norm = cannot ? 0.0 : delta / number * nominal / (number - nominal);
                double const given = read.find(2)->sensValues[0].norm;
                EXPECT_TRUE(given == norm || (std::isnan(given) && std::isnan(norm)));
            }
        }
    }
}

TEST(XMLReportDamage, BringsControlCharactersBack)
{
    YHashTable<XMLReportInfo> const runs = MswTables::table({MswTables::named(2, "Refdes:R\x01"
                                                                                 "1")});
    ScratchDirectory const directory;
    ASSERT_TRUE(sp_WriteMswFile(directory / "a.msw", runs, {}));
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
    EXPECT_TRUE(compile(directory / "a.msw", table, header));
    ASSERT_EQ(table.size(), 1);
    EXPECT_STREQ(table.find(2)->name.c_str(), "Refdes:R\x01"
                                              "1");
}
