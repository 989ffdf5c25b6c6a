// SPDX-License-Identifier: BSD-3-Clause
// A circuit as its document describes it: nodes, components, merit functions.
#pragma once

#include <ZyString.h>

#include <vector>

/** How the values of a component spread within its tolerance. */
enum class Distribution {
    Uniform, ///< every value within the tolerance is as likely as any other
    Gauss    ///< the tolerance is three standard deviations, and parts beyond it have been sorted out
};

/** A part of the circuit between the nodes #plus and #minus. */
struct Component
{
    /** The kinds; currents flow from plus through the component to minus. */
    enum class Kind {
        Resistor,      ///< value in ohms
        Capacitor,     ///< in farads
        Inductor,      ///< in henries
        Vcvs,          ///< voltage source, value times the voltage between the control nodes
        Vccs,          ///< current source, value (siemens) times that voltage
        Ccvs,          ///< voltage source, value (ohms) times the current through #control
        Cccs,          ///< current source, value times that current
        Ammeter,       ///< a wire whose current controls other sources
        VoltageSource, ///< the input: 1 V
        CurrentSource  ///< the input: 1 A
    };

    Kind kind = Kind::Resistor;
    ZyString name;
    ZyString plus;
    ZyString minus;
    ZyString controlPlus;
    ZyString controlMinus;
    ZyString control; ///< name of the component whose current controls this one
    double value = 0;
    double tolerance = 0; ///< in percent of the value
    Distribution distribution = Distribution::Uniform;
};

/** What a kind of component is called and what it has. */
struct ComponentKind
{
    Component::Kind kind;
    char const * element;   ///< name of its element in a document
    char const * parameter; ///< what its value is called in the names of runs; null: it has no value
    char const * unit;
    bool isPositive; ///< its value must be above zero
    bool hasCurrent; ///< its current is an unknown of its own, which can control others
    bool controlledByVoltage;
    bool controlledByCurrent;
};

/** All kinds, in the order of Component::Kind. */
std::vector<ComponentKind> const & componentKinds();
ComponentKind const & kindOf(Component const & component);

/** A figure that tells how good the circuit is. */
struct MeritFunction
{
    /** The kinds. "Half" is half the power of the gain at the reference frequency. */
    enum class Kind {
        CutOff,     ///< the frequency nearest to the reference at which the gain has fallen to half, Hz
        PeakGain,   ///< the highest gain of the sweep, dB
        GainAt,     ///< the gain at a frequency, dB
        ResonanceQ, ///< the gain where its phase lags a right angle, over the gain at the reference frequency
        NotchFrequency, ///< where the gain is lowest, Hz
        NotchDepth,     ///< the lowest gain of the sweep, dB
        NotchQ          ///< the notch frequency over the distance between the points of half power around it
    };

    Kind kind = Kind::PeakGain;
    ZyString name;        ///< short, such as fc
    ZyString title;       ///< shown in tables
    double frequency = 0; ///< of GainAt, Hz
    double reference = 0; ///< where the gain counts as that of the pass band, Hz; 0 is direct current
};

/** What a kind of merit function is called and what it has. */
struct MeritKind
{
    MeritFunction::Kind kind;
    char const * element;
    char const * unit; ///< empty for a plain number
    bool hasFrequency;
    bool hasReference;
};

/** All kinds, in the order of MeritFunction::Kind. */
std::vector<MeritKind> const & meritKinds();
MeritKind const & kindOf(MeritFunction const & merit);
/** The heading of its column: its title and its unit. */
ZyString headingOf(MeritFunction const & merit);

/** The frequencies at which the response is looked at: evenly spread over a logarithmic scale. */
struct Sweep
{
    double from = 0; ///< Hz
    double to = 0;   ///< Hz
    int pointsPerDecade = 100;
};

/** A node, by its name; the ground "0" is there without being named. */
struct Node
{
    ZyString name;
};

/** The whole document. */
struct Circuit
{
    ZyString title;
    ZyString date;
    ZyString output; ///< the node whose voltage is the output
    Sweep sweep;
    std::vector<Node> nodes;
    std::vector<Component> components;
    std::vector<MeritFunction> merits;
};

/** The name of the ground. */
constexpr char const * ground = "0";

/**
 * Looks for what makes a circuit impossible to compute, but for equations without a solution.
 * \throws AnalysisError the first thing found; its message begins with the name of the component
 */
void checkCircuit(Circuit const & circuit);
