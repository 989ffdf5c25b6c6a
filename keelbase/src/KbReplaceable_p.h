// SPDX-License-Identifier: BSD-3-Clause
// A function of the library that hosts and tests may replace.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <utility>

/**
 * Holds the replacement of a function while there is one. No lock is held while the replacement runs, and
 * none is taken while there is none.
 */
template <class Result>
class KbReplaceable
{
public:
    void replace(std::function<Result()> function)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_function = std::move(function);
        m_isReplaced = static_cast<bool>(m_function);
    }

    /** The replacement; empty when there is none. */
    std::function<Result()> replacement() const
    {
        if (!m_isReplaced) {
            return {};
        }
        std::lock_guard<std::mutex> const lock(m_mutex);
        return m_function;
    }

private:
    mutable std::mutex m_mutex;
    std::function<Result()> m_function;
    std::atomic<bool> m_isReplaced = false;
};
