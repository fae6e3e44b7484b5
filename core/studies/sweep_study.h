// SPDX-License-Identifier: GPL-3.0-or-later
// Every combination of the values that fields of a project are given.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "core/engine/panel.h"
#include "core/studies/row_risk.h"
#include "core/studies/study_rows.h"
#include "core/studies/value_axis.h"

namespace tarvokol {

struct SweepRequest {
    Panel panel;  // the project; the axes set some of its fields
    std::vector<ValueAxis> axes;
    bool sizes = false;  // the suggested sizes, too
    unsigned threads = 1;
    RowRiskRequest risk{};  // the probabilities of each row, where they are asked for

    // A part of the rows: `count` of them from number `first` on, those that there are.
    std::uint64_t first = 0;
    std::uint64_t count = std::numeric_limits<std::uint64_t>::max();

    // Adds an axis; the last one runs fastest. Raises StudyRefusal for a field that has one.
    void AddAxis(ValueAxis axis);

    // Leaves part `part` of `parts`, from 1, each row in one of them and in its order; the first parts have a row more than the
    // others where the rows do not divide. Raises the errors of Rows.
    void TakePart(std::uint64_t part, std::uint64_t parts);

    // The number of all combinations. Raises StudyRefusal for more than can be counted.
    std::uint64_t Rows() const;
};

// Calculates the rows of the request; their values stand in the order of its axes. False if the observer ended it early.
// Same request, same bits, on any number of threads.
bool RunSweep(const SweepRequest& request, RowObserver& observer);

}  // namespace tarvokol
