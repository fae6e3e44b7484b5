// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/study_fields.h"

#include <cstddef>

#include "core/runtime/text.h"
#include "core/statistics/study_refusal.h"

namespace tarvokol {
namespace {

struct FieldFacts {
    const char* name;
    const char* title;
    const char* english;
    const char* metric;
};

// In the order of StudyField.
constexpr std::array<FieldFacts, kStudyFields> kFacts{{
    {"Height", "Extraction height", "ft", "m"},
    {"DepthCover", "Depth of cover", "ft", "m"},
    {"HoleWidth", "Hole width", "ft", "m"},
    {"WebThickness", "Web thickness", "ft", "m"},
    {"BarrierPillarWidth", "Barrier pillar width", "ft", "m"},
    {"NumberHoles", "Number of holes", "", ""},
    {"CoalStrength", "In situ coal strength", "psi", "MPa"},
    {"UnitWeight", "Overburden unit weight", "pcf", "kN/m3"},
    {"AbutmentAngle", "Abutment angle", "degrees", "degrees"},
    {"SFWeb", "Stability factor for webs", "", ""},
    {"SFBarrier", "Stability factor for barriers", "", ""},
}};

const FieldFacts& FactsOf(StudyField field) {
    return kFacts[static_cast<std::size_t>(field)];
}

}  // namespace

const char* NameOfField(StudyField field) {
    return FactsOf(field).name;
}

const char* TitleOfField(StudyField field) {
    return FactsOf(field).title;
}

const char* UnitOfField(StudyField field, int system) {
    return system == 0 ? FactsOf(field).english : FactsOf(field).metric;
}

std::optional<StudyField> FieldNamed(std::string_view name) {
    for (std::size_t i = 0; i < kFacts.size(); ++i)
        if (EqualIgnoringCase(std::string(name), kFacts[i].name)) return static_cast<StudyField>(i);
    return std::nullopt;
}

std::string KnownFields() {
    std::string known;
    for (const FieldFacts& facts : kFacts) known += (known.empty() ? "" : ", ") + std::string(facts.name);
    return "the fields are " + known;
}

StudyField RequiredField(std::string_view name) {
    if (const auto field = FieldNamed(name)) return *field;
    throw StudyRefusal("unknown field \"" + std::string(name) + "\"; " + KnownFields());
}

}  // namespace tarvokol
