// SPDX-License-Identifier: BSD-3-Clause
// What it costs to hand an item to a worker, and to run a function in the background. By the clock, not by
// the processor: what several threads save is time.
#include "Measure.h"

#include <ZyAbstractParallelProblem.h>
#include <ZyAsyncThread.h>

#if defined(ZYBENCH_TBB)
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#endif

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace bench
{

namespace
{

std::uint64_t mix(std::uint64_t z)
{
    z += 0x9E3779B97F4A7C15ull;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

/** An item: so many hashes of its number, about 3 ns each. */
template <unsigned Rounds>
std::uint64_t work(std::uint64_t item)
{
    std::uint64_t x = item;
    for (unsigned round = 0; round < Rounds; ++round) {
        x = mix(x);
    }
    return x;
}

/** What a worker adds up, on cache lines of its own. */
struct alignas(128) Sum
{
    std::uint64_t value = 0;
};

std::uint64_t total(std::vector<Sum> const & sums)
{
    std::uint64_t value = 0;
    for (Sum const & sum : sums) {
        value += sum.value;
    }
    return value;
}

/** Hands out the numbers below a limit. */
class Counter final : public ZyAbstractParallelProblem::WorkSource
{
public:
    explicit Counter(unsigned count) : m_count(count) {}
    void prepare(unsigned threads) override { m_slots = std::vector<Slot>(threads); }
    bool next(unsigned thread) override
    {
        unsigned const item = m_next.fetch_add(1, std::memory_order_relaxed);
        m_slots[thread].item = item;
        return item < m_count;
    }
    ZyAbstractParallelProblem::Item current(unsigned thread) override { return m_slots[thread].item; }
    bool pending() override { return false; }

private:
    struct alignas(128) Slot
    {
        unsigned item = 0;
    };

    std::vector<Slot> m_slots;
    unsigned const m_count;
    alignas(128) std::atomic<unsigned> m_next{0};
};

template <unsigned Rounds>
class Mixing final : public ZyAbstractParallelProblem
{
public:
    Mixing(unsigned threads, unsigned count) : ZyAbstractParallelProblem(threads), m_counter(count) {}
    ~Mixing() override { stopWorkers(); }
    ZyUniquePtr<ThreadMemory> createThreadMemory() override { return ZyUniquePtr<ThreadMemory>(new Memory); }
    WorkSource const & workSource() const override { return m_counter; }
    WorkSource & workSource() override { return m_counter; }
    void solve(Item item, ThreadMemory & memory) override
    {
        static_cast<Memory &>(memory).sum.value += work<Rounds>(item);
    }
    std::uint64_t total() const
    {
        std::uint64_t value = 0;
        forEachResult(
            [&](ThreadMemory const & memory) { value += static_cast<Memory const &>(memory).sum.value; });
        return value;
    }

private:
    struct Memory final : ThreadMemory
    {
        Sum sum;
    };

    Counter m_counter;
};

template <unsigned Rounds>
std::uint64_t byProblem(unsigned threads, unsigned count)
{
    Mixing<Rounds> problem(threads, count);
    problem.run();
    return problem.total();
}

/** What one would write: bare threads and a counter. */
template <unsigned Rounds>
std::uint64_t byThreads(unsigned threadCount, unsigned count)
{
    std::vector<Sum> sums(threadCount);
    std::atomic<unsigned> next{0};
    std::vector<std::thread> threads;
    for (Sum & sum : sums) {
        threads.emplace_back([&] {
            for (unsigned item; (item = next.fetch_add(1, std::memory_order_relaxed)) < count;) {
                sum.value += work<Rounds>(item);
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    return total(sums);
}

#if defined(ZYBENCH_OPENMP)
template <unsigned Rounds>
std::uint64_t byOpenMP(unsigned threads, unsigned count)
{
    std::uint64_t sum = 0;
#pragma omp parallel for schedule(dynamic, 1) reduction(+ : sum) num_threads(int(threads))
    for (unsigned item = 0; item < count; ++item) {
        sum += work<Rounds>(item);
    }
    return sum;
}
#endif

#if defined(ZYBENCH_TBB)
template <unsigned Rounds>
std::uint64_t byTbb(unsigned threads, unsigned count)
{
    tbb::global_control const control(tbb::global_control::max_allowed_parallelism, threads);
    std::vector<Sum> sums(64);
    tbb::parallel_for(
        tbb::blocked_range<unsigned>(0, count, 1),
        [&](tbb::blocked_range<unsigned> const & range) {
            Sum & sum = sums[unsigned(tbb::this_task_arena::current_thread_index())];
            for (unsigned item = range.begin(); item < range.end(); ++item) {
                sum.value += work<Rounds>(item);
            }
        },
        tbb::simple_partitioner());
    return total(sums);
}
#endif

template <unsigned Rounds>
void registerItems(std::string const & workload, unsigned count)
{
    std::uint64_t expected = 0;
    for (unsigned item = 0; item < count; ++item) {
        expected += work<Rounds>(item);
    }
    using Way = std::uint64_t (*)(unsigned, unsigned);
    std::vector<std::pair<std::string, Way>> ways = {{"ours", byProblem<Rounds>},
                                                     {"std-thread", byThreads<Rounds>}};
#if defined(ZYBENCH_OPENMP)
    ways.emplace_back("OpenMP", byOpenMP<Rounds>);
#endif
#if defined(ZYBENCH_TBB)
    ways.emplace_back("TBB", byTbb<Rounds>);
#endif
    for (unsigned const threads : {1u, 2u}) {
        for (auto const & [name, way] : ways) {
            addClockedLoop("parallel/" + workload + '-' + std::to_string(threads) + '/' + name, count,
                           [way = way, threads, count, expected] {
                               std::uint64_t const sum = way(threads, count);
                               check(sum == expected, "an item was lost or repeated");
                               return sum;
                           });
        }
    }
}

/** Counts the runs that have ended. */
class Ends
{
public:
    void add()
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        ++m_ended;
        m_changed.notify_one();
    }
    /** Waits until at most so many of those started are under way. */
    void wait(unsigned started, unsigned underWay)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait(lock, [&] { return started - m_ended <= underWay; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    unsigned m_ended = 0;
};

/** Each of these starts a function that tells its end. */
void startOurs(std::function<void()> const & function, std::shared_ptr<Ends> const & ends,
               std::vector<ZySharedPtr<ZyAsyncThread::Callback>> & handles)
{
    auto const thread = ZyAsyncThread::Create(function);
    handles.push_back(thread->createCallback(
        [ends](ZyAsyncThread::Status const & status, ZySharedPtr<ZyAsyncThread> const &) {
            if (status != ZyAsyncThread::Running) {
                ends->add();
            }
        }));
    thread->run();
}

void startBare(std::function<void()> const & function, std::shared_ptr<Ends> const & ends)
{
    std::thread([function, ends] {
        std::async(std::launch::async, function).get();
        ends->add();
    }).detach();
}

/** Runs functions, so many at a time, and waits for all of them. */
template <class Start>
std::uint64_t runAll(unsigned count, unsigned atATime, Start const & start)
{
    std::atomic<std::uint64_t> sum{0};
    // Shared with the threads: the last may still be leaving add() when the wait for it has ended.
    auto const ends = std::make_shared<Ends>();
    for (unsigned i = 0; i < count; ++i) {
        start([&sum, i] { sum += mix(i); }, ends);
        ends->wait(i + 1, atATime - 1);
    }
    ends->wait(count, 0);
    return sum;
}

void registerBackgroundRuns(unsigned atATime)
{
    constexpr unsigned count = 10000;
    std::string const prefix = "background/" + std::to_string(atATime) + '/';
    addClockedLoop(prefix + "ours", count, [atATime] {
        std::vector<ZySharedPtr<ZyAsyncThread::Callback>> handles;
        handles.reserve(count);
        return runAll(count, atATime,
                      [&](auto const & function, auto const & ends) { startOurs(function, ends, handles); });
    });
    addClockedLoop(prefix + "thread-and-async", count, [atATime] {
        return runAll(count, atATime,
                      [](auto const & function, auto const & ends) { startBare(function, ends); });
    });
}

} // namespace

void registerBenchmarks()
{
    registerItems<1>("tiny", 1000000);
    registerItems<2500>("10us", 10000);
    registerBackgroundRuns(1);
    registerBackgroundRuns(64);
}

} // namespace bench
