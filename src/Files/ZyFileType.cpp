// SPDX-License-Identifier: BSD-3-Clause
// The table of the kinds of file, and what is found in it.
#include <ZyFileType.h>

#include "Core/ZyCaseFold_p.h"
#include "Files/ZyFilePath_p.h"

#include <ZyDeque.h>
#include <ZyFilePath.h>
#include <ZyIcon.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyUniquePtr.h>

#include <algorithm>
#include <cstddef>
#include <locale>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

class ZyFileType::Manager
{
public:
    struct Definition
    {
        Type type;
        ZyString name;
        ZyIcon icon;
        ZyDeque<ZyString> extensions;
    };

    Manager();

    static Manager const & Instance();

    /** The first row that passes; null when none does. */
    template <class Passes>
    Definition const * find(Passes const & passes) const
    {
        for (ZySharedPtr<Definition> const & definition : m_definitions.std_deque()) {
            if (passes(*definition)) {
                return definition.get();
            }
        }
        return nullptr;
    }
    Definition const & definition(Type type) const;
    Type typeOf(std::string_view extension) const;

private:
    void add(Type type, ZyString && name, ZyString && icon, ZyDeque<ZyString> && extensions);
    void index(Definition const & definition);

    ZyDeque<ZySharedPtr<Definition>> m_definitions;
    /** The extensions as the classic locale folds them, each with the first of its kinds. */
    std::unordered_map<std::string, Type> m_classic;
    std::size_t m_longest = 0;
};

namespace
{
std::string classicFold(std::string_view text)
{
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](char c) { return static_cast<char>(ZyCaseFold::Classic()(c)); });
    return folded;
}
} // namespace

ZyFileType::Manager::Manager()
{
    add(Undefined, "Undefined", "", {});
    add(Directory, "Directory", ":/qt-project.org/styles/commonstyle/images/dirclosed-16.png", {});
    LoadTypes([this](Type type, ZyString && name, ZyString && icon, ZyDeque<ZyString> && extensions) {
        add(type, std::move(name), std::move(icon), std::move(extensions));
    });
}

ZyFileType::Manager const & ZyFileType::Manager::Instance()
{
    static ZyUniquePtr<Manager> const manager(new Manager);
    return *manager;
}

ZyFileType::Manager::Definition const & ZyFileType::Manager::definition(Type type) const
{
    Definition const * const found =
        find([type](Definition const & candidate) { return candidate.type == type; });
    return found ? *found : *m_definitions.std_deque().front(); // that of Undefined
}

ZyFileType::Type ZyFileType::Manager::typeOf(std::string_view extension) const
{
    if (ZyCaseFold::isClassic(std::locale())) {
        auto const found =
            extension.size() <= m_longest ? m_classic.find(classicFold(extension)) : m_classic.end();
        return found == m_classic.end() ? Undefined : found->second;
    }
    ZyString const text = std::string(extension);
    Definition const * const found =
        find([&](Definition const & candidate) { return candidate.extensions.contains(text); });
    return found ? found->type : Undefined;
}

void ZyFileType::Manager::add(Type type, ZyString && name, ZyString && icon, ZyDeque<ZyString> && extensions)
{
    ZySharedPtr<Definition> const definition(
        new Definition{type, std::move(name), ZyIcon(std::move(icon)), std::move(extensions)});
    m_definitions.add(definition);
    index(*definition);
}

void ZyFileType::Manager::index(Definition const & definition)
{
    for (ZyString const & extension : definition.extensions.std_deque()) {
        m_classic.emplace(classicFold(extension.toStdString()), definition.type);
        m_longest = std::max<std::size_t>(m_longest, extension.size());
    }
}

void ZyFileType::LoadTypes(AddType const & add)
{
    add(AEExamples, "AEExamples", ":/AEExample.png", {".zyhtm"});
    add(Component, "Component", ":/ComponentIcon.png", {".zycmp"});
    add(CSV, "CSV", "", {".csv"});
    add(QRMReport, "QRMReport", ":/QRMReport.png", {".log.html"});
    add(Graph, "Graph", ":/GraphIcon.png", {".zygpx", ".zygph"});
    add(Icon, "Icon", "", {".ico"});
    add(Image, "Image", "", {".bmp", ".jpg", ".png", ".JPG", ".jpeg"});
    add(Model, "Model", ":/ModelIcon.png",
        {".lb", ".lib", ".mod", ".cir", ".spi", ".fam", ".mdl", ".sp", ".sp2", ".model", ".pkg", ".prm",
         ".sub", ".sio", ".ckt"});
    add(Netlist, "Netlist", "", {".net", ".cir", ".deck", ".out", ".init"});
    add(RichText, "RichText", "", {".rtf"});
    add(Schematic, "Schematic", ":/SchematicIcon.png", {".zysch", ".zycmp", ".sch"});
    add(Script, "Script", ":/ScriptIcon.png", {".zyscr"});
    add(SymbolLibrary, "SymbolLibrary", ":/SymbolLibraryIcon.png", {".zyslb", ".slb"});
    add(Text, "Text", ":/TextFileIcon.png", {".zyslb", ".slb"});
    add(VerilogA, "VerilogA", ":/VerilogAIcon.png", {".va", ".vams"});
    add(VerilogHDL, "VerilogHDL", ":/VerilogHDLIcon.png", {".v"});
    add(VisualScript, "VisualScript", ":/VisualScriptIcon.png", {".zyvis"});
    add(XML, "XML", "", {".xml"});
    add(Spreadsheet, "Spreadsheet (XLSX)", "", {".xslx"});
    add(Zip, "Zip", "", {".zip", ".ZIP"});
}

ZyFileType::ZyFileType(Type type) : m_type(type) {}
ZyFileType::ZyFileType(ZyFilePath const & path) : m_type(ToType(path)) {}
ZyFileType::ZyFileType(ZyFileType const & other) = default;
ZyFileType::~ZyFileType() = default;

ZyFileType & ZyFileType::operator=(ZyFileType const & other) = default;

bool ZyFileType::operator==(ZyFileType const & other) const
{
    return m_type == other.m_type;
}

bool ZyFileType::operator==(Type const & type) const
{
    return m_type == type;
}

ZyFileType::Type ZyFileType::type() const
{
    return m_type;
}

ZyFileType::operator Type() const
{
    return m_type;
}

ZyString const & ZyFileType::name() const
{
    return Manager::Instance().definition(m_type).name;
}

ZyIcon const & ZyFileType::icon() const
{
    return Manager::Instance().definition(m_type).icon;
}

ZyDeque<ZyString> const & ZyFileType::extensions() const
{
    return Manager::Instance().definition(m_type).extensions;
}

ZyString ZyFileType::filter() const
{
    if (m_type == Undefined || m_type == Directory) {
        return "All Files (*)";
    }
    std::string patterns = " (";
    for (ZyString const & extension : extensions().std_deque()) {
        patterns += '*' + extension.toStdString() + ' ';
    }
    patterns.back() = ')';
    return name() + ZyString(std::move(patterns));
}

ZyFileType::Type ZyFileType::FromName(ZyString const & name)
{
    auto const * const found = Manager::Instance().find(
        [&](Manager::Definition const & candidate) { return candidate.name == name; });
    return found ? found->type : Undefined;
}

ZyFileType::Type ZyFileType::ToType(ZyFilePath const & path)
{
    std::string_view const text = path.path().toStdString();
    if (ZyPathText::endsAsDirectory(text)) {
        return Directory;
    }
    return Manager::Instance().typeOf(ZyPathText::extension(ZyPathText::filename(text)));
}
