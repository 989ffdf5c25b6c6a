// SPDX-License-Identifier: BSD-3-Clause
// A value that threads wait for.
#include <ZyConditionVariable.h>

#include <ZyAbstractParallelProblem.h>
#include <ZyException.h>
#include <ZyString.h>

#include "ThrowsMessage.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
static_assert(sizeof(ZyConditionVariableAbstract) == 2 * sizeof(void *), "the table and the state");
static_assert(sizeof(ZyConditionVariable<void *>) == 3 * sizeof(void *), "and the value, in the object");
static_assert(std::has_virtual_destructor_v<ZyConditionVariableAbstract>);
static_assert(std::is_base_of_v<ZyConditionVariableAbstract, ZyConditionVariable<int>>);
static_assert(!std::is_copy_constructible_v<ZyConditionVariable<int>>);
static_assert(!std::is_move_constructible_v<ZyConditionVariable<int>>);
static_assert(!std::is_default_constructible_v<ZyConditionVariableAbstract>, "a base only");
static_assert(!std::is_convertible_v<int, ZyConditionVariable<int>>);

/** Opens what the base gives to its subclasses. */
class Opened : public ZyConditionVariableAbstract
{
public:
    using ZyConditionVariableAbstract::_read;
    using ZyConditionVariableAbstract::_update;
    using ZyConditionVariableAbstract::_wait;
};
} // namespace

TEST(ZyConditionVariable, HoldsTheInitialValue)
{
    EXPECT_EQ(ZyConditionVariable<int>().value(), 0);
    EXPECT_EQ(ZyConditionVariable<int>(7).value(), 7);
    EXPECT_EQ(ZyConditionVariable<ZyString>("text").value(), "text");
    ZyConditionVariable<ZyAbstractParallelProblem::Status> const status;
    EXPECT_EQ(status.value(), ZyAbstractParallelProblem::Idle);
}

TEST(ZyConditionVariable, HoldsTheLastValueSet)
{
    ZyConditionVariable<int> variable;
    variable.set(3);
    variable.set(4);
    EXPECT_EQ(variable.value(), 4);
}

TEST(ZyConditionVariable, TakesTypesWithoutADefault)
{
    struct Point
    {
        explicit Point(int value) : x(value) {}
        int x;
    };
    ZyConditionVariable<Point> variable(Point(1));
    variable.set(Point(2));
    EXPECT_EQ(variable.value().x, 2);
}

TEST(ZyConditionVariable, WaitReturnsAtOnceWhenTheValuePasses)
{
    ZyConditionVariable<int> variable(5);
    int asked = 0;
    variable.wait([&](int const & value) {
        ++asked;
        return value == 5;
    });
    EXPECT_EQ(asked, 1);
}

TEST(ZyConditionVariable, WaitReturnsWhenAnotherThreadSetsTheValue)
{
    ZyConditionVariable<int> variable;
    std::thread setter([&] {
        for (int i = 1; i <= 100; ++i) {
            variable.set(i);
        }
    });
    variable.wait([](int const & value) { return value == 100; });
    EXPECT_EQ(variable.value(), 100);
    setter.join();
}

TEST(ZyConditionVariable, WakesAllThatWait)
{
    ZyConditionVariable<int> variable;
    std::atomic<int> waiting{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            variable.wait([&, counted = false](int const & value) mutable {
                if (!counted) {
                    ++waiting;
                    counted = true;
                }
                return value == 1;
            });
        });
    }
    while (waiting < 4) {
        std::this_thread::yield();
    }
    variable.set(1);
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(variable.value(), 1);
}

TEST(ZyConditionVariable, PassesTheBallBetweenThreads)
{
    ZyConditionVariable<int> ball(0);
    auto const play = [&](int own) {
        for (int i = 0; i < 500; ++i) {
            ball.wait([&](int const & value) { return value % 2 == own; });
            ball.set(ball.value() + 1);
        }
    };
    std::thread other([&] { play(1); });
    play(0);
    other.join();
    EXPECT_EQ(ball.value(), 1000);
}

TEST(ZyConditionVariable, WaitWithAnEmptyPredicateThrows)
{
    ZyConditionVariable<int> variable;
    EXPECT_STD_THROW(variable.wait({}), std::bad_function_call, "bad_function_call");
    variable.set(1); // the lock is free
    EXPECT_EQ(variable.value(), 1);
}

TEST(ZyConditionVariable, APredicateMayThrow)
{
    ZyConditionVariable<int> variable;
    EXPECT_ZY_THROW(variable.wait([](int const &) -> bool { throw ZyNotFoundException(); }),
                    ZyNotFoundException, "Item not found");
    variable.set(1);
    EXPECT_EQ(variable.value(), 1);
}

TEST(ZyConditionVariable, AnAssignmentThatThrowsLeavesTheLockFree)
{
    struct Refusing
    {
        Refusing() = default;
        Refusing(Refusing const &) = default;
        Refusing & operator=(Refusing const &) { throw ZyInvalidCallException("no"); }
    };
    ZyConditionVariable<Refusing> variable;
    EXPECT_ZY_THROW(variable.set(Refusing()), ZyInvalidCallException, "no");
    variable.wait([](Refusing const &) { return true; });
}

TEST(ZyConditionVariableAbstract, EmptyFunctionsThrow)
{
    Opened variable;
    EXPECT_STD_THROW(variable._update({}), std::bad_function_call, "bad_function_call");
    EXPECT_STD_THROW(variable._read({}), std::bad_function_call, "bad_function_call");
    EXPECT_STD_THROW(variable._wait({}), std::bad_function_call, "bad_function_call");
    bool called = false;
    variable._update([&] { called = true; });
    EXPECT_TRUE(called);
}

TEST(ZyConditionVariableAbstract, WaitAsksACopyOfThePredicate)
{
    Opened variable;
    int asked = 0;
    std::function<bool()> const counting = [&asked, count = 0]() mutable {
        asked = ++count;
        return true;
    };
    variable._wait(counting);
    variable._wait(counting);
    EXPECT_EQ(asked, 1);
}

TEST(ZyConditionVariableAbstract, UpdatesExcludeEachOther)
{
    Opened variable;
    int count = 0; // plain: the lock is what keeps it right
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int step = 0; step < 1000; ++step) {
                variable._update([&] { ++count; });
            }
        });
    }
    variable._wait([&] { return count == 4000; });
    for (std::thread & thread : threads) {
        thread.join();
    }
    variable._read([&] { EXPECT_EQ(count, 4000); });
}
