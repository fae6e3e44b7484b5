// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of a project that a study may set, by the names of the project record.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarvokol {

enum class StudyField {
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
constexpr int kStudyFields = 11;

// "Height", "DepthCover" and so on.
const char* NameOfField(StudyField field);

// For titles: "Extraction height".
const char* TitleOfField(StudyField field);

// Unit of the field in a unit system (0 English, 1 Metric): "ft", "psi", "degrees"; empty for a bare number.
const char* UnitOfField(StudyField field, int system);

// The field of a name in any letter case.
std::optional<StudyField> FieldNamed(std::string_view name);

// "the fields are Height, DepthCover, ...".
std::string KnownFields();

// The same; an unknown name raises StudyRefusal, which lists the known ones.
StudyField RequiredField(std::string_view name);

}  // namespace tarvokol
