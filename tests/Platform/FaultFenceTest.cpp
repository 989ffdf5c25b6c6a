// SPDX-License-Identifier: BSD-3-Clause
// Faults of the processor inside of a fence.
#include "Faults.h"

#include "Platform/FaultFence.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

namespace
{
using ZyPlatform::FaultFence;
using ZyPlatform::FaultInfo;

template <class Body>
std::uint32_t codeOf(Body body)
{
    FaultInfo fault;
    EXPECT_FALSE(FaultFence::call(body, fault));
    return fault.code;
}
} // namespace

TEST(FaultFence, LetsAGoodFunctionThrough)
{
    FaultInfo fault;
    fault.code = 1;
    int calls = 0;
    EXPECT_TRUE(FaultFence::call([&] { ++calls; }, fault));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(fault.code, 1u);
}

TEST(FaultFence, LetsExceptionsThrough)
{
    FaultInfo fault;
    EXPECT_THROW(FaultFence::call([] { throw std::runtime_error("passes"); }, fault), std::runtime_error);
    EXPECT_EQ(codeOf([] { Faults::writeToNull(); }), 0xC0000005u);
}

TEST(FaultFence, TellsEachKindOfFaultByItsCode)
{
    EXPECT_EQ(codeOf([] { Faults::writeToNull(); }), 0xC0000005u);
    EXPECT_EQ(codeOf([] { Faults::readFromNowhere(); }), 0xC0000005u);
    EXPECT_EQ(codeOf([] { Faults::callNull(); }), 0xC0000005u);
    EXPECT_EQ(codeOf([] { Faults::writeToCode(); }), 0xC0000005u);
    EXPECT_EQ(codeOf([] { Faults::divideByZero(); }), 0xC0000094u);
    EXPECT_EQ(codeOf([] { Faults::illegalInstruction(); }), 0xC000001Du);
    EXPECT_EQ(codeOf([] { Faults::breakPoint(); }), 0x80000003u);
}

TEST(FaultFence, TellsAStackThatOverflows)
{
    EXPECT_EQ(codeOf([] { Faults::overflowStack(0); }), 0xC00000FDu);
    EXPECT_EQ(codeOf([] { Faults::overflowStack(0); }), 0xC00000FDu);
}
