// SPDX-License-Identifier: BSD-3-Clause
// A parallel problem whose items are 0, 1, 2 ..., and whose memories keep what they have solved.
#pragma once

#include <ZyAbstractParallelProblem.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

/** Hands out the numbers below a limit. */
class CountingSource : public ZyAbstractParallelProblem::WorkSource
{
public:
    explicit CountingSource(unsigned int count) : m_count(count) {}
    virtual ~CountingSource() = default;

    void prepare(unsigned int threads) override
    {
        ++prepared;
        preparedFor = threads;
        preparedBy = std::this_thread::get_id();
        m_slots = std::vector<Slot>(threads);
    }
    bool next(unsigned int thread) override
    {
        m_slots[thread].item = m_next++;
        return m_slots[thread].item < m_count;
    }
    ZyAbstractParallelProblem::Item current(unsigned int thread) override { return m_slots[thread].item; }
    bool pending() override { return false; }

    unsigned int prepared = 0;
    unsigned int preparedFor = 0;
    std::thread::id preparedBy;

private:
    struct alignas(128) Slot
    {
        unsigned int item = 0;
    };

    std::vector<Slot> m_slots;
    std::atomic<unsigned int> m_next{0};
    unsigned int const m_count;
};

class CountingProblem : public ZyAbstractParallelProblem
{
public:
    struct Memory : ThreadMemory
    {
        std::vector<Item> solved;
        std::vector<std::thread::id> solvers;
    };
    using Work = std::function<void(Item)>;

    /** \a work is done for every item, before the memory takes it. */
    CountingProblem(unsigned int threads, unsigned int items, Work work = {})
        : CountingProblem(threads, std::make_unique<CountingSource>(items), std::move(work))
    {}
    CountingProblem(unsigned int threads, std::unique_ptr<CountingSource> source, Work work = {})
        : ZyAbstractParallelProblem(threads), m_source(std::move(source)), m_work(std::move(work))
    {}
    ~CountingProblem() override { stopWorkers(); }

    ZyUniquePtr<ThreadMemory> createThreadMemory() override
    {
        return createWith ? createWith() : ZyUniquePtr<ThreadMemory>(new Memory);
    }
    WorkSource const & workSource() const override { return *m_source; }
    WorkSource & workSource() override { return *m_source; }
    void solve(Item item, ThreadMemory & memory) override
    {
        if (m_work) {
            m_work(item);
        }
        Memory & own = static_cast<Memory &>(memory);
        own.solved.push_back(item);
        own.solvers.push_back(std::this_thread::get_id());
    }
    using ZyAbstractParallelProblem::stopWorkers;

    /** Makes the memories, when there is one. */
    std::function<ZyUniquePtr<ThreadMemory>()> createWith;

    CountingSource const & source() const { return *m_source; }
    /** The items of all memories, sorted. */
    std::vector<Item> solved() const
    {
        std::vector<Item> all;
        forEachResult([&](ThreadMemory const & memory) {
            auto const & own = static_cast<Memory const &>(memory).solved;
            all.insert(all.end(), own.begin(), own.end());
        });
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    std::unique_ptr<CountingSource> m_source;
    Work m_work;
};

/** The items that a problem of this size has. */
inline std::vector<ZyAbstractParallelProblem::Item> itemsBelow(unsigned int count)
{
    std::vector<ZyAbstractParallelProblem::Item> items(count);
    for (unsigned int i = 0; i < count; ++i) {
        items[i] = i;
    }
    return items;
}
