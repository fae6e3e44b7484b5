// SPDX-License-Identifier: GPL-3.0-or-later
// What the copy of an unsaved project holds after the project's last line, where no reader of projects looks: which file it
// belongs to, and what stood typed in an open dialog.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvokol {

// What stands in the boxes of an open dialog.
struct TypedTexts {
    std::string dialog;                                      // name of the form; empty for none
    std::vector<std::pair<std::string, std::string>> boxes;  // name and text

    bool operator==(const TypedTexts&) const = default;
};

struct CopyNote {
    std::string project;  // path of the project's file, or "Untitled"; empty where the copy does not tell
    TypedTexts typed;
};

// The note as lines of plain ASCII, whatever the path and the texts hold.
std::string TextOfNote(const CopyNote& note);

// The note at the end of a copy's bytes; an empty one where there is none.
CopyNote NoteOf(std::string_view copy);

}  // namespace tarvokol
