// SPDX-License-Identifier: BSD-3-Clause
// Seeds, draws, corners and steps.

#include "Plan.h"

#include "AnalysisError.h"
#include "Elementary.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace
{

constexpr unsigned int usualMonteCarloRuns = 1000;
constexpr unsigned int mostCornersUnasked = 4096;
constexpr double stepPercent = 1;

/** The finaliser of splitmix64: neighbouring numbers become unrelated ones, and no two become the same. */
std::uint64_t mixed(std::uint64_t number)
{
    number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9ULL;
    number = (number ^ (number >> 27)) * 0x94D049BB133111EBULL;
    return number ^ (number >> 31);
}

/** Draws that are the same on every system; the distributions of the standard libraries are not. */
class Draw
{
public:
    explicit Draw(std::int64_t seed) : m_engine(static_cast<std::uint64_t>(seed)) {}

    /** At least 0, below 1. */
    double unit() { return double(m_engine() >> 11) * 0x1p-53; }
    bool coin() { return (m_engine() >> 63) != 0; }
    /** Within -1 and 1. */
    double deviation(Distribution distribution)
    {
        return distribution == Distribution::Uniform ? 2 * unit() - 1 : gauss();
    }

private:
    // Box and Muller; a third is one standard deviation, and what lies beyond three is drawn again.
    double gauss()
    {
        for (;;) {
            double const radius = std::sqrt(-2 * naturalLogarithm(1 - unit()));
            double const value = radius * cosineOfTurns(unit()) / 3;
            if (std::abs(value) <= 1) {
                return value;
            }
        }
    }

    std::mt19937_64 m_engine;
};

double varied(Component const & component, double deviation)
{
    return component.value * (1 + component.tolerance / 100 * deviation);
}

} // namespace

Plan::Plan(Circuit const & circuit, Mode mode, unsigned int runs, std::uint64_t seed)
    : m_circuit(circuit), m_mode(mode), m_seed(seed)
{
    for (std::size_t i = 0; i < circuit.components.size(); ++i) {
        Component const & component = circuit.components[i];
        bool const varies =
            mode == Mode::Sensitivity ? kindOf(component).parameter != nullptr : component.tolerance > 0;
        if (varies) {
            m_varied.push_back(i);
        }
    }
    if (m_varied.empty()) {
        throw AnalysisError::Usage(QStringLiteral("no component of the circuit has a tolerance"));
    }
    switch (mode) {
    case Mode::MonteCarlo:
        m_count = runs == 0 ? usualMonteCarloRuns : runs;
        break;
    case Mode::WorstCase:
        planCorners(runs);
        break;
    case Mode::Sensitivity:
        m_count = unsigned(m_varied.size()) + 1;
        if (runs != 0) {
            throw AnalysisError::Usage(
                QStringLiteral("--runs does not go with sensitivity, which has a run for each component"));
        }
    }
}

void Plan::planCorners(unsigned int runs)
{
    bool const isSmall = m_varied.size() < 20;
    unsigned int const corners = isSmall ? 1U << m_varied.size() : mostRuns;
    m_count = runs != 0 ? runs : 1 + std::min(corners, mostCornersUnasked);
    m_allCorners = isSmall && m_count > corners;
    if (m_allCorners) {
        m_count = corners + 1;
    }
}

Run Plan::run(unsigned int number) const
{
    Run run;
    run.number = number;
    run.seed = seedOf(number);
    run.values = nominalValues(m_circuit);
    if (m_mode != Mode::Sensitivity) {
        run.changed = m_varied;
    }
    if (number == 1) {
        run.name = "Param:nominal";
        return run;
    }
    switch (m_mode) {
    case Mode::MonteCarlo:
        return randomRun(std::move(run));
    case Mode::WorstCase:
        return cornerRun(std::move(run));
    case Mode::Sensitivity:
        return stepRun(std::move(run));
    }
    return run;
}

std::int64_t Plan::seedOf(unsigned int number) const
{
    return static_cast<std::int64_t>(mixed(m_seed + number * 0x9E3779B97F4A7C15ULL));
}

Run Plan::randomRun(Run run) const
{
    Draw draw(run.seed);
    for (std::size_t const i : m_varied) {
        run.values[i] = varied(m_circuit.components[i], draw.deviation(m_circuit.components[i].distribution));
    }
    run.name = ZyString("Param:sample ") + ZyString(int(run.number));
    run.isRandom = true;
    return run;
}

// With all corners, the bits of the number tell which components are at the upper end of their tolerance.
Run Plan::cornerRun(Run run) const
{
    Draw draw(run.seed);
    std::string name = "Param:corner";
    for (std::size_t bit = 0; bit < m_varied.size(); ++bit) {
        Component const & component = m_circuit.components[m_varied[bit]];
        bool const isUp = m_allCorners ? ((run.number - 2) >> bit & 1U) != 0 : draw.coin();
        run.values[m_varied[bit]] = varied(component, isUp ? 1 : -1);
        name += ' ' + component.name.toStdString() + (isUp ? '+' : '-');
    }
    // Corners at random can come twice; the case tells them apart.
    run.name = ZyString(m_allCorners ? name : name + "/Case:" + std::to_string(run.number));
    run.isRandom = !m_allCorners;
    return run;
}

Run Plan::stepRun(Run run) const
{
    std::size_t const i = m_varied[run.number - 2];
    Component const & component = m_circuit.components[i];
    run.values[i] = component.value * (1 + stepPercent / 100);
    run.changed = {i};
    run.name = ZyString("Refdes:") + component.name + ZyString("/DevParam:") + kindOf(component).parameter;
    return run;
}
