// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/file_questions.h"

#include "core/files/file_image.h"
#include "core/files/whole_file.h"
#include "core/messages/history_log.h"
#include "core/messages/notify.h"
#include "core/platform/message_box.h"
#include "core/project/kept_copy.h"
#include "core/project/project_file.h"
#include "core/project/project_origin.h"
#include "core/project/project_state.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

const std::string kLineEnd(CrLf);

std::string TimeOf(const std::string& path) {
    const auto changed = TimeOfChange(path);
    return changed ? LocalTimeText(*changed) : "";
}

}  // namespace

bool OpenCopy(const std::string& copy, const std::string& project) {
    LogMessage("Opening: " + copy);
    const std::string bytes = ReadWholeFile(copy, kLargestProject);
    ProjectDocument document = DocumentOfRecords();
    TextInput input = TextInput::OfBytes(bytes);
    if (!ReadProject(input, document)) return false;
    PutIntoRecords(document);
    ProjectFileName = project;
    MarkProjectChanged();
    return true;
}

SaveChoice AskAboutForeignChange(const std::string& project) {
    const auto change = ForeignChangeOf(project);
    if (!change) return SaveChoice::Save;
    const std::string question =
        project + " has been changed by somebody else since it was read or saved here." + kLineEnd +
        kLineEnd + "Changed last, as known here: " + LocalTimeText(change->as_read) + kLineEnd +
        "Changed last, on the disk: " + LocalTimeText(change->at_present) + kLineEnd + kLineEnd +
        "Save over it, or save as another file?";
    switch (NotifyChoice(question, box_style::YesNoCancelQuestionNoDefault, {"&Save", "Save &As", ""})) {
        case box_result::Yes:
            return SaveChoice::Save;
        case box_result::No:
            return SaveChoice::SaveAs;
        default:
            return SaveChoice::Cancel;
    }
}

bool OfferKeptCopy(const std::string& project) {
    const std::string copy = NewestGoodCopy(project);
    if (copy.empty()) return false;
    const std::string question = project + " cannot be opened." + kLineEnd + "Its newest whole copy is of " +
                                 TimeOf(copy) + ":" + kLineEnd + copy + kLineEnd + kLineEnd +
                                 "Open the copy? Save then writes it to the project's own file.";
    if (Notify(question, box_style::YesNoQuestion) != box_result::Yes) return false;
    return OpenCopy(copy, project);
}

}  // namespace tarvokol
