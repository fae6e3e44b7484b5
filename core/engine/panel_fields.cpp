// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/engine/panel_fields.h"

#include <cmath>
#include <limits>

#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kPanelFields.size(); ++i)
        if (kPanelFields[i].field != static_cast<PanelField>(i)) return false;
    return true;
}
static_assert(IsInOrder());

// What a place of each stored type does with a value.
struct Fits {
    double value;

    bool operator()(double PanelInputs::*) const { return true; }
    bool operator()(float PanelInputs::*) const { return FitsSingle(value); }
    bool operator()(std::int16_t PanelInputs::*) const {
        return value == std::floor(value) && std::fabs(value) <= std::numeric_limits<std::int16_t>::max();
    }
};

struct Store {
    PanelInputs& panel;
    double value;

    void operator()(double PanelInputs::*place) const { panel.*place = value; }
    void operator()(float PanelInputs::*place) const { panel.*place = ToSingle(value); }
    void operator()(std::int16_t PanelInputs::*place) const {
        panel.*place = value == 0.0 ? std::int16_t{1} : ToShort(value);
    }
};

}  // namespace

std::optional<PanelField> FieldNamed(std::string_view name) {
    for (const PanelFieldFacts& facts : kPanelFields)
        if (EqualIgnoringCase(name, facts.name)) return facts.field;
    return std::nullopt;
}

std::string KnownFields() {
    std::string known;
    for (const PanelFieldFacts& facts : kPanelFields)
        known += (known.empty() ? "" : ", ") + std::string(facts.name);
    return "the fields are " + known;
}

bool FitsField(PanelField field, double value) {
    return std::visit(Fits{value}, FactsOf(field).place);
}

double ValueOfField(const PanelInputs& panel, PanelField field) {
    return std::visit([&panel](auto place) { return static_cast<double>(panel.*place); },
                      FactsOf(field).place);
}

std::string TextOfField(const PanelInputs& panel, PanelField field) {
    if (const char* picture = FactsOf(field).picture) return PictureText(ValueOfField(panel, field), picture);
    return std::visit([&panel](auto place) { return GeneralText(panel.*place); }, FactsOf(field).place);
}

void StoreInField(PanelInputs& panel, PanelField field, double value) {
    std::visit(Store{panel, value}, FactsOf(field).place);
}

}  // namespace tarvokol
