// SPDX-License-Identifier: BSD-3-Clause
// How the parts of a circuit become XML and back.

#include "AnalysisError.h"
#include "CircuitDocument.h"
#include "Engineering.h"

#include <ZyXMLElementReader.h>
#include <ZyXMLElementWriter.h>
#include <ZyXMLLambdaRule.h>
#include <ZyXMLRule.h>

namespace
{

using Reader = ZyXMLElementReader;

/** What to call an element in a complaint: by its name, or by its kind when it has none. */
ZyString describe(Reader const & element)
{
    return element.hasAttribute("name") ? element.readAttribute("name") : element.name();
}

ZyString text(Reader const & element, char const * attribute)
{
    if (!element.hasAttribute(attribute)) {
        throw AnalysisError::At(
            describe(element),
            QStringLiteral("it has no attribute \"%1\"").arg(QString::fromLatin1(attribute)));
    }
    return element.readAttribute(attribute);
}

ZyString text(Reader const & element, char const * attribute, char const * otherwise)
{
    return element.hasAttribute(attribute) ? element.readAttribute(attribute) : ZyString(otherwise);
}

double number(Reader const & element, char const * attribute)
{
    QString const written = text(element, attribute).toQString();
    if (auto const value = parseEngineering(written)) {
        return *value;
    }
    throw AnalysisError::At(
        describe(element),
        QStringLiteral("the %1 \"%2\" is no number").arg(QString::fromLatin1(attribute), written));
}

double number(Reader const & element, char const * attribute, double otherwise)
{
    return element.hasAttribute(attribute) ? number(element, attribute) : otherwise;
}

void write(ZyXMLElementWriter & element, char const * attribute, double value)
{
    element.writeAttribute(attribute, ZyString(exactNumber(value)));
}

/** The entry of a table of kinds that belongs to an element; the rules let no other element through. */
template <class Kinds>
auto const & kindNamed(Kinds const & kinds, ZyString const & element)
{
    for (auto const & kind : kinds) {
        if (element == kind.element) {
            return kind;
        }
    }
    throw AnalysisError::At(element, QStringLiteral("there is no such kind of element"));
}

Distribution distributionOf(Reader const & element)
{
    ZyString const written = text(element, "distribution", "uniform");
    if (written != "uniform" && written != "gauss") {
        throw AnalysisError::At(
            describe(element),
            QStringLiteral("the distribution \"%1\" is neither uniform nor gauss").arg(written.toQString()));
    }
    return written == "gauss" ? Distribution::Gauss : Distribution::Uniform;
}

Component readComponent(Reader & element)
{
    ComponentKind const & kind = kindNamed(componentKinds(), element.name());
    Component component;
    component.kind = kind.kind;
    component.name = text(element, "name");
    component.plus = text(element, "plus");
    component.minus = text(element, "minus");
    if (kind.controlledByVoltage) {
        component.controlPlus = text(element, "controlPlus");
        component.controlMinus = text(element, "controlMinus");
    }
    if (kind.controlledByCurrent) {
        component.control = text(element, "control");
    }
    if (kind.parameter != nullptr) {
        component.value = number(element, "value");
        component.tolerance = number(element, "tolerance", 0);
        component.distribution = distributionOf(element);
    }
    return component;
}

MeritFunction readMerit(Reader & element)
{
    MeritKind const & kind = kindNamed(meritKinds(), element.name());
    MeritFunction merit;
    merit.kind = kind.kind;
    merit.name = text(element, "name");
    merit.title = text(element, "title", merit.name.c_str());
    merit.frequency = kind.hasFrequency ? number(element, "frequency") : 0;
    merit.reference = kind.hasReference ? number(element, "reference", 0) : 0;
    return merit;
}

Sweep readSweep(Reader & element)
{
    double const points = number(element, "pointsPerDecade", 100);
    if (points != double(int(std::clamp(points, 0.0, 1e6)))) {
        throw AnalysisError::At(QStringLiteral("Sweep"),
                                QStringLiteral("pointsPerDecade is no whole number"));
    }
    return {number(element, "from"), number(element, "to"), int(points)};
}

Node readNode(Reader & element)
{
    return {text(element, "name")};
}

/** The definition of a type that stands in the attributes of its element and has no children. */
template <class T, T (*read)(Reader &)>
ZySharedPtr<ZyXMLLambdaDefinition<T>> definitionOfAttributes()
{
    return ZySharedPtr<ZyXMLLambdaDefinition<T>>(new ZyXMLLambdaDefinition<T>{
        [](ZyXMLRule & rule) { rule.remember("val", ZySharedPtr<T>(new T)); },
        [](ZyXMLRule & rule, Reader & element) { *rule.recall<T>("val") = read(element); },
        [](ZyXMLRule & rule) { return ZyUniquePtr<T>(new T(*rule.recall<T>("val"))); }});
}

// Called once for each rule: what the children of a circuit put into it.
void setUpCircuit(ZyXMLRule & rule)
{
    ZySharedPtr<Circuit> const circuit = rule.remember("val", ZySharedPtr<Circuit>(new Circuit));
    rule.addChildRule<Sweep>("Sweep", [circuit](ZyUniquePtr<Sweep> sweep) { circuit->sweep = *sweep; });
    rule.addChildRule<Node>("Node", [circuit](ZyUniquePtr<Node> node) { circuit->nodes.push_back(*node); });
    for (ComponentKind const & kind : componentKinds()) {
        rule.addChildRule<Component>(kind.element, [circuit](ZyUniquePtr<Component> component) {
            circuit->components.push_back(*component);
        });
    }
    for (MeritKind const & kind : meritKinds()) {
        rule.addChildRule<MeritFunction>(
            kind.element, [circuit](ZyUniquePtr<MeritFunction> merit) { circuit->merits.push_back(*merit); });
    }
}

void startCircuit(ZyXMLRule & rule, Reader & element)
{
    Circuit circuit;
    circuit.title = text(element, "title");
    circuit.date = text(element, "date", "");
    circuit.output = text(element, "output");
    *rule.recall<Circuit>("val") = circuit;
}

} // namespace

void ZyXMLObject<Component>::Write(ZyXMLElementWriter & element, Component const & component)
{
    ComponentKind const & kind = kindOf(component);
    element.writeAttribute("name", component.name);
    element.writeAttribute("plus", component.plus);
    element.writeAttribute("minus", component.minus);
    if (kind.controlledByVoltage) {
        element.writeAttribute("controlPlus", component.controlPlus);
        element.writeAttribute("controlMinus", component.controlMinus);
    }
    if (kind.controlledByCurrent) {
        element.writeAttribute("control", component.control);
    }
    if (kind.parameter != nullptr) {
        write(element, "value", component.value);
        write(element, "tolerance", component.tolerance);
        element.writeAttribute("distribution",
                               component.distribution == Distribution::Gauss ? "gauss" : "uniform");
    }
}

ZySharedPtr<ZyXMLLambdaDefinition<Component>> ZyXMLObject<Component>::LoadRule()
{
    static auto const definition = definitionOfAttributes<Component, readComponent>();
    return definition;
}

void ZyXMLObject<MeritFunction>::Write(ZyXMLElementWriter & element, MeritFunction const & merit)
{
    MeritKind const & kind = kindOf(merit);
    element.writeAttribute("name", merit.name);
    element.writeAttribute("title", merit.title);
    if (kind.hasFrequency) {
        write(element, "frequency", merit.frequency);
    }
    if (kind.hasReference) {
        write(element, "reference", merit.reference);
    }
}

ZySharedPtr<ZyXMLLambdaDefinition<MeritFunction>> ZyXMLObject<MeritFunction>::LoadRule()
{
    static auto const definition = definitionOfAttributes<MeritFunction, readMerit>();
    return definition;
}

void ZyXMLObject<Sweep>::Write(ZyXMLElementWriter & element, Sweep const & sweep)
{
    write(element, "from", sweep.from);
    write(element, "to", sweep.to);
    write(element, "pointsPerDecade", sweep.pointsPerDecade);
}

ZySharedPtr<ZyXMLLambdaDefinition<Sweep>> ZyXMLObject<Sweep>::LoadRule()
{
    static auto const definition = definitionOfAttributes<Sweep, readSweep>();
    return definition;
}

void ZyXMLObject<Node>::Write(ZyXMLElementWriter & element, Node const & node)
{
    element.writeAttribute("name", node.name);
}

ZySharedPtr<ZyXMLLambdaDefinition<Node>> ZyXMLObject<Node>::LoadRule()
{
    static auto const definition = definitionOfAttributes<Node, readNode>();
    return definition;
}

void ZyXMLObject<Circuit>::Write(ZyXMLElementWriter & element, Circuit const & circuit)
{
    element.writeAttribute("title", circuit.title);
    if (!circuit.date.isEmpty()) {
        element.writeAttribute("date", circuit.date);
    }
    element.writeAttribute("output", circuit.output);
    ZyXMLObject<Sweep>::Write(*element.createElement("Sweep"), circuit.sweep);
    for (Node const & node : circuit.nodes) {
        ZyXMLObject<Node>::Write(*element.createElement("Node"), node);
    }
    for (Component const & component : circuit.components) {
        ZyXMLObject<Component>::Write(*element.createElement(kindOf(component).element), component);
    }
    for (MeritFunction const & merit : circuit.merits) {
        ZyXMLObject<MeritFunction>::Write(*element.createElement(kindOf(merit).element), merit);
    }
}

ZySharedPtr<ZyXMLLambdaDefinition<Circuit>> ZyXMLObject<Circuit>::LoadRule()
{
    static ZySharedPtr<ZyXMLLambdaDefinition<Circuit>> const definition(new ZyXMLLambdaDefinition<Circuit>{
        setUpCircuit, startCircuit,
        [](ZyXMLRule & rule) { return ZyUniquePtr<Circuit>(new Circuit(*rule.recall<Circuit>("val"))); }});
    return definition;
}
