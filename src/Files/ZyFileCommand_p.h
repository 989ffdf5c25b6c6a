// SPDX-License-Identifier: BSD-3-Clause
// The commands by which the host opens files, by their kinds.
#pragma once

#include <ZyComparableString.h>
#include <ZyFileType.h>
#include <ZyString.h>

namespace ZyFileCommand
{
inline ZyString inQuotes(char const * command, ZyString const & path)
{
    return ZyString(command) + " \"" + path + "\"";
}

inline ZyString inBraces(char const * command, ZyString const & path)
{
    ZyString const text = path.replaced("'", "''", ZyComparableString::CaseSensitive);
    return ZyString(command) + " {'" + text + "'}";
}

/** The command that opens a file of a kind; empty for a kind that is not opened. */
inline ZyString open(ZyFileType::Type type, ZyString const & path)
{
    switch (type) {
    case ZyFileType::AEExamples:
    case ZyFileType::QRMReport:
        return inQuotes("WebOpen", path);
    case ZyFileType::Component:
    case ZyFileType::Schematic:
        return inBraces("open_schem", path);
    case ZyFileType::Graph:
        return inQuotes("OpenGraph", path);
    case ZyFileType::Model:
    case ZyFileType::Netlist:
        return inQuotes("OpenNetlist", path);
    case ZyFileType::Script:
        return inQuotes("OpenScript", path);
    case ZyFileType::SymbolLibrary:
        return inBraces("open_symbol_lib_in_editor", path);
    case ZyFileType::Text:
        return inQuotes("OpenBasicTextEditor", path);
    case ZyFileType::VerilogA:
        return inQuotes("OpenVerilogA", path);
    case ZyFileType::VerilogHDL:
        return inQuotes("OpenVerilogHDL", path);
    case ZyFileType::VisualScript:
        return inQuotes("OpenVisualScript", path);
    default:
        return ZyString();
    }
}
} // namespace ZyFileCommand
