// SPDX-License-Identifier: GPL-3.0-or-later
// The studies without their window: the project with its changes, what its boxes hold, the ranges of its fields, and the
// figures of the panel as it stands. Used by one thread.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "studies/model/field_range.h"
#include "studies/model/panel_reading.h"
#include "studies/model/project_history.h"
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

    const FieldRange& RangeOf(PanelField field) const { return ranges_[Index(field)]; }

    // What is wrong with the range, which then stays as it was; empty where nothing is.
    std::string SetRange(PanelField field, const FieldRange& range);
    void ProposeRange(PanelField field);

    bool CanUndo() const { return history_.CanUndo(); }
    bool CanRedo() const { return history_.CanRedo(); }
    std::string UndoWords() const { return history_.UndoWords(); }
    std::string RedoWords() const { return history_.RedoWords(); }
    void Undo();
    void Redo();

  private:
    struct TypedFault {
        std::string text;
        std::string fault;
    };

    static std::size_t Index(PanelField field) { return static_cast<std::size_t>(field); }

    void Take(StudyProject project);
    void Change(const ProjectDocument& document, const std::string& words, const std::string& key);
    void Renew();
    void FollowWithRange(PanelField field);
    std::string FaultOfText(PanelField field, const std::string& text) const;

    StudyProject project_;
    bool is_changed_ = false;
    ProjectHistory history_;
    PanelReading reading_;
    std::array<std::optional<TypedFault>, kPanelFields.size()> typed_;
    std::array<FieldRange, kPanelFields.size()> ranges_;
    std::vector<Listener> listeners_;
};

}  // namespace tarvokol
