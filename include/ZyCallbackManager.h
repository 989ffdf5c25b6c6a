// SPDX-License-Identifier: BSD-3-Clause
// Functions that want to hear of an event, owned by those who want to hear.
#pragma once

#include <ZyDeque.h>
#include <ZySharedPtr.h>

#include <algorithm>
#include <functional>
#include <mutex>
#include <vector>

/**
 * Functions to be called with a state S and an argument A whenever an event occurs.
 *
 * The manager keeps none of them alive: who registers a function owns it through the returned handle, and
 * dropping the handle ends the subscription. A call that has begun is finished first.
 *
 * \code
 * ZyCallbackManager<int, ZyString> progress;
 * auto const handle = progress.add([](int const & percent, ZyString const & step) { ... });
 * progress.call(50, "Reading");
 * \endcode
 *
 * \threads all operations, several at a time; nothing is locked while a function is called, so that it may
 * itself register others, drop handles or raise the next event. A function that several events reach at once
 * runs on several threads at once.
 */
template <class S, class A>
class ZyCallbackManager
{
public:
    /** What is called. */
    using Function = std::function<void(S const &, A const &)>;

    ZyCallbackManager() = default;
    ZyCallbackManager(ZyCallbackManager const &) = delete;
    ZyCallbackManager & operator=(ZyCallbackManager const &) = delete;
    virtual ~ZyCallbackManager() = default;

    /**
     * Registers a copy of \a function, behind all others. An empty function is passed over by every event.
     *
     * \return the only owner of the copy
     */
    [[nodiscard]] ZySharedPtr<Function> add(Function const & function)
    {
        ZySharedPtr<Function> handle(new Function(function));
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_functions.addUnique(handle);
        purge();
        return handle;
    }

    /**
     * Calls the functions in the order in which they were registered; those that are registered meanwhile not
     * before the next event. A function that throws ends the event: the later ones are not called.
     */
    void call(S const & state, A const & argument)
    {
        for (ZyWeakPtr<Function> const & registered : alive()) {
            ZySharedPtr<Function> const function = registered.lock();
            if (function && *function) {
                (*function)(state, argument);
            }
        }
    }

    /** How many functions are registered whose handles have not been dropped. */
    unsigned int size() const
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        auto const & functions = m_functions.std_deque();
        return static_cast<unsigned int>(
            std::count_if(functions.begin(), functions.end(),
                          [](ZyWeakPtr<Function> const & function) { return !function.expired(); }));
    }

private:
    /** The functions of this moment, which is what an event walks. */
    std::vector<ZyWeakPtr<Function>> alive()
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        purge();
        return {m_functions.std_deque().begin(), m_functions.std_deque().end()};
    }
    void purge()
    {
        auto & functions = m_functions.std_deque();
        functions.erase(
            std::remove_if(functions.begin(), functions.end(),
                           [](ZyWeakPtr<Function> const & function) { return function.expired(); }),
            functions.end());
    }

    ZyDeque<ZyWeakPtr<Function>> m_functions;
    mutable std::mutex m_mutex;
};
