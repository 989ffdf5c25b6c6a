// SPDX-License-Identifier: BSD-3-Clause
// Parallel problems: their course, their end, their failures, and their destruction at any time.
#include <ZyAbstractParallelProblem.h>

#include <ZyException.h>
#include <ZyString.h>

#include "CountingProblem.h"
#include "Restricted.h"
#include "Signal.h"
#include "ThrowsMessage.h"
#include "VirtualSlot.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
using Problem = ZyAbstractParallelProblem;
using Item = Problem::Item;
using Items = std::vector<Item>;

static_assert(std::is_same_v<Item, unsigned int> && sizeof(Item) == 4);
static_assert(sizeof(Problem::Status) == 4 && std::is_same_v<std::underlying_type_t<Problem::Status>, int>);
static_assert(Problem::Idle == 0 && Problem::Running == 1 && Problem::Finished == 2);
static_assert(Problem::Stopped == 3 && Problem::Terminating == 4);
static_assert(sizeof(Problem) == 2 * sizeof(void *), "the table and the state");
static_assert(std::is_abstract_v<Problem> && std::has_virtual_destructor_v<Problem>);
static_assert(!std::is_copy_constructible_v<Problem> && !std::is_copy_assignable_v<Problem>);
static_assert(std::has_virtual_destructor_v<Problem::ThreadMemory>);
static_assert(std::is_default_constructible_v<Problem::ThreadMemory>);
static_assert(std::is_abstract_v<Problem::WorkSource> && !std::is_destructible_v<Problem::WorkSource>);
} // namespace

TEST(ZyAbstractParallelProblem, IsIdleAfterConstruction)
{
    CountingProblem const problem(3, 10);
    EXPECT_EQ(problem.status(), Problem::Idle);
    EXPECT_EQ(problem.numberThreads(), 3U);
    EXPECT_EQ(problem.source().prepared, 0U);
}

TEST(ZyAbstractParallelProblem, TakesNoThreadsForOneThread)
{
    EXPECT_EQ(CountingProblem(0, 0).numberThreads(), 1U);
    EXPECT_EQ(CountingProblem(1, 0).numberThreads(), 1U);
    EXPECT_EQ(CountingProblem(17, 0).numberThreads(), 17U);
}

TEST(ZyAbstractParallelProblem, SolvesEveryItemOnce)
{
    for (unsigned int threads : {0U, 1U, 2U, 3U, 8U}) {
        for (unsigned int count : {1U, 2U, 7U, 1000U}) {
            CountingProblem problem(threads, count);
            problem.run();
            EXPECT_EQ(problem.status(), Problem::Finished);
            EXPECT_EQ(problem.solved(), itemsBelow(count)) << threads << " threads";
        }
    }
}

TEST(ZyAbstractParallelProblem, FinishesAtOnceWhenTheSourceIsEmpty)
{
    for (unsigned int threads : {1U, 2U, 8U}) {
        bool solved = false;
        CountingProblem problem(threads, 0, [&](Item) { solved = true; });
        problem.run();
        EXPECT_EQ(problem.status(), Problem::Finished);
        EXPECT_FALSE(solved);
    }
}

TEST(ZyAbstractParallelProblem, StartCallsBackOnceOnAnotherThreadAfterTheEnd)
{
    Signal const called;
    int count = 0;
    std::thread::id where;
    Problem::Status status = Problem::Idle;
    Problem const * argument = nullptr;
    CountingProblem problem(2, 100);
    problem.start([&, called](Problem * ended) {
        ++count;
        where = std::this_thread::get_id();
        status = ended->status();
        argument = ended;
        called.set();
    });
    called.wait();
    EXPECT_EQ(problem.solved(), itemsBelow(100));
    problem.stopWorkers();
    EXPECT_EQ(count, 1);
    EXPECT_NE(where, std::this_thread::get_id());
    EXPECT_EQ(status, Problem::Finished);
    EXPECT_EQ(argument, &problem);
}

TEST(ZyAbstractParallelProblem, ASecondRunReturnsAtOnceAndSolvesNothing)
{
    CountingProblem problem(2, 10);
    problem.run();
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Finished);
    EXPECT_EQ(problem.source().prepared, 1U);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
}
