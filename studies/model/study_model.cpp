// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/study_model.h"

#include <filesystem>

#include "core/engine/panel_texts.h"
#include "core/project/project_origin.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_names.h"

namespace tarvokol {

StudyModel::StudyModel() {
    Take(NewStudyProject(0));
}

void StudyModel::New(std::int16_t unit_system) {
    Take(NewStudyProject(unit_system));
}

void StudyModel::Open(const std::string& path) {
    Take(OpenStudyProject(path));
}

void StudyModel::OpenCopy(const std::string& copy, const std::string& path) {
    StudyProject project = OpenStudyProject(copy);
    project.path = path;
    project.image = ImageOf(path, kLargestProject);
    project.saved_text.clear();
    Take(std::move(project));
}

bool StudyModel::SaveAs(const std::string& path) {
    const bool saved = SaveStudyProject(project_, path);
    history_.Seal();
    Renew();
    return saved;
}

void StudyModel::Take(StudyProject project) {
    project_ = std::move(project);
    history_.Clear();
    typed_ = {};
    for (const PanelFieldFacts& facts : kPanelFields)
        ranges_[Index(facts.field)] =
            ProposedRange(facts.field, ValueOfField(project_.document.inputs, facts.field), ProjectUnits());
    Renew();
}

Panel StudyModel::ProjectPanel() const {
    return {project_.document.inputs, ProjectUnits()};
}

std::string StudyModel::Title() const {
    return project_.document.title.empty() ? FileName() : project_.document.title;
}

std::string StudyModel::FileName() const {
    return project_.path.empty() ? "Untitled" : std::filesystem::path(project_.path).filename().string();
}

bool StudyModel::Set(PanelField field, double value) {
    if (!FitsField(field, value)) return false;
    ProjectDocument document = project_.document;
    StoreInField(document.inputs, field, value);
    typed_[Index(field)].reset();
    Change(document, TitleOfField(field), NameOfField(field));
    return true;
}

bool StudyModel::SetAll(const std::vector<std::pair<PanelField, double>>& values, const std::string& words) {
    ProjectDocument document = project_.document;
    for (const auto& [field, value] : values) {
        if (!FitsField(field, value)) return false;
        StoreInField(document.inputs, field, value);
    }
    for (const auto& [field, value] : values) typed_[Index(field)].reset();
    history_.Seal();
    Change(document, words, "");
    history_.Seal();
    return true;
}

void StudyModel::TakePanel(const Panel& panel, const std::string& title, const std::string& words) {
    ProjectDocument document = project_.document;
    document.unit_system = static_cast<std::int16_t>(panel.units);
    document.title = title;
    const float spare = document.inputs.SpareSingle;
    document.inputs = panel;
    document.inputs.SpareSingle = spare;
    typed_ = {};
    history_.Seal();
    Change(document, words, "");
    history_.Seal();
}

void StudyModel::Type(PanelField field, const std::string& text) {
    const std::string fault = FaultOfText(field, text);
    if (fault.empty()) {
        Set(field, RequiredNumber(Trim(text)));
        return;
    }
    typed_[Index(field)] = TypedFault{text, fault};
    Renew();
}

void StudyModel::SetTitle(const std::string& title) {
    ProjectDocument document = project_.document;
    document.title = title;
    std::erase_if(document.title, [](char c) { return c == '\r' || c == '\n'; });
    Change(document, "Title", "Title");
}

std::string StudyModel::TextOf(PanelField field) const {
    if (const auto& typed = typed_[Index(field)]) return typed->text;
    return DigitsOfField(project_.document.inputs, field);
}

std::string StudyModel::FaultOf(PanelField field) const {
    if (const auto& typed = typed_[Index(field)]) return typed->fault;
    return reading_.refusal && reading_.refusal->field == field ? reading_.refusal->message : "";
}

std::string StudyModel::GeneralFault() const {
    return reading_.refusal && !reading_.refusal->field ? reading_.refusal->message : "";
}

std::string StudyModel::SetRange(PanelField field, const FieldRange& range) {
    std::string fault = FaultOfRange(field, range);
    if (fault.empty()) ranges_[Index(field)] = range;
    Renew();
    return fault;
}

void StudyModel::ProposeRange(PanelField field) {
    ranges_[Index(field)] =
        ProposedRange(field, ValueOfField(project_.document.inputs, field), ProjectUnits());
    Renew();
}

void StudyModel::Undo() {
    if (!CanUndo()) return;
    project_.document = history_.Undo();
    typed_ = {};
    Renew();
}

void StudyModel::Redo() {
    if (!CanRedo()) return;
    project_.document = history_.Redo();
    typed_ = {};
    Renew();
}

void StudyModel::Change(const ProjectDocument& document, const std::string& words, const std::string& key) {
    if (DocumentText(document) != DocumentText(project_.document)) {
        history_.Add(words, key, project_.document, document);
        project_.document = document;
    }
    Renew();
}

void StudyModel::Renew() {
    is_changed_ = project_.IsChanged();
    reading_ = ReadPanel(ProjectPanel());
    for (const PanelFieldFacts& facts : kPanelFields) FollowWithRange(facts.field);
    for (const Listener& listener : listeners_) listener();
}

// A range in which the figure no longer lies is proposed anew.
void StudyModel::FollowWithRange(PanelField field) {
    const double value = ValueOfField(project_.document.inputs, field);
    FieldRange& range = ranges_[Index(field)];
    if (value <= 0.0 || range.Holds(value)) return;
    const FieldRange proposed = ProposedRange(field, value, ProjectUnits());
    if (FaultOfRange(field, proposed).empty()) range = proposed;
}

std::string StudyModel::FaultOfText(PanelField field, const std::string& text) const {
    const std::string number = Trim(text);
    std::string fault;
    if (number.empty())
        fault = "Blank field not allowed";
    else if (const auto value = WholeNumber(number); !value)
        fault = WhyNoNumber(number);
    else if (!FitsField(field, *value))
        fault = FaultOfUnfit(field);
    else if (IsWholeField(field))
        fault = HolesFault(number);
    if (fault.empty()) return "";
    return fault + "; the project keeps " + DigitsOfField(project_.document.inputs, field);
}

}  // namespace tarvokol
