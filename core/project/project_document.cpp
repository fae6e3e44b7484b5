// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/project_document.h"

#include "core/project/description_text.h"
#include "core/runtime/charset.h"
#include "core/runtime/checked.h"
#include "core/runtime/numbers.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kMagicLimit = 64;  // bytes of a foreign file that are looked at

// An integer stands between blanks, the first one being the place of its sign.
std::string IntegerText(int16_t value) {
    return SignedText(value) + " ";
}

int16_t ReadShort(TextInput& input) {
    return ToShort(input.Number());
}

float ReadSingle(TextInput& input) {
    return ToSingle(input.Number());
}

void ReadInputs(TextInput& input, PanelInputs& inputs) {
    inputs.Height = input.Number();
    inputs.DepthCover = input.Number();
    inputs.HoleWidth = input.Number();
    inputs.WebThickness = input.Number();
    inputs.BarrierPillarWidth = input.Number();
    inputs.NumberHoles = ReadShort(input);
    inputs.CrosscutAngle = input.Number();
    inputs.CrosscutSpacing = input.Number();
    MendNumberHoles(inputs);
    inputs.CoalStrength = input.Number();
    inputs.UnitWeight = input.Number();
    inputs.AbutmentAngle = input.Number();
    inputs.SFWeb = ReadSingle(input);
    inputs.SFBarrier = ReadSingle(input);
    inputs.SpareSingle = ReadSingle(input);
}

}  // namespace

std::optional<ProjectDocument> DocumentOfBytes(std::string_view bytes) {
    TextInput input = TextInput::OfBytes(bytes);
    if (ReadProjectMagic(input) != ProjectMagic) return std::nullopt;
    ProjectDocument document;
    ReadProjectBody(input, document);
    return document;
}

std::optional<ProjectDocument> DocumentIfSound(std::string_view bytes) {
    try {
        return DocumentOfBytes(bytes);
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

std::string BytesOfDocument(ProjectDocument document) {
    document.description = WrappedDescription(document.description, document.description_lines);
    return EncodeFileText(DocumentText(document));
}

std::string DocumentText(const ProjectDocument& document) {
    const PanelInputs& inputs = document.inputs;
    std::string text;
    for (const std::string& line : {std::string(ProjectMagic),
                                    IntegerText(document.unit_system),
                                    document.title,
                                    std::string(DescriptionStart),
                                    document.description,
                                    std::string(DescriptionEnd),
                                    NumberToFileText(inputs.Height),
                                    NumberToFileText(inputs.DepthCover),
                                    NumberToFileText(inputs.HoleWidth),
                                    NumberToFileText(inputs.WebThickness),
                                    NumberToFileText(inputs.BarrierPillarWidth),
                                    IntegerText(inputs.NumberHoles),
                                    NumberToFileText(inputs.CrosscutAngle),
                                    NumberToFileText(inputs.CrosscutSpacing),
                                    NumberToFileText(inputs.CoalStrength),
                                    NumberToFileText(inputs.UnitWeight),
                                    NumberToFileText(inputs.AbutmentAngle),
                                    NumberToFileText(inputs.SFWeb),
                                    NumberToFileText(inputs.SFBarrier),
                                    NumberToFileText(inputs.SpareSingle)})
        text.append(line).append(CrLf);
    return text;
}

std::string ReadProjectMagic(TextInput& input) {
    return input.TokenStart(kMagicLimit);
}

void ReadProjectBody(TextInput& input, ProjectDocument& document) {
    document.unit_system = ReadShort(input);
    document.title = input.Line();
    if (document.unit_system < 0 || document.unit_system > 1) document.unit_system = 0;
    document.description.clear();
    ReadDescriptionBlock(input, document.description, document.description_lines);
    ReadInputs(input, document.inputs);
}

void MendNumberHoles(PanelInputs& inputs) {
    if (inputs.NumberHoles == 0) inputs.NumberHoles = 1;
}

std::string NumberToFileText(double value) {
    return GeneralText(value);
}

std::string NumberToFileText(float value) {
    return GeneralText(value);
}

}  // namespace tarvokol
