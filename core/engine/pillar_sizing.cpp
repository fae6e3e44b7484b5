// What the Size button does with the texts of its dialog.
#include "core/engine/parameter_texts.h"
#include "core/engine/sizing_inputs.h"
#include "core/engine/sizing_solver.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

// The Newton start: the depth of cover, in inches only where the project is English.
float StartValue(const ParameterTexts& texts) {
    const double depth = NumericParse(texts.txtDepthCover);
    return ToSingle(SizingConvertsMetric() ? depth : depth * InchesPerFoot);
}

// A result as its field shows it: feet in English, the bare inches in Metric. A failure is shown like a
// result.
std::string SuggestedText(float size) {
    return PictureText(SizingConvertsMetric() ? size : size / InchesPerFoot, "0.00");
}

float SizeOf(float mode, const std::string& target, float start) {
    SizingBlock.SizeMode = mode;
    SizingBlock.SizeTargetSF = ToSingle(NumericParse(target));
    return SolvePillarSize(start);
}

}  // namespace

SuggestedSizes SuggestPillarSizes(const ParameterTexts& texts,
                                  const std::function<void(const std::string&)>& show_web) {
    const float web_thickness = SizingInches(NumericParse(texts.txtWebThickness));
    FillSizingBlock({NumericParse(texts.txtHeight), NumericParse(texts.txtHoleWidth),
                     NumericParse(texts.txtCoalStrength), NumericParse(texts.txtUnitWeight),
                     NumericParse(texts.txtDepthCover)});
    FillSizingTangent(StrictNumber(texts.txtAbutmentAngleActiveGob));
    const float start = StartValue(texts);

    SuggestedSizes sizes;
    sizes.SuggestedWeb = SizeOf(SizeModeWeb, texts.txtSFWeb, start);
    sizes.txtSugWeb = SuggestedText(sizes.SuggestedWeb);
    if (show_web) show_web(sizes.txtSugWeb);

    // One web more than the panel of the analysis has, and the web of the dialog, not the one just found.
    SizingBlock.SizePanelWidth = ToSingle(NumericParse(texts.txtNumberHoles) *
                                          (static_cast<double>(SizingBlock.SizeHoleWidth) + web_thickness));
    sizes.SuggestedBarrier = SizeOf(SizeModeBarrier, texts.txtSFBarrier, start);
    sizes.txtSugBarrier = SuggestedText(sizes.SuggestedBarrier);
    return sizes;
}

}  // namespace tarvokol
