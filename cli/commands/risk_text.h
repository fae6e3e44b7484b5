// SPDX-License-Identifier: GPL-3.0-or-later
// The summary of a risk study for people.
#pragma once

#include <cstdint>
#include <string>

#include "cli/commands/risk_extras.h"
#include "core/studies/risk_study.h"

namespace tarvokol::cli {

std::string RiskText(const RiskRequest& request, const RiskResult& result, const std::string& title,
                     const RiskExtras& extras);

// "25 of 100 samples (25 %)".
std::string RefusedWords(std::uint64_t refused, std::uint64_t samples);

}  // namespace tarvokol::cli
