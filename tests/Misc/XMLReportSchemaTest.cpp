// SPDX-License-Identifier: BSD-3-Clause
// The schema of result files holds for what is written and for what hosts write, and for little else.
#include <XMLReport.h>

#include <ZyException.h>
#include <ZyString.h>
#include <ZyXMLValidator.h>

#include "MswTables.h"
#include "Program.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::string const schema = ZYTEST_MSW_SCHEMA;

bool isValid(std::string const & path)
{
    return ZyXMLValidator(ZyString(path)).isValid(ZyString(schema), false);
}

bool isValidInside(std::string const & content, std::string const & attributes = "")
{
    ScratchDirectory const directory;
    return isValid(
        directory.write("a.msw", "<msw xmlns='http://schemas.zycore.example/schemas/application/msw/'" +
                                     attributes + ">" + content + "</msw>"));
}

std::string written(ScratchDirectory const & directory)
{
    EXPECT_TRUE(sp_WriteMswFile(directory / "a.msw", MswTables::sampleTable(), MswTables::sampleHeader()));
    return directory / "a.msw";
}

std::string writtenWithReadableNumbers(ScratchDirectory const & directory)
{
    Program::run(QStringLiteral(ZYTEST_WRITEMSW),
                 {QString::fromStdString(directory / "ascii.msw"), QStringLiteral("on")});
    return directory / "ascii.msw";
}
} // namespace

TEST(XMLReportSchema, HoldsForWhatIsWritten)
{
    ScratchDirectory const directory;
    EXPECT_TRUE(isValid(written(directory)));
    EXPECT_TRUE(isValid(writtenWithReadableNumbers(directory)));
    EXPECT_TRUE(sp_WriteMswFile(directory / "empty.msw", {}, {}));
    EXPECT_TRUE(isValid(directory / "empty.msw"));
}

TEST(XMLReportSchema, HoldsForAnotherValidator)
{
    QString const xmllint = Program::find(QStringLiteral("xmllint"));
    if (xmllint.isEmpty()) {
        GTEST_SKIP() << "xmllint is not installed";
    }
    ScratchDirectory const directory;
    for (std::string const & path : {written(directory), writtenWithReadableNumbers(directory)}) {
        Program::run(xmllint,
                     {QStringLiteral("--nonet"), QStringLiteral("--noout"), QStringLiteral("--schema"),
                      QString::fromStdString(schema), QString::fromStdString(path)});
    }
}

TEST(XMLReportSchema, HoldsForMasterFilesAndParts)
{
    EXPECT_TRUE(isValidInside("<append><file path='part1.msw'/><file path='part2.msw'/></append>"));
    EXPECT_TRUE(
        isValidInside("<steps/><header coreid='3'/><meritfunction value='a'/>", " version='1.0' rev='1'"));
}

TEST(XMLReportSchema, RefusesWhatCannotBeRead)
{
    EXPECT_TRUE(isValidInside("<steps><step case='1'/></steps>"));
    EXPECT_FALSE(isValidInside("<steps><step/></steps>"));
    EXPECT_FALSE(isValidInside("<steps><step case='x'/></steps>"));
    EXPECT_FALSE(isValidInside("<append><file/></append>"));
    EXPECT_FALSE(isValidInside("", " version='1.00'"));
    EXPECT_FALSE(isValidInside("<step case='1'/>"));
    EXPECT_TRUE(isValidInside("<meritfunction><sensval case='1' value='AAAAAAAA8D8='/></meritfunction>"));
    EXPECT_FALSE(isValidInside("<meritfunction><sensval case='1' value='AAAAAAAA8D9='/></meritfunction>"));
    EXPECT_FALSE(isValidInside("<meritfunction><sensval case='1' value='AAAA'/></meritfunction>"));
    EXPECT_FALSE(isValidInside("<meritfunction><sensval case='1'/></meritfunction>"));
    EXPECT_FALSE(isValidInside("<meritfunction><sensval value='AAAAAAAA8D8='/></meritfunction>"));
}
