// SPDX-License-Identifier: BSD-3-Clause
// The lock and the signal of a value that threads wait for.
#include <ZyConditionVariable.h>

#include <condition_variable>
#include <mutex>

class ZyConditionVariableAbstract::Private : public ZyPrivateObject
{
public:
    std::condition_variable changed;
    std::mutex mutex;
};

ZyConditionVariableAbstract::ZyConditionVariableAbstract() : m_d(new Private) {}

ZyConditionVariableAbstract::~ZyConditionVariableAbstract() = default;

void ZyConditionVariableAbstract::_update(std::function<void()> const & change)
{
    {
        std::lock_guard<std::mutex> const lock(d()->mutex);
        change();
    }
    d()->changed.notify_all();
}

void ZyConditionVariableAbstract::_read(std::function<void()> const & look) const
{
    std::lock_guard<std::mutex> const lock(d()->mutex);
    look();
}

void ZyConditionVariableAbstract::_wait(std::function<bool()> const & passes)
{
    std::unique_lock<std::mutex> lock(d()->mutex);
    d()->changed.wait(lock, passes);
}
