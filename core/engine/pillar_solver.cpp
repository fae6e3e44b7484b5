// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/pillar_solver.h"

#include <cmath>

#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

// The strength formula of the analysis without its length term: pillars count as endless.
constexpr double kStrengthIntercept = 0.64;
constexpr double kStrengthSlope = 0.54;

constexpr double kTolerance = 0.001;
constexpr int kStepLimit = 15;
constexpr float kNoWidth = -1.0f;

// The result of a statement that fails is never stored, so 0 stands in its place. Every division by zero and
// every invalid operation of the formulas below ends in an infinity or a NaN.
double StoredOrZero(double value) {
    return std::isfinite(value) ? value : 0.0;
}
float StoredOrZeroSingle(double value) {
    const auto single = static_cast<float>(value);
    return std::isfinite(single) ? single : 0.0f;
}

// Area that a web loads less the area that its strength carries at the target factor, square inches.
double WebBalance(const SizingParameters& p, double B) {
    const double L = p.SizeLength, e = p.SizeHoleWidth;
    const double carried = p.SizeStrength / (static_cast<double>(p.SizeTargetSF) * p.SizeVertStress);
    return StoredOrZero((L * B + e * B + e * L + Squared(e)) -
                        carried * (kStrengthSlope * B / p.SizeHeight + kStrengthIntercept) * B * L);
}

double WebSlope(const SizingParameters& p, double B) {
    const double L = p.SizeLength, e = p.SizeHoleWidth;
    const double carried = p.SizeStrength / (static_cast<double>(p.SizeTargetSF) * p.SizeVertStress);
    return StoredOrZero((L + e) -
                        carried * (2.0 * kStrengthSlope * B / p.SizeHeight + kStrengthIntercept) * L);
}

// Load of a barrier at the target factor less its strength, lb per inch of length. The span is compared with
// the wedge in single precision.
double BarrierBalance(const SizingParameters& p, double B) {
    const double F = p.SizeTargetSF, V = p.SizeVertStress, D = p.SizeDepth, t = p.SizeTanAbutment;
    const double P = p.SizePanelWidth, S = p.SizeStrength, G = p.SizeStressGradient;
    const float wedge = StoredOrZeroSingle(D * t);
    const float half_span = StoredOrZeroSingle(P / 2.0);
    const double strength = S * (kStrengthSlope * B / p.SizeHeight + kStrengthIntercept) * B;
    if (half_span > wedge) return StoredOrZero(F * (V * B + V * D * t) - strength);
    return StoredOrZero((F * V * B + F * V * P) - (2.0 * F * Squared(P) / (8.0 * t)) * G - strength);
}

double BarrierSlope(const SizingParameters& p, double B) {
    const double load = static_cast<double>(p.SizeTargetSF) * p.SizeVertStress;
    return StoredOrZero(load -
                        p.SizeStrength * (2.0 * kStrengthSlope * B / p.SizeHeight + kStrengthIntercept));
}

// The wording is the users': two blanks before the number, none after it.
std::string NotConvergedMessage() {
    return "Solution procedure did not converge after " + SignedText(kStepLimit) +
           "iterations. Check input data. If problem persists, Contact Developer";
}

SizingOutcome Failed(SizingFailure failure) {
    return {kNoWidth, failure};
}

}  // namespace

double SizingFunction(const SizingParameters& block, double B) {
    if (B <= 0.0) return -1.0;
    if (block.SizeMode == SizeModeWeb) return WebBalance(block, B);
    if (block.SizeMode == SizeModeBarrier) return BarrierBalance(block, B);
    return 0.0;
}

double SizingSlope(const SizingParameters& block, double B) {
    if (B <= 0.0) return -1.0;
    if (block.SizeMode == SizeModeWeb) return WebSlope(block, B);
    if (block.SizeMode == SizeModeBarrier) return BarrierSlope(block, B);
    return 0.0;
}

std::string SizingFailureMessage(SizingFailure failure) {
    switch (failure) {
        case SizingFailure::None:
            return "";
        case SizingFailure::NegativeSize:
            return "Iteration produced negative pillar size. Check input data. If problem persists, contact "
                   "Developer";
        case SizingFailure::NotConverged:
            return NotConvergedMessage();
    }
    return "";
}

SizingOutcome SolvePillar(const SizingParameters& block, float start) {
    double B = start;
    double f = SizingFunction(block, B);
    for (int step = 0; std::fabs(f) > kTolerance && step < kStepLimit; ++step) {
        B = Checked(B - Divide(f, SizingSlope(block, B)));
        if (B < 0.0) break;
        f = SizingFunction(block, B);
    }
    if (B < 0.0) return Failed(SizingFailure::NegativeSize);
    // The loop stops at the tolerance, the outcome asks for less, and for a width that a single can hold.
    if (std::fabs(f) >= kTolerance || B <= 0.0 || !FitsSingle(B)) return Failed(SizingFailure::NotConverged);
    return {ToSingle(B), SizingFailure::None};
}

}  // namespace tarvokol
