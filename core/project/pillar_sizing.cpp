// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/pillar_sizing.h"

#include "core/engine/engine.h"
#include "core/project/sizing_solver.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/settings/unit_system.h"

namespace tarvokol {
namespace {

std::string SuggestedText(float size) {
    return PictureText(ShownWidth(ProjectUnits(), size), "0.00");
}

float SizeOf(float mode, const std::string& target, float start) {
    SizingBlock.SizeMode = mode;
    SizingBlock.SizeTargetSF = ToSingle(NumericParse(target));
    return SolvePillarSize(start);
}

}  // namespace

std::string SuggestedUnitNote() {
    return UnitSystem == 1 ? "Suggested sizes are inches, not metres (1 in = 0.0254 m)." : "";
}

SuggestedSizes SuggestPillarSizes(const ParameterTexts& texts,
                                  const std::function<void(const std::string&)>& show_web) {
    const Units units = ProjectUnits();
    const float web_thickness = SizingInches(units, NumericParse(texts.txtWebThickness));
    FillSizingBlock({units, NumericParse(texts.txtHeight), NumericParse(texts.txtHoleWidth),
                     NumericParse(texts.txtCoalStrength), NumericParse(texts.txtUnitWeight),
                     NumericParse(texts.txtDepthCover)},
                    SizingBlock);
    SizingBlock.SizeTanAbutment = SizingTangent(StrictNumber(texts.txtAbutmentAngleActiveGob));
    const float start = SizingStart(units, NumericParse(texts.txtDepthCover));

    SuggestedSizes sizes;
    sizes.SuggestedWeb = SizeOf(SizeModeWeb, texts.txtSFWeb, start);
    sizes.txtSugWeb = SuggestedText(sizes.SuggestedWeb);
    if (show_web) show_web(sizes.txtSugWeb);

    // The web of the dialog, not the one just found.
    SizingBlock.SizePanelWidth = SizingSpan(NumericParse(texts.txtNumberHoles), SizingBlock, web_thickness);
    sizes.SuggestedBarrier = SizeOf(SizeModeBarrier, texts.txtSFBarrier, start);
    sizes.txtSugBarrier = SuggestedText(sizes.SuggestedBarrier);
    return sizes;
}

}  // namespace tarvokol
