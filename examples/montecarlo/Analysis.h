// SPDX-License-Identifier: BSD-3-Clause
// All runs of a plan, solved by several threads.
#pragma once

#include "Merit.h"
#include "Plan.h"

#include <ZyAbstractParallelProblem.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <vector>

/** A run and what came out: a figure for each merit function, not a number where the run has none. */
struct RunResult
{
    Run run;
    std::vector<double> figures;
};

/** Of all runs: the lowest and the highest power at each frequency of the sweep. */
struct Envelope
{
    std::vector<double> lowest;
    std::vector<double> highest;

    /** Makes room for the powers of one more run, or of other runs. */
    void include(std::vector<double> const & low, std::vector<double> const & high);
};

/**
 * Solves one run.
 * \throws AnalysisError the nominal circuit has no single solution, or lacks a place that a merit function asks for
 */
void checkNominal(Circuit const & circuit);

/**
 * The runs of a plan as items of a parallel problem; the item is the case number. What a run gives depends on
 * its number alone, so the results are the same for any number of threads.
 */
class Analysis final : public ZyAbstractParallelProblem
{
public:
    /** \param circuit, plan on loan */
    Analysis(Circuit const & circuit, Plan const & plan, unsigned int threads);
    Analysis(Analysis const &) = delete;
    Analysis & operator=(Analysis const &) = delete;
    ~Analysis() override { stopWorkers(); }

    /**
     * Solves all runs, and calls \a lookIn on this thread several times a second meanwhile.
     * \throws AnalysisError a run could not be solved for want of memory, say
     */
    void solveAll(std::function<void()> const & lookIn);
    /** Hands out no more runs; those under way are finished. \threads any */
    void stop() { m_source.stop(); }

    /** How many runs there are. */
    unsigned int count() const { return m_plan.count(); }
    /** How many runs have been solved so far. \threads any */
    unsigned int done() const { return m_done.load(); }
    /** The result of a run; null as long as it has none. \param number from 1 \threads any */
    RunResult const * result(unsigned int number) const;

    // After the end:
    /** All results that there are, in the order of their numbers. */
    std::vector<RunResult const *> results() const;
    Envelope envelope() const;
    /** Processor time spent on solving. */
    double solverSeconds() const;

    ZyUniquePtr<ThreadMemory> createThreadMemory() override;
    WorkSource const & workSource() const override { return m_source; }
    WorkSource & workSource() override { return m_source; }
    void solve(Item item, ThreadMemory & memory) override;

private:
    /** Case numbers, one after the other. */
    class Source final : public WorkSource
    {
    public:
        explicit Source(unsigned int count) : m_count(count) {}
        void stop() { m_isStopped = true; }
        bool hasBegun() const { return m_taken != 0 || m_isStopped; }
        void prepare(unsigned int threads) override;
        bool next(unsigned int thread) override;
        Item current(unsigned int thread) override { return m_current[thread].item; }
        bool pending() override { return false; }

    private:
        struct alignas(128) Slot
        {
            Item item = 0;
        };
        unsigned int m_count;
        std::atomic<unsigned int> m_taken{0};
        std::atomic<bool> m_isStopped{false};
        std::vector<Slot> m_current;
    };

    /** What a worker has for itself. */
    struct Memory final : ThreadMemory
    {
        Memory(Circuit const & circuit, std::vector<double> const & frequencies)
            : network(circuit), response(network, frequencies)
        {}
        Memory(Memory const &) = delete;
        Memory & operator=(Memory const &) = delete;

        Network network;
        Response response;
        Envelope envelope;
        double seconds = 0;
        QString failure;
    };

    /** The place of a result; it may be read by others once it is there. */
    struct Place
    {
        RunResult result;
        std::atomic<bool> isThere{false};
    };

    void solveRun(unsigned int number, Memory & memory);
    void checkBegun(std::chrono::steady_clock::time_point begin) const;
    void checkFailures() const;

    Circuit const & m_circuit;
    Plan const & m_plan;
    std::vector<double> m_frequencies;
    std::vector<Place> m_places;
    std::atomic<unsigned int> m_done{0};
    Source m_source;
    QString m_failure; ///< of making the memories; written before the first worker begins
};
