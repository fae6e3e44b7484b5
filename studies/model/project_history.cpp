// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/project_history.h"

namespace tarvokol {

void ProjectHistory::Add(const std::string& words, const std::string& key, const ProjectDocument& before,
                         const ProjectDocument& after) {
    steps_.resize(done_);
    if (!sealed_ && !key.empty() && CanUndo() && steps_.back().key == key) {
        steps_.back().after = after;
        return;
    }
    if (steps_.size() == kMostSteps) steps_.erase(steps_.begin());
    steps_.push_back({words, key, before, after});
    done_ = steps_.size();
    sealed_ = false;
}

void ProjectHistory::Clear() {
    steps_.clear();
    done_ = 0;
    sealed_ = true;
}

const ProjectDocument& ProjectHistory::Undo() {
    Seal();
    return steps_[--done_].before;
}

const ProjectDocument& ProjectHistory::Redo() {
    Seal();
    return steps_[done_++].after;
}

}  // namespace tarvokol
