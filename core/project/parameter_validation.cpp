// The tests of the parameters dialog, in its own words.
#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"
#include "core/project/parameter_texts.h"
#include "core/runtime/numbers.h"

namespace tarvokol {
namespace {

constexpr double kLargestAbutmentAngle = 90.0;
constexpr double kLowestSizingFactor = 1.0;
constexpr double kHighestSizingFactor = 10.0;

struct Refusal {
    ParameterField field;
    const char* message;
};

bool NotAboveZero(const std::string& text) {
    return NumericParse(text) <= 0.0;
}

std::optional<Refusal> PanelRefusal(const ParameterTexts& texts) {
    if (NotAboveZero(texts.txtHeight)) return Refusal{ParameterField::Height, "Invalid extraction height"};
    if (NotAboveZero(texts.txtDepthCover))
        return Refusal{ParameterField::DepthCover, "Invalid depth of cover"};
    if (NotAboveZero(texts.txtHoleWidth)) return Refusal{ParameterField::HoleWidth, "Invalid hole width"};
    if (NotAboveZero(texts.txtWebThickness))
        return Refusal{ParameterField::WebThickness, "Invalid web thickness width"};
    if (NotAboveZero(texts.txtBarrierPillarWidth))
        return Refusal{ParameterField::BarrierPillarWidth, "Invalid barrier pillar width"};
    if (NumericParse(texts.txtWebThickness) >= NumericParse(texts.txtBarrierPillarWidth))
        return Refusal{ParameterField::BarrierPillarWidth,
                       "Barrier pillar width should be greater than web thickness width"};
    if (NumericParse(texts.txtNumberHoles) < 2.0)
        return Refusal{ParameterField::NumberHoles, "Invalid number of Holes"};
    return std::nullopt;
}

std::optional<Refusal> LoadRefusal(const ParameterTexts& texts) {
    if (NotAboveZero(texts.txtCoalStrength))
        return Refusal{ParameterField::CoalStrength, "Invalid in situ coal strength"};
    if (NotAboveZero(texts.txtUnitWeight))
        return Refusal{ParameterField::UnitWeight, "Invalid overburden unit weight"};
    const double angle = NumericParse(texts.txtAbutmentAngleActiveGob);
    if (angle < 0.0 || angle > kLargestAbutmentAngle)
        return Refusal{ParameterField::AbutmentAngle, "Invalid abutment angle of gob"};
    if (NotAboveZero(texts.txtSFWeb))
        return Refusal{ParameterField::SFWeb, "Invalid Stability Factor for webs"};
    if (NotAboveZero(texts.txtSFBarrier))
        return Refusal{ParameterField::SFBarrier, "Invalid Stability Factor for barriers"};
    return std::nullopt;
}

ParameterField Refuse(ParameterField field, const char* message, int style) {
    Notify(message, style, RangeErrorTitle);
    return field;
}

}  // namespace

int TabOfField(ParameterField field) {
    switch (field) {
        case ParameterField::CoalStrength:
        case ParameterField::UnitWeight:
        case ParameterField::AbutmentAngle:
            return 1;
        case ParameterField::SFWeb:
        case ParameterField::SFBarrier:
            return 2;
        default:
            return 0;
    }
}

std::optional<ParameterField> ValidateParameterTexts(const ParameterTexts& texts) {
    std::optional<Refusal> refusal = PanelRefusal(texts);
    if (!refusal) refusal = LoadRefusal(texts);
    if (!refusal) return std::nullopt;
    return Refuse(refusal->field, refusal->message, box_style::Critical);
}

std::optional<SizingRefusal> RefusalOfSizing(const ParameterTexts& texts) {
    const std::string range_fault = RangeFault(texts.txtSFWeb, kLowestSizingFactor, kHighestSizingFactor);
    if (NotAboveZero(texts.txtDepthCover))
        return SizingRefusal{ParameterField::DepthCover, "Invalid depth of cover"};
    if (!range_fault.empty()) return SizingRefusal{ParameterField::SFWeb, range_fault};
    if (NotAboveZero(texts.txtHeight))
        return SizingRefusal{ParameterField::Height, "Invalid extraction height"};
    if (NotAboveZero(texts.txtHoleWidth))
        return SizingRefusal{ParameterField::HoleWidth, "Invalid hole width"};
    if (NotAboveZero(texts.txtCoalStrength))
        return SizingRefusal{ParameterField::CoalStrength, "Invalid pillar strength"};
    return std::nullopt;
}

std::optional<ParameterField> ValidateSizingTexts(const ParameterTexts& texts) {
    const auto refusal = RefusalOfSizing(texts);
    if (!refusal) return std::nullopt;
    const bool of_range = refusal->field == ParameterField::SFWeb;
    Notify(refusal->message, of_range ? box_style::Critical : box_style::Plain, RangeErrorTitle);
    return refusal->field;
}

}  // namespace tarvokol
