// SPDX-License-Identifier: GPL-3.0-or-later
#include "studies/model/study_history.h"

#include <utility>

namespace tarvokol {

bool AreSame(const StudyState& a, const StudyState& b) {
    return a.requests == b.requests && DocumentText(a.document) == DocumentText(b.document);
}

void StudyHistory::Add(Step step) {
    steps_.resize(done_);
    const bool goes_on =
        !sealed_ && !step.name.key.empty() && CanUndo() && steps_.back().name.key == step.name.key;
    if (goes_on)
        steps_.back().after = std::move(step.after);
    else
        steps_.push_back(std::move(step));
    sealed_ = steps_.back().table == nullptr && AreSame(steps_.back().before, steps_.back().after);
    if (sealed_) steps_.pop_back();
    if (steps_.size() > kMostSteps) steps_.erase(steps_.begin());
    done_ = steps_.size();
}

void StudyHistory::Clear() {
    steps_.clear();
    done_ = 0;
    sealed_ = true;
}

const StudyHistory::Step& StudyHistory::Undo() {
    Seal();
    return steps_[--done_];
}

const StudyHistory::Step& StudyHistory::Redo() {
    Seal();
    return steps_[done_++];
}

}  // namespace tarvokol
