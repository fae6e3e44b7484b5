// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/study_rows.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "cli/output/json.h"
#include "core/graphics/curve_export.h"
#include "core/statistics/study_numbers.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kCsvLineEnd = "\r\n";
constexpr const char* kMessageColumn = "Message";

std::string Key(const std::string& title) {
    return ',' + JsonText(title) + ':';
}

// Most cells need no quotes; they are not copied.
void AppendCell(std::string& text, const std::string& cell) {
    if (cell.find_first_of(",\"\r\n") == std::string::npos)
        text += cell;
    else
        text += CsvField(cell);
}

// The columns that have a unit.
std::vector<LeadingColumn> ColumnsWithUnits(std::span<const LeadingColumn> leading, bool sizes) {
    std::vector<LeadingColumn> columns(leading.begin(), leading.end());
    for (const StudyFigure& figure : StudyFigures(sizes)) columns.push_back({figure.name, figure.unit});
    std::erase_if(columns, [](const LeadingColumn& column) { return column.unit.empty(); });
    return columns;
}

}  // namespace

std::vector<std::string> FigureColumns(bool sizes) {
    std::vector<std::string> titles;
    for (const StudyFigure& figure : StudyFigures(sizes)) titles.emplace_back(figure.name);
    titles.emplace_back(kMessageColumn);
    return titles;
}

std::vector<std::string> FigureTitlesWithUnits(bool sizes) {
    std::vector<std::string> titles;
    for (const StudyFigure& figure : StudyFigures(sizes))
        titles.push_back(TitleWithUnit({figure.name, figure.unit}));
    titles.emplace_back(kMessageColumn);
    return titles;
}

std::string TitleWithUnit(const LeadingColumn& column) {
    return column.unit.empty() ? column.title : column.title + " (" + column.unit + ")";
}

std::string UnitsInWords(std::span<const LeadingColumn> leading, bool sizes) {
    std::string words;
    for (const LeadingColumn& column : ColumnsWithUnits(leading, sizes))
        words += (words.empty() ? "" : ", ") + column.title + " " + column.unit;
    return words;
}

RowWriter::RowWriter(RowFormat format, const std::string& project, std::vector<LeadingColumn> leading,
                     bool sizes)
    : format_(format),
      leading_(std::move(leading)),
      sizes_(sizes),
      object_start_("{\"file\":" + JsonText(project)) {
    for (const LeadingColumn& column : leading_) lead_keys_.push_back(Key(column.title));
    for (const StudyFigure& figure : StudyFigures(sizes_)) figure_keys_.push_back(Key(figure.name));
    JsonMembers end;
    JsonMembers units;
    for (const LeadingColumn& column : ColumnsWithUnits(leading_, sizes_))
        units.Add(column.title, column.unit);
    end.Add("units", units);
    end.Add("schema", kSchemaVersion);
    object_end_ = ',' + end.Members() + "}\n";
}

std::string RowWriter::Header() const {
    if (format_ == RowFormat::JsonLines) return "";
    std::string header;
    const auto add = [&header](const std::string& title) {
        if (!header.empty()) header += ',';
        header += CsvField(title);
    };
    for (const LeadingColumn& column : leading_) add(column.title);
    for (const std::string& title : FigureColumns(sizes_)) add(title);
    return header + kCsvLineEnd;
}

char* FigureTexts::Write(char* place, std::size_t column, double value) {
    Kept& kept = kept_[column];
    if (std::bit_cast<std::uint64_t>(kept.value) != std::bit_cast<std::uint64_t>(value)) {
        kept.value = value;
        kept.size = static_cast<std::size_t>(WriteShortest(kept.digits.data(), value) - kept.digits.data());
    }
    // All of the room is copied: a copy whose length is known beforehand takes a fraction of the time.
    std::copy_n(kept.digits.data(), kLongestNumber, place);
    return place + kept.size;
}

void RowWriter::Append(std::string& text, std::span<const LeadingCell* const> leading,
                       const PanelFigures& figures, FigureTexts& texts) const {
    if (format_ == RowFormat::Csv)
        AppendCsv(text, leading, figures, texts);
    else
        AppendJson(text, leading, figures);
}

void RowWriter::AppendCsv(std::string& text, std::span<const LeadingCell* const> leading,
                          const PanelFigures& figures, FigureTexts& texts) const {
    for (const LeadingCell* cell : leading) {
        if (cell->number)
            text += cell->text;
        else
            AppendCell(text, cell->text);
        text += ',';
    }
    // A million rows are written here: the figures go into the text as one piece.
    std::array<char, kStudyFigures.size() * (kLongestNumber + 1)> line;
    char* end = line.data();
    std::size_t column = 0;
    for (const StudyFigure& figure : StudyFigures(sizes_)) {
        end = texts.Write(end, column++, figures.*figure.value);
        *end++ = ',';
    }
    text.append(line.data(), end);
    if (!figures.message.empty()) AppendCell(text, figures.message);
    text += kCsvLineEnd;
}

void RowWriter::AppendJson(std::string& text, std::span<const LeadingCell* const> leading,
                           const PanelFigures& figures) const {
    text += object_start_;
    text += figures.refused ? ",\"ok\":false,\"messages\":[" : ",\"ok\":true,\"messages\":[";
    if (!figures.message.empty()) text += JsonText(figures.message);
    text += ']';
    for (std::size_t i = 0; i < leading.size(); ++i) {
        text += lead_keys_[i];
        text += !leading[i]->number        ? JsonText(leading[i]->text)
                : leading[i]->text.empty() ? "null"
                                           : leading[i]->text;
    }
    std::size_t key = 0;
    for (const StudyFigure& figure : StudyFigures(sizes_)) {
        text += figure_keys_[key++];
        const double value = figures.*figure.value;
        if (std::isnan(value))
            text += "null";
        else
            AppendShortest(text, value);
    }
    text += object_end_;
}

}  // namespace tarvokol::cli
