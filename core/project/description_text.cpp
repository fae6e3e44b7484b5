// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/project/description_text.h"

#include <algorithm>
#include <limits>

#include "core/project/project_document.h"
#include "core/runtime/run_time_error.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::size_t kColumns = 60;
constexpr std::size_t kFloor = 2 * kColumns / 3;  // no cut before this column
constexpr int kOldFormatLines = 5;
constexpr int16_t kOldFormatCount = 7;

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

}  // namespace

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
    count = CountOfNoLines;
    return description.empty() ? description : WrappedLines(LinesOfText(description), count);
}

void ReadDescriptionBlock(TextInput& input, std::string& description, int16_t& count) {
    std::string line = input.Line();
    if (line == DescriptionStart) line = input.Line();
    count = 1;
    for (; line != DescriptionEnd; line = input.Token()) AppendLine(line, description, count);
}

void ReadOldDescription(TextInput& input, std::string& description, int16_t& count) {
    count = 1;
    for (int i = 1; i <= kOldFormatLines; ++i) AppendLine(input.Line(), description, count);
    count = kOldFormatCount;
}

}  // namespace tarvokol
