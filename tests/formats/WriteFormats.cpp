// SPDX-License-Identifier: BSD-3-Clause
// Writes a file of every format that the library knows into the folder of the first argument. Two systems
// must write the same bytes (scripts/test-windows.sh compares them), but for HTML pages, whose lines end as
// the system's texts do.
#include "../Misc/MswTables.h"
#include "../Misc/ReportTables.h"

#include <ZyCore.h>

#include <keelbase/KbHost.h>

#include <chrono>
#include <cstdio>
#include <deque>
#include <exception>
#include <limits>
#include <string>

namespace
{
class Folder
{
public:
    explicit Folder(char const * path) : m_path(path) {}
    ZyFilePath operator/(char const * name) const { return m_path.appended(ZyFilePath(name)); }
    YString name(char const * file) const { return (*this / file).path().c_str(); }

private:
    ZyFilePath m_path;
};

/** Numbers whose last digits matter, texts of every alphabet, and everything that a cell can hold. */
std::deque<ZyVariant> const & values()
{
    static std::deque<ZyVariant> const all = {
        ZyVariant(0),
        ZyVariant(-2147483647 - 1),
        ZyVariant(0.1),
        ZyVariant(-1.0 / 3),
        ZyVariant(1e-300),
        ZyVariant(1.7976931348623157e308),
        ZyVariant(5e-324),
        ZyVariant(std::numeric_limits<double>::infinity()),
        ZyVariant(true),
        ZyVariant("text, \"quoted\" <&> 'more'"),
        ZyVariant("\xC2\xB5 \xE2\x82\xAC \xE6\xBC\xA2 \xF0\x9F\x98\x80"),
        ZyVariant("two\r\nlines\n"),
        ZyVariant(ZyFilePath("C:\\suite\\core.dll")),
        ZyVariant()};
    return all;
}

ZyDataTable table()
{
    ZyDataTable result;
    result.addRow(
        ZyDeque<ZyDataTableItem>{ZyDataTableItem(ZyVariant("Heading"), 2), ZyDataTableItem(ZyVariant(1))},
        ZyDataTable::Header);
    for (ZyVariant const & value : values()) {
        result.addRow(ZyDeque<ZyDataTableItem>{ZyDataTableItem(value), ZyDataTableItem(ZyVariant(2.5)),
                                               ZyDataTableItem(ZyDeque<ZyVariant>{value, ZyVariant(7)})},
                      ZyDataTable::Data);
    }
    return result;
}

void writeTables(Folder const & folder)
{
    ZyFile csv(folder / "values.csv");
    ZyCSVWriter writer(csv);
    for (ZyVariant const & value : values()) {
        writer.addValue(value);
        writer.addValue(1);
        writer.endLine();
    }
    csv.close();
    ZyFile text(folder / "lines.txt");
    text.open(ZyIODevice::Write);
    text.write("line feed\ncarriage return and line feed\r\nlast");
    text.close();
    ZyFile sheet(folder / "values.xml");
    ZyXMLSpreadsheetWriter cells(sheet);
    for (ZyVariant const & value : values()) {
        cells.startRow();
        cells.addCell(value, 1, 1);
        cells.addCell(value, 2, 3);
    }
    cells.finish();
    table().writeOOXML(folder / "values.xlsx");
    ZyOOXMLWriter portable(folder / "portable.xlsx", ZyOOXMLWriter::Spreadsheet, ZyZipArchive::Portable);
    table().writeOOXML(portable, "Sheet");
    portable.close();
}

void writeArchives(Folder const & folder)
{
    std::string large;
    for (unsigned int i = 0; i < 20000; ++i) {
        large += std::to_string(i * 2654435761U) + '\n';
    }
    for (bool const portable : {false, true}) {
        ZyZipArchive archive(folder / (portable ? "portable.zip" : "native.zip"), ZyZipArchive::Write,
                             portable ? ZyZipArchive::Portable : ZyZipArchive::Native);
        archive.open("folder/\xC2\xB5.txt", ZyZipArchive::Best).lock()->write(ZyString(large));
        archive.open("stored", ZyZipArchive::Store).lock()->write("as it is");
        archive.open("empty", ZyZipArchive::Fastest);
    }
}

template <class Value>
void bindOne(ZyXMLElementWriter & root, Value const & value)
{
    ZyXMLObject<Value>::Write(*root.createElement("value"), value);
}

template <class... Values>
void bind(ZyXMLElementWriter & root, Values const &... all)
{
    (bindOne(root, all), ...);
}

void writeBindings(Folder const & folder)
{
    ZyFile file(folder / "bindings.xml");
    ZyXMLStreamWriter writer(file, ZyXMLStreamWriter::AutoFormattingSettings(true, 2));
    writer.startDocument();
    {
        auto const root = writer.createElement("values");
        bind(*root, 42, 0.1, ZyString("\xC2\xB5 <&>"), ZyFilePath("C:/a/b"),
             ZyUUID(ZyString("01234567-89ab-4def-8123-456789abcdef")),
             ZyTimeDuration(std::chrono::nanoseconds(1234567890123LL)),
             ZyTimePoint(ZyTimeDuration(std::chrono::nanoseconds(987654321))));
        bind(*root, ZyPair<ZyFilePath, ZyFilePath>("C:\\a", "b"), ZyPair<ZyString, ZyString>("a", "b"),
             ZyPoint(1, -2), ZyPointD(0.1, -0.2), ZyDeque<int>{1, 2, 3}, ZyDeque<double>{0.1, 1e300},
             ZyDeque<ZyString>{"a", "", "\xC3\xA4"});
        for (ZyVariant const & value : values()) {
            bind(*root, value);
        }
        ZyProperties properties;
        properties.add("Number", ZyVariant(0.1));
        properties.add("Text", ZyVariant("\xE2\x82\xAC"));
        bind(*root, properties, table());
        ZyDateTime(29, ZyDateTime::February, 1904, 12, 30, 59, ZyDateTime::UTC).writeXML(*root);
        ZyDateTime(1, ZyDateTime::March, 4000, 0, 0, 0, ZyDateTime::UTC).writeXML(*root);
    }
    writer.finishDocument();
    file.close();
}

void writeDocuments(Folder const & folder)
{
    ZyXMLDomDocument document;
    document.setContent("<parts z='1' a='2'><!-- stock --><part id='R1'>4700\r\n</part><?do it?></parts>");
    for (int i = 0; i < 1000; ++i) {
        ZyXMLDomElement part = document.root().addElement("part");
        part.setAttribute("id", ZyString(std::to_string(i)));
        part.setText("\xC2\xB5 <&>");
    }
    document.save(folder / "compact.xml", ZyXMLDomDocument::Compact);
    document.save(folder / "indented.xml", ZyXMLDomDocument::Indented);
    document.save(folder / "compressed.xml", ZyXMLDomDocument::Compressed);
}

bool writeReports(Folder const & folder)
{
    kb::SetOption("WriteXMLAsciiReals", false);
    return sp_WriteMswFile(folder.name("sample.msw"), MswTables::sampleTable(), MswTables::sampleHeader()) &&
           sp_BuildMonteCarloHTMLReport(folder.name("montecarlo.html"), "", ReportTables::fourRuns(),
                                        ReportTables::monteCarloHeader()) &&
           sp_BuildWorstCaseHTMLReport(folder.name("worstcase.html"), "", ReportTables::fourRuns(),
                                       ReportTables::monteCarloHeader()) &&
           sp_BuildHTMLSensitivityReport(folder.name("sensitivity.html"), "", ReportTables::fiveRuns(),
                                         ReportTables::monteCarloHeader(), 4);
}
} // namespace

int main(int count, char ** arguments)
{
    if (count != 2) {
        std::fputs("One argument, please: the folder to write to\n", stderr);
        return 2;
    }
    try {
        Folder const folder(arguments[1]);
        writeTables(folder);
        writeArchives(folder);
        writeBindings(folder);
        writeDocuments(folder);
        return writeReports(folder) ? 0 : 1;
    } catch (std::exception const & failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    } catch (ZyException const & failure) {
        std::fprintf(stderr, "%s\n", failure.what());
    }
    return 1;
}
