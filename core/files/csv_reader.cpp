// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/csv_reader.h"

#include <algorithm>
#include <utility>

#include "core/runtime/charset.h"

namespace tarvokol {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestRecord = std::size_t{16} << 20;  // bytes; a quote that never closes ends here

// The separator of a header: what stands in it more often, outside quotes.
char SeparatorOf(std::string_view header) {
    int commas = 0;
    int semicolons = 0;
    bool quoted = false;
    for (const char c : header) {
        if (c == '"') quoted = !quoted;
        if (!quoted && c == ',') ++commas;
        if (!quoted && c == ';') ++semicolons;
    }
    return semicolons > commas ? ';' : ',';
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool IsBlank(const std::string& line) {
    return line.find_first_not_of(" \t") == std::string::npos;
}

}  // namespace

CsvReader::CsvReader(std::istream& input, std::string name) : input_(input), name_(std::move(name)) {
    std::string line;
    while (ReadLine(line)) {
        if (line_ == 1 && line.starts_with(kUtf8Mark)) line.erase(0, kUtf8Mark.size());
        if (!IsBlank(line)) break;
        line.clear();
    }
    if (IsBlank(line)) throw TableFault(name_ + ": the table is empty; its first line names the columns");
    separator_ = SeparatorOf(line);
    TableRow row;
    row.line = line_;
    SplitRecord(line, row);
    for (const std::string& cell : row.cells) header_.push_back(Trimmed(cell));
}

TableFault CsvReader::FaultAt(std::uint64_t line, const std::string& why) const {
    return TableFault(name_ + ", line " + std::to_string(line) + ": " + why);
}

TableFault CsvReader::FaultOf(const TableRow& row, std::size_t cell, const std::string& why) const {
    const std::string title = cell < header_.size() ? " (" + header_[cell] + ")" : "";
    return FaultAt(row.line, "column " + std::to_string(cell + 1) + title + ": " + why);
}

// Without its line end; a line feed inside quotes belongs to the record, not to the line.
bool CsvReader::ReadLine(std::string& line) {
    if (!std::getline(input_, line)) {
        if (input_.bad()) throw TableFault(name_ + ": the table cannot be read to its end");
        return false;
    }
    ++line_;
    if (line.ends_with('\r')) line.pop_back();
    return true;
}

bool CsvReader::Next(TableRow& row) {
    if (!ReadRecord(row)) return false;
    if (row.cells.size() == header_.size()) return true;
    const bool more = row.cells.size() > header_.size();
    throw FaultAt(row.line,
                  std::to_string(row.cells.size()) + " cells under " + std::to_string(header_.size()) +
                      " columns" +
                      (more && separator_ == ',' ? "; a figure needs a decimal point, not a comma" : ""));
}

bool CsvReader::ReadRecord(TableRow& row) {
    std::string line;
    do {
        if (!ReadLine(line)) return false;
    } while (IsBlank(line));
    row.line = line_;
    SplitRecord(line, row);
    return true;
}

void CsvReader::SplitRecord(const std::string& first_line, TableRow& row) {
    std::string line = first_line;
    row.cells.clear();
    for (std::size_t at = 0;; ++at) {
        std::string cell;
        if (at < line.size() && line[at] == '"') {
            cell = QuotedCell(line, at, row);
        } else {
            const std::size_t end = std::min(line.find(separator_, at), line.size());
            cell = line.substr(at, end - at);
            at = end;
        }
        row.cells.push_back(DecodeText(cell, DetectCharset(cell)));
        if (at >= line.size()) return;
    }
}

// Reads on behind the opening quote at `at` and leaves `at` on the separator behind the closing one, or at
// the end. A quoted cell may go on over several lines, which are added to `line`.
std::string CsvReader::QuotedCell(std::string& line, std::size_t& at, const TableRow& row) {
    std::string cell;
    for (++at;; ++at) {
        if (at >= line.size()) {
            std::string next;
            if (cell.size() > kLongestRecord || !ReadLine(next))
                throw FaultOf(row, row.cells.size(), "a quote does not close");
            line = std::move(next);
            cell += '\n';
            at = static_cast<std::size_t>(-1);
            continue;
        }
        if (line[at] != '"') {
            cell += line[at];
        } else if (at + 1 < line.size() && line[at + 1] == '"') {
            cell += '"';
            ++at;
        } else {
            break;
        }
    }
    ++at;
    if (at < line.size() && line[at] != separator_)
        throw FaultOf(row, row.cells.size(), "text stands behind a closing quote");
    return cell;
}

}  // namespace tarvokol
