// SPDX-License-Identifier: BSD-3-Clause
// Background runs: what they tell, what they keep alive, and how they fail.
#include <ZyAsyncThread.h>

#include <ZyCallbackManager.h>
#include <ZyException.h>
#include <ZyString.h>

#include "Environment.h"
#include "Restricted.h"
#include "Signal.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{
using Status = ZyAsyncThread::Status;
using Thread = ZySharedPtr<ZyAsyncThread>;
using Statuses = std::vector<Status>;

static_assert(!std::is_default_constructible_v<ZyAsyncThread>);
static_assert(!std::is_constructible_v<ZyAsyncThread, std::function<void()>>, "Create() is the only way");
static_assert(!std::is_copy_constructible_v<ZyAsyncThread> && !std::is_copy_assignable_v<ZyAsyncThread>);
static_assert(!std::is_move_constructible_v<ZyAsyncThread> && !std::is_move_assignable_v<ZyAsyncThread>);
static_assert(!std::is_polymorphic_v<ZyAsyncThread>);
static_assert(std::is_destructible_v<ZyAsyncThread>);
static_assert(sizeof(ZyAsyncThread) == 2 * sizeof(void *), "the state and the status");
static_assert(sizeof(Status) == 4 && std::is_same_v<std::underlying_type_t<Status>, int>);
static_assert(ZyAsyncThread::NotStarted == 0 && ZyAsyncThread::Running == 1);
static_assert(ZyAsyncThread::Finished == 2 && ZyAsyncThread::Failed == 3);

/** What callbacks have heard; outlives them by shared ownership. */
class Record
{
public:
    struct Event
    {
        Status status;
        ZyAsyncThread const * thread;
        std::thread::id where;
    };

    void add(Status status, Thread const & thread) const
    {
        std::lock_guard<std::mutex> const lock(m_state->mutex);
        m_state->events.push_back({status, thread.get(), std::this_thread::get_id()});
        m_state->changed.notify_all();
    }
    /** Waits for so many events. */
    std::vector<Event> wait(std::size_t count) const
    {
        std::unique_lock<std::mutex> lock(m_state->mutex);
        m_state->changed.wait(lock, [&] { return m_state->events.size() >= count; });
        return m_state->events;
    }
    Statuses waitForStatuses(std::size_t count) const
    {
        Statuses statuses;
        for (Event const & event : wait(count)) {
            statuses.push_back(event.status);
        }
        return statuses;
    }
    ZyAsyncThread::Callback callback() const
    {
        return [record = *this](Status const & status, Thread const & thread) { record.add(status, thread); };
    }

private:
    struct State
    {
        std::mutex mutex;
        std::condition_variable changed;
        std::vector<Event> events;
    };

    std::shared_ptr<State> m_state = std::make_shared<State>();
};

/** Runs a function to its end. */
class EndedRun
{
public:
    explicit EndedRun(std::function<void()> const & body) : thread(ZyAsyncThread::Create(body))
    {
        auto const handle = thread->createCallback(record.callback());
        thread->run();
        statuses = record.waitForStatuses(2);
    }

    Record record;
    Thread thread;
    Statuses statuses;
};

Statuses const succeeded = {ZyAsyncThread::Running, ZyAsyncThread::Finished};
Statuses const failed = {ZyAsyncThread::Running, ZyAsyncThread::Failed};

/** A function of which the copy that a run makes does something first. The run's thread is no longer the
 * maker's. */
class ActingWhenCopied
{
public:
    explicit ActingWhenCopied(std::function<void()> action) : m_action(std::move(action)) {}
    ActingWhenCopied(ActingWhenCopied const & other) : m_action(other.m_action), m_maker(other.m_maker)
    {
        if (std::this_thread::get_id() != m_maker) {
            m_action();
        }
    }
    ActingWhenCopied & operator=(ActingWhenCopied const &) = delete;
    void operator()() const {}

private:
    std::function<void()> m_action;
    std::thread::id m_maker = std::this_thread::get_id();
};
} // namespace

TEST(ZyAsyncThread, IsNotStartedAfterCreation)
{
    bool called = false;
    Thread const thread = ZyAsyncThread::Create([&] { called = true; });
    ASSERT_TRUE(thread);
    EXPECT_EQ(thread->status(), ZyAsyncThread::NotStarted);
    EXPECT_EQ(thread->error(), "");
    EXPECT_FALSE(called);
}

TEST(ZyAsyncThread, TellsRunningThenFinishedOnAThreadOtherThanTheCallers)
{
    EndedRun const run([] {});
    EXPECT_EQ(run.statuses, succeeded);
    auto const events = run.record.wait(2);
    EXPECT_NE(events[0].where, std::this_thread::get_id());
    EXPECT_EQ(events[1].where, events[0].where);
    EXPECT_EQ(events[0].thread, run.thread.get());
    EXPECT_EQ(events[1].thread, run.thread.get());
    EXPECT_EQ(run.thread->status(), ZyAsyncThread::Finished);
    EXPECT_EQ(run.thread->error(), "");
}

TEST(ZyAsyncThread, RunsTheFunctionOnAThreadThatIsNotThatOfTheCallbacks)
{
    std::thread::id where;
    EndedRun const run([&] { where = std::this_thread::get_id(); });
    EXPECT_NE(where, std::thread::id());
    EXPECT_NE(where, std::this_thread::get_id());
    EXPECT_NE(where, run.record.wait(2)[0].where);
}

TEST(ZyAsyncThread, RunReturnsWhileTheFunctionWorks)
{
    Signal const go;
    Record const record;
    Thread const thread = ZyAsyncThread::Create([=] { go.wait(); });
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    record.wait(1);
    EXPECT_EQ(thread->status(), ZyAsyncThread::Running);
    EXPECT_EQ(thread->error(), "");
    go.set();
    EXPECT_EQ(record.waitForStatuses(2), succeeded);
    EXPECT_EQ(thread->status(), ZyAsyncThread::Finished);
}

TEST(ZyAsyncThread, RunsACopyOfTheFunction)
{
    std::function<void()> body;
    Signal const ran;
    body = [=] { ran.set(); };
    Thread const thread = ZyAsyncThread::Create(body);
    body = nullptr;
    thread->run();
    ran.wait();
}

TEST(ZyAsyncThread, FailsWithTheMessageOfAnException)
{
    EndedRun const run([] { throw ZyNotFoundException("the node \"in\""); });
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->status(), ZyAsyncThread::Failed);
    EXPECT_EQ(run.thread->error().toStdString(), "Item not found: the node \"in\"");
}

TEST(ZyAsyncThread, FailsWithTheDefaultMessageOfAnException)
{
    EndedRun const run([] { throw ZyNotFoundException(); });
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->error().toStdString(), ZyNotFoundException().message().toStdString());
    EXPECT_EQ(run.thread->error().toStdString(), "Item not found");
}

TEST(ZyAsyncThread, KeepsAMessageByteForByte)
{
    std::string const odd("zero \0 and \xff\xc3\xa4 100%s", 20);
    EndedRun const run([&] { throw ZyInvalidCallException(ZyString(odd)); });
    EXPECT_EQ(run.thread->error().toStdString(), odd);
}

TEST(ZyAsyncThread, FailsWithTheTextOfAStandardException)
{
    EndedRun const run([] { throw std::runtime_error("no more paper"); });
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->status(), ZyAsyncThread::Failed);
    EXPECT_EQ(run.thread->error().toStdString(), "no more paper");
}

TEST(ZyAsyncThread, FailsWithUnknownErrorWhenAnIntegerIsThrown)
{
    EndedRun const run([] { throw 7; });
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->status(), ZyAsyncThread::Failed);
    EXPECT_EQ(run.thread->error().toStdString(), "Unknown error");
}

TEST(ZyAsyncThread, FailsWithTheBadCallOfAnEmptyFunction)
{
    EndedRun const run({});
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->error().toStdString(), "bad_function_call");
}

TEST(ZyAsyncThread, Deliberate_async_error_without_text)
{
    EndedRun const run([] { throw ZyInvalidCallException(); });
    EXPECT_EQ(run.statuses, failed);
    EXPECT_EQ(run.thread->status(), ZyAsyncThread::Failed);
    EXPECT_EQ(run.thread->error().toStdString(), "");
}

TEST(ZyAsyncThread, ErrorAndStatusStandWhenFailedIsTold)
{
    Thread const thread = ZyAsyncThread::Create([] { throw ZyNotFoundException(); });
    Signal const ended;
    std::string error;
    Statuses seen;
    auto const handle = thread->createCallback([&](Status const & status, Thread const & self) {
        seen.push_back(self->status());
        if (status == ZyAsyncThread::Failed) {
            error = self->error().toStdString();
            ended.set();
        }
    });
    thread->run();
    ended.wait();
    EXPECT_EQ(error, "Item not found");
    EXPECT_EQ(seen, failed);
}

TEST(ZyAsyncThread, StatusMayBePolled)
{
    Thread const thread = ZyAsyncThread::Create([] { throw ZyNotFoundException(); });
    thread->run();
    while (thread->status() != ZyAsyncThread::Failed) {
        std::this_thread::yield();
    }
    EXPECT_EQ(thread->error().toStdString(), "Item not found");
}

TEST(ZyAsyncThread, Deliberate_async_body_before_running_event)
{
    // The event waits for the function: were it first, neither would come.
    Signal const bodyRan;
    Record const record;
    Thread const thread = ZyAsyncThread::Create([=] { bodyRan.set(); });
    auto const waiting = thread->createCallback([=](Status const &, Thread const &) { bodyRan.wait(); });
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    EXPECT_EQ(record.waitForStatuses(2), succeeded);
}

TEST(ZyAsyncThread, Deliberate_async_status_lags)
{
    Signal const reached;
    Signal const go;
    Record const record;
    Thread const thread = ZyAsyncThread::Create(ActingWhenCopied([=] {
        reached.set();
        go.wait();
    }));
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    reached.wait();
    EXPECT_EQ(thread->status(), ZyAsyncThread::NotStarted);
    go.set();
    EXPECT_EQ(record.waitForStatuses(2), succeeded);
}

TEST(ZyAsyncThread, DroppingTheHandleOfACallbackBeforeTheRunUnsubscribesIt)
{
    Record const dropped;
    Record const kept;
    Thread const thread = ZyAsyncThread::Create([] {});
    auto handle = thread->createCallback(dropped.callback());
    auto const other = thread->createCallback(kept.callback());
    handle.reset();
    thread->run();
    kept.wait(2);
    EXPECT_TRUE(dropped.wait(0).empty());
}

TEST(ZyAsyncThread, CallsCallbacksInTheOrderOfRegistration)
{
    std::vector<int> order;
    Signal const ended;
    Thread const thread = ZyAsyncThread::Create([] {});
    auto const a = thread->createCallback([&](Status const &, Thread const &) { order.push_back(1); });
    auto const b = thread->createCallback([&](Status const &, Thread const &) { order.push_back(2); });
    auto const c = thread->createCallback([&](Status const & status, Thread const &) {
        order.push_back(3);
        if (status == ZyAsyncThread::Finished) {
            ended.set();
        }
    });
    thread->run();
    ended.wait();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 1, 2, 3}));
}

TEST(ZyAsyncThread, PassesOverAnEmptyCallback)
{
    Record const record;
    Thread const thread = ZyAsyncThread::Create([] {});
    auto const empty = thread->createCallback({});
    EXPECT_TRUE(empty);
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    EXPECT_EQ(record.waitForStatuses(2), succeeded);
}

TEST(ZyAsyncThread, ACallbackMayRegisterAnother)
{
    Record const record;
    ZySharedPtr<ZyAsyncThread::Callback> inner;
    Thread const thread = ZyAsyncThread::Create([] {});
    auto const outer = thread->createCallback([&](Status const & status, Thread const & self) {
        if (status == ZyAsyncThread::Running) {
            inner = self->createCallback(record.callback());
        }
    });
    thread->run();
    EXPECT_EQ(record.waitForStatuses(1), Statuses{ZyAsyncThread::Finished});
}

TEST(ZyAsyncThread, ACallbackMayDropTheLastHandleOfTheThread)
{
    Signal const gone;
    Signal const told;
    Thread thread = ZyAsyncThread::Create([owned = signalAtDeath(gone)] {});
    auto const handle = thread->createCallback([&, told](Status const & status, Thread const & self) {
        thread.reset();
        EXPECT_EQ(self->status(), status);
        told.set();
    });
    Thread copy = thread;
    copy->run();
    told.wait();
    copy.reset();
    gone.wait();
}

TEST(ZyAsyncThread, DroppingTheThreadRightAfterRunDoesNotStopIt)
{
    Signal const go;
    Signal const ran;
    Signal const gone;
    ZyWeakPtr<ZyAsyncThread> watched;
    {
        Thread const thread = ZyAsyncThread::Create([=, owned = signalAtDeath(gone)] {
            go.wait();
            ran.set();
        });
        watched = thread;
        thread->run();
    }
    EXPECT_FALSE(watched.expired());
    EXPECT_FALSE(gone.isSet());
    go.set();
    ran.wait();
    gone.wait(); // nothing keeps it after its end
    EXPECT_TRUE(watched.expired());
}

TEST(ZyAsyncThread, AThreadThatIsNeverRunStaysInTheRegistry)
{
    Signal const gone;
    ZyWeakPtr<ZyAsyncThread> const watched =
        ZyAsyncThread::Create([owned = signalAtDeath(gone)] {}); // no handle is kept
    EXPECT_FALSE(watched.expired());
    EXPECT_FALSE(gone.isSet());
    // So that nothing stays behind: its run takes it out.
    watched.lock()->run();
    gone.wait();
}

TEST(ZyAsyncThread, TheFunctionMayOwnWhatUsesTheRegistryWhileItDies)
{
    Signal const gone;
    struct Creator
    {
        Signal gone;
        ~Creator()
        {
            ZyAsyncThread::Create([last = signalAtDeath(gone)] {})->run();
        }
    };
    auto creator = std::make_shared<Creator>(Creator{gone});
    Thread thread = ZyAsyncThread::Create([creator] {});
    creator.reset();
    thread->run();
    thread.reset();
    gone.wait();
}

TEST(ZyAsyncThread, Deliberate_async_callback_fails_run)
{
    Record const record;
    Thread const thread = ZyAsyncThread::Create([] {});
    auto const handle = thread->createCallback(record.callback());
    auto const thrower = thread->createCallback([](Status const & status, Thread const &) {
        if (status == ZyAsyncThread::Finished) {
            throw ZyInvalidCallException("not like this");
        }
    });
    thread->run();
    EXPECT_EQ(record.waitForStatuses(3),
              (Statuses{ZyAsyncThread::Running, ZyAsyncThread::Finished, ZyAsyncThread::Failed}));
    EXPECT_EQ(thread->status(), ZyAsyncThread::Failed);
    EXPECT_EQ(thread->error().toStdString(), "not like this");
}

TEST(ZyAsyncThread, Deliberate_async_callback_fails_run_before_the_function_has_ended)
{
    Signal const go;
    Signal const gone;
    Record const record;
    {
        Thread const thread = ZyAsyncThread::Create([go, owned = signalAtDeath(gone)] {
            go.wait();
            throw ZyNotFoundException("lost");
        });
        auto const handle = thread->createCallback(record.callback());
        auto const thrower = thread->createCallback([](Status const & status, Thread const &) {
            if (status == ZyAsyncThread::Running) {
                throw 1;
            }
        });
        thread->run();
        EXPECT_EQ(record.waitForStatuses(2), failed);
        EXPECT_EQ(thread->error().toStdString(), "Unknown error");
    }
    EXPECT_FALSE(gone.isSet()); // the run still waits for the function
    go.set();
    gone.wait();
    EXPECT_EQ(record.waitForStatuses(2), failed);
}

TEST(ZyAsyncThreadDeathTest, Deliberate_async_failed_callback_ends_process)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Thread const thread = ZyAsyncThread::Create([] { throw ZyNotFoundException(); });
        auto const handle = thread->createCallback([](Status const & status, Thread const &) {
            if (status == ZyAsyncThread::Failed) {
                throw ZyInvalidCallException("nobody is left");
            }
        });
        thread->run();
        Signal().wait();
    };
    EXPECT_EXIT(child(), Environment::endsByAbort, "terminate called");
}

TEST(ZyAsyncThread, Deliberate_async_run_twice)
{
    std::atomic<int> ran{0};
    Record const record;
    Thread const thread = ZyAsyncThread::Create([&] { ++ran; });
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    record.wait(2);
    while (thread.use_count() > 1) { // the registry and the run let go
        std::this_thread::yield();
    }
    thread->run();
    auto const events = record.wait(4);
    EXPECT_EQ(ran, 2);
    EXPECT_EQ(events[0].thread, thread.get());
    EXPECT_EQ(events[1].thread, thread.get());
    EXPECT_EQ(events[2].status, ZyAsyncThread::Running);
    EXPECT_EQ(events[2].thread, nullptr);
    EXPECT_EQ(events[3].status, ZyAsyncThread::Finished);
    EXPECT_EQ(events[3].thread, nullptr);
    EXPECT_EQ(thread->status(), ZyAsyncThread::Finished);
}

TEST(ZyAsyncThread, ASecondRunBeginsWithoutTheErrorOfTheFirst)
{
    std::atomic<int> ran{0};
    Record const record;
    Thread const thread = ZyAsyncThread::Create([&] {
        if (++ran == 1) {
            throw ZyNotFoundException();
        }
    });
    auto const handle = thread->createCallback(record.callback());
    thread->run();
    record.wait(2);
    EXPECT_EQ(thread->error().toStdString(), "Item not found");
    while (thread.use_count() > 1) {
        std::this_thread::yield();
    }
    thread->run();
    record.wait(4);
    EXPECT_EQ(thread->status(), ZyAsyncThread::Finished);
    EXPECT_EQ(thread->error().toStdString(), "");
}

TEST(ZyAsyncThread, RunsThatOverlapKeepTheObjectToTheLast)
{
    Signal const go;
    Signal const gone;
    std::atomic<int> ran{0};
    Record const record;
    ZySharedPtr<ZyAsyncThread::Callback> handle;
    {
        Thread const thread = ZyAsyncThread::Create([&ran, go, owned = signalAtDeath(gone)] {
            if (++ran > 1) {
                go.wait(); // one run ends, the others go on
            }
        });
        handle = thread->createCallback(record.callback());
        thread->run();
        thread->run();
        thread->run();
    }
    record.wait(4); // three have begun, one has ended
    EXPECT_FALSE(gone.isSet());
    go.set();
    gone.wait();
    EXPECT_EQ(ran, 3);
    EXPECT_EQ(record.wait(6).size(), 6U);
}

TEST(ZyAsyncThread, ManyThreadsMayCreateAndRunAtOnce)
{
    constexpr int perThread = 250;
    std::atomic<int> ran{0};
    std::atomic<int> finished{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int each = 0; each < perThread; ++each) {
                EndedRun const run([&] { ++ran; });
                finished += run.statuses == succeeded ? 1 : 0;
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(ran, 4 * perThread);
    EXPECT_EQ(finished, 4 * perThread);
}

TEST(ZyAsyncThreadDeathTest, RunThrowsWhenNoThreadIsToBeHad)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Thread const thread = ZyAsyncThread::Create([] {});
        Restricted::denyThreads();
        Restricted::exitWith([&] {
            try {
                thread->run();
            } catch (std::system_error const & e) {
                return e.code() == std::errc::resource_unavailable_try_again &&
                       thread->status() == ZyAsyncThread::NotStarted && thread->error().isEmpty();
            }
            return false;
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyAsyncThreadDeathTest, FailsWhenThereIsNoThreadForTheFunction)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Restricted::exitWith([&] {
            Record const record;
            Thread const thread = ZyAsyncThread::Create(ActingWhenCopied(Restricted::denyThreads));
            auto const handle = thread->createCallback(record.callback());
            thread->run();
            return record.waitForStatuses(1) == Statuses{ZyAsyncThread::Failed} &&
                   thread->status() == ZyAsyncThread::Failed &&
                   thread->error().toStdString() == "Resource temporarily unavailable";
        });
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
}

TEST(ZyAsyncThreadDeathTest, AThreadThatIsNeverRunDiesWithTheLibrary)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        std::shared_ptr<void> owned(nullptr, [](void *) { std::_Exit(7); });
        ZyAsyncThread::Create([owned] {});
        owned.reset();
        std::exit(3); // gets as far as the library's own objects
    };
    EXPECT_EXIT(child(), testing::ExitedWithCode(7), "");
}

TEST(ZyAsyncThreadDeathTest, AProcessMayEndWithRunsInFlight)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        Record const record;
        static std::vector<ZySharedPtr<ZyAsyncThread::Callback>> handles;
        for (int i = 0; i < 50; ++i) {
            Thread const thread = ZyAsyncThread::Create([i] {
                if (i % 2 == 0) {
                    throw ZyNotFoundException();
                }
            });
            handles.push_back(thread->createCallback(record.callback()));
            thread->run();
        }
        std::exit(0);
    };
    for (int i = 0; i < 10; ++i) {
        EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    }
}

TEST(ZyAsyncThreadDeathTest, AProcessMayEndWhileRunsCreateOthers)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    auto const child = [] {
        // Never destroyed: what the runs use is theirs to keep.
        static auto & again = *new std::function<void()>;
        again = [] { ZyAsyncThread::Create(again)->run(); };
        Signal const begun;
        ZyAsyncThread::Create([begun] {
            for (int i = 0; i < 8; ++i) {
                again();
            }
            begun.set();
        })->run();
        begun.wait();
        std::exit(0);
    };
    for (int i = 0; i < 5; ++i) {
        EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    }
}
