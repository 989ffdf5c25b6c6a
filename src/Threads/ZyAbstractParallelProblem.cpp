// SPDX-License-Identifier: BSD-3-Clause
// A job that divides into independent items: its workers, the coordinator that starts them, and the stop.
#include <ZyAbstractParallelProblem.h>

#include <ZyAsyncThread.h>
#include <ZyConditionVariable.h>
#include <ZyException.h>
#include <ZySharedPtr.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace
{
using Problem = ZyAbstractParallelProblem;

/** The status, which the workers read without the lock. */
class ProblemStatus : public ZyConditionVariable<Problem::Status>
{
public:
    Problem::Status current() const { return m_current; }
    void change(Problem::Status to)
    {
        _update([&] { assign(to); });
    }
    /** Changes only from a given status. \return whether it has */
    bool change(Problem::Status from, Problem::Status to)
    {
        bool changed = false;
        auto const step = [&] {
            changed = m_value == from;
            if (changed) {
                assign(to);
            }
        };
        _update(std::ref(step)); // which needs no memory
        return changed;
    }
    void waitForEnd()
    {
        wait([](Problem::Status const & status) { return status >= Problem::Finished; });
    }

private:
    void assign(Problem::Status status)
    {
        m_value = status;
        m_current = status;
    }

    std::atomic<Problem::Status> m_current{Problem::Idle};
};

/** What the problem shares with those that may still use it while it dies: its coordinator, and callers of
 * run(). */
struct Shared
{
    ProblemStatus status;
    ZyConditionVariable<bool> coordinatorEnded;
    std::atomic<std::thread::id> callingDone; ///< the thread inside `done`; none, most of the time
};

void callDone(std::function<void(Problem *)> const & done, Problem * problem, Shared & shared)
{
    struct Mark
    {
        explicit Mark(Shared & common) : shared(common) { shared.callingDone = std::this_thread::get_id(); }
        ~Mark() { shared.callingDone = std::thread::id(); }
        Shared & shared;
    } const mark(shared);
    done(problem);
}
} // namespace

class ZyAbstractParallelProblem::Private : public ZyPrivateObject
{
public:
    Private(unsigned int numberThreads, ZyAbstractParallelProblem * problem)
        : threadCount(numberThreads == 0 ? 1 : numberThreads), owner(problem)
    {
        threads.reserve(threadCount);
        memories.reserve(threadCount);
    }

    void startCoordinator(std::function<void(ZyAbstractParallelProblem *)> const & done);
    void startWorkers();
    void work(unsigned int index);
    void solveItems(unsigned int index);
    void rest();
    void stop();

    unsigned int threadCount;
    ZyAbstractParallelProblem * owner;
    std::vector<std::thread> threads;
    std::vector<ZySharedPtr<ThreadMemory>> memories;
    ZySharedPtr<Shared> shared{new Shared}; ///< with the status
    std::atomic<int> active{0};             ///< workers that take and solve items
    std::condition_variable idle;           ///< where workers rest
    std::mutex idleMutex;

    bool stopping = false; ///< guarded by idleMutex: no worker rests any longer
    std::atomic<bool> started{false};
    ZySharedPtr<ZyAsyncThread::Callback> coordinatorCallback; ///< null: there is no coordinator to wait for
};

void ZyAbstractParallelProblem::Private::startCoordinator(
    std::function<void(ZyAbstractParallelProblem *)> const & done)
{
    auto const thread = ZyAsyncThread::Create([this, done, common = shared] {
        if (common->status.change(Idle, Running)) {
            startWorkers();
        }
        common->status.waitForEnd();
        if (done) {
            callDone(done, owner, *common); // may destroy the problem
        }
    });
    owner->workSource().prepare(threadCount);
    coordinatorCallback = thread->createCallback(
        [common = shared](ZyAsyncThread::Status const & status, ZySharedPtr<ZyAsyncThread> const &) {
            if (status != ZyAsyncThread::Running) {
                common->coordinatorEnded.set(true);
            }
        });
    thread->run();
}

void ZyAbstractParallelProblem::Private::startWorkers()
{
    for (unsigned int i = 0; i < threadCount; ++i) {
        memories.emplace_back(owner->createThreadMemory());
    }
    for (unsigned int i = 0; i < threadCount; ++i) {
        threads.emplace_back([this, i] { work(i); });
    }
}

/**
 * A worker counts as active from before it asks for an item until it has been told that there is none. So the
 * count reaches zero only when no item is being solved and none is on its way into a worker's hands; the one
 * that takes it to zero decides about the end.
 */
void ZyAbstractParallelProblem::Private::work(unsigned int index)
{
    ++active;
    solveItems(index);
    bool const last = --active == 0;
    if (last && shared->status.current() == Running && !owner->workSource().pending()) {
        shared->status.change(Running, Finished);
    }
    rest();
}

void ZyAbstractParallelProblem::Private::solveItems(unsigned int index)
{
    while (shared->status.current() == Running) {
        WorkSource & source = owner->workSource();
        if (!source.next(index)) {
            return;
        }
        try {
            owner->solve(source.current(index), *memories[index]);
        } catch (ZyNullPointerException const &) {
        }
    }
}

void ZyAbstractParallelProblem::Private::rest()
{
    std::unique_lock<std::mutex> lock(idleMutex);
    idle.wait(lock, [&] { return stopping; });
}

void ZyAbstractParallelProblem::Private::stop()
{
    shared->status.change(Terminating);
    {
        std::lock_guard<std::mutex> const lock(idleMutex);
        stopping = true;
    }
    idle.notify_all();
    // The coordinator may be starting workers, but not any longer when it is this thread and calls `done`.
    if (coordinatorCallback && shared->callingDone != std::this_thread::get_id()) {
        shared->coordinatorEnded.wait([](bool const & ended) { return ended; });
    }
    for (std::thread & thread : threads) {
        if (thread.joinable()) {
            thread.join();
        }
    }
}

ZyAbstractParallelProblem::ThreadMemory::~ThreadMemory() = default;

void ZyAbstractParallelProblem::WorkSource::reset() {}

ZyAbstractParallelProblem::ZyAbstractParallelProblem(unsigned int numberThreads)
    : m_d(new Private(numberThreads, this))
{}

ZyAbstractParallelProblem::~ZyAbstractParallelProblem()
{
    stopWorkers();
}

void ZyAbstractParallelProblem::stopWorkers()
{
    d()->stop();
}

void ZyAbstractParallelProblem::start(std::function<void(ZyAbstractParallelProblem *)> done)
{
    if (status() != Idle || d()->started.exchange(true)) {
        return;
    }
    try {
        d()->startCoordinator(done);
    } catch (...) {
        d()->coordinatorCallback.reset();
        d()->started = false;
        throw;
    }
}

void ZyAbstractParallelProblem::run()
{
    if (status() != Idle) {
        return;
    }
    auto const shared = d()->shared; // the problem may be destroyed while this thread waits
    start({});
    shared->status.waitForEnd();
}

ZyAbstractParallelProblem::Status ZyAbstractParallelProblem::status() const
{
    return d()->shared->status.current();
}

unsigned int ZyAbstractParallelProblem::numberThreads() const
{
    return d()->threadCount;
}

void ZyAbstractParallelProblem::forEachResult(
    std::function<void(ZyAbstractParallelProblem::ThreadMemory const &)> take) const
{
    for (ZySharedPtr<ThreadMemory> const & memory : d()->memories) {
        take(*memory);
    }
}
