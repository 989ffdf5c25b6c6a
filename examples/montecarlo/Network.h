// SPDX-License-Identifier: BSD-3-Clause
// The equations of a circuit: modified nodal analysis.
#pragma once

#include "Circuit.h"

#include <Eigen/Dense>

#include <complex>
#include <vector>

/** One value for each component, in the order of the document; those without a value have any. */
using Values = std::vector<double>;

/** The values that the document gives. */
Values nominalValues(Circuit const & circuit);

/**
 * The equations of one circuit for changing values and frequencies.
 *
 * The unknowns are the voltages of the nodes and the currents of those components that have one of their own.
 * With s = j 2 pi f the equations are (G + s C) x = b: G and C are made once for each set of values, the sum
 * and its factors once for each frequency. Nothing is allocated after construction.
 *
 * \threads one thread at a time; each thread has its own
 */
class Network
{
public:
    /** \param circuit on loan for the life of the network; checkCircuit() has passed it */
    explicit Network(Circuit const & circuit);

    void setValues(Values const & values);
    /** The output over the input at a frequency in Hz; not finite where the equations have no solution. */
    std::complex<double> transfer(double frequency);
    /** The number of unknowns. */
    Eigen::Index size() const { return m_real.rows(); }

    /**
     * Asks whether the equations have one solution for the present values.
     * \throws AnalysisError they have not; the message begins with the name of a component that is part of the reason
     */
    void checkSolvable(double frequency) const;

private:
    /** A component with the numbers of its unknowns; -1 is the ground. */
    struct Placed
    {
        Component::Kind kind;
        Eigen::Index plus;
        Eigen::Index minus;
        Eigen::Index controlPlus;
        Eigen::Index controlMinus;
        Eigen::Index current; ///< of its own
        Eigen::Index control; ///< the current that controls it
    };

    Eigen::Index node(ZyString const & name) const;
    Placed placed(Component const & component) const;
    void add(Eigen::MatrixXd & matrix, Eigen::Index row, Eigen::Index column, double value);
    void addBetween(Eigen::MatrixXd & matrix, Placed const & at, double value);
    void addBranch(Placed const & at);
    void stamp(Placed const & at, double value);
    ZyString culprit(Eigen::Index equation) const;

    Circuit const & m_circuit;
    std::vector<Placed> m_placed;
    std::vector<Eigen::Index> m_currents; ///< of each component; -1: it has none
    Eigen::Index m_output;
    Eigen::MatrixXd m_real;      ///< G
    Eigen::MatrixXd m_imaginary; ///< C
    Eigen::VectorXcd m_input;    ///< b
    Eigen::MatrixXcd m_sum;
    Eigen::VectorXcd m_solution;
    Eigen::PartialPivLU<Eigen::MatrixXcd> m_factors;
};
