// SPDX-License-Identifier: BSD-3-Clause
// One function in the background, with events that tell how it goes.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>
#include <ZySharedPtr.h>

#include <atomic>
#include <functional>

class ZyString;

/**
 * Runs one function in the background and tells whoever is interested how it went.
 *
 * \code
 * ZySharedPtr<ZyAsyncThread> const thread = ZyAsyncThread::Create([] { writeReport(); });
 * auto const handle = thread->createCallback(
 *     [](ZyAsyncThread::Status const & status, ZySharedPtr<ZyAsyncThread> const & run) { ... });
 * thread->run();
 * \endcode
 *
 * Nothing needs to be kept: from Create() until the function has ended the library holds the object in a
 * registry. An object that is never run stays there until the library is unloaded. There is no way to stop a
 * run or to wait for it; who wants to know when it ends registers a callback before run(), or polls status().
 * Whatever the function throws ends in the status and in error().
 *
 * At the end of the process nobody waits for runs: a host that wants their work done waits for their events
 * before it leaves main().
 *
 * \threads Create(), run(), createCallback() and status(): any thread, several at a time. Callbacks run on a
 * thread of the run, never on the one that called run().
 */
class ZYCORE_EXPORT ZyAsyncThread
{
public:
    /** How far a run is. */
    enum Status : int {
        NotStarted = 0, ///< created; no run has begun
        Running = 1,    ///< the function has been launched
        Finished = 2,   ///< the function has returned
        Failed = 3      ///< the function, or a callback, has thrown
    };

    /** What hears of the events of a run. The thread is null when the registry no longer knows it: run(). */
    using Callback = std::function<void(ZyAsyncThread::Status const &, ZySharedPtr<ZyAsyncThread> const &)>;

    /** Makes an object that runs a copy of \a function, which may be empty. Nothing starts. */
    static ZySharedPtr<ZyAsyncThread> Create(std::function<void()> const & function);

    ZyAsyncThread(ZyAsyncThread const &) = delete;
    ZyAsyncThread & operator=(ZyAsyncThread const &) = delete;
    ~ZyAsyncThread();

    /**
     * Starts a run and returns at once. Its events: Running, then Finished or Failed.
     *
     * Failed comes with the text of what was thrown in error(): the message of a ZyException, what() of a
     * standard exception ("bad_function_call" for an empty function), else "Unknown error". That a thread for
     * the function cannot be started is such a failure too.
     *
     * \deliberate{async-body-before-running-event} The function is launched before the event Running: it may have ended by
     * then.
     *
     * \deliberate{async-callback-fails-run} A callback that throws from Running or Finished fails the run: Failed follows
     * with the text of the callback's exception, also after a Finished. What the function itself throws or
     * returns is then lost; the object lives until it has ended.
     *
     * \deliberate{async-failed-callback-ends-process} What a callback throws from Failed has no one left to go to: it ends
     * the process.
     *
     * \deliberate{async-run-twice} Each call starts a run of its own, however many there were. The first that ends takes
     * the object out of the registry; the events of a run that begins later carry a null thread.
     *
     * \throws std::system_error the system has no thread left; nothing has begun
     */
    void run();

    /**
     * Subscribes a copy of \a callback to the events, behind all others.
     *
     * Register before run(): a callback that comes later misses what has been. A callback that must not
     * outlive an object drops its handle, and is still finished when it has begun.
     *
     * \return the subscription, which ends when the last copy of the handle is dropped
     */
    [[nodiscard]] ZySharedPtr<Callback> createCallback(Callback const & callback);

    /**
     * How far the run is; of several, the last event.
     *
     * \deliberate{async-status-lags} The status follows the events: it is NotStarted for a moment after run().
     */
    ZyAsyncThread::Status status() const;

    /**
     * The text of the failure; empty unless the status is Failed.
     *
     * \deliberate{async-error-without-text} Empty also after a failure whose exception has no text: ask status().
     *
     * \threads to be read after an ended event, and not while another run may begin
     */
    ZyString const & error() const;

private:
    class ZYCORE_PRIVATE Private;
    class ZYCORE_PRIVATE Registry;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZYCORE_PRIVATE explicit ZyAsyncThread(std::function<void()> const & function);

    ZyPrivatePtr<Private> m_d;
    std::atomic<Status> m_status;
};
