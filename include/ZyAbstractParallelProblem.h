// SPDX-License-Identifier: BSD-3-Clause
// A job that divides into independent items, solved by a fixed number of threads.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZyUniquePtr.h>

#include <functional>

/**
 * A job that divides into independent items, solved by a fixed number of threads.
 *
 * Each thread takes the next item from a source that the subclass supplies, solves it with the help of an
 * object of its own, its memory, and goes on until the source is dry. Afterwards the subclass or its caller
 * gathers what the memories hold.
 *
 * \code
 * class Squares final : public ZyAbstractParallelProblem
 * {
 * public:
 *     Squares() : ZyAbstractParallelProblem(4) {}
 *     ~Squares() override { stopWorkers(); }
 *     ZyUniquePtr<ThreadMemory> createThreadMemory() override { return ZyUniquePtr<ThreadMemory>(new Sum); }
 *     WorkSource const & workSource() const override { return m_numbers; }
 *     WorkSource & workSource() override { return m_numbers; }
 *     void solve(Item item, ThreadMemory & memory) override
 *     {
 *         static_cast<Sum &>(memory).sum += item * item;
 *     }
 *     ...
 * };
 * Squares squares;
 * squares.run();
 * squares.forEachResult([&](ZyAbstractParallelProblem::ThreadMemory const & memory) { ... });
 * \endcode
 *
 * **The destructor of a subclass calls stopWorkers() first.** A problem may be destroyed at any time, but its
 * threads use the subclass until they are stopped, and the destructor of this class comes too late for them:
 * what the subclass owns is gone by then.
 *
 * A problem is solved once: run() and start() do nothing when it has been started before. Its threads live,
 * at rest, until it is destroyed or stopped. Who solves problem after problem with little work in each pays
 * for the threads each time.
 *
 * An item costs a few virtual calls and what the source does: from some microseconds an item on the dispatch
 * does not show. Smaller ones are better handed out in blocks, one block an item.
 *
 * \threads start(), run(), status() and numberThreads(): any thread. The object must be destroyed by a thread
 * that is none of its workers; inside `done` is allowed.
 */
class ZYCORE_EXPORT ZyAbstractParallelProblem
{
public:
    /** How far the job is. Finished, Stopped and Terminating count as ended. */
    enum Status : int {
        Idle = 0,       ///< not started
        Running = 1,    ///< the threads may take items
        Finished = 2,   ///< all items are done
        Stopped = 3,    ///< ended otherwise; nothing sets it
        Terminating = 4 ///< stopWorkers() has been called, or the object is being destroyed
    };

    /** What a source hands out: a number whose meaning is a matter of the subclass. */
    using Item = unsigned int;

    /** Base of what a thread has for itself during the whole job: scratch and results. */
    struct ZYCORE_EXPORT ThreadMemory
    {
        ThreadMemory() = default;
        ThreadMemory(ThreadMemory const &) = default;
        ThreadMemory & operator=(ThreadMemory const &) = default;
        virtual ~ThreadMemory();
    };

    /**
     * Hands out the items. The subclass of the problem owns it; it is not destroyed through this class, and
     * implementations are best marked `final`.
     *
     * \threads next() and current() are called by all workers at once, each with its own index
     */
    class ZYCORE_EXPORT WorkSource
    {
    public:
        /** Called once, by the thread that starts the problem, with the number of workers. */
        virtual void prepare(unsigned int threads) = 0;
        /** Claims the next item for \a thread. \return false when there is none */
        virtual bool next(unsigned int thread) = 0;
        /** For the source's own use: the framework never calls it. */
        virtual void reset();
        /**
         * The item that next() has claimed for \a thread. Slots of different threads belong on different
         * cache lines, 128 bytes apart.
         */
        virtual Item current(unsigned int thread) = 0;
        /** Whether there are items that next() did not hand out; then the job is not declared done. */
        virtual bool pending() = 0;

    protected:
        WorkSource() = default;
        WorkSource(WorkSource const &) = default;
        WorkSource & operator=(WorkSource const &) = default;
        ~WorkSource() = default;
    };

    /** A problem for \a numberThreads workers; 0 means 1. The number of processors is not looked at. */
    explicit ZyAbstractParallelProblem(unsigned int numberThreads);
    ZyAbstractParallelProblem(ZyAbstractParallelProblem const &) = delete;
    ZyAbstractParallelProblem & operator=(ZyAbstractParallelProblem const &) = delete;
    /**
     * Stops as stopWorkers() does.
     *
     * \deliberate{parallel-destroyed-by-worker} A worker that destroys the problem would have to wait for itself: the
     * process ends.
     */
    virtual ~ZyAbstractParallelProblem();

    /** The memory of one worker. Called once for each of them, on the coordinator's thread, before the first
     * begins. */
    virtual ZyUniquePtr<ThreadMemory> createThreadMemory() = 0;
    /** The source. */
    virtual WorkSource const & workSource() const = 0;
    /** The source. Called for every item, so it should do nothing but return it. */
    virtual WorkSource & workSource() = 0;
    /**
     * Solves one item. Called on the workers' threads, for different items at once, with the memory of the
     * worker.
     *
     * \deliberate{parallel-null-pointer-drops-item} A ZyNullPointerException from solve(), from WorkSource::current() or for
     * want of a memory drops the item, and the worker goes on. Any other exception ends the process: a
     * subclass that wants to report a failure keeps it in its memory.
     */
    virtual void solve(Item item, ThreadMemory & memory) = 0;

    /**
     * Starts the job and waits for its end.
     *
     * \deliberate{parallel-run-waits-only-from-idle} Returns at once when the status is not Idle, be the job finished or
     * still going on. Who starts with start() hears of the end through `done`.
     *
     * \throws what start() throws
     */
    void run();
    /**
     * Starts the job and returns. Its parts: prepare() of the source on this thread; then, on a thread of its
     * own, the coordinator, the memories and the workers; at the end \a done on the coordinator's thread,
     * while the workers rest. \a done may destroy the problem.
     *
     * \deliberate{parallel-start-twice-drops-done} Does nothing when the job was started before; \a done is then dropped
     * uncalled.
     *
     * \deliberate{parallel-done-while-destroyed} \a done is also called when the problem is stopped before its end, by the
     * destructor say. The status is Terminating then, and \a done must keep away from the subclass.
     *
     * \deliberate{parallel-coordinator-fails-silently} When the coordinator fails, by createThreadMemory() or for want of a
     * thread, nobody hears of it: \a done is not called, the status stays what it was, and run() returns only
     * if some worker has been started, which then does all the work. The problem can always be destroyed.
     *
     * \throws std::system_error the system has no thread for the coordinator; the status stays Idle, and another start is
     *         allowed
     * \throws anything that prepare() throws; likewise
     */
    void start(std::function<void(ZyAbstractParallelProblem *)> done);

    /**
     * How far the job is. Right after start() it may still be Idle.
     *
     * \deliberate{parallel-pending-never-ends} A source that has nothing to hand out and yet says pending() when the last
     * worker asks leaves all of them at rest for good: the status stays Running until the problem is
     * destroyed.
     */
    ZyAbstractParallelProblem::Status status() const;
    /** The number of workers. */
    unsigned int numberThreads() const;
    /**
     * Calls \a take with the memory of every worker in the order of their indices; with none before the job
     * has begun. To be called after the end, inside `done` say.
     *
     * \throws ZyNullPointerException a memory is missing; an empty message
     * \throws std::bad_function_call \a take is empty and there is a memory
     */
    void forEachResult(std::function<void(ZyAbstractParallelProblem::ThreadMemory const &)> take) const;

protected:
    /**
     * Lets every worker finish its item, ends all threads of the problem and waits for them; the status is
     * Terminating from then on, and the memories stay. To be called first in the destructor of a subclass;
     * calling it again does nothing. `done` is called on the way when the job had not ended.
     */
    void stopWorkers();

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};
