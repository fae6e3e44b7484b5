// SPDX-License-Identifier: GPL-3.0-or-later
// How likely designs fall below their targets, all by the same uncertain fields.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/engine/panel.h"
#include "core/studies/study_observer.h"
#include "core/studies/study_requests.h"

namespace tarvokol {

// What a probability is of, in the order of DesignRisk::below.
inline constexpr std::array<const char*, 3> kDesignRisks{"Probability of webs below their target",
                                                         "Probability of barrier below its target",
                                                         "Probability of webs or barrier (or both) below"};

struct DesignRisk {
    std::array<std::string, kDesignRisks.size()> below;  // in words, with 95 % intervals
    std::string fault;                                   // why there is none
};

// One for each panel, on so many threads; nothing where the observer ended it. A share of a figure is that of each panel's
// own. Raises nothing.
std::optional<std::vector<DesignRisk>> CalculateDesignRisks(const RiskPlan& plan,
                                                            const std::vector<Panel>& panels,
                                                            unsigned threads, StudyObserver& observer);

}  // namespace tarvokol
