// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the studies: curves over one field, a map over two, the spread of the factors.
#pragma once

#include <string>
#include <vector>

#include "cli/commands/study_options.h"
#include "cli/commands/study_run.h"
#include "core/studies/risk_study.h"
#include "core/studies/value_axis.h"

namespace tarvokol::cli {

// Raises UsageError where --of names no figure, also where no picture is asked for.
void CheckFigure(const StudyOptions& options);

// Draws a sweep of one or two fields. Raises UsageError for more of them, for a map whose figure is not
// known, or whose axis has fewer than two values, and OutputError.
void DrawSweep(RowSource& source, const std::vector<ValueAxis>& axes, const Panel& project,
               const StudyOptions& options, const std::string& path);

// Draws histogram and cumulative curve of each factor, its targets marked.
void DrawRisk(const RiskResult& result, const StudyOptions& options, const std::string& path);

}  // namespace tarvokol::cli
