// SPDX-License-Identifier: BSD-3-Clause
// Stamps of the components, factors and solutions.

#include "Network.h"

#include "AnalysisError.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double twoPi = 6.283185307179586476925286766559;

// Rows and columns of about the same size, so that a small pivot means something.
void equilibrate(Eigen::MatrixXcd & matrix)
{
    for (int round = 0; round < 4; ++round) {
        for (Eigen::Index i = 0; i < matrix.rows(); ++i) {
            double const row = matrix.row(i).cwiseAbs().maxCoeff();
            matrix.row(i) /= row > 0 ? std::sqrt(row) : 1;
            double const column = matrix.col(i).cwiseAbs().maxCoeff();
            matrix.col(i) /= column > 0 ? std::sqrt(column) : 1;
        }
    }
}

} // namespace

Values nominalValues(Circuit const & circuit)
{
    Values values;
    for (Component const & component : circuit.components) {
        values.push_back(component.value);
    }
    return values;
}

Network::Network(Circuit const & circuit) : m_circuit(circuit)
{
    auto const nodes = static_cast<Eigen::Index>(circuit.nodes.size());
    Eigen::Index size = nodes;
    for (Component const & component : circuit.components) {
        m_currents.push_back(kindOf(component).hasCurrent ? size++ : -1);
    }
    m_real.resize(size, size);
    m_imaginary.resize(size, size);
    m_sum.resize(size, size);
    m_input.setZero(size);
    m_solution.setZero(size);
    m_factors = Eigen::PartialPivLU<Eigen::MatrixXcd>(size);
    for (Component const & component : circuit.components) {
        m_placed.push_back(placed(component));
    }
    m_output = node(circuit.output);
    setValues(nominalValues(circuit));
}

Eigen::Index Network::node(ZyString const & name) const
{
    auto const found = std::find_if(m_circuit.nodes.begin(), m_circuit.nodes.end(),
                                    [&](Node const & other) { return other.name == name; });
    return found == m_circuit.nodes.end() ? -1 : found - m_circuit.nodes.begin();
}

Network::Placed Network::placed(Component const & component) const
{
    std::size_t const own = m_placed.size();
    auto const control =
        std::find_if(m_circuit.components.begin(), m_circuit.components.end(),
                     [&](Component const & other) { return other.name == component.control; });
    auto const controlPlace = static_cast<std::size_t>(control - m_circuit.components.begin());
    bool const isControlled = kindOf(component).controlledByCurrent;
    return {component.kind,
            node(component.plus),
            node(component.minus),
            node(component.controlPlus),
            node(component.controlMinus),
            m_currents[own],
            isControlled ? m_currents.at(controlPlace) : -1};
}

void Network::add(Eigen::MatrixXd & matrix, Eigen::Index row, Eigen::Index column, double value)
{
    if (row >= 0 && column >= 0) {
        matrix(row, column) += value;
    }
}

void Network::addBetween(Eigen::MatrixXd & matrix, Placed const & at, double value)
{
    add(matrix, at.plus, at.plus, value);
    add(matrix, at.minus, at.minus, value);
    add(matrix, at.plus, at.minus, -value);
    add(matrix, at.minus, at.plus, -value);
}

// The current of the component leaves its plus node and enters its minus node; its own row tells its voltage.
void Network::addBranch(Placed const & at)
{
    add(m_real, at.plus, at.current, 1);
    add(m_real, at.minus, at.current, -1);
    add(m_real, at.current, at.plus, 1);
    add(m_real, at.current, at.minus, -1);
}

void Network::stamp(Placed const & at, double value)
{
    using Kind = Component::Kind;
    if (at.current >= 0) {
        addBranch(at);
    }
    switch (at.kind) {
    case Kind::Resistor:
        return addBetween(m_real, at, 1 / value);
    case Kind::Capacitor:
        return addBetween(m_imaginary, at, value);
    case Kind::Inductor:
        return add(m_imaginary, at.current, at.current, -value);
    case Kind::Vcvs:
        add(m_real, at.current, at.controlPlus, -value);
        return add(m_real, at.current, at.controlMinus, value);
    case Kind::Vccs:
        add(m_real, at.plus, at.controlPlus, value);
        add(m_real, at.plus, at.controlMinus, -value);
        add(m_real, at.minus, at.controlPlus, -value);
        return add(m_real, at.minus, at.controlMinus, value);
    case Kind::Ccvs:
        return add(m_real, at.current, at.control, -value);
    case Kind::Cccs:
        add(m_real, at.plus, at.control, value);
        return add(m_real, at.minus, at.control, -value);
    case Kind::Ammeter:
        return;
    case Kind::VoltageSource:
        m_input(at.current) = 1;
        return;
    case Kind::CurrentSource:
        if (at.plus >= 0) {
            m_input(at.plus) = -1;
        }
        if (at.minus >= 0) {
            m_input(at.minus) = 1;
        }
        return;
    }
}

void Network::setValues(Values const & values)
{
    m_real.setZero();
    m_imaginary.setZero();
    for (std::size_t i = 0; i < m_placed.size(); ++i) {
        stamp(m_placed[i], values[i]);
    }
}

std::complex<double> Network::transfer(double frequency)
{
    if (m_output < 0) {
        return 0;
    }
    m_sum.real() = m_real;
    m_sum.imag() = twoPi * frequency * m_imaginary;
    m_factors.compute(m_sum);
    m_solution = m_factors.solve(m_input);
    return m_solution(m_output);
}

// Whose equation it is: that of a current belongs to its owner, that of a node to the first component there.
ZyString Network::culprit(Eigen::Index equation) const
{
    for (std::size_t i = 0; i < m_placed.size(); ++i) {
        Placed const & at = m_placed[i];
        if (at.current == equation || at.plus == equation || at.minus == equation) {
            return m_circuit.components[i].name;
        }
    }
    return m_circuit.title;
}

void Network::checkSolvable(double frequency) const
{
    Eigen::MatrixXcd matrix = m_real.cast<std::complex<double>>();
    matrix.imag() = twoPi * frequency * m_imaginary;
    equilibrate(matrix);
    // An equation that follows from others, or contradicts them, shows in a solution of the transposed
    // equations.
    Eigen::FullPivLU<Eigen::MatrixXcd> factors(matrix.transpose());
    factors.setThreshold(1e-13);
    if (!factors.isInvertible()) {
        Eigen::Index equation = 0;
        factors.kernel().col(0).cwiseAbs().maxCoeff(&equation);
        bool const isNode = equation < static_cast<Eigen::Index>(m_circuit.nodes.size());
        throw AnalysisError::At(
            culprit(equation),
            isNode ? QStringLiteral("the circuit is singular at the node \"%1\" of this component")
                         .arg(m_circuit.nodes[static_cast<std::size_t>(equation)].name.toQString())
                   : QStringLiteral("the circuit is singular at this component"));
    }
}
