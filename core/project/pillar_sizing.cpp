// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/pillar_sizing.h"

#include "core/engine/engine.h"
#include "core/project/sizing_solver.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/settings/unit_system.h"

namespace tarvokol {
namespace {

std::string SuggestedText(Units units, float size) {
    return PictureText(ShownWidth(units, size), "0.00");
}

}  // namespace

std::string SuggestedUnitNote(int unit_system) {
    return unit_system == 1 ? "Suggested sizes are inches, not metres (1 in = 0.0254 m)." : "";
}

std::string SuggestedUnitNote() {
    return SuggestedUnitNote(UnitSystem);
}

SuggestedSizes SuggestPillarSizes(Units units, const ParameterTexts& texts, SizingParameters& block,
                                  const std::function<void(const SizingOutcome&)>& told,
                                  const std::function<void(const std::string&)>& show_web) {
    const auto size_of = [&](float mode, const std::string& target, float start) {
        block.SizeMode = mode;
        block.SizeTargetSF = ToSingle(NumericParse(target));
        const SizingOutcome outcome = SolvePillar(block, start);
        told(outcome);
        return outcome.width;
    };
    const float web_thickness = SizingInches(units, NumericParse(texts.txtWebThickness));
    FillSizingBlock({units, NumericParse(texts.txtHeight), NumericParse(texts.txtHoleWidth),
                     NumericParse(texts.txtCoalStrength), NumericParse(texts.txtUnitWeight),
                     NumericParse(texts.txtDepthCover)},
                    block);
    block.SizeTanAbutment = SizingTangent(StrictNumber(texts.txtAbutmentAngleActiveGob));
    const float start = SizingStart(units, NumericParse(texts.txtDepthCover));

    SuggestedSizes sizes;
    sizes.SuggestedWeb = size_of(SizeModeWeb, texts.txtSFWeb, start);
    sizes.txtSugWeb = SuggestedText(units, sizes.SuggestedWeb);
    if (show_web) show_web(sizes.txtSugWeb);

    // The web of the dialog, not the one just found.
    block.SizePanelWidth = SizingSpan(NumericParse(texts.txtNumberHoles), block, web_thickness);
    sizes.SuggestedBarrier = size_of(SizeModeBarrier, texts.txtSFBarrier, start);
    sizes.txtSugBarrier = SuggestedText(units, sizes.SuggestedBarrier);
    return sizes;
}

SuggestedSizes SuggestPillarSizes(const ParameterTexts& texts,
                                  const std::function<void(const std::string&)>& show_web) {
    return SuggestPillarSizes(ProjectUnits(), texts, SizingBlock, SpokenWidth, show_web);
}

}  // namespace tarvokol
