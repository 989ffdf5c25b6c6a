// SPDX-License-Identifier: BSD-3-Clause
// The structures that carry faults: their layout, and how they are caught.
#include <TandobleException.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

static_assert(!std::is_polymorphic_v<TandobleException> && !std::is_polymorphic_v<OsException> &&
              !std::is_polymorphic_v<DynFuncException>);
static_assert(std::is_trivially_copyable_v<TandobleException> && std::is_trivially_copyable_v<OsException> &&
              std::is_trivially_copyable_v<DynFuncException>);
static_assert(std::is_base_of_v<TandobleException, OsException> &&
              std::is_base_of_v<TandobleException, DynFuncException>);
static_assert(std::is_same_v<decltype(TandobleException::type), std::int32_t> &&
              std::is_same_v<decltype(OsException::code), std::uint32_t>);
static_assert(offsetof(TandobleException, type) == 0 && offsetof(TandobleException, message) == 4 &&
              sizeof(TandobleException) == 1004);
static_assert(sizeof(DynFuncException) == sizeof(TandobleException));
static_assert(sizeof(FaultPointers) == 2 * sizeof(void *));
static_assert(TandobleException::AccessViolation == 0 && TandobleException::FloatingPoint == 1 &&
              TandobleException::IntegerDivide == 3 && TandobleException::OtherFault == 4 &&
              TandobleException::NoFault == 9);

TEST(TandobleException, IsNoFaultAtFirst)
{
    OsException const fault;
    EXPECT_EQ(fault.type, 9);
    EXPECT_STREQ(fault.message, "");
    EXPECT_EQ(fault.code, 0u);
    EXPECT_EQ(fault.pointers.record, nullptr);
    EXPECT_EQ(fault.pointers.context, nullptr);
}

TEST(TandobleException, KeepsItsMessageWhenItIsCaughtByValueAsTheBase)
{
    try {
        throw DynFuncException("widgets_GetShellInterface");
    } catch (TandobleException fault) { // NOLINT(misc-throw-by-value-catch-by-reference): as hosts do
        EXPECT_STREQ(fault.message,
                     "*** FATAL ERROR *** Unresolved dynamic function 'widgets_GetShellInterface' called");
        EXPECT_EQ(fault.type, 9);
    }
}

TEST(DynFuncException, NamesTheFunctionWhateverItsName)
{
    EXPECT_STREQ(DynFuncException("").message, "*** FATAL ERROR *** Unresolved dynamic function '' called");
    EXPECT_STREQ(DynFuncException(nullptr).message, DynFuncException("").message);
    EXPECT_STREQ(DynFuncException("%s%n").message,
                 "*** FATAL ERROR *** Unresolved dynamic function '%s%n' called");
}

TEST(DynFuncException, CutsANameThatIsTooLong)
{
    std::string const name(2000, 'x');
    std::string const message = DynFuncException(name.c_str()).message;
    EXPECT_EQ(message.size(), 999u);
    EXPECT_EQ(message, ("*** FATAL ERROR *** Unresolved dynamic function '" + name).substr(0, 999));
}
