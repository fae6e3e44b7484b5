// SPDX-License-Identifier: GPL-3.0-or-later
// The formulas of the stability analysis, shared by the whole analysis and by the factors alone.
#pragma once

#include "core/engine/panel.h"
#include "core/runtime/checked.h"

namespace tarvokol {

// In situ strength as the analysis holds it: psf or kPa.
inline double AnalysisStrength(double coal_strength, Units units) {
    constexpr double kPsfPerPsi = 144.0;
    constexpr double kKilopascalPerMegapascal = 1000.0;
    return Checked(coal_strength * (units == Units::English ? kPsfPerPsi : kKilopascalPerMegapascal));
}

// Strength of a pillar of a width and a length, in the units of `strength`: strength over in situ strength =
// intercept + slope x width / height - length term x width^2 / (height x length). A width of 0 has none, but
// takes the divisions all the same.
inline double StrengthOfPillar(double strength, double width, double height, double length) {
    constexpr double kIntercept = 0.64;
    constexpr double kSlope = 0.54;
    constexpr double kLengthTerm = 0.18;
    const double result =
        Checked(strength * (Divide(kSlope * width, height) -
                            Divide(kLengthTerm * Squared(width), height * length) + kIntercept));
    return width == 0.0 ? 0.0 : result;
}

// What a wedge that is cut off lacks over a span, for a unit of weight.
inline double CutOffPart(double span, double tangent) {
    return Divide(Squared(span), 8.0 * tangent);
}

// Load of the overburden wedge that hangs over the span from one side: fully developed over a wide span, cut
// off by the symmetry of the span otherwise, exact equality included. `cut_off` gives the CutOffPart, and is
// asked only where the wedge is cut off.
template <typename CutOff>
double WedgeLoad(double span, double tangent, double depth, double unit_weight, CutOff cut_off) {
    if (span / 2.0 > depth * tangent) return Squared(depth) * tangent * (unit_weight / 2.0);
    return (depth * span / 2.0 - cut_off()) * unit_weight;
}

inline double SideLoad(double span, double tangent, double depth, double unit_weight) {
    return Checked(WedgeLoad(span, tangent, depth, unit_weight, [=] { return CutOffPart(span, tangent); }));
}

}  // namespace tarvokol
