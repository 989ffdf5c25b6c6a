// SPDX-License-Identifier: BSD-3-Clause
// Very many parallel problems of random size: every one ends, and none loses or repeats an item. With all
// seeds together more than 100,000; under the sanitizers, which are slow, fewer.
#include "CountingProblem.h"
#include "Sanitizers.h"
#include "Signal.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <vector>

namespace
{
#if ZY_ADDRESS_SANITIZER || ZY_THREAD_SANITIZER
constexpr int problemsPerTest = 200;
#else
constexpr int problemsPerTest = 4200;
#endif

/** Sizes and thread counts, the same in every run. */
class Sizes
{
public:
    explicit Sizes(unsigned int seed) : m_random(seed) {}
    unsigned int threads() { return std::uniform_int_distribution<unsigned int>(0, 4)(m_random); }
    unsigned int items()
    {
        unsigned int const most = std::uniform_int_distribution<int>(0, 9)(m_random) == 0 ? 500 : 10;
        return std::uniform_int_distribution<unsigned int>(0, most)(m_random);
    }
    unsigned int mode(unsigned int modes)
    {
        return std::uniform_int_distribution<unsigned int>(0, modes - 1)(m_random);
    }

private:
    std::mt19937 m_random;
};

void runMany(unsigned int seed, int count)
{
    Sizes sizes(seed);
    for (int i = 0; i < count; ++i) {
        unsigned int const items = sizes.items();
        CountingProblem problem(sizes.threads(), items);
        problem.run();
        ASSERT_EQ(problem.status(), ZyAbstractParallelProblem::Finished);
        ASSERT_EQ(problem.solved(), itemsBelow(items)) << "problem " << i;
    }
}

/** Lets a thread go on for a moment that differs from time to time. */
void linger(unsigned int turns)
{
    for (unsigned int turn = 0; turn < turns; ++turn) {
        std::this_thread::yield();
    }
}

class ZyAbstractParallelProblemStress : public testing::TestWithParam<unsigned int>
{};
} // namespace

TEST_P(ZyAbstractParallelProblemStress, EveryRunSolvesEveryItemOnce)
{
    runMany(GetParam(), problemsPerTest);
}

TEST_P(ZyAbstractParallelProblemStress, SoDoRunsOnSeveralThreadsAtOnce)
{
    std::thread other([] { runMany(GetParam() + 100, problemsPerTest / 2); });
    runMany(GetParam() + 200, problemsPerTest / 2);
    other.join();
}

TEST_P(ZyAbstractParallelProblemStress, EveryStartCallsBackWithEveryItemSolvedOnce)
{
    Sizes sizes(GetParam() + 300);
    for (int i = 0; i < problemsPerTest; ++i) {
        unsigned int const items = sizes.items();
        auto * const problem = new CountingProblem(sizes.threads(), items);
        Signal const ended;
        std::vector<ZyAbstractParallelProblem::Item> solved;
        problem->start([&, ended](ZyAbstractParallelProblem * finished) {
            solved = static_cast<CountingProblem *>(finished)->solved();
            delete finished;
            ended.set();
        });
        ended.wait();
        ASSERT_EQ(solved, itemsBelow(items)) << "problem " << i;
    }
}

TEST_P(ZyAbstractParallelProblemStress, EveryProblemCanBeStoppedAtAnyTimeAndRepeatsNothing)
{
    Sizes sizes(GetParam() + 400);
    for (int i = 0; i < problemsPerTest / 4; ++i) {
        unsigned int const items = sizes.items();
        CountingProblem problem(sizes.threads(), items);
        problem.start({});
        linger(sizes.mode(20));
        problem.stopWorkers();
        auto const solved = problem.solved();
        ASSERT_TRUE(std::adjacent_find(solved.begin(), solved.end()) == solved.end()) << "problem " << i;
        ASSERT_TRUE(solved.empty() || solved.back() < items) << "problem " << i;
    }
}

// Without a name, so that the suite keeps its own.
INSTANTIATE_TEST_SUITE_P(, ZyAbstractParallelProblemStress, testing::Range(0U, 8U));
