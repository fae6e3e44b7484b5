// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/studies/kept_study.h"

#include <filesystem>
#include <system_error>

#include "core/files/csv_writer.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/statistics/study_refusal.h"
#include "core/studies/field_digits.h"

namespace tarvokol {
namespace {

// A text as one line.
std::string Escaped(const std::string& text) {
    std::string line;
    for (const char c : text) {
        if (c == '\\')
            line += "\\\\";
        else if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else
            line += c;
    }
    return line;
}

std::string Shortest(double value) {
    std::string digits;
    AppendShortest(digits, value);
    return digits;
}

std::string RecordOf(const std::vector<std::string>& cells) {
    std::string record;
    CsvWriter line(record);
    for (const std::string& cell : cells) line.AddText(cell);
    return Escaped(record);
}

class StudyWriter {
  public:
    void Section(const std::string& name) { text_ += (text_.empty() ? "[" : "\r\n[") + name + "]\r\n"; }
    void Key(const std::string& key, const std::string& value) { text_ += key + "=" + value + "\r\n"; }

    void Figures(const Panel& panel) {
        Key("UnitSystem", std::to_string(static_cast<int>(panel.units)));
        for (const PanelFieldFacts& facts : kPanelFields) Key(facts.name, DigitsOfField(panel, facts.field));
        Key("CrosscutSpacing", Shortest(panel.CrosscutSpacing));
        Key("CrosscutAngle", Shortest(panel.CrosscutAngle));
    }

    std::string Text() { return std::move(text_); }

  private:
    std::string text_;
};

void WriteRisk(StudyWriter& file, const RiskPlan& plan) {
    file.Section("Risk");
    file.Key("Samples", std::to_string(plan.samples));
    file.Key("Seed", std::to_string(plan.seed));
    if (plan.design_points) file.Key("DesignPoints", "1");
    int number = 0;
    for (const UncertainField& one : plan.fields)
        file.Key("Random" + std::to_string(++number),
                 std::string(NameOfField(one.field)) + ":" + Escaped(one.distribution));
    number = 0;
    for (const FieldCorrelation& one : plan.correlations)
        file.Key(
            "Correlate" + std::to_string(++number),
            std::string(NameOfField(one.first)) + "," + NameOfField(one.second) + "," + Shortest(one.value));
}

void WriteTable(StudyWriter& file, const KeptStudy& study) {
    file.Section("Table");
    file.Key("Rows", std::to_string(study.rows.size()));
    file.Key("Columns", RecordOf(study.columns));
    std::size_t number = 0;
    for (const std::vector<std::string>& row : study.rows)
        file.Key("Row" + std::to_string(++number), RecordOf(row));
}

std::string WithUnit(PanelField field, Units units) {
    return TitleWithUnit(NameOfField(field), UnitOfField(field, units));
}

}  // namespace

std::string TextOfStudy(const KeptStudy& study) {
    StudyWriter file;
    file.Section(std::string(kStudyMagic.substr(1, kStudyMagic.size() - 2)));
    file.Key("Version", "1");
    file.Key("Page", kStudyPageNames[static_cast<std::size_t>(study.page)]);
    file.Section("Project");
    file.Key("Path", Escaped(study.project));
    file.Key("Title", Escaped(study.title));
    file.Figures(study.panel);
    file.Section("Ranges");
    for (const PanelFieldFacts& facts : kPanelFields) {
        const FieldRange& range = study.ranges[static_cast<std::size_t>(facts.field)];
        file.Key(facts.name, Shortest(range.low) + ":" + Shortest(range.high));
    }
    file.Section("Map");
    file.Key("X", NameOfField(study.map.x.field));
    file.Key("Y", study.map.y ? NameOfField(study.map.y->field) : "");
    file.Key("Figure", study.map.figure->name);
    WriteRisk(file, study.risk);
    file.Section("Width");
    file.Key("Field", NameOfField(study.width.field));
    file.Key("Probability", Escaped(study.width.probability));
    file.Key("Step", Escaped(study.width.step));
    if (!study.columns.empty()) WriteTable(file, study);
    int number = 0;
    for (const NamedPanel& design : study.designs) {
        file.Section("Design " + std::to_string(++number));
        file.Key("Name", Escaped(design.name));
        file.Figures(design.panel);
    }
    file.Section("End");
    return file.Text();
}

std::string ProjectSeenFrom(const std::string& study_path, const std::string& project_path) {
    if (project_path.empty()) return "";
    std::error_code failure;
    const auto folder = std::filesystem::absolute(study_path, failure).lexically_normal().parent_path();
    const auto project = std::filesystem::absolute(project_path, failure).lexically_normal();
    return project.lexically_relative(folder).generic_string();
}

std::string ProjectPathOf(const KeptStudy& study, const std::string& study_path) {
    if (study.project.empty()) return "";
    std::error_code failure;
    const auto folder = std::filesystem::absolute(study_path, failure).lexically_normal().parent_path();
    return (folder / study.project).lexically_normal().string();
}

std::string ChangesSince(const Panel& kept, const Panel& present) {
    if (kept.units != present.units) return "it is in another unit system";
    std::string words;
    const auto add = [&words](const std::string& title, const std::string& was, const std::string& is) {
        if (was != is) words += (words.empty() ? "" : "; ") + title + " was " + was + " and is " + is;
    };
    for (const PanelFieldFacts& facts : kPanelFields)
        add(TitleWithUnit(facts.title, UnitOfField(facts.field, kept.units)),
            DigitsOfField(kept, facts.field), DigitsOfField(present, facts.field));
    add("Crosscut spacing", Shortest(kept.CrosscutSpacing), Shortest(present.CrosscutSpacing));
    add("Crosscut angle", Shortest(kept.CrosscutAngle), Shortest(present.CrosscutAngle));
    return words;
}

std::string CsvOfTable(const KeptStudy& study) {
    std::string csv;
    CsvWriter line(csv);
    for (const std::string& title : study.columns) line.AddTitle(title);
    line.EndLine();
    for (const std::vector<std::string>& row : study.rows) {
        for (const std::string& cell : row) line.AddText(cell);
        line.EndLine();
    }
    return csv;
}

std::string CsvOfDesigns(const KeptStudy& study) {
    std::string csv;
    CsvWriter line(csv);
    line.AddTitle("Design");
    for (const PanelFieldFacts& facts : kPanelFields) line.AddTitle(WithUnit(facts.field, study.panel.units));
    line.EndLine();
    for (const NamedPanel& design : study.designs) {
        if (design.panel.units != study.panel.units)
            throw StudyRefusal(design.name, "the design is in other units than the project");
        if (design.panel.CrosscutSpacing != study.panel.CrosscutSpacing ||
            design.panel.CrosscutAngle != study.panel.CrosscutAngle)
            throw StudyRefusal(design.name, "the design has other crosscuts than the project");
        line.AddText(design.name);
        for (const PanelFieldFacts& facts : kPanelFields)
            line.AddDigits(DigitsOfField(design.panel, facts.field));
        line.EndLine();
    }
    return csv;
}

}  // namespace tarvokol
