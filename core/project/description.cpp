// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/description.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include "core/files/file_system.h"
#include "core/files/text_file.h"
#include "core/messages/command_guard.h"
#include "core/project/project_document.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kColumns = 60;
constexpr std::size_t kFloor = 2 * kColumns / 3;  // no cut before this column
constexpr int kOldFormatLines = 5;
constexpr int16_t kOldFormatCount = 7;
constexpr int16_t kCountOfNone = 2;  // of the lines of a description that has none

// Nothing reads the count, so a description of more lines than it can hold must not fail over it.
void CountLines(int lines, int16_t& count) {
    count = static_cast<int16_t>(std::min<int>(count + lines, std::numeric_limits<int16_t>::max()));
}

// A line that is not blank.
void AppendLine(const std::string& line, std::string& description, int16_t& count) {
    if (IsBlank(line)) return;
    CountLines(1, count);
    if (description.size() + line.size() + CrLf.size() > kLongestText) Raise(error_number::OutOfMemory);
    description.append(line).append(CrLf);
}

// Byte offset after the piece that begins at `start`: after column 60 if a blank stands there, else after the last
// blank from column 40 on, else after column 60.
std::size_t EndOfPiece(const std::string& line, std::size_t start) {
    std::size_t end = start;
    std::size_t cut = std::string::npos;
    for (std::size_t column = 1; column <= kColumns && end < line.size(); ++column) {
        const bool blank = line[end] == ' ';
        end += CharacterBytes(line, end);
        if (blank && column >= kFloor) cut = end;
    }
    return cut == std::string::npos ? end : cut;
}

// The lines of a text as the line reader finds them in a file to which the text was printed.
std::vector<std::string> LinesOfText(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        if (end < text.size() && !line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(std::move(line));
        start = end + 1;
    }
    return lines;
}

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

// The lines without the blank ones, the long ones wrapped; the count becomes that of their pieces plus 2.
std::string WrappedLines(std::vector<std::string> lines, int16_t& count) {
    std::string text;
    for (std::string& line : lines) {
        if (IsBlank(line)) continue;
        int pieces = 1;
        if (Length(Trim(line)) > kColumns) WrapLongLine(line, pieces);
        text.append(line).append(CrLf);
        CountLines(pieces, count);
    }
    if (!text.empty()) text.resize(text.size() - CrLf.size());
    return text;
}

// The form of an older file version, which no reader of this program asks for.
void ReadOldFormat(TextInput& input, std::string& description, int16_t& count) {
    count = 1;
    for (int i = 1; i <= kOldFormatLines; ++i) AppendLine(input.Line(), description, count);
    count = kOldFormatCount;
}

}  // namespace

void WrapLongLine(std::string& line, int& count) {
    count = 1;
    std::string out;
    for (std::size_t start = 0; start < line.size();) {
        const std::size_t end = EndOfPiece(line, start);
        out.append(line, start, end - start);
        ++count;
        if (end < line.size()) out.append(CrLf);
        start = end;
    }
    line = std::move(out);
}

std::string WrappedDescription(const std::string& description, int16_t& count) {
    count = kCountOfNone;
    return description.empty() ? description : WrappedLines(LinesOfText(description), count);
}

void ReadDescriptionBlock(TextInput& input, std::string& description, int16_t& count) {
    std::string line = input.Line();
    if (line == DescriptionStart) line = input.Line();
    count = 1;
    for (; line != DescriptionEnd; line = input.Token()) AppendLine(line, description, count);
}

void ReformatDescription() {
    if (DescTempPath.empty() || ProjectDescription.empty()) {
        ProjectDescription = WrappedDescription(ProjectDescription, DescriptionLineCount);
        return;
    }
    DescriptionLineCount = kCountOfNone;
    auto lines = Scratch().Lines();
    if (lines) ProjectDescription = WrappedLines(std::move(*lines), DescriptionLineCount);
}

void ReadDescription(int fileNumber, int formatFlag) {
    TextInput& input = InputOf(fileNumber);
    if (formatFlag != 0 && FileFormatLevel >= PresentFormatLevel)
        ReadDescriptionBlock(input, ProjectDescription, DescriptionLineCount);
    else
        ReadOldFormat(input, ProjectDescription, DescriptionLineCount);
}

}  // namespace tarvokol
