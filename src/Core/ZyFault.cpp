// SPDX-License-Identifier: BSD-3-Clause
// Faults in words.
#include "Core/ZyFault_p.h"

#include <keelbase/KbSystem.h>

#include <cstdint>
#include <cstdio>

namespace
{
struct FaultName
{
    std::uint32_t code;
    char const * name;
};

// \deliberate{fault-names-beyond-arithmetic} The first and the last are never shown: only floating point faults are
// told by name. They belong to the table that the suite shares.
constexpr FaultName faultNames[] = {
    {0xC0000005, "access violation"},   {0xC000008E, "divide by zero"},     {0xC0000090, "invalid operation"},
    {0xC000008D, "denormal operation"}, {0xC0000091, "overflow"},           {0xC0000092, "stack"},
    {0xC0000093, "underflow"},          {0xC0000094, "int divide by zero"},
};

/** Null: none. */
char const * nameOf(std::uint32_t code)
{
    for (FaultName const & pair : faultNames) {
        if (pair.code == code) {
            return pair.name;
        }
    }
    return nullptr;
}

std::int32_t typeOf(std::uint32_t code)
{
    switch (code) {
    case 0xC0000005:
        return TandobleException::AccessViolation;
    case 0xC000008D:
    case 0xC000008E:
    case 0xC0000090:
    case 0xC0000091:
    case 0xC0000092:
    case 0xC0000093:
    // \deliberate{multiple-float-faults-without-name} Several floating point faults at once count as one of them, and
    // have no name to be told by.
    case 0xC00002B4:
    case 0xC00002B5:
        return TandobleException::FloatingPoint;
    case 0xC0000094:
        return TandobleException::IntegerDivide;
    default:
        return TandobleException::OtherFault;
    }
}

using Text = char[512];

void describe(Text & text, OsException const & fault)
{
    char const * words = "An unexpected exception";
    if (fault.type == TandobleException::AccessViolation) {
        words = "An access violation";
    } else if (fault.type == TandobleException::IntegerDivide) {
        words = "An integer divide by zero exception";
    } else if (fault.type == TandobleException::FloatingPoint) {
        words = "A floating point exception";
        if (char const * const name = nameOf(fault.code)) {
            std::snprintf(text, sizeof text, "%s (%s)", words, name);
            return;
        }
    }
    std::snprintf(text, sizeof text, "%s", words);
}
} // namespace

OsException ZyFault::Make(ZyPlatform::FaultInfo const & fault, ZyPlatform::Module const & module)
{
    OsException made;
    made.code = fault.code;
    made.pointers = fault.pointers;
    made.type = typeOf(fault.code);
    Text words;
    describe(words, made);
    bool const isKnown = module.file[0] != '\0';
    std::snprintf(made.message, sizeof made.message, "%s occurred at %llx in %s base %llx", words,
                  static_cast<unsigned long long>(fault.address), isKnown ? module.file : "unknown",
                  static_cast<unsigned long long>(isKnown ? module.base : 0));
    if (made.type == TandobleException::FloatingPoint) {
        sp_ResetFpu();
    }
    return made;
}
