// SPDX-License-Identifier: BSD-3-Clause
// Children with their own heap, what they cost, and the main function of all benchmark programs.
#include "Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include <ZyException.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench
{

namespace
{

struct Job
{
    std::function<void()> run;
    std::function<void()> prepare;
    std::function<void()> verify;
};

/** What the child sends: plain bytes through a pipe. */
struct Report
{
    double cpuSeconds;
    double wallSeconds;
    double peakMiB;
    char error[232];
};

double seconds(timeval const & time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

rusage usageOf(int who)
{
    rusage usage;
    getrusage(who, &usage);
    return usage;
}

/** Of this process and of the programs that it has waited for. */
double cpuNow()
{
    double total = 0;
    for (int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage const usage = usageOf(who);
        total += seconds(usage.ru_utime) + seconds(usage.ru_stime);
    }
    return total;
}

double peakNow()
{
    long const peakKiB = std::max(usageOf(RUSAGE_SELF).ru_maxrss, usageOf(RUSAGE_CHILDREN).ru_maxrss);
    return double(peakKiB) / 1024.0;
}

void setError(Report & report, char const * text)
{
    std::snprintf(report.error, sizeof report.error, "%s", text);
}

Report runHere(Job const & job)
{
    Report report{};
    double const cpu = cpuNow();
    auto const wall = std::chrono::steady_clock::now();
    try {
        job.run();
        report.wallSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - wall).count();
        report.cpuSeconds = cpuNow() - cpu;
        report.peakMiB = peakNow();
        job.verify();
    } catch (ZyException const & e) {
        setError(report, e.what());
    } catch (std::exception const & e) {
        setError(report, e.what());
    }
    return report;
}

Report runForked(Job const & job)
{
    Report report{};
    setError(report, "the child has died");
    int ends[2];
    if (pipe(ends) != 0) {
        std::abort();
    }
    std::fflush(nullptr);
    pid_t const child = fork();
    if (child == 0) {
        report = runHere(job);
        ssize_t const sent = write(ends[1], &report, sizeof report);
        _exit(sent == ssize_t(sizeof report) ? 0 : 1);
    }
    close(ends[1]);
    Report received;
    if (child > 0 && read(ends[0], &received, sizeof received) == ssize_t(sizeof received)) {
        report = received;
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return report;
}

void measure(benchmark::State & state, Job const & job)
{
    for (auto _ : state) {
        job.prepare();
        double const empty = runForked(Job{[] {}, [] {}, [] {}}).peakMiB;
        Report const report = runForked(job);
        if (report.error[0] != 0) {
            state.SkipWithError(report.error);
            break;
        }
        state.SetIterationTime(report.cpuSeconds);
        state.counters["peak_MiB"] = report.peakMiB - empty;
        state.counters["wall_ms"] = report.wallSeconds * 1e3;
    }
}

} // namespace

void addJob(std::string const & name, std::function<void()> job, std::function<void()> prepare,
            std::function<void()> verify)
{
    Job const parts{std::move(job), std::move(prepare), std::move(verify)};
    benchmark::RegisterBenchmark(name.c_str(), [parts](benchmark::State & state) { measure(state, parts); })
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

void check(bool good, char const * what)
{
    if (!good) {
        throw std::runtime_error(what);
    }
}

std::string dataFile(std::string const & leaf)
{
    char const * const named = std::getenv("ZYCORE_BENCH_DATA");
    std::filesystem::path const directory =
        std::filesystem::absolute(named != nullptr ? named : "bench-data");
    std::filesystem::create_directories(directory);
    return (directory / leaf).string();
}

} // namespace bench

int main(int argc, char ** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    bench::registerBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
