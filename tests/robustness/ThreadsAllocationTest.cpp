// SPDX-License-Identifier: BSD-3-Clause
// Memory that ends while background runs and parallel problems are made and started.
#include "AllocationFault.h"
#include "CountingProblem.h"
#include "Signal.h"

#include <ZyAsyncThread.h>

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <thread>

TEST(AllocationFailure, MakesABackgroundRunWholeOrNotAtAll)
{
    auto const owned = std::make_shared<int>(0);
    std::function<void()> const body = [owned, padding = std::array<char, 64>()] {
        static_cast<void>(padding);
    };
    long const owners = owned.use_count();
    ZySharedPtr<ZyAsyncThread> thread;
    unsigned const failures =
        failEveryAllocation([&] { thread = ZyAsyncThread::Create(body); },
                            [&](bool returned) {
                                EXPECT_EQ(static_cast<bool>(thread), returned);
                                EXPECT_EQ(owned.use_count(), returned ? owners + 1 : owners);
                            });
    EXPECT_GT(failures, 4U);
    thread->run();
    while (thread.use_count() > 1) { // so that nothing stays in the registry
        std::this_thread::yield();
    }
}

TEST(AllocationFailure, SubscribesACallbackOrNot)
{
    Signal const ended;
    auto const thread = ZyAsyncThread::Create([] {});
    int called = 0;
    auto const counting = [&called, ended](ZyAsyncThread::Status const & status,
                                           ZySharedPtr<ZyAsyncThread> const &) {
        ++called;
        if (status == ZyAsyncThread::Finished) {
            ended.set();
        }
    };
    ZySharedPtr<ZyAsyncThread::Callback> handle;
    unsigned const failures =
        failEveryAllocation([&] { handle = thread->createCallback(counting); },
                            [&](bool returned) { EXPECT_EQ(static_cast<bool>(handle), returned); });
    EXPECT_GT(failures, 1U);
    thread->run();
    ended.wait();
    EXPECT_EQ(called, 2);
}

TEST(AllocationFailure, ARunThatCouldNotBeStartedCanBe)
{
    Signal const ran;
    auto const thread = ZyAsyncThread::Create([ran] { ran.set(); });
    unsigned const failures =
        failEveryAllocation([&] { thread->run(); },
                            [&](bool returned) {
                                if (!returned) {
                                    EXPECT_EQ(thread->status(), ZyAsyncThread::NotStarted);
                                }
                            });
    EXPECT_GT(failures, 0U);
    ran.wait();
}

TEST(AllocationFailure, AProblemThatCouldNotBeStartedCanBe)
{
    std::unique_ptr<CountingProblem> problem;
    auto const renew = [&] { problem = std::make_unique<CountingProblem>(2, 100); };
    renew();
    unsigned const failures = failEveryAllocation([&] { problem->start([](ZyAbstractParallelProblem *) {}); },
                                                  [&](bool returned) {
                                                      if (!returned) {
                                                          EXPECT_EQ(problem->status(), CountingProblem::Idle);
                                                          problem->run();
                                                          EXPECT_EQ(problem->solved(), itemsBelow(100));
                                                          renew();
                                                      }
                                                  });
    EXPECT_GT(failures, 10U);
    problem->stopWorkers();
    EXPECT_EQ(problem->status(), CountingProblem::Terminating);
}
