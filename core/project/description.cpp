// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/description.h"

#include <optional>
#include <vector>

#include "core/files/file_system.h"
#include "core/files/text_file.h"
#include "core/messages/command_guard.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

// The scratch file of the reformatter: the description goes out and comes back as lines, each statement under
// the handler of run-time errors. Other running programs have one of the same name. A handler that is left leaves no file number in use.
class Scratch {
  public:
    Scratch() = default;
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() {
        try {
            CloseFile(number_);
        } catch (const RunTimeError&) {
        }
    }

    // The description's lines; nothing if the scratch file was not written and read to its end.
    std::optional<std::vector<std::string>> Lines() {
        guard_([this] { number_ = FreeFile(); });
        guard_([this] { OpenScratch(number_, DescTempPath); });
        guard_([this] { Write(); });
        if (written_) ReadLines();
        guard_([this] { CloseFile(number_); });
        guard_([] { RemoveFile(DescTempPath); });
        if (!complete_) return std::nullopt;
        return std::move(lines_);
    }

  private:
    void Write() {
        PrintLine(number_, ProjectDescription);
        ReadScratch(number_);
        written_ = true;
    }

    // A line that cannot be read and is not tried again ends the reading.
    void ReadLines() {
        bool more = true;
        while (more) {
            more = false;
            guard_([this, &more] {
                complete_ = EndOfFile(number_);
                if (complete_) return;
                lines_.push_back(LineInput(number_));
                more = true;
            });
        }
    }

    CommandGuard guard_;
    int number_ = 0;
    bool written_ = false;
    bool complete_ = false;
    std::vector<std::string> lines_;
};

}  // namespace

void ReformatDescription() {
    if (DescTempPath.empty() || ProjectDescription.empty()) {
        ProjectDescription = WrappedDescription(ProjectDescription, DescriptionLineCount);
        return;
    }
    DescriptionLineCount = CountOfNoLines;
    auto lines = Scratch().Lines();
    if (lines) ProjectDescription = WrappedLines(std::move(*lines), DescriptionLineCount);
}

void ReadDescription(int fileNumber, int formatFlag) {
    TextInput& input = InputOf(fileNumber);
    if (formatFlag != 0 && FileFormatLevel >= PresentFormatLevel)
        ReadDescriptionBlock(input, ProjectDescription, DescriptionLineCount);
    else
        ReadOldDescription(input, ProjectDescription, DescriptionLineCount);
}

}  // namespace tarvokol
