// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/parameter_texts.h"

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/preview_record.h"
#include "core/project/project_record.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

float SingleOf(const std::string& text) {
    return ToSingle(NumericParse(text));
}

// Rounded to a single like `SingleOf`, an infinity where no single holds the number.
double SingleOrInfinity(const std::string& text) {
    return static_cast<double>(static_cast<float>(UnboundedParse(text)));
}

int16_t HolesOf(const ParameterTexts& texts) {
    return ToShort(NumericParse(texts.txtNumberHoles));
}

void StorePanel(const ParameterTexts& texts, PanelInputs& record) {
    record.Height = NumericParse(texts.txtHeight);
    record.DepthCover = NumericParse(texts.txtDepthCover);
    record.HoleWidth = NumericParse(texts.txtHoleWidth);
    record.WebThickness = NumericParse(texts.txtWebThickness);
    record.BarrierPillarWidth = NumericParse(texts.txtBarrierPillarWidth);
    record.NumberHoles = HolesOf(texts);
}

void StoreLoads(const ParameterTexts& texts, PanelInputs& record) {
    record.CoalStrength = NumericParse(texts.txtCoalStrength);
    record.UnitWeight = NumericParse(texts.txtUnitWeight);
    record.AbutmentAngle = NumericParse(texts.txtAbutmentAngleActiveGob);
    record.SFWeb = SingleOf(texts.txtSFWeb);
    record.SFBarrier = SingleOf(texts.txtSFBarrier);
}

// What the two calculated fields read from the boxes: a short and singles. A field whose value no single
// holds stays empty.
struct TypedWidths {
    explicit TypedWidths(const ParameterTexts& texts)
        : holes(HolesOf(texts)),
          hole(SingleOrInfinity(texts.txtHoleWidth)),
          web(SingleOrInfinity(texts.txtWebThickness)),
          barrier(SingleOrInfinity(texts.txtBarrierPillarWidth)) {}

    int16_t holes;
    double hole;
    double web;
    double barrier;
};

}  // namespace

void StoreParameterTexts(const ParameterTexts& texts, PanelInputs& record) {
    StorePanel(texts, record);
    StoreLoads(texts, record);
}

void LoadPreviewFromTexts(const ParameterTexts& texts) {
    StorePanel(texts, PreviewRecord);
    PreviewRecord.CrosscutSpacing = ProjectRecord.CrosscutSpacing;
    PreviewRecord.CrosscutAngle = ProjectRecord.CrosscutAngle;
    DerivePreviewPitches();
    StoreLoads(texts, PreviewRecord);
}

std::string PanelWidthText(const ParameterTexts& texts) {
    const TypedWidths panel(texts);
    const double width = (panel.holes - 1) * panel.web + panel.holes * panel.hole;
    return FitsSingle(width) ? PictureText(ToSingle(width), "##0.") : "";
}

std::string ExtractionRatioText(const ParameterTexts& texts) {
    const TypedWidths panel(texts);
    const double whole = (panel.holes - 1) * panel.web + panel.barrier + panel.holes * panel.hole;
    if (!FitsSingle(whole) || ToSingle(whole) == 0.0f || !FitsSingle(panel.holes * panel.hole)) return "";
    // The width of all holes is rounded to single on its own; the width of the whole is not.
    const float mined = ToSingle(panel.holes * panel.hole);
    const double ratio = Divide(100.0 * mined, whole);
    return FitsSingle(ratio) ? PictureText(ToSingle(ratio), "##0.0") : "";
}

HolesVerdict VerdictOnHoles(const std::string& text) {
    HolesVerdict verdict;
    const double holes = UnboundedParse(text);
    if (holes == 1.0) {
        // A 1 is the first digit of 10 to 19.
        verdict.single_one = true;
        verdict.scroll_value = 10;
    } else if (const std::string fault = HolesFault(text); !fault.empty()) {
        verdict.refused = true;
    } else {
        verdict.scroll_value = ToShort(holes);
    }
    return verdict;
}

HolesVerdict JudgeHolesText(const std::string& text) {
    const HolesVerdict verdict = VerdictOnHoles(text);
    if (verdict.refused) Notify(HolesFault(text), box_style::Critical, RangeErrorTitle);
    return verdict;
}

// Nothing has been accepted yet where the number is refused, so an empty text is put back.
std::string LoadedHolesText(int16_t number_holes) {
    const std::string text = GeneralText(number_holes);
    const HolesVerdict verdict = VerdictOnHoles(text);
    if (verdict.single_one) return "10";
    return verdict.refused ? "" : text;
}

std::string HolesTextAfterLoad(int16_t number_holes) {
    for (const std::string& fault : FaultsOfLoadedHoles(number_holes))
        Notify(fault, box_style::Critical, RangeErrorTitle);
    return LoadedHolesText(number_holes);
}

}  // namespace tarvokol
