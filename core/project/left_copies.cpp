// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/left_copies.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "core/files/file_image.h"
#include "core/files/file_system.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/project/file_questions.h"
#include "core/project/lifecycle.h"
#include "core/project/project_document.h"
#include "core/project/project_file.h"
#include "core/project/project_origin.h"
#include "core/project/project_state.h"
#include "core/project/recovery_copy.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

struct NamedFigure {
    const char* name;
    double PanelInputs::*figure;
};

constexpr std::array<NamedFigure, 10> kFigures{{
    {"extraction height", &PanelInputs::Height},
    {"depth of cover", &PanelInputs::DepthCover},
    {"hole width", &PanelInputs::HoleWidth},
    {"web thickness", &PanelInputs::WebThickness},
    {"barrier pillar width", &PanelInputs::BarrierPillarWidth},
    {"crosscut spacing", &PanelInputs::CrosscutSpacing},
    {"crosscut angle", &PanelInputs::CrosscutAngle},
    {"coal strength", &PanelInputs::CoalStrength},
    {"unit weight", &PanelInputs::UnitWeight},
    {"abutment angle", &PanelInputs::AbutmentAngle},
}};

std::optional<ProjectDocument> DocumentOf(const std::string& path) {
    std::string bytes;
    if (ReadWholeFile(path, kLargestProject, bytes) != ReadOutcome::Read) return std::nullopt;
    return DocumentIfSound(bytes);
}

// The texts without their line ends, which reading and wrapping change.
bool IsSameText(const std::string& one, const std::string& other) {
    return ReplaceAll(ReplaceAll(one, "\r", ""), "\n", "") ==
           ReplaceAll(ReplaceAll(other, "\r", ""), "\n", "");
}

void AppendWord(std::string& words, const std::string& word) {
    words += (words.empty() ? "" : ", ") + word;
}

std::string Differences(const ProjectDocument& copy, const ProjectDocument& file) {
    std::string words;
    if (copy.unit_system != file.unit_system) AppendWord(words, "units");
    if (copy.title != file.title) AppendWord(words, "title");
    if (!IsSameText(copy.description, file.description)) AppendWord(words, "description");
    for (const NamedFigure& named : kFigures)
        if (copy.inputs.*named.figure != file.inputs.*named.figure) AppendWord(words, named.name);
    if (copy.inputs.NumberHoles != file.inputs.NumberHoles) AppendWord(words, "number of holes");
    if (copy.inputs.SFWeb != file.inputs.SFWeb) AppendWord(words, "factor for webs");
    if (copy.inputs.SFBarrier != file.inputs.SFBarrier) AppendWord(words, "factor for barriers");
    return words;
}

std::string NewerWords(const LeftCopy& copy, const ProjectDocument& document) {
    const auto changed = TimeOfChange(copy.project);
    std::string words;
    if (copy.project == kUntitled)
        words = "never saved";
    else if (!changed)
        words = "the file is gone";
    else if (const auto file = DocumentOf(copy.project))
        words = Differences(document, *file);
    else
        words = "the file cannot be read";
    if (!copy.typed.dialog.empty()) AppendWord(words, "typed and not yet OK");
    if (words.empty()) words = "nothing";
    if (changed && *changed > copy.kept) words += "; the file was saved later: " + LocalTimeText(*changed);
    return words;
}

std::optional<LeftCopy> Examined(AbandonedCopy abandoned) {
    std::string bytes;
    if (ReadWholeFile(abandoned.path, kLargestProject, bytes) != ReadOutcome::Read) return std::nullopt;
    const auto document = DocumentIfSound(bytes);
    const auto kept = TimeOfChange(abandoned.path);
    if (!document || !kept) return std::nullopt;
    CopyNote note = NoteOf(bytes);
    LeftCopy copy{abandoned.path,
                  note.project.empty() ? kUntitled : note.project,
                  *kept,
                  "",
                  std::move(note.typed),
                  std::move(abandoned.lock)};
    copy.newer = NewerWords(copy, *document);
    return copy;
}

}  // namespace

std::vector<LeftCopy> CopiesLeftBehind() {
    std::vector<LeftCopy> copies;
    for (AbandonedCopy& abandoned : AbandonedCopies())
        if (auto copy = Examined(std::move(abandoned))) copies.push_back(*std::move(copy));
    std::stable_sort(copies.begin(), copies.end(),
                     [](const LeftCopy& one, const LeftCopy& other) { return one.kept > other.kept; });
    return copies;
}

bool OpenLeftCopy(const LeftCopy& copy) {
    if (!OpenCopy(copy.path, copy.project)) return false;
    if (!copy.typed.dialog.empty()) KeepTypedTexts(copy.typed);
    if (!RecoveryCopyPath().empty()) RemoveLeftCopy(copy);
    UpdateMainCaption();
    return true;
}

void RemoveLeftCopy(const LeftCopy& copy) {
    LogMessage("Removed: " + copy.path);
    RemoveFile(copy.path);
}

}  // namespace tarvokol
