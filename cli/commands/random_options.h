// SPDX-License-Identifier: GPL-3.0-or-later
// The options of studies whose figures are uncertain: fields with their distributions, and how they are drawn.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/line/command_options.h"
#include "core/studies/risk_study.h"

namespace tarvokol::cli {

class RandomOptions {
  public:
    // --random, --correlate, --samples, --seed and --plain.
    void Describe(CommandOptions& options);

    // What they ask for, of the project. Raises UsageError, and StudyRefusal for an unknown field.
    RiskRequest RequestFor(const Panel& project, unsigned threads) const;

  private:
    std::vector<std::string> random_;
    std::vector<std::string> correlations_;
    std::string samples_;
    std::string seed_;
    bool plain_ = false;
};

}  // namespace tarvokol::cli
