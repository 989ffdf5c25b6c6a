// SPDX-License-Identifier: BSD-3-Clause
// Functions that are called at events and owned by those who register them.
#include <ZyCallbackManager.h>

#include <ZyException.h>
#include <ZyString.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
using Manager = ZyCallbackManager<int, ZyString>;

static_assert(std::has_virtual_destructor_v<Manager>);
static_assert(!std::is_copy_constructible_v<Manager> && !std::is_copy_assignable_v<Manager>);
static_assert(std::is_same_v<Manager::Function, std::function<void(int const &, ZyString const &)>>);

/** Appends a mark and what came. */
Manager::Function writer(std::string & log, char mark)
{
    return [&log, mark](int const & state, ZyString const & argument) {
        log += mark + std::to_string(state) + argument.toStdString() + ' ';
    };
}
} // namespace

TEST(ZyCallbackManager, CallsTheFunctionsInTheOrderOfRegistration)
{
    Manager manager;
    std::string log;
    auto const a = manager.add(writer(log, 'a'));
    auto const b = manager.add(writer(log, 'b'));
    auto const c = manager.add(writer(log, 'c'));
    manager.call(1, "x");
    manager.call(2, "y");
    EXPECT_EQ(log, "a1x b1x c1x a2y b2y c2y ");
}

TEST(ZyCallbackManager, CallsNothingWhenNothingIsRegistered)
{
    Manager manager;
    manager.call(1, "x");
    EXPECT_EQ(manager.size(), 0U);
}

TEST(ZyCallbackManager, HandsOutTheOnlyOwnerOfTheCopy)
{
    Manager manager;
    std::string log;
    auto const handle = manager.add(writer(log, 'a'));
    EXPECT_EQ(handle.use_count(), 1);
    (*handle)(7, "direct");
    EXPECT_EQ(log, "a7direct ");
}

TEST(ZyCallbackManager, CallsTheSameFunctionOnceForEachRegistration)
{
    Manager manager;
    std::string log;
    auto const function = writer(log, 'a');
    auto const first = manager.add(function);
    auto const second = manager.add(function);
    manager.call(1, "");
    EXPECT_EQ(log, "a1 a1 ");
}

TEST(ZyCallbackManager, DroppingTheHandleEndsTheSubscription)
{
    Manager manager;
    std::string log;
    auto a = manager.add(writer(log, 'a'));
    auto const b = manager.add(writer(log, 'b'));
    EXPECT_EQ(manager.size(), 2U);
    a.reset();
    EXPECT_EQ(manager.size(), 1U);
    manager.call(1, "");
    EXPECT_EQ(log, "b1 ");
}

TEST(ZyCallbackManager, OneCopyOfTheHandleIsEnough)
{
    Manager manager;
    std::string log;
    auto first = manager.add(writer(log, 'a'));
    auto const copy = first;
    first.reset();
    manager.call(1, "");
    EXPECT_EQ(log, "a1 ");
}

TEST(ZyCallbackManager, AHandleMayOutliveTheManager)
{
    std::string log;
    ZySharedPtr<Manager::Function> handle;
    {
        Manager manager;
        handle = manager.add(writer(log, 'a'));
    }
    (*handle)(1, "");
    EXPECT_EQ(log, "a1 ");
}

TEST(ZyCallbackManager, PassesOverAnEmptyFunction)
{
    Manager manager;
    std::string log;
    auto const empty = manager.add({});
    auto const b = manager.add(writer(log, 'b'));
    EXPECT_TRUE(empty);
    EXPECT_EQ(manager.size(), 2U);
    manager.call(1, "");
    EXPECT_EQ(log, "b1 ");
}

TEST(ZyCallbackManager, AFunctionRegisteredDuringAnEventIsFirstCalledAtTheNext)
{
    Manager manager;
    std::string log;
    ZySharedPtr<Manager::Function> inner;
    auto const outer = manager.add([&](int const &, ZyString const &) {
        if (!inner) {
            inner = manager.add(writer(log, 'i'));
        }
    });
    manager.call(1, "");
    EXPECT_EQ(log, "");
    manager.call(2, "");
    EXPECT_EQ(log, "i2 ");
}

TEST(ZyCallbackManager, AFunctionDroppedDuringAnEventIsNotCalledAnyMore)
{
    Manager manager;
    std::string log;
    ZySharedPtr<Manager::Function> later;
    auto const earlier = manager.add([&](int const &, ZyString const &) { later.reset(); });
    later = manager.add(writer(log, 'l'));
    manager.call(1, "");
    EXPECT_EQ(log, "");
}

TEST(ZyCallbackManager, AFunctionMayDropItsOwnHandle)
{
    Manager manager;
    std::string log;
    ZySharedPtr<Manager::Function> own;
    std::string const owned(100, 'x');
    own = manager.add([&, owned](int const &, ZyString const &) {
        own.reset();
        log += owned; // still there
    });
    manager.call(1, "");
    manager.call(2, "");
    EXPECT_EQ(log, owned);
}

TEST(ZyCallbackManager, AFunctionMayRaiseTheNextEvent)
{
    Manager manager;
    std::string log;
    auto const outer = manager.add([&](int const & state, ZyString const &) {
        if (state < 3) {
            manager.call(state + 1, "");
        }
    });
    auto const b = manager.add(writer(log, 'b'));
    manager.call(1, "");
    EXPECT_EQ(log, "b3 b2 b1 ");
}

TEST(ZyCallbackManager, AFunctionThatThrowsEndsTheEvent)
{
    Manager manager;
    std::string log;
    auto const a = manager.add(writer(log, 'a'));
    auto const thrower = manager.add([](int const &, ZyString const &) { throw ZyNotFoundException("it"); });
    auto const c = manager.add(writer(log, 'c'));
    EXPECT_ZY_THROW(manager.call(1, ""), ZyNotFoundException, "Item not found: it");
    EXPECT_EQ(log, "a1 ");
    EXPECT_EQ(manager.size(), 3U);
}

TEST(ZyCallbackManager, KeepsAFunctionAtTheAddressOfOneThatWasDropped)
{
    Manager manager;
    int called = 0;
    for (int i = 0; i < 1000; ++i) {
        auto const handle = manager.add([&](int const &, ZyString const &) { ++called; });
        manager.call(i, "");
    }
    EXPECT_EQ(called, 1000);
}

TEST(ZyCallbackManager, MayBeUsedFromSeveralThreadsAtOnce)
{
    Manager manager;
    std::atomic<int> called{0};
    auto const count = [&](int const &, ZyString const &) { ++called; };
    auto const kept = manager.add(count);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int event = 0; event < 500; ++event) {
                auto const handle = manager.add(count);
                manager.call(event, "");
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_GE(called, 4 * 500 * 2);
    EXPECT_EQ(manager.size(), 1U);
}
