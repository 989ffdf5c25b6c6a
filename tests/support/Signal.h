// SPDX-License-Identifier: BSD-3-Clause
// A moment that threads of a test wait for. Copies are one signal.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

class Signal
{
public:
    void set() const
    {
        std::shared_ptr<State> const state = m_state; // who waits may end the signal
        std::lock_guard<std::mutex> const lock(state->mutex);
        state->isSet = true;
        state->changed.notify_all();
    }
    void wait() const
    {
        std::unique_lock<std::mutex> lock(m_state->mutex);
        m_state->changed.wait(lock, [&] { return m_state->isSet; });
    }
    bool isSet() const
    {
        std::lock_guard<std::mutex> const lock(m_state->mutex);
        return m_state->isSet;
    }

private:
    struct State
    {
        std::mutex mutex;
        std::condition_variable changed;
        bool isSet = false;
    };

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

/** Sets a signal when the last copy of it goes. */
inline std::shared_ptr<void> signalAtDeath(Signal const & signal)
{
    return {nullptr, [signal](void *) { signal.set(); }};
}
