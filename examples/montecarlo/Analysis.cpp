// SPDX-License-Identifier: BSD-3-Clause
// The source of case numbers, the workers and what is gathered from them.

#include "Analysis.h"

#include "AnalysisError.h"
#include "ProcessorTime.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

// One form of "not a number" for all: it is written to files bit by bit.
double figureOf(Response & response, MeritFunction const & merit)
{
    double const figure = response.evaluate(merit);
    return std::isnan(figure) ? std::numeric_limits<double>::quiet_NaN() : figure;
}

} // namespace

void Envelope::include(std::vector<double> const & low, std::vector<double> const & high)
{
    if (lowest.empty()) {
        lowest = low;
        highest = high;
        return;
    }
    for (std::size_t i = 0; i < low.size(); ++i) {
        lowest[i] = std::min(lowest[i], low[i]);
        highest[i] = std::max(highest[i], high[i]);
    }
}

void checkNominal(Circuit const & circuit)
{
    Network network(circuit);
    network.checkSolvable(circuit.sweep.from);
    network.checkSolvable(circuit.sweep.to);
    std::vector<double> const frequencies = frequenciesOf(circuit.sweep);
    Response response(network, frequencies);
    response.sweep();
    for (MeritFunction const & merit : circuit.merits) {
        if (kindOf(merit).hasReference) {
            network.checkSolvable(merit.reference);
        }
        if (!std::isfinite(response.evaluate(merit))) {
            throw AnalysisError::At(merit.name,
                                    QStringLiteral("the nominal circuit has no such place within the sweep"));
        }
    }
}

void Analysis::Source::prepare(unsigned int threads)
{
    m_current = std::vector<Slot>(threads);
}

// Claims beyond the last number do no harm: each worker makes at most one.
bool Analysis::Source::next(unsigned int thread)
{
    if (m_isStopped || m_taken.load() >= m_count) {
        return false;
    }
    unsigned int const taken = m_taken.fetch_add(1);
    m_current[thread].item = taken + 1;
    return taken < m_count;
}

Analysis::Analysis(Circuit const & circuit, Plan const & plan, unsigned int threads)
    : ZyAbstractParallelProblem(threads), m_circuit(circuit), m_plan(plan),
      m_frequencies(frequenciesOf(circuit.sweep)), m_places(plan.count()), m_source(plan.count())
{}

ZyUniquePtr<ZyAbstractParallelProblem::ThreadMemory> Analysis::createThreadMemory()
{
    try {
        return ZyUniquePtr<ThreadMemory>(new Memory(m_circuit, m_frequencies));
    } catch (std::exception const & error) {
        m_failure = QString::fromUtf8(error.what());
        stop();
        return ZyUniquePtr<ThreadMemory>();
    }
}

// No exception may leave this function: it is kept for the thread that waits.
void Analysis::solve(Item item, ThreadMemory & memory)
{
    Memory & own = static_cast<Memory &>(memory);
    double const begin = threadSeconds();
    try {
        solveRun(item, own);
    } catch (ZyException const & error) {
        own.failure = error.message().toQString();
        stop();
    } catch (std::exception const & error) {
        own.failure = QString::fromUtf8(error.what());
        stop();
    }
    own.seconds += threadSeconds() - begin;
}

void Analysis::solveRun(unsigned int number, Memory & memory)
{
    Place & place = m_places[number - 1];
    place.result.run = m_plan.run(number);
    memory.network.setValues(place.result.run.values);
    memory.response.sweep();
    memory.envelope.include(memory.response.powers(), memory.response.powers());
    for (MeritFunction const & merit : m_circuit.merits) {
        place.result.figures.push_back(figureOf(memory.response, merit));
    }
    place.isThere = true;
    ++m_done;
}

// The promise is shared: should this function be left early, the end comes while the analysis is destroyed.
void Analysis::solveAll(std::function<void()> const & lookIn)
{
    constexpr std::chrono::milliseconds pause(50);
    auto const ended = std::make_shared<std::promise<void>>();
    std::future<void> const end = ended->get_future();
    auto const begin = std::chrono::steady_clock::now();
    start([ended](ZyAbstractParallelProblem *) { ended->set_value(); });
    while (end.wait_for(pause) == std::future_status::timeout && status() < Finished) {
        checkBegun(begin);
        lookIn();
    }
    lookIn();
    checkFailures();
}

// A problem that gets no thread from the system tells nobody. Threads that it has take a run at once.
void Analysis::checkBegun(std::chrono::steady_clock::time_point begin) const
{
    constexpr std::chrono::seconds patience(30);
    if (!m_source.hasBegun() && std::chrono::steady_clock::now() - begin > patience) {
        throw AnalysisError::Usage(QStringLiteral("the system has no thread left"));
    }
}

void Analysis::checkFailures() const
{
    if (!m_failure.isEmpty()) {
        throw AnalysisError::Usage(m_failure);
    }
    forEachResult([](ThreadMemory const & memory) {
        QString const & failure = static_cast<Memory const &>(memory).failure;
        if (!failure.isEmpty()) {
            throw AnalysisError::Usage(failure);
        }
    });
}

RunResult const * Analysis::result(unsigned int number) const
{
    Place const & place = m_places[number - 1];
    return place.isThere ? &place.result : nullptr;
}

std::vector<RunResult const *> Analysis::results() const
{
    std::vector<RunResult const *> all;
    for (unsigned int number = 1; number <= m_plan.count(); ++number) {
        if (RunResult const * const one = result(number)) {
            all.push_back(one);
        }
    }
    return all;
}

Envelope Analysis::envelope() const
{
    Envelope all;
    forEachResult([&all](ThreadMemory const & memory) {
        Envelope const & one = static_cast<Memory const &>(memory).envelope;
        if (!one.lowest.empty()) {
            all.include(one.lowest, one.highest);
        }
    });
    return all;
}

double Analysis::solverSeconds() const
{
    double seconds = 0;
    forEachResult(
        [&seconds](ThreadMemory const & memory) { seconds += static_cast<Memory const &>(memory).seconds; });
    return seconds;
}
