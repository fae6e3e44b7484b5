// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/panel_figures.h"

#include <cmath>

#include "core/engine/engine.h"
#include "core/engine/panel_texts.h"
#include "core/runtime/checked.h"
#include "core/runtime/no_number.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr const char* kBetweenMessages = " | ";

void ForgetFigures(PanelFigures& figures) {
    figures.Overall = figures.WebsOnly = figures.BarrierPillar = kNoNumber;
    figures.ExtractionRatio = figures.SuggestedWeb = figures.SuggestedBarrier = kNoNumber;
    figures.refused = false;
    figures.message.clear();
}

// Of the width of holes, webs and barrier, in percent.
double ExtractionRatioOf(const Panel& panel) {
    const double holes = panel.NumberHoles;
    const double mined = holes * panel.HoleWidth;
    return Divide(100.0 * mined, (holes - 1.0) * panel.WebThickness + panel.BarrierPillarWidth + mined);
}

// The number of holes that the dialog's box stands for once it has loaded a project: a single 1 becomes 10, a
// number out of its range none.
int16_t TypedHoles(int16_t holes) {
    constexpr int16_t kTenForOne = 10;
    if (holes == 1) return kTenForOne;
    return holes < 1 || holes > MaxHoles ? int16_t{0} : holes;
}

// Sizing reads neither crosscuts nor the barrier that the panel has.
bool IsReadBySizing(PanelTest test) {
    return test != PanelTest::BarrierPillarWidth && test != PanelTest::CrosscutAngle &&
           test != PanelTest::CrosscutSpacing;
}

// True where the dialog's short test has nothing to refuse, as a look at the figures tells; else its texts tell what it
// says.
bool IsPlainlySizable(const Panel& typed) {
    constexpr float kLowestFactor = 1.0f;
    constexpr float kHighestFactor = 10.0f;
    for (const double figure : {typed.DepthCover, typed.Height, typed.HoleWidth, typed.CoalStrength,
                                typed.WebThickness, typed.UnitWeight, static_cast<double>(typed.SFBarrier)})
        if (!IsOrdinary(figure)) return false;
    return typed.SFWeb >= kLowestFactor && typed.SFWeb <= kHighestFactor;
}

}  // namespace

PanelEvaluator::PanelEvaluator(const Panel& project, bool sizes)
    : panel_(project), typed_(project), sizes_(sizes) {
    if (!sizes_) return;
    for (const PanelFieldFacts& facts : kPanelFields) TakeTyped(facts.field);
}

void PanelEvaluator::SetInFull(PanelField field, double value) {
    StoreInField(panel_, field, value);
    if (field != PanelField::DepthCover) parts_known_ = false;
    if (sizes_) TakeTyped(field);
}

// The sizes start from what the dialog's boxes hold, so a field makes the trip through its box.
void PanelEvaluator::TakeTyped(PanelField field) {
    if (field == PanelField::BarrierPillarWidth) return;  // no size reads it
    if (field == PanelField::NumberHoles)
        typed_.NumberHoles = TypedHoles(panel_.NumberHoles);
    else
        StoreInField(typed_, field, NumericParse(TextOfField(panel_, field)));
}

void PanelEvaluator::AddMessage(const std::string& text) {
    if (!figures_.message.empty()) figures_.message += kBetweenMessages;
    figures_.message += text;
}

void PanelEvaluator::EvaluateInFull() {
    ForgetFigures(figures_);
    figures_plain_ = false;
    bool sizable = sizes_;
    try {
        if (const auto refusal = CalculateFactors()) sizable = sizes_ && !IsReadBySizing(refusal->test);
    } catch (const RunTimeError& error) {
        ForgetFigures(figures_);
        figures_.refused = true;
        figures_.message = error.text;
        return;
    }
    figures_plain_ = !sizes_ && !figures_.refused;
    if (!sizable) return;
    try {
        CalculateSizes();
    } catch (const RunTimeError& error) {
        AddMessage(error.text);
    }
}

// What the check refuses.
std::optional<Refusal> PanelEvaluator::CalculateFactors() {
    if (!parts_known_) RenewParts(panel_, parts_);
    const auto outcome = FactorsOf(panel_, parts_);
    if (const auto* refusal = std::get_if<Refusal>(&outcome)) {
        figures_.refused = true;
        figures_.message = refusal->Message();
        return *refusal;
    }
    const PanelFactors& factors = std::get<PanelFactors>(outcome);
    figures_.Overall = factors.overall;
    figures_.WebsOnly = factors.webs_only;
    figures_.BarrierPillar = factors.barrier;
    if (!parts_known_) KeepParts();
    figures_.ExtractionRatio = extraction_ratio_;
    return std::nullopt;
}

// Renews the parts where another figure than the depth has changed; false where that is not all that keeps the panel from
// being calculated plainly.
bool PanelEvaluator::RenewPlainly() {
    if (!figures_plain_ || parts_known_) return false;
    RenewParts(panel_, parts_);
    if (!parts_.ordinary) return false;
    KeepParts();
    figures_.ExtractionRatio = extraction_ratio_;
    return true;
}

// The panel has factors by its parts, so that they hold for other depths, too.
void PanelEvaluator::KeepParts() {
    extraction_ratio_ = ExtractionRatioOf(panel_);
    parts_known_ = true;
}

void PanelEvaluator::CalculateSizes() {
    for (const std::string& message : FaultsOfLoadedHoles(panel_.NumberHoles)) AddMessage(message);
    if (!IsPlainlySizable(typed_)) {
        const auto refusal = RefusalOfSizing(TextsOfRecord(panel_));
        if (refusal) AddMessage(refusal->message);
        if (refusal) return;
    }
    const PillarSizes sizes = SizePillars(typed_);
    figures_.SuggestedWeb = sizes.web.width;
    figures_.SuggestedBarrier = sizes.barrier.width;
    for (const SizingOutcome& outcome : {sizes.web, sizes.barrier})
        if (!outcome.Solved()) AddMessage(SizingFailureMessage(outcome.failure));
}

}  // namespace tarvokol
