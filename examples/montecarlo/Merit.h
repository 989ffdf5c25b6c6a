// SPDX-License-Identifier: BSD-3-Clause
// The response of a circuit over its sweep, and the figures taken from it.
#pragma once

#include "Network.h"

/** The frequencies of a sweep, Hz, ascending; its ends are among them. */
std::vector<double> frequenciesOf(Sweep const & sweep);

/** The gain H of a circuit at each frequency of its sweep and its power |H|^2, and more of them on demand. */
class Response
{
public:
    /** \param network, frequencies on loan for the life of the response */
    Response(Network & network, std::vector<double> const & frequencies);

    /** Walks over all frequencies with the present values of the network. */
    void sweep();
    std::vector<double> const & powers() const { return m_powers; }

    /**
     * The figure for the present values, as told at MeritFunction::Kind.
     * \return not a number when the response has no such place within the sweep
     */
    double evaluate(MeritFunction const & merit);

private:
    double powerAt(double frequency);
    double cutOff(double reference);
    double halfPower(std::size_t place, double half, int step);
    double resonanceQ(double reference);
    double notchQ(double reference);
    std::size_t lowest() const;
    double extreme(std::size_t place, double sign, bool wantsFrequency);
    template <class Function>
    double root(Function const & function, double low, double high);

    Network & m_network;
    std::vector<double> const & m_frequencies;
    std::vector<std::complex<double>> m_samples;
    std::vector<double> m_powers;
};
