// SPDX-License-Identifier: BSD-3-Clause
// What happens while the library is loaded: these objects are made, in this order, and nothing else. One
// source holds them all, since nothing orders the objects of different sources.
#include <ZyString.h>

#include "Core/ZyMathsRandom_p.h"
#include "Util/ZyShellSlot_p.h"
#include "XML/ZyXMLNames_p.h"

#include <keelbase/KbRegistry.h>

ZyString const ZyXMLNames::row("Row");
ZyString const ZyXMLNames::item("Item");
ZyString const ZyXMLNames::value("Value");
ZyString const ZyXMLNames::types("http://schemas.zycore.example/schemas/application/zytypes/");

namespace
{
// Seeded now, so that no first draw waits for the system.
[[maybe_unused]] ZyRandom::Engine const & engine = ZyRandom::ProcessEngine();

// Read by sp_WriteElemRealValue(). Tag and line are those under which the suite knows the option.
MakeOption const asciiReals("WriteXMLAsciiReals", "..\\src\\Misc\\XMLReport", 61);

// Filled by the host, which knows this tag and line too.
RegisterDynFuncCall const shellFunction(&ZyShellSlot::function, ZyShellSlot::name,
                                        "..\\src\\Util\\ZyCommandShell", 23);
} // namespace
