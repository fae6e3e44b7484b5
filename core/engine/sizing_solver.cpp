#include "core/engine/sizing_solver.h"

#include <cmath>
#include <string>

#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

// The strength formula of the analysis without its length term: pillars count as endless.
constexpr double kStrengthIntercept = 0.64;
constexpr double kStrengthSlope = 0.54;

constexpr double kTolerance = 0.001;
constexpr int kStepLimit = 15;
constexpr float kFailure = -1.0f;

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

// The wording is the users': two blanks before the number, none behind it.
std::string NotConvergedMessage() {
    return "Solution procedure did not converge after " + SignedText(kStepLimit) +
           "iterations. Check input data. If problem persists, Contact Developer";
}

float Fail(const std::string& message) {
    Notify(message, box_style::Plain);
    return kFailure;
}

}  // namespace

double SizingFunction(const double& B) {
    if (B <= 0.0) return -1.0;
    if (SizingBlock.SizeMode == SizeModeWeb) return WebBalance(SizingBlock, B);
    if (SizingBlock.SizeMode == SizeModeBarrier) return BarrierBalance(SizingBlock, B);
    return 0.0;
}

double SizingSlope(const double& B) {
    if (B <= 0.0) return -1.0;
    if (SizingBlock.SizeMode == SizeModeWeb) return WebSlope(SizingBlock, B);
    if (SizingBlock.SizeMode == SizeModeBarrier) return BarrierSlope(SizingBlock, B);
    return 0.0;
}

float SolvePillarSize(const float& start) {
    double B = start;
    double f = SizingFunction(B);
    for (int step = 0; std::fabs(f) > kTolerance && step < kStepLimit; ++step) {
        f = SizingFunction(B);
        B = Checked(B - Divide(f, SizingSlope(B)));
        if (B < 0.0) break;
        f = SizingFunction(B);
    }
    if (B < 0.0)
        return Fail(
            "Iteration produced negative pillar size. Check input data. If problem persists, contact "
            "Developer");
    // The loop stops at the tolerance, the outcome asks for less.
    if (std::fabs(f) >= kTolerance || B <= 0.0) return Fail(NotConvergedMessage());
    return ToSingle(B);
}

}  // namespace tarvokol
