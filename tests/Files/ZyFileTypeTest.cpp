// SPDX-License-Identifier: BSD-3-Clause
// Tests of the kinds of file: the whole table, and what is found in it.
#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyFileType.h>
#include <ZyIcon.h>
#include <ZyString.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <locale>
#include <ostream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

static_assert(sizeof(ZyFileType) == 2 * sizeof(void *), "the number behind the table of virtual functions");
static_assert(std::has_virtual_destructor_v<ZyFileType> && std::is_copy_constructible_v<ZyFileType> &&
              std::is_copy_assignable_v<ZyFileType> && !std::is_default_constructible_v<ZyFileType>);

namespace
{
struct Row
{
    ZyFileType::Type type;
    int number;
    char const * name;
    char const * icon;
    std::vector<std::string> extensions;
    char const * filter;
};

void PrintTo(Row const & row, std::ostream * out)
{
    *out << row.name;
}

std::vector<std::string> texts(ZyDeque<ZyString> const & strings)
{
    std::vector<std::string> result;
    for (ZyString const & text : strings.std_deque()) {
        result.push_back(text.toStdString());
    }
    return result;
}

std::vector<Row> const rows = {
    {ZyFileType::Undefined, 0, "Undefined", "", {}, "All Files (*)"},
    {ZyFileType::Directory,
     1,
     "Directory",
     ":/qt-project.org/styles/commonstyle/images/dirclosed-16.png",
     {},
     "All Files (*)"},
    {ZyFileType::AEExamples, 2, "AEExamples", ":/AEExample.png", {".zyhtm"}, "AEExamples (*.zyhtm)"},
    {ZyFileType::Component, 3, "Component", ":/ComponentIcon.png", {".zycmp"}, "Component (*.zycmp)"},
    {ZyFileType::CSV, 4, "CSV", "", {".csv"}, "CSV (*.csv)"},
    {ZyFileType::QRMReport, 5, "QRMReport", ":/QRMReport.png", {".log.html"}, "QRMReport (*.log.html)"},
    {ZyFileType::Graph, 6, "Graph", ":/GraphIcon.png", {".zygpx", ".zygph"}, "Graph (*.zygpx *.zygph)"},
    {ZyFileType::Icon, 7, "Icon", "", {".ico"}, "Icon (*.ico)"},
    {ZyFileType::Image,
     8,
     "Image",
     "",
     {".bmp", ".jpg", ".png", ".JPG", ".jpeg"},
     "Image (*.bmp *.jpg *.png *.JPG *.jpeg)"},
    {ZyFileType::Model,
     9,
     "Model",
     ":/ModelIcon.png",
     {".lb", ".lib", ".mod", ".cir", ".spi", ".fam", ".mdl", ".sp", ".sp2", ".model", ".pkg", ".prm", ".sub",
      ".sio", ".ckt"},
     "Model (*.lb *.lib *.mod *.cir *.spi *.fam *.mdl *.sp *.sp2 *.model *.pkg *.prm *.sub *.sio *.ckt)"},
    {ZyFileType::Netlist,
     10,
     "Netlist",
     "",
     {".net", ".cir", ".deck", ".out", ".init"},
     "Netlist (*.net *.cir *.deck *.out *.init)"},
    {ZyFileType::RichText, 11, "RichText", "", {".rtf"}, "RichText (*.rtf)"},
    {ZyFileType::Schematic,
     12,
     "Schematic",
     ":/SchematicIcon.png",
     {".zysch", ".zycmp", ".sch"},
     "Schematic (*.zysch *.zycmp *.sch)"},
    {ZyFileType::Script, 13, "Script", ":/ScriptIcon.png", {".zyscr"}, "Script (*.zyscr)"},
    {ZyFileType::SymbolLibrary,
     14,
     "SymbolLibrary",
     ":/SymbolLibraryIcon.png",
     {".zyslb", ".slb"},
     "SymbolLibrary (*.zyslb *.slb)"},
    {ZyFileType::Text, 15, "Text", ":/TextFileIcon.png", {".zyslb", ".slb"}, "Text (*.zyslb *.slb)"},
    {ZyFileType::VerilogA, 16, "VerilogA", ":/VerilogAIcon.png", {".va", ".vams"}, "VerilogA (*.va *.vams)"},
    {ZyFileType::VerilogHDL, 17, "VerilogHDL", ":/VerilogHDLIcon.png", {".v"}, "VerilogHDL (*.v)"},
    {ZyFileType::VisualScript,
     18,
     "VisualScript",
     ":/VisualScriptIcon.png",
     {".zyvis"},
     "VisualScript (*.zyvis)"},
    {ZyFileType::XML, 19, "XML", "", {".xml"}, "XML (*.xml)"},
    {ZyFileType::Spreadsheet, 20, "Spreadsheet (XLSX)", "", {".xslx"}, "Spreadsheet (XLSX) (*.xslx)"},
    {ZyFileType::Zip, 21, "Zip", "", {".zip", ".ZIP"}, "Zip (*.zip *.ZIP)"},
};

/** The first row that lists an extension as it stands. */
int firstWith(std::string const & extension)
{
    for (Row const & row : rows) {
        for (std::string const & own : row.extensions) {
            if (own == extension) {
                return row.number;
            }
        }
    }
    return 0;
}

ZyFileType::Type typeOf(std::string const & path)
{
    return ZyFileType::ToType(ZyFilePath(path));
}

/** "q" is a lower-case "c", and the capitals of ASCII have no lower case. */
class OddCase : public std::ctype<char>
{
protected:
    char do_tolower(char c) const override { return c == 'q' ? 'c' : c; }
};

class GlobalLocale
{
public:
    explicit GlobalLocale(std::locale const & locale) : m_former(std::locale::global(locale)) {}
    GlobalLocale(GlobalLocale const &) = delete;
    GlobalLocale & operator=(GlobalLocale const &) = delete;
    ~GlobalLocale() { std::locale::global(m_former); }

private:
    std::locale m_former;
};

class ZyFileTypeTable : public testing::TestWithParam<Row>
{};
} // namespace

TEST_P(ZyFileTypeTable, HasTheRow)
{
    ZyFileType const type(GetParam().type);
    EXPECT_EQ(static_cast<int>(type.type()), GetParam().number);
    EXPECT_EQ(type.name().toStdString(), GetParam().name);
    EXPECT_EQ(type.icon().name().toStdString(), GetParam().icon);
    EXPECT_EQ(texts(type.extensions()), GetParam().extensions);
    EXPECT_EQ(type.filter().toStdString(), GetParam().filter);
}

TEST_P(ZyFileTypeTable, IsFoundByItsNameInAnyCase)
{
    std::string const name = GetParam().name;
    std::string lower = name;
    std::string upper = name;
    for (std::size_t i = 0; i < name.size(); ++i) {
        lower[i] = std::tolower(name[i], std::locale::classic());
        upper[i] = std::toupper(name[i], std::locale::classic());
    }
    for (std::string const & spelling : {name, lower, upper}) {
        EXPECT_EQ(ZyFileType::FromName(ZyString(spelling)), GetParam().type) << spelling;
    }
}

TEST_P(ZyFileTypeTable, FilesAreOfTheFirstKindThatListsTheirExtension)
{
    for (std::string const & extension : GetParam().extensions) {
        int const expected = extension == ".log.html" ? 0 : firstWith(extension);
        EXPECT_EQ(static_cast<int>(typeOf("C:/runs/name" + extension)), expected) << extension;
        EXPECT_EQ(static_cast<int>(typeOf(extension)), expected) << "a name that is all extension";
        std::string upper = extension;
        for (char & c : upper) {
            c = std::toupper(c, std::locale::classic());
        }
        EXPECT_EQ(static_cast<int>(typeOf("name" + upper)), expected) << upper;
    }
}

INSTANTIATE_TEST_SUITE_P(All, ZyFileTypeTable, testing::ValuesIn(rows), [](auto const & row) {
    return row.param.number == 20 ? std::string("Spreadsheet") : std::string(row.param.name);
});

TEST(ZyFileType, Deliberate_first_row_wins)
{
    EXPECT_EQ(typeOf("a.cir"), ZyFileType::Model);
    EXPECT_EQ(typeOf("a.zycmp"), ZyFileType::Component);
    EXPECT_EQ(typeOf("a.slb"), ZyFileType::SymbolLibrary);
    EXPECT_EQ(typeOf("a.zyslb"), ZyFileType::SymbolLibrary);
}

TEST(ZyFileType, Deliberate_report_by_type_only)
{
    EXPECT_EQ(typeOf("x.log.html"), ZyFileType::Undefined);
    EXPECT_EQ(typeOf(".log.html"), ZyFileType::Undefined);
    EXPECT_EQ(ZyFileType::FromName("qrmreport"), ZyFileType::QRMReport);
}

TEST(ZyFileType, Deliberate_text_repeats_symbol_library)
{
    EXPECT_EQ(texts(ZyFileType(ZyFileType::Text).extensions()),
              texts(ZyFileType(ZyFileType::SymbolLibrary).extensions()));
    EXPECT_EQ(typeOf("a.txt"), ZyFileType::Undefined);
}

TEST(ZyFileType, Deliberate_upper_case_extensions)
{
    EXPECT_THAT(texts(ZyFileType(ZyFileType::Image).extensions()), testing::IsSupersetOf({".jpg", ".JPG"}));
    EXPECT_THAT(texts(ZyFileType(ZyFileType::Zip).extensions()), testing::ElementsAre(".zip", ".ZIP"));
    EXPECT_EQ(typeOf("a.Zip"), ZyFileType::Zip);
    EXPECT_EQ(typeOf("a.PNG"), ZyFileType::Image);
}

TEST(ZyFileType, Deliberate_xslx_spelling)
{
    EXPECT_EQ(typeOf("a.xslx"), ZyFileType::Spreadsheet);
    EXPECT_EQ(typeOf("a.XSLX"), ZyFileType::Spreadsheet);
    EXPECT_EQ(typeOf("a.xlsx"), ZyFileType::Undefined);
}

TEST(ZyFileType, Deliberate_filter_of_no_kind)
{
    EXPECT_EQ(ZyFileType(static_cast<ZyFileType::Type>(99)).filter(), "Undefined )");
    EXPECT_EQ(ZyFileType(static_cast<ZyFileType::Type>(-1)).filter(), "Undefined )");
}

TEST(ZyFileType, UpperCaseExtensionIsTheSame)
{
    EXPECT_EQ(typeOf("C:/RUNS/GAIN.CSV"), ZyFileType::CSV);
}

TEST(ZyFileType, APathThatEndsWithASeparatorIsADirectoryWhateverIsOnTheDisk)
{
    EXPECT_EQ(typeOf("C:/no/such/directory/"), ZyFileType::Directory);
    EXPECT_EQ(typeOf("a.csv/"), ZyFileType::Directory);
    EXPECT_EQ(typeOf("/"), ZyFileType::Directory);
    EXPECT_EQ(typeOf("\\\\"), ZyFileType::Directory);
}

TEST(ZyFileType, WithoutAKnownExtensionIsUndefined)
{
    for (char const * const path :
         {"", "name", "a.csv.", "a..", ".", "..", "a.cs", "a.csvx", "a.csv.bak", "a.b/csv", "C:/a.csv/name",
          "a.an extension longer than any kind has", "a.\xC3\xA4", "a.\xFF\xFE", "csv", "a. csv"}) {
        EXPECT_EQ(typeOf(path), ZyFileType::Undefined) << path;
    }
    EXPECT_EQ(typeOf(std::string("a.csv\0", 6)), ZyFileType::Undefined);
    EXPECT_EQ(typeOf(std::string("a.\0csv", 6)), ZyFileType::Undefined);
}

TEST(ZyFileType, OnlyTheLastExtensionCounts)
{
    EXPECT_EQ(typeOf("a.csv.xml"), ZyFileType::XML);
    EXPECT_EQ(typeOf("a.xml.tmp.v"), ZyFileType::VerilogHDL);
    EXPECT_EQ(typeOf("  a.zip  "), ZyFileType::Zip) << "paths are trimmed";
    EXPECT_EQ(typeOf(std::string("a\0b.zip", 7)), ZyFileType::Zip);
}

TEST(ZyFileType, AnUncheckedPathIsTakenAsItStands)
{
    EXPECT_EQ(ZyFileType::ToType(ZyFilePath::CreateUnchecked(" a.zip ")), ZyFileType::Undefined);
    EXPECT_EQ(ZyFileType::ToType(ZyFilePath::CreateUnchecked("a.zip/")), ZyFileType::Undefined);
}

TEST(ZyFileType, ComparesAsTheGlobalLocaleOfTheMomentFolds)
{
    EXPECT_EQ(typeOf("a.qsv"), ZyFileType::Undefined);
    {
        GlobalLocale const odd(std::locale(std::locale::classic(), new OddCase));
        EXPECT_EQ(typeOf("a.qsv"), ZyFileType::CSV);
        EXPECT_EQ(typeOf("a.qir"), ZyFileType::Model) << "the first row wins";
        EXPECT_EQ(typeOf("a.CSV"), ZyFileType::Undefined);
        EXPECT_EQ(typeOf("a.ZIP"), ZyFileType::Zip) << "listed in capitals";
        EXPECT_EQ(typeOf("a.unknown"), ZyFileType::Undefined);
        EXPECT_EQ(typeOf("a"), ZyFileType::Undefined);
        EXPECT_EQ(ZyFileType::FromName("CSV"), ZyFileType::CSV);
        EXPECT_EQ(ZyFileType::FromName("qSV"), ZyFileType::Undefined);
    }
    EXPECT_EQ(typeOf("a.CSV"), ZyFileType::CSV);
}

TEST(ZyFileType, FromNameOfAnUnknownTextIsUndefined)
{
    EXPECT_EQ(ZyFileType::FromName("spreadsheet (xlsx)"), ZyFileType::Spreadsheet);
    EXPECT_EQ(ZyFileType::FromName("spreadsheet"), ZyFileType::Undefined);
    EXPECT_EQ(ZyFileType::FromName(""), ZyFileType::Undefined);
    EXPECT_EQ(ZyFileType::FromName("CSV "), ZyFileType::Undefined);
    EXPECT_EQ(ZyFileType::FromName(ZyString(std::string("CSV\0", 4))), ZyFileType::Undefined);
}

TEST(ZyFileType, ANumberThatIsNoKindStaysAndLooksUndefined)
{
    auto const number = static_cast<ZyFileType::Type>(99);
    ZyFileType const type(number);
    EXPECT_EQ(type.name(), "Undefined");
    EXPECT_EQ(type.icon().name(), "");
    EXPECT_TRUE(type.extensions().isEmpty());
    EXPECT_EQ(type.type(), number);
    EXPECT_FALSE(type == ZyFileType::Undefined);
}

TEST(ZyFileType, IsMadeFromAPath)
{
    ZyFileType const type(ZyFilePath("a.net"));
    EXPECT_EQ(type.type(), ZyFileType::Netlist);
    ZyFileType const converted = ZyFilePath("dir/");
    EXPECT_EQ(converted.type(), ZyFileType::Directory);
}

TEST(ZyFileType, CopiesAndComparesByNumber)
{
    ZyFileType type = ZyFileType::CSV;
    ZyFileType const copy(type);
    EXPECT_TRUE(copy == type);
    type = ZyFileType::XML;
    EXPECT_FALSE(copy == type);
    EXPECT_TRUE(copy != type);
    EXPECT_TRUE(type == ZyFileType::XML);
    EXPECT_TRUE(ZyFileType::XML == type);
    EXPECT_FALSE(type == ZyFileType::CSV);
    type = copy;
    EXPECT_TRUE(type == 4);
    auto const & self = type;
    type = self;
    EXPECT_TRUE(type == copy);
}

TEST(ZyFileType, CanBeSwitchedOver)
{
    ZyFileType const type(ZyFilePath("a.zyscr"));
    switch (type) {
    case ZyFileType::Script:
        SUCCEED();
        break;
    default:
        FAIL();
    }
}

TEST(ZyFileType, GivesTheSameObjectsOfTheTableEachTime)
{
    ZyFileType const one(ZyFileType::Graph);
    ZyFileType const other(ZyFilePath("a.zygph"));
    EXPECT_EQ(&one.name(), &other.name());
    EXPECT_EQ(&one.icon(), &other.icon());
    EXPECT_EQ(&one.extensions(), &other.extensions());
}

TEST(ZyFileType, IsReadFromSeveralThreads)
{
    std::vector<int> wrong(4);
    std::vector<std::thread> threads;
    threads.reserve(wrong.size());
    for (int & own : wrong) {
        threads.emplace_back([&own] {
            for (int i = 0; i < 500; ++i) {
                own += typeOf("a.Mdl") == ZyFileType::Model && ZyFileType(ZyFileType::Zip).name() == "zip"
                           ? 0
                           : 1;
            }
        });
    }
    for (std::size_t i = 0; i < threads.size(); ++i) {
        threads[i].join();
        EXPECT_EQ(wrong[i], 0);
    }
}
