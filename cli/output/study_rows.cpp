// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output/study_rows.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <set>
#include <utility>

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"

namespace tarvokol::cli {
namespace {

constexpr const char* kMessageColumn = "Message";

// The columns that have a unit.
std::vector<LeadingColumn> ColumnsWithUnits(const RowLayout& layout) {
    std::vector<LeadingColumn> columns = layout.leading;
    for (const StudyFigure& figure : StudyFigures(layout.sizes))
        columns.push_back({figure.name, figure.unit});
    std::erase_if(columns, [](const LeadingColumn& column) { return column.unit.empty(); });
    return columns;
}

// Names of which no two are the same in any letter case.
class NamesOnce {
  public:
    // The columns that are still to come; none of them gives way to a name with a number.
    explicit NamesOnce(const std::vector<LeadingColumn>& columns) {
        for (const LeadingColumn& column : columns) given_.insert(UpperCase(column.title));
    }

    void Take(const std::string& name) { taken_.insert(UpperCase(name)); }

    std::string Name(const std::string& title) {
        std::string name = title;
        const auto is_free = [this, &name, &title] {
            const std::string key = UpperCase(name);
            return !taken_.contains(key) && (name == title || !given_.contains(key));
        };
        for (int number = 2; !is_free(); ++number) name = title + ' ' + std::to_string(number);
        Take(name);
        return name;
    }

  private:
    std::set<std::string> given_;
    std::set<std::string> taken_;
};

}  // namespace

std::vector<std::string> TitlesOf(const RowLayout& layout) {
    NamesOnce names(layout.leading);
    std::vector<std::string> titles;
    const auto add = [&](const std::string& name, const std::string& unit) {
        // The bare name counts as well: a table may bring along what another output of ours has written.
        names.Take(name);
        titles.push_back(layout.bare_header ? name : TitleWithUnit(name, unit));
        names.Take(titles.back());
    };
    for (const LeadingColumn& column : layout.leading)
        if (!column.carried) add(column.title, column.unit);
    for (const StudyFigure& figure : StudyFigures(layout.sizes)) add(figure.name, figure.unit);
    if (layout.probabilities)
        for (const StudyFigure& one : kRowProbabilities) add(one.name, "");
    add(kMessageColumn, "");
    for (const LeadingColumn& column : layout.leading)
        if (column.carried) titles.push_back(names.Name(column.title));
    return titles;
}

std::string UnitsInWords(const RowLayout& layout) {
    std::string words;
    for (const LeadingColumn& column : ColumnsWithUnits(layout))
        words += (words.empty() ? "" : ", ") + column.title + " " + column.unit;
    return words;
}

RowWriter::RowWriter(RowFormat format, const std::string& project, RowLayout layout)
    : format_(format), layout_(std::move(layout)) {
    NamesOnce keys(layout_.leading);
    for (const LeadingColumn& column : layout_.leading) {
        field_keys_.emplace_back(column.title);
        carried_keys_.push_back(column.carried ? keys.Name(column.title) : "");
    }
    for (const StudyFigure& figure : StudyFigures(layout_.sizes)) figure_keys_.emplace_back(figure.name);
    if (layout_.probabilities)
        for (const StudyFigure& one : kRowProbabilities) figure_keys_.emplace_back(one.name);
    start_.Add("file", project);
    JsonMembers units;
    for (const LeadingColumn& column : ColumnsWithUnits(layout_)) units.Add(column.title, column.unit);
    end_.Add("units", units);
    end_.Add("schema", kSchemaVersion);
}

std::string RowWriter::Header() const {
    std::string header;
    if (format_ == RowFormat::JsonLines) return header;
    CsvWriter line(header);
    for (const std::string& title : TitlesOf(layout_)) line.AddTitle(title);
    line.EndLine();
    return header;
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
        AppendJson(text, leading, figures, texts);
}

void RowWriter::AppendCsv(std::string& text, std::span<const LeadingCell* const> leading,
                          const PanelFigures& figures, FigureTexts& texts) const {
    CsvWriter line(text);
    for (std::size_t i = 0; i < leading.size(); ++i)
        if (!layout_.leading[i].carried) line.AddDigits(leading[i]->text);
    // A million rows are written here: the figures go into the text as one piece.
    std::array<char, (kStudyFigures.size() + kRowProbabilities.size()) * (kLongestNumber + 1)> cells;
    char* end = cells.data();
    std::size_t column = 0;
    for (const StudyFigure& figure : StudyFigures(layout_.sizes)) {
        if (column > 0) *end++ = CsvSeparator;
        end = texts.Write(end, column++, figures.*figure.value);
    }
    if (layout_.probabilities)
        for (const StudyFigure& one : kRowProbabilities) {
            *end++ = CsvSeparator;
            end = texts.Write(end, column++, figures.*one.value);
        }
    line.AddDigits({cells.data(), end});
    if (figures.message.empty())
        line.AddDigits("");
    else
        line.AddText(ReplaceAll(figures.message, CrLf, "\n"));
    for (std::size_t i = 0; i < leading.size(); ++i)
        if (layout_.leading[i].carried) line.AddText(leading[i]->text);
    line.EndLine();
}

void RowWriter::AppendJson(std::string& text, std::span<const LeadingCell* const> leading,
                           const PanelFigures& figures, FigureTexts& texts) const {
    JsonMembers& object = texts.Begin(start_);
    object.Add("ok", !figures.refused);
    JsonValues messages;
    if (!figures.message.empty()) messages.Add(figures.message);
    object.Add("messages", messages);
    for (std::size_t i = 0; i < leading.size(); ++i)
        if (!layout_.leading[i].carried) object.AddDigits(field_keys_[i], leading[i]->text);
    std::array<char, kLongestNumber> digits;
    std::size_t column = 0;
    for (const StudyFigure& figure : StudyFigures(layout_.sizes)) {
        const char* end = texts.Write(digits.data(), column, figures.*figure.value);
        object.AddDigits(figure_keys_[column++], {digits.data(), end});
    }
    if (layout_.probabilities)
        for (const StudyFigure& one : kRowProbabilities) {
            const char* end = texts.Write(digits.data(), column, figures.*one.value);
            object.AddDigits(figure_keys_[column++], {digits.data(), end});
        }
    if (layout_.from_a_table) {
        JsonMembers row;
        for (std::size_t i = 0; i < leading.size(); ++i)
            if (layout_.leading[i].carried) row.Add(carried_keys_[i], leading[i]->text);
        object.Add("row", row);
    }
    object.Append(end_);
    object.AppendLine(text);
}

}  // namespace tarvokol::cli
