// SPDX-License-Identifier: BSD-3-Clause
// One function in the background: the run, its events, and the registry that keeps its object alive.
#include <ZyAsyncThread.h>

#include <ZyCallbackManager.h>
#include <ZyDeque.h>
#include <ZyException.h>
#include <ZyString.h>

#include <algorithm>
#include <deque>
#include <exception>
#include <future>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

/** All threads from their creation to their end. */
class ZyAsyncThread::Registry
{
public:
    static Registry & Instance();

    void add(ZySharedPtr<ZyAsyncThread> const & thread)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_threads.add(thread);
    }
    /** Null when it is no longer there. */
    ZySharedPtr<ZyAsyncThread> find(ZyAsyncThread const * thread)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        auto const found = position(thread);
        return found == m_threads.std_deque().end() ? ZySharedPtr<ZyAsyncThread>() : *found;
    }
    /** Removes it and hands it out, so that it dies when nothing is locked: its function may own anything. */
    ZySharedPtr<ZyAsyncThread> take(ZyAsyncThread const * thread)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        auto const found = position(thread);
        if (found == m_threads.std_deque().end()) {
            return {};
        }
        ZySharedPtr<ZyAsyncThread> taken = std::move(*found);
        m_threads.std_deque().erase(found);
        return taken;
    }
    /** Removes and hands out those that have not begun. */
    std::deque<ZySharedPtr<ZyAsyncThread>> takeIdle();

private:
    std::deque<ZySharedPtr<ZyAsyncThread>>::iterator position(ZyAsyncThread const * thread)
    {
        auto & threads = m_threads.std_deque();
        return std::find_if(threads.begin(), threads.end(),
                            [&](ZySharedPtr<ZyAsyncThread> const & each) { return each.get() == thread; });
    }

    ZyDeque<ZySharedPtr<ZyAsyncThread>> m_threads;
    std::mutex m_mutex;
};

class ZyAsyncThread::Private : public ZyPrivateObject
{
public:
    explicit Private(std::function<void()> const & body) : function(body) {}

    void setError(ZyString const & text)
    {
        std::lock_guard<std::mutex> const lock(errorMutex);
        error = text;
    }
    /** Ends the process when a callback throws. */
    void fail(ZyString const & text, ZySharedPtr<ZyAsyncThread> const & self) noexcept
    {
        setError(text);
        callbacks.call(Failed, self);
    }
    void work(ZyAsyncThread const * owner);

    std::function<void()> function;
    ZyCallbackManager<ZyAsyncThread::Status, ZySharedPtr<ZyAsyncThread>> callbacks;
    ZySharedPtr<Callback> statusCallback; ///< writes the status; the first to hear of every event
    ZyString error;

    std::mutex errorMutex;             ///< keeps the runs of one object apart
    ZyWeakPtr<ZyAsyncThread> weakSelf; ///< what a run holds on to
};

/**
 * The registry itself is never destroyed, since runs use it while the process ends. What has not begun by
 * then is let go like any other static object.
 */
ZyAsyncThread::Registry & ZyAsyncThread::Registry::Instance()
{
    struct Owner
    {
        explicit Owner(Registry & owned) : registry(owned) {}
        ~Owner() { registry.takeIdle(); }
        Registry & registry;
    };
    static Owner const owner(*new Registry);
    return owner.registry;
}

std::deque<ZySharedPtr<ZyAsyncThread>> ZyAsyncThread::Registry::takeIdle()
{
    std::deque<ZySharedPtr<ZyAsyncThread>> idle;
    std::lock_guard<std::mutex> const lock(m_mutex);
    auto & threads = m_threads.std_deque();
    auto const firstIdle =
        std::stable_partition(threads.begin(), threads.end(), [](ZySharedPtr<ZyAsyncThread> const & thread) {
            return thread->status() != NotStarted;
        });
    std::move(firstIdle, threads.end(), std::back_inserter(idle));
    threads.erase(firstIdle, threads.end());
    return idle;
}

ZyAsyncThread::ZyAsyncThread(std::function<void()> const & function)
    : m_d(new Private(function)), m_status(NotStarted)
{
    d()->statusCallback = createCallback(
        [this](Status const & status, ZySharedPtr<ZyAsyncThread> const &) { m_status = status; });
}

ZyAsyncThread::~ZyAsyncThread() = default;

ZySharedPtr<ZyAsyncThread> ZyAsyncThread::Create(std::function<void()> const & function)
{
    ZySharedPtr<ZyAsyncThread> thread(new ZyAsyncThread(function));
    thread->d()->weakSelf = thread;
    Registry::Instance().add(thread);
    return thread;
}

void ZyAsyncThread::run()
{
    // The registry alone would not do: the end of an earlier run takes the object out of it.
    std::thread([keep = d()->weakSelf.lock()] { keep->d()->work(keep.get()); }).detach();
}

void ZyAsyncThread::Private::work(ZyAsyncThread const * owner)
{
    ZySharedPtr<ZyAsyncThread> const self = Registry::Instance().find(owner);
    setError({});
    // Its destructor waits for the function, and a failure of a callback is told before that.
    std::future<void> result;
    try {
        result = std::async(std::launch::async, function);
        callbacks.call(Running, self);
        result.get();
        callbacks.call(Finished, self);
    } catch (ZyException const & e) {
        fail(e.message(), self);
    } catch (std::exception const & e) {
        fail(e.what(), self);
    } catch (...) {
        fail("Unknown error", self);
    }
    result = std::future<void>();
    Registry::Instance().take(owner);
}

ZySharedPtr<ZyAsyncThread::Callback> ZyAsyncThread::createCallback(Callback const & callback)
{
    return d()->callbacks.add(callback);
}

ZyAsyncThread::Status ZyAsyncThread::status() const
{
    return m_status;
}

ZyString const & ZyAsyncThread::error() const
{
    return d()->error;
}
