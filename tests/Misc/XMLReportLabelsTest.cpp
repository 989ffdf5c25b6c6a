// SPDX-License-Identifier: BSD-3-Clause
// The short texts that runs get from their names, through a file as in real life.
#include <XMLReport.h>

#include "MswTables.h"
#include "ScratchDirectory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;

/** What the runs with these names, from case 2 on, are called after reading. */
std::vector<std::string> labels(std::vector<std::string> const & names)
{
    YHashTable<XMLReportInfo> written;
    int caseNumber = 2;
    for (std::string const & name : names) {
        written.add(caseNumber, MswTables::named(caseNumber, name.c_str()));
        ++caseNumber;
    }
    ScratchDirectory const directory;
    EXPECT_TRUE(sp_WriteMswFile(directory / "a.msw", written, {}));
    YHashTable<XMLReportInfo> read;
    XMLReportHeader header;
    EXPECT_TRUE(sp_CompileSensReportData(directory / "a.msw", &read, &header));
    std::vector<std::string> result;
    for (int i = 2; i < caseNumber; ++i) {
        XMLReportInfo const * const run = read.find(i);
        result.emplace_back(run ? run->description.c_str() : "no run");
    }
    return result;
}

/** The same of one run file as text. */
std::string descriptionIn(std::string const & step)
{
    ScratchDirectory const directory;
    std::string const path = directory.write("a.msw", "<msw><steps>" + step + "</steps></msw>");
    YHashTable<XMLReportInfo> read;
    XMLReportHeader header;
    EXPECT_TRUE(sp_CompileSensReportData(path, &read, &header));
    XMLReportInfo const * const run = read.find(7);
    return run ? run->description.c_str() : "no run";
}
} // namespace

TEST(XMLReportLabels, AreTheReferenceWhenThatIsEnough)
{
    EXPECT_THAT(labels({"Refdes:R1/DevParam:res", "Refdes:R2/DevParam:res"}),
                ElementsAre("Ref: R1", "Ref: R2"));
}

TEST(XMLReportLabels, GetTheParameterAtTheSecondLevel)
{
    EXPECT_THAT(labels({"Refdes:Q1/DevParam:bf", "Refdes:Q1/DevParam:is"}),
                ElementsAre("Ref: Q1.bf", "Ref: Q1.is"));
}

TEST(XMLReportLabels, GetTheDistributionAtTheThirdLevel)
{
    EXPECT_THAT(labels({"Refdes:R1/DevParam:res/PDF:Uniform", "Refdes:R1/DevParam:res/PDF:Gauss"}),
                ElementsAre("Ref: R1.res (Uniform)", "Ref: R1.res (Gauss)"));
}

TEST(XMLReportLabels, GetTheTermAtTheFourthLevel)
{
    EXPECT_THAT(labels({"Refdes:R1/DevParam:res/PDF:G/Term:1", "Refdes:R1/DevParam:res/PDF:G/Term:2"}),
                ElementsAre("Ref: R1.res (G) (term 1)", "Ref: R1.res (G) (term 2)"));
}

TEST(XMLReportLabels, OfLotsGetParameterAndToleranceTogether)
{
    EXPECT_THAT(labels({"Lot:A/DevParam:res/Tol:5", "Lot:A/DevParam:res/Tol:10", "lot:B/Refdes:R9"}),
                ElementsAre("Lot: A.res (TOL=5)", "Lot: A.res (TOL=10)", "Lot: B"));
}

TEST(XMLReportLabels, OfVariablesGetTheDistributionFromTheThirdLevel)
{
    EXPECT_THAT(labels({"Param:temp/PDF:U", "Param:temp/PDF:G", "Param:vdd/PDF:G"}),
                ElementsAre("Var: temp (U)", "Var: temp (G)", "Var: vdd"));
}

TEST(XMLReportLabels, AreTheWholeNameAtTheLastLevelAndEmptyForEqualNames)
{
    EXPECT_THAT(labels({"Param:x/Foo:1", "Param:x/Foo:2", "Param:y/Foo:1", "Param:y/Foo:1"}),
                ElementsAre("Param:x/Foo:1", "Param:x/Foo:2", "", ""));
}

TEST(XMLReportLabels, TakeNamesThatAreNoKeyLists)
{
    EXPECT_THAT(labels({"nominal", "Refdes:R1:a/Param:z", "Refdes:"}),
                ElementsAre("nominal", "Var: z", "Ref: "));
    EXPECT_THAT(labels({"///", ":", "a:b:c", "/Refdes:R1/"}), ElementsAre("///", ":", "a:b:c", "Ref: R1"));
}

TEST(XMLReportLabels, MayEqualOneOfAnEarlierLevel)
{
    EXPECT_THAT(labels({"Refdes:R1", "Ref: R1", "Refdes:R1.res", "Refdes:R1/DevParam:res"}),
                ElementsAre("Refdes:R1", "Ref: R1", "Ref: R1.res", "Ref: R1.res"));
}

TEST(XMLReportLabels, CompareKeysWithoutCaseAndTakeTheFirstOfEqualOnes)
{
    EXPECT_THAT(labels({"REFDES:R1/refdes:R2"}), ElementsAre("Ref: R1"));
    EXPECT_THAT(labels({"refdes:R1/devparam:a/pdf:g", "RefDes:R1/DEVPARAM:a/Pdf:h"}),
                ElementsAre("Ref: R1.a (g)", "Ref: R1.a (h)"));
}

TEST(XMLReportLabels, AreToldApartByCase)
{
    EXPECT_THAT(labels({"Refdes:r1", "Refdes:R1"}), ElementsAre("Ref: r1", "Ref: R1"));
}

TEST(XMLReportLabels, PreferTheLotToTheReferenceToTheVariable)
{
    EXPECT_THAT(labels({"Param:p/Refdes:r/Lot:l"}), ElementsAre("Lot: l"));
    EXPECT_THAT(labels({"Param:p/Refdes:r"}), ElementsAre("Ref: r"));
}

TEST(XMLReportLabels, LeaveOutWhatIsNotThere)
{
    EXPECT_THAT(labels({"Lot:A/Tol:5", "Lot:A/DevParam:d"}), ElementsAre("Lot: A (TOL=5)", "Lot: A.d"));
    EXPECT_THAT(labels({"Refdes:R/PDF:g", "Refdes:R/Term:1"}), ElementsAre("Ref: R (g)", "Ref: R"));
}

TEST(XMLReportLabels, OfEqualNamesStayEmptyWhateverElseDiffers)
{
    EXPECT_THAT(labels({"Refdes:R1", "Refdes:R1", "Refdes:R1"}), ElementsAre("", "", ""));
}

TEST(XMLReportLabels, OfARunWithoutNameAndDescriptionTellTheCase)
{
    EXPECT_EQ(descriptionIn("<step case='7'/>"), "Run=7");
    EXPECT_EQ(descriptionIn("<step case='7' name='' description=''/>"), "Run=7");
}

TEST(XMLReportLabels, GiveWayToADescriptionOnlyWithoutAName)
{
    EXPECT_EQ(descriptionIn("<step case='7' description='d'/>"), "d");
    EXPECT_EQ(descriptionIn("<step case='7' name='Refdes:R1' description='d'/>"), "Ref: R1");
}

TEST(XMLReportLabels, OfARunWithoutAStepAreEmpty)
{
    ScratchDirectory const directory;
    std::string const path = directory.write(
        "a.msw", "<msw><meritfunction><sensval case='7' value='AAAAAAAA8D8='/></meritfunction></msw>");
    YHashTable<XMLReportInfo> read;
    XMLReportHeader header;
    EXPECT_TRUE(sp_CompileSensReportData(path, &read, &header));
    EXPECT_EQ(MswTables::text(*read.find(7)),
              "case 7 [] () {value 1 delta 0 norm 0 status 1} 0 parameter(s)");
}
