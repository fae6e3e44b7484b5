// SPDX-License-Identifier: GPL-3.0-or-later
// A project as a value, made of the bytes of a project file "*.TKL" and making them: a small text of title,
// description and fourteen inputs. No record, no message and no path; any number of them may be at work at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/engine/panel.h"
#include "core/files/text_input.h"

namespace tarvokol {

// The first line of the file and the lines around the description block.
inline constexpr std::string_view ProjectMagic = "TARVOKOL_101";
inline constexpr std::string_view DescriptionStart = "##StartDesc##";
inline constexpr std::string_view DescriptionEnd = "##EndDesc##";

struct ProjectDocument {
    int16_t unit_system = 0;  // 0 English, 1 Metric; the inputs are in its units
    std::string title;        // one line
    std::string
        description;  // lines joined by CR LF; ends in CR LF once it was read, not once it was wrapped
    int16_t description_lines = 0;  // as reading and wrapping count them
    PanelInputs inputs;             // center distances are no part of the file
};

// The project of a file's bytes; nothing where they do not begin with the magic. Raises "Input past end of file" for
// bytes that end early, "Overflow" for a number beyond its type, "Out of memory" for a line or a description of more
// than `kLongestText` bytes. No figure is tested.
std::optional<ProjectDocument> DocumentOfBytes(std::string_view bytes);

// The same where the bytes may be damaged: nothing for those that raise an error, either.
std::optional<ProjectDocument> DocumentIfSound(std::string_view bytes);

// The bytes of its file: the description wrapped to 60 columns, everything in the character set that holds it.
std::string BytesOfDocument(ProjectDocument document);

// The lines of the file as UTF-8, each ended by CR LF; the description as it stands.
std::string DocumentText(const ProjectDocument& document);

// The two halves of reading. What stands in place of the magic, by which the caller knows a foreign file; then the
// rest. Raises as above; what was read until then stands in the document.
std::string ReadProjectMagic(TextInput& input);
void ReadProjectBody(TextInput& input, ProjectDocument& document);

// No holes are written as 0 and count as 1 from then on.
void MendNumberHoles(PanelInputs& inputs);

// The general number form with "." as its decimal separator.
std::string NumberToFileText(double value);
std::string NumberToFileText(float value);

}  // namespace tarvokol
