// SPDX-License-Identifier: GPL-3.0-or-later
// The studies without their window: the project and what the pages ask for, with the changes of both, what the project's boxes
// hold, and the figures of the panel as it stands. Used by one thread.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "studies/model/field_range.h"
#include "studies/model/page_requests.h"
#include "studies/model/panel_reading.h"
#include "studies/model/study_history.h"
#include "studies/model/study_project.h"

namespace tarvokol {

class StudyModel {
  public:
    using Listener = std::function<void()>;

    StudyModel();

    // Is told after every change, whatever it is; views compare with what they show.
    void Tell(Listener listener) { listeners_.push_back(std::move(listener)); }

    // The project. Of Open and SaveAs see study_project.h; a failure leaves all as it was.
    void New(std::int16_t unit_system);
    void Open(const std::string& path);
    // A kept copy under the project's own path and as unsaved, so that a save mends the file.
    void OpenCopy(const std::string& copy, const std::string& path);
    bool SaveAs(const std::string& path);

    const ProjectDocument& Document() const { return project_.document; }
    const std::string& Path() const { return project_.path; }
    bool IsChanged() const { return is_changed_; }
    bool FileHasChanged() const { return HasForeignChange(project_); }
    Panel ProjectPanel() const;
    Units ProjectUnits() const { return static_cast<Units>(project_.document.unit_system); }

    // The project's title, else its file's name, else "Untitled".
    std::string Title() const;

    // "Contour_Bench_Shallow.TKL", or "Untitled".
    std::string FileName() const;

    // Gives a field a value, to be undone at once with those before it of the same field, until EndGesture. False, and
    // nothing is changed, for a value that the field cannot hold.
    bool Set(PanelField field, double value);
    void EndGesture() { history_.Seal(); }

    // Gives several fields their values, to be undone as one.
    bool SetAll(const std::vector<std::pair<PanelField, double>>& values, const std::string& words);

    // Takes the figures of a panel, in its units, and a title, to be undone as one.
    void TakePanel(const Panel& panel, const std::string& title, const std::string& words);

    // What the pages ask for. AskFor takes what a page asks for now, to be undone; what changes nothing is no step.
    // Figures that are typed are undone at once with those before them of the same box, until EndGesture.
    const PageRequests& Requests() const { return requests_; }
    void AskFor(const MapChoice& map);
    void AskFor(const RiskPlan& risk);  // whose correlations are numbers
    void AskFor(const WidthQuestion& width);
    void AskFor(const std::vector<AskedDesign>& designs);

    // Other requests in place of all of them, as a beginning: nothing before it is undone any more. In place of a range that
    // its field does not take the present one stays.
    void Begin(const PageRequests& requests);

    // The same of a study that was kept: its figures can be undone, to those of the project as it was opened.
    void BeginStudy(const PageRequests& requests, const Panel& panel, const std::string& title);

    // The table, which may be large, is kept by whoever shows it: he makes its changes here and, where they are undone and done
    // again, when he is asked. A change has become the one that takes it back each time.
    using TableChanger = std::function<void(SheetChange& change)>;
    void ChangeTableBy(TableChanger changer) { change_table_ = std::move(changer); }

    // Makes a change of the table, to be undone.
    void ChangeTable(SheetChange change, const std::string& words);

    // Takes what was typed into a field's box. What is no figure for the field stays there with its fault, and the project
    // keeps the figure that it has.
    void Type(PanelField field, const std::string& text);

    void SetTitle(const std::string& title);

    // The text of a field's box, and what is wrong with the field: what was typed, or what the check says of the panel.
    std::string TextOf(PanelField field) const;
    std::string FaultOf(PanelField field) const;
    bool HasTypedFault(PanelField field) const { return typed_[Index(field)].has_value(); }

    // What is wrong with the panel and belongs to no field.
    std::string GeneralFault() const;

    const PanelReading& Reading() const { return reading_; }

    const FieldRange& RangeOf(PanelField field) const { return requests_.ranges[Index(field)]; }

    // What is wrong with the range, which then stays as it was; empty where nothing is.
    std::string SetRange(PanelField field, const FieldRange& range);

    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }
    std::string UndoWords() const { return history_.UndoWords(); }
    std::string RedoWords() const { return history_.RedoWords(); }

    // Return the page on which the step is seen; nothing where it is seen beside every page, or where there is none.
    std::optional<StudyPages> Undo();
    std::optional<StudyPages> Redo();

  private:
    struct TypedFault {
        std::string text;
        std::string fault;
    };

    static std::size_t Index(PanelField field) { return static_cast<std::size_t>(field); }

    void Take(StudyProject project);
    PageRequests WithSoundRanges(PageRequests requests) const;
    StudyState State() const { return {project_.document, requests_}; }
    void Show(const StudyState& state);
    std::optional<StudyPages> ShowStep(const StudyHistory::Step& step, const StudyState& state);
    void Change(StudyState next, const StepName& name);
    void ChangeDocument(const ProjectDocument& document, const StepName& name);
    void ChangeRequests(const PageRequests& requests);
    void Renew();
    std::string FaultOfText(PanelField field, const std::string& text) const;

    StudyProject project_;
    bool is_changed_ = false;
    PageRequests requests_;
    StudyHistory history_;
    PanelReading reading_;
    std::array<std::optional<TypedFault>, kPanelFields.size()> typed_;
    std::vector<Listener> listeners_;
    TableChanger change_table_;
};

}  // namespace tarvokol
