// SPDX-License-Identifier: BSD-3-Clause
// The kinds of components and of merit functions.

#include "Circuit.h"

std::vector<ComponentKind> const & componentKinds()
{
    using Kind = Component::Kind;
    static std::vector<ComponentKind> const kinds = {
        {Kind::Resistor, "Resistor", "res", "Ω", true, false, false, false},
        {Kind::Capacitor, "Capacitor", "cap", "F", true, false, false, false},
        {Kind::Inductor, "Inductor", "ind", "H", true, true, false, false},
        {Kind::Vcvs, "Vcvs", "gain", "", false, true, true, false},
        {Kind::Vccs, "Vccs", "gm", "S", false, false, true, false},
        {Kind::Ccvs, "Ccvs", "rm", "Ω", false, true, false, true},
        {Kind::Cccs, "Cccs", "gain", "", false, false, false, true},
        {Kind::Ammeter, "Ammeter", nullptr, "", false, true, false, false},
        {Kind::VoltageSource, "VoltageSource", nullptr, "", false, true, false, false},
        {Kind::CurrentSource, "CurrentSource", nullptr, "", false, false, false, false},
    };
    return kinds;
}

ComponentKind const & kindOf(Component const & component)
{
    return componentKinds()[static_cast<std::size_t>(component.kind)];
}

std::vector<MeritKind> const & meritKinds()
{
    using Kind = MeritFunction::Kind;
    static std::vector<MeritKind> const kinds = {
        {Kind::CutOff, "CutOff", "Hz", false, true},
        {Kind::PeakGain, "PeakGain", "dB", false, false},
        {Kind::GainAt, "GainAt", "dB", true, false},
        {Kind::ResonanceQ, "ResonanceQ", "", false, true},
        {Kind::NotchFrequency, "NotchFrequency", "Hz", false, false},
        {Kind::NotchDepth, "NotchDepth", "dB", false, false},
        {Kind::NotchQ, "NotchQ", "", false, true},
    };
    return kinds;
}

MeritKind const & kindOf(MeritFunction const & merit)
{
    return meritKinds()[static_cast<std::size_t>(merit.kind)];
}

ZyString headingOf(MeritFunction const & merit)
{
    ZyString const unit(kindOf(merit).unit);
    return unit.isEmpty() ? merit.title : merit.title + ZyString(", ") + unit;
}
