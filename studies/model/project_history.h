// SPDX-License-Identifier: GPL-3.0-or-later
// The changes of a project that can be undone and done again.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/project/project_document.h"

namespace tarvokol {

class ProjectHistory {
  public:
    // Adds a change; what had been undone is forgotten. Changes of one key that follow one another become one, until Seal:
    // a slider that is dragged over a hundred values is undone at once. An empty key stands for itself.
    void Add(const std::string& words, const std::string& key, const ProjectDocument& before,
             const ProjectDocument& after);
    void Seal() { sealed_ = true; }
    void Clear();

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }

    // What the next step would undo or do again: "Depth of cover". Empty where there is none.
    std::string UndoWords() const { return CanUndo() ? steps_[done_ - 1].words : ""; }
    std::string RedoWords() const { return CanRedo() ? steps_[done_].words : ""; }

    // The project before the last change, or after the next one. Only where there is one.
    const ProjectDocument& Undo();
    const ProjectDocument& Redo();

  private:
    struct Step {
        std::string words;
        std::string key;
        ProjectDocument before;
        ProjectDocument after;
    };
    static constexpr std::size_t kMostSteps = 1000;

    std::vector<Step> steps_;
    std::size_t done_ = 0;  // steps that are done; those after them are undone
    bool sealed_ = true;
};

}  // namespace tarvokol
