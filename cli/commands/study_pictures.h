// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the studies: curves over one field, a map over two, the spread of the factors and what moves them.
#pragma once

#include <string>

#include "cli/commands/study_base.h"
#include "core/studies/risk_study.h"
#include "core/studies/sweep_study.h"
#include "core/studies/tornado_study.h"

namespace tarvokol::cli {

// Raises UsageError where `figure`, the name that --of gives, is none, for a size without --size, and for a probability without
// --random; with it probabilities alone are drawn.
void CheckFigure(const std::string& figure, bool sizes, bool probabilities);

// Draws a sweep of one or two fields, of two the figure named; empty stands for the default. True if a panel
// of it was refused. Raises UsageError for a request that cannot be drawn, DataError where there is nothing to be seen, and
// OutputError.
bool DrawSweep(const SweepRequest& request, const RowJob& job, const std::string& figure,
               const std::string& path);

// Draws histogram and cumulative curve of each factor, its targets marked. Raises DataError where every sample was
// refused, and OutputError.
void DrawRisk(const RiskRequest& request, const RiskResult& result, const std::string& title,
              const std::string& path);

// The same of what each field moves.
void DrawTornado(const RiskRequest& request, const TornadoResult& result, const std::string& title,
                 const std::string& path);

}  // namespace tarvokol::cli
