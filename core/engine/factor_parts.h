// SPDX-License-Identifier: GPL-3.0-or-later
// The three factors of panels that differ in their depth of cover alone, as the grid of a study has them by the million.
#pragma once

#include <cmath>

#include "core/engine/panel.h"
#include "core/engine/panel_formulas.h"

namespace tarvokol {

struct PanelFactors {
    double overall = 0;
    double webs_only = 0;
    double barrier = 0;
};

// What the factors have before the depth comes in.
struct FactorParts {
    bool ordinary = false;  // no figure but the depth can lead out of the range of a double
    double angle = 0;       // degrees, of `tangent`
    double tangent = 0;
    double unit_weight = 0;
    double length = 0;    // of a pillar
    double barrier = 0;   // widths
    double span = 0;      // of holes and webs
    double cut_off = 0;   // the CutOffPart of the span
    double width = 0;     // of span and barrier
    double pitch = 0;     // of a hole and a web
    double capacity = 0;  // of all pillars
    double web_capacity = 0;
    double barrier_capacity = 0;  // for a unit of length
};

// Renews the parts for a panel; the tangent stays where the angle does.
void RenewParts(const Panel& panel, FactorParts& parts);

// Between these figures no product of the analysis comes near the range of a double or of a single, and nothing is refused.
inline bool IsOrdinary(double figure) {
    constexpr double kLeast = 1e-9;
    constexpr double kMost = 1e9;
    return figure >= kLeast && figure <= kMost;
}

// The factors at a depth of cover, by the operations of the analysis in their order, so that every bit is its own, and without
// its tests. False where figures are out of the ordinary: the analysis itself tells what there is.
inline bool PlainFactors(const FactorParts& parts, double depth, PanelFactors& factors) {
    if (!parts.ordinary || !IsOrdinary(depth)) return false;
    const double stress = parts.unit_weight * depth;
    const double column = stress * parts.length;
    const double side =
        WedgeLoad(parts.span, parts.tangent, depth, parts.unit_weight, [&] { return parts.cut_off; });
    factors.overall = parts.capacity / (parts.width * column);
    factors.webs_only = parts.web_capacity / (column * parts.pitch);
    factors.barrier = parts.barrier_capacity / (2.0 * side + stress * parts.barrier);
    return std::isfinite(factors.overall + factors.webs_only + factors.barrier);
}

}  // namespace tarvokol
