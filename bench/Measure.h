// SPDX-License-Identifier: BSD-3-Clause
// How the benchmarks measure: small operations in a loop inside the process, whole jobs in a fresh child
// each, where the processor time and the peak memory are those of the job alone.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <utility>

namespace bench
{

/**
 * Registers a job of seconds: one run a repetition, in a child; reports processor time and the counter
 * "peak_MiB". Unmeasured are \a prepare, which runs before it and in this process, and \a verify, which runs
 * behind it in the child.
 */
void addJob(
    std::string const & name, std::function<void()> job, std::function<void()> prepare = [] {},
    std::function<void()> verify = [] {});

/**
 * Registers a small operation. \a round does it \a operations times and returns something made from all the
 * results, so that none of them can be left out.
 */
template <class Round>
benchmark::internal::Benchmark * addLoop(std::string const & name, unsigned operations, Round round)
{
    return benchmark::RegisterBenchmark(name.c_str(), [operations, round](benchmark::State & state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(round());
        }
        state.SetItemsProcessed(state.iterations() * operations);
    });
}

/** The same by the clock: for operations of several threads, where the time of one processor says nothing. */
template <class Round>
void addClockedLoop(std::string const & name, unsigned operations, Round round)
{
    addLoop(name, operations, std::move(round))->UseRealTime();
}

/** Throws std::runtime_error with \a what unless \a good: a job that has not done its work has no time. */
void check(bool good, char const * what);

/** Where a benchmark keeps a file: in the directory that ZYCORE_BENCH_DATA names, or in bench-data. */
std::string dataFile(std::string const & leaf);

/** Each program defines this: registers what it measures, named family/workload/contender. */
void registerBenchmarks();

} // namespace bench
