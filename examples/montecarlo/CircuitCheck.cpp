// SPDX-License-Identifier: BSD-3-Clause
// What makes a circuit impossible to compute, told with the name of the component.

#include "AnalysisError.h"
#include "Circuit.h"

#include <algorithm>
#include <cmath>

namespace
{

bool isNode(Circuit const & circuit, ZyString const & name)
{
    return name == ground || std::any_of(circuit.nodes.begin(), circuit.nodes.end(),
                                         [&](Node const & node) { return node.name == name; });
}

void checkNode(Circuit const & circuit, ZyString const & owner, ZyString const & name)
{
    if (!isNode(circuit, name)) {
        throw AnalysisError::At(owner, QStringLiteral("the node \"%1\" is unknown").arg(name.toQString()));
    }
}

template <class T>
void checkNames(std::vector<T> const & items, QString const & what)
{
    for (auto item = items.begin(); item != items.end(); ++item) {
        if (std::any_of(items.begin(), item, [&](T const & other) { return other.name == item->name; })) {
            throw AnalysisError::At(item->name, QStringLiteral("there is another %1 of that name").arg(what));
        }
    }
}

void checkControl(Circuit const & circuit, Component const & component)
{
    auto const found = std::find_if(circuit.components.begin(), circuit.components.end(),
                                    [&](Component const & other) { return other.name == component.control; });
    if (found == circuit.components.end()) {
        throw AnalysisError::At(component.name,
                                QStringLiteral("the component \"%1\" that controls it is unknown")
                                    .arg(component.control.toQString()));
    }
    if (!kindOf(*found).hasCurrent) {
        throw AnalysisError::At(component.name,
                                QStringLiteral("\"%1\" cannot control it; put an Ammeter in line with that")
                                    .arg(component.control.toQString()));
    }
}

void checkValue(Component const & component)
{
    ComponentKind const & kind = kindOf(component);
    if (kind.parameter == nullptr) {
        return;
    }
    if (component.value == 0) {
        throw AnalysisError::At(component.name, QStringLiteral("the value is 0"));
    }
    if (kind.isPositive && component.value < 0) {
        throw AnalysisError::At(component.name, QStringLiteral("the value is below 0"));
    }
    if (component.tolerance < 0 || component.tolerance >= 100) {
        throw AnalysisError::At(component.name,
                                QStringLiteral("the tolerance is not within 0 and 100 percent"));
    }
}

void checkComponent(Circuit const & circuit, Component const & component)
{
    ComponentKind const & kind = kindOf(component);
    checkNode(circuit, component.name, component.plus);
    checkNode(circuit, component.name, component.minus);
    if (component.plus == component.minus) {
        throw AnalysisError::At(
            component.name,
            QStringLiteral("both ends are at the node \"%1\"").arg(component.plus.toQString()));
    }
    if (kind.controlledByVoltage) {
        checkNode(circuit, component.name, component.controlPlus);
        checkNode(circuit, component.name, component.controlMinus);
    }
    if (kind.controlledByCurrent) {
        checkControl(circuit, component);
    }
    checkValue(component);
}

void checkConnections(Circuit const & circuit)
{
    for (Node const & node : circuit.nodes) {
        auto const touches = [&](Component const & component) {
            return component.plus == node.name || component.minus == node.name;
        };
        auto const first = std::find_if(circuit.components.begin(), circuit.components.end(), touches);
        if (first == circuit.components.end()) {
            throw AnalysisError::At(node.name, QStringLiteral("no component is connected to this node"));
        }
        if (std::none_of(first + 1, circuit.components.end(), touches) && node.name != circuit.output) {
            throw AnalysisError::At(
                first->name,
                QStringLiteral("nothing else is connected to its node \"%1\"").arg(node.name.toQString()));
        }
    }
}

void checkSource(Circuit const & circuit)
{
    Component const * source = nullptr;
    for (Component const & component : circuit.components) {
        if (component.kind == Component::Kind::VoltageSource ||
            component.kind == Component::Kind::CurrentSource) {
            if (source != nullptr) {
                throw AnalysisError::At(
                    component.name,
                    QStringLiteral("there is a source already: %1").arg(source->name.toQString()));
            }
            source = &component;
        }
    }
    if (source == nullptr) {
        throw AnalysisError::At(circuit.title, QStringLiteral("there is no source"));
    }
}

void checkSweep(Sweep const & sweep)
{
    if (!(sweep.from > 0) || !(sweep.to > sweep.from)) {
        throw AnalysisError::At(QStringLiteral("Sweep"),
                                QStringLiteral("it must begin above 0 Hz and end above its begin"));
    }
    constexpr double mostPoints = 100000;
    if (sweep.pointsPerDecade < 1 || std::log10(sweep.to / sweep.from) * sweep.pointsPerDecade > mostPoints) {
        throw AnalysisError::At(QStringLiteral("Sweep"), QStringLiteral("it must have 1 to 100000 points"));
    }
}

} // namespace

void checkCircuit(Circuit const & circuit)
{
    checkSweep(circuit.sweep);
    checkNames(circuit.nodes, QStringLiteral("node"));
    checkNames(circuit.components, QStringLiteral("component"));
    checkNames(circuit.merits, QStringLiteral("merit function"));
    for (Component const & component : circuit.components) {
        checkComponent(circuit, component);
    }
    checkSource(circuit);
    checkConnections(circuit);
    checkNode(circuit, ZyString("output"), circuit.output);
    for (MeritFunction const & merit : circuit.merits) {
        if (kindOf(merit).hasFrequency && !(merit.frequency > 0)) {
            throw AnalysisError::At(merit.name, QStringLiteral("the frequency is not above 0"));
        }
        if (merit.reference < 0) {
            throw AnalysisError::At(merit.name, QStringLiteral("the reference is below 0"));
        }
    }
}
