// SPDX-License-Identifier: BSD-3-Clause
// The file of comma-separated text: how a line falls into fields.
#include <ZyCSVFile.h>

#include <ZyException.h>
#include <ZyFilePath.h>

#include "TestDevices.h"
#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

static_assert(std::is_base_of_v<ZyFile, ZyCSVFile>);
static_assert(std::has_virtual_destructor_v<ZyCSVFile>);
static_assert(sizeof(ZyCSVFile) == sizeof(ZyFile));
static_assert(!std::is_copy_constructible_v<ZyCSVFile> && !std::is_copy_assignable_v<ZyCSVFile>);

namespace
{
using Texts = std::vector<std::string>;

Texts fieldsOf(ZyString const & line)
{
    ZyDeque<ZyStringView> const fields = ZyCSVFile::ExtractLine(line);
    Texts texts;
    for (ZyStringView const & field : fields.std_deque()) {
        texts.push_back(field.toString().toStdString());
    }
    return texts;
}
} // namespace

TEST(ZyCSVFile, HasAnEmptyPathByDefault)
{
    EXPECT_TRUE(ZyCSVFile().path().isNull());
}

TEST(ZyCSVFile, BringsItsPathIntoNormalForm)
{
    ZyCSVFile const file(ZyString(" data//series.csv "));
    EXPECT_EQ(file.path().toString().toStdString(), "data\\series.csv");
    EXPECT_EQ(file.mode(), ZyIODevice::Closed);
}

TEST(ZyCSVFileExtractLine, SplitsAtCommas)
{
    EXPECT_EQ(fieldsOf("1,2,3"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(fieldsOf("one"), (Texts{"one"}));
}

TEST(ZyCSVFileExtractLine, ThrowsOnAnEmptyLine)
{
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine(""), ZyIndexOutOfBoundsException, "Index out of bounds [0,0]");
}

TEST(ZyCSVFileExtractLine, Deliberate_csv_last_field_empty_throws)
{
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine("a,"), ZyIndexOutOfBoundsException, "Index out of bounds [2,2]");
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine("a, "), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine("   "), ZyIndexOutOfBoundsException, "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine(",\r\n"), ZyIndexOutOfBoundsException,
                    "Index out of bounds [3,3]");
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine("\n"), ZyIndexOutOfBoundsException, "Index out of bounds [1,1]");
}

TEST(ZyCSVFileExtractLine, KeepsAnEmptyFieldThatIsNotTheLast)
{
    EXPECT_EQ(fieldsOf("a,,b"), (Texts{"a", "", "b"}));
    EXPECT_EQ(fieldsOf(",b"), (Texts{"", "b"}));
}

TEST(ZyCSVFileExtractLine, MakesAFieldOfBlanksInTheMiddleEmpty)
{
    EXPECT_EQ(fieldsOf("a, \t ,b"), (Texts{"a", "", "b"}));
    EXPECT_EQ(fieldsOf("  ,b"), (Texts{"", "b"}));
}

TEST(ZyCSVFileExtractLine, TrimsFieldsAndGuardsCommasByQuotes)
{
    EXPECT_EQ(fieldsOf(" a , \"b,c\" ,d"), (Texts{"a", "b,c", "d"}));
    EXPECT_EQ(fieldsOf("\ta b\t,\v c\f\r\n"), (Texts{"a b", "c"}));
}

TEST(ZyCSVFileExtractLine, KeepsALoneQuote)
{
    EXPECT_EQ(fieldsOf("\""), (Texts{"\""}));
    EXPECT_EQ(fieldsOf("a, \" "), (Texts{"a", "\""}));
}

TEST(ZyCSVFileExtractLine, MakesAnEmptyFieldOfEmptyQuotes)
{
    EXPECT_EQ(fieldsOf("\"\""), (Texts{""}));
    EXPECT_EQ(fieldsOf("a,\"\""), (Texts{"a", ""}));
}

TEST(ZyCSVFileExtractLine, KeepsTheBlanksInsideQuotes)
{
    EXPECT_EQ(fieldsOf("\" \""), (Texts{" "}));
    EXPECT_EQ(fieldsOf(" \" a \" ,b"), (Texts{" a ", "b"}));
}

TEST(ZyCSVFileExtractLine, Deliberate_csv_doubled_quotes_stay)
{
    EXPECT_EQ(fieldsOf("\"a\"\"b\""), (Texts{"a\"\"b"}));
    EXPECT_EQ(fieldsOf("a\"b,c\"d,e"), (Texts{"a\"b,c\"d", "e"}));
    EXPECT_EQ(fieldsOf("\"a\" b,c"), (Texts{"\"a\" b", "c"}));
}

TEST(ZyCSVFileExtractLine, LetsAnUnbalancedQuoteGuardTheRestOfTheLine)
{
    EXPECT_EQ(fieldsOf("a,\"b,c"), (Texts{"a", "\"b,c"}));
    EXPECT_EQ(fieldsOf("a,\"b,"), (Texts{"a", "\"b,"}));
    EXPECT_EQ(fieldsOf("\"a\",\"b,\"c,\""), (Texts{"a", "\"b,\"c", "\""}));
}

TEST(ZyCSVFileExtractLine, GivesViewsIntoTheLine)
{
    ZyString const line("ab, cd");
    ZyDeque<ZyStringView> const fields = ZyCSVFile::ExtractLine(line);
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_EQ(&fields.at(0)[0], line.c_str());
    EXPECT_EQ(&fields.at(1)[0], line.c_str() + 4);
}

TEST(ZyCSVFileExtractLine, TakesBytesAsTheyAre)
{
    EXPECT_EQ(fieldsOf(std::string("a\0b,\0", 5)), (Texts{std::string("a\0b", 3), std::string(1, '\0')}));
    EXPECT_EQ(fieldsOf("\xFF\xFE,\xC3\x28"), (Texts{"\xFF\xFE", "\xC3\x28"}));
    EXPECT_EQ(fieldsOf("\xA0,\xC2\xA0"), (Texts{"\xA0", "\xC2\xA0"}));
}

TEST(ZyCSVFileExtractLine, TakesWhatTheGlobalLocaleCallsWhiteSpace)
{
    ZyString const line("_a_,_");
    EXPECT_EQ(fieldsOf(line), (Texts{"_a_", "_"}));
    GlobalLocale const guard(std::locale(std::locale::classic(), new UnderscoreIsSpace));
    EXPECT_EQ(fieldsOf("_a_,b"), (Texts{"a", "b"}));
    EXPECT_ZY_THROW(ZyCSVFile::ExtractLine(line), ZyIndexOutOfBoundsException, "Index out of bounds [5,5]");
}

TEST(ZyCSVFileExtractLine, SplitsALineOfSeveralMegabytes)
{
    std::string const piece(1000, 'x');
    std::string line;
    for (int i = 0; i < 4000; ++i) {
        line += piece + ",";
    }
    line += "\"" + std::string(2000000, ',') + "\"";
    Texts const fields = fieldsOf(line);
    ASSERT_EQ(fields.size(), 4001u);
    EXPECT_EQ(fields[3999], piece);
    EXPECT_EQ(fields[4000], std::string(2000000, ','));
}
