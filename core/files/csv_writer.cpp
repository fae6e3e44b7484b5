// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/files/csv_writer.h"

#include "core/runtime/text.h"

namespace tarvokol {

namespace {

void AppendField(std::string& csv, std::string_view text, const char* quoted_for) {
    if (text.find_first_of(quoted_for) == std::string_view::npos) {
        csv += text;
        return;
    }
    csv += '"';
    csv += ReplaceAll(text, "\"", "\"\"");
    csv += '"';
}

}  // namespace

std::string CsvField(std::string_view text) {
    std::string field;
    AppendField(field, text, ",\"\r\n");
    return field;
}

void CsvWriter::Separate() {
    if (line_begun_) csv_ += CsvSeparator;
    line_begun_ = true;
}

void CsvWriter::AddTitle(std::string_view title) {
    Separate();
    AppendField(csv_, title, ",;\t\"\r\n");
}

void CsvWriter::AddText(std::string_view text) {
    Separate();
    AppendField(csv_, text, ",\"\r\n");
}

void CsvWriter::AddDigits(std::string_view digits) {
    Separate();
    csv_ += digits;
}

void CsvWriter::EndLine() {
    csv_ += CsvLineEnd;
    line_begun_ = false;
}

std::string TitleWithUnit(std::string_view name, std::string_view unit) {
    std::string title(name);
    if (!unit.empty()) title.append(" (").append(unit).append(")");
    return title;
}

CsvTitle TakenApart(std::string_view title) {
    const std::size_t bracket = title.rfind('(');
    if (bracket == std::string_view::npos || !title.ends_with(')')) return {std::string(title), ""};
    return {TrimRight(title.substr(0, bracket)), Trim(title.substr(bracket + 1, title.size() - bracket - 2))};
}

}  // namespace tarvokol
