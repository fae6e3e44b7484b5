// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/csv_reader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/files/table_kind.h"
#include "core/runtime/charset.h"
#include "core/runtime/text.h"

namespace tarvokol {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kLongestRecord = std::size_t{16} << 20;  // bytes; a quote that never closes ends here
constexpr std::size_t kLongestLine = std::size_t{64} << 20;    // bytes; what never ends a line is no table

constexpr const char* kEndsInCr = "the line ends in CR alone; save the table with LF or CR LF";

// How often a separator stands in a header outside quotes.
std::ptrdiff_t Outside(std::string_view header, char separator) {
    std::ptrdiff_t count = 0;
    bool quoted = false;
    for (const char c : header) {
        if (c == '"') quoted = !quoted;
        if (!quoted && c == separator) ++count;
    }
    return count;
}

bool IsBlankCell(const std::string& cell) {
    return IsBlank(cell, kBlanks);
}

}  // namespace

CsvReader::CsvReader(std::istream& input, std::string name) : input_(input), name_(std::move(name)) {
    ReadHeader();
}

void CsvReader::ReadHeader() {
    std::string line;
    while (ReadLine(line)) {
        if (line_ == 1) {
            if (const std::string why = WhyNoTable(line); !why.empty()) throw TableFault(name_ + ": " + why);
            if (line.starts_with(kUtf8Mark)) line.erase(0, kUtf8Mark.size());
        }
        if (!IsBlank(line, kBlanks)) break;
        line.clear();
    }
    if (IsBlank(line, kBlanks))
        throw TableFault(name_ + ": the table is empty; its first line names the columns");
    header_line_ = line_;
    const std::ptrdiff_t commas = Outside(line, ',');
    const std::ptrdiff_t semicolons = Outside(line, ';');
    if (Outside(Trimmed(line, kBlanks), '\t') > std::max(commas, semicolons))
        throw FaultOfHeader("the columns are separated by tabs; save the table with commas or semicolons");
    separator_ = semicolons > commas ? ';' : ',';
    TableRow row;
    row.line = line_;
    SplitRecord(line, row);
    for (const std::string& cell : row.cells) header_.emplace_back(Trimmed(cell, kBlanks));
}

TableFault CsvReader::FaultAt(std::uint64_t line, const std::string& why) const {
    return TableFault(name_ + ", line " + std::to_string(line) + ": " + why);
}

TableFault CsvReader::FaultOfHeader(const std::string& why) const {
    return FaultAt(header_line_, why);
}

TableFault CsvReader::FaultOf(const TableRow& row, std::size_t cell, const std::string& why) const {
    const std::string title = cell < header_.size() ? " (" + header_[cell] + ")" : "";
    std::uint64_t line = row.line;
    for (std::size_t before = 0; before < std::min(cell, row.cells.size()); ++before)
        line +=
            static_cast<std::uint64_t>(std::count(row.cells[before].begin(), row.cells[before].end(), '\n'));
    return FaultAt(line, "column " + std::to_string(cell + 1) + title + ": " + why);
}

TableFault CsvReader::FaultOfTitle(std::size_t cell, const std::string& why) const {
    TableRow header;
    header.line = header_line_;
    header.cells = header_;
    return FaultOf(header, cell, why);
}

// A line of the file without its line feed, in pieces, so that what has no lines takes no more memory than the longest one.
bool CsvReader::ReadPieces(std::string& line) {
    std::array<char, 65536> piece;
    line.clear();
    for (;;) {
        input_.getline(piece.data(), piece.size());
        const auto count = static_cast<std::size_t>(input_.gcount());
        if (input_.bad()) throw TableFault(name_ + ": the table cannot be read to its end");
        const bool ended = !input_.fail() && !input_.eof();
        line.append(piece.data(), ended ? count - 1 : count);  // the line feed counts, too
        if (ended) return true;
        if (input_.eof()) return !line.empty();
        input_.clear();
        if (line.size() > kLongestLine) throw FaultAt(line_ + 1, "a line of more than 64 MB");
    }
}

// Without its line end; a line feed inside quotes belongs to the record, not to the line.
bool CsvReader::ReadLine(std::string& line) {
    if (!ReadPieces(line)) return false;
    ++line_;
    if (line.ends_with('\r')) line.pop_back();
    return true;
}

bool CsvReader::Next(TableRow& row) {
    for (;; ++blank_rows_) {
        if (!ReadRecord(row)) return false;
        if (!std::all_of(row.cells.begin(), row.cells.end(), IsBlankCell)) break;
    }
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
    } while (IsBlank(line, kBlanks));
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
            if (cell.find('\r') != std::string::npos) throw FaultAt(row.line, kEndsInCr);
        }
        row.cells.push_back(DecodeText(cell, DetectCharset(cell)));
        if (at >= line.size()) return;
    }
}

// Reads on after the opening quote at `at` and leaves `at` on the separator after the closing one, or at
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
    if (at < line.size() && line[at] == '\r') throw FaultAt(row.line, kEndsInCr);
    if (at < line.size() && line[at] != separator_)
        throw FaultOf(row, row.cells.size(), "text stands after a closing quote");
    return cell;
}

}  // namespace tarvokol
