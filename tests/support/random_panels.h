// SPDX-License-Identifier: GPL-3.0-or-later
// Panels by their number: sound, refused and odd ones in both unit systems, the same on every machine and
// whichever thread asks.
#pragma once

#include <cmath>
#include <cstdint>

#include "core/engine/panel.h"

namespace tarvokol {

// Numbers from a seed, by the mixing steps of splitmix64.
class PanelDice {
  public:
    explicit PanelDice(std::uint64_t seed) : state_(seed * 0x9e3779b97f4a7c15u + 1) {}

    std::uint64_t Bits() {
        state_ += 0x9e3779b97f4a7c15u;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }

    // From `low` up to `high`.
    double Between(double low, double high) {
        return low + (high - low) * std::ldexp(static_cast<double>(Bits() >> 11), -53);
    }

    int Whole(int low, int high) {
        return low + static_cast<int>(Bits() % static_cast<std::uint64_t>(high - low + 1));
    }

  private:
    std::uint64_t state_;
};

inline Panel SoundPanel(PanelDice& dice) {
    Panel panel;
    panel.units = dice.Whole(0, 1) == 0 ? Units::English : Units::Metric;
    const double metres = panel.units == Units::English ? 1.0 : 1.0 / FeetPerMetre;
    panel.Height = dice.Between(2, 25) * metres;
    panel.DepthCover = dice.Between(20, 1800) * metres;
    panel.HoleWidth = dice.Between(6, 14) * metres;
    panel.WebThickness = dice.Between(1, 60) * metres;
    panel.BarrierPillarWidth = dice.Between(5, 200) * metres;
    panel.CrosscutSpacing = dice.Whole(0, 3) == 0 ? dice.Between(20, 5000) : 1000000.0;
    panel.CrosscutAngle = 90;
    panel.NumberHoles = static_cast<int16_t>(dice.Whole(2, MaxHoles));
    panel.CoalStrength = dice.Between(200, 2500);
    panel.UnitWeight = dice.Between(120, 190);
    if (panel.units == Units::Metric) {
        panel.CoalStrength /= PsiPerMegapascal;
        panel.UnitWeight /= PcfPerKilonewton;
    }
    panel.AbutmentAngle = dice.Between(1, 89);
    panel.SFWeb = static_cast<float>(dice.Between(1, 3));
    panel.SFBarrier = static_cast<float>(dice.Between(1, 3));
    return panel;
}

// One panel in four has a figure that is refused, on an edge or beyond reason.
inline Panel RandomPanel(std::uint64_t number) {
    PanelDice dice(number);
    Panel panel = SoundPanel(dice);
    if (dice.Whole(0, 3) != 0) return panel;
    double* const figures[] = {&panel.Height,        &panel.DepthCover,   &panel.HoleWidth,
                               &panel.WebThickness,  &panel.CoalStrength, &panel.BarrierPillarWidth,
                               &panel.AbutmentAngle, &panel.UnitWeight,   &panel.CrosscutSpacing,
                               &panel.CrosscutAngle};
    constexpr double kOdd[] = {0.0,  -1.0, 1e-300, 5e-324, 1e-12, 1e9, 1e38, 1e155, 1e300, 89.9999,
                               90.0, 120,  180,    900.1,  5000,  1,   361,  1e-9,  1e12,  -0.0};
    *figures[dice.Whole(0, 9)] = kOdd[dice.Whole(0, 19)];
    if (dice.Whole(0, 4) == 0) panel.NumberHoles = static_cast<int16_t>(dice.Whole(-2, 23));
    if (dice.Whole(0, 9) == 0) panel.units = static_cast<Units>(2);
    return panel;
}

}  // namespace tarvokol
