// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of a panel that people and studies set, in one table: what each is called, in what unit it stands, where a
// panel keeps it and what it can hold. A field that is added here is known to every dialog test, study and table.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "core/engine/panel.h"

namespace tarvokol {

enum class PanelField {
    Height,
    DepthCover,
    HoleWidth,
    WebThickness,
    BarrierPillarWidth,
    NumberHoles,
    CoalStrength,
    UnitWeight,
    AbutmentAngle,
    SFWeb,
    SFBarrier
};

// Where a panel keeps a field, in the type that it is stored in.
using FieldPlace = std::variant<double PanelInputs::*, float PanelInputs::*, std::int16_t PanelInputs::*>;

struct PanelFieldFacts {
    PanelField field;
    const char* name;     // of the project record: "DepthCover"
    const char* title;    // for people: "Depth of cover"
    const char* english;  // unit in an English project, empty for a bare number
    const char* metric;
    FieldPlace place;
    const char* picture = nullptr;  // of its text in the dialog's box; none: the general form
};

// In the order of PanelField.
inline constexpr std::array kPanelFields{
    PanelFieldFacts{PanelField::Height, "Height", "Extraction height", "ft", "m", &PanelInputs::Height},
    PanelFieldFacts{PanelField::DepthCover, "DepthCover", "Depth of cover", "ft", "m",
                    &PanelInputs::DepthCover},
    PanelFieldFacts{PanelField::HoleWidth, "HoleWidth", "Hole width", "ft", "m", &PanelInputs::HoleWidth},
    PanelFieldFacts{PanelField::WebThickness, "WebThickness", "Web thickness", "ft", "m",
                    &PanelInputs::WebThickness},
    PanelFieldFacts{PanelField::BarrierPillarWidth, "BarrierPillarWidth", "Barrier pillar width", "ft", "m",
                    &PanelInputs::BarrierPillarWidth},
    PanelFieldFacts{PanelField::NumberHoles, "NumberHoles", "Number of holes", "", "",
                    &PanelInputs::NumberHoles},
    PanelFieldFacts{PanelField::CoalStrength, "CoalStrength", "In situ coal strength", "psi", "MPa",
                    &PanelInputs::CoalStrength, "#.##"},
    PanelFieldFacts{PanelField::UnitWeight, "UnitWeight", "Overburden unit weight", "pcf", "kN/m3",
                    &PanelInputs::UnitWeight, "#.##"},
    PanelFieldFacts{PanelField::AbutmentAngle, "AbutmentAngle", "Abutment angle", "degrees", "degrees",
                    &PanelInputs::AbutmentAngle},
    PanelFieldFacts{PanelField::SFWeb, "SFWeb", "Stability factor for webs", "", "", &PanelInputs::SFWeb},
    PanelFieldFacts{PanelField::SFBarrier, "SFBarrier", "Stability factor for barriers", "", "",
                    &PanelInputs::SFBarrier},
};

constexpr const PanelFieldFacts& FactsOf(PanelField field) {
    return kPanelFields[static_cast<std::size_t>(field)];
}

constexpr const char* NameOfField(PanelField field) {
    return FactsOf(field).name;
}

constexpr const char* TitleOfField(PanelField field) {
    return FactsOf(field).title;
}

// "ft", "psi", "degrees"; empty for a bare number. A unit system that is neither counts as Metric, as the analysis
// takes it.
constexpr const char* UnitOfField(PanelField field, Units units) {
    return units == Units::English ? FactsOf(field).english : FactsOf(field).metric;
}

// The field of a name in any letter case.
std::optional<PanelField> FieldNamed(std::string_view name);

// "the fields are Height, DepthCover, ...".
std::string KnownFields();

// True of a field that is a count: its values are whole numbers.
constexpr bool IsWholeField(PanelField field) {
    return std::holds_alternative<std::int16_t PanelInputs::*>(FactsOf(field).place);
}

// True if the panel can hold the value: a whole number of holes within its type, factors within a single.
bool FitsField(PanelField field, double value);

// The value of a field in the panel's units.
double ValueOfField(const PanelInputs& panel, PanelField field);

// The text of a field as the parameters dialog loads it: of strength and unit weight with two decimals, else in the
// general form.
std::string TextOfField(const PanelInputs& panel, PanelField field);

// Gives a field a value in the panel's units, rounded as it is stored; a number of holes of 0 becomes 1, as in a
// project file. Raises "Overflow" for one that the field cannot hold.
void StoreInField(PanelInputs& panel, PanelField field, double value);

}  // namespace tarvokol
