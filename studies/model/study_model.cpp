// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/study_model.h"

#include <filesystem>

#include "core/engine/panel_texts.h"
#include "core/project/project_origin.h"
#include "core/runtime/text.h"
#include "core/statistics/study_numbers.h"
#include "core/studies/study_names.h"

namespace tarvokol {
namespace {

// A range in which the figure no longer lies is proposed anew.
void FollowWithRanges(StudyState& state) {
    const auto units = static_cast<Units>(state.document.unit_system);
    for (const PanelFieldFacts& facts : kPanelFields) {
        const double value = ValueOfField(state.document.inputs, facts.field);
        FieldRange& range = state.requests.ranges[static_cast<std::size_t>(facts.field)];
        if (value <= 0.0 || range.Holds(value)) continue;
        const FieldRange proposed = ProposedRange(facts.field, value, units);
        if (FaultOfRange(facts.field, proposed).empty()) range = proposed;
    }
}

void PutPanelInto(ProjectDocument& document, const Panel& panel, const std::string& title) {
    document.unit_system = static_cast<std::int16_t>(panel.units);
    document.title = title;
    const float spare = document.inputs.SpareSingle;
    document.inputs = panel;
    document.inputs.SpareSingle = spare;
}

}  // namespace

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
        requests_.ranges[Index(facts.field)] =
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
    ChangeDocument(document, {TitleOfField(field), NameOfField(field)});
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
    ChangeDocument(document, {words});
    history_.Seal();
    return true;
}

void StudyModel::TakePanel(const Panel& panel, const std::string& title, const std::string& words) {
    ProjectDocument document = project_.document;
    PutPanelInto(document, panel, title);
    typed_ = {};
    history_.Seal();
    ChangeDocument(document, {words});
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
    ChangeDocument(document, {"Title", "Title"});
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
    PageRequests requests = requests_;
    std::string fault = FaultOfRange(field, range);
    if (fault.empty()) requests.ranges[Index(field)] = range;
    ChangeRequests(requests);
    return fault;
}

void StudyModel::AskFor(const MapChoice& map) {
    PageRequests requests = requests_;
    requests.map = map;
    ChangeRequests(requests);
}

void StudyModel::AskFor(const RiskPlan& risk) {
    PageRequests requests = requests_;
    requests.risk = risk;
    ChangeRequests(requests);
}

void StudyModel::AskFor(const WidthQuestion& width) {
    PageRequests requests = requests_;
    requests.width = width;
    ChangeRequests(requests);
}

void StudyModel::AskFor(const std::vector<AskedDesign>& designs) {
    PageRequests requests = requests_;
    requests.designs = designs;
    ChangeRequests(requests);
}

void StudyModel::Begin(const PageRequests& requests) {
    history_.Clear();
    Show({project_.document, WithSoundRanges(requests)});
}

void StudyModel::BeginStudy(const PageRequests& requests, const Panel& panel, const std::string& title) {
    StudyState study{project_.document, WithSoundRanges(requests)};
    PutPanelInto(study.document, panel, title);
    Begin(requests);
    Change(study, {"Figures of the study"});
}

PageRequests StudyModel::WithSoundRanges(PageRequests requests) const {
    for (const PanelFieldFacts& facts : kPanelFields)
        if (!FaultOfRange(facts.field, requests.ranges[Index(facts.field)]).empty())
            requests.ranges[Index(facts.field)] = RangeOf(facts.field);
    return requests;
}

std::optional<StudyPages> StudyModel::Undo() {
    if (!CanUndo()) return std::nullopt;
    const StudyHistory::Step& step = history_.Undo();
    return ShowStep(step, step.before);
}

std::optional<StudyPages> StudyModel::Redo() {
    if (!CanRedo()) return std::nullopt;
    const StudyHistory::Step& step = history_.Redo();
    return ShowStep(step, step.after);
}

std::optional<StudyPages> StudyModel::ShowStep(const StudyHistory::Step& step, const StudyState& state) {
    const std::optional<StudyPages> page = step.name.page;
    if (step.table == nullptr) {
        Show(state);
        return page;
    }
    change_table_(*step.table);
    Renew();
    return page;
}

void StudyModel::ChangeTable(SheetChange change, const std::string& words) {
    change_table_(change);
    history_.Add({{words, "", StudyPages::Table}, {}, {}, std::make_shared<SheetChange>(std::move(change))});
    Renew();
}

void StudyModel::Show(const StudyState& state) {
    StudyState shown = state;
    FollowWithRanges(shown);
    project_.document = shown.document;
    requests_ = shown.requests;
    typed_ = {};
    Renew();
}

void StudyModel::Change(StudyState next, const StepName& name) {
    FollowWithRanges(next);
    const StudyState now = State();
    if (!AreSame(now, next)) {
        history_.Add({name, now, next});
        project_.document = next.document;
        requests_ = next.requests;
    }
    Renew();
}

void StudyModel::ChangeDocument(const ProjectDocument& document, const StepName& name) {
    Change({document, requests_}, name);
}

void StudyModel::ChangeRequests(const PageRequests& requests) {
    Change({project_.document, requests}, NameOfChange(requests_, requests));
}

void StudyModel::Renew() {
    is_changed_ = project_.IsChanged();
    reading_ = ReadPanel(ProjectPanel());
    for (const Listener& listener : listeners_) listener();
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
