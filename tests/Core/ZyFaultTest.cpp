// SPDX-License-Identifier: BSD-3-Clause
// Faults in words: every code, and modules with every kind of name.
#include "Core/ZyFault_p.h"

#include <keelbase/KbHost.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace
{
ZyPlatform::Module moduleNamed(std::string const & file, std::uintptr_t base)
{
    ZyPlatform::Module module;
    file.copy(module.file, sizeof module.file - 1);
    module.base = base;
    return module;
}

OsException made(std::uint32_t code)
{
    ZyPlatform::FaultInfo fault;
    fault.code = code;
    fault.address = 0x6a12f0;
    return ZyFault::Make(fault, moduleNamed("host.dll", 0x6a000000));
}

std::string messageWith(ZyPlatform::Module const & module, std::uintptr_t address)
{
    ZyPlatform::FaultInfo fault;
    fault.code = 0xC0000005;
    fault.address = address;
    return ZyFault::Make(fault, module).message;
}

struct Case
{
    std::uint32_t code;
    std::int32_t type;
    char const * words;
};

constexpr Case cases[] = {
    {0xC0000005, 0, "An access violation"},
    {0xC000008E, 1, "A floating point exception (divide by zero)"},
    {0xC0000090, 1, "A floating point exception (invalid operation)"},
    {0xC000008D, 1, "A floating point exception (denormal operation)"},
    {0xC0000091, 1, "A floating point exception (overflow)"},
    {0xC0000092, 1, "A floating point exception (stack)"},
    {0xC0000093, 1, "A floating point exception (underflow)"},
    {0xC00002B5, 1, "A floating point exception"},
    {0xC00002B4, 1, "A floating point exception"},
    {0xC0000094, 3, "An integer divide by zero exception"},
    {0xC000008F, 4, "An unexpected exception"}, // an inexact result
    {0xC0000095, 4, "An unexpected exception"}, // an integer too large
    {0xC0000006, 4, "An unexpected exception"}, // memory that cannot be read in
    {0xC000001D, 4, "An unexpected exception"}, // an illegal instruction
    {0xC00000FD, 4, "An unexpected exception"}, // a stack overflow
    {0x80000003, 4, "An unexpected exception"}, // a break point
    {0xE06D7363, 4, "An unexpected exception"},
    {0, 4, "An unexpected exception"},
    {0xFFFFFFFF, 4, "An unexpected exception"},
};

class ZyFaultCode : public testing::TestWithParam<Case>
{};
} // namespace

TEST_P(ZyFaultCode, HasItsTypeAndWords)
{
    Case const & expected = GetParam();
    unsigned const resets = kb::ResetFpuCount();
    OsException const fault = made(expected.code);
    EXPECT_EQ(fault.code, expected.code);
    EXPECT_EQ(fault.type, expected.type);
    EXPECT_EQ(fault.message, std::string(expected.words) + " occurred at 6a12f0 in host.dll base 6a000000");
    EXPECT_EQ(kb::ResetFpuCount() - resets, expected.type == 1 ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(All, ZyFaultCode, testing::ValuesIn(cases), [](auto const & test) {
    char name[16];
    std::snprintf(name, sizeof name, "%08X", static_cast<unsigned int>(test.param.code));
    return std::string(name);
});

TEST(ZyFault, Deliberate_fault_names_beyond_arithmetic)
{
    EXPECT_EQ(std::string(made(0xC0000005).message).find("(access violation)"), std::string::npos);
    EXPECT_EQ(std::string(made(0xC0000094).message).find("(int divide by zero)"), std::string::npos);
}

TEST(ZyFault, Deliberate_multiple_float_faults_without_name)
{
    EXPECT_STREQ(made(0xC00002B4).message,
                 "A floating point exception occurred at 6a12f0 in host.dll base 6a000000");
    EXPECT_EQ(made(0xC00002B4).type, 1);
}

TEST(ZyFault, OutsideOfAllModulesIsUnknown)
{
    EXPECT_EQ(messageWith({}, 0), "An access violation occurred at 0 in unknown base 0");
    EXPECT_EQ(messageWith(moduleNamed("", 0x1000), 0x1000),
              "An access violation occurred at 1000 in unknown base 0");
}

TEST(ZyFault, TellsAddressesInFull)
{
    if (sizeof(std::uintptr_t) < 8) {
        GTEST_SKIP() << "addresses have 32 bits here";
    }
    EXPECT_EQ(messageWith(moduleNamed("a", UINTPTR_MAX - 0xFFFF), UINTPTR_MAX),
              "An access violation occurred at ffffffffffffffff in a base ffffffffffff0000");
}

TEST(ZyFault, TakesTheNameOfAModuleAsItIs)
{
    EXPECT_EQ(messageWith(moduleNamed("a%s%n b%", 0xAB), 0x12),
              "An access violation occurred at 12 in a%s%n b% base ab");
    EXPECT_EQ(messageWith(moduleNamed("%%.dll", 0xAB), 0x12),
              "An access violation occurred at 12 in %%.dll base ab");
    EXPECT_EQ(messageWith(moduleNamed("g\xC3\xA9n\xC3\xA9ral.so", 0xAB), 0x12),
              "An access violation occurred at 12 in g\xC3\xA9n\xC3\xA9ral.so base ab");
}

TEST(ZyFault, HasRoomForTheLongestName)
{
    std::string const name(sizeof(ZyPlatform::Module::file) - 1, '%');
    EXPECT_EQ(messageWith(moduleNamed(name, 0xAB), 0x12),
              "An access violation occurred at 12 in " + name + " base ab");
}

TEST(ZyFault, HandsThePointersOn)
{
    int record = 0;
    int context = 0;
    ZyPlatform::FaultInfo fault;
    fault.pointers.record = &record;
    fault.pointers.context = &context;
    OsException const told = ZyFault::Make(fault, {});
    EXPECT_EQ(told.pointers.record, &record);
    EXPECT_EQ(told.pointers.context, &context);
}
