// SPDX-License-Identifier: BSD-3-Clause
// A value that threads wait for.
#pragma once

#include <ZyExport.h>
#include <ZyPrivateObject.h>

#include <functional>
#include <optional>
#include <utility>

/** The lock and the signal behind ZyConditionVariable, apart from the type of the value. */
class ZYCORE_EXPORT ZyConditionVariableAbstract
{
public:
    ZyConditionVariableAbstract(ZyConditionVariableAbstract const &) = delete;
    ZyConditionVariableAbstract & operator=(ZyConditionVariableAbstract const &) = delete;
    virtual ~ZyConditionVariableAbstract();

protected:
    ZyConditionVariableAbstract();

    /**
     * Calls \a change under the lock and then, without the lock, wakes all that wait. When it throws, nobody
     * is woken.
     *
     * \throws std::bad_function_call \a change is empty
     */
    void _update(std::function<void()> const & change);
    /** Calls \a look under the lock. \throws std::bad_function_call \a look is empty */
    void _read(std::function<void()> const & look) const;
    /**
     * Returns as soon as \a passes, a copy of which is asked under the lock: at once, and after every update.
     *
     * \throws std::bad_function_call \a passes is empty
     */
    void _wait(std::function<bool()> const & passes);

private:
    class ZYCORE_PRIVATE Private;
    ZyPrivatePtr<Private> & d() { return m_d; }
    ZyPrivatePtr<Private> const & d() const { return m_d; }

    ZyPrivatePtr<Private> m_d;
};

/**
 * A value that threads wait for.
 *
 * \code
 * ZyConditionVariable<int> finished(0);
 * ...
 * finished.wait([](int const & count) { return count == 4; });
 * \endcode
 *
 * The lock is not recursive: a predicate and the copying of a value must not use the variable itself.
 *
 * \threads all operations, several at a time. set() wakes the waiting threads after it has given up the lock:
 * the variable must outlive every call of set(), not only the wait for the last value. Threads that use
 * different ends of it share its ownership.
 */
template <class T>
class ZyConditionVariable : public ZyConditionVariableAbstract
{
public:
    /** Holds \a initial. */
    explicit ZyConditionVariable(T initial = T()) : m_value(std::move(initial)) {}

    /** Assigns the value and wakes all that wait. */
    void set(T const & value)
    {
        _update([&] { m_value = value; });
    }
    /** A copy of the value. */
    T value() const
    {
        std::optional<T> copy;
        _read([&] { copy.emplace(m_value); });
        return std::move(*copy);
    }
    /**
     * Waits until the value passes; returns at once when it does already.
     *
     * \throws std::bad_function_call \a passes is empty
     */
    void wait(std::function<bool(T const &)> const & passes)
    {
        _wait([&] { return passes(m_value); });
    }

protected:
    /** The value; only to be touched inside an update, a read or a wait. */
    T m_value;
};
