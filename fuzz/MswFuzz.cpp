// SPDX-License-Identifier: BSD-3-Clause
// Result files: the input is the file a.msw, which may append itself and b.msw, a file that is good. What is
// read is written and read again: the runs, their values and their parameters are the same then. The files
// lie in a folder of the process's own.
#include <XMLReport.h>

#include "Fuzz.h"
#include "ScratchDirectory.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace
{
ScratchDirectory const & scratch()
{
    static ScratchDirectory const directory;
    return directory;
}

/** Puts the folder in front of each mention of a file. */
void place(std::string & text, std::string const & name)
{
    std::string const path = scratch() / name;
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + path.size())) {
        text.replace(at, name.size(), path);
    }
}

/** An input as the content of a file. */
std::string placed(std::string_view input)
{
    static std::string const good =
        scratch().write("b.msw", "<msw><steps><step case='2' name='Refdes:R1'/></steps></msw>");
    std::string text(input);
    place(text, "a.msw");
    place(text, "b.msw");
    return text;
}

struct Content
{
    YHashTable<XMLReportInfo> table;
    XMLReportHeader header;
};

bool isSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/** Whether a text holds what gets lost in XML. */
bool hasControl(YString const & text)
{
    std::string_view const characters = text.c_str();
    return std::any_of(characters.begin(), characters.end(), [](char one) { return one > 0 && one < ' '; });
}

void checkParameters(XMLReportInfo const & run, XMLReportInfo const & again)
{
    Fuzz::require(run.parameters.size() == again.parameters.size(), "all parameters come back");
    for (int i = 0; i < run.parameters.size(); ++i) {
        XMLReportParameter const & a = run.parameters[i];
        XMLReportParameter const & b = again.parameters[i];
        Fuzz::require(isSame(a.nominal, b.nominal) && isSame(a.usedValue, b.usedValue) &&
                          a.hasTol == b.hasTol && isSame(a.tol, b.tol),
                      "parameters keep their bits");
    }
}

void checkRun(XMLReportInfo const & run, XMLReportInfo const * again, int columns)
{
    Fuzz::require(again, "every run comes back");
    Fuzz::require(run.caseNumber == again->caseNumber && run.hasSeed == again->hasSeed &&
                      run.seed == again->seed,
                  "with its numbers");
    Fuzz::require(run.hasName == again->hasName || hasControl(run.name), "with its name");
    for (int i = 0; i < columns; ++i) {
        Fuzz::require(isSame(run.sensValues[i].value, again->sensValues[i].value), "values keep their bits");
        Fuzz::require(run.sensValues.size() <= i || run.sensValues[i].status != 3, "everything is computed");
    }
    checkParameters(run, *again);
}

void writeAndRead(Content const & content)
{
    std::string const out = scratch() / "out.msw";
    Fuzz::require(sp_WriteMswFile(out, content.table, content.header), "what was read can be written");
    Content again;
    Fuzz::require(sp_CompileSensReportData(out, &again.table, &again.header), "and read");
    Fuzz::require(content.table.size() == again.table.size(), "no run comes from nowhere");
    Fuzz::require(content.header.meritFunctions.size() == again.header.meritFunctions.size(), "nor a column");
    content.table.forEach([&](int key, XMLReportInfo const & run) {
        Fuzz::require(key == run.caseNumber, "the key is the case");
        checkRun(run, again.table.find(key), content.header.meritFunctions.size());
    });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    std::string const input = placed(Fuzz::Input(data, size).rest());
    std::string const path = scratch().write("a.msw", input);
    Content content;
    bool const isGood = sp_CompileSensReportData(path, &content.table, &content.header);
    if (isGood || !content.table.isEmpty()) {
        writeAndRead(content);
    }
    bool const isAppended = sp_AppendMeritData(path, "B", "b", {}, {});
    Fuzz::require(isAppended == isGood, "a column without values is added to every good file");
    Fuzz::require(isGood || scratch().read("a.msw") == input, "a bad file stays as it is");
    return 0;
}
