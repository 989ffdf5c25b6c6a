// SPDX-License-Identifier: BSD-3-Clause
// Parallel problems: their course, their end, their failures, and their destruction at any time.
#include <ZyAbstractParallelProblem.h>

#include <ZyException.h>
#include <ZyString.h>

#include "CountingProblem.h"
#include "Environment.h"
#include "Restricted.h"
#include "Sanitizers.h"
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

/** Has nothing to hand out and says that there is more. */
class PendingSource : public CountingSource
{
public:
    PendingSource() : CountingSource(0) {}
    bool pending() override
    {
        asked.set();
        return true;
    }

    Signal asked;
};

/** Gives every thread its own share: item i belongs to thread i modulo the number of threads. */
class SharedOutSource : public CountingSource
{
public:
    explicit SharedOutSource(unsigned int count) : CountingSource(0), m_count(count), m_left(count) {}
    void prepare(unsigned int threads) override
    {
        for (unsigned int i = 0; i < threads; ++i) {
            m_next.push_back(i);
        }
        m_current = m_next;
    }
    bool next(unsigned int thread) override
    {
        if (m_next[thread] >= m_count) {
            return false;
        }
        m_current[thread] = m_next[thread];
        m_next[thread] += static_cast<unsigned int>(m_next.size());
        --m_left;
        return true;
    }
    Item current(unsigned int thread) override { return m_current[thread]; }
    bool pending() override { return m_left > 0; }

private:
    unsigned int const m_count;
    std::atomic<unsigned int> m_left;
    std::vector<unsigned int> m_next;
    std::vector<unsigned int> m_current;
};

/** Hands out the numbers below a limit that grows. */
class GrowingSource : public CountingSource
{
public:
    GrowingSource() : CountingSource(0) {}
    void prepare(unsigned int threads) override { m_current.resize(threads); }
    bool next(unsigned int thread) override
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_current[thread] = m_next;
        m_next += m_next < m_limit ? 1 : 0;
        return m_current[thread] < m_limit;
    }
    Item current(unsigned int thread) override { return m_current[thread]; }
    void grow(unsigned int limit)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_limit = std::max(m_limit, limit);
    }

private:
    std::mutex m_mutex;
    unsigned int m_next = 0;
    unsigned int m_limit = 1;
    std::vector<unsigned int> m_current;
};

/** Starts a problem and waits for its end. */
void startAndWait(Problem & problem)
{
    Signal const ended;
    problem.start([ended](Problem *) { ended.set(); });
    ended.wait();
}

void waitForStatus(Problem const & problem, Problem::Status status)
{
    while (problem.status() != status) {
        std::this_thread::yield();
    }
}
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

TEST(ZyAbstractParallelProblem, StartAfterTheEndDoesNothing)
{
    CountingProblem problem(2, 10);
    problem.run();
    bool called = false;
    problem.start([&](Problem *) { called = true; });
    problem.stopWorkers();
    EXPECT_FALSE(called);
    EXPECT_EQ(problem.source().prepared, 1U);
}

TEST(ZyAbstractParallelProblem, StartTakesAnEmptyCallback)
{
    CountingProblem problem(2, 10);
    problem.start({});
    waitForStatus(problem, Problem::Finished);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
}

TEST(ZyAbstractParallelProblem, PreparesTheSourceOnTheCallingThread)
{
    CountingProblem problem(3, 10);
    problem.run();
    EXPECT_EQ(problem.source().prepared, 1U);
    EXPECT_EQ(problem.source().preparedFor, 3U);
    EXPECT_EQ(problem.source().preparedBy, std::this_thread::get_id());
}

TEST(ZyAbstractParallelProblem, MakesAllMemoriesOnTheCoordinatorsThreadBeforeTheFirstItem)
{
    std::vector<std::thread::id> makers;
    std::atomic<bool> solving{false};
    std::atomic<bool> late{false};
    CountingProblem problem(4, 100, [&](Item) { solving = true; });
    problem.createWith = [&] {
        late = late || solving;
        EXPECT_EQ(problem.status(), Problem::Running);
        EXPECT_EQ(problem.source().prepared, 1U);
        makers.push_back(std::this_thread::get_id());
        return ZyUniquePtr<Problem::ThreadMemory>(new CountingProblem::Memory);
    };
    std::thread::id whereDone;
    Signal const ended;
    problem.start([&, ended](Problem *) {
        whereDone = std::this_thread::get_id();
        ended.set();
    });
    ended.wait();
    EXPECT_FALSE(late);
    EXPECT_NE(whereDone, std::this_thread::get_id());
    EXPECT_EQ(makers, std::vector<std::thread::id>(4, whereDone));
}

TEST(ZyAbstractParallelProblem, GivesEveryThreadOneMemoryForTheWholeRun)
{
    CountingProblem problem(4, 2000);
    problem.run();
    std::set<std::thread::id> all;
    unsigned int memories = 0;
    problem.forEachResult([&](Problem::ThreadMemory const & memory) {
        auto const & solvers = static_cast<CountingProblem::Memory const &>(memory).solvers;
        std::set<std::thread::id> const own(solvers.begin(), solvers.end());
        EXPECT_LE(own.size(), 1U);
        for (std::thread::id const & id : own) {
            EXPECT_TRUE(all.insert(id).second) << "two memories of one thread";
        }
        ++memories;
    });
    EXPECT_EQ(memories, 4U);
    EXPECT_EQ(all.count(std::this_thread::get_id()), 0U);
}

TEST(ZyAbstractParallelProblem, GoesThroughTheResultsInTheOrderOfTheThreads)
{
    std::vector<Problem::ThreadMemory const *> made;
    CountingProblem problem(5, 10);
    problem.createWith = [&] {
        made.push_back(new CountingProblem::Memory);
        return ZyUniquePtr<Problem::ThreadMemory>(const_cast<Problem::ThreadMemory *>(made.back()));
    };
    problem.run();
    std::vector<Problem::ThreadMemory const *> seen;
    problem.forEachResult([&](Problem::ThreadMemory const & memory) { seen.push_back(&memory); });
    EXPECT_EQ(seen.size(), 5U);
    EXPECT_EQ(seen, made);
}

TEST(ZyAbstractParallelProblem, HasNoResultsBeforeItIsRun)
{
    CountingProblem const problem(2, 10);
    bool called = false;
    problem.forEachResult([&](Problem::ThreadMemory const &) { called = true; });
    problem.forEachResult({});
    EXPECT_FALSE(called);
}

TEST(ZyAbstractParallelProblem, ForEachResultWithAnEmptyFunctionThrowsAfterARun)
{
    CountingProblem problem(2, 10);
    problem.run();
    EXPECT_STD_THROW(problem.forEachResult({}), std::bad_function_call, "bad_function_call");
}

TEST(ZyAbstractParallelProblem, AMissingMemoryDropsTheItemsAndThrowsFromForEachResult)
{
    std::atomic<int> solved{0};
    CountingProblem problem(2, 10, [&](Item) { ++solved; });
    problem.createWith = [] { return ZyUniquePtr<Problem::ThreadMemory>(); };
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Finished);
    EXPECT_EQ(solved, 0);
    EXPECT_ZY_THROW(problem.forEachResult([](Problem::ThreadMemory const &) {}), ZyNullPointerException, "");
}

TEST(ZyAbstractParallelProblem, KeepsTheMemoriesUntilItIsDestroyed)
{
    static std::atomic<int> living{0};
    struct Memory : CountingProblem::Memory
    {
        Memory() { ++living; }
        ~Memory() override { --living; }
    };
    living = 0;
    {
        CountingProblem problem(3, 10);
        problem.createWith = [] { return ZyUniquePtr<Problem::ThreadMemory>(new Memory); };
        problem.run();
        EXPECT_EQ(living, 3);
        problem.stopWorkers();
        EXPECT_EQ(living, 3);
        EXPECT_EQ(problem.solved(), itemsBelow(10));
    }
    EXPECT_EQ(living, 0);
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_null_pointer_drops_item)
{
    for (unsigned int threads : {1U, 3U}) {
        CountingProblem problem(threads, 100, [](Item item) {
            if (item == 5) {
                throw ZyNullPointerException("five");
            }
        });
        problem.run();
        Items expected = itemsBelow(100);
        expected.erase(expected.begin() + 5);
        EXPECT_EQ(problem.status(), Problem::Finished);
        EXPECT_EQ(problem.solved(), expected);
    }
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_null_pointer_drops_item_of_every_number)
{
    CountingProblem problem(2, 100, [](Item) { throw ZyNullPointerException(); });
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Finished);
    EXPECT_EQ(problem.solved(), Items());
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_null_pointer_drops_item_that_the_source_cannot_tell)
{
    struct Source : CountingSource
    {
        using CountingSource::CountingSource;
        Item current(unsigned int thread) override
        {
            Item const item = CountingSource::current(thread);
            if (item % 2 == 0) {
                throw ZyNullPointerException();
            }
            return item;
        }
    };
    CountingProblem problem(2, std::make_unique<Source>(10));
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Finished);
    EXPECT_EQ(problem.solved(), (Items{1, 3, 5, 7, 9}));
}

TEST(ZyAbstractParallelProblemDeathTest, AnyOtherExceptionOfSolveEndsTheProcess)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        CountingProblem problem(2, 100, [](Item item) {
            if (item == 5) {
                throw ZyNotFoundException();
            }
        });
        problem.run();
    };
    EXPECT_EXIT(child(), Environment::endsByAbort, "terminate called");
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_run_waits_only_from_idle)
{
    Signal const reached;
    Signal const go;
    CountingProblem problem(1, 1, [=](Item) {
        reached.set();
        go.wait();
    });
    problem.start({});
    reached.wait();
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Running);
    EXPECT_EQ(problem.source().prepared, 1U);
    go.set();
    waitForStatus(problem, Problem::Finished);
}

TEST(ZyAbstractParallelProblem, RunRightAfterStartWaitsForTheEnd)
{
    // The coordinator is held before it begins: it copies what it shall call.
    struct Held
    {
        Held(Signal const & at, Signal const & until) : reached(at), go(until) {}
        Held(Held const & other) : reached(other.reached), go(other.go), maker(other.maker)
        {
            if (std::this_thread::get_id() != maker) {
                reached.set();
                go.wait();
            }
        }
        void operator()(Problem *) const {}
        Signal reached;
        Signal go;
        std::thread::id maker = std::this_thread::get_id();
    };
    Signal const reached;
    Signal const go;
    CountingProblem problem(2, 10);
    problem.start(Held(reached, go));
    reached.wait();
    EXPECT_EQ(problem.status(), Problem::Idle);
    std::thread opener([&] { go.set(); });
    problem.run();
    EXPECT_EQ(problem.status(), Problem::Finished);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
    EXPECT_EQ(problem.source().prepared, 1U);
    opener.join();
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_start_twice_drops_done)
{
    Signal const ended;
    bool dropped = true;
    std::atomic<int> memories{0};
    CountingProblem problem(2, 10);
    problem.createWith = [&] {
        ++memories;
        return ZyUniquePtr<Problem::ThreadMemory>(new CountingProblem::Memory);
    };
    problem.start([=](Problem *) { ended.set(); });
    problem.start([&](Problem *) { dropped = false; });
    ended.wait();
    problem.stopWorkers();
    EXPECT_TRUE(dropped);
    EXPECT_EQ(memories, 2);
    EXPECT_EQ(problem.source().prepared, 1U);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
}

TEST(ZyAbstractParallelProblem, OfManyStartsAtOnceOneCounts)
{
    std::atomic<int> memories{0};
    std::atomic<int> done{0};
    CountingProblem problem(2, 100);
    problem.createWith = [&] {
        ++memories;
        return ZyUniquePtr<Problem::ThreadMemory>(new CountingProblem::Memory);
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] { problem.start([&](Problem *) { ++done; }); });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    waitForStatus(problem, Problem::Finished);
    problem.stopWorkers();
    EXPECT_EQ(memories, 2);
    EXPECT_EQ(done, 1);
    EXPECT_EQ(problem.solved(), itemsBelow(100));
}

TEST(ZyAbstractParallelProblem, StartInsideDoneAndInsideSolveDoesNothing)
{
    std::atomic<bool> called{false};
    Problem * self = nullptr;
    auto const again = [&](Problem *) { called = true; };
    CountingProblem problem(2, 10, [&](Item) {
        self->start(again);
        self->run();
    });
    self = &problem;
    Signal const ended;
    problem.start([&, ended](Problem * finished) {
        finished->start(again);
        finished->run();
        ended.set();
    });
    ended.wait();
    problem.stopWorkers();
    EXPECT_FALSE(called);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
}

TEST(ZyAbstractParallelProblem, AProblemMaySolveProblems)
{
    std::atomic<unsigned int> solved{0};
    CountingProblem problem(2, 5, [&](Item) {
        CountingProblem inner(2, 7);
        inner.run();
        solved += static_cast<unsigned int>(inner.solved().size());
    });
    problem.run();
    EXPECT_EQ(solved, 35U);
}

TEST(ZyAbstractParallelProblem, SolvesWhatSolvingAdds)
{
    for (unsigned int threads : {1U, 2U, 4U}) {
        auto source = std::make_unique<GrowingSource>();
        GrowingSource & growing = *source;
        CountingProblem problem(threads, std::move(source),
                                [&](Item item) { growing.grow(std::min(2 * item + 2, 500U)); });
        problem.run();
        EXPECT_EQ(problem.status(), Problem::Finished);
        EXPECT_EQ(problem.solved(), itemsBelow(500));
    }
}

TEST(ZyAbstractParallelProblem, WaitsForWorkersThatStillHaveASharePending)
{
    for (unsigned int threads : {1U, 2U, 4U}) {
        CountingProblem problem(threads, std::make_unique<SharedOutSource>(101));
        problem.run();
        EXPECT_EQ(problem.status(), Problem::Finished);
        EXPECT_EQ(problem.solved(), itemsBelow(101));
    }
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_pending_never_ends)
{
    for (unsigned int threads : {1U, 3U}) {
        auto source = std::make_unique<PendingSource>();
        Signal const asked = source->asked;
        bool called = false;
        CountingProblem problem(threads, std::move(source));
        problem.start([&](Problem *) { called = true; });
        asked.wait();
        EXPECT_EQ(problem.status(), Problem::Running);
        EXPECT_FALSE(called);
        problem.stopWorkers(); // and yet it can be destroyed
        EXPECT_TRUE(called);
    }
}

TEST(ZyAbstractParallelProblem, MayBeDestroyedWithoutARun)
{
    CountingProblem const problem(4, 100);
}

TEST(ZyAbstractParallelProblem, MayBeDestroyedRightAfterStart)
{
    std::atomic<int> done{0};
    for (unsigned int i = 0; i < 500; ++i) {
        CountingProblem problem(1 + i % 3, i % 5);
        problem.start([&](Problem *) { ++done; });
    }
    EXPECT_EQ(done, 500);
}

TEST(ZyAbstractParallelProblem, DestroyingItWhileItRunsLetsTheItemsInHandBeFinished)
{
    Signal const go;
    std::atomic<int> begun{0};
    std::atomic<int> finished{0};
    Signal const both;
    auto problem = std::make_unique<CountingProblem>(2, 1000, [&](Item) {
        if (++begun == 2) {
            both.set();
        }
        go.wait();
        ++finished;
    });
    problem->start({});
    both.wait();
    CountingProblem const & watched = *problem;
    std::thread opener([&] {
        waitForStatus(watched, Problem::Terminating);
        go.set();
    });
    problem->stopWorkers();
    opener.join();
    EXPECT_EQ(begun, 2);
    EXPECT_EQ(finished, 2);
    EXPECT_EQ(problem->solved().size(), 2U);
    problem.reset();
    EXPECT_EQ(begun, 2);
}

TEST(ZyAbstractParallelProblem, TheBaseStopsTheWorkersOfASubclassThatDoesNot)
{
    // The worker is held inside solve() and leaves without another look at the subclass.
    struct Source final : Problem::WorkSource
    {
        void prepare(unsigned int) override {}
        bool next(unsigned int) override { return true; }
        Item current(unsigned int) override { return 0; }
        bool pending() override { return true; }
    };
    struct Held final : Problem
    {
        Held(Source & items, Signal const & at, std::atomic<bool> & until)
            : Problem(1), source(items), reached(at), go(until)
        {}
        ZyUniquePtr<ThreadMemory> createThreadMemory() override
        {
            return ZyUniquePtr<ThreadMemory>(new ThreadMemory);
        }
        WorkSource const & workSource() const override { return source; }
        WorkSource & workSource() override { return source; }
        void solve(Item, ThreadMemory &) override
        {
            std::atomic<bool> & until = go;
            Problem const & base = *this;
            reached.set();
            while (!until && base.status() != Terminating) {
                std::this_thread::yield();
            }
        }
        Source & source;
        Signal reached;
        std::atomic<bool> & go;
    };
    Source source;
    Signal const reached;
    std::atomic<bool> go{false};
    {
        Held problem(source, reached, go);
        problem.start({});
        reached.wait();
    }
    SUCCEED();
}

TEST(ZyAbstractParallelProblem, RunReturnsWhenTheProblemIsDestroyedMeanwhile)
{
    auto source = std::make_unique<PendingSource>();
    Signal const asked = source->asked;
    auto problem = std::make_unique<CountingProblem>(2, std::move(source));
    std::thread runner([running = problem.get()] { running->run(); });
    asked.wait();
    problem.reset();
    runner.join();
}

TEST(ZyAbstractParallelProblem, MayBeDestroyedInsideDone)
{
    for (unsigned int i = 0; i < 200; ++i) {
        Signal const gone;
        auto * const problem = new CountingProblem(1 + i % 3, i % 7);
        problem->start([gone](Problem * ended) {
            delete ended;
            gone.set();
        });
        gone.wait();
    }
}

TEST(ZyAbstractParallelProblem, DoneMayThrow)
{
    Signal const reached;
    {
        CountingProblem problem(2, 10);
        problem.start([reached](Problem *) {
            reached.set();
            throw ZyNotFoundException();
        });
        reached.wait();
        EXPECT_EQ(problem.status(), Problem::Finished);
    }
    auto * const problem = new CountingProblem(2, 10);
    Signal const gone;
    problem->start([gone](Problem * ended) {
        delete ended;
        gone.set();
        throw 1;
    });
    gone.wait();
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_done_while_destroyed)
{
    auto source = std::make_unique<PendingSource>();
    Signal const asked = source->asked;
    Problem::Status status = Problem::Idle;
    int called = 0;
    {
        CountingProblem problem(2, std::move(source));
        problem.start([&](Problem * stopped) {
            status = stopped->status();
            ++called;
        });
        asked.wait();
        EXPECT_EQ(called, 0);
    }
    EXPECT_EQ(called, 1);
    EXPECT_EQ(status, Problem::Terminating);
}

TEST(ZyAbstractParallelProblem, StopsForGood)
{
    CountingProblem problem(2, 10);
    problem.stopWorkers();
    EXPECT_EQ(problem.status(), Problem::Terminating);
    problem.stopWorkers();
    bool called = false;
    problem.start([&](Problem *) { called = true; });
    problem.run();
    EXPECT_FALSE(called);
    EXPECT_EQ(problem.source().prepared, 0U);
}

TEST(ZyAbstractParallelProblemDeathTest, Deliberate_parallel_destroyed_by_worker)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Problem * self = nullptr;
        auto * const problem = new CountingProblem(1, 1, [&](Item) { delete self; });
        self = problem;
        problem->start({});
        Signal().wait();
    };
    EXPECT_EXIT(child(), Environment::endsByAbort, "terminate called");
}

TEST(ZyAbstractParallelProblem, Deliberate_parallel_coordinator_fails_silently)
{
    Signal const reached;
    std::atomic<bool> called{false};
    std::atomic<int> solved{0};
    {
        CountingProblem problem(2, 10, [&](Item) { ++solved; });
        problem.createWith = [=]() -> ZyUniquePtr<Problem::ThreadMemory> {
            reached.set();
            throw ZyNotFoundException("memory");
        };
        problem.start([&](Problem *) { called = true; });
        reached.wait();
        EXPECT_EQ(problem.status(), Problem::Running);
        problem.forEachResult({}); // there are none
    }
    EXPECT_FALSE(called);
    EXPECT_EQ(solved, 0);
}

TEST(ZyAbstractParallelProblemDeathTest, Deliberate_parallel_coordinator_fails_silently_for_want_of_a_thread)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Restricted::exitWith([] {
            std::atomic<bool> called{false};
            {
                CountingProblem problem(2, 10);
                Signal const made;
                problem.createWith = [=] {
                    Restricted::denyThreads();
                    made.set();
                    return ZyUniquePtr<Problem::ThreadMemory>(new CountingProblem::Memory);
                };
                problem.start([&](Problem *) { called = true; });
                made.wait();
            }
            return !called;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyAbstractParallelProblemDeathTest, Deliberate_parallel_coordinator_fails_silently_but_its_workers_go_on)
{
#if ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER
    GTEST_SKIP() << "The sanitizers need more memory than the test leaves.";
#endif
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Restricted::exitWith([] {
            std::atomic<bool> called{false};
            std::set<std::thread::id> solvers;
            CountingProblem problem(100, 10, [&](Item) { solvers.insert(std::this_thread::get_id()); });
            problem.createWith = [] {
                Restricted::allowOneMoreThread();
                return ZyUniquePtr<Problem::ThreadMemory>(new CountingProblem::Memory);
            };
            problem.start([&](Problem *) { called = true; });
            waitForStatus(problem, Problem::Finished);
            bool const solved = problem.solved() == itemsBelow(10) && solvers.size() == 1;
            problem.stopWorkers();
            return solved && !called;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyAbstractParallelProblemDeathTest, StartAndRunThrowWhenNoThreadIsToBeHad)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        CountingProblem problem(2, 10);
        Restricted::denyThreads();
        Restricted::exitWith([&] {
            int thrown = 0;
            for (bool const start : {true, false, true}) {
                try {
                    start ? problem.start({}) : problem.run();
                } catch (std::system_error const & e) {
                    thrown += e.code() == std::errc::resource_unavailable_try_again ? 1 : 0;
                }
            }
            return thrown == 3 && problem.status() == Problem::Idle && problem.source().prepared == 3;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyAbstractParallelProblem, CanBeStartedAgainWhenTheSourceCouldNotBePrepared)
{
    struct Source : CountingSource
    {
        using CountingSource::CountingSource;
        void prepare(unsigned int threads) override
        {
            if (++attempts < 3) {
                throw ZyInvalidCallException("not yet");
            }
            CountingSource::prepare(threads);
        }
        int attempts = 0;
    };
    CountingProblem problem(2, std::make_unique<Source>(10));
    EXPECT_ZY_THROW(problem.start({}), ZyInvalidCallException, "not yet");
    EXPECT_EQ(problem.status(), Problem::Idle);
    EXPECT_ZY_THROW(problem.run(), ZyInvalidCallException, "not yet");
    startAndWait(problem);
    EXPECT_EQ(problem.solved(), itemsBelow(10));
}

TEST(ZyAbstractParallelProblem, MayBeDestroyedWhenTheSourceCouldNotBePrepared)
{
    struct Source : CountingSource
    {
        using CountingSource::CountingSource;
        void prepare(unsigned int) override { throw ZyInvalidCallException("never"); }
    };
    CountingProblem problem(2, std::make_unique<Source>(10));
    EXPECT_ZY_THROW(problem.run(), ZyInvalidCallException, "never");
}

#if ZY_SLOTS_VISIBLE
TEST(ZyAbstractParallelProblem, AnswersWithTheSlotsThatHostsRelyOn)
{
    using Const = Problem::WorkSource const & (Problem::*)() const;
    using NonConst = Problem::WorkSource & (Problem::*)();
    EXPECT_EQ(virtualSlot(&Problem::createThreadMemory), 2U);
    EXPECT_EQ(virtualSlot(static_cast<Const>(&Problem::workSource)), 3U);
    EXPECT_EQ(virtualSlot(static_cast<NonConst>(&Problem::workSource)), 4U);
    EXPECT_EQ(virtualSlot(&Problem::solve), 5U);
    EXPECT_EQ(virtualSlot(&Problem::run), std::numeric_limits<std::size_t>::max());
}

TEST(ZyAbstractParallelProblem, ASourceAnswersWithTheSlotsThatHostsRelyOn)
{
    using Source = Problem::WorkSource;
    EXPECT_EQ(virtualSlot(&Source::prepare), 0U);
    EXPECT_EQ(virtualSlot(&Source::next), 1U);
    EXPECT_EQ(virtualSlot(&Source::reset), 2U);
    EXPECT_EQ(virtualSlot(&Source::current), 3U);
    EXPECT_EQ(virtualSlot(&Source::pending), 4U);
}
#endif

TEST(ZyAbstractParallelProblem, NeverResetsTheSource)
{
    struct Source : CountingSource
    {
        using CountingSource::CountingSource;
        void reset() override { FAIL() << "reset"; }
    };
    CountingProblem problem(2, std::make_unique<Source>(10));
    problem.run();
    CountingSource(1).reset(); // by default nothing
}
