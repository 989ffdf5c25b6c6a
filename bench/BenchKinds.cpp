// SPDX-License-Identifier: BSD-3-Clause
// The kinds of a thousand files of one directory, told by their extensions. Against a hash table of
// lower-case extensions as anyone would write it, and Qt's database of types.
#include "Measure.h"

#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyFileType.h>
#include <ZyString.h>

#include <QFileInfo>
#include <QMimeDatabase>
#include <QString>

#include <cctype>
#include <cstddef>
#include <iterator>
#include <string>
#include <unordered_map>
#include <vector>

namespace bench
{

namespace
{

constexpr unsigned count = 1000;

struct Extension
{
    char const * text;
    ZyFileType::Type type;
};

// What a working directory holds: kinds of the suite, of others, and files of no kind.
constexpr Extension extensions[] = {
    {".zysch", ZyFileType::Schematic}, {".CSV", ZyFileType::CSV},       {".lib", ZyFileType::Model},
    {".cir", ZyFileType::Model},       {".net", ZyFileType::Netlist},   {".txt", ZyFileType::Undefined},
    {".xml", ZyFileType::XML},         {".png", ZyFileType::Image},     {"", ZyFileType::Undefined},
    {".zygph", ZyFileType::Graph},     {".Zip", ZyFileType::Zip},       {".xlsx", ZyFileType::Undefined},
    {".vams", ZyFileType::VerilogA},   {".bak", ZyFileType::Undefined},
};

std::vector<std::string> const & paths()
{
    static std::vector<std::string> const made = [] {
        std::vector<std::string> result;
        for (unsigned i = 0; i < count; ++i) {
            result.push_back("C:/projects/amplifier/run " + std::to_string(i) +
                             extensions[i % std::size(extensions)].text);
        }
        return result;
    }();
    return made;
}

/** The sum of the numbers of the kinds. */
int expected()
{
    int sum = 0;
    for (unsigned i = 0; i < count; ++i) {
        sum += extensions[i % std::size(extensions)].type;
    }
    return sum;
}

std::unordered_map<std::string, int> const & table()
{
    static std::unordered_map<std::string, int> const made = [] {
        std::unordered_map<std::string, int> result;
        for (int type = 0; type <= ZyFileType::Zip; ++type) {
            for (ZyString const & extension :
                 ZyFileType(static_cast<ZyFileType::Type>(type)).extensions().std_deque()) {
                result.emplace(extension.toStdString(), type);
            }
        }
        return result;
    }();
    return made;
}

int byTable(std::string const & path)
{
    std::size_t const slash = path.find_last_of("/\\");
    std::size_t const dot = path.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) {
        return 0;
    }
    std::string extension = path.substr(dot);
    for (char & c : extension) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    auto const found = table().find(extension);
    return found == table().end() ? 0 : found->second;
}

} // namespace

void registerBenchmarks()
{
    std::vector<ZyFilePath> made;
    std::vector<QString> names;
    for (std::string const & path : paths()) {
        made.emplace_back(path);
        names.push_back(QFileInfo(QString::fromStdString(path)).fileName());
    }
    addLoop("file-kind/ours", count, [made] {
        int sum = 0;
        for (ZyFilePath const & path : made) {
            sum += ZyFileType::ToType(path);
        }
        check(sum == expected(), "a kind is wrong");
        return sum;
    });
    addLoop("file-kind/ours-from-text", count, [] {
        int sum = 0;
        for (std::string const & path : paths()) {
            sum += ZyFileType::ToType(ZyFilePath(path));
        }
        check(sum == expected(), "a kind is wrong");
        return sum;
    });
    addLoop("file-kind/unordered_map", count, [] {
        int sum = 0;
        for (std::string const & path : paths()) {
            sum += byTable(path);
        }
        check(sum == expected(), "a kind is wrong");
        return sum;
    });
    addLoop("file-kind/QMimeDatabase", count, [names] {
        QMimeDatabase const database;
        std::size_t sum = 0;
        for (QString const & name : names) {
            sum += static_cast<std::size_t>(
                database.mimeTypeForFile(name, QMimeDatabase::MatchExtension).name().size());
        }
        check(sum > 0, "there are no types");
        return sum;
    });
}

} // namespace bench
