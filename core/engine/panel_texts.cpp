// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel_texts.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/range_fault.h"

namespace tarvokol {
namespace {

// The scroll bar's range, quoted in the message of a refused number of holes; the test itself admits from 1.
constexpr int kFewestHoles = 2;

constexpr double kLargestAbutmentAngle = 90.0;
constexpr double kLowestSizingFactor = 1.0;
constexpr double kHighestSizingFactor = 10.0;

constexpr const char* kInvalidHeight = "Invalid extraction height";
constexpr const char* kInvalidDepth = "Invalid depth of cover";
constexpr const char* kInvalidHoleWidth = "Invalid hole width";
constexpr const char* kInvalidWebThickness = "Invalid web thickness width";
constexpr const char* kInvalidBarrierWidth = "Invalid barrier pillar width";
constexpr const char* kInvalidUnitWeight = "Invalid overburden unit weight";
constexpr const char* kInvalidAngle = "Invalid abutment angle of gob";
constexpr const char* kInvalidSFBarrier = "Invalid Stability Factor for barriers";
constexpr const char* kInvalidPillarStrength = "Invalid pillar strength";

// Room that the plan takes beside the panel itself, and the growth of a figure that goes over to inches, psi
// and pcf: both stay well below these.
constexpr double kPlanRoom = 100.0;
constexpr double kSolverGrowth = 1000.0;

// A figure counts as the single that drawing and sizing make of it: one that is too small for a single is 0,
// one that is too large has no size either.
bool NotAboveZero(const std::string& text) {
    const double value = UnboundedParse(text);
    return !FitsSingle(value) || static_cast<float>(value) <= 0.0f;
}

struct Share {
    PanelField field;
    const char* message;
    double size;
};

// Where several figures together are beyond a single, the one with the largest share in it is refused.
FieldRefusal RefusalOfLargest(std::initializer_list<Share> shares) {
    const auto largest = std::max_element(shares.begin(), shares.end(), [](const Share& a, const Share& b) {
        return std::fabs(a.size) < std::fabs(b.size);
    });
    return {largest->field, largest->message};
}

// Beside a hole of 1E35 a web of 10 is lost in the last digits of their sum.
bool VanishesBeside(double hole, double pillar) {
    return pillar + hole - hole <= 0.0;
}

// Needs figures that are each in range.
std::optional<FieldRefusal> PlanRefusal(const ParameterTexts& texts) {
    const double holes = NumericParse(texts.txtNumberHoles);
    const double hole = NumericParse(texts.txtHoleWidth);
    const double web = NumericParse(texts.txtWebThickness);
    const double barrier = NumericParse(texts.txtBarrierPillarWidth);
    if (VanishesBeside(hole, web) || VanishesBeside(hole, barrier))
        return FieldRefusal{PanelField::HoleWidth, kInvalidHoleWidth};
    const double mined = holes * hole;
    const double webs = (holes - 1.0) * web;
    if (FitsSingle((mined + webs + barrier) * kPlanRoom)) return std::nullopt;
    return RefusalOfLargest({{PanelField::HoleWidth, kInvalidHoleWidth, mined},
                             {PanelField::WebThickness, kInvalidWebThickness, webs},
                             {PanelField::BarrierPillarWidth, kInvalidBarrierWidth, barrier}});
}

// The stress of the cover is a single.
std::optional<FieldRefusal> CoverRefusal(const ParameterTexts& texts) {
    const double depth = NumericParse(texts.txtDepthCover);
    const double unit_weight = NumericParse(texts.txtUnitWeight);
    if (FitsSingle(depth * unit_weight * kSolverGrowth)) return std::nullopt;
    return RefusalOfLargest({{PanelField::DepthCover, kInvalidDepth, depth},
                             {PanelField::UnitWeight, kInvalidUnitWeight, unit_weight}});
}

// What the short test leaves aside must still fit the singles of the solver. A text that is no number at all
// is none of this test's business.
std::optional<FieldRefusal> SolverRefusal(const ParameterTexts& texts) {
    const Share shares[] = {
        {PanelField::DepthCover, kInvalidDepth, UnboundedParse(texts.txtDepthCover)},
        {PanelField::Height, kInvalidHeight, UnboundedParse(texts.txtHeight)},
        {PanelField::HoleWidth, kInvalidHoleWidth, UnboundedParse(texts.txtHoleWidth)},
        {PanelField::WebThickness, kInvalidWebThickness, UnboundedParse(texts.txtWebThickness)},
        {PanelField::CoalStrength, kInvalidPillarStrength, UnboundedParse(texts.txtCoalStrength)},
        {PanelField::UnitWeight, kInvalidUnitWeight, UnboundedParse(texts.txtUnitWeight)},
        {PanelField::SFBarrier, kInvalidSFBarrier, UnboundedParse(texts.txtSFBarrier)}};
    for (const Share& share : shares)
        if (!FitsSingle(share.size * kSolverGrowth)) return FieldRefusal{share.field, share.message};
    if (std::isinf(UnboundedParse(texts.txtAbutmentAngleActiveGob)))
        return FieldRefusal{PanelField::AbutmentAngle, kInvalidAngle};
    const double holes = NumericParse(texts.txtNumberHoles);
    const double mined = holes * NumericParse(texts.txtHoleWidth);
    const double webs = holes * NumericParse(texts.txtWebThickness);
    if (!FitsSingle((mined + webs) * kSolverGrowth))
        return RefusalOfLargest({{PanelField::HoleWidth, kInvalidHoleWidth, mined},
                                 {PanelField::WebThickness, kInvalidWebThickness, webs}});
    return CoverRefusal(texts);
}

std::optional<FieldRefusal> PanelRefusal(const ParameterTexts& texts) {
    if (NotAboveZero(texts.txtHeight)) return FieldRefusal{PanelField::Height, kInvalidHeight};
    if (NotAboveZero(texts.txtDepthCover)) return FieldRefusal{PanelField::DepthCover, kInvalidDepth};
    if (NotAboveZero(texts.txtHoleWidth)) return FieldRefusal{PanelField::HoleWidth, kInvalidHoleWidth};
    if (NotAboveZero(texts.txtWebThickness))
        return FieldRefusal{PanelField::WebThickness, kInvalidWebThickness};
    if (NotAboveZero(texts.txtBarrierPillarWidth))
        return FieldRefusal{PanelField::BarrierPillarWidth, kInvalidBarrierWidth};
    if (NumericParse(texts.txtWebThickness) >= NumericParse(texts.txtBarrierPillarWidth))
        return FieldRefusal{PanelField::BarrierPillarWidth,
                            "Barrier pillar width should be greater than web thickness width"};
    if (UnboundedParse(texts.txtNumberHoles) < 2.0)
        return FieldRefusal{PanelField::NumberHoles, "Invalid number of Holes"};
    return PlanRefusal(texts);
}

std::optional<FieldRefusal> LoadRefusal(const ParameterTexts& texts) {
    if (NotAboveZero(texts.txtCoalStrength))
        return FieldRefusal{PanelField::CoalStrength, "Invalid in situ coal strength"};
    if (NotAboveZero(texts.txtUnitWeight)) return FieldRefusal{PanelField::UnitWeight, kInvalidUnitWeight};
    const double angle = UnboundedParse(texts.txtAbutmentAngleActiveGob);
    if (angle < 0.0 || angle > kLargestAbutmentAngle)
        return FieldRefusal{PanelField::AbutmentAngle, kInvalidAngle};
    if (NotAboveZero(texts.txtSFWeb))
        return FieldRefusal{PanelField::SFWeb, "Invalid Stability Factor for webs"};
    if (NotAboveZero(texts.txtSFBarrier)) return FieldRefusal{PanelField::SFBarrier, kInvalidSFBarrier};
    return CoverRefusal(texts);
}

}  // namespace

ParameterTexts TextsOfRecord(const PanelInputs& record) {
    const auto text = [&record](PanelField field) { return TextOfField(record, field); };
    ParameterTexts texts;
    texts.txtHeight = text(PanelField::Height);
    texts.txtDepthCover = text(PanelField::DepthCover);
    texts.txtHoleWidth = text(PanelField::HoleWidth);
    texts.txtWebThickness = text(PanelField::WebThickness);
    texts.txtBarrierPillarWidth = text(PanelField::BarrierPillarWidth);
    texts.txtNumberHoles = text(PanelField::NumberHoles);
    texts.txtCoalStrength = text(PanelField::CoalStrength);
    texts.txtUnitWeight = text(PanelField::UnitWeight);
    texts.txtAbutmentAngleActiveGob = text(PanelField::AbutmentAngle);
    texts.txtSFWeb = text(PanelField::SFWeb);
    texts.txtSFBarrier = text(PanelField::SFBarrier);
    return texts;
}

std::optional<FieldRefusal> RefusalOfTexts(const ParameterTexts& texts) {
    const auto refusal = PanelRefusal(texts);
    return refusal ? refusal : LoadRefusal(texts);
}

std::optional<FieldRefusal> RefusalOfSizing(const ParameterTexts& texts) {
    const std::string range_fault = RangeFault(texts.txtSFWeb, kLowestSizingFactor, kHighestSizingFactor);
    if (NotAboveZero(texts.txtDepthCover)) return FieldRefusal{PanelField::DepthCover, kInvalidDepth};
    if (!range_fault.empty()) return FieldRefusal{PanelField::SFWeb, range_fault};
    if (NotAboveZero(texts.txtHeight)) return FieldRefusal{PanelField::Height, kInvalidHeight};
    if (NotAboveZero(texts.txtHoleWidth)) return FieldRefusal{PanelField::HoleWidth, kInvalidHoleWidth};
    if (NotAboveZero(texts.txtCoalStrength))
        return FieldRefusal{PanelField::CoalStrength, kInvalidPillarStrength};
    return SolverRefusal(texts);
}

std::string HolesFault(const std::string& text) {
    const double holes = UnboundedParse(text);
    if (holes >= 1.0 && holes <= MaxHoles) return "";
    return OutsideRangeMessage(text, GeneralText(kFewestHoles), GeneralText(MaxHoles));
}

std::vector<std::string> FaultsOfLoadedHoles(int16_t number_holes) {
    const std::string fault = HolesFault(GeneralText(number_holes));
    if (fault.empty()) return {};
    return {fault, HolesFault("")};
}

}  // namespace tarvokol
