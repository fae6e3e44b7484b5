// SPDX-License-Identifier: GPL-3.0-or-later
// The options of studies whose figures are uncertain: fields with their distributions, and how they are drawn.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/line/command_options.h"
#include "core/studies/risk_study.h"
#include "core/studies/row_risk.h"

namespace tarvokol::cli {

class RandomOptions {
  public:
    // --random, --correlate, --samples, --seed and --plain, of a study that draws.
    void Describe(CommandOptions& options);

    // The same for a study whose rows have samples of their own where --random is given.
    void DescribeForRows(CommandOptions& options);

    bool AreGiven() const { return !random_.empty(); }

    // What they ask for, of the project. Raises UsageError, and StudyRefusal for an unknown field.
    RiskRequest RequestFor(const Panel& project, unsigned threads) const;

    // What they ask for, of each row; nothing without --random. Raises UsageError, and StudyRefusal for an unknown field.
    RowRiskRequest RequestForRows() const;

  private:
    void DescribeDrawing(CommandOptions& options, const std::string& samples);
    void RequireRandom() const;

    std::vector<std::string> random_;
    std::vector<std::string> correlations_;
    std::string samples_;
    std::string seed_;
    bool plain_ = false;
};

}  // namespace tarvokol::cli
