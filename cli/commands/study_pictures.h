// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the studies: curves over one field, a map over two, the spread of the factors.
#pragma once

#include <string>

#include "cli/commands/study_base.h"
#include "core/studies/risk_study.h"
#include "core/studies/sweep_study.h"

namespace tarvokol::cli {

// Raises UsageError where `figure`, the name that --of gives, is none, and for a size without --size.
void CheckFigure(const std::string& figure, bool sizes);

// Draws a sweep of one or two fields, of two the figure named; empty stands for the default. Raises UsageError for more
// fields, for a map whose axis has fewer than two values, and OutputError. True if a panel was refused.
bool DrawSweep(const SweepRequest& request, const RowJob& job, const std::string& figure,
               const std::string& path);

// Draws histogram and cumulative curve of each factor, its targets marked.
void DrawRisk(const RiskRequest& request, const RiskResult& result, const std::string& title,
              const std::string& path);

}  // namespace tarvokol::cli
