// SPDX-License-Identifier: BSD-3-Clause
// From samples to places: bisection for crossings, golden section for peaks and notches.
//
// The samples of the sweep tell between which two of them a place lies; from there on the circuit is solved
// anew at each step, so the figures do not depend on how fine the sweep is.

#include "Merit.h"

#include "Elementary.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double notFound = std::numeric_limits<double>::quiet_NaN();

double decibels(double power)
{
    return 10 * commonLogarithm(power);
}

} // namespace

std::vector<double> frequenciesOf(Sweep const & sweep)
{
    double const decades = commonLogarithm(sweep.to / sweep.from);
    int const steps = std::max(1, int(std::ceil(decades * sweep.pointsPerDecade - 1e-9)));
    std::vector<double> frequencies;
    frequencies.reserve(static_cast<std::size_t>(steps) + 1);
    for (int i = 0; i < steps; ++i) {
        frequencies.push_back(sweep.from * powerOfTen(decades * i / steps));
    }
    frequencies.push_back(sweep.to);
    return frequencies;
}

Response::Response(Network & network, std::vector<double> const & frequencies)
    : m_network(network), m_frequencies(frequencies), m_samples(frequencies.size()),
      m_powers(frequencies.size())
{}

void Response::sweep()
{
    for (std::size_t i = 0; i < m_frequencies.size(); ++i) {
        m_samples[i] = m_network.transfer(m_frequencies[i]);
        m_powers[i] = std::norm(m_samples[i]);
    }
}

double Response::powerAt(double frequency)
{
    return std::norm(m_network.transfer(frequency));
}

double Response::evaluate(MeritFunction const & merit)
{
    using Kind = MeritFunction::Kind;
    switch (merit.kind) {
    case Kind::CutOff:
        return cutOff(merit.reference);
    case Kind::PeakGain: {
        auto const highest = std::max_element(m_powers.begin(), m_powers.end()) - m_powers.begin();
        return decibels(extreme(std::size_t(highest), -1, false));
    }
    case Kind::GainAt:
        return decibels(powerAt(merit.frequency));
    case Kind::ResonanceQ:
        return resonanceQ(merit.reference);
    case Kind::NotchFrequency:
        return extreme(lowest(), 1, true);
    case Kind::NotchDepth:
        return decibels(extreme(lowest(), 1, false));
    case Kind::NotchQ:
        return notchQ(merit.reference);
    }
    return notFound;
}

std::size_t Response::lowest() const
{
    return std::size_t(std::min_element(m_powers.begin(), m_powers.end()) - m_powers.begin());
}

/** Where a function that changes its sign between two frequencies does so, to the last digits of a double. */
template <class Function>
double Response::root(Function const & function, double low, double high)
{
    bool const rises = function(low) < 0;
    for (double middle = std::sqrt(low * high); low < middle && middle < high;
         middle = std::sqrt(low * high)) {
        ((function(middle) < 0) == rises ? low : high) = middle;
    }
    return low;
}

// Goes from a sample in steps of 1 or -1 (one beyond either end is no place) until the power has fallen
// below, or risen above, its bound.
double Response::halfPower(std::size_t place, double half, int step)
{
    bool const isAbove = m_powers[place] > half;
    for (std::size_t next = place + std::size_t(step); next < m_powers.size(); next += std::size_t(step)) {
        if ((m_powers[next] > half) != isAbove) {
            std::size_t const before = next - std::size_t(step);
            return root([&](double frequency) { return powerAt(frequency) - half; },
                        m_frequencies[std::min(before, next)], m_frequencies[std::max(before, next)]);
        }
    }
    return notFound;
}

double Response::cutOff(double reference)
{
    double const half = powerAt(reference) / 2;
    auto const above = std::lower_bound(m_frequencies.begin(), m_frequencies.end(), reference);
    bool const isBeyond = above == m_frequencies.end();
    std::size_t const start =
        isBeyond ? m_frequencies.size() - 1 : std::size_t(above - m_frequencies.begin());
    return m_powers[start] > half ? halfPower(start, half, isBeyond ? -1 : 1) : notFound;
}

// Where the output lags the reference by a right angle, its part in phase with the reference becomes
// negative.
double Response::resonanceQ(double reference)
{
    std::complex<double> const passed = m_network.transfer(reference);
    auto const inPhase = [&](std::complex<double> gain) { return std::real(gain * std::conj(passed)); };
    for (std::size_t i = 1; i < m_frequencies.size(); ++i) {
        if (inPhase(m_samples[i]) <= 0) {
            double const resonance =
                root([&](double frequency) { return inPhase(m_network.transfer(frequency)); },
                     m_frequencies[i - 1], m_frequencies[i]);
            return std::sqrt(powerAt(resonance) / std::norm(passed));
        }
    }
    return notFound;
}

double Response::notchQ(double reference)
{
    double const half = powerAt(reference) / 2;
    std::size_t const place = lowest();
    if (!(m_powers[place] < half)) {
        return notFound;
    }
    double const width = halfPower(place, half, 1) - halfPower(place, half, -1);
    return extreme(place, 1, true) / width;
}

// Golden section on a logarithmic scale between the neighbours of a sample; sign -1 looks for the highest
// power.
double Response::extreme(std::size_t place, double sign, bool wantsFrequency)
{
    std::size_t const last = m_frequencies.size() - 1;
    if (place == 0 || place == last) {
        return wantsFrequency ? notFound : m_powers[place];
    }
    double const section = (std::sqrt(5.0) - 1) / 2;
    double low = naturalLogarithm(m_frequencies[place - 1]);
    double high = naturalLogarithm(m_frequencies[place + 1]);
    double left = high - section * (high - low);
    double right = low + section * (high - low);
    double leftPower = sign * powerAt(exponential(left));
    double rightPower = sign * powerAt(exponential(right));
    while (high - low > 1e-9) {
        if (leftPower < rightPower) {
            high = right;
            right = left;
            rightPower = leftPower;
            left = high - section * (high - low);
            leftPower = sign * powerAt(exponential(left));
        } else {
            low = left;
            left = right;
            leftPower = rightPower;
            right = low + section * (high - low);
            rightPower = sign * powerAt(exponential(right));
        }
    }
    return wantsFrequency ? exponential((low + high) / 2) : sign * std::min(leftPower, rightPower);
}
