// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/parameter_validation.h"

#include "core/messages/notify.h"
#include "core/messages/titles.h"
#include "core/platform/message_box.h"

namespace tarvokol {
namespace {

PanelField Refuse(const FieldRefusal& refusal, int style) {
    Notify(refusal.message, style, RangeErrorTitle);
    return refusal.field;
}

}  // namespace

int TabOfField(PanelField field) {
    switch (field) {
        case PanelField::CoalStrength:
        case PanelField::UnitWeight:
        case PanelField::AbutmentAngle:
            return 1;
        case PanelField::SFWeb:
        case PanelField::SFBarrier:
            return 2;
        default:
            return 0;
    }
}

std::optional<PanelField> ValidateParameterTexts(const ParameterTexts& texts) {
    const auto refusal = RefusalOfTexts(texts);
    if (!refusal) return std::nullopt;
    return Refuse(*refusal, box_style::Critical);
}

std::optional<PanelField> ValidateSizingTexts(const ParameterTexts& texts) {
    const auto refusal = RefusalOfSizing(texts);
    if (!refusal) return std::nullopt;
    const bool of_range = refusal->field == PanelField::SFWeb;
    return Refuse(*refusal, of_range ? box_style::Critical : box_style::Plain);
}

}  // namespace tarvokol
