// SPDX-License-Identifier: GPL-3.0-or-later
// The description block: wrapped to 60 columns on the way to the file and the report, read back line by line.
#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "core/files/file_system.h"
#include "core/files/text_file.h"
#include "core/messages/command_guard.h"
#include "core/project/project_file.h"
#include "core/project/project_state.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kColumns = 60;
constexpr std::size_t kFloor = 2 * kColumns / 3;  // no cut before this column
constexpr int kOldFormatLines = 5;
constexpr int16_t kOldFormatCount = 7;

// Nothing reads the count, so a description of more lines than it can hold must not fail over it.
void CountLines(int lines) {
    const int total = DescriptionLineCount + lines;
    DescriptionLineCount = static_cast<int16_t>(std::min<int>(total, std::numeric_limits<int16_t>::max()));
}

void AppendLine(const std::string& line) {
    if (ProjectDescription.size() + line.size() + CrLf.size() > kLongestText)
        Raise(error_number::OutOfMemory);
    ProjectDescription.append(line).append(CrLf);
}

// Byte offset behind the piece that begins at `start`: behind column 60 if a blank stands there, else behind
// the last blank from column 40 on, else behind column 60.
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
// the handler of run-time errors. A handler that is left leaves no file number in use.
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
        guard_([this] { OpenForOutput(number_, DescTempPath); });
        guard_([this] { Write(); });
        guard_([this] { CloseFile(number_); });
        if (written_) {
            guard_([this] { OpenForInput(number_, DescTempPath); });
            ReadLines();
        }
        guard_([this] { CloseFile(number_); });
        guard_([] { RemoveFile(DescTempPath); });
        if (!complete_) return std::nullopt;
        return std::move(lines_);
    }

  private:
    void Write() {
        PrintLine(number_, ProjectDescription);
        FlushFile(number_);
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

// The text of the lines, blank ones dropped and long ones wrapped, each with its line end.
std::string RewrittenLines(std::vector<std::string> lines) {
    std::string text;
    for (std::string& line : lines) {
        if (IsBlank(line)) continue;
        int pieces = 1;
        if (Length(Trim(line)) > kColumns) WrapLongLine(line, pieces);
        text.append(line).append(CrLf);
        CountLines(pieces);
    }
    return text;
}

void ReadPresentFormat(int file_number) {
    std::string line = LineInput(file_number);
    if (line == DescriptionStart) line = LineInput(file_number);
    DescriptionLineCount = 1;
    while (line != DescriptionEnd) {
        if (!IsBlank(line)) {
            CountLines(1);
            AppendLine(line);
        }
        line = TokenText(file_number);
    }
}

// The form of an older file version, which no reader of this program asks for.
void ReadOldFormat(int file_number) {
    DescriptionLineCount = 1;
    for (int i = 1; i <= kOldFormatLines; ++i) {
        const std::string line = LineInput(file_number);
        if (IsBlank(line)) continue;
        CountLines(1);
        AppendLine(line);
    }
    DescriptionLineCount = kOldFormatCount;
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

void ReformatDescription() {
    DescriptionLineCount = 2;
    if (ProjectDescription.empty()) return;
    auto lines = DescTempPath.empty() ? std::optional(LinesOfText(ProjectDescription)) : Scratch().Lines();
    if (!lines) return;
    ProjectDescription = RewrittenLines(std::move(*lines));
    if (!ProjectDescription.empty()) ProjectDescription.resize(ProjectDescription.size() - CrLf.size());
}

void ReadDescription(int fileNumber, int formatFlag) {
    if (formatFlag != 0 && FileFormatLevel >= PresentFormatLevel)
        ReadPresentFormat(fileNumber);
    else
        ReadOldFormat(fileNumber);
}

}  // namespace tarvokol
