// SPDX-License-Identifier: BSD-3-Clause
// Which runs an analysis has, and which values each of them takes.
#pragma once

#include "Network.h"

#include <ZyTypes.h>

#include <QString>

#include <cstdint>
#include <vector>

/** What an analysis varies. */
enum class Mode {
    MonteCarlo, ///< all components at random within their tolerances
    WorstCase,  ///< all components at an end of their tolerances
    Sensitivity ///< one component after the other by a small step
};

/** The most runs that an analysis can have. */
constexpr unsigned int mostRuns = 1000000;

/** One run: everything that is needed to compute it. */
struct Run
{
    unsigned int number = 1; ///< case number; 1 is the nominal run
    ZyString name;           ///< list of keys from which the label is made: "Refdes:R1/DevParam:res"
    std::int64_t seed = 0;
    bool isRandom = false;            ///< whether the seed has been used
    std::vector<std::size_t> changed; ///< the components whose values the run varies
    Values values;
};

/**
 * All runs of an analysis. A run is a function of its number, the seed and the circuit alone: it comes out
 * the same whoever computes it, in whatever order, and alone.
 *
 * \threads any, several at a time
 */
class Plan
{
public:
    /**
     * \param circuit on loan
     * \param runs 0: as many as the mode has; otherwise the number of runs, the nominal one included
     * \throws AnalysisError the mode cannot have that many, or no component has a tolerance
     */
    Plan(Circuit const & circuit, Mode mode, unsigned int runs, std::uint64_t seed);

    unsigned int count() const { return m_count; }
    Mode mode() const { return m_mode; }
    /** \param number from 1 to count() */
    Run run(unsigned int number) const;

private:
    void planCorners(unsigned int runs);
    std::int64_t seedOf(unsigned int number) const;
    Run randomRun(Run run) const;
    Run cornerRun(Run run) const;
    Run stepRun(Run run) const;

    Circuit const & m_circuit;
    Mode m_mode;
    std::uint64_t m_seed;
    std::vector<std::size_t> m_varied; ///< the components that vary
    unsigned int m_count = 0;
    bool m_allCorners = false; ///< of a worst case: every combination, not some at random
};
