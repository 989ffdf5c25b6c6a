// SPDX-License-Identifier: BSD-3-Clause
// Result files as they are written, byte for byte.
#include <XMLReport.h>

#include <ZyBase64Converter.h>
#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyStringDevice.h>
#include <ZyXMLDomDocument.h>
#include <ZyXMLDomElement.h>
#include <ZyXMLStreamElementWriter.h>
#include <ZyXMLStreamWriter.h>

#include "MswTables.h"
#include "Program.h"
#include "Restricted.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace
{
using MswTables::named;
using MswTables::parameter;
using MswTables::run;
using MswTables::sampleHeader;
using MswTables::sampleTable;
using MswTables::table;
using MswTables::value;

std::string const rootStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<msw xmlns=\"http://schemas.zycore.example/schemas/application/msw/\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xsi:schemaLocation=\"http://schemas.zycore.example/schemas/application/msw"
    " http://schemas.zycore.example/schemas/application/msw.xsd\" version=\"1.0\" rev=\"1\">\n";

// Buckets 1, 1, 2, 65: the runs 102, 1, 2, -3.
std::string const sample =
    rootStart +
    " <header analysis=\"Monte Carlo\" date=\"21 November 2026\" numcores=\"2\" title=\"Filter &lt;A> &amp; "
    "B\""
    " group=\"tests\"/>\n"
    " <meritfunction value=\"Gain (dB)\" name=\"g\">\n"
    "  <sensval case=\"102\" value=\"AAAAAAAAAAA=\"/>\n"
    "  <sensval case=\"1\" value=\"AAAAAAAA8D8=\"/>\n"
    "  <sensval case=\"2\" value=\"AAAAAAAACEA=\"/>\n"
    "  <sensval case=\"-3\" value=\"AAAAAAAAAAA=\"/>\n"
    " </meritfunction>\n"
    " <meritfunction value=\"BW\" name=\"\">\n"
    "  <sensval case=\"102\" value=\"AAAAAAAAAAA=\"/>\n"
    "  <sensval case=\"1\" value=\"AAAAAAAAAEA=\"/>\n"
    "  <sensval case=\"2\" value=\"AAAAAAAAAAA=\"/>\n"
    "  <sensval case=\"-3\" value=\"AAAAAAAAAAA=\"/>\n"
    " </meritfunction>\n"
    " <steps>\n"
    "  <step case=\"102\"/>\n"
    "  <step case=\"1\" description=\"nominal &lt;run> &amp; &quot;more&quot;\"/>\n"
    "  <step name=\"Refdes:R1/DevParam:res\" case=\"2\" seed=\"-1234567890123\" description=\"second\">\n"
    "   <parameter name=\"R1\" nom=\"AAAAAABAj0A=\" usedvalue=\"AAAAAACkj0A=\" tol=\"mpmZmZmZqT8=\"/>\n"
    "   <parameter name=\"\" nom=\"AAAAAAAAAAA=\" usedvalue=\"AAAAAAAAAIA=\"/>\n"
    "  </step>\n"
    "  <step case=\"-3\"/>\n"
    " </steps>\n"
    "</msw>\n";

/** Writes an analysis and reads the bytes back. */
std::string written(YHashTable<XMLReportInfo> const & runs, XMLReportHeader const & header)
{
    ScratchDirectory const directory;
    EXPECT_TRUE(sp_WriteMswFile(directory / "a.msw", runs, header));
    return directory.read("a.msw");
}

/** What a process of its own writes. */
std::string writtenElsewhere(QStringList const & options)
{
    ScratchDirectory const directory;
    Program::run(QStringLiteral(ZYTEST_WRITEMSW),
                 QStringList(QString::fromStdString(directory / "a.msw")) + options);
    return directory.read("a.msw");
}
} // namespace

TEST(XMLReportWrite, WritesTheFileByteForByte)
{
    EXPECT_EQ(written(sampleTable(), sampleHeader()), sample);
}

TEST(XMLReportWrite, GivesTheSameBytesInEveryProcess)
{
    std::set<std::string> files;
    for (int i = 0; i < 40; ++i) {
        files.insert(writtenElsewhere({}));
    }
    EXPECT_EQ(files, std::set<std::string>{sample});
}

TEST(XMLReportWrite, LeavesOutEmptyFieldsOfTheHeader)
{
    EXPECT_EQ(written({}, {}), rootStart + " <header/>\n</msw>\n");
    XMLReportHeader header;
    header.group = "g";
    header.numCores = -1;
    EXPECT_EQ(written({}, header), rootStart + " <header group=\"g\"/>\n</msw>\n");
    header.numCores = 1;
    header.group = "";
    EXPECT_EQ(written({}, header), rootStart + " <header numcores=\"1\"/>\n</msw>\n");
}

TEST(XMLReportWrite, WritesMeritFunctionsWithoutRuns)
{
    XMLReportHeader header;
    header.meritFunctions = {{"A", "a"}};
    EXPECT_EQ(written({}, header),
              rootStart + " <header/>\n <meritfunction value=\"A\" name=\"a\"/>\n</msw>\n");
}

TEST(XMLReportWrite, WritesRunsWithoutMeritFunctions)
{
    EXPECT_EQ(written(table({run(1)}), {}),
              rootStart + " <header/>\n <steps>\n  <step case=\"1\"/>\n </steps>\n</msw>\n");
}

TEST(XMLReportWrite, WritesWhatIsMarkedEvenWhenItIsEmptyAndNothingElse)
{
    XMLReportInfo marked = run(1);
    marked.hasName = marked.hasDescription = marked.hasSeed = true;
    XMLReportInfo unmarked = run(2);
    unmarked.name = "n";
    unmarked.description = "d";
    unmarked.seed = 5;
    unmarked.parameters = {parameter("p", 0, 0)};
    unmarked.parameters[0].tol = 1;
    EXPECT_EQ(written(table({marked, unmarked}), {}),
              rootStart + " <header/>\n <steps>\n  <step name=\"\" case=\"1\" seed=\"0\" description=\"\"/>\n"
                          "  <step case=\"2\">\n   <parameter name=\"p\" nom=\"AAAAAAAAAAA=\" "
                          "usedvalue=\"AAAAAAAAAAA=\"/>\n  </step>\n </steps>\n</msw>\n");
}

TEST(XMLReportWrite, WritesTheLargestNumbers)
{
    XMLReportInfo one = run(std::numeric_limits<int>::min());
    one.seed = std::numeric_limits<kb_int64>::min();
    one.hasSeed = true;
    XMLReportInfo other = run(std::numeric_limits<int>::max());
    other.seed = std::numeric_limits<kb_int64>::max();
    other.hasSeed = true;
    std::string const text = written(table({one, other}), {});
    EXPECT_NE(text.find("<step case=\"-2147483648\" seed=\"-9223372036854775808\"/>"), std::string::npos)
        << text;
    EXPECT_NE(text.find("<step case=\"2147483647\" seed=\"9223372036854775807\"/>"), std::string::npos)
        << text;
}

TEST(XMLReportWrite, KeepsInfinityAndNotANumber)
{
    XMLReportInfo one = run(1);
    one.sensValues = {value(std::numeric_limits<double>::infinity()),
                      value(std::numeric_limits<double>::quiet_NaN())};
    XMLReportHeader header;
    header.meritFunctions = {{"A", ""}, {"B", ""}};
    std::string const text = written(table({one}), header);
    EXPECT_NE(text.find("value=\"AAAAAAAA8H8=\""), std::string::npos) << text;
    EXPECT_NE(text.find("value=\"AAAAAAAA+H8=\""), std::string::npos) << text;
}

TEST(XMLReportWrite, KeepsMarkupInAttributesApart)
{
    XMLReportInfo one = named(1, "a=\"1\" /> <step case='9'> ]]> \n\t\xC3\xA9 <!-- -->");
    std::string const text = written(table({one}), {});
    EXPECT_NE(
        text.find(
            "  <step name=\"a=&quot;1&quot; /> &lt;step case='9'> ]]&gt; &#xa;&#x9;\xC3\xA9 &lt;!-- -->\" "
            "case=\"1\"/>\n"),
        std::string::npos)
        << text;
    ScratchDirectory const directory;
    ASSERT_TRUE(sp_WriteMswFile(directory / "a.msw", table({one}), {}));
    YHashTable<XMLReportInfo> read;
    XMLReportHeader header;
    EXPECT_TRUE(sp_CompileSensReportData(directory / "a.msw", &read, &header));
    EXPECT_EQ(read.find(1)->name, one.name);
}

TEST(XMLReportWrite, WalksTheTableForTheOrderOfRuns)
{
    std::vector<XMLReportInfo> runs;
    for (int i = 1; i <= 203; ++i) {
        runs.push_back(run(i));
    }
    std::string const text = written(table(runs), {});
    std::size_t const first = text.find("<step case=\"203\"/>\n  <step case=\"1\"/>\n  <step case=\"2\"/>");
    EXPECT_NE(first, std::string::npos);
    runs.pop_back();
    EXPECT_NE(
        written(table(runs), {})
            .find(
                "<step case=\"202\"/>\n  <step case=\"101\"/>\n  <step case=\"102\"/>\n  <step case=\"1\"/>"),
        std::string::npos);
}

TEST(XMLReportWrite, DoesNotGrowWhatItReads)
{
    YHashTable<XMLReportInfo> const runs = sampleTable();
    XMLReportHeader const header = sampleHeader();
    written(runs, header);
    EXPECT_EQ(runs.find(102)->sensValues.size(), 0);
    EXPECT_EQ(runs.find(2)->sensValues.size(), 1);
}

TEST(XMLReportWrite, TakesSlashesOfEitherKind)
{
    ScratchDirectory const directory;
    std::filesystem::create_directory(directory.path() / "sub");
    EXPECT_TRUE(sp_WriteMswFile(directory / "sub\\a.msw", {}, {}));
    EXPECT_TRUE(directory.has("sub/a.msw"));
}

TEST(XMLReportWrite, SaysFalseWhenTheFileCannotBeWritten)
{
    ScratchDirectory const directory;
    EXPECT_FALSE(sp_WriteMswFile(directory / "missing/a.msw", sampleTable(), sampleHeader()));
    EXPECT_FALSE(sp_WriteMswFile(directory.path().string(), sampleTable(), sampleHeader()));
    EXPECT_FALSE(sp_WriteMswFile("", sampleTable(), sampleHeader()));
    EXPECT_FALSE(directory.has("missing"));
}

TEST(XMLReportWrite, LeavesTheOldFileWhenTheDiskIsFull)
{
    ScratchDirectory const directory;
    std::string const path = directory.write("a.msw", "before");
    EXPECT_EXIT(
        {
            Restricted::limitFileSize(1000);
            Restricted::exitWith([&] { return !sp_WriteMswFile(path, sampleTable(), sampleHeader()); });
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(directory.read("a.msw"), "before");
}

TEST(XMLReportAscii, IsWrittenWhenTheOptionWasSetBefore)
{
    std::string const text = writtenElsewhere({QStringLiteral("on")});
    EXPECT_NE(
        text.find("<parameter name=\"R1\" nom=\"AAAAAABAj0A=\" nom_ascii=\"1e3\" usedvalue=\"AAAAAACkj0A=\" "
                  "usedvalue_ascii=\"1.0125e3\" tol=\"mpmZmZmZqT8=\" tol_ascii=\"50e-3\"/>"),
        std::string::npos)
        << text;
    EXPECT_NE(text.find("<sensval case=\"2\" value=\"AAAAAAAACEA=\" value_ascii=\"3\"/>"), std::string::npos)
        << text;
}

TEST(XMLReportAscii, IsNotWrittenWhenTheOptionWasOffOrNeverSet)
{
    EXPECT_EQ(writtenElsewhere({QStringLiteral("off")}), sample);
    EXPECT_EQ(writtenElsewhere({}), sample);
}

TEST(XMLReportAscii, Deliberate_option_is_read_once)
{
    std::string const on = writtenElsewhere({QStringLiteral("on")});
    EXPECT_EQ(writtenElsewhere({QStringLiteral("on"), QStringLiteral("off")}), on);
    EXPECT_EQ(writtenElsewhere({QStringLiteral("off"), QStringLiteral("on")}), sample);
}

TEST(XMLReportWriteElemRealValue, SetsTheNumberAsBase64)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    sp_WriteElemRealValue(root, "x", 1.0);
    sp_WriteElemRealValue(root, "x", 2.0);
    EXPECT_EQ(root.attribute("x"), "AAAAAAAAAEA=");
    EXPECT_FALSE(root.hasAttribute("x_ascii"));
}

TEST(XMLReportWriteElemRealValue, RefusesABadNameAndANullElement)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    EXPECT_THROW(sp_WriteElemRealValue(root, "a b", 1.0), ZyInvalidXMLOperation);
    ZyXMLDomElement none;
    EXPECT_THROW(sp_WriteElemRealValue(none, "a", 1.0), ZyNullDomElementException);
}

TEST(XMLReportDecorateMswRoot, NamesAnElementAndSetsItsAttributes)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    sp_DecorateMswRoot(root);
    EXPECT_EQ(root.name().toStdString(), "msw");
    EXPECT_EQ(document.toString().toStdString(), rootStart.substr(0, rootStart.size() - 2) + "/>\n");
}

TEST(XMLReportDecorateMswRoot, RefusesANullElement)
{
    ZyXMLDomElement none;
    EXPECT_THROW(sp_DecorateMswRoot(none), ZyNullDomElementException);
}

TEST(XMLReportDecorateMswRoot, WritesTheAttributesOfAStreamInTheirOrder)
{
    ZyStringDevice device;
    {
        ZyXMLStreamWriter stream(device);
        stream.startDocument();
        sp_DecorateMswRoot(stream.createElement("anything").get());
        stream.finishDocument();
    }
    std::string const text = device.content().toStdString();
    std::string const attributes = rootStart.substr(rootStart.find(" xmlns="));
    EXPECT_NE(text.find("<anything" + attributes.substr(0, attributes.size() - 2) + "/>"), std::string::npos)
        << text;
}

TEST(XMLReportDecorateMswRoot, Deliberate_schema_location_lacks_the_slash)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    sp_DecorateMswRoot(root);
    std::string const space = root.attribute("xmlns").toStdString();
    std::string const located = root.attribute("xsi:schemaLocation").toStdString();
    EXPECT_EQ(located.substr(0, located.find(' ')) + "/", space);
}

TEST(XMLReportTestMswVersion, AcceptsOnePointZeroOrNothing)
{
    ZyXMLDomDocument document;
    ZyXMLDomElement root = document.root();
    EXPECT_TRUE(sp_TestMswVersion(root));
    root.setAttribute("version", "1.0");
    EXPECT_TRUE(sp_TestMswVersion(root));
    for (char const * other : {"1.00", "1", "1.1", "", " 1.0", "1.0 ", "2.0"}) {
        root.setAttribute("version", other);
        EXPECT_FALSE(sp_TestMswVersion(root)) << other;
    }
}

TEST(XMLReportOrder, IsKeptWhenAHostSavesTheFile)
{
    ScratchDirectory const directory;
    std::string const path = directory.write("a.msw", sample);
    ZyXMLDomDocument document{ZyFilePath(path)};
    document.root().setAttribute("zlast", "1");
    document.root().setAttribute("another", "2");
    document.save(ZyFilePath(path), ZyXMLDomDocument::Indented);
    std::string expected = sample;
    expected.replace(0, expected.find('\n'),
                     "<?xml version='1.0' encoding='UTF-8'?>"); // as the document loads it
    expected.insert(expected.find(" rev=\"1\"") + 8, " another=\"2\" zlast=\"1\"");
    EXPECT_EQ(directory.read("a.msw"), expected);
}

TEST(XMLReportOrder, IsThatOfNamesInOtherDocuments)
{
    ZyXMLDomDocument document;
    document.setContent("<msw version='1.0' rev='1'><step name='n' case='1'/></msw>");
    EXPECT_EQ(document.toString().toStdString(),
              "<msw rev=\"1\" version=\"1.0\">\n <step case=\"1\" name=\"n\"/>\n</msw>\n");
}
