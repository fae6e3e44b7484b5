// SPDX-License-Identifier: GPL-3.0-or-later
// The changes of a study that can be undone and done again: those of its project, of what its pages ask for,
// and of the table.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "core/project/project_document.h"
#include "studies/model/page_requests.h"
#include "studies/model/sheet_change.h"

namespace tarvokol {

// A study at one time. Some kilobytes: a step keeps it whole, so that no step depends on those before it.
struct StudyState {
    ProjectDocument document;
    PageRequests requests;
};

bool AreSame(const StudyState& a, const StudyState& b);

class StudyHistory {
  public:
    struct Step {
        StepName name;
        StudyState before;
        StudyState after;
        std::shared_ptr<SheetChange> table{};  // a change of the table alone; before and after are then empty
    };

    // Adds a change; what had been undone is forgotten. Changes of one key that follow one another become one, until Seal:
    // a slider that is dragged over a hundred values is undone at once. Those that end where they began are none.
    void Add(Step step);
    void Seal() { sealed_ = true; }
    void Clear();

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }

    // What the next step would undo or do again: "Depth of cover". Empty where there is none.
    std::string UndoWords() const { return CanUndo() ? steps_[done_ - 1].name.words : ""; }
    std::string RedoWords() const { return CanRedo() ? steps_[done_].name.words : ""; }

    // The last change, whose `before` the study goes back to, or the next one, to whose `after` it goes. Only where there is
    // one; valid until the next call that is not const.
    const Step& Undo();
    const Step& Redo();

  private:
    static constexpr std::size_t kMostSteps = 1000;

    std::vector<Step> steps_;
    std::size_t done_ = 0;  // steps that are done; those after them are undone
    bool sealed_ = true;
};

}  // namespace tarvokol
