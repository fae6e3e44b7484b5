// SPDX-License-Identifier: GPL-3.0-or-later
// The input check that stands before every calculation.
#pragma once

#include <optional>
#include <string>

#include "core/engine/panel.h"
#include "core/engine/panel_analysis.h"

namespace tarvokol {

// The tests of the check, in their order.
enum class PanelTest {
    Height,
    DepthCover,
    CrosscutAngle,
    HoleWidth,
    CrosscutSpacing,
    WebThickness,
    BarrierPillarWidth,
    CoalStrength,
    UnitWeight,
    AbutmentAngle,
    CenterDistance
};

// The first test that a panel fails.
struct Refusal {
    PanelTest test = PanelTest::Height;
    int pillar = 0;  // of a refused center distance

    // Its message: "Invalid entry height".
    std::string Message() const;

    bool operator==(const Refusal&) const = default;
};

// Derives from the panel what the analysis needs and rebuilds its center distances, then tests it. Both are
// written whether the tests pass or not; in `analysis`, elements after the last pillar keep what they hold.
// More than 20 holes raise "Subscript out of range", figures out of range "Overflow".
std::optional<Refusal> CheckPanel(PanelInputs& inputs, Units units, PanelAnalysis& analysis);

}  // namespace tarvokol
